// How long a step of dragging a node takes, from the pointer's move to the frame on the screen, with many nodes and connections on
// display; beside what a bare rectangle takes that follows the pointer in a window of the same size.
#include "Bench.h"
#include "Frames.h"

#include "app/theme/Theme.h"
#include "platform/Environment.h"
#include "tools/agents/AgentsState.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QRandomGenerator>

#include <cmath>

using namespace quillmere;
using namespace quillmere::bench;
using namespace Qt::StringLiterals;

namespace {

constexpr QSize windowSize(1600, 1000);
constexpr int steps = 300;

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

// Moves the pointer step by step, each time until the frame that shows it is done.
Samples drag(QQuickWindow &window, const std::function<void(QPointF)> &move)
{
    Frames frames(window);
    Samples times;
    for (int step = 0; step < steps; ++step) {
        times.push_back(frames.timeTo([&] { move(placeAt(step)); }));
    }
    return times;
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
    runUntil([&view] { return view->isExposed(); }, "The window does not show.");
    view->grabWindow();
    return view;
}

Samples dragRectangle()
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

Samples dragNode(int count)
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
    const Samples times = drag(*view, [&](QPointF place) { send(*view, QEvent::MouseMove, place); });
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
    Theme::registerFaces();

    for (const auto &[count, most] : {std::pair(100, 16.0), std::pair(500, 33.0)}) {
        const Samples floor = dragRectangle();
        print({u"drag a node, one of %1, with %1 connections"_s.arg(count), "ms", dragNode(count), u"a rectangle"_s,
            floor, atMost(most)});
    }
    return exitCode();
}
