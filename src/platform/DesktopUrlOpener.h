#pragma once

#include "platform/UrlOpener.h"

namespace quillmere {

// The desktop's own choice of program, through xdg-open.
class DesktopUrlOpener : public UrlOpener {
public:
    bool open(const QUrl &url) override;
};

} // namespace quillmere
