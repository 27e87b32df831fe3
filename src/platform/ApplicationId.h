#pragma once

#include <QString>

namespace quillmere {

// What the desktop knows this program by: the name of its entry, the class of its window, and the scheme of the URLs that it is
// started with, at which a sign-in comes back.
inline const QString applicationId = QStringLiteral("com.quillmere.studio");

} // namespace quillmere
