// How long a step of dragging a node takes, from the pointer's move to the frame on the screen, with many nodes and connections on
// display; beside what a bare rectangle takes that follows the pointer in a window of the same size, in the same run. The exit
// code is 1 when the median with 100 nodes and 100 connections is 16 ms or more, or with 500 of each 33 ms or more.
//
// Run it with QT_QPA_PLATFORM=offscreen QT_QUICK_BACKEND=software, which is how screens are drawn without a graphics processor.

#include "app/theme/Theme.h"
#include "platform/Environment.h"
#include "tools/agents/AgentsState.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QRandomGenerator>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <vector>

using namespace quillmere;
using namespace Qt::StringLiterals;

namespace {

constexpr QSize windowSize(1600, 1000);
constexpr int steps = 300;

void check(bool condition, const char *what)
{
    if (!condition) {
        std::fprintf(stderr, "%s\n", what);
        std::exit(2);
    }
}

void send(QWindow &window, QEvent::Type type, QPointF place)
{
    const bool moves = type == QEvent::MouseMove;
    const bool released = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, place, window.mapToGlobal(place), moves ? Qt::NoButton : Qt::LeftButton,
        released ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &event);
}

// A long way about the window in short steps.
QPointF placeAt(int step)
{
    const double angle = step * 0.05;
    return {550 + 350 * std::sin(angle), 450 + 300 * std::sin(angle * 1.7)};
}

struct Times {
    double median;
    double worstTwentieth;
};

// Moves the pointer step by step, each time until the frame that shows it is done.
Times drag(QQuickWindow &window, const std::function<void(QPointF)> &move)
{
    std::vector<double> times;
    bool shown = false;
    const auto watch = QObject::connect(
        &window, &QQuickWindow::frameSwapped, &window, [&] { shown = true; }, Qt::DirectConnection);
    for (int step = 0; step < steps; ++step) {
        shown = false;
        QElapsedTimer timer;
        timer.start();
        move(placeAt(step));
        while (!shown) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        times.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    QObject::disconnect(watch);
    std::sort(times.begin(), times.end());
    return {times[times.size() / 2], times[times.size() * 19 / 20]};
}

std::unique_ptr<QQuickView> show(const std::function<void(QQuickView &)> &fill)
{
    auto view = std::make_unique<QQuickView>();
    view->engine()->addImportPath(u"qrc:/qt/qml"_s);
    view->setResizeMode(QQuickView::SizeRootObjectToView);
    view->resize(windowSize);
    fill(*view);
    check(view->rootObject(), "The screen does not show.");
    view->show();
    while (!view->isExposed()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    view->grabWindow();
    return view;
}

Times dragRectangle()
{
    const auto view = show([](QQuickView &view) {
        QQmlComponent component(view.engine());
        component.setData("import QtQuick\nRectangle { color: \"#111111\"\n"
                          "Rectangle { objectName: \"mover\"; width: 236; height: 60; color: \"gray\" } }",
            {});
        view.setContent({}, &component, component.create());
    });
    auto *mover = view->rootObject()->findChild<QQuickItem *>(u"mover"_s);
    return drag(*view, [&](QPointF place) { mover->setPosition(place); });
}

Times dragNode(int count)
{
    const auto view =
        show([](QQuickView &view) { view.setSource(QUrl(u"qrc:/qt/qml/Quillmere/Tools/AgentsView.qml"_s)); });
    auto *agents = view->rootObject()->findChild<AgentsState *>();

    QRandomGenerator random(1);
    QList<AgentNode> nodes;
    for (int i = 0; i < count; ++i) {
        const QPointF place(120 + random.bounded(1060), 90 + random.bounded(760));
        nodes.append(AgentNode::make(AgentVocabulary::NodeType(i % 5), place, u"Node %1"_s.arg(i)));
    }
    QList<NodeConnection> connections;
    for (int i = 0; i < count; ++i) {
        const auto any = [&] { return nodes[random.bounded(count)].id; };
        // Two at the dragged node, which lies on top of all.
        connections.append({QUuid::createUuid(), i < 2 ? nodes.last().id : any(), any()});
    }
    nodes.last().position = placeAt(0);
    agents->setNodes(nodes);
    agents->setConnections(connections);
    view->grabWindow();

    send(*view, QEvent::MouseButtonPress, placeAt(0));
    send(*view, QEvent::MouseMove, placeAt(0) + QPointF(30, 0));
    check(agents->selectedNodeId() == nodes.last().id, "The drag does not take.");
    const Times times = drag(*view, [&](QPointF place) { send(*view, QEvent::MouseMove, place); });
    send(*view, QEvent::MouseButtonRelease, placeAt(steps - 1));
    check(agents->nodes().last().position == placeAt(steps - 1), "The node does not follow the pointer.");
    return times;
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    Environment environment;
    environment.animations = false;
    Theme::registerFonts();

    const Times floor = dragRectangle();
    std::printf("                                    median   95 of 100\n");
    std::printf("a rectangle (floor)               %6.2f ms   %6.2f ms\n", floor.median, floor.worstTwentieth);
    bool fast = true;
    for (const auto &[count, limit] : {std::pair(100, 16.0), std::pair(500, 33.0)}) {
        const Times times = dragNode(count);
        std::printf("%3d nodes and %3d connections     %6.2f ms   %6.2f ms   aim: below %.0f ms\n", count, count,
            times.median, times.worstTwentieth, limit);
        fast = fast && times.median < limit;
    }
    return fast ? 0 : 1;
}
