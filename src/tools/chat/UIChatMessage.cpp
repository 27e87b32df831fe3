#include "tools/chat/UIChatMessage.h"

#include "platform/Environment.h"
#include "platform/Text.h"

namespace quillmere {

UIChatMessage UIChatMessage::of(const QString &content, bool isUser)
{
    return {QUuid::createUuid(), content, isUser, Environment::current().clock->now()};
}

QString UIChatMessage::time() const
{
    return text::time(timestamp);
}

bool UIChatMessage::hasEndlessWord() const
{
    return text::hasEndlessWord(content);
}

} // namespace quillmere
