#include "platform/PortalFileChooser.h"
#include "support/BareBus.h"
#include "support/PlatformEnvironment.h"

#include <QDBusArgument>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusObjectPath>

using namespace Qt::StringLiterals;
using quillmere::testing::BareBus;
using quillmere::testing::eventually;
using quillmere::testing::settle;

namespace quillmere {

namespace {

const auto service = u"org.freedesktop.portal.Desktop"_s;
const auto root = u"/org/freedesktop/portal/desktop"_s;
const auto requestInterface = u"org.freedesktop.portal.Request"_s;

// The dialog that a portal shows, as far as the bus sees it.
class PortalRequest : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Request")

public:
    int closed = 0;

public slots:
    void Close() { ++closed; }
};

class Portal : public QObject, public QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.FileChooser")

public:
    explicit Portal(const QDBusConnection &bus) : m_bus(bus) { }

    bool appears()
    {
        return m_bus.registerObject(root, this, QDBusConnection::ExportAllSlots) && m_bus.registerService(service);
    }

    void answers(uint code, const QVariantMap &results = {})
    {
        QDBusMessage signal = QDBusMessage::createSignal(path, requestInterface, u"Response"_s);
        signal << code << results;
        m_bus.send(signal);
    }

    void vanishes() { m_bus.unregisterService(service); }

    // What was asked for.
    int calls = 0;
    QString parentWindow;
    QString title;
    QVariantMap options;
    PortalRequest request;

    QString path; // of the request; told by the caller's token unless a test has set its own
    bool refuses = false;
    bool isSlow = false;

public slots:
    QDBusObjectPath OpenFile(const QString &parent, const QString &name, const QVariantMap &map)
    {
        ++calls;
        parentWindow = parent;
        title = name;
        options = map;
        if (refuses) {
            sendErrorReply(QDBusError::UnknownMethod, u"No backend picks files"_s);
            return {};
        }
        if (path.isEmpty()) {
            path = u"%1/request/%2/%3"_s.arg(
                root, message().service().mid(1).replace(u'.', u'_'), map.value(u"handle_token"_s).toString());
        }
        m_bus.registerObject(path, &request, QDBusConnection::ExportAllSlots);
        if (isSlow) {
            setDelayedReply(true);
        }
        return QDBusObjectPath(path);
    }

private:
    QDBusConnection m_bus;
};

FileRequest datasets()
{
    return {u"Choose a Dataset"_s, u"JSON, plain text, CSV"_s, {u"application/json"_s, u"text/plain"_s, u"text/csv"_s}};
}

} // namespace

