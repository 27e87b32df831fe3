#include "tools/chat/ChatState.h"

#include "platform/MainQueue.h"

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

constexpr std::chrono::seconds replyPause{1};

UIChatMessage greeting()
{
    return UIChatMessage::of(ChatState::tr("Hello! I'm your fine-tuned AI model. How can I help you today?"), false);
}

QString replyTo(const QString &text)
{
    return ChatState::tr("I received your message: \"%1\". This is a simulated response from your fine-tuned model. In "
                         "production, this would connect to your actual AI model API.")
        .arg(text);
}

} // namespace

ChatState::ChatState(QObject *parent) : Observable(parent), m_selectedModel(models().constFirst())
{
    m_messages.append(greeting());
}

QList<QString> ChatState::models()
{
    return {u"GPT-4 Custom"_s, u"Claude Fine-tuned"_s, u"Gemini Pro Custom"_s, u"Mistral Custom"_s};
}

void ChatState::setInputText(const QString &text)
{
    publish(m_inputText, text, u"inputText"_s, &ChatState::inputTextChanged);
}

void ChatState::setSelectedModel(const QString &model)
{
    publish(m_selectedModel, model, u"selectedModel"_s, &ChatState::selectedModelChanged);
}

void ChatState::sendMessage()
{
    if (m_inputText.trimmed().isEmpty()) {
        return;
    }
    const QString text = m_inputText;
    append(UIChatMessage::of(text, true));
    setInputText({});
    // Not before: the field that gets lower leaves the list more room, whose end this brings into view.
    emit messageCountChanged();
    MainQueue::shared().asyncAfter(replyPause, this, [this, text] {
        const auto reply = UIChatMessage::of(replyTo(text), false);
        append(reply);
        emit messageCountChanged();
        emit replied(reply.content);
    });
}

void ChatState::reset()
{
    emit willChange(u"messages"_s);
    const int before = messageCount();
    m_messages.setRecords({greeting()});
    if (messageCount() != before) {
        emit messageCountChanged();
    }
}

void ChatState::append(const UIChatMessage &message)
{
    emit willChange(u"messages"_s);
    m_messages.append(message);
}

} // namespace quillmere
