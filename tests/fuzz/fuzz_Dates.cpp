// The date-time of the wire, with Qt's calendar for a second opinion, and as the screens show it.
#include "Fuzz.h"

#include "platform/Text.h"
#include "service/Json.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace quillmere::fuzz {

namespace {

Result<QDateTime> read(const QByteArray &json)
{
    return decode<QDateTime>(json, KeyCoding::SnakeCase);
}

std::optional<QDateTime> readByHand(const QString &text)
{
    static const QRegularExpression form(
        u"\\A([0-9]{4})-([0-9]{2})-([0-9]{2})T([0-9]{2}):([0-9]{2}):([0-9]{2})(Z|([+-])([0-9]{2}):([0-9]{2}))\\z"_s);
    const auto match = form.match(text);
    const auto number = [&](int group) { return match.captured(group).toInt(); };
    // Qt has no year 0, which has the calendar of the year 400.
    const int year = number(1);
    const QDate day(year == 0 ? 400 : year, number(2), number(3));
    const QTime time(number(4), number(5), number(6));
    if (!match.hasMatch() || !day.isValid() || !time.isValid() || number(9) > 23 || number(10) > 59) {
        return {};
    }
    constexpr qint64 daysOf400Years = 146'097;
    const QDateTime local(day.addDays(year == 0 ? -daysOf400Years : 0), time, Qt::UTC);
    const qint64 offset = (number(9) * 60 + number(10)) * 60;
    return local.addSecs(match.captured(8) == u"-"_s ? offset : -offset);
}

} // namespace

void feed(const QByteArray &input)
{
    const QString text = QString::fromUtf8(input);
    const auto date = read(json::serialized(text));
    const auto byHand = readByHand(text);
    HOLDS(bool(date) == byHand.has_value());
    if (!date) {
        return;
    }
    HOLDS(date->isValid() && date->timeSpec() == Qt::UTC);
    HOLDS(date->toSecsSinceEpoch() == byHand->toSecsSinceEpoch());
    if (const auto written = encode(*date, KeyCoding::SnakeCase)) {
        const auto again = read(*written);
        HOLDS(again && *again == *date);
    }
    const auto noon = QDateTime(QDate(2026, 11, 20), QTime(12, 0), Qt::UTC);
    HOLDS(!text::date(*date).isEmpty());
    HOLDS(!text::time(*date).isEmpty());
    HOLDS(text::relative(*date, noon) == text::relative(noon, *date));
    HOLDS(!text::relative(*date, noon).contains(u'-'));
}

} // namespace quillmere::fuzz
