#include "tools/agents/AgentsState.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

constexpr QPointF newNodePosition(400, 300);
constexpr double zoomStep = 0.1;
constexpr double smallestScale = 0.5;
constexpr double largestScale = 2;

} // namespace

AgentsState::AgentsState(QObject *parent) : Observable(parent)
{
    m_nodes.setRecords({
        AgentNode::make(NodeType::Trigger, {100, 300}, tr("Webhook Trigger")),
        AgentNode::make(NodeType::Llm, {400, 300}, tr("GPT-4 Chain")),
        AgentNode::make(NodeType::Tool, {700, 300}, tr("Google Search")),
    });
    connect(this, &AgentsState::nodesChanged, this, &AgentsState::selectedNodeChanged);
    connect(this, &AgentsState::selectedNodeIdChanged, this, &AgentsState::selectedNodeChanged);
}

void AgentsState::setNodes(QList<AgentNode> nodes)
{
    emit willChange(u"nodes"_s);
    m_nodes.setRecords(std::move(nodes));
    emit nodesChanged();
}

void AgentsState::addNode(NodeType type)
{
    emit willChange(u"nodes"_s);
    m_nodes.append(AgentNode::make(type, newNodePosition, AgentVocabulary::newTitle(type)));
    emit nodesChanged();
}

void AgentsState::setNode(const AgentNode &node)
{
    const qsizetype index = indexOf(node.id);
    if (index < 0) {
        return;
    }
    emit willChange(u"nodes"_s);
    m_nodes.replace(int(index), node);
    emit nodesChanged();
}

qsizetype AgentsState::indexOf(QUuid id) const
{
    const auto node =
        std::find_if(nodes().begin(), nodes().end(), [id](const AgentNode &each) { return each.id == id; });
    return node == nodes().end() ? -1 : node - nodes().begin();
}

void AgentsState::setConnections(QList<NodeConnection> connections)
{
    publish(m_connections, std::move(connections), u"connections"_s, &AgentsState::connectionsChanged);
}

QList<std::optional<QLineF>> AgentsState::connectionEnds() const
{
    QHash<QUuid, QPointF> positions;
    positions.reserve(nodes().size());
    for (const AgentNode &node : nodes()) {
        if (!positions.contains(node.id)) {
            positions.insert(node.id, node.position);
        }
    }
    QList<std::optional<QLineF>> ends;
    ends.reserve(m_connections.size());
    for (const NodeConnection &connection : m_connections) {
        const auto from = positions.constFind(connection.from);
        const auto to = positions.constFind(connection.to);
        const bool drawn = from != positions.cend() && to != positions.cend();
        ends.append(drawn ? std::optional(QLineF(*from, *to)) : std::nullopt);
    }
    return ends;
}

void AgentsState::zoomOut()
{
    setScale(std::max(m_scale - zoomStep, smallestScale));
}

void AgentsState::zoomIn()
{
    setScale(std::min(m_scale + zoomStep, largestScale));
}

void AgentsState::setScale(double scale)
{
    publish(m_scale, scale, u"scale"_s, &AgentsState::scaleChanged);
}

void AgentsState::setSelectedNodeId(std::optional<QUuid> id)
{
    publish(m_selectedNodeId, id, u"selectedNodeId"_s, &AgentsState::selectedNodeIdChanged);
}

QString AgentsState::selectedIdentifier() const
{
    return m_selectedNodeId ? m_selectedNodeId->toString(QUuid::WithoutBraces) : QString();
}

void AgentsState::select(const QString &identifier)
{
    setSelectedNodeId(QUuid(identifier));
}

void AgentsState::selectNothing()
{
    setSelectedNodeId({});
}

void AgentsState::drag(const QString &identifier, QPointF position)
{
    const QUuid id(identifier);
    if (const qsizetype index = indexOf(id); index >= 0) {
        AgentNode node = nodes()[index];
        node.position = position;
        setNode(node);
    }
    setSelectedNodeId(id);
}

std::optional<AgentNode> AgentsState::selectedNode() const
{
    const qsizetype index = m_selectedNodeId ? indexOf(*m_selectedNodeId) : -1;
    return index < 0 ? std::nullopt : std::optional(nodes()[index]);
}

void AgentsState::setTitle(const QString &title)
{
    if (auto node = selectedNode()) {
        node->title = title;
        setNode(*node);
    }
}

void AgentsState::setDescription(const QString &description)
{
    if (auto node = selectedNode()) {
        node->description = description;
        setNode(*node);
    }
}

void AgentsState::setModel(const QString &model)
{
    if (auto node = selectedNode()) {
        node->setModel(model);
        setNode(*node);
    }
}

void AgentsState::toggleRun()
{
    publish(m_isRunning, !m_isRunning, u"isRunning"_s, &AgentsState::isRunningChanged);
}

} // namespace quillmere
