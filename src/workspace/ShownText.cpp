#include "workspace/ShownText.h"

#include "platform/Text.h"

#include <QCoreApplication>

#include <algorithm>

namespace quillmere {

QString shownWord(const QString &word, const char *context, std::initializer_list<const char *> known)
{
    const QString shown = text::capitalized(word);
    const auto found =
        std::find_if(known.begin(), known.end(), [&](const char *one) { return shown == QLatin1StringView(one); });
    return found == known.end() ? shown : QCoreApplication::translate(context, *found);
}

QString shownLine(const QString &text)
{
    constexpr qsizetype mostShown = 2'000;
    QString line = text.size() > mostShown ? text.left(mostShown / 2) + text.right(mostShown / 2) : text;
    std::replace_if(
        line.begin(), line.end(), [](QChar character) { return character.isSpace(); }, QChar(u' '));
    return line;
}

} // namespace quillmere
