// The image that an authenticator is set up with: the data URL around it, and the bytes in it, as the login screen draws them.
#include "Fuzz.h"

#include "identity/DataUrl.h"
#include "identity/QrCode.h"

#include <QPainter>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace quillmere::fuzz {

namespace {

void readsUrl(const QString &text)
{
    if (!isDataUrl(text)) {
        return;
    }
    const QString behindComma = text.section(u',', 1);
    const auto content = contentOfDataUrl(text);
    static const QRegularExpression base64(u"\\A([A-Za-z0-9+/]{4})*([A-Za-z0-9+/]{3}=|[A-Za-z0-9+/]{2}==)?\\z"_s);
    HOLDS(content.has_value() == base64.match(behindComma).hasMatch());
    // The last letter may have bits to spare.
    HOLDS(!content || content->toBase64().size() == behindComma.size());
    HOLDS(!content || QByteArray::fromBase64(content->toBase64()) == *content);
}

void draws(const QByteArray &bytes)
{
    QrCode code;
    code.setSize({140, 140});
    code.setImageData(bytes);
    QImage canvas(140, 140, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    code.paint(&painter);
    painter.end();
    // What is no image leaves the ground as it is.
    HOLDS(code.isImage() || qAlpha(canvas.pixel(70, 70)) == 0);
}

} // namespace

void feed(const QByteArray &input)
{
    readsUrl(QString::fromUtf8(input));
    const QString around = u"data:image/png;base64,"_s + QString::fromLatin1(input.toBase64());
    HOLDS(isDataUrl(around) && contentOfDataUrl(around) == input);
    draws(input);
}

} // namespace quillmere::fuzz
