#include "app/theme/Color.h"
#include "platform/Environment.h"
#include "support/AnimationTime.h"
#include "support/ViewTest.h"
#include "tools/agents/AgentsState.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmere::testing;

namespace quillmere {

using AgentVocabulary::NodeStatus;
using AgentVocabulary::NodeType;

namespace {

constexpr QSize viewSize(1100, 700);
constexpr double inspectorWidth = 300;
const QColor ground(0x11, 0x11, 0x11);

QString white(double opacity)
{
    return word(Color::faded(Qt::white, opacity));
}

// What a colour of that opacity gives over a solid one.
QColor over(const QColor &below, const QColor &color)
{
    const auto mixed = [&](float (QColor::*channel)() const) {
        return (color.*channel)() * color.alphaF() + (below.*channel)() * (1 - color.alphaF());
    };
    return QColor::fromRgbF(mixed(&QColor::redF), mixed(&QColor::greenF), mixed(&QColor::blueF));
}

bool isNear(const QColor &one, const QColor &other)
{
    return std::abs(one.red() - other.red()) <= 4 && std::abs(one.green() - other.green()) <= 4
        && std::abs(one.blue() - other.blue()) <= 4;
}

const QColor line = over(ground, Color::faded(Color::gray(), 0.5));

} // namespace

class tst_AgentsView : public ViewTest {
    Q_OBJECT

private:
    AgentsState *m_agents = nullptr;

    void open()
    {
        ViewTest::open(u"Tools/AgentsView.qml"_s, viewSize);
        m_agents = m_view->rootObject()->findChild<AgentsState *>();
        QVERIFY(m_agents);
    }

    const AgentNode &model(int index) const { return m_agents->nodes()[index]; }
    // The node's item, by the order in which the nodes came.
    QQuickItem *node(int index) const
    {
        for (auto *item : m_window->all(u"NodeView"_s)) {
            if (item->property("identifier").toString() == model(index).identifier()) {
                return item;
            }
        }
        return nullptr;
    }
    QQuickItem *inspector() const { return m_window->all(u"InspectorView"_s).value(0); }
    QQuickItem *button(const QString &name) const
    {
        auto *button = m_window->button(name);
        return button ? button : m_window->control(QAccessible::ButtonMenu, name);
    }
    void click(const QString &name) { m_window->click(button(name)); }
    void select(int index) { m_agents->setSelectedNodeId(model(index).id); }

    // Opens the menu behind that button and presses an entry.
    void pick(const QString &menu, const QString &entry)
    {
        click(menu);
        m_window->click(m_window->control(QAccessible::MenuItem, entry));
    }

    // Where a point of the canvas is in the window.
    QPointF inWindow(QPointF point) const
    {
        const double width = viewSize.width() - (inspector() ? inspectorWidth : 0);
        const QPointF middle(width / 2, viewSize.height() / 2.0);
        return middle + (point - middle) * m_agents->scale();
    }

    void pressAt(QPointF place) { QTest::mousePress(m_view.get(), Qt::LeftButton, {}, place.toPoint()); }
    void moveTo(QPointF place) { QTest::mouseMove(m_view.get(), place.toPoint()); }
    void releaseAt(QPointF place) { QTest::mouseRelease(m_view.get(), Qt::LeftButton, {}, place.toPoint()); }
    void clickAt(QPointF place) { QTest::mouseClick(m_view.get(), Qt::LeftButton, {}, place.toPoint()); }

    QColor pixelAt(QPointF place) const { return m_view->grabWindow().pixelColor(place.toPoint()); }

    static QQuickItem *bodyOf(const QQuickItem *node)
    {
        for (auto *plate : backgroundOf(node)->childItems()) {
            if (plate->width() == 220) {
                return plate;
            }
        }
        return nullptr;
    }
    static bool isSelected(const QQuickItem *node)
    {
        return QAccessible::queryAccessibleInterface(const_cast<QQuickItem *>(node))->state().selected;
    }

private slots:
    // Bars.

    void showsItsTitleAndItsTwoButtons()
    {
        open();
        auto *title = m_window->text(u"Agent Workflow"_s);
        QCOMPARE(fontOf(title), u"Inter 16 700"_s);
        QCOMPARE(colorOf(title), u"#ffffffff"_s);
        QCOMPARE(placeOf(title).left(), 16.0);
        auto *run = button(u"Run Agent"_s);
        auto *debug = button(u"Debug"_s);
        QCOMPARE(placeOf(debug).right(), viewSize.width() - 16.0);
        QCOMPARE(placeOf(debug).left() - placeOf(run).right(), 8.0);
        QCOMPARE(fontOf(run), u"Inter 12 600"_s);
        QCOMPARE(fontOf(debug), u"Inter 12 400"_s);
        QVERIFY(m_window->symbol(u"play.fill"_s, run));
        QVERIFY(m_window->symbol(u"ladybug.fill"_s, debug));
        QCOMPARE(colorOf(run, "fillColor"), word(Color::green()));
        QCOMPARE(pixelAt({3, 100}), ground);
    }

    void turnsTheRunButtonAndNothingElse()
    {
        open();
        const QList<AgentNode> before = m_agents->nodes();
        click(u"Run Agent"_s);
        auto *run = button(u"Running..."_s);
        QVERIFY(run);
        QVERIFY(m_window->symbol(u"stop.fill"_s, run));
        QCOMPARE(colorOf(run, "fillColor"), word(Color::red()));
        QCOMPARE(m_agents->nodes(), before);
        QVERIFY(m_agents->connections().isEmpty());
        QVERIFY(!m_agents->selectedNodeId());
        click(u"Running..."_s);
        QVERIFY(button(u"Run Agent"_s));
        QVERIFY(m_window->symbol(u"play.fill"_s, button(u"Run Agent"_s)));
        QCOMPARE(colorOf(button(u"Run Agent"_s), "fillColor"), word(Color::green()));
    }

