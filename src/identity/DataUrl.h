#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

// Data URLs (RFC 2397), as the login host sends images.
namespace quillmere {

// Whether the text is a URL of the scheme "data" with a comma, behind which its content stands.
bool isDataUrl(const QString &text);

// What stands behind a data URL's first comma, read as base64 (RFC 4648, section 4, with its padding) whatever the URL says of its
// encoding. Absent where it is none.
std::optional<QByteArray> contentOfDataUrl(const QString &dataUrl);

} // namespace quillmere
