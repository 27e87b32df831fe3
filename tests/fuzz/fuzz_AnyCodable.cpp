// JSON of no fixed type, with Qt's parser for a second opinion.
#include "Fuzz.h"

#include "service/Json.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace quillmere::fuzz {

namespace {

bool isOfTheSevenShapes(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
    case QMetaType::Bool:
    case QMetaType::LongLong:
        return true;
    case QMetaType::Double: {
        // A whole number that fits 64 bits is not a double.
        const double number = value.toDouble();
        return std::isfinite(number) && (number != std::trunc(number) || std::abs(number) >= 0x1p63);
    }
    case QMetaType::QString:
        return value.toString().isValidUtf16();
    case QMetaType::QVariantList: {
        const QVariantList list = value.toList();
        return std::all_of(list.cbegin(), list.cend(), isOfTheSevenShapes);
    }
    case QMetaType::QVariantMap: {
        const QVariantMap map = value.toMap();
        return std::all_of(map.cbegin(), map.cend(), isOfTheSevenShapes);
    }
    default:
        return false;
    }
}

bool isSame(const QVariant &ours, const QJsonValue &qts)
{
    switch (ours.typeId()) {
    case QMetaType::UnknownType:
        return qts.isNull();
    case QMetaType::Bool:
        return qts.isBool() && qts.toBool() == ours.toBool();
    case QMetaType::LongLong:
        return qts.isDouble() && qts.toVariant().toLongLong() == ours.toLongLong();
    case QMetaType::Double:
        return qts.isDouble() && qts.toDouble() == ours.toDouble();
    case QMetaType::QString:
        return qts.isString() && qts.toString() == ours.toString();
    case QMetaType::QVariantList: {
        const QVariantList list = ours.toList();
        const QJsonArray array = qts.toArray();
        return qts.isArray() && std::equal(list.cbegin(), list.cend(), array.cbegin(), array.cend(), isSame);
    }
    case QMetaType::QVariantMap: {
        const QVariantMap map = ours.toMap();
        const QJsonObject object = qts.toObject();
        if (!qts.isObject() || map.size() != object.size()) {
            return false;
        }
        for (auto each = map.cbegin(); each != map.cend(); ++each) {
            if (!object.contains(each.key()) || !isSame(each.value(), object.value(each.key()))) {
                return false;
            }
        }
        return true;
    }
    default:
        return false;
    }
}

Result<AnyCodable> read(const QByteArray &input)
{
    return decode<AnyCodable>(input, KeyCoding::SnakeCase);
}

void comparesWithQt(const QByteArray &input, const AnyCodable &ours)
{
    // Qt reads lists and objects only.
    QJsonParseError error;
    const QJsonDocument qts = QJsonDocument::fromJson('[' + input + ']', &error);
    // Qt refuses a number too small for a double, and what is nested one level deeper by the list around it.
    if (error.error != QJsonParseError::IllegalNumber && error.error != QJsonParseError::DeepNesting) {
        HOLDS(error.error == QJsonParseError::NoError);
        HOLDS(qts.array().size() == 1 && isSame(ours.value, qts.array().first()));
    }
}

} // namespace

void feed(const QByteArray &input)
{
    if (const auto ours = read(input)) {
        HOLDS(isOfTheSevenShapes(ours->value));
        comparesWithQt(input, *ours);
        const auto written = encode(*ours, KeyCoding::SnakeCase);
        HOLDS(written);
        const auto again = read(*written);
        HOLDS(again && again->value == ours->value);
    }
    // Whatever Qt writes can be read, but for lone surrogates.
    const QJsonDocument qts = QJsonDocument::fromJson(input);
    const QByteArray written = qts.toJson(QJsonDocument::Compact);
    if (!qts.isNull() && !written.contains("\\ud")) {
        HOLDS(read(written));
    }
}

} // namespace quillmere::fuzz
