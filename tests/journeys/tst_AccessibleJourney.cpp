#include "journeys/JourneyTest.h"
#include "platform/Keyring.h"

#include <QDateTime>
#include <QFile>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString runningJob = u"Support Triage Assistant"_s;
const QString press = u"Press"_s;
const QString answer = u"Quantum computing uses quantum bits or qubits..."_s;

} // namespace

// A user who neither sees the window nor touches keyboard or pointer: all that happens goes through what the program tells
// assistive programs of itself.
class tst_AccessibleJourney : public JourneyTest {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QFile dataset(qEnvironmentVariable("HOME") + u"/questions.json"_s);
        QVERIFY(dataset.open(QIODevice::WriteOnly));
        QVERIFY(dataset.write("{\"text\": \"Why?\"}\n") > 0);
    }

    void signsInWorksAndLogsOut()
    {
        const auto studio = m_world->starts();
        QVERIFY(studio->writes(address, u"Email"_s));
        QVERIFY(studio->does(press, u"Continue"_s));
        QVERIFY(studio->shows(u"Authenticator Code"_s));
        QVERIFY(studio->writes(StandIn::totp(secret, QDateTime::currentDateTimeUtc()), u"Authenticator Code"_s));
        QVERIFY(studio->does(press, u"Sign In"_s));
        QVERIFY(studio->shows(u"Sidebar"_s, u"Sign In"_s));

        QVERIFY(studio->does(press, u"Training"_s));
        QVERIFY(studio->shows(runningJob));
        QVERIFY(studio->does(press, u"Cancel "_s + runningJob));
        QVERIFY(m_world->isAsked("POST", "/v1/fine-tuning/jobs/ft-40217/cancel"));
        QVERIFY(studio->shows(runningJob, u"Cancel "_s + runningJob));

        QVERIFY(studio->does(press, u"Datasets"_s));
        // The service's list, which a file uploaded before would have to give way to.
        QVERIFY(studio->shows(u"Delete style_guide.txt"_s));
        QVERIFY(studio->does(press, u"Upload Dataset"_s));
        QVERIFY(studio->does(press, u"questions.json"_s));
        QVERIFY(studio->shows(u"Delete questions.json"_s));
        QVERIFY(m_world->isAsked("POST", "/v1/files"));
        QCOMPARE(m_world->service.uploads().size(), 1);
        QCOMPARE(m_world->service.uploads()[0].filename, u"questions.json"_s);

        QVERIFY(studio->does(press, u"Analytics"_s));
        QVERIFY(studio->does(press, u"Deployment"_s));
        QVERIFY(studio->shows(u"Waiting for generation..."_s));
        QVERIFY(studio->does(press, u"RUN INFERENCE"_s));
        QVERIFY(studio->shows(answer, u"Waiting for generation..."_s));

        QVERIFY(studio->does(press, u"Settings"_s));
        QVERIFY(studio->does(press, u"Log Out"_s));
        QVERIFY(studio->shows(u"Email"_s, u"Sidebar"_s));
        const auto isForgotten = [] {
            return keyring::itemCount(accessTokenEntry) == 0 && keyring::itemCount(refreshTokenEntry) == 0;
        };
        QVERIFY(QTest::qWaitFor(isForgotten, 20'000));
    }

    // Nothing in the window leads to these; the program is told to select them.
    void worksAtTheDestinationsWithoutARow()
    {
        QVERIFY(keyring::stores(accessTokenEntry, m_world->service.signsIn(address).toStdString()));
        const auto studio = m_world->starts();
        QVERIFY(studio->shows(u"Sidebar"_s));

        studio->hears("documentation");
        QVERIFY(studio->does(press, u"API Reference"_s));
        QVERIFY(studio->shows(u"Base URL"_s));

        studio->hears("fineTune");
        QVERIFY(studio->does(press, u"Sample Dataset"_s));
        for (const QString &title : {u"Choose Base Model"_s, u"Configure Training"_s, u"Review & Start"_s}) {
            QVERIFY(studio->does(press, u"Continue"_s));
            QVERIFY2(studio->shows(title), qPrintable(title));
        }
        QVERIFY(studio->does(press, u"Start Fine-Tuning"_s));
        QVERIFY(studio->does(press, u"Done"_s));
        QVERIFY(studio->shows(u"Review & Start"_s, u"Done"_s));

        studio->hears("chat");
        QVERIFY(studio->writes(u"Hello"_s, u"Message"_s));
        QVERIFY(studio->does(press, u"Send"_s));
        QVERIFY(studio->shows(u"You: Hello"_s));
        QVERIFY(studio->does(press, u"Reset conversation"_s));
        QVERIFY(studio->shows(u"Conversation"_s, u"You: Hello"_s));

        studio->hears("deployment");
        QVERIFY(studio->does(press, u"RUN INFERENCE"_s));
        QVERIFY(studio->shows(answer, u"Waiting for generation..."_s));

        studio->hears("agents");
        QVERIFY(studio->does(press, u"Add Node"_s));
        QVERIFY(studio->does(press, u"Router"_s));
        QVERIFY(studio->does(press, u"Logic node New Logic"_s));
        QVERIFY(studio->shows(u"Inspector"_s));
        QVERIFY(studio->writes(u"!"_s, u"Name"_s));
        QVERIFY(studio->shows(u"Logic node New Logic!"_s, u"Logic node New Logic"_s));

        studio->hears("profile");
        QVERIFY(studio->does(press, u"Edit Profile"_s));
        QVERIFY(studio->does(press, u"Manage Subscription"_s));
        QVERIFY(studio->shows(u"John Doe"_s));
    }
};

QTEST_GUILESS_MAIN(tst_AccessibleJourney)
#include "tst_AccessibleJourney.moc"
