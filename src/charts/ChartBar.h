#pragma once

#include <QColor>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// One bar of a chart. Bars with a label stand side by side in the order told, each above its label; bars without one stand at
// their x on an axis of numbers.
struct ChartBar {
    Q_GADGET
    QML_VALUE_TYPE(chartBar)

    Q_PROPERTY(double x MEMBER x)
    Q_PROPERTY(QString label MEMBER label)
    Q_PROPERTY(double value MEMBER value)
    Q_PROPERTY(QColor color MEMBER color)

public:
    static ChartBar at(double x, double value, const QColor &color) { return {x, {}, value, color}; }
    static ChartBar labelled(const QString &label, double value, const QColor &color)
    {
        return {0, label, value, color};
    }

    double x = 0;
    QString label;
    double value = 0;
    QColor color;

    bool operator==(const ChartBar &) const = default;
};

} // namespace quillmere
