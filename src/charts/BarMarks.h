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
    QList<ChartTick> categories() const override;
    QString describe() const override;

private:
    // What a bar and the gap beside it take of the X axis, in its units.
    double band() const;
    bool hasLabels() const;

    QList<ChartBar> m_bars;
};

} // namespace quillmere
