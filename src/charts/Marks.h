#pragma once

#include "charts/AxisScale.h"
#include "charts/ChartTick.h"

#include <QFont>
#include <QQuickPaintedItem>

namespace quillmere {

// What a chart draws between its axes, painted into an image of its own, and the ticks that these axes take for it. The axes
// themselves are ChartFrame's. It is painted when its data or its size change, and only then; the ticks are told anew only when
// they are others.
class Marks : public QQuickPaintedItem {
    Q_OBJECT
    QML_NAMED_ELEMENT(ChartMarks)
    QML_UNCREATABLE("A chart has LineMarks or BarMarks.")

    Q_PROPERTY(QList<quillmere::ChartTick> xTicks READ xTicks NOTIFY xTicksChanged)
    Q_PROPERTY(QList<quillmere::ChartTick> yTicks READ yTicks NOTIFY yTicksChanged)
    // The width of the widest label beside the Y axis.
    Q_PROPERTY(double yLabelWidth READ yLabelWidth NOTIFY yTicksChanged)
    Q_PROPERTY(QFont labelFont READ labelFont CONSTANT)
    // How far the image reaches over the axes' ends on every side, for strokes that run along them. Four points are whole pixels at
    // every scale that goes by quarters.
    Q_PROPERTY(double bleed READ bleed CONSTANT)
    // The data in a sentence or two.
    Q_PROPERTY(QString summary READ summary NOTIFY summaryChanged)

public:
    explicit Marks(QQuickItem *parent = nullptr);

    QList<ChartTick> xTicks() const { return m_xTicks; }
    QList<ChartTick> yTicks() const { return m_yTicks; }
    double yLabelWidth() const;
    static QFont labelFont();
    static double bleed() { return 4; }
    QString summary() const { return m_summary; }

signals:
    void xTicksChanged();
    void yTicksChanged();
    void summaryChanged();

protected:
    // The area between the axes' ends, in points.
    QRectF plot() const { return boundingRect().adjusted(bleed(), bleed(), -bleed(), -bleed()); }
    const AxisScale &xScale() const { return m_xScale; }
    const AxisScale &yScale() const { return m_yScale; }
    // Where the data's numbers are.
    QPointF placed(QPointF point) const;

    // Takes new data: measures them, announces what has become of the ticks and the summary, and has them painted.
    void takeData();

    virtual ValueRange xRange() const = 0;
    virtual ValueRange yRange() const = 0;
    // The ticks of the X axis where they are not those of its scale.
    virtual QList<ChartTick> categories() const { return {}; }
    virtual QString describe() const = 0;
    // A number for the ear: a few digits.
    static QString spoken(double value) { return QString::number(value, 'g', 4); }

    void componentComplete() override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;

private:
    void layOutAxes();
    void tell(const QList<ChartTick> &ticks, QList<ChartTick> &told, void (Marks::*changed)());

    AxisScale m_xScale;
    AxisScale m_yScale;
    QList<ChartTick> m_xTicks;
    QList<ChartTick> m_yTicks;
    QString m_summary;
};

} // namespace quillmere
