// What the moving screens of the analytics cost: the gauges at rest between their ticks and in motion, gauges that never rest, and the
// training telemetry in full mode, in per cent of one core. Beside them, measured in the same run, stands a floor: fourteen plain
// rectangles as large as the arcs that change colour in every frame. It draws what a user would see, without a window system
// (QT_QPA_PLATFORM=offscreen) and in the software renderer, for some seconds each. The exit code is 1 when the gauges take 15 % or
// more, the telemetry 3 % or more, a page that is gone anything at all, or when gauges in motion fall behind the display.

#include "app/theme/Theme.h"
#include "platform/Environment.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>

using namespace quillmere;
using namespace Qt::StringLiterals;

namespace {

constexpr int seconds = 10;
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
AdaptiveGrid {
    id: grid
    property bool turn: false
    width: 1220
    minimumCellWidth: 180
    spacing: 20
    Timer { interval: 300; repeat: true; running: true; onTriggered: grid.turn = !grid.turn }
    Repeater {
        model: 14
        GaugeMeterView { metricName: "Gauge"; value: grid.turn ? 31 : 64; unit: "%"; icon: "cpu"; maxValue: 100 }
    }
})";

struct Cost {
    double percent;
    double framesPerSecond;
};

void wait(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

Cost measure(const char *name, QQuickWindow &window)
{
    wait(1500); // what happens once at the start
    int frames = 0;
    const auto counting = QObject::connect(&window, &QQuickWindow::afterRendering, [&frames] { ++frames; });
    QElapsedTimer time;
    time.start();
    const std::clock_t before = std::clock(); // of all threads
    wait(seconds * 1000);
    const double passed = double(time.nsecsElapsed()) / 1e9;
    const Cost cost{100.0 * double(std::clock() - before) / CLOCKS_PER_SEC / passed, frames / passed};
    QObject::disconnect(counting);
    std::printf("  %-44s %5.1f %%  %5.1f frames a second\n", name, cost.percent, cost.framesPerSecond);
    std::fflush(stdout);
    return cost;
}

void show(QQuickView &view, const QByteArray &qml)
{
    QQmlComponent component(view.engine());
    component.setData(qml, QUrl());
    auto *item = qobject_cast<QQuickItem *>(component.create());
    if (!item) {
        qFatal("%s", qPrintable(component.errorString()));
    }
    item->setParentItem(view.contentItem());
    item->setParent(&view);
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication app(argc, argv);
    const auto environment = Environment::real();
    Theme::registerFonts();

    const auto open = [](const QString &file = {}) {
        auto view = std::make_unique<QQuickView>();
        view->engine()->addImportPath(u"qrc:/qt/qml"_s);
        view->setColor(Qt::black);
        view->setResizeMode(QQuickView::SizeRootObjectToView);
        view->resize(windowSize);
        if (!file.isEmpty()) {
            view->setSource(QUrl(u"qrc:/qt/qml/Quillmere/Analytics/"_s + file));
        }
        view->show();
        return view;
    };

    std::printf("Per cent of one core at %d x %d in the software renderer\n", windowSize.width(), windowSize.height());
    auto view = open();
    show(*view, rectangles);
    measure("floor: fourteen rectangles", *view);

    view = open();
    show(*view, restless);
    const Cost moving = measure("fourteen gauges without a rest", *view);

    view = open(u"GaugeAnalyticsDashboardView.qml"_s);
    const Cost gauges = measure("the gauges' page", *view);

    view = open(u"TrainingTelemetryView.qml"_s);
    view->rootObject()->setProperty("isFullTelemetry", true);
    const Cost telemetry = measure("training telemetry, full", *view);

    view->setSource({});
    const Cost gone = measure("a page that is gone", *view);

    const bool kept = moving.percent < 15 && gauges.percent < 15 && telemetry.percent < 3 && gone.percent < 0.5
        && moving.framesPerSecond >= 60 && gone.framesPerSecond == 0;
    return kept ? 0 : 1;
}
