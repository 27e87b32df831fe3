#include "service/Json.h"

#include <QCoreApplication>
#include <QJsonDocument>

#include <simdjson.h>

#include <algorithm>
#include <bit>
#include <chrono>
#include <cmath>
#include <limits>

#include <sys/mman.h>

using namespace Qt::StringLiterals;
namespace dom = simdjson::dom;

namespace quillmere {

namespace json {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(Json)
};

// Value is the parser's own handle under another name, so that its header stays out of ours.
static_assert(sizeof(Value) == sizeof(dom::element) && std::is_trivially_copyable_v<dom::element>);

dom::element elementOf(Value value)
{
    return std::bit_cast<dom::element>(value);
}

Value valueOf(dom::element element)
{
    return std::bit_cast<Value>(element);
}

// The value as a T, where there is one and it is of that type.
template <typename T> std::optional<T> as(dom::element element)
{
    T value{};
    if (element.get(value) != simdjson::SUCCESS) {
        return {};
    }
    return value;
}

template <typename T> std::optional<T> as(Value value)
{
    return value.document ? as<T>(elementOf(value)) : std::nullopt;
}

// Makes strings of a document's text, whose keys and short values come again and again: those still remembered share
// one QString, which spares most of the allocations of a long list. The texts have to outlive this.
class Strings {
public:
    QString operator()(std::string_view text)
    {
        if (text.empty() || text.size() > longestRemembered) {
            return QString::fromUtf8(text.data(), qsizetype(text.size()));
        }
        auto &[known, string] = m_remembered[std::hash<std::string_view>()(text) % m_remembered.size()];
        if (known != text) {
            known = text;
            string = QString::fromUtf8(text.data(), qsizetype(text.size()));
        }
        return string;
    }

private:
    static constexpr std::size_t longestRemembered = 32;
    std::array<std::pair<std::string_view, QString>, 256> m_remembered;
};

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

char upper(char c)
{
    return c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c;
}

bool isKeyOf(const FieldName &name, std::string_view key, KeyCoding keys)
{
    if (keys == KeyCoding::Plain) {
        return key == name.field;
    }
    if (key == name.snakeCase()) {
        return true;
    }
    std::size_t place = 0;
    bool afterUnderscore = false;
    for (const char c : key) {
        if (c == '_') {
            afterUnderscore = true;
            continue;
        }
        if (place == name.field.size() || name.field[place] != (afterUnderscore ? upper(c) : c)) {
            return false;
        }
        ++place;
        afterUnderscore = false;
    }
    return place == name.field.size();
}

QString keyOf(std::string_view field, KeyCoding keys)
{
    const FieldName name(field);
    const std::string_view key = keys == KeyCoding::SnakeCase ? name.snakeCase() : field;
    return QString::fromLatin1(key.data(), qsizetype(key.size()));
}

// The parser refuses an integer of more than 64 bits; with an exponent it reads the same number as a double.
QByteArray withExponentsOnWideIntegers(const QByteArray &bytes)
{
    QByteArray rewritten;
    rewritten.reserve(bytes.size() + 64);
    bool inString = false;
    for (qsizetype i = 0; i < bytes.size();) {
        const qsizetype start = i;
        const char c = bytes[i++];
        if (inString) {
            if (c == '\\' && i < bytes.size()) {
                ++i;
            }
            inString = c != '"';
        } else if (c == '"') {
            inString = true;
        } else if (isDigit(c) || c == '-') {
            const auto isPartOfNumber = [](char d) {
                return isDigit(d) || d == '.' || d == 'e' || d == 'E' || d == '+' || d == '-';
            };
            i = std::find_if_not(bytes.cbegin() + i, bytes.cend(), isPartOfNumber) - bytes.cbegin();
        }
        const auto token = QByteArray::fromRawData(bytes.constData() + start, i - start);
        rewritten += token;
        // Within a string a token is a character or an escape, too short to count.
        constexpr qsizetype widestSafe = 18; // digits
        if (token.size() > widestSafe && std::all_of(token.cbegin() + 1, token.cend(), isDigit)) {
            bool fits = false;
            token.toLongLong(&fits);
            if (!fits) {
                rewritten += "e0";
            }
        }
    }
    return rewritten;
}

// Asks for large pages where memory will be written for the first time, instead of a fault for each small one: decoding 20,000 jobs
// takes 26 and 31 ms (without maps, with them) where it took 30 and 38. A wish, which the system may pass over.
void wishForLargePages(void *memory, std::size_t bytes)
{
    constexpr std::size_t page = 4096;
    const std::size_t skipped = (page - std::uintptr_t(memory) % page) % page;
    if (skipped < bytes) {
        madvise(static_cast<char *>(memory) + skipped, bytes - skipped, MADV_HUGEPAGE);
    }
}

simdjson::error_code parse(dom::document &document, const QByteArray &bytes, dom::element &root)
{
    dom::parser parser;
    const auto size = std::size_t(bytes.size());
    constexpr std::size_t large = 1 << 20;
    if (size >= large && !parser.allocate(size) && !document.allocate(size)) {
        wishForLargePages(parser.implementation->structural_indexes.get(), size * sizeof(uint32_t));
        wishForLargePages(document.tape.get(), size * sizeof(uint64_t));
        wishForLargePages(document.string_buf.get(), size * 5 / 3);
    }
    // The parser reads a little beyond the end. Where that memory is the array's own it need not copy the text first.
    const bool isPadded = bytes.capacity() >= bytes.size() + qsizetype(simdjson::SIMDJSON_PADDING);
    return parser.parse_into_document(document, bytes.constData(), size, !isPadded).get(root);
}

QString problemOf(simdjson::error_code error)
{
    switch (error) {
    case simdjson::EMPTY:
        return Texts::tr("it is empty");
    case simdjson::DEPTH_ERROR:
        return Texts::tr("it is nested too deeply");
    case simdjson::CAPACITY:
    case simdjson::MEMALLOC:
        return Texts::tr("it is too large");
    default:
        return Texts::tr("it is not valid JSON");
    }
}

std::optional<qint64> wholeNumberOf(dom::element element)
{
    if (const auto number = as<int64_t>(element)) {
        return *number;
    }
    const double number = as<double>(element).value_or(std::numeric_limits<double>::infinity());
    // 2 to the power of 63, which a double may also stand for when the number lies just beyond 64 bits.
    constexpr double limit = 9223372036854775808.0;
    if (std::abs(number) >= limit || number != std::trunc(number)) {
        return {};
    }
    return qint64(number);
}

QVariant variantOf(dom::element element, Strings &strings)
{
    switch (element.type()) {
    case dom::element_type::BOOL:
        return *as<bool>(element);
    case dom::element_type::INT64:
    case dom::element_type::UINT64:
    case dom::element_type::DOUBLE:
        if (const auto number = wholeNumberOf(element)) {
            return QVariant::fromValue<qlonglong>(*number);
        }
        return *as<double>(element);
    case dom::element_type::STRING:
        return strings(*as<std::string_view>(element));
    case dom::element_type::ARRAY: {
        const auto array = as<dom::array>(element);
        QVariantList list;
        list.reserve(qsizetype(array->size()));
        for (const dom::element each : *array) {
            list.append(variantOf(each, strings));
        }
        return list;
    }
    case dom::element_type::OBJECT: {
        const auto object = as<dom::object>(element);
        QVariantMap map;
        for (const auto &[key, each] : *object) {
            map.insert(strings(key), variantOf(each, strings));
        }
        return map;
    }
    case dom::element_type::NULL_VALUE:
        break;
    }
    return {};
}

// The date-time of RFC 3339, section 5.6, with upper-case letters and without a fraction. A leap second has no place in
// the calendar used here and is refused.
std::optional<QDateTime> dateTimeOf(std::string_view text)
{
    // 2024-05-01T12:00:00Z or 2024-05-01T12:00:00+02:00
    const bool isInUtc = text.size() == 20 && text[19] == 'Z';
    const bool hasOffset = text.size() == 25 && (text[19] == '+' || text[19] == '-') && text[22] == ':';
    if ((!isInUtc && !hasOffset) || text[4] != '-' || text[7] != '-' || text[10] != 'T' || text[13] != ':'
        || text[16] != ':') {
        return {};
    }
    bool hasDigits = true;
    const auto pair = [&](std::size_t place) {
        hasDigits = hasDigits && isDigit(text[place]) && isDigit(text[place + 1]);
        return (text[place] - '0') * 10 + (text[place + 1] - '0');
    };
    const int year = pair(0) * 100 + pair(2);
    const int month = pair(5);
    const int day = pair(8);
    const int hour = pair(11);
    const int minute = pair(14);
    const int second = pair(17);
    const int offsetHours = hasOffset ? pair(20) : 0;
    const int offsetMinutes = hasOffset ? pair(23) : 0;
    if (!hasDigits || hour > 23 || minute > 59 || second > 59 || offsetHours > 23 || offsetMinutes > 59) {
        return {};
    }
    const auto date = std::chrono::year(year) / month / day;
    if (!date.ok()) {
        return {};
    }
    const int offset = (offsetHours * 3600 + offsetMinutes * 60) * (text[19] == '-' ? -1 : 1);
    const qint64 days = std::chrono::sys_days(date).time_since_epoch().count();
    const qint64 seconds = days * 86400 + hour * 3600 + minute * 60 + second - offset;
    return QDateTime::fromMSecsSinceEpoch(seconds * 1000, Qt::UTC);
}

QString pathFrom(QMetaType record, const QString &path)
{
    QString name = QString::fromUtf8(record.name());
    name.remove(u"quillmere::"_s);
    return name + path;
}

} // namespace

