#include "platform/BrowserSession.h"

#include "support/PlatformEnvironment.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace quillmere {

using testing::eventually;
using testing::PlatformEnvironment;
using testing::settle;

namespace {

const QString scheme = u"com.quillmere.studio"_s;
const QUrl signIn(u"https://login.quillmere.example/desktop-login?ticket=a%20b"_s);

} // namespace

class tst_BrowserSession : public QObject {
    Q_OBJECT

private:
    struct Waiting {
        std::optional<BrowserOutcome> outcome;

        bool ended() const
        {
            return eventually([this] { return outcome.has_value(); });
        }
    };

    std::unique_ptr<PlatformEnvironment> m_world;

    static BrowserSession &session() { return BrowserSession::shared(); }
    std::shared_ptr<Waiting> authenticate(const QUrl &url = signIn)
    {
        auto waiting = std::make_shared<Waiting>();
        session().authenticate(url, scheme).then([waiting](const BrowserOutcome &outcome) {
            waiting->outcome = outcome;
        });
        return waiting;
    }

private slots:
    void init() { m_world = std::make_unique<PlatformEnvironment>(); }
    void cleanup() { m_world.reset(); }

    void opensTheUrlAndWaits()
    {
        QVERIFY(!session().isWaiting());
        QSignalSpy changed(&session(), &BrowserSession::waitingChanged);
        const auto waiting = authenticate();
        QCOMPARE(m_world->urlOpener.opened, QList<QUrl>({signIn}));
        QVERIFY(session().isWaiting());
        QVERIFY(session().wasOpened());
        QCOMPARE(changed.size(), 1);
        settle();
        QVERIFY(!waiting->outcome);
    }

    void endsWithTheUrlThatComesBack_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("tokens in the fragment") << u"com.quillmere.studio://callback#access_token=x&state=a%20b%26c"_s;
        QTest::newRow("a token in the query") << u"com.quillmere.studio://callback?access_token=x"_s;
        QTest::newRow("one slash") << u"com.quillmere.studio:/callback#access_token=x"_s;
        QTest::newRow("no token at all") << u"com.quillmere.studio://other"_s;
    }
    void endsWithTheUrlThatComesBack()
    {
        QFETCH(QString, text);
        const auto waiting = authenticate();
        QSignalSpy changed(&session(), &BrowserSession::waitingChanged);
        QVERIFY(session().deliver(text));
        QVERIFY(!session().isWaiting());
        QCOMPARE(changed.size(), 1);
        QVERIFY(waiting->ended());
        QCOMPARE(waiting->outcome->kind, BrowserOutcome::Kind::Callback);
        QCOMPARE(waiting->outcome->callback.toString(QUrl::FullyEncoded), text);
    }

    void goesOnWaitingForAnythingElse_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("another scheme") << u"https://callback/#access_token=x"_s;
        QTest::newRow("a scheme that begins alike") << u"com.quillmere.studio.x://callback#access_token=x"_s;
        QTest::newRow("no URL") << u"com.quillmere.studio://call back"_s;
        QTest::newRow("a broken escape") << u"com.quillmere.studio://callback#access_token=%zz"_s;
        QTest::newRow("no scheme") << u"callback#access_token=x"_s;
        QTest::newRow("nothing") << QString();
    }
    void goesOnWaitingForAnythingElse()
    {
        QFETCH(QString, text);
        const auto waiting = authenticate();
        QVERIFY(!session().deliver(text));
        settle();
        QVERIFY(session().isWaiting());
        QVERIFY(!waiting->outcome);
    }

    void takesNothingWhileNoneWaits()
    {
        QVERIFY(!session().deliver(u"com.quillmere.studio://callback#access_token=x"_s));
        const auto waiting = authenticate();
        session().cancel();
        QVERIFY(!session().deliver(u"com.quillmere.studio://callback#access_token=x"_s));
        QVERIFY(waiting->ended());
        QCOMPARE(waiting->outcome->kind, BrowserOutcome::Kind::Canceled);
    }

    void takesOneUrlOnly()
    {
        const auto waiting = authenticate();
        QVERIFY(session().deliver(u"com.quillmere.studio://callback#access_token=first"_s));
        QVERIFY(!session().deliver(u"com.quillmere.studio://callback#access_token=second"_s));
        QVERIFY(waiting->ended());
        QCOMPARE(waiting->outcome->callback.fragment(), u"access_token=first"_s);
    }

    void endsAsCanceledWhenAsked()
    {
        const auto waiting = authenticate();
        QSignalSpy changed(&session(), &BrowserSession::waitingChanged);
        session().cancel();
        session().cancel();
        QCOMPARE(changed.size(), 1);
        QVERIFY(!session().isWaiting());
        QVERIFY(waiting->ended());
        QCOMPARE(waiting->outcome->kind, BrowserOutcome::Kind::Canceled);
        QVERIFY(waiting->outcome->callback.isEmpty());
    }

    void aNewSessionEndsTheOldOneAsCanceled()
    {
        const auto first = authenticate();
        const QUrl other(u"https://login.quillmere.example/desktop-login?ticket=other"_s);
        const auto second = authenticate(other);
        QVERIFY(first->ended());
        QCOMPARE(first->outcome->kind, BrowserOutcome::Kind::Canceled);
        QVERIFY(session().isWaiting());
        QCOMPARE(m_world->urlOpener.opened, QList<QUrl>({signIn, other}));
        QVERIFY(session().deliver(u"com.quillmere.studio://callback#access_token=x"_s));
        QVERIFY(second->ended());
        QCOMPARE(second->outcome->kind, BrowserOutcome::Kind::Callback);
    }

    void waitsOnWhenTheDesktopDoesNotOpenTheUrl()
    {
        m_world->urlOpener.opens = false;
        QSignalSpy openedChanged(&session(), &BrowserSession::openedChanged);
        const auto waiting = authenticate();
        QVERIFY(session().isWaiting());
        QVERIFY(!session().wasOpened());
        QCOMPARE(openedChanged.size(), 1);

        m_world->urlOpener.opens = true;
        session().openAgain();
        QVERIFY(session().wasOpened());
        QCOMPARE(openedChanged.size(), 2);
        QCOMPARE(m_world->urlOpener.opened, QList<QUrl>({signIn, signIn}));
        QVERIFY(session().deliver(u"com.quillmere.studio://callback#access_token=x"_s));
        QVERIFY(waiting->ended());
        QCOMPARE(waiting->outcome->kind, BrowserOutcome::Kind::Callback);
    }

    void copiesTheAddressAsItWasOpened()
    {
        const auto waiting = authenticate();
        session().copyLink();
        QCOMPARE(QGuiApplication::clipboard()->text(), signIn.toString(QUrl::FullyEncoded));
    }

    void forgetsTheAddressWithTheSession()
    {
        const auto waiting = authenticate();
        session().cancel();
        QGuiApplication::clipboard()->setText(u"before"_s);
        session().copyLink();
        session().openAgain();
        QCOMPARE(QGuiApplication::clipboard()->text(), u"before"_s);
        QCOMPARE(m_world->urlOpener.opened.size(), 1);
    }

    void endsAsCanceledWithTheEnvironment()
    {
        const auto waiting = authenticate();
        m_world.reset();
        QVERIFY(waiting->ended());
        QCOMPARE(waiting->outcome->kind, BrowserOutcome::Kind::Canceled);
    }
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_BrowserSession)
#include "tst_BrowserSession.moc"
