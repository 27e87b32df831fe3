#include "tools/agents/ConnectionLayer.h"

#include "tools/agents/CurveSheets.h"

#include <QQuickWindow>

#include <cmath>

namespace quillmere {

ConnectionLayer::ConnectionLayer(QQuickItem *parent) : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

void ConnectionLayer::setAgents(AgentsState *agents)
{
    if (m_agents == agents) {
        return;
    }
    if (m_agents) {
        m_agents->disconnect(this);
    }
    m_agents = agents;
    if (m_agents) {
        connect(m_agents, &AgentsState::nodesChanged, this, &QQuickItem::update);
        connect(m_agents, &AgentsState::connectionsChanged, this, &QQuickItem::update);
        connect(m_agents, &AgentsState::scaleChanged, this, &QQuickItem::update);
    }
    update();
    emit agentsChanged();
}

void ConnectionLayer::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    update();
}

QSGNode *ConnectionLayer::updatePaintNode(QSGNode *old, UpdatePaintNodeData *)
{
    const CurveSheets::Ends curves = m_agents ? m_agents->connectionEnds() : CurveSheets::Ends();
    if (curves.isEmpty() || width() < 1 || height() < 1) {
        delete old;
        return nullptr;
    }
    auto *sheets = static_cast<CurveSheets *>(old);
    if (!sheets) {
        sheets = new CurveSheets;
    }
    const double ratio = window()->effectiveDevicePixelRatio();
    const double scale = m_agents->scale();
    QTransform toPixels;
    toPixels.scale(ratio, ratio);
    toPixels.translate(width() / 2, height() / 2);
    toPixels.scale(scale, scale);
    toPixels.translate(-width() / 2, -height() / 2);
    const QSize pixels(int(std::ceil(width() * ratio)), int(std::ceil(height() * ratio)));
    sheets->show(curves, {toPixels, pixels, ratio}, *window());
    return sheets;
}

} // namespace quillmere