bool Mismatch::fail(const QString &problem)
{
    m_problem = problem;
    return false;
}

bool Mismatch::within(std::string_view field)
{
    m_path.prepend(u'.' + keyOf(field, m_keys));
    return false;
}

bool Mismatch::within(qsizetype place)
{
    m_path.prepend(u"[%1]"_s.arg(place));
    return false;
}

struct Decoder::Document {
    std::shared_ptr<dom::document> parsed = std::make_shared<dom::document>();
    Strings strings;
};

Decoder::Decoder(const QByteArray &bytes, KeyCoding keys) : Mismatch(keys), m_document(std::make_unique<Document>())
{
    dom::element root;
    auto &document = *m_document->parsed;
    auto error = parse(document, bytes, root);
    if (error == simdjson::NUMBER_ERROR) {
        const QByteArray rewritten = withExponentsOnWideIntegers(bytes);
        error = parse(document, rewritten, root);
    }
    if (error) {
        fail(problemOf(error));
    } else {
        m_root = valueOf(root);
    }
}

Decoder::~Decoder() = default;

bool Decoder::read(Value value, bool &to)
{
    if (const auto boolean = as<bool>(value)) {
        to = *boolean;
        return true;
    }
    return mismatch(value, Texts::tr("is not a boolean"));
}