    void doesNothingOnDebug()
    {
        open();
        const QImage before = m_view->grabWindow();
        const QList<AgentNode> nodes = m_agents->nodes();
        click(u"Debug"_s);
        QTest::mouseMove(m_view.get(), {viewSize.width() - 1, viewSize.height() - 1});
        QCOMPARE(m_agents->nodes(), nodes);
        QVERIFY(!m_agents->isRunning());
        QVERIFY(!m_agents->selectedNodeId());
        QCOMPARE(m_view->grabWindow(), before);
    }

    void keepsThePointerFromWhatIsBelowTheBars()
    {
        open();
        m_agents->drag(model(0).identifier(), {400, 20});
        m_agents->selectNothing();
        m_window->hover(m_window->text(u"Agent Workflow"_s));
        QTest::mouseMove(m_view.get(), {400, 20});
        QVERIFY(!node(0)->property("isHovering").toBool());
        clickAt({400, 20});
        QVERIFY(!m_agents->selectedNodeId());
        select(0);
        clickAt({400, 20});
        QVERIFY(m_agents->selectedNodeId());
    }

    void zoomsByItsTwoButtons()
    {
        open();
        auto *out = button(u"Zoom Out"_s);
        auto *in = button(u"Zoom In"_s);
        QVERIFY(m_window->symbol(u"minus.magnifyingglass"_s, out));
        QVERIFY(m_window->symbol(u"plus.magnifyingglass"_s, in));
        QVERIFY(placeOf(out).right() < placeOf(in).left());
        m_window->click(in);
        QCOMPARE(m_agents->scale(), 1.1);
        // About the middle of the work area.
        const QPointF middle(viewSize.width() / 2.0, viewSize.height() / 2.0);
        QCOMPARE(placeOf(node(0)).center(), middle + (QPointF(100, 300) - middle) * 1.1);
        m_window->click(out);
        m_window->click(out);
        QCOMPARE(m_agents->scale(), 0.9);
        for (int i = 0; i < 20; ++i) {
            m_window->click(in);
        }
        QVERIFY(m_agents->scale() == 2);
        for (int i = 0; i < 20; ++i) {
            m_window->click(out);
        }
        QVERIFY(m_agents->scale() == 0.5);
    }

    // Palette.

    void listsThePaletteInSections()
    {
        open();
        auto *add = button(u"Add Node"_s);
        QCOMPARE(colorOf(add, "labelColor"), word(Color::blue()));
        QVERIFY(m_window->symbol(u"plus"_s, add));
        m_window->click(add);
        const auto *menu = m_window->all(u"MenuSection"_s).value(0)->parentItem();
        QCOMPARE(m_window->texts(menu),
            QStringList({u"Triggers"_s, u"Webhook"_s, u"Schedule"_s, u"Logic"_s, u"Router"_s, u"Condition"_s,
                u"AI Models"_s, u"Chat Model"_s, u"Embedding"_s, u"Tools"_s, u"Search"_s, u"API Call"_s, u"Data"_s,
                u"Vector Store"_s}));
        QStringList symbols;
        for (const auto *symbol : m_window->all(u"SymbolIcon"_s, menu)) {
            symbols.append(symbol->property("name").toString());
        }
        QCOMPARE(symbols,
            QStringList({u"bolt.fill"_s, u"clock.fill"_s, u"arrow.triangle.branch"_s, u"diamond.fill"_s,
                u"brain.head.profile"_s, u"squareshape.split.3x3"_s, u"magnifyingglass"_s, u"network"_s,
                u"cylinder.fill"_s}));
        // Above its button, and whole in the window.
        QVERIFY(placeOf(menu).bottom() <= placeOf(add).top());
        QVERIFY(placeOf(menu).top() >= 0);
    }

    void addsANodeOfTheSectionsType_data()
    {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<NodeType>("type");
        QTest::newRow("webhook") << u"Webhook"_s << NodeType::Trigger;
        QTest::newRow("schedule") << u"Schedule"_s << NodeType::Trigger;
        QTest::newRow("router") << u"Router"_s << NodeType::Logic;
        QTest::newRow("condition") << u"Condition"_s << NodeType::Logic;
        QTest::newRow("chat model") << u"Chat Model"_s << NodeType::Llm;
        QTest::newRow("embedding") << u"Embedding"_s << NodeType::Llm;
        QTest::newRow("search") << u"Search"_s << NodeType::Tool;
        QTest::newRow("api call") << u"API Call"_s << NodeType::Tool;
        QTest::newRow("vector store") << u"Vector Store"_s << NodeType::Data;
    }

    void addsANodeOfTheSectionsType()
    {
        QFETCH(QString, entry);
        open();
        pick(u"Add Node"_s, entry);
        QCOMPARE(m_agents->nodes().size(), 4);
        QTEST(model(3).type, "type");
        QCOMPARE(model(3).title, AgentVocabulary::newTitle(model(3).type));
        QCOMPARE(placeOf(node(3)).center(), QPointF(400, 300));
        QVERIFY(!m_agents->selectedNodeId());
        QVERIFY(!inspector());
    }

    void addsOneNodeHoweverOftenAnEntryIsPressed()
    {
        m_world->environment.animations = true;
        AnimationTime time;
        open();
        click(u"Add Node"_s);
        const auto isListed = [this] { return m_window->control(QAccessible::MenuItem, u"Router"_s) != nullptr; };
        QVERIFY(time.passesUntil(isListed));
        const QPoint entry = placeOf(m_window->control(QAccessible::MenuItem, u"Router"_s)).center().toPoint();
        QTest::mouseClick(m_view.get(), Qt::LeftButton, {}, entry);
        QTest::mouseClick(m_view.get(), Qt::LeftButton, {}, entry);
        settle();
        QCOMPARE(m_agents->nodes().size(), 4);
    }

