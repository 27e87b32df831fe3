#pragma once

#include "platform/Fields.h"
#include "platform/Result.h"
#include "service/AnyCodable.h"

#include <QByteArray>
#include <QDateTime>
#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QList>
#include <QMetaType>
#include <QString>

#include <array>
#include <concepts>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

// JSON (RFC 8259) to records and back: decode() and encode() below. A record lists its fields (platform/Fields.h); a
// field is a bool, a qint64, a QString, a QDateTime, an AnyCodable, an AnyCodableMap, another record, or a QList or
// std::optional of these.
//
// Decoding is strict, and all or nothing. An optional field is absent where its key is missing or its value is null;
// anything else missing or of the wrong type fails the whole. A whole number may be written 1, 1.0 or 1e3. A date is the
// date-time of RFC 3339 without a fraction of a second ("2024-05-01T12:00:00Z"). Unknown keys are passed over; of equal
// keys the last counts. Not well-formed: a byte order mark, lone surrogates, control characters or broken UTF-8 in a
// string, more than 1024 levels, a number beyond the range of a double.
//
// Both run on any thread.
namespace quillmere {

// How keys stand in JSON. SnakeCase: an inbound key loses its underscores and the letter after each is upper-cased, so
// that avatar_url and avatarUrl both are the field avatarUrl; an outbound one is the inverse. Plain: letter for letter.
// The keys of a map of AnyCodable are data and never change.
enum class KeyCoding { SnakeCase, Plain };

namespace json {

template <typename T>
concept Record = requires
{
    T::fields();
};

template <typename T> constexpr bool isOptional = false;
template <typename T> constexpr bool isOptional<std::optional<T>> = true;

// The name of a field, and the key in snake case that stands for it: the usual one, as our service spells it.
struct FieldName {
    constexpr explicit FieldName(std::string_view name) : field(name)
    {
        for (const char c : name) {
            const bool isUpper = c >= 'A' && c <= 'Z';
            if (isUpper) {
                spelled.at(length++) = '_';
            }
            spelled.at(length++) = isUpper ? char(c - 'A' + 'a') : c;
        }
    }

    constexpr std::string_view snakeCase() const { return {spelled.data(), length}; }

    std::string_view field;
    std::array<char, 48> spelled{};
    std::size_t length = 0;
};

// What did not fit, and where: the path of fields and places from the outermost value, put together on the way out.
class Mismatch {
protected:
    explicit Mismatch(KeyCoding keys) : m_keys(keys) { }

    // All return false, so that a failing step can end in them.
    bool fail(const QString &problem);
    bool within(std::string_view field);
    bool within(qsizetype place);

    KeyCoding m_keys;
    QString m_problem;
    QString m_path;
};

// A value of a parsed document, or none. Only the decoder can look inside, and only while it lives.
struct Value {
    const void *document = nullptr;
    std::size_t place = 0;
};

// One document on its way into records. Every read() returns whether the value fitted; after the first that did not,
// failure() says why.
class Decoder : private Mismatch {
public:
    Decoder(const QByteArray &bytes, KeyCoding keys);
    ~Decoder();

    // Where the bytes are one well-formed document.
    bool isWellFormed() const { return m_problem.isEmpty(); }
    Value root() const { return m_root; }

    bool read(Value value, bool &to);
    bool read(Value value, qint64 &to);
    bool read(Value value, QString &to);
    bool read(Value value, QDateTime &to);
    bool read(Value value, AnyCodable &to);
    bool read(Value value, AnyCodableMap &to);

    template <typename T> bool read(Value value, std::optional<T> &to)
    {
        if (isAbsent(value)) {
            to.reset();
            return true;
        }
        return read(value, to.emplace());
    }

    template <typename T> bool read(Value value, QList<T> &to)
    {
        std::vector<Value> elements;
        if (!readElements(value, elements)) {
            return false;
        }
        to.clear();
        to.reserve(qsizetype(elements.size()));
        for (const Value element : elements) {
            if (!read(element, to.emplaceBack())) {
                return within(to.size() - 1);
            }
        }
        return true;
    }

