#pragma once

#include "platform/Fields.h"

#include <QString>

#include <optional>

// The replies of the login host. Their keys stand on the wire letter for letter (KeyCoding::Plain).
namespace quillmere {

// The answer to an e-mail address. With the mode "setup" the account has no authenticator yet, and `qrCode` (a data URL
// of an image) and `secret` serve to set one up.
struct LoginInitResponse {
    QString mode;
    std::optional<QString> qrCode;
    std::optional<QString> secret;

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"mode", &LoginInitResponse::mode},
            Field{"qrCode", &LoginInitResponse::qrCode},
            Field{"secret", &LoginInitResponse::secret},
        };
    }
};

// The answer to a right code: where the browser goes on.
struct TOTPLoginResponse {
    QString redirectUrl;

    static constexpr auto fields() { return std::tuple{Field{"redirectUrl", &TOTPLoginResponse::redirectUrl}}; }
};

// What the login host says of a request that it refused.
struct APIErrorMessage {
    QString error;

    static constexpr auto fields() { return std::tuple{Field{"error", &APIErrorMessage::error}}; }
};

} // namespace quillmere
