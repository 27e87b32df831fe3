#include "controls/Spinner.h"

#include "platform/Environment.h"

#include <QPainter>
#include <QQuickWindow>

namespace quillmere {

namespace {

constexpr int spokes = 8;
constexpr std::chrono::milliseconds stepTime {83};

} // namespace

Spinner::Spinner(QQuickItem *parent) :
    QQuickPaintedItem(parent)
{
    setImplicitSize(20, 20);
    setAntialiasing(true);
}

Spinner::~Spinner()
{
    if (m_timer) {
        Environment::current().clock->cancel(m_timer);
    }
}

void Spinner::setColor(const QColor &color)
{
    if (color != m_color) {
        m_color = color;
        emit colorChanged();
        update();
    }
}

void Spinner::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickPaintedItem::itemChange(change, data);
    if (change == ItemSceneChange) {
        disconnect(m_windowShown);
        if (data.window) {
            m_windowShown = connect(data.window, &QWindow::visibleChanged, this, &Spinner::turnWhileSeen);
        }
    }
    if (change == ItemSceneChange || change == ItemVisibleHasChanged) {
        turnWhileSeen();
    }
}

void Spinner::turnWhileSeen()
{
    const bool isSeen = isVisible() && window() && window()->isVisible();
    if (isSeen && Environment::current().animations && !m_timer) {
        m_timer = Environment::current().clock->schedule(stepTime, [this] { step(); });
    } else if (!isSeen && m_timer) {
        Environment::current().clock->cancel(m_timer);
        m_timer = 0;
    }
}

void Spinner::step()
{
    m_phase = (m_phase + 1) % spokes;
    m_timer = 0;
    turnWhileSeen();
    update();
}

void Spinner::paint(QPainter *painter)
{
    const qreal side = std::min(width(), height());
    const qreal thickness = side * 0.1;
    painter->translate(width() / 2, height() / 2);
    painter->setPen(Qt::NoPen);
    for (int i = 0; i < spokes; ++i) {
        // The spoke at the phase is the brightest, those behind it fade.
        const int behind = (m_phase - i + spokes) % spokes;
        QColor color = m_color;
        color.setAlphaF(float(m_color.alphaF() * (1 - 0.1 * behind)));
        painter->setBrush(color);
        painter->save();
        painter->rotate(360.0 / spokes * i);
        painter->drawRoundedRect(
            QRectF(-thickness / 2, -side * 0.46, thickness, side * 0.24), thickness / 2, thickness / 2);
        painter->restore();
    }
}

} // namespace quillmere