bool Decoder::read(Value value, qint64 &to)
{
    if (value.document) {
        if (const auto number = wholeNumberOf(elementOf(value))) {
            to = *number;
            return true;
        }
    }
    return mismatch(value, Texts::tr("is not a whole number of 64 bits"));
}

bool Decoder::read(Value value, QString &to)
{
    if (const auto text = as<std::string_view>(value)) {
        to = m_document->strings(*text);
        return true;
    }
    return mismatch(value, Texts::tr("is not a string"));
}

bool Decoder::read(Value value, QDateTime &to)
{
    const auto text = as<std::string_view>(value);
    if (auto date = text ? dateTimeOf(*text) : std::nullopt) {
        to = *std::move(date);
        return true;
    }
    return mismatch(value, Texts::tr("is not a date with time and zone"));
}

bool Decoder::read(Value value, AnyCodable &to)
{
    if (!value.document) {
        return mismatch(value, {});
    }
    to.value = variantOf(elementOf(value), m_document->strings);
    return true;
}

bool Decoder::read(Value value, AnyCodableMap &to)
{
    if (!as<dom::object>(value)) {
        return mismatch(value, Texts::tr("is not an object"));
    }
    to = AnyCodableMap(m_document->parsed, value.place);
    return true;
}

Failure Decoder::failure(QMetaType record) const
{
    const QString what = m_root.document ? pathFrom(record, m_path) + u' ' + m_problem : m_problem;
    return {Failure::Kind::Decoding, Texts::tr("The reply could not be read: %1.").arg(what)};
}

bool Decoder::isAbsent(Value value) const
{
    return !value.document || elementOf(value).is_null();
}

bool Decoder::mismatch(Value value, const QString &problem)
{
    return fail(value.document ? problem : Texts::tr("is missing"));
}

bool Decoder::readElements(Value value, std::vector<Value> &to)
{
    const auto array = as<dom::array>(value);
    if (!array) {
        return mismatch(value, Texts::tr("is not a list"));
    }
    to.reserve(array->size());
    for (const dom::element element : *array) {
        to.push_back(valueOf(element));
    }
    return true;
}

