#pragma once

#include "platform/Observable.h"
#include "platform/RecordListModel.h"
#include "tools/agents/AgentNode.h"

#include <QLineF>

#include <optional>

namespace quillmere {

// The workflow of one visit to the agent canvas: its nodes and the lines between them, how large they are drawn, and the one node
// that the inspector shows. The screen adds nodes, drags them, selects one and edits it. It lives no longer than the screen, reaches
// no service and runs nothing: running is a flag. Nothing adds a connection, and nothing takes a node away.
class AgentsState : public quillmere::Observable {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QAbstractItemModel *nodes READ nodeModel CONSTANT)
    Q_PROPERTY(double scale READ scale NOTIFY scaleChanged)
    // Empty while none is selected.
    Q_PROPERTY(QString selectedNodeId READ selectedIdentifier NOTIFY selectedNodeIdChanged)
    Q_PROPERTY(bool hasSelectedNode READ hasSelectedNode NOTIFY selectedNodeChanged)
    Q_PROPERTY(quillmere::AgentNode selectedNode READ selectedNodeOrBlank NOTIFY selectedNodeChanged)
    Q_PROPERTY(bool isRunning READ isRunning NOTIFY isRunningChanged)

public:
    using NodeType = AgentVocabulary::NodeType;

    explicit AgentsState(QObject *parent = nullptr);

    // In the order in which they came; the later ones lie on top.
    const QList<AgentNode> &nodes() const { return m_nodes.records(); }
    QAbstractItemModel *nodeModel() { return &m_nodes; }
    void setNodes(QList<AgentNode> nodes);
    // At (400, 300), whatever lies there. Selects nothing.
    Q_INVOKABLE void addNode(quillmere::AgentVocabulary::NodeType type);

    const QList<NodeConnection> &connections() const { return m_connections; }
    void setConnections(QList<NodeConnection> connections);
    // For each connection the positions of its two nodes; none where a node is missing.
    QList<std::optional<QLineF>> connectionEnds() const;

    // From 0.5 to 2 in steps of 0.1, not rounded: what a step adds in floating-point error stays until an end is reached.
    double scale() const { return m_scale; }
    Q_INVOKABLE void zoomOut();
    Q_INVOKABLE void zoomIn();

    const std::optional<QUuid> &selectedNodeId() const { return m_selectedNodeId; }
    void setSelectedNodeId(std::optional<QUuid> id);
    Q_INVOKABLE void select(const QString &identifier);
    Q_INVOKABLE void selectNothing();
    // A step of a drag: the node's centre goes there, and the node is selected.
    Q_INVOKABLE void drag(const QString &identifier, QPointF position);

    // None also where the selected id is that of no node.
    std::optional<AgentNode> selectedNode() const;
    bool hasSelectedNode() const { return selectedNode().has_value(); }
    // Puts the node in the place of the first one with its id; without such a one it does nothing.
    void setNode(const AgentNode &node);
    // Of the selected node.
    Q_INVOKABLE void setTitle(const QString &title);
    Q_INVOKABLE void setDescription(const QString &description);
    Q_INVOKABLE void setModel(const QString &model);

    bool isRunning() const { return m_isRunning; }
    Q_INVOKABLE void toggleRun();

signals:
    void nodesChanged();
    void connectionsChanged();
    void scaleChanged();
    void selectedNodeIdChanged();
    void selectedNodeChanged();
    void isRunningChanged();

private:
    QString selectedIdentifier() const;
    AgentNode selectedNodeOrBlank() const { return selectedNode().value_or(AgentNode{}); }
    qsizetype indexOf(QUuid id) const; // -1: there is none
    void setScale(double scale);

    RecordListModel<AgentNode> m_nodes;
    QList<NodeConnection> m_connections;
    double m_scale = 1;
    std::optional<QUuid> m_selectedNodeId;
    bool m_isRunning = false;
};

} // namespace quillmere
