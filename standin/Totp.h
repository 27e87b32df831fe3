#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

// Time-based one-time passwords (RFC 6238 with SHA-1 and 30 seconds) and what an authenticator needs to make them.
namespace standin {

// Without padding (RFC 4648, section 6).
QString base32Encoded(const QByteArray &bytes);
// Case, blanks and padding do not matter. Null when there is any other character or nothing at all.
QByteArray base32Decoded(const QString &text);

// HOTP (RFC 4226) of the time step that `at` falls in, as `digits` decimal digits.
QString totpCode(const QByteArray &secret, const QDateTime &at, int digits = 6);

// Does the code belong to this moment's time step or to one beside it? (RFC 6238, 5.2, allows for slow hands and clocks.)
bool totpAccepts(const QByteArray &secret, const QString &code, const QDateTime &at);

// The key URI that authenticators read.
QByteArray otpauthUrl(const QString &email, const QByteArray &secret);

// A PNG image of the text's QR code.
QByteArray qrCodePng(const QByteArray &text);

} // namespace standin