    void laysTheLaterOfTwoNewNodesOnTop()
    {
        open();
        pick(u"Add Node"_s, u"Vector Store"_s);
        pick(u"Add Node"_s, u"Router"_s);
        QCOMPARE(placeOf(node(3)), placeOf(node(4)));
        clickAt({400, 300});
        QCOMPARE(m_agents->selectedNodeId(), std::optional(model(4).id));
    }

    // Nodes.

    void keepsTheLookOfANode()
    {
        open();
        auto *llm = node(1);
        QCOMPARE(placeOf(llm).center(), QPointF(400, 300));
        QCOMPARE(llm->width(), 8 + 220 + 8.0);
        auto *body = bodyOf(llm);
        QCOMPARE(body->width(), 220.0);
        QCOMPARE(body->property("radius").toDouble(), 12.0);
        QCOMPARE(colorOf(body), u"#ff1a1a1a"_s);
        QCOMPARE(colorOf(body, "shadowColor"), word(Color::faded(Qt::black, 0.3)));
        QCOMPARE(body->property("shadowRadius").toDouble(), 4.0);
        QCOMPARE(colorOf(body, "strokeColor"), white(0.1));
        QCOMPARE(body->property("strokeWidth").toDouble(), 1.0);
        const auto ports = m_window->all(u"Port"_s, llm);
        QCOMPARE(ports.size(), 2);
        for (const auto *port : ports) {
            QCOMPARE(port->size(), QSizeF(8, 8));
            QCOMPARE(colorOf(port), word(Color::gray()));
        }
        QCOMPARE(placeOf(ports[0]).right(), placeOf(body).left());
        QCOMPARE(placeOf(ports[1]).left(), placeOf(body).right());
        auto *icon = m_window->symbol(u"brain.head.profile"_s, llm);
        QCOMPARE(colorOf(icon), word(Color::purple()));
        QCOMPARE(icon->property("size").toDouble(), 16.0);
        QVERIFY(icon->property("bold").toBool());
        auto *tile = icon->parentItem();
        QCOMPARE(tile->size(), QSizeF(36, 36));
        QCOMPARE(placeOf(tile).topLeft() - placeOf(body).topLeft(), QPointF(12, 12));
        QCOMPARE(colorOf(tile), word(Color::faded(Color::purple(), 0.2)));
        auto *title = m_window->text(u"GPT-4 Chain"_s);
        QCOMPARE(fontOf(title), u"Inter 14 600"_s);
        QCOMPARE(colorOf(title), u"#ffffffff"_s);
        auto *label = m_window->text(u"LLM"_s);
        QCOMPARE(fontOf(label), u"Inter 10 400"_s);
        QCOMPARE(colorOf(label), word(Color::gray()));
        QVERIFY(placeOf(title).bottom() <= placeOf(label).top());
    }

    void showsADotForEachStatusButIdle()
    {
        open();
        const auto dotOf = [&](int index) -> QQuickItem * {
            for (auto *plate : m_window->all(u"Plate"_s, node(index))) {
                if (plate->size() == QSizeF(6, 6)) {
                    return plate;
                }
            }
            return nullptr;
        };
        QVERIFY(!dotOf(1));
        const QList<std::pair<NodeStatus, QColor>> colors{{NodeStatus::Running, Color::blue()},
            {NodeStatus::Success, Color::green()}, {NodeStatus::Error, Color::red()}};
        for (const auto &[status, color] : colors) {
            AgentNode changed = model(1);
            changed.status = status;
            m_agents->setNode(changed);
            auto *dot = dotOf(1);
            QVERIFY(dot);
            QCOMPARE(colorOf(dot), word(color));
            QCOMPARE(placeOf(bodyOf(node(1))).right() - placeOf(dot).right(), 12.0);
            QVERIFY(isNear(pixelAt(placeOf(dot).center()), color));
        }
    }

    void growsAndIsStrokedUnderThePointer()
    {
        open();
        auto *body = bodyOf(node(0));
        m_window->hover(node(0));
        QCOMPARE(node(0)->scale(), 1.02);
        QCOMPARE(colorOf(body, "strokeColor"), white(0.2));
        QCOMPARE(body->property("strokeWidth").toDouble(), 1.0);
        moveTo({5, 600});
        QCOMPARE(node(0)->scale(), 1.0);
        QCOMPARE(colorOf(body, "strokeColor"), white(0.1));
    }

    void hoversOnlyTheTopmostNode()
    {
        open();
        pick(u"Add Node"_s, u"Router"_s);
        m_window->hover(node(3));
        QVERIFY(node(3)->property("isHovering").toBool());
        QVERIFY(!node(1)->property("isHovering").toBool());
    }

    void selectsANodeByATap()
    {
        open();
        m_window->click(node(2));
        QCOMPARE(m_agents->selectedNodeId(), std::optional(model(2).id));
        auto *body = bodyOf(node(2));
        QCOMPARE(colorOf(body, "strokeColor"), word(Color::blue()));
        QCOMPARE(body->property("strokeWidth").toDouble(), 2.0);
        moveTo({5, 600});
        QCOMPARE(node(2)->scale(), 1.02);
        QCOMPARE(model(2).position, QPointF(700, 300));
        QVERIFY(inspector());
        m_window->click(node(0));
        QVERIFY(isSelected(node(0)));
        QVERIFY(!isSelected(node(2)));
    }

    void closesTheInspectorByATapOnTheBackground()
    {
        open();
        m_window->click(node(2));
        QVERIFY(inspector());
        clickAt({300, 500});
        QVERIFY(!m_agents->selectedNodeId());
        QVERIFY(!inspector());
    }

