#pragma once

#include <QDateTime>
#include <QString>

// Words, sizes, dates and figures as the screens show them.
namespace quillmere::text {

// Whether `text` holds `part`, whatever the case of either, by the rules of the user's locale; diacritics count. An
// empty part is held by every text.
bool localizedCaseInsensitiveContains(const QString &text, const QString &part);

// What that comparison makes of either text before it looks for the one in the other. Who searches many texts again and
// again keeps this of each.
QString searchable(const QString &text);

// Each word with a capital and the rest in small letters. Whatever is neither letter, digit, mark nor apostrophe parts
// words: "fine-tune" gives "Fine-Tune", "in_progress" gives "In_Progress".
QString capitalized(const QString &text);

// How many characters a reader sees: grapheme clusters (UAX #29), not code units.
qsizetype characterCount(const QString &text);

// A byte count in decimal units as file managers show it: "Zero KB", "1 byte", "999 bytes", "1 KB", "15.4 MB", "1.25
// GB".
QString byteCount(qint64 bytes);

// printf's "%.<decimals>f" in the C locale, which rounds a half to the even neighbour where Qt's formatting rounds it
// up.
QString fixed(double value, int decimals);

// A value by a printf format, in the C locale: "%.1f%%" shows 5 as "5.0%", "%lld rows" 100000 as "100000 rows". The format
// holds one conversion and no more, of the kind of the value (a A e E f F g G, or ll before d or i); any other format is
// shown as it stands, with a warning.
QString format(const QString &format, double value);
QString format(const QString &format, qint64 value);

// A day without its time in the user's locale: "November 20, 2026".
QString date(const QDateTime &when);

// A time of day in the user's locale, without its seconds: "3:07 PM", "15:07".
QString time(const QDateTime &when);

// Whether some stretch of more than 2,000 code units has neither a blank nor a line break. Lines of such a text are to be broken
// anywhere: to break them at words first takes time that grows with the square of the longest, minutes for a megabyte.
bool hasEndlessWord(const QString &text);

// The distance between two moments in its largest whole unit: "5 sec", "12 min", "1 hr", "2 days".
QString relative(const QDateTime &when, const QDateTime &now);

} // namespace quillmere::text
