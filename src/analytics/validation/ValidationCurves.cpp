#include "analytics/validation/ValidationCurves.h"

namespace quillmere {

namespace {

template <typename Formula> QList<QPointF> curve(Formula valueAt)
{
    QList<QPointF> points;
    for (int epoch = 0; epoch < 20; ++epoch) {
        points.append(QPointF(epoch, valueAt(epoch)));
    }
    return points;
}

} // namespace

QList<QPointF> ValidationCurves::trainLoss()
{
    return curve([](double epoch) { return 1.0 / (epoch + 1); });
}

QList<QPointF> ValidationCurves::validationLoss()
{
    return curve([](double epoch) { return 1.1 / (epoch + 1) + 0.05; });
}

QList<QPointF> ValidationCurves::accuracy()
{
    return curve([](double epoch) { return epoch * 0.02 + 0.5; });
}

} // namespace quillmere