    void elidesALongTitleToOneLine()
    {
        open();
        select(1);
        m_agents->setTitle(u"A title that is much too long for the node\nand has a second line"_s);
        for (auto *label : m_window->all(u"Label"_s, node(1))) {
            QVERIFY(placeOf(bodyOf(node(1))).contains(placeOf(label)));
            QCOMPARE(label->property("lineCount").toInt(), 1);
        }
        QCOMPARE(node(1)->height(), 60.0);
    }

    // Drags.

    void selectsAndDoesNotMoveByADragShorterThanTen()
    {
        open();
        const QPointF start(460, 310);
        pressAt(start);
        moveTo(start + QPointF(7, 7)); // 9.9 points away
        QCOMPARE(model(1).position, QPointF(400, 300));
        QVERIFY(!m_agents->selectedNodeId());
        releaseAt(start + QPointF(7, 7));
        QCOMPARE(model(1).position, QPointF(400, 300));
        QCOMPARE(m_agents->selectedNodeId(), std::optional(model(1).id));
    }

    void dragsFromTenPointsOn()
    {
        open();
        const QPointF start(460, 310);
        pressAt(start);
        moveTo(start + QPointF(8, 6));
        QCOMPARE(model(1).position, start + QPointF(8, 6));
        // Once it goes it follows the pointer back as well.
        moveTo(start + QPointF(2, 1));
        QCOMPARE(model(1).position, start + QPointF(2, 1));
        releaseAt(start + QPointF(2, 1));
        QCOMPARE(model(1).position, start + QPointF(2, 1));
        // The next one begins anew.
        pressAt(start + QPointF(2, 1));
        moveTo(start + QPointF(5, 1));
        QCOMPARE(model(1).position, start + QPointF(2, 1));
        releaseAt(start + QPointF(5, 1));
    }

    void jumpsWithItsCentreUnderThePointerWhereverItWasGrabbed_data()
    {
        QTest::addColumn<int>("zoomSteps");
        QTest::newRow("at half the size") << -6;
        QTest::newRow("at its own size") << 0;
        QTest::newRow("at twice the size") << 10;
    }

    void jumpsWithItsCentreUnderThePointerWhereverItWasGrabbed()
    {
        QFETCH(int, zoomSteps);
        open();
        for (int i = 0; i < std::abs(zoomSteps); ++i) {
            zoomSteps < 0 ? m_agents->zoomOut() : m_agents->zoomIn();
        }
        const double scale = m_agents->scale();
        const QPointF edge = placeOf(node(1)).topLeft() + QPointF(12, 30) * scale;
        pressAt(edge);
        const QPointF target = edge + QPointF(40, 25);
        moveTo(target);
        // The inspector has come, and the middle about which the canvas is scaled has moved; the position is that of the first step.
        const QPointF middle(viewSize.width() / 2.0, viewSize.height() / 2.0);
        QCOMPARE(model(1).position, middle + (target.toPoint() - middle) / scale);
        moveTo(target + QPointF(30, 10));
        QCOMPARE(placeOf(node(1)).center(), target.toPoint() + QPointF(30, 10));
        QCOMPARE(inWindow(model(1).position), target.toPoint() + QPointF(30, 10));
        releaseAt(target + QPointF(30, 10));
        QCOMPARE(placeOf(node(1)).center(), target.toPoint() + QPointF(30, 10));
    }

    void opensTheInspectorForTheNodeThatIsDragged()
    {
        open();
        m_window->click(node(0));
        pressAt({400, 300});
        moveTo({400, 330});
        QCOMPARE(m_agents->selectedNodeId(), std::optional(model(1).id));
        QVERIFY(m_window->text(u"LLM"_s, inspector()));
        releaseAt({400, 330});
        QVERIFY(isSelected(node(1)));
    }

    void dragsWithTheLeftButtonOnly()
    {
        open();
        QTest::mousePress(m_view.get(), Qt::RightButton, {}, {400, 300});
        QTest::mouseMove(m_view.get(), {450, 330});
        QTest::mouseRelease(m_view.get(), Qt::RightButton, {}, {450, 330});
        QCOMPARE(model(1).position, QPointF(400, 300));
    }

    void doesNotSnapToTheGrid()
    {
        open();
        pressAt({400, 300});
        moveTo({413, 337});
        releaseAt({413, 337});
        QCOMPARE(model(1).position, QPointF(413, 337));
    }

    // Connections and grid.

    void drawsConnectionsBelowTheNodes()
    {
        open();
        QVERIFY(!isNear(pixelAt({250, 300}), line));
        m_agents->setConnections({{QUuid::createUuid(), model(0).id, model(1).id}});
        QCOMPARE(pixelAt({250, 300}), pixelAt({250, 299}));
        QVERIFY(isNear(pixelAt({250, 300}), line));
        QVERIFY(!isNear(pixelAt({250, 302}), line));
        // Below the body.
        QVERIFY(isNear(pixelAt({296, 300}), QColor(0x1a, 0x1a, 0x1a)));
    }

    void bendsAConnectionByAHundredPointsAtEachEnd()
    {
        open();
        m_agents->drag(model(2).identifier(), {500, 600});
        m_agents->drag(model(0).identifier(), {200, 120});
        m_agents->drag(model(1).identifier(), {900, 300});
        m_agents->selectNothing();
        m_agents->setConnections({{QUuid::createUuid(), model(0).id, model(2).id}});
        const QImage picture = m_view->grabWindow();
        // The cubic curve by its formula, where it is clear of the two nodes.
        const QPointF ends[] = {{200, 120}, {300, 120}, {400, 600}, {500, 600}};
        for (const double t : {0.3, 0.4, 0.6, 0.7}) {
            const double u = 1 - t;
            const QPointF place =
                u * u * u * ends[0] + 3 * u * u * t * ends[1] + 3 * u * t * t * ends[2] + t * t * t * ends[3];
            int nearest = 255;
            for (int x = -1; x <= 1; ++x) {
                nearest =
                    std::min(nearest, std::abs(picture.pixelColor(place.toPoint() + QPoint(x, 0)).red() - line.red()));
            }
            QVERIFY2(nearest < 24, qPrintable(u"nothing at %1, %2"_s.arg(place.x()).arg(place.y())));
        }
    }

