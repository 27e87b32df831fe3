#pragma once

#include "charts/LineSeries.h"
#include "charts/Marks.h"

#include <QPainterPath>
#include <QPolygonF>
#include <QQmlListProperty>

namespace quillmere {

// A curve through the points, in their order: the Catmull-Rom spline with parameter 0.5 (the centripetal one), which has neither
// loops nor cusps. Points at the same place count as one.
QPainterPath smoothPath(const QPolygonF &points);

// The lines of a LineChart.
class LineMarks : public quillmere::Marks {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QQmlListProperty<quillmere::LineSeries> series READ seriesProperty NOTIFY seriesChanged)
    Q_CLASSINFO("DefaultProperty", "series")
    // Curves through the points (Catmull-Rom, with parameter 0.5) instead of straight lines between them.
    Q_PROPERTY(bool smoothed READ isSmoothed WRITE setSmoothed NOTIFY smoothedChanged)
    Q_PROPERTY(double lineWidth READ lineWidth WRITE setLineWidth NOTIFY lineWidthChanged)

public:
    using Marks::Marks;

    QQmlListProperty<LineSeries> seriesProperty();
    const QList<LineSeries *> &series() const { return m_series; }
    void append(LineSeries *series);
    void clear();
    bool isSmoothed() const { return m_smoothed; }
    void setSmoothed(bool smoothed);
    double lineWidth() const { return m_lineWidth; }
    void setLineWidth(double width);

    void paint(QPainter *painter) override;

signals:
    void seriesChanged();
    void smoothedChanged();
    void lineWidthChanged();

protected:
    ValueRange xRange() const override;
    ValueRange yRange() const override;
    QString describe() const override;

private:
    ValueRange rangeOf(double (*coordinate)(QPointF)) const;

    QList<LineSeries *> m_series;
    bool m_smoothed = false;
    double m_lineWidth = 2;
};

} // namespace quillmere
