#include "controls/Spokes.h"

#include "platform/Environment.h"

#include <QPainter>
#include <QQuickWindow>

namespace quillmere {

namespace {

constexpr int spokes = 12;
constexpr int stepMilliseconds = 1000 / spokes;

} // namespace

Spokes::Spokes(QQuickItem *parent) : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
    m_timer.setInterval(stepMilliseconds);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        m_step = (m_step + 1) % spokes;
        update();
    });
}

void Spokes::setColor(const QColor &color)
{
    if (m_color == color) {
        return;
    }
    m_color = color;
    update();
    emit colorChanged();
}

void Spokes::paint(QPainter *painter)
{
    const double size = std::min(width(), height());
    const double outer = size * 0.46;
    const double inner = size * 0.26;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(width() / 2, height() / 2);
    QPen pen(m_color, size * 0.085, Qt::SolidLine, Qt::RoundCap);
    for (int i = 0; i < spokes; ++i) {
        // The spoke that was lit last is the brightest; those before it fade.
        const int age = (m_step - i + spokes) % spokes;
        QColor color = m_color;
        color.setAlphaF(float(m_color.alphaF() * std::max(0.15, 1 - age * 0.09)));
        pen.setColor(color);
        painter->setPen(pen);
        painter->save();
        painter->rotate(360.0 / spokes * i);
        painter->drawLine(QPointF(0, -inner), QPointF(0, -outer));
        painter->restore();
    }
}

void Spokes::itemChange(ItemChange change, const ItemChangeData &value)
{
    QQuickPaintedItem::itemChange(change, value);
    if (change == ItemSceneChange) {
        watch(value.window);
    }
    if (change == ItemSceneChange || change == ItemVisibleHasChanged) {
        turnWhileSeen();
    }
}

void Spokes::watch(QQuickWindow *window)
{
    if (m_window) {
        m_window->removeEventFilter(this);
    }
    m_window = window;
    if (m_window) {
        m_window->installEventFilter(this);
    }
}

bool Spokes::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Expose) {
        turnWhileSeen();
    }
    return QQuickPaintedItem::eventFilter(watched, event);
}

void Spokes::turnWhileSeen()
{
    const bool turns = isVisible() && m_window && m_window->isExposed() && Environment::current().animations;
    if (turns == m_timer.isActive()) {
        return;
    }
    if (turns) {
        m_timer.start();
    } else {
        m_timer.stop();
    }
    emit turningChanged();
}

} // namespace quillmere
