#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace quillmere {

// A URL taken letter for letter (RFC 3986): nothing is escaped or repaired; a text that would need it is no URL.
std::optional<QUrl> parseUrl(const QString &text);

// A URL to send a request to: characters from 0x21 to 0x7e only, scheme http or https, and a host.
std::optional<QUrl> parseWebUrl(const QString &text);

// Scheme, host and port are the same (RFC 6454), the scheme's own port counting as told.
bool isSameOrigin(const QUrl &a, const QUrl &b);

} // namespace quillmere
