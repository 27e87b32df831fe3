#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickTextDocument>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// Whether the text of a field has an endless word, so that its lines are to be broken anywhere (platform/Text.h). It tells before the
// field lays the text out: afterwards the field would have spent the time already.
class WordWatch : public QObject {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QQuickTextDocument *document READ document WRITE setDocument NOTIFY documentChanged REQUIRED)
    Q_PROPERTY(bool hasEndlessWord READ hasEndlessWord NOTIFY hasEndlessWordChanged)

public:
    using QObject::QObject;

    QQuickTextDocument *document() const { return m_document; }
    void setDocument(QQuickTextDocument *document);
    bool hasEndlessWord() const { return m_hasEndlessWord; }

signals:
    void documentChanged();
    void hasEndlessWordChanged();

private:
    void look();

    QPointer<QQuickTextDocument> m_document;
    bool m_hasEndlessWord = false;
};

} // namespace quillmere
