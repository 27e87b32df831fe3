#pragma once

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// How the trend of a metric is coloured. Its sign alone decides, whatever the metric: what falls is green and what rises is red,
// also where a rise is good. What has no sign is gray.
class MetricTrend : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    Q_INVOKABLE static QColor color(const QString &trend);
};

} // namespace quillmere
