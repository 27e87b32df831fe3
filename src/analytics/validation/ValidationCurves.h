#pragma once

#include <QList>
#include <QObject>
#include <QPointF>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// The curves of the validation tab, computed from nothing but their formulas: twenty epochs, from 0 to 19.
class ValidationCurves : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(QList<QPointF> trainLoss READ trainLoss CONSTANT)
    Q_PROPERTY(QList<QPointF> validationLoss READ validationLoss CONSTANT)
    Q_PROPERTY(QList<QPointF> accuracy READ accuracy CONSTANT)

public:
    // Falls from 1.0 to 0.05.
    static QList<QPointF> trainLoss();
    // Falls from 1.15 to 0.105.
    static QList<QPointF> validationLoss();
    // A straight line from 0.5 to 0.88.
    static QList<QPointF> accuracy();
};

} // namespace quillmere
