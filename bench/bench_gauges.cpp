// What the moving screens of the analytics cost, in per cent of one core: the gauges as they run and gauges that never rest, the
// training telemetry in full mode, and the monitoring tab. Beside them stands the floor of anything that moves: fourteen plain
// rectangles as large as the arcs that change colour in every frame. They take turns, some seconds each.
#include "Bench.h"

#include "app/theme/Theme.h"
#include "platform/Environment.h"

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>

#include <atomic>
#include <ctime>

using namespace quillmere;
using namespace quillmere::bench;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr QSize windowSize{1440, 900};

const QByteArray rectangles = R"(
import QtQuick
Grid {
    columns: 5
    spacing: 80
    Repeater {
        model: 14
        Rectangle {
            width: 126; height: 126; color: "black"
            SequentialAnimation on color {
                loops: Animation.Infinite
                ColorAnimation { to: "blue"; duration: 1000 }
                ColorAnimation { to: "black"; duration: 1000 }
            }
        }
    }
})";

const QByteArray restless = R"(
import QtQuick
import Quillmere.Analytics
import Quillmere.Controls
FlexibleGrid {
    id: grid
    property bool turn: false
    width: 1220
    minimumColumnWidth: 180
    spacing: 20
    Timer { interval: 300; repeat: true; running: true; onTriggered: grid.turn = !grid.turn }
    Repeater {
        model: 14
        GaugeMeterView { metricName: "Gauge"; value: grid.turn ? 31 : 64; unit: "%"; icon: "cpu"; maxValue: 100 }
    }
})";

// Of one subject, a sample for each of its turns.
struct Cost {
    Samples percent;
    Samples framesPerSecond;
};

std::unique_ptr<QQuickView> open(const QString &file = {})
{
    auto view = std::make_unique<QQuickView>();
    view->engine()->addImportPath(u"qrc:/qt/qml"_s);
    view->setColor(Qt::black);
    view->setResizeMode(QQuickView::SizeRootObjectToView);
    view->resize(windowSize);
    if (!file.isEmpty()) {
        view->setSource(QUrl(u"qrc:/qt/qml/Quillmere/Analytics/"_s + file));
        check(view->rootObject(), "The screen does not show.");
    }
    view->show();
    return view;
}

std::unique_ptr<QQuickView> openText(const QByteArray &qml)
{
    auto view = open();
    QQmlComponent component(view->engine());
    component.setData(qml, QUrl());
    auto *item = qobject_cast<QQuickItem *>(component.create());
    check(item, "The picture does not show.");
    item->setParentItem(view->contentItem());
    item->setParent(view.get());
    return view;
}

void watch(QQuickWindow &window, std::chrono::seconds time, Cost &cost)
{
    runFor(1500ms); // what happens once at the start
    std::atomic<int> frames = 0;
    const auto counting = QObject::connect(
        &window, &QQuickWindow::frameSwapped, &window, [&frames] { ++frames; }, Qt::DirectConnection);
    const qint64 begin = nanoseconds();
    const std::clock_t before = std::clock(); // of all threads
    runFor(time);
    const double seconds = double(nanoseconds() - begin) / 1e9;
    cost.percent.push_back(100.0 * double(std::clock() - before) / CLOCKS_PER_SEC / seconds);
    cost.framesPerSecond.push_back(frames / seconds);
    QObject::disconnect(counting);
}

} // namespace

int main(int argc, char *argv[])
{
    const QGuiApplication app(argc, argv);
    const auto environment = Environment::real();
    Theme::registerFaces();

    Cost floor;
    Cost moving;
    Cost gauges;
    Cost telemetry;
    Cost monitoring;
    Cost gone;
    const auto time = isQuick(argc, argv) ? 2s : 4s;
    for (int turn = 0; turn < 6; ++turn) {
        watch(*openText(rectangles), time, floor);
        watch(*openText(restless), time, moving);
        watch(*open(u"GaugeAnalyticsDashboardView.qml"_s), time, gauges);
        const auto full = open(u"TrainingTelemetryView.qml"_s);
        full->rootObject()->setProperty("isFullTelemetry", true);
        watch(*full, time, telemetry);
        full->setSource({});
        watch(*full, 1s, gone);
        watch(*open(u"MonitoringView.qml"_s), time, monitoring);
    }
    // Where not even rectangles reach the display's rate, a share tells of fewer frames than a user would see.
    const bool keepsUp = estimate(floor.framesPerSecond).median > 57;
    const auto row = [&floor, keepsUp](const QString &what, const Cost &cost, double most) {
        const auto aim = keepsUp ? std::optional(atMost(most)) : std::nullopt;
        const QString rectangles = u"fourteen rectangles"_s;
        print({u"share of a core: "_s + what, "%", cost.percent, rectangles, floor.percent, aim});
        print({u"  its frames a second"_s, "", cost.framesPerSecond, rectangles, floor.framesPerSecond, {}});
    };
    row(u"gauges as they run"_s, gauges, 15);
    row(u"fourteen gauges without a rest"_s, moving, 15);
    row(u"telemetry, full"_s, telemetry, 3);
    row(u"monitoring"_s, monitoring, 1);
    row(u"a page that is gone"_s, gone, 0.5);
    return exitCode();
}
