#pragma once

#include "platform/Observable.h"
#include "platform/RecordListModel.h"
#include "tools/chat/UIChatMessage.h"

#include <QtQml/qqmlregistration.h>

namespace quillmere {

// The conversation of one visit to the chat. The screen writes the text being typed and the model's name, sends and resets. Each
// message sent is answered after a second with a fixed text that repeats it; no model is asked, and its name changes nothing. An
// answer under way comes whatever else happens, a reset too. Nothing can fail, and nothing outlives the visit.
class ChatState : public quillmere::Observable {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QAbstractItemModel *messages READ messages CONSTANT)
    Q_PROPERTY(int messageCount READ messageCount NOTIFY messageCountChanged)
    Q_PROPERTY(QString inputText READ inputText WRITE setInputText NOTIFY inputTextChanged)
    Q_PROPERTY(QString selectedModel READ selectedModel WRITE setSelectedModel NOTIFY selectedModelChanged)
    Q_PROPERTY(QList<QString> models READ models CONSTANT)

public:
    explicit ChatState(QObject *parent = nullptr);

    QAbstractItemModel *messages() { return &m_messages; }
    const QList<UIChatMessage> &records() const { return m_messages.records(); }
    int messageCount() const { return m_messages.rowCount(); }

    QString inputText() const { return m_inputText; }
    void setInputText(const QString &text);

    // One of `models`.
    QString selectedModel() const { return m_selectedModel; }
    void setSelectedModel(const QString &model);
    static QList<QString> models();

    // Hands the text in as it stands, blanks around it included. Of blanks and line breaks alone nothing happens, and they stay.
    Q_INVOKABLE void sendMessage();
    // The greeting alone.
    Q_INVOKABLE void reset();

signals:
    void messageCountChanged();
    void inputTextChanged();
    void selectedModelChanged();
    // The model has said something since the screen came up.
    void replied(const QString &text);

private:
    void append(const UIChatMessage &message);

    RecordListModel<UIChatMessage> m_messages;
    QString m_inputText;
    QString m_selectedModel;
};

} // namespace quillmere
