#include "platform/MotionPreference.h"
#include "support/BareBus.h"
#include "support/PlatformEnvironment.h"
#include "support/SettingsPortal.h"

#include <QDBusPendingCallWatcher>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using quillmere::testing::BareBus;
using quillmere::testing::eventually;
using quillmere::testing::SettingsPortal;

namespace quillmere {

namespace {

const auto appearance = u"org.freedesktop.appearance"_s;
const auto reducedMotion = u"reduced-motion"_s;
const auto gnome = u"org.gnome.desktop.interface"_s;
const auto enableAnimations = u"enable-animations"_s;

} // namespace

class tst_MotionPreference : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(!m_bus.address().isEmpty()); }
    void init()
    {
        ++m_turn;
        m_portal = std::make_unique<SettingsPortal>(QDBusConnection::connectToBus(m_bus.address(), name(u"portal"_s)));
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

    QDBusConnection bus() const { return QDBusConnection::connectToBus(m_bus.address(), name(u"studio"_s)); }

    int m_turn = 0;
    BareBus m_bus;
    std::unique_ptr<SettingsPortal> m_portal;
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_MotionPreference)
#include "tst_MotionPreference.moc"
