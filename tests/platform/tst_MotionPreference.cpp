#include "platform/MotionPreference.h"
#include "support/PlatformEnvironment.h"

#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;
using quillmere::testing::eventually;

namespace quillmere {

namespace {

const auto service = u"org.freedesktop.portal.Desktop"_s;
const auto path = u"/org/freedesktop/portal/desktop"_s;
const auto appearance = u"org.freedesktop.appearance"_s;
const auto reducedMotion = u"reduced-motion"_s;
const auto gnome = u"org.gnome.desktop.interface"_s;
const auto enableAnimations = u"enable-animations"_s;

// A desktop's portal, as far as it tells of settings.
class Portal : public QObject, public QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit Portal(const QDBusConnection &bus) : m_bus(bus) { }
    ~Portal() override
    {
        m_bus.unregisterObject(path);
        m_bus.unregisterService(service);
    }

    bool appears()
    {
        return m_bus.registerObject(path, this, QDBusConnection::ExportAllSlots) && m_bus.registerService(service);
    }

    void has(const QString &group, const QString &key, const QVariant &value) { m_settings[{group, key}] = value; }

    void changes(const QString &group, const QString &key, const QVariant &value)
    {
        has(group, key, value);
        auto signal = QDBusMessage::createSignal(path, u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
        signal << group << key << QVariant::fromValue(QDBusVariant(value));
        m_bus.send(signal);
    }

    int questions = 0;

public slots:
    QDBusVariant Read(const QString &group, const QString &key)
    {
        ++questions;
        if (!m_settings.contains({group, key})) {
            sendErrorReply(u"org.freedesktop.portal.Error.NotFound"_s, u"Requested setting not found"_s);
            return {};
        }
        // This question's answer has always been wrapped twice.
        return QDBusVariant(QVariant::fromValue(QDBusVariant(m_settings[{group, key}])));
    }

private:
    QDBusConnection m_bus;
    QMap<std::pair<QString, QString>, QVariant> m_settings;
};

} // namespace

class tst_MotionPreference : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // A bus that starts nobody: the machine may have a portal of its own.
        QVERIFY(m_configuration.open());
        m_configuration.write(
            "<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen><policy context='default'>"
            "<allow send_destination='*' eavesdrop='true'/><allow eavesdrop='true'/><allow "
            "own='*'/></policy></busconfig>");
        m_configuration.close();
        m_daemon.start(
            u"dbus-daemon"_s, {u"--config-file="_s + m_configuration.fileName(), u"--nofork"_s, u"--print-address"_s});
        QVERIFY(m_daemon.waitForReadyRead(5000));
        m_address = QString::fromLatin1(m_daemon.readLine()).trimmed();
    }
    void cleanupTestCase()
    {
        m_daemon.kill();
        m_daemon.waitForFinished();
    }

    void init()
    {
        ++m_turn;
        m_portal = std::make_unique<Portal>(QDBusConnection::connectToBus(m_address, name(u"portal"_s)));
    }
    void cleanup()
    {
        m_portal.reset();
        QDBusConnection::disconnectFromBus(name(u"studio"_s));
        QDBusConnection::disconnectFromBus(name(u"portal"_s));
    }

    void knowsWhatTheDesktopAsksFor_data()
    {
        QTest::addColumn<QVariant>("reduced"); // invalid: not known
        QTest::addColumn<QVariant>("animations");
        QTest::addColumn<bool>("isReduced");
        QTest::newRow("reduced") << QVariant(1u) << QVariant() << true;
        QTest::newRow("no preference") << QVariant(0u) << QVariant() << false;
        QTest::newRow("a preference of later days") << QVariant(2u) << QVariant() << false;
        QTest::newRow("GNOME without animations") << QVariant() << QVariant(false) << true;
        QTest::newRow("GNOME with animations") << QVariant() << QVariant(true) << false;
        QTest::newRow("reduced, whatever GNOME says") << QVariant(1u) << QVariant(true) << true;
        QTest::newRow("not reduced, whatever GNOME says") << QVariant(0u) << QVariant(false) << false;
        QTest::newRow("not a number") << QVariant(u"much"_s) << QVariant(u"no"_s) << false;
        QTest::newRow("neither") << QVariant() << QVariant() << false;
    }
    void knowsWhatTheDesktopAsksFor()
    {
        QFETCH(QVariant, reduced);
        QFETCH(QVariant, animations);
        QFETCH(bool, isReduced);
        if (reduced.isValid()) {
            m_portal->has(appearance, reducedMotion, reduced);
        }
        if (animations.isValid()) {
            m_portal->has(gnome, enableAnimations, animations);
        }
        QVERIFY(m_portal->appears());
        const MotionPreference preference(bus());
        QVERIFY(eventually([&] { return hasItsAnswers(preference); }));
        QCOMPARE(m_portal->questions, 2);
        QCOMPARE(preference.isReduced(), isReduced);
    }

    void followsAChange()
    {
        QVERIFY(m_portal->appears());
        const MotionPreference preference(bus());
        QSignalSpy changed(&preference, &MotionPreference::changed);
        QVERIFY(eventually([&] { return hasItsAnswers(preference); }));
        m_portal->changes(appearance, reducedMotion, 1u);
        QVERIFY(eventually([&] { return preference.isReduced(); }));
        QCOMPARE(changed.size(), 1);
        m_portal->changes(appearance, reducedMotion, 0u);
        QVERIFY(eventually([&] { return !preference.isReduced(); }));
        QCOMPARE(changed.size(), 2);
    }

    void tellsOfNoChangeThatIsNone()
    {
        m_portal->has(appearance, reducedMotion, 1u);
        QVERIFY(m_portal->appears());
        const MotionPreference preference(bus());
        QVERIFY(eventually([&] { return preference.isReduced(); }));
        QSignalSpy changed(&preference, &MotionPreference::changed);
        m_portal->changes(gnome, enableAnimations, false);
        m_portal->changes(appearance, u"color-scheme"_s, 0u);
        m_portal->changes(appearance, reducedMotion, 0u);
        QVERIFY(eventually([&] { return !preference.isReduced(); }));
        QCOMPARE(changed.size(), 1);
    }

    void needsNoPortal()
    {
        const MotionPreference preference(bus());
        QVERIFY(eventually([&] { return hasItsAnswers(preference); }));
        QVERIFY(!preference.isReduced());
    }

    void needsNoBus()
    {
        const MotionPreference preference(QDBusConnection(u"none"_s));
        QVERIFY(!preference.isReduced());
    }

private:
    QString name(const QString &whose) const { return u"%1 %2"_s.arg(whose).arg(m_turn); }
    // None of its questions is under way any more.
    static bool hasItsAnswers(const MotionPreference &preference)
    {
        return preference.findChildren<QDBusPendingCallWatcher *>().isEmpty();
    }

    QDBusConnection bus() const { return QDBusConnection::connectToBus(m_address, name(u"studio"_s)); }

    int m_turn = 0;
    QTemporaryFile m_configuration;
    QProcess m_daemon;
    QString m_address;
    std::unique_ptr<Portal> m_portal;
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_MotionPreference)
#include "tst_MotionPreference.moc"