    void drawsNothingForAConnectionWhoseNodeIsMissing()
    {
        open();
        const QImage before = m_view->grabWindow();
        m_agents->setConnections({{QUuid::createUuid(), model(0).id, QUuid::createUuid()},
            {QUuid::createUuid(), QUuid::createUuid(), model(1).id}});
        QCOMPARE(m_view->grabWindow(), before);
    }

    void drawsAConnectionWithoutRegardToTheSelection()
    {
        open();
        m_agents->setConnections({{QUuid::createUuid(), model(0).id, model(1).id}});
        const QColor before = pixelAt({250, 300});
        select(0);
        QCOMPARE(pixelAt({250, 300}), before);
    }

    void takesConnectionsAlongWithADraggedNode()
    {
        open();
        m_agents->setConnections(
            {{QUuid::createUuid(), model(0).id, model(1).id}, {QUuid::createUuid(), model(1).id, model(2).id}});
        select(2);
        // What stands after many steps is what stands after one.
        for (int i = 0; i < 20; ++i) {
            m_agents->drag(model(0).identifier(), {100, 310.0 + 10 * i});
            m_view->grabWindow();
        }
        QVERIFY(!isNear(pixelAt({250, 300}), line));
        QVERIFY(isNear(pixelAt({550, 300}), line));
        m_agents->drag(model(2).identifier(), {700, 420});
        m_view->grabWindow();
        m_agents->drag(model(1).identifier(), {400, 480});
        const QImage dragged = m_view->grabWindow();
        const auto connections = m_agents->connections();
        m_agents->setConnections({});
        QVERIFY(m_view->grabWindow() != dragged);
        m_agents->setConnections(connections);
        QCOMPARE(m_view->grabWindow(), dragged);
    }

    void scalesConnectionsWithTheNodes()
    {
        open();
        m_agents->setConnections({{QUuid::createUuid(), model(1).id, model(2).id}});
        for (int i = 0; i < 10; ++i) {
            m_agents->zoomIn();
        }
        const QPointF place = inWindow({550, 300});
        // Four points wide.
        QVERIFY(isNear(pixelAt(place), line));
        QVERIFY(isNear(pixelAt(place - QPointF(0, 2)), line));
        QVERIFY(!isNear(pixelAt(place + QPointF(0, 3)), line));
    }

    void drawsTheGridFromTheTopLeftOutsideOfTheScaling_data()
    {
        QTest::addColumn<int>("zoomSteps");
        QTest::addColumn<int>("cell");
        QTest::newRow("at its own size") << 0 << 40;
        QTest::newRow("at half the size") << -6 << 20;
        QTest::newRow("at seven tenths") << -3 << 28;
        QTest::newRow("at twice the size") << 10 << 80;
    }

    void drawsTheGridFromTheTopLeftOutsideOfTheScaling()
    {
        QFETCH(int, zoomSteps);
        QFETCH(int, cell);
        open();
        for (int i = 0; i < std::abs(zoomSteps); ++i) {
            zoomSteps < 0 ? m_agents->zoomOut() : m_agents->zoomIn();
        }
        const QImage picture = m_view->grabWindow();
        const QColor gridLine = over(ground, Color::faded(Qt::white, 0.05));
        // Along a row between two lines, below the nodes and above the bar.
        const int y = 9 * 60 + 7;
        for (int x = 0; x < 300; ++x) {
            const QColor expected = x % cell == 0 ? gridLine : ground;
            QVERIFY2(isNear(picture.pixelColor(x, y), expected)
                    && (expected == ground) == (picture.pixelColor(x, y) == ground),
                qPrintable(u"at %1: %2"_s.arg(x).arg(picture.pixelColor(x, y).name())));
        }
        // A crossing is no brighter.
        const int crossing = (560 / cell) * cell;
        QCOMPARE(picture.pixelColor(cell, crossing), picture.pixelColor(cell + 1, crossing));
    }

    // Inspector.

    void showsTheFieldsOfEachType_data()
    {
        QTest::addColumn<NodeType>("type");
        QTest::addColumn<QStringList>("labels");
        const QStringList common{u"Name"_s, u"Description"_s};
        QTest::newRow("trigger") << NodeType::Trigger << common;
        QTest::newRow("logic") << NodeType::Logic << common;
        QTest::newRow("llm") << NodeType::Llm << common + QStringList({u"Model"_s, u"Temperature"_s});
        QTest::newRow("tool") << NodeType::Tool << common + QStringList(u"Tool Type"_s);
        QTest::newRow("data") << NodeType::Data << common;
    }

