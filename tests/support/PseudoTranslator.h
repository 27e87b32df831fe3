#pragma once

#include <QSet>
#include <QTranslator>

namespace quillmere::testing {

// Stands for a translation into a language that nobody speaks: every text in brackets, and longer by a third or so, or written from
// right to left. From its making to its end, for whatever is asked for meanwhile.
class PseudoTranslator : public QTranslator {
    Q_OBJECT

public:
    enum class Script { Lengthened, RightToLeft };

    explicit PseudoTranslator(Script script = Script::Lengthened);
    ~PseudoTranslator() override;

    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *comment, int count) const override;

    // Where texts were looked for so far.
    const QSet<QString> &contexts() const { return m_contexts; }

    // What of a text has not come through the translation, places filled in included.
    static QString untranslatedPart(const QString &text);

private:
    Script m_script;
    mutable QSet<QString> m_contexts;
};

} // namespace quillmere::testing
