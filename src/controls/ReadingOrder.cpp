#include "controls/ReadingOrder.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QQuickWindow>

#include <algorithm>

namespace quillmere {

ReadingOrder::ReadingOrder(QObject *parent) : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool ReadingOrder::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && m_item && watched == m_item->window()) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
            restore();
        }
    }
    return false;
}

void ReadingOrder::restore()
{
    const auto isBefore = [](const QQuickItem *one, const QQuickItem *other) {
        return one->y() != other->y() ? one->y() < other->y() : one->x() < other->x();
    };
    QList<QQuickItem *> children = m_item->childItems();
    if (std::is_sorted(children.cbegin(), children.cend(), isBefore)) {
        return;
    }
    std::stable_sort(children.begin(), children.end(), isBefore);
    for (qsizetype i = 1; i < children.size(); ++i) {
        children[i]->stackAfter(children[i - 1]);
    }
}

} // namespace quillmere