bool Decoder::readFields(Value value, std::span<const FieldName> names, std::span<Value> found)
{
    const auto object = as<dom::object>(value);
    if (!object) {
        return mismatch(value, Texts::tr("is not an object"));
    }
    // Keys mostly come in the order of the fields, so that the search begins behind the last one found.
    std::size_t next = 0;
    for (const auto &[key, element] : *object) {
        for (std::size_t tried = 0; tried < names.size(); ++tried) {
            const std::size_t field = next < names.size() ? next : 0;
            next = field + 1;
            if (isKeyOf(names[field], key, m_keys)) {
                found[field] = valueOf(element);
                break;
            }
        }
    }
    return true;
}

bool Encoder::write(bool value, QJsonValue &to)
{
    to = value;
    return true;
}

bool Encoder::write(qint64 value, QJsonValue &to)
{
    to = value;
    return true;
}

bool Encoder::write(const QString &value, QJsonValue &to)
{
    if (!value.isValidUtf16()) {
        return fail(Texts::tr("is not valid Unicode"));
    }
    to = value;
    return true;
}

bool Encoder::write(const QDateTime &value, QJsonValue &to)
{
    // Outside the years 1 to 9999 there is no four-digit form, and the text comes out empty.
    const QString text = value.toUTC().toString(Qt::ISODate);
    if (text.isEmpty()) {
        return fail(Texts::tr("is not a date of the years 1 to 9999"));
    }
    to = text;
    return true;
}

bool Encoder::write(const AnyCodable &value, QJsonValue &to)
{
    return writeVariant(value.value, to);
}

bool Encoder::write(const AnyCodableMap &value, QJsonValue &to)
{
    const QMap<QString, AnyCodable> values = value.toMap();
    QVariantMap map;
    for (auto each = values.cbegin(); each != values.cend(); ++each) {
        map.insert(each.key(), each->value);
    }
    return writeVariant(map, to);
}

bool Encoder::writeVariant(const QVariant &value, QJsonValue &to)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return write(value.toBool(), to);
    case QMetaType::Int:
    case QMetaType::Long:
    case QMetaType::LongLong:
        return write(qint64(value.toLongLong()), to);
    case QMetaType::Double:
        if (!std::isfinite(value.toDouble())) {
            return fail(Texts::tr("holds a number that is not finite"));
        }
        to = value.toDouble();
        return true;
    case QMetaType::QString:
        return write(value.toString(), to);
    case QMetaType::QVariantList: {
        QJsonArray array;
        for (const QVariant &each : value.toList()) {
            QJsonValue encoded;
            if (!writeVariant(each, encoded)) {
                return false;
            }
            array.append(encoded);
        }
        to = array;
        return true;
    }
    case QMetaType::QVariantMap: {
        const QVariantMap map = value.toMap();
        QJsonObject object;
        for (auto each = map.cbegin(); each != map.cend(); ++each) {
            QJsonValue key;
            QJsonValue encoded;
            if (!write(each.key(), key) || !writeVariant(*each, encoded)) {
                return false;
            }
            object.insert(each.key(), encoded);
        }
        to = object;
        return true;
    }
    default:
        to = QJsonValue::Null;
        return true;
    }
}

QString Encoder::wireKey(std::string_view field) const
{
    return keyOf(field, m_keys);
}

Failure Encoder::failure(QMetaType record) const
{
    const QString what = pathFrom(record, m_path) + u' ' + m_problem;
    return {Failure::Kind::Encoding, Texts::tr("The request could not be written: %1.").arg(what)};
}

QByteArray serialized(const QJsonValue &value)
{
    // A document of Qt is a list or an object; a list around the value lets it be a scalar too.
    const QByteArray list = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return list.mid(1, list.size() - 2);
}

} // namespace json

AnyCodableMap::AnyCodableMap(std::shared_ptr<const void> document, std::size_t place)
    : m_document(std::move(document)), m_place(place)
{
}

QMap<QString, AnyCodable> AnyCodableMap::toMap() const
{
    if (!m_document) {
        return m_values;
    }
    QMap<QString, AnyCodable> values;
    json::Strings strings;
    const dom::object object = *json::as<dom::object>(json::Value{m_document.get(), m_place});
    for (const auto &[key, each] : object) {
        values.insert(strings(key), AnyCodable{json::variantOf(each, strings)});
    }
    return values;
}

} // namespace quillmere