    void showsTheFieldsOfEachType()
    {
        QFETCH(NodeType, type);
        open();
        m_agents->addNode(type);
        select(3);
        QCOMPARE(placeOf(inspector()).right(), double(viewSize.width()));
        QCOMPARE(inspector()->width(), inspectorWidth);
        QCOMPARE(colorOf(inspector()), u"#ff161616"_s);
        QStringList labels;
        for (const auto *field : m_window->all(u"InspectorField"_s)) {
            labels.append(field->property("label").toString());
            QVERIFY(m_window->text(labels.last(), field));
        }
        QTEST(labels, "labels");
        auto *heading = m_window->text(AgentVocabulary::label(type), inspector());
        QCOMPARE(fontOf(heading), u"Inter 14 700"_s);
        QCOMPARE(colorOf(heading), word(Color::gray()));
        QCOMPARE(
            colorOf(m_window->symbol(AgentVocabulary::icon(type), inspector())), word(AgentVocabulary::color(type)));
        QCOMPARE(m_window->field(u"Name"_s)->property("text").toString(), AgentVocabulary::newTitle(type));
        QCOMPARE(m_window->field(u"Name"_s)->property("placeholderText").toString(), u"Node Name"_s);
        QCOMPARE(m_window->field(u"Description"_s)->property("text").toString(), u"Configure this node"_s);
    }

    void keepsFocusAndCursorWhileEachKeystrokeWritesTheNode()
    {
        open();
        select(1);
        auto *field = m_window->field(u"Name"_s);
        m_window->click(field);
        m_window->press(Qt::Key_Home);
        m_window->type(u"My"_s);
        QCOMPARE(model(1).title, u"MyGPT-4 Chain"_s);
        QVERIFY(m_window->text(u"MyGPT-4 Chain"_s, node(1)));
        QVERIFY(field->hasActiveFocus());
        QCOMPARE(field->property("cursorPosition").toInt(), 2);
        m_window->type(u" "_s);
        QCOMPARE(model(1).title, u"My GPT-4 Chain"_s);
        QCOMPARE(m_window->field(u"Name"_s), field);

        auto *description = m_window->field(u"Description"_s);
        m_window->click(description);
        m_window->press(Qt::Key_Home);
        m_window->type(u"ab"_s);
        m_window->press(Qt::Key_Return);
        m_window->type(u"c"_s);
        QCOMPARE(model(1).description, u"ab\ncConfigure this node"_s);
        QVERIFY(description->hasActiveFocus());
        QCOMPARE(description->property("cursorPosition").toInt(), 4);
        QCOMPARE(model(0).description, u"Configure this node"_s);
    }

    void showsTheOtherNodesTextsAfterTheSelectionMoves()
    {
        open();
        select(1);
        m_window->click(m_window->field(u"Name"_s));
        m_window->type(u"X"_s);
        m_window->click(m_window->field(u"Description"_s));
        m_window->type(u"X"_s);
        m_window->click(node(0));
        QCOMPARE(m_window->field(u"Name"_s)->property("text").toString(), u"Webhook Trigger"_s);
        QCOMPARE(m_window->field(u"Description"_s)->property("text").toString(), u"Configure this node"_s);
        // What was done to another node is not undone here.
        m_window->click(m_window->field(u"Name"_s));
        m_window->press(Qt::Key_Z, Qt::ControlModifier);
        m_window->click(m_window->field(u"Description"_s));
        m_window->press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(model(0).title, u"Webhook Trigger"_s);
        QCOMPARE(model(0).description, u"Configure this node"_s);
    }

    void showsGpt4AndStoresNothingUntilSomethingIsTyped()
    {
        open();
        select(1);
        auto *field = m_window->field(u"Model"_s);
        QCOMPARE(field->property("text").toString(), u"GPT-4"_s);
        QCOMPARE(field->property("placeholderText").toString(), u"Enter model name..."_s);
        m_window->click(field);
        m_window->press(Qt::Key_End);
        QVERIFY(model(1).metadata.isEmpty());
        m_window->type(u"o"_s);
        QCOMPARE(model(1).metadata.value(u"model"_s), u"GPT-4o"_s);
    }

    void keepsAClearedModelEmpty()
    {
        open();
        select(1);
        m_window->click(m_window->field(u"Model"_s));
        m_window->press(Qt::Key_A, Qt::ControlModifier);
        m_window->press(Qt::Key_Backspace);
        QVERIFY(model(1).metadata.contains(u"model"_s));
        QCOMPARE(model(1).metadata.value(u"model"_s), QString());
        QCOMPARE(m_window->field(u"Model"_s)->property("text").toString(), QString());
        select(0);
        select(1);
        QCOMPARE(m_window->field(u"Model"_s)->property("text").toString(), QString());
    }

    void writesAModelFromThePresets()
    {
        open();
        select(1);
        auto *presets = button(u"Model Presets"_s);
        QVERIFY(m_window->symbol(u"chevron.up.chevron.down"_s, presets));
        QCOMPARE(colorOf(presets, "fillColor"), u"#ff2a2a2a"_s);
        QCOMPARE(presets->property("radius").toDouble(), 6.0);
        const QStringList models{u"GPT-4"_s, u"GPT-4 Turbo"_s, u"Claude 3 Opus"_s, u"Claude 3 Sonnet"_s,
            u"Llama 3 70B"_s, u"Mixtral 8x7B"_s};
        for (const QString &name : models) {
            pick(u"Model Presets"_s, name);
            QCOMPARE(model(1).metadata.value(u"model"_s), name);
            QCOMPARE(m_window->field(u"Model"_s)->property("text").toString(), name);
        }
    }

