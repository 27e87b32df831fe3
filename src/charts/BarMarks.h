#pragma once

#include "charts/ChartBar.h"
#include "charts/Marks.h"

namespace quillmere {

// The bars of a BarChart.
class BarMarks : public quillmere::Marks {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QList<quillmere::ChartBar> bars READ bars WRITE setBars NOTIFY barsChanged)

public:
    using Marks::Marks;

    QList<ChartBar> bars() const { return m_bars; }
    void setBars(const QList<ChartBar> &bars);

    void paint(QPainter *painter) override;

signals:
    void barsChanged();

protected:
    ValueRange xRange() const override;
    ValueRange yRange() const override;
    AxisScale::Ends xEnds() const override { return AxisScale::Ends::AtValues; }
    QList<ChartTick> categories() const override;
    QString describe() const override;

private:
    bool hasLabels() const;
    double distance() const;

    QList<ChartBar> m_bars;
};

} // namespace quillmere
