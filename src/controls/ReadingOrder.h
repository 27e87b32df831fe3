#pragma once

#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// Keeps what stands in an item in the order in which it is read, lines from top to bottom, for the tabulator, which goes by the order
// of the children: a list makes its rows as it needs them and uses them again.
class ReadingOrder : public QObject {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QQuickItem *item MEMBER m_item)

public:
    explicit ReadingOrder(QObject *parent = nullptr);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void restore();

    QQuickItem *m_item = nullptr;
};

} // namespace quillmere