    template <Record T> bool read(Value value, T &to)
    {
        static constexpr auto fields = T::fields();
        static constexpr auto names =
            std::apply([](const auto &...field) { return std::array{FieldName(field.name)...}; }, fields);
        std::array<Value, names.size()> found;
        if (!readFields(value, names, found)) {
            return false;
        }
        return [&]<std::size_t... i>(std::index_sequence<i...>)
        {
            return ((read(found[i], to.*std::get<i>(fields).member) || within(names[i].field)) && ...);
        }
        (std::make_index_sequence<names.size()>());
    }

    // Names the path from `record` on and never quotes what was received.
    Failure failure(QMetaType record) const;

private:
    bool isAbsent(Value value) const;
    bool mismatch(Value value, const QString &problem);
    bool readElements(Value value, std::vector<Value> &to);
    // Puts beside each name the value that an object holds for it.
    bool readFields(Value value, std::span<const FieldName> names, std::span<Value> found);

    struct Document;
    std::unique_ptr<Document> m_document;
    Value m_root;
};

// One value on its way into JSON. Every write() returns whether the value can be told in JSON.
class Encoder : private Mismatch {
public:
    explicit Encoder(KeyCoding keys) : Mismatch(keys) { }

    bool write(bool value, QJsonValue &to);
    bool write(qint64 value, QJsonValue &to);
    bool write(const QString &value, QJsonValue &to);
    bool write(const QDateTime &value, QJsonValue &to);
    bool write(const AnyCodable &value, QJsonValue &to);
    bool write(const AnyCodableMap &value, QJsonValue &to);

    template <typename T> bool write(const std::optional<T> &value, QJsonValue &to)
    {
        to = QJsonValue::Null;
        return !value || write(*value, to);
    }

    template <typename T> bool write(const QList<T> &value, QJsonValue &to)
    {
        QJsonArray array;
        for (const T &element : value) {
            QJsonValue encoded;
            if (!write(element, encoded)) {
                return within(array.size());
            }
            array.append(encoded);
        }
        to = array;
        return true;
    }

    template <Record T> bool write(const T &value, QJsonValue &to)
    {
        QJsonObject object;
        const auto writeField = [&](const auto &field) {
            const auto &member = value.*field.member;
            if constexpr (isOptional<std::decay_t<decltype(member)>>) {
                if (!member) {
                    return true;
                }
            }
            QJsonValue encoded;
            if (!write(member, encoded)) {
                return within(field.name);
            }
            object.insert(wireKey(field.name), encoded);
            return true;
        };
        const bool complete = std::apply([&](const auto &...field) { return (writeField(field) && ...); }, T::fields());
        to = object;
        return complete;
    }

    Failure failure(QMetaType record) const;

private:
    bool writeVariant(const QVariant &value, QJsonValue &to);
    QString wireKey(std::string_view field) const;
};

QByteArray serialized(const QJsonValue &value);

} // namespace json

template <typename T>
concept Decodable = std::default_initializable<T> && requires(json::Decoder &decoder, json::Value value, T &to)
{
    decoder.read(value, to);
};

// A record that is only ever received may say so by a member decodableOnly.
template <typename T>
concept Encodable = !requires
{
    T::decodableOnly;
}
&&requires(json::Encoder &encoder, QJsonValue &to, const T &value)
{
    encoder.write(value, to);
};

// Fails with kind Decoding.
template <Decodable T> Result<T> decode(const QByteArray &bytes, KeyCoding keys)
{
    json::Decoder decoder(bytes, keys);
    T value{};
    if (!decoder.isWellFormed() || !decoder.read(decoder.root(), value)) {
        return decoder.failure(QMetaType::fromType<T>());
    }
    return value;
}

// Compact UTF-8. Absent fields are left out, dates are in UTC. Fails with kind Encoding where a value has no form in
// JSON: a number that is not finite, a lone surrogate, a date that is not valid or not of the years 1 to 9999.
template <Encodable T> Result<QByteArray> encode(const T &value, KeyCoding keys)
{
    json::Encoder encoder(keys);
    QJsonValue encoded;
    if (!encoder.write(value, encoded)) {
        return encoder.failure(QMetaType::fromType<T>());
    }
    return json::serialized(encoded);
}

} // namespace quillmere
