#pragma once

#include <QColor>
#include <QList>
#include <QObject>
#include <QPointF>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// One line of a chart: its points in the order in which they are joined, in the units of the data. A point that is no finite
// number leaves a gap. The name is what assistive programs hear.
class LineSeries : public QObject {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(QList<QPointF> points READ points WRITE setPoints NOTIFY pointsChanged)

public:
    using QObject::QObject;

    QString name() const { return m_name; }
    void setName(const QString &name);
    QColor color() const { return m_color; }
    void setColor(const QColor &color);
    const QList<QPointF> &points() const { return m_points; }
    void setPoints(const QList<QPointF> &points);

signals:
    void nameChanged();
    void colorChanged();
    void pointsChanged();

private:
    QString m_name;
    QColor m_color = Qt::white;
    QList<QPointF> m_points;
};

} // namespace quillmere
