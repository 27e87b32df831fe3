#include "tools/agents/AgentsState.h"

#include "app/theme/Color.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quillmere {

using AgentVocabulary::NodeStatus;
using AgentVocabulary::NodeType;

namespace {

QStringList titlesOf(const AgentsState &state)
{
    QStringList titles;
    for (const AgentNode &node : state.nodes()) {
        titles.append(node.title);
    }
    return titles;
}

} // namespace

class tst_AgentsState : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<AgentsState> m_state;

    const AgentNode &node(int index) const { return m_state->nodes()[index]; }
    void select(int index) { m_state->setSelectedNodeId(node(index).id); }

private slots:
    void init() { m_state = std::make_unique<AgentsState>(); }
    void cleanup() { m_state.reset(); }

    void beginsWithThreeNodesAndNothingElse()
    {
        QCOMPARE(titlesOf(*m_state), QStringList({u"Webhook Trigger"_s, u"GPT-4 Chain"_s, u"Google Search"_s}));
        const QList types{NodeType::Trigger, NodeType::Llm, NodeType::Tool};
        const QList<QPointF> positions{{100, 300}, {400, 300}, {700, 300}};
        QSet<QUuid> ids;
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(node(i).type, types[i]);
            QCOMPARE(node(i).position, positions[i]);
            QCOMPARE(node(i).description, u"Configure this node"_s);
            QCOMPARE(node(i).status, NodeStatus::Idle);
            QVERIFY(node(i).metadata.isEmpty());
            QVERIFY(!node(i).id.isNull());
            ids.insert(node(i).id);
        }
        QCOMPARE(ids.size(), 3);
        QVERIFY(m_state->connections().isEmpty());
        QCOMPARE(m_state->scale(), 1.0);
        QVERIFY(!m_state->selectedNodeId());
        QVERIFY(!m_state->selectedNode());
        QVERIFY(!m_state->isRunning());
    }

    void knowsTheLooksOfTheNodeTypes_data()
    {
        QTest::addColumn<NodeType>("type");
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("newTitle");
        QTest::addColumn<QString>("icon");
        QTest::addColumn<QColor>("color");
        QTest::newRow("trigger") << NodeType::Trigger << u"Trigger"_s << u"New Trigger"_s << u"bolt.fill"_s
                                 << Color::green();
        QTest::newRow("logic") << NodeType::Logic << u"Logic"_s << u"New Logic"_s << u"arrow.triangle.branch"_s
                               << Color::orange();
        QTest::newRow("llm") << NodeType::Llm << u"LLM"_s << u"New LLM"_s << u"brain.head.profile"_s << Color::purple();
        QTest::newRow("tool") << NodeType::Tool << u"Tool"_s << u"New Tool"_s << u"hammer.fill"_s << Color::blue();
        QTest::newRow("data") << NodeType::Data << u"Data"_s << u"New Data"_s << u"cylinder.fill"_s << Color::yellow();
    }

    void knowsTheLooksOfTheNodeTypes()
    {
        QFETCH(NodeType, type);
        QTEST(AgentVocabulary::label(type), "label");
        QTEST(AgentVocabulary::newTitle(type), "newTitle");
        QTEST(AgentVocabulary::icon(type), "icon");
        QTEST(AgentVocabulary::color(type), "color");
    }

    void knowsTheColoursOfTheStatuses()
    {
        QCOMPARE(AgentVocabulary::color(NodeStatus::Idle).alpha(), 0);
        QCOMPARE(AgentVocabulary::color(NodeStatus::Running), Color::blue());
        QCOMPARE(AgentVocabulary::color(NodeStatus::Success), Color::green());
        QCOMPARE(AgentVocabulary::color(NodeStatus::Error), Color::red());
    }

    void addsANodeTitledAfterItsTypeAndSelectsNothing()
    {
        select(0);
        const QUuid selected = node(0).id;
        m_state->addNode(NodeType::Data);
        QCOMPARE(m_state->nodes().size(), 4);
        QCOMPARE(node(3).type, NodeType::Data);
        QCOMPARE(node(3).title, u"New Data"_s);
        QCOMPARE(node(3).description, u"Configure this node"_s);
        QCOMPARE(node(3).status, NodeStatus::Idle);
        QVERIFY(node(3).metadata.isEmpty());
        QCOMPARE(node(3).position, QPointF(400, 300));
        QCOMPARE(m_state->selectedNodeId(), std::optional(selected));
    }

    void addsTwoNodesOntoOneSpotTheLaterOneLast()
    {
        m_state->addNode(NodeType::Trigger);
        m_state->addNode(NodeType::Trigger);
        QCOMPARE(node(3).position, node(4).position);
        QCOMPARE(node(4).position, QPointF(400, 300));
        QVERIFY(node(3).id != node(4).id);
        QCOMPARE(node(4).title, u"New Trigger"_s);
    }

    // QCOMPARE takes numbers next to each other for equal.
    void stopsZoomingInAtExactlyTwo()
    {
        for (int i = 0; i < 10; ++i) {
            QVERIFY(m_state->scale() < 2);
            m_state->zoomIn();
        }
        QVERIFY(m_state->scale() == 2);
        m_state->zoomIn();
        QVERIFY(m_state->scale() == 2);
    }

    void stopsZoomingOutAtExactlyAHalf()
    {
        for (int i = 0; i < 5; ++i) {
            m_state->zoomOut();
        }
        // The error of five steps is still there.
        QVERIFY(m_state->scale() > 0.5);
        QVERIFY(m_state->scale() < 0.5 + 1e-9);
        m_state->zoomOut();
        QVERIFY(m_state->scale() == 0.5);
        m_state->zoomOut();
        QVERIFY(m_state->scale() == 0.5);
    }

    void zoomsByTenthsThatAreNotRounded()
    {
        double expected = 1;
        for (int i = 0; i < 3; ++i) {
            m_state->zoomIn();
            expected += 0.1;
        }
        QVERIFY(expected != 1.3);
        QVERIFY(m_state->scale() == expected);
        m_state->zoomOut();
        QVERIFY(m_state->scale() == expected - 0.1);
    }

    void runsAsAFlagThatTouchesNothingElse()
    {
        const QList<AgentNode> nodes = m_state->nodes();
        m_state->toggleRun();
        QVERIFY(m_state->isRunning());
        QCOMPARE(m_state->nodes(), nodes);
        QVERIFY(m_state->connections().isEmpty());
        m_state->toggleRun();
        QVERIFY(!m_state->isRunning());
        QCOMPARE(m_state->nodes(), nodes);
    }

    void movesTheDraggedNodeThereAndSelectsIt()
    {
        m_state->drag(node(1).identifier(), {12.5, -7});
        QCOMPARE(node(1).position, QPointF(12.5, -7));
        QCOMPARE(m_state->selectedNodeId(), std::optional(node(1).id));
        QCOMPARE(node(0).position, QPointF(100, 300));
    }

    void tellsTheViewOfADragOneRowAndOneField()
    {
        auto *model = m_state->nodeModel();
        const QAbstractItemModelTester tester(model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QSignalSpy changes(model, &QAbstractItemModel::dataChanged);
        QSignalSpy resets(model, &QAbstractItemModel::modelReset);
        m_state->drag(node(1).identifier(), {1, 2});
        QCOMPARE(changes.count(), 1);
        QCOMPARE(changes[0][0].toModelIndex().row(), 1);
        QCOMPARE(changes[0][1].toModelIndex().row(), 1);
        QCOMPARE(changes[0][2].value<QList<int>>(), {model->roleNames().key("position")});
        QVERIFY(resets.isEmpty());
    }

    void tellsTheViewOfANewNodeOneRowAtTheEnd()
    {
        QSignalSpy inserted(m_state->nodeModel(), &QAbstractItemModel::rowsInserted);
        QSignalSpy resets(m_state->nodeModel(), &QAbstractItemModel::modelReset);
        m_state->addNode(NodeType::Tool);
        QCOMPARE(inserted.count(), 1);
        QCOMPARE(inserted[0][1].toInt(), 3);
        QVERIFY(resets.isEmpty());
    }

    void findsNoNodeForASelectedIdOfNone()
    {
        m_state->setSelectedNodeId(QUuid::createUuid());
        QVERIFY(m_state->selectedNodeId());
        QVERIFY(!m_state->selectedNode());
        QVERIFY(!m_state->hasSelectedNode());
        const QList<AgentNode> nodes = m_state->nodes();
        m_state->setTitle(u"Nobody"_s);
        m_state->setModel(u"Nobody"_s);
        QCOMPARE(m_state->nodes(), nodes);
    }

    void writesTheWholeNodeBackInItsPlace()
    {
        AgentNode changed = node(1);
        changed.title = u"Answer"_s;
        changed.status = NodeStatus::Running;
        m_state->setNode(changed);
        QCOMPARE(titlesOf(*m_state), QStringList({u"Webhook Trigger"_s, u"Answer"_s, u"Google Search"_s}));
        QCOMPARE(node(1), changed);
    }

    void writesOnlyTheFirstNodeOfAnId()
    {
        const AgentNode one = node(0);
        AgentNode twin = one;
        twin.title = u"Twin"_s;
        m_state->setNodes({one, twin});
        m_state->setSelectedNodeId(one.id);
        QCOMPARE(m_state->selectedNode()->title, u"Webhook Trigger"_s);
        m_state->setTitle(u"Changed"_s);
        QCOMPARE(titlesOf(*m_state), QStringList({u"Changed"_s, u"Twin"_s}));
    }

    void doesNothingWithANodeOfNoKnownId()
    {
        const QList<AgentNode> nodes = m_state->nodes();
        m_state->setNode(AgentNode::make(NodeType::Llm, {}, u"Stranger"_s));
        QCOMPARE(m_state->nodes(), nodes);
    }

    void editsTheSelectedNodeOnly()
    {
        select(2);
        m_state->setTitle(u"Find"_s);
        m_state->setDescription(u"Looks it up"_s);
        QCOMPARE(node(2).title, u"Find"_s);
        QCOMPARE(node(2).description, u"Looks it up"_s);
        QCOMPARE(node(1).title, u"GPT-4 Chain"_s);
        QCOMPARE(node(1).description, u"Configure this node"_s);
        m_state->selectNothing();
        m_state->setTitle(u"Lost"_s);
        QCOMPARE(titlesOf(*m_state), QStringList({u"Webhook Trigger"_s, u"GPT-4 Chain"_s, u"Find"_s}));
    }

    void readsGpt4WhereNoModelIsStored()
    {
        select(1);
        QCOMPARE(m_state->selectedNode()->model(), u"GPT-4"_s);
        QVERIFY(node(1).metadata.isEmpty());
    }

    void storesAnEmptyModelAsEmpty()
    {
        select(1);
        m_state->setModel({});
        QCOMPARE(node(1).metadata, (QMap<QString, QString>{{u"model"_s, QString()}}));
        QCOMPARE(node(1).model(), QString());
    }

    void storesAModelUnderItsKey()
    {
        select(1);
        m_state->setModel(u"Llama 3 70B"_s);
        QCOMPARE(node(1).metadata, (QMap<QString, QString>{{u"model"_s, u"Llama 3 70B"_s}}));
        QCOMPARE(node(1).model(), u"Llama 3 70B"_s);
    }

    void drawsConnectionsFromOneNodeToTheOther()
    {
        m_state->setConnections({{QUuid::createUuid(), node(0).id, node(2).id}});
        QCOMPARE(m_state->connectionEnds().size(), 1);
        QCOMPARE(m_state->connectionEnds()[0], std::optional(QLineF(100, 300, 700, 300)));
        m_state->drag(node(2).identifier(), {500, 50});
        QCOMPARE(m_state->connectionEnds()[0], std::optional(QLineF(100, 300, 500, 50)));
    }

    void drawsNothingWhereANodeIsMissing()
    {
        const QUuid nobody = QUuid::createUuid();
        m_state->setConnections({{QUuid::createUuid(), node(0).id, nobody}, {QUuid::createUuid(), nobody, node(0).id},
            {QUuid::createUuid(), node(1).id, node(0).id}});
        const auto ends = m_state->connectionEnds();
        QCOMPARE(ends.size(), 3);
        QVERIFY(!ends[0]);
        QVERIFY(!ends[1]);
        QCOMPARE(ends[2], std::optional(QLineF(400, 300, 100, 300)));
    }

    void takesTheFirstNodeOfAnIdForAConnection()
    {
        const AgentNode one = node(0);
        const AgentNode other = node(1);
        AgentNode twin = one;
        twin.position = {1, 1};
        m_state->setNodes({one, twin, other});
        m_state->setConnections({{QUuid::createUuid(), one.id, other.id}});
        QCOMPARE(m_state->connectionEnds()[0], std::optional(QLineF(one.position, other.position)));
    }

    void announcesEveryWrite()
    {
        QStringList fields;
        connect(m_state.get(), &Observable::willChange, this, [&](const QString &field) { fields.append(field); });
        m_state->addNode(NodeType::Tool);
        m_state->zoomIn();
        m_state->toggleRun();
        m_state->drag(node(0).identifier(), {5, 5});
        QCOMPARE(fields, QStringList({u"nodes"_s, u"scale"_s, u"isRunning"_s, u"nodes"_s, u"selectedNodeId"_s}));
    }
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_AgentsState)
#include "tst_AgentsState.moc"