    void keepsTheTemperatureWhateverMovesIt()
    {
        open();
        select(1);
        auto *slider = m_window->control(QAccessible::Slider, u"Temperature"_s);
        auto *access = QAccessible::queryAccessibleInterface(slider);
        const QList<AgentNode> before = m_agents->nodes();
        const QImage picture = m_view->grabWindow();
        QCOMPARE(access->valueInterface()->currentValue().toDouble(), 0.7);
        QCOMPARE(access->valueInterface()->minimumValue().toDouble(), 0.0);
        QCOMPARE(access->valueInterface()->maximumValue().toDouble(), 1.0);
        const QPoint left(int(placeOf(slider).left()) + 3, int(placeOf(slider).center().y()));
        QTest::mousePress(m_view.get(), Qt::LeftButton, {}, left);
        QTest::mouseMove(m_view.get(), left + QPoint(150, 0));
        QTest::mouseRelease(m_view.get(), Qt::LeftButton, {}, left + QPoint(150, 0));
        QTest::mouseMove(m_view.get(), {viewSize.width() - 1, viewSize.height() - 1});
        QCOMPARE(m_view->grabWindow(), picture);
        for (const auto key : {Qt::Key_Right, Qt::Key_Left, Qt::Key_Home, Qt::Key_End, Qt::Key_PageUp}) {
            m_window->press(key);
        }
        access->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
        access->valueInterface()->setCurrentValue(0.1);
        QCOMPARE(access->valueInterface()->currentValue().toDouble(), 0.7);
        QCOMPARE(m_agents->nodes(), before);
    }

    void keepsTheToolTypeWhateverIsPicked()
    {
        open();
        select(2);
        const QList<AgentNode> before = m_agents->nodes();
        QVERIFY(m_window->text(u"Type"_s, inspector()));
        click(u"Type: Google Search"_s);
        auto *search = m_window->control(QAccessible::MenuItem, u"Google Search"_s);
        auto *calculator = m_window->control(QAccessible::MenuItem, u"Calculator"_s);
        const auto isSearch = [&] {
            return search->property("checked").toBool() && !calculator->property("checked").toBool()
                && button(u"Type: Google Search"_s);
        };
        QVERIFY(isSearch());
        m_window->click(calculator);
        QVERIFY(isSearch());
        click(u"Type: Google Search"_s);
        m_window->press(Qt::Key_Down);
        m_window->press(Qt::Key_Down);
        QVERIFY(calculator->property("highlighted").toBool());
        m_window->press(Qt::Key_Return);
        QVERIFY(isSearch());
        click(u"Type: Google Search"_s);
        for (auto *entry : {calculator, search}) {
            QAccessible::queryAccessibleInterface(entry)->actionInterface()->doAction(
                QAccessibleActionInterface::pressAction());
            QVERIFY(isSearch());
        }
        QCOMPARE(m_agents->nodes(), before);
    }

    void slidesTheInspectorInAndOut()
    {
        m_world->environment.animations = true;
        AnimationTime time;
        open();
        m_window->click(node(0));
        QVERIFY(time.passesUntil([&] {
            return inspector() && placeOf(inspector()).left() > viewSize.width() - inspectorWidth
                && placeOf(inspector()).left() < viewSize.width();
        }));
        QVERIFY(time.passesUntil([&] { return placeOf(inspector()).left() == viewSize.width() - inspectorWidth; }));
        clickAt({300, 500});
        // On its way out it still shows the node, and cannot be used any more.
        QVERIFY(time.passesUntil([&] { return inspector() && placeOf(inspector()).left() > viewSize.width() - 200; }));
        QCOMPARE(m_window->field(u"Name"_s)->property("text").toString(), u"Webhook Trigger"_s);
        QVERIFY(!inspector()->isEnabled());
        QVERIFY(time.passesUntil([&] { return !inspector(); }));
    }

    // Keyboard and assistive programs.

    void goesThroughTheNodesByTabAndSelectsByReturnAndSpace()
    {
        open();
        QList<QQuickItem *> nodes{node(0), node(1), node(2)};
        while (m_view->activeFocusItem() != nodes[0]) {
            m_window->press(Qt::Key_Tab);
            QVERIFY(m_view->activeFocusItem());
        }
        QVERIFY(nodes[0]->property("visualFocus").toBool());
        m_window->press(Qt::Key_Tab);
        QCOMPARE(m_view->activeFocusItem(), nodes[1]);
        m_window->press(Qt::Key_Return);
        QCOMPARE(m_agents->selectedNodeId(), std::optional(model(1).id));
        m_window->press(Qt::Key_Tab);
        QCOMPARE(m_view->activeFocusItem(), nodes[2]);
        m_window->press(Qt::Key_Space);
        QCOMPARE(m_agents->selectedNodeId(), std::optional(model(2).id));
        m_window->press(Qt::Key_Tab);
        QCOMPARE(m_view->activeFocusItem(), button(u"Zoom Out"_s));
    }

    void comesByTabFromTheBarToTheNodes()
    {
        open();
        button(u"Run Agent"_s)->forceActiveFocus(Qt::TabFocusReason);
        m_window->press(Qt::Key_Tab);
        QCOMPARE(m_view->activeFocusItem(), button(u"Debug"_s));
        m_window->press(Qt::Key_Tab);
        QCOMPARE(m_view->activeFocusItem(), node(0));
    }

    void goesFromNodeToNodeWithTheArrowKeys()
    {
        open();
        node(0)->forceActiveFocus(Qt::TabFocusReason);
        // In the order in which they came, and no further than to the ends.
        const QList<std::pair<Qt::Key, int>> way{{Qt::Key_Up, 0}, {Qt::Key_Right, 1}, {Qt::Key_Down, 2},
            {Qt::Key_Right, 2}, {Qt::Key_Left, 1}, {Qt::Key_Up, 0}, {Qt::Key_Left, 0}};
        for (const auto &[key, index] : way) {
            m_window->press(key);
            QCOMPARE(m_view->activeFocusItem(), node(index));
        }
        QVERIFY(!m_agents->hasSelectedNode());
    }

    void letsGoOfTheSelectedNodeWithEscape_data()
    {
        QTest::addColumn<bool>("fromItsName");
        QTest::newRow("from the canvas") << false;
        QTest::newRow("from a field of the inspector") << true;
    }
    void letsGoOfTheSelectedNodeWithEscape()
    {
        QFETCH(bool, fromItsName);
        open();
        m_window->click(node(1));
        if (fromItsName) {
            m_window->click(m_window->field(u"Name"_s));
        }
        m_window->press(Qt::Key_Escape);
        QVERIFY(!m_agents->hasSelectedNode());
        QVERIFY(eventually([&] { return !inspector(); }));
        QCOMPARE(m_view->activeFocusItem(), node(1));
    }

