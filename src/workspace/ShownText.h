#pragma once

#include <QString>

#include <initializer_list>

namespace quillmere {

// A word of the service as a screen shows it, with a capital: one that the program knows in the user's language, which `context` of
// the translation gives, any other as the service tells it.
QString shownWord(const QString &word, const char *context, std::initializer_list<const char *> known);

// A text of the service as a screen shows it in one line: blanks for line breaks and tabs, and of a text that is longer than any line
// no more than its two ends, since a megabyte takes long to lay out.
QString shownLine(const QString &text);

} // namespace quillmere
