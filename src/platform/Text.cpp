#include "platform/Text.h"

#include <QCoreApplication>
#include <QLocale>
#include <QRegularExpression>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <array>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>

using namespace Qt::StringLiterals;

namespace quillmere::text {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(Text)
};

// The C locale, of a desktop that names none, counts as US English.
QLocale userLocale()
{
    return QLocale().language() == QLocale::C ? QLocale(QLocale::English, QLocale::UnitedStates) : QLocale();
}

bool partsWords(QChar character)
{
    return !character.isLetterOrNumber() && !character.isMark() && !character.isSurrogate() && character != u'\''
        && character != u'\u2019';
}

template <typename Value> QString formatted(const QString &format, const QString &conversion, Value value)
{
    // Width and precision of at most three digits, and none that is taken from a further argument.
    static const QRegularExpression whole(
        u"\\A(?:[^%]|%%)*%[-+ #0]*[0-9]{0,3}(?:\\.[0-9]{0,3})?"_s + conversion + u"(?:[^%]|%%)*\\z"_s);
    if (!whole.match(format).hasMatch() || format.contains(QChar::Null)) {
        qWarning("\"%s\" is no format for one such value.", qPrintable(format));
        return format;
    }
    // The toolkit has set the user's locale, in which a decimal point may be a comma.
    static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
    const locale_t users = uselocale(plain);
    const std::string pattern = format.toStdString();
    std::string text(size_t(std::max(0, std::snprintf(nullptr, 0, pattern.c_str(), value))), '\0');
    std::snprintf(text.data(), text.size() + 1, pattern.c_str(), value);
    uselocale(users);
    return QString::fromStdString(text);
}

} // namespace

bool localizedCaseInsensitiveContains(const QString &text, const QString &part)
{
    return searchable(text).contains(searchable(part));
}

QString searchable(const QString &text)
{
    const QLocale locale;
    const bool dotsMatter = locale.language() == QLocale::Turkish || locale.language() == QLocale::Azerbaijani;
    const bool isAscii = std::all_of(text.cbegin(), text.cend(), [](QChar letter) { return letter.unicode() < 0x80; });
    // Of letters that every language writes alike the short way gives the same, in a small part of the time.
    if (isAscii && !dotsMatter) {
        QString small(text.size(), Qt::Uninitialized);
        std::transform(text.cbegin(), text.cend(), small.begin(), [](QChar letter) {
            const char16_t unit = letter.unicode();
            return QChar(unit >= u'A' && unit <= u'Z' ? char16_t(unit + (u'a' - u'A')) : unit);
        });
        return small;
    }
    // An accent may be part of its letter or stand behind it, as in the names of files that come from other systems. Small letters
    // are those of the user's language: in Turkish "I" has no dot, and so on.
    return locale.toLower(text).toCaseFolded().normalized(QString::NormalizationForm_C);
}

QString capitalized(const QString &text)
{
    QString result;
    result.reserve(text.size());
    qsizetype start = 0;
    while (start < text.size()) {
        qsizetype end = start;
        while (end < text.size() && !partsWords(text[end])) {
            ++end;
        }
        const qsizetype first = end > start && text[start].isHighSurrogate() ? 2 : std::min<qsizetype>(1, end - start);
        result += QLocale().toUpper(text.mid(start, first));
        result += QLocale().toLower(text.mid(start + first, end - start - first));
        if (end < text.size()) {
            result += text[end];
        }
        start = end + 1;
    }
    return result;
}

qsizetype characterCount(const QString &text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype count = 0;
    while (finder.toNextBoundary() >= 0) {
        ++count;
    }
    return count;
}

QString byteCount(qint64 bytes)
{
    if (bytes == 0) {
        return Texts::tr("Zero KB");
    }
    const double size = std::abs(double(bytes));
    const QString sign = bytes < 0 ? u"-"_s : QString();
    if (size < 1000) {
        return size == 1 ? sign + Texts::tr("1 byte") : sign + Texts::tr("%1 bytes").arg(qint64(size));
    }
    struct Unit {
        const char *text;
        double bytes;
        int decimals;
    };
    static constexpr std::array<Unit, 6> units{{
        {QT_TRANSLATE_NOOP("Text", "%1 KB"), 1e3, 0},
        {QT_TRANSLATE_NOOP("Text", "%1 MB"), 1e6, 1},
        {QT_TRANSLATE_NOOP("Text", "%1 GB"), 1e9, 2},
        {QT_TRANSLATE_NOOP("Text", "%1 TB"), 1e12, 2},
        {QT_TRANSLATE_NOOP("Text", "%1 PB"), 1e15, 2},
        {QT_TRANSLATE_NOOP("Text", "%1 EB"), 1e18, 2},
    }};
    for (size_t i = 0; i < units.size(); ++i) {
        const double scale = std::pow(10.0, units[i].decimals);
        const double figure = std::round(size / units[i].bytes * scale) / scale;
        if (figure >= 1000 && i + 1 < units.size()) {
            continue;
        }
        QString digits = QString::number(figure, 'f', units[i].decimals);
        if (digits.contains(u'.')) {
            while (digits.endsWith(u'0')) {
                digits.chop(1);
            }
            if (digits.endsWith(u'.')) {
                digits.chop(1);
            }
            digits.replace(u'.', QLocale().decimalPoint());
        }
        return sign + Texts::tr(units[i].text).arg(digits);
    }
    Q_UNREACHABLE();
}

QString fixed(double value, int decimals)
{
    // 309 digits before the point, the decimals, sign and point.
    std::array<char, 512> buffer{};
    const auto end = std::to_chars(
        buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, std::clamp(decimals, 0, 100));
    return QString::fromLatin1(buffer.data(), end.ptr - buffer.data());
}

QString format(const QString &format, double value)
{
    return formatted(format, u"[aAeEfFgG]"_s, value);
}

QString format(const QString &format, qint64 value)
{
    return formatted<long long>(format, u"ll[di]"_s, value);
}

QString date(const QDateTime &when)
{
    QString pattern = userLocale().dateFormat(QLocale::LongFormat);
    static const QRegularExpression weekday(u"[,،]?\\s*dddd?[,،.]?\\s*"_s);
    pattern.remove(weekday);
    return userLocale().toString(when.toLocalTime().date(), pattern);
}

QString time(const QDateTime &when)
{
    return userLocale().toString(when.toLocalTime().time(), QLocale::ShortFormat);
}

bool hasEndlessWord(const QString &text)
{
    constexpr qsizetype longest = 2000;
    qsizetype inWord = 0;
    for (const QChar character : text) {
        const bool parts = character == u' ' || character == u'\t' || character == u'\n' || character == u'\r'
            || character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
        inWord = parts ? 0 : inWord + 1;
        if (inWord > longest) {
            return true;
        }
    }
    return false;
}

QString relative(const QDateTime &when, const QDateTime &now)
{
    const qint64 seconds = std::abs(when.secsTo(now));
    constexpr qint64 minute = 60;
    constexpr qint64 hour = 60 * minute;
    constexpr qint64 day = 24 * hour;
    if (seconds < minute) {
        return Texts::tr("%1 sec").arg(seconds);
    }
    if (seconds < hour) {
        return Texts::tr("%1 min").arg(seconds / minute);
    }
    if (seconds < day) {
        return Texts::tr("%1 hr").arg(seconds / hour);
    }
    const qint64 days = seconds / day;
    return days == 1 ? Texts::tr("1 day") : Texts::tr("%1 days").arg(days);
}

} // namespace quillmere::text
