#include "app/theme/Motion.h"
#include "platform/Environment.h"
#include "support/BareBus.h"
#include "support/SettingsPortal.h"
#include "support/Waiting.h"

#include <QDBusConnection>
#include <QSignalSpy>
#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;
using quillmere::testing::BareBus;
using quillmere::testing::eventually;
using quillmere::testing::SettingsPortal;

namespace quillmere {

namespace {

// x'' = w² (1 - x) - 2 d w x' from rest at 0, by the classical Runge-Kutta method: the spring itself, step by step.
double springAfter(double seconds, double response, double damping)
{
    const double w = 2 * M_PI / response;
    double x = 0;
    double v = 0;
    constexpr int steps = 20'000;
    const double h = seconds / steps;
    const auto pull = [&](double place, double speed) { return w * w * (1 - place) - 2 * damping * w * speed; };
    for (int i = 0; i < steps; ++i) {
        const double a1 = pull(x, v);
        const double v2 = v + h / 2 * a1;
        const double a2 = pull(x + h / 2 * v, v2);
        const double v3 = v + h / 2 * a2;
        const double a3 = pull(x + h / 2 * v2, v3);
        const double v4 = v + h * a3;
        const double a4 = pull(x + h * v3, v4);
        x += h / 6 * (v + 2 * v2 + 2 * v3 + v4);
        v += h / 6 * (a1 + 2 * a2 + 2 * a3 + a4);
    }
    return x;
}

} // namespace

class tst_Motion : public QObject {
    Q_OBJECT

private slots:
    // The session bus, which the machine may have a portal on.
    void initTestCase() { qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.address().toLatin1()); }

    void keepsToTheDataWhereTheDesktopAsksForLess()
    {
        SettingsPortal desktop(QDBusConnection::connectToBus(m_bus.address(), u"desktop"_s));
        desktop.has(u"org.freedesktop.appearance"_s, u"reduced-motion"_s, 1u);
        QVERIFY(desktop.appears());
        const Environment environment;
        const Motion motion;
        QSignalSpy changed(&motion, &Motion::changed);
        QVERIFY(eventually([&] { return !changed.isEmpty(); }));
        QCOMPARE(Motion::standard(), 0);
        QCOMPARE(Motion::brief(), 0);
        QCOMPARE(Motion::popup(), 0);
        QCOMPARE(Motion::entrance(), 0);
        QCOMPARE(Motion::hover(), 0);
        QCOMPARE(Motion::ofData(0.8), 800);
    }

    void takesItsTime()
    {
        const Environment environment;
        QCOMPARE(Motion::standard(), 350);
        QCOMPARE(Motion::ofInterface(0.8), 800);
        QCOMPARE(Motion::ofData(0.8), 800);
        QCOMPARE(Motion::ofData(0.0014), 1);
        QCOMPARE(Motion::ofData(0), 0);
        QVERIFY(Motion::hover() > 0);
    }

    void arrivesAtOnceWithoutAnimations()
    {
        Environment environment;
        environment.animations = false;
        QCOMPARE(Motion::standard(), 0);
        QCOMPARE(Motion::ofInterface(0.8), 0);
        QCOMPARE(Motion::ofData(0.8), 0);
        QCOMPARE(Motion::hover(), 0);
    }

    void movesLikeASpring_data()
    {
        QTest::addColumn<double>("response");
        QTest::addColumn<double>("damping");
        QTest::newRow("soft") << 0.55 << 0.825;
        QTest::newRow("quick") << 0.3 << 0.7;
        QTest::newRow("bouncing") << 0.5 << 0.3;
        QTest::newRow("without overshoot") << 0.4 << 1.0;
    }
    void movesLikeASpring()
    {
        QFETCH(double, response);
        QFETCH(double, damping);
        const Environment environment;
        const double duration = Motion::settlingTime(response, damping);
        const QEasingCurve curve = Motion::spring(response, damping);
        QCOMPARE(curve.valueForProgress(0), 0.0);
        QCOMPARE(curve.valueForProgress(1), 1.0);
        for (int i = 1; i < 20; ++i) {
            const double expected = springAfter(duration * i / 20, response, damping);
            const double actual = curve.valueForProgress(i / 20.0);
            QVERIFY2(std::abs(actual - expected) < 0.02,
                qPrintable(u"at %1: %2 instead of %3"_s.arg(i / 20.0).arg(actual).arg(expected)));
        }
        // Settled: within a thousandth from then on.
        QVERIFY(std::abs(springAfter(duration, response, damping) - 1) < 0.0015);
        QVERIFY(std::abs(springAfter(duration * 1.3, response, damping) - 1) < 0.0015);
    }

    void overshootsWhenLooselyDampedOnly()
    {
        const Environment environment;
        const auto highest = [](const QEasingCurve &curve) {
            double top = 0;
            for (int i = 0; i <= 100; ++i) {
                top = std::max(top, curve.valueForProgress(i / 100.0));
            }
            return top;
        };
        // The first overshoot of a damped spring is exp(-pi d / sqrt(1 - d²)).
        QVERIFY(std::abs(highest(Motion::spring(0.5, 0.5)) - (1 + std::exp(-M_PI * 0.5 / std::sqrt(0.75)))) < 0.02);
        QVERIFY(highest(Motion::spring(0.5, 1)) <= 1.001);
    }

private:
    BareBus m_bus;
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_Motion)
#include "tst_Motion.moc"
