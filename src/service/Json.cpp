#include "service/Json.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QTimeZone>

#include <simdjson.h>

#include <algorithm>
#include <bit>
#include <chrono>
#include <cmath>
#include <limits>

#include <sys/mman.h>

using namespace Qt::StringLiterals;
namespace dom = simdjson::dom;

namespace quillmere::json {

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

bool isUpper(char c)
{
    return c >= 'A' && c <= 'Z';
}

char upper(char c)
{
    return c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c;
}

bool isKeyOf(std::string_view field, std::string_view key, KeyCoding keys)
{
    if (keys == KeyCoding::Plain) {
        return key == field;
    }
    std::size_t place = 0;
    bool afterUnderscore = false;
    for (const char c : key) {
        if (c == '_') {
            afterUnderscore = true;
            continue;
        }
        if (place == field.size() || field[place] != (afterUnderscore ? upper(c) : c)) {
            return false;
        }
        ++place;
        afterUnderscore = false;
    }
    return place == field.size();
}

QString keyOf(std::string_view field, KeyCoding keys)
{
    QString key;
    for (const char c : field) {
        if (keys == KeyCoding::SnakeCase && isUpper(c)) {
            key += u'_';
            key += QChar::fromLatin1(c).toLower();
        } else {
            key += QChar::fromLatin1(c);
        }
    }
    return key;
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

// Asks for large pages where memory will be written for the first time: half of the time of parsing a long list went into a fault
// for each small one. A wish, which the system may pass over.
void wishForLargePages(void *memory, std::size_t bytes)
{
    constexpr std::size_t page = 4096;
    const std::size_t skipped = (page - std::uintptr_t(memory) % page) % page;
    if (skipped < bytes) {
        madvise(static_cast<char *>(memory) + skipped, bytes - skipped, MADV_HUGEPAGE);
    }
}

simdjson::error_code parse(dom::parser &parser, const QByteArray &bytes, dom::element &root)
{
    const auto size = std::size_t(bytes.size());
    constexpr std::size_t large = 1 << 20;
    if (size >= large && !parser.allocate(size) && !parser.doc.allocate(size)) {
        wishForLargePages(parser.implementation->structural_indexes.get(), size * sizeof(uint32_t));
        wishForLargePages(parser.doc.tape.get(), size * sizeof(uint64_t));
        wishForLargePages(parser.doc.string_buf.get(), size * 5 / 3);
    }
    // The parser reads a little beyond the end. Where that memory is the array's own it need not copy the text first.
    const bool isPadded = bytes.capacity() >= bytes.size() + qsizetype(simdjson::SIMDJSON_PADDING);
    return parser.parse(bytes.constData(), size, !isPadded).get(root);
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
    constexpr std::string_view form = "dddd-dd-ddTdd:dd:dd";
    constexpr std::string_view offsetForm = "+dd:dd";
    const auto fits = [](std::string_view part, std::string_view form) {
        return std::equal(part.begin(), part.end(), form.begin(), form.end(), [](char c, char expected) {
            return expected == 'd' ? isDigit(c) : expected == '+' ? c == '+' || c == '-' : c == expected;
        });
    };
    const std::string_view zone = text.substr(std::min(form.size(), text.size()));
    if (!fits(text.substr(0, form.size()), form) || (zone != "Z" && !fits(zone, offsetForm))) {
        return {};
    }
    const auto number = [text](std::size_t place, std::size_t digits) {
        int value = 0;
        for (const char c : text.substr(place, digits)) {
            value = value * 10 + (c - '0');
        }
        return value;
    };
    const int hour = number(11, 2);
    const int minute = number(14, 2);
    const int second = number(17, 2);
    const std::chrono::year_month_day day{std::chrono::year(number(0, 4)), std::chrono::month(unsigned(number(5, 2))),
        std::chrono::day(unsigned(number(8, 2)))};
    if (!day.ok() || hour > 23 || minute > 59 || second > 59) {
        return {};
    }
    qint64 offset = 0;
    if (zone != "Z") {
        const int hours = number(20, 2);
        const int minutes = number(23, 2);
        if (hours > 23 || minutes > 59) {
            return {};
        }
        offset = (hours * 3600 + minutes * 60) * (zone.front() == '-' ? -1 : 1);
    }
    const qint64 days = std::chrono::sys_days(day).time_since_epoch().count();
    return QDateTime::fromSecsSinceEpoch(days * 86400 + hour * 3600 + minute * 60 + second - offset, Qt::UTC);
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

struct Decoder::Parser {
    dom::parser parser;
    Strings strings;
};

Decoder::Decoder(const QByteArray &bytes, KeyCoding keys) : Mismatch(keys), m_parser(std::make_unique<Parser>())
{
    dom::element root;
    auto &parser = m_parser->parser;
    auto error = parse(parser, bytes, root);
    if (error == simdjson::NUMBER_ERROR) {
        const QByteArray rewritten = withExponentsOnWideIntegers(bytes);
        error = parse(parser, rewritten, root);
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
        to = m_parser->strings(*text);
        return true;
    }
    return mismatch(value, Texts::tr("is not a string"));
}

bool Decoder::read(Value value, QDateTime &to)
{
    const auto text = as<std::string_view>(value);
    if (const auto date = text ? dateTimeOf(*text) : std::nullopt) {
        to = *date;
        return true;
    }
    return mismatch(value, Texts::tr("is not a date with time and zone"));
}

bool Decoder::read(Value value, AnyCodable &to)
{
    if (!value.document) {
        return mismatch(value, {});
    }
    to.value = variantOf(elementOf(value), m_parser->strings);
    return true;
}

bool Decoder::read(Value value, QMap<QString, AnyCodable> &to)
{
    const auto object = as<dom::object>(value);
    if (!object) {
        return mismatch(value, Texts::tr("is not an object"));
    }
    to.clear();
    for (const auto &[key, each] : *object) {
        to.insert(m_parser->strings(key), AnyCodable{variantOf(each, m_parser->strings)});
    }
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

bool Decoder::readFields(Value value, std::span<const std::string_view> names, std::span<Value> found)
{
    const auto object = as<dom::object>(value);
    if (!object) {
        return mismatch(value, Texts::tr("is not an object"));
    }
    // Keys mostly come in the order of the fields, so that the search begins behind the last one found.
    std::size_t next = 0;
    for (const auto &[key, element] : *object) {
        for (std::size_t tried = 0; tried < names.size(); ++tried) {
            const std::size_t field = (next + tried) % names.size();
            if (isKeyOf(names[field], key, m_keys)) {
                found[field] = valueOf(element);
                next = field + 1;
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

bool Encoder::write(const QMap<QString, AnyCodable> &value, QJsonValue &to)
{
    QVariantMap map;
    for (auto each = value.cbegin(); each != value.cend(); ++each) {
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

} // namespace quillmere::json