class tst_PortalFileChooser : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(!m_daemon.address().isEmpty()); }
    void init()
    {
        ++m_turn;
        m_bus = std::make_unique<QDBusConnection>(QDBusConnection::connectToBus(m_daemon.address(), name(u"studio"_s)));
        QVERIFY(m_bus->isConnected());
        m_portal = std::make_unique<Portal>(QDBusConnection::connectToBus(m_daemon.address(), name(u"portal"_s)));
        m_chooser = std::make_unique<PortalFileChooser>(*m_bus);
        m_outcome.reset();
    }
    void cleanup()
    {
        m_chooser.reset();
        settle();
        m_portal.reset();
        m_bus.reset();
        QDBusConnection::disconnectFromBus(name(u"studio"_s));
        QDBusConnection::disconnectFromBus(name(u"portal"_s));
    }

    void asksForOneFileOfTheTypes()
    {
        opens();
        QCOMPARE(m_portal->title, u"Choose a Dataset"_s);
        QCOMPARE(m_portal->parentWindow, QString());
        QCOMPARE(m_portal->options.value(u"multiple"_s), false);
        QCOMPARE(m_portal->options.value(u"directory"_s), false);
        QCOMPARE(m_portal->options.value(u"modal"_s), true);

        const auto filters = m_portal->options.value(u"filters"_s).value<QDBusArgument>();
        QCOMPARE(filters.currentSignature(), u"a(sa(us))"_s);
        QStringList rules;
        filters.beginArray();
        while (!filters.atEnd()) {
            QString name;
            filters.beginStructure();
            filters >> name;
            rules.append(name);
            filters.beginArray();
            while (!filters.atEnd()) {
                uint kind = 0;
                QString type;
                filters.beginStructure();
                filters >> kind >> type;
                filters.endStructure();
                rules.append(u"%1 %2"_s.arg(kind).arg(type));
            }
            filters.endArray();
            filters.endStructure();
        }
        filters.endArray();
        QCOMPARE(rules,
            QStringList({u"JSON, plain text, CSV"_s, u"1 application/json"_s, u"1 text/plain"_s, u"1 text/csv"_s}));
    }

    void givesWhatWasPicked()
    {
        opens();
        m_portal->answers(0, {{u"uris"_s, QStringList(u"file:///home/ada/100%25%20%231.jsonl"_s)}});
        QVERIFY(ends());
        QCOMPARE((**m_outcome)->size(), 1);
        QCOMPARE((**m_outcome)->first().toLocalFile(), u"/home/ada/100% #1.jsonl"_s);
    }

    void givesNothingWhenTheUserClosesIt()
    {
        opens();
        m_portal->answers(1);
        QVERIFY(ends());
        QVERIFY((**m_outcome)->isEmpty());
    }

    void failsWhenTheDialogFails()
    {
        opens();
        m_portal->answers(2);
        QVERIFY(fails(u"The desktop's file dialog failed"_s));
    }

    void failsWhenThePortalVanishes()
    {
        opens();
        m_portal->vanishes();
        QVERIFY(fails(u"The desktop's file dialog went away"_s));
    }

    void followsAPortalThatNamesTheDialogItself()
    {
        m_portal->path = u"/of/its/own"_s;
        opens();
        // Over and over: nobody sees when the chooser has heard of the name.
        QVERIFY(eventually([this] {
            m_portal->answers(0, {{u"uris"_s, QStringList(u"file:///a.json"_s)}});
            return m_outcome.has_value();
        }));
        QCOMPARE((**m_outcome)->first().toLocalFile(), u"/a.json"_s);
    }

    void takesNoAnswerFromOthers()
    {
        opens();
        auto other = QDBusConnection::connectToBus(m_daemon.address(), u"other"_s);
        QDBusMessage forged = QDBusMessage::createSignal(m_portal->path, requestInterface, u"Response"_s);
        forged << uint(0) << QVariantMap{{u"uris"_s, QStringList(u"file:///etc/shadow"_s)}};
        QVERIFY(other.send(forged));
        // What is sent to all is seen by the chooser before what follows it.
        other.call(
            QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/"_s, u"org.freedesktop.DBus"_s, u"GetId"_s));
        settle();
        QVERIFY(!m_outcome);
        m_portal->answers(1);
        QVERIFY(ends());
        QVERIFY((**m_outcome)->isEmpty());
        QDBusConnection::disconnectFromBus(u"other"_s);
    }

    void closesTheDialog()
    {
        opens();
        m_chooser->close();
        QVERIFY(ends());
        QVERIFY((**m_outcome)->isEmpty());
        QVERIFY(eventually([this] { return m_portal->request.closed == 1; }));
        // What comes too late changes nothing.
        m_portal->answers(0, {{u"uris"_s, QStringList(u"file:///a.json"_s)}});
        settle();
        QVERIFY((**m_outcome)->isEmpty());
    }

    void closesADialogThatIsOnItsWay()
    {
        m_portal->isSlow = true;
        opens();
        m_chooser->close();
        QVERIFY(ends());
        QVERIFY(eventually([this] { return m_portal->request.closed == 1; }));
    }

    void hasNoDialogWithoutAPortal()
    {
        asks();
        QVERIFY(ends());
        QVERIFY(!*m_outcome);
    }

    void hasNoDialogWhereThePortalPicksNoFiles()
    {
        m_portal->refuses = true;
        opens();
        QVERIFY(ends());
        QVERIFY(!*m_outcome);
    }

    void hasNoDialogWhenThePortalDiesBeforeItShowsOne()
    {
        m_portal->isSlow = true;
        opens();
        m_portal.reset();
        QDBusConnection::disconnectFromBus(name(u"portal"_s));
        QVERIFY(ends());
        QVERIFY(!*m_outcome);
    }

    void hasNoDialogWithoutABus()
    {
        m_chooser = std::make_unique<PortalFileChooser>(QDBusConnection(u"none"_s));
        asks();
        QVERIFY(ends());
        QVERIFY(!*m_outcome);
    }

private:
    QString name(const QString &who) const { return who + QString::number(m_turn); }

    void asks()
    {
        m_chooser->open(datasets()).then([this](PortalFileChooser::Outcome outcome) {
            m_outcome = std::move(outcome);
        });
    }
    void opens()
    {
        QVERIFY(m_portal->appears());
        asks();
        QVERIFY(eventually([this] { return m_portal->calls == 1; }));
        settle();
    }
    bool ends() const
    {
        return eventually([this] { return m_outcome.has_value(); });
    }
    bool fails(const QString &why) const
    {
        return ends() && *m_outcome && !**m_outcome && (*m_outcome)->failure().localizedDescription() == why;
    }

    BareBus m_daemon;
    int m_turn = 0;
    std::unique_ptr<QDBusConnection> m_bus;
    std::unique_ptr<Portal> m_portal;
    std::unique_ptr<PortalFileChooser> m_chooser;
    std::optional<PortalFileChooser::Outcome> m_outcome;
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_PortalFileChooser)
#include "tst_PortalFileChooser.moc"
