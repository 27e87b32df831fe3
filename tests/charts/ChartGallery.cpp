#include "charts/ChartGallery.h"

#include "charts/ChartBar.h"

#include <QPointF>

#include <cmath>
#include <functional>

using namespace Qt::StringLiterals;

namespace quillmere::testing {

namespace {

QList<QPointF> points(int count, const std::function<double(double)> &value)
{
    QList<QPointF> points;
    for (int i = 0; i < count; ++i) {
        points.append({double(i), value(i)});
    }
    return points;
}

double noise(double i)
{
    const double x = std::sin(i * 12.9898) * 43758.5453;
    return x - std::floor(x);
}

} // namespace

QVariantMap chartGallery()
{
    QList<ChartBar> numbers;
    for (int i = 0; i < 20; ++i) {
        numbers.append(ChartBar::at(i * 100, 100 + std::floor(noise(i) * 900), QColor(0x32D74B)));
    }
    const QList<ChartBar> labels{ChartBar::labelled(u"Positive"_s, 4500, QColor(0x0A84FF)),
        ChartBar::labelled(u"Negative"_s, 3200, QColor(0xFF453A)),
        ChartBar::labelled(u"Neutral"_s, 2100, QColor(0x98989D))};
    const QList<ChartBar> negative{ChartBar::at(0, -40, QColor(0xFF453A)), ChartBar::at(1, 25, QColor(0x32D74B)),
        ChartBar::at(2, -12, QColor(0xFF453A)), ChartBar::at(3, 0, QColor(0x32D74B)),
        ChartBar::at(4, 31, QColor(0x32D74B))};
    const QList<ChartBar> longLabels{ChartBar::labelled(u"Contradiction of the premise"_s, 1.25e7, QColor(0x0A84FF)),
        ChartBar::labelled(u"Entailment"_s, 8.1e6, QColor(0xBF5AF2)),
        ChartBar::labelled(u"Neither of the two"_s, 2e5, QColor(0xFF9F0A))};
    QList<QPointF> gap = points(30, [](double i) { return 1e9 + std::sin(i / 3); });
    gap[12].setY(qQNaN());
    gap[21].setY(qInf());
    gap[23].setY(qInf());
    QList<double> strip;
    for (int i = 0; i < 20; ++i) {
        strip.append(0.9 - 0.03 * i);
    }
    QList<QPointF> spark{{0, 0.5}};
    for (int i = 1; i <= 20; ++i) {
        spark.append({i / 20.0, 0.2 + 0.6 * noise(i)});
    }

    return {
        {u"train"_s, QVariant::fromValue(points(20, [](double i) { return 1 / (i + 1); }))},
        {u"validation"_s, QVariant::fromValue(points(20, [](double i) { return 1.1 / (i + 1) + 0.05; }))},
        {u"accuracy"_s, QVariant::fromValue(points(20, [](double i) { return i * 0.02 + 0.5; }))},
        {u"loss"_s, QVariant::fromValue(points(50, [](double i) { return 0.5 + 0.1 * (noise(i) - 0.5); }))},
        {u"validationLoss"_s,
            QVariant::fromValue(points(50, [](double i) { return 0.55 + 0.06 * (noise(i + 50) - 0.5); }))},
        {u"rate"_s, QVariant::fromValue(points(50, [](double i) { return (1 - (1420 + i) / 5000) * 0.0003; }))},
        {u"numbers"_s, QVariant::fromValue(numbers)},
        {u"labels"_s, QVariant::fromValue(labels)},
        {u"strip"_s, QVariant::fromValue(strip)},
        {u"negative"_s, QVariant::fromValue(negative)},
        {u"longLabels"_s, QVariant::fromValue(longLabels)},
        {u"gap"_s, QVariant::fromValue(gap)},
        {u"many"_s, QVariant::fromValue(points(2000, [](double i) { return std::sin(i / 60) * i + 300 * noise(i); }))},
        {u"spark"_s, QVariant::fromValue(spark)},
    };
}

} // namespace quillmere::testing
