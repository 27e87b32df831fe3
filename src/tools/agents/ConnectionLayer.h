#pragma once

#include "tools/agents/AgentsState.h"

#include <QPointer>
#include <QQuickItem>

namespace quillmere {

// The curves between the nodes of a workflow, drawn as the scaled layer of the nodes lies over it: about the item's own middle.
class ConnectionLayer : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(quillmere::AgentsState *agents READ agents WRITE setAgents NOTIFY agentsChanged)

public:
    explicit ConnectionLayer(QQuickItem *parent = nullptr);

    AgentsState *agents() const { return m_agents; }
    void setAgents(AgentsState *agents);

signals:
    void agentsChanged();

protected:
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;

private:
    QPointer<AgentsState> m_agents;
};

} // namespace quillmere
