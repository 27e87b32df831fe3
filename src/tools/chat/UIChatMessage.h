#pragma once

#include "platform/Fields.h"

#include <QDateTime>
#include <QString>
#include <QUuid>

namespace quillmere {

// One message of the chat. Once made it does not change.
struct UIChatMessage {
    QUuid id;
    QString content;
    bool isUser = false;
    QDateTime timestamp;

    // Now.
    static UIChatMessage of(const QString &content, bool isUser);

    // Made anew at each call, in the user's locale: "3:07 PM".
    QString time() const;
    // Whether its lines are to be broken within words too.
    bool hasEndlessWord() const;

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"id", &UIChatMessage::id},
            Field{"content", &UIChatMessage::content},
            Field{"isUser", &UIChatMessage::isUser},
            Field{"time", &UIChatMessage::time},
            Field{"hasEndlessWord", &UIChatMessage::hasEndlessWord},
        };
    }
};

} // namespace quillmere
