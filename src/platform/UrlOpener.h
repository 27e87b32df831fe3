#pragma once

#include <QUrl>

namespace quillmere {

// Hands a URL to the program that the desktop has for it: a browser, a mail program.
class UrlOpener {
public:
    virtual ~UrlOpener() = default;

    // Whether the desktop took the URL; what then becomes of it nobody hears.
    virtual bool open(const QUrl &url) = 0;
};

} // namespace quillmere
