#include "platform/DesktopUrlOpener.h"

#include <QDesktopServices>

namespace quillmere {

bool DesktopUrlOpener::open(const QUrl &url)
{
    return QDesktopServices::openUrl(url);
}

} // namespace quillmere
