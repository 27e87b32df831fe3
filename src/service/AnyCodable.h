#pragma once

#include <QVariant>

namespace quillmere {

// A JSON value of no fixed type. `value` is invalid for null, or holds one of bool, qlonglong, double, QString,
// QVariantList and QVariantMap; lists and maps hold such values directly, not AnyCodable.
//
// Every JSON value decodes: a number is a qlonglong where its value is whole and fits one (1, 1.0, 1e3), else a
// double. Encoding takes any other type of QVariant for null. There is deliberately no equality and no hash.
struct AnyCodable {
    QVariant value;
};

} // namespace quillmere
