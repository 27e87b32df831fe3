#pragma once

#include <QString>

namespace quillmere {

// Makes the desktop start this program with the URLs of a scheme (freedesktop.org Desktop Entry Specification,
// x-scheme-handler), unless an installed package does so already. Writes one hidden entry in the user's applications folder and
// one link to `program` in the user's .local/bin, which has no space in its path and so suits xdg-open everywhere. Both are put
// right when the program has moved, left alone when they are right, and removed once a package is installed. Says whether the
// handler now stands.
bool installUrlSchemeHandler(const QString &scheme, const QString &program);

} // namespace quillmere
