#include "analytics/systemmonitor/SystemPerformanceMonitorState.h"

#include "platform/SystemRandom.h"
#include "support/PlatformEnvironment.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmere {

using testing::PlatformEnvironment;

class tst_SystemPerformanceMonitorState : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<PlatformEnvironment> m_world;

private slots:
    void init() { m_world = std::make_unique<PlatformEnvironment>(); }
    void cleanup() { m_world.reset(); }

    void startsOnTheFirstDevice()
    {
        const SystemPerformanceMonitorState state;
        QCOMPARE(state.selectedDevice(), 0);
    }

    void drawsTwentyPointsFromTheMiddleOfTheLeftEdge()
    {
        const SystemPerformanceMonitorState state;
        const QList<QPointF> points = state.throughput();
        QCOMPARE(points.size(), 21);
        QCOMPARE(points[0], QPointF(0, 0.5));
        SystemRandom random(1);
        for (int i = 1; i <= 20; ++i) {
            QCOMPARE(points[i].x(), i / 20.0);
            QCOMPARE(points[i].y(), 0.5 + random.uniform(-0.3, 0.3));
            QVERIFY(points[i].y() >= 0.2 && points[i].y() <= 0.8);
        }
    }

    void drawsANewCurveWhenTheDeviceIsSwitched()
    {
        SystemPerformanceMonitorState state;
        QSignalSpy drawn(&state, &SystemPerformanceMonitorState::throughputChanged);
        QList<QPointF> before = state.throughput();
        for (const int device : {1, 0}) {
            state.setSelectedDevice(device);
            QCOMPARE(state.selectedDevice(), device);
            QVERIFY(state.throughput() != before);
            before = state.throughput();
        }
        QCOMPARE(drawn.size(), 2);
    }

    void hasNoTimer()
    {
        const SystemPerformanceMonitorState state;
        QCOMPARE(m_world->clock.scheduledCount(), 0);
        const QList<QPointF> before = state.throughput();
        m_world->clock.advance(1h);
        testing::settle();
        QCOMPARE(state.throughput(), before);
    }
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_SystemPerformanceMonitorState)
#include "tst_SystemPerformanceMonitorState.moc"
