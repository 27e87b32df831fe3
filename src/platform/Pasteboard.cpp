#include "platform/Pasteboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace quillmere {

void Pasteboard::setString(const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
}

} // namespace quillmere
