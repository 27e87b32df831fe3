#include "workspace/ShownWord.h"

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

} // namespace quillmere