    void ringsANodeWithoutAShadow()
    {
        open();
        button(u"Debug"_s)->forceActiveFocus(Qt::TabFocusReason);
        m_window->press(Qt::Key_Tab);
        const QPointF top(130, placeOf(node(0)).top());
        QVERIFY(pixelAt(top - QPointF(0, 4)).blue() > 100);
        QCOMPARE(pixelAt(top - QPointF(0, 5)), ground);
    }

    void leavesEscapeToOthersWhereNoNodeIsSelected()
    {
        open();
        node(0)->forceActiveFocus(Qt::TabFocusReason);
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(m_view.get(), &escape);
        QVERIFY(!escape.isAccepted());
        QCOMPARE(m_view->activeFocusItem(), node(0));
    }

    void takesNoneOfTheShortcutsThatTheDocumentationLists()
    {
        open();
        m_window->click(node(1));
        const QList<AgentNode> before = m_agents->nodes();
        const auto selected = m_agents->selectedNodeId();
        for (const auto key :
            {Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4, Qt::Key_Comma, Qt::Key_N, Qt::Key_U, Qt::Key_T, Qt::Key_F}) {
            m_window->press(key, Qt::ControlModifier);
            m_window->press(key, Qt::MetaModifier);
        }
        QCOMPARE(m_agents->nodes(), before);
        QCOMPARE(m_agents->selectedNodeId(), selected);
        QCOMPARE(m_agents->scale(), 1.0);
        QVERIFY(!m_agents->isRunning());
    }

    void tellsNodesByNameAndWhetherTheyAreSelected()
    {
        open();
        for (const auto &name :
            {u"Trigger node Webhook Trigger"_s, u"LLM node GPT-4 Chain"_s, u"Tool node Google Search"_s}) {
            QVERIFY(m_window->control(QAccessible::ListItem, name));
        }
        auto *llm = m_window->control(QAccessible::ListItem, u"LLM node GPT-4 Chain"_s);
        auto *access = QAccessible::queryAccessibleInterface(llm);
        QVERIFY(access->state().selectable);
        QVERIFY(!access->state().selected);
        access->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(m_agents->selectedNodeId(), std::optional(model(1).id));
        QVERIFY(access->state().selected);
        m_agents->setTitle(u"%1 & %2"_s);
        QCOMPARE(access->text(QAccessible::Name), u"LLM node %1 & %2"_s);
    }

    // What users type.

    void showsWhatIsTypedAsItStands_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("markup") << u"<b>Bold</b> <img src='file:///etc/passwd'> &amp; & %1"_s;
        QTest::newRow("quotes") << u"\"double\" 'single' \\ ` $(rm -rf)"_s;
        QTest::newRow("lines") << u"one\ntwo\n\nthree\ttabbed"_s;
        QTest::newRow("emoji") << u"👩‍👩‍👧‍👦 🏳️‍🌈 ✓"_s;
        QTest::newRow("right to left") << u"שלום עולם مرحبا \u202eabc"_s;
    }

    void showsWhatIsTypedAsItStands()
    {
        QFETCH(QString, text);
        open();
        select(1);
        QGuiApplication::clipboard()->setText(text);
        auto *description = m_window->field(u"Description"_s);
        m_window->click(description);
        m_window->press(Qt::Key_A, Qt::ControlModifier);
        m_window->press(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(model(1).description, text);
        QCOMPARE(description->property("text").toString(), text);

        auto *name = m_window->field(u"Name"_s);
        m_window->click(name);
        m_window->press(Qt::Key_A, Qt::ControlModifier);
        m_window->press(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(model(1).title, name->property("text").toString());
        QCOMPARE(m_window->text(model(1).title, node(1))->property("textFormat").toInt(), 0);
        QCOMPARE(node(1)->height(), 60.0);
        QVERIFY(!m_view->grabWindow().isNull());
    }

    // Laid out as it stands a megabyte would take minutes, and this test its whole time.
    void takesALongTextThatIsPasted_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("text");
        const QString words = u"lorem ipsum dolor sit amet "_s;
        const QString lines = u"lorem ipsum dolor sit amet\n"_s;
        QTest::newRow("100 KB in one line") << u"Description"_s << words.repeated(3800);
        QTest::newRow("100 KB in many lines") << u"Description"_s << lines.repeated(3800);
        QTest::newRow("100 KB without a blank") << u"Description"_s << QString(102400, u'x');
        QTest::newRow("100 KB in the name") << u"Name"_s << words.repeated(3800);
        QTest::newRow("a megabyte") << u"Description"_s << words.repeated(38000);
        QTest::newRow("a megabyte without a blank") << u"Description"_s << QString(1024000, u'x');
    }

    void takesALongTextThatIsPasted()
    {
        QFETCH(QString, field);
        QFETCH(QString, text);
        open();
        select(1);
        QGuiApplication::clipboard()->setText(text);
        m_window->click(m_window->field(field));
        m_window->press(Qt::Key_A, Qt::ControlModifier);
        m_window->press(Qt::Key_V, Qt::ControlModifier);
        m_window->type(u"y"_s);
        m_agents->drag(model(1).identifier(), {410, 330});
        QVERIFY(!m_view->grabWindow().isNull());
        if (field == u"Description"_s) {
            QCOMPARE(model(1).description, text + u'y');
        } else {
            QVERIFY(text.startsWith(model(1).title.chopped(1)));
        }
    }
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_AgentsView)
#include "tst_AgentsView.moc"
