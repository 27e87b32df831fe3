#include "controls/WordWatch.h"

#include "platform/Text.h"

#include <QTextBlock>
#include <QTextDocument>

namespace quillmere {

void WordWatch::setDocument(QQuickTextDocument *document)
{
    if (m_document == document) {
        return;
    }
    if (m_document) {
        m_document->textDocument()->disconnect(this);
    }
    m_document = document;
    if (m_document) {
        // This signal comes before the layout is made anew, contentsChanged after it.
        connect(m_document->textDocument(), &QTextDocument::contentsChange, this, &WordWatch::look);
        look();
    }
    emit documentChanged();
}

void WordWatch::look()
{
    bool has = false;
    const QTextDocument &content = *m_document->textDocument();
    for (QTextBlock block = content.begin(); block.isValid() && !has; block = block.next()) {
        has = text::hasEndlessWord(block.text());
    }
    if (m_hasEndlessWord != has) {
        m_hasEndlessWord = has;
        emit hasEndlessWordChanged();
    }
}

} // namespace quillmere
