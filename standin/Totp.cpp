#include "standin/Totp.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImage>
#include <QMessageAuthenticationCode>
#include <QUrl>
#include <QtEndian>

#include <memory>
#include <qrencode.h>

using namespace Qt::StringLiterals;

namespace standin {

namespace {
constexpr qint64 StepSeconds = 30;
constexpr QLatin1StringView Base32Alphabet("ABCDEFGHIJKLMNOPQRSTUVWXYZ234567");
} // namespace

QString base32Encoded(const QByteArray &bytes)
{
    QString text;
    quint32 bits = 0;
    int count = 0;
    for (const char byte : bytes) {
        bits = (bits << 8) | quint8(byte);
        count += 8;
        while (count >= 5) {
            count -= 5;
            text += Base32Alphabet[(bits >> count) & 31];
        }
    }
    if (count > 0) {
        text += Base32Alphabet[(bits << (5 - count)) & 31];
    }
    return text;
}

QByteArray base32Decoded(const QString &text)
{
    QByteArray bytes;
    quint32 bits = 0;
    int count = 0;
    for (const QChar &c : text) {
        if (c == u' ' || c == u'=') {
            continue;
        }
        const qsizetype value = Base32Alphabet.indexOf(c.toUpper());
        if (value < 0) {
            return {};
        }
        bits = (bits << 5) | quint32(value);
        count += 5;
        if (count >= 8) {
            count -= 8;
            bytes += char(bits >> count);
        }
    }
    return bytes;
}

QString totpCode(const QByteArray &secret, const QDateTime &at, int digits)
{
    const quint64 counter = qToBigEndian(quint64(at.toSecsSinceEpoch() / StepSeconds));
    const QByteArray message(reinterpret_cast<const char *>(&counter), sizeof counter);
    const QByteArray mac = QMessageAuthenticationCode::hash(message, secret, QCryptographicHash::Sha1);
    const quint32 number = qFromBigEndian<quint32>(mac.constData() + (mac.back() & 15)) & 0x7fffffff;
    return QString::number(number).rightJustified(digits, u'0').right(digits);
}

bool totpAccepts(const QByteArray &secret, const QString &code, const QDateTime &at)
{
    for (const qint64 steps : {-1, 0, 1}) {
        if (code == totpCode(secret, at.addSecs(steps * StepSeconds))) {
            return true;
        }
    }
    return false;
}

QByteArray otpauthUrl(const QString &email, const QByteArray &secret)
{
    return "otpauth://totp/Quillmere:" + QUrl::toPercentEncoding(email) + "?secret=" + base32Encoded(secret).toLatin1()
        + "&issuer=Quillmere&algorithm=SHA1&digits=6&period=30";
}

QByteArray qrCodePng(const QByteArray &text)
{
    constexpr int Scale = 6;
    constexpr int QuietZone = 4; // modules, as ISO 18004 asks for
    const std::unique_ptr<QRcode, decltype(&QRcode_free)> code(
        QRcode_encodeString8bit(text.constData(), 0, QR_ECLEVEL_M), QRcode_free);
    if (!code) {
        return {};
    }

    const int modules = code->width + 2 * QuietZone;
    QImage image(modules, modules, QImage::Format_Grayscale8);
    image.fill(Qt::white);
    for (int y = 0; y < code->width; ++y) {
        uchar *line = image.scanLine(y + QuietZone) + QuietZone;
        for (int x = 0; x < code->width; ++x) {
            line[x] = (code->data[y * code->width + x] & 1) ? 0 : 255;
        }
    }
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.scaled(modules * Scale, modules * Scale).save(&buffer, "PNG");
    return png;
}

} // namespace standin
