#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// Where an axis has a grid line and what stands beside it.
struct ChartTick {
    Q_GADGET
    QML_VALUE_TYPE(chartTick)

    Q_PROPERTY(double place MEMBER place)
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(bool hasLine MEMBER hasLine)

public:
    double place = 0; // from 0 at the lower end of the axis to 1 at its upper end
    QString text;
    bool hasLine = true; // the label of a category has none

    bool operator==(const ChartTick &) const = default;
};

} // namespace quillmere
