#include "platform/ExternalLinks.h"

#include "platform/Environment.h"
#include "platform/Urls.h"

namespace quillmere {

void ExternalLinks::open(const QString &url)
{
    if (const auto parsed = parseUrl(url)) {
        Environment::current().urlOpener->open(*parsed);
    }
}

} // namespace quillmere
