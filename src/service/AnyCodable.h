#pragma once

#include <QMap>
#include <QString>
#include <QVariant>

#include <cstddef>
#include <memory>

namespace quillmere {

// A JSON value of no fixed type. `value` is invalid for null, or holds one of bool, qlonglong, double, QString,
// QVariantList and QVariantMap; lists and maps hold such values directly, not AnyCodable.
//
// Every JSON value decodes: a number is a qlonglong where its value is whole and fits one (1, 1.0, 1e3), else a
// double. Encoding takes any other type of QVariant for null. There is deliberately no equality and no hash.
struct AnyCodable {
    QVariant value;
};

// A map from string to AnyCodable. One that was decoded stays in the document, which it shares with the others of its reply, and is
// put together each time it is asked for: a list of thousands of jobs brings two maps with each, and nobody looks at most of them.
// There is no equality and no hash either.
class AnyCodableMap {
public:
    AnyCodableMap(const QMap<QString, AnyCodable> &values = {}) : m_values(values) { }
    // Of the object that stands at this place of a document of the decoder.
    AnyCodableMap(std::shared_ptr<const void> document, std::size_t place);

    QMap<QString, AnyCodable> toMap() const;

private:
    QMap<QString, AnyCodable> m_values;
    std::shared_ptr<const void> m_document;
    std::size_t m_place = 0;
};

} // namespace quillmere
