#include "identity/DataUrl.h"

#include "platform/Urls.h"

using namespace Qt::StringLiterals;

namespace quillmere {

bool isDataUrl(const QString &text)
{
    const auto url = parseUrl(text);
    return url && url->scheme() == u"data"_s && text.contains(u',');
}

std::optional<QByteArray> contentOfDataUrl(const QString &dataUrl)
{
    const QByteArray encoded = dataUrl.mid(dataUrl.indexOf(u',') + 1).toUtf8();
    if (encoded.size() % 4 != 0) {
        return {};
    }
    const auto decoded = QByteArray::fromBase64Encoding(encoded, QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded) {
        return {};
    }
    return *decoded;
}

} // namespace quillmere
