#include "support/PseudoTranslator.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace quillmere::testing {

namespace {

bool isVowel(QChar letter)
{
    return u"aeiouAEIOU"_s.contains(letter);
}

QString letterOf(QChar letter, PseudoTranslator::Script script)
{
    if (script == PseudoTranslator::Script::Lengthened) {
        return isVowel(letter) ? QString(2, letter) : QString(letter);
    }
    constexpr char16_t alef = 0x5D0;
    constexpr int letters = 27;
    return QChar(char16_t(alef + letter.toLower().unicode() % letters));
}

} // namespace

PseudoTranslator::PseudoTranslator(Script script) : m_script(script)
{
    QCoreApplication::installTranslator(this);
}

PseudoTranslator::~PseudoTranslator()
{
    QCoreApplication::removeTranslator(this);
}

QString PseudoTranslator::translate(const char *context, const char *text, const char *, int) const
{
    const QString source = QString::fromUtf8(text);
    m_contexts.insert(QString::fromUtf8(context));
    QString result = u"["_s;
    for (qsizetype i = 0; i < source.size(); ++i) {
        const QChar c = source[i];
        if (c == u'%' && i + 1 < source.size()) {
            // A place to fill in: "%1", "%n" or "%L1".
            const qsizetype length = source[i + 1] == u'L' ? 3 : 2;
            result += source.mid(i, length);
            i += length - 1;
        } else {
            result += c.isLetter() && c.unicode() < 0x80 ? letterOf(c, m_script) : QString(c);
        }
    }
    return result + u']';
}

QString PseudoTranslator::untranslatedPart(const QString &text)
{
    QString rest;
    int depth = 0;
    for (const QChar c : text) {
        depth += c == u'[' ? 1 : 0;
        if (depth == 0) {
            rest += c;
        }
        depth -= c == u']' && depth > 0 ? 1 : 0;
    }
    return rest.trimmed();
}

} // namespace quillmere::testing
