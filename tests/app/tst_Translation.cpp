#include "app/Tour.h"
#include "support/PseudoTranslator.h"

#include <QDirIterator>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QQuickWindow>
#include <QRegularExpression>

using namespace Qt::StringLiterals;
using namespace quillmere::testing;

namespace quillmere {

namespace {

// What the service tells of itself: all texts of its world but those that the program has words of its own for.
void collect(const QJsonValue &value, QStringList &texts)
{
    if (value.isString()) {
        texts.append(QRegularExpression::escape(value.toString()));
    }
    for (const QJsonValue &element : value.toArray()) {
        collect(element, texts);
    }
    const QJsonObject object = value.toObject();
    for (auto it = object.begin(); it != object.end(); ++it) {
        if (it.key() != u"status" && it.key() != u"purpose") {
            collect(it.value(), texts);
        }
    }
}

// What is the same in every language.
const QRegularExpression &data()
{
    static const QRegularExpression pattern = [] {
        QStringList texts{// The service's, in words that only it knows, and the user's.
            u"Queued_For_Review"_s, u"Reference"_s, u"ada@example\\.org"_s, u"Hello"_s, u"/\\S*tst_Translation\\S*"_s,
            u"Samples|questions\\.json"_s, u"Ada"_s, u"qm_a\\S*"_s, u"[A-Z2-7]{32}"_s,
            // Names of models, of their makers' products and of people, ids, and formats.
            u"GPT-[34](\\.5)?( Turbo| Custom)?"_s, u"Claude (3( Opus| Sonnet)?|Fine-tuned)"_s,
            u"Llama[- ][23]([- ]\\d+[bB])?"_s, u"Mixtral 8x7B"_s, u"(Gemini Pro|Mistral) Custom"_s, u"PubMed-QA"_s,
            u"QLoRA r=64, alpha=16"_s, u"JD|John Doe|john\\.doe@example\\.com"_s, u"ft-\\d+"_s, u"JSONL?|CSV"_s,
            // What a program reads.
            u"GET|POST|/models|/files|/fine-tuning/jobs|/chat/completions|http://127\\.0\\.0\\.1:\\d+"_s,
            u"\\{\"instruction\".*\\}"_s,
            // Dates and times are the locale's.
            u"\\w+ \\d+, \\d{4}"_s, u"\\d+:\\d\\d [AP]M"_s};
        for (const QString &file : {u"files"_s, u"jobs"_s, u"models"_s}) {
            QFile world(u":/standin/data/%1.json"_s.arg(file));
            if (!world.open(QIODevice::ReadOnly)) {
                qFatal("The service has no %s.", qPrintable(file));
            }
            collect(QJsonDocument::fromJson(world.readAll()).array(), texts);
        }
        // Names that begin like others come first.
        std::sort(texts.begin(), texts.end(), [](const QString &a, const QString &b) { return a.size() > b.size(); });
        return QRegularExpression(
            u"(?<!\\w)("_s + texts.join(u'|') + u")(?!\\w)"_s, QRegularExpression::DotMatchesEverythingOption);
    }();
    return pattern;
}

bool isData(QString text)
{
    static const QRegularExpression words(u"\\p{L}{2,}"_s);
    return !words.match(text.replace(data(), u" "_s)).hasMatch();
}

} // namespace

// Every text of the program goes through the translation, wherever it is seen or read out.
class tst_Translation : public TourTest {
    Q_OBJECT

private slots:
    void cleanupTestCase()
    {
        TourTest::cleanupTestCase();
        qInfo("%d texts were seen", m_count);
    }

    void translatesWhatIsSeenAndReadOut_data() { Tour::addRows(); }
    void translatesWhatIsSeenAndReadOut()
    {
        QFETCH(QString, place);
        QVERIFY(m_tour->goesTo(place));
        QStringList untranslated;
        int seen = 0;
        for (QQuickItem *item : itemsIn(m_tour->foremost())) {
            for (const QString &text : textsOf(item)) {
                const QString rest = PseudoTranslator::untranslatedPart(text);
                seen += !text.isEmpty();
                if (!isData(rest) && !untranslated.contains(rest)) {
                    untranslated.append(rest);
                }
            }
        }
        m_count += seen;
        QVERIFY2(untranslated.isEmpty(), qPrintable(untranslated.join(u'\n')));
        QVERIFY(seen > 0);
    }

    // A text that is marked for the tools of translators under one context is looked up in another in vain.
    void marksTextsInContextsThatAreLookedInto()
    {
        static const QRegularExpression mark(u"QT_TRANSLATE_NOOP\\(\"([\\w:]+)\""_s);
        static const QRegularExpression look(u"(?:translate\\(\"|Q_DECLARE_TR_FUNCTIONS\\()([\\w:]+)"_s);
        QSet<QString> marked;
        QSet<QString> lookedInto = m_translator.contexts();
        for (QDirIterator files(QStringLiteral(SOURCES), {u"*.cpp"_s}, QDir::Files, QDirIterator::Subdirectories);
             files.hasNext();) {
            QFile file(files.next());
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QString source = QString::fromUtf8(file.readAll());
            for (const auto &[pattern, contexts] : {std::pair(mark, &marked), std::pair(look, &lookedInto)}) {
                for (auto matches = pattern.globalMatch(source); matches.hasNext();) {
                    contexts->insert(matches.next().captured(1));
                }
            }
        }
        QVERIFY(marked.size() > 10);
        const QStringList inVain = (marked - lookedInto).values();
        QVERIFY2(inVain.isEmpty(), qPrintable(inVain.join(u' ')));
    }

private:
    static QStringList textsOf(QQuickItem *item)
    {
        QStringList texts;
        if (item->inherits("QQuickText") && !Tour::around(item, u"SymbolIcon"_s)) {
            texts.append(item->property("text").toString());
        }
        if (const auto *access = QAccessible::queryAccessibleInterface(item)) {
            texts.append(access->text(QAccessible::Name));
            texts.append(access->text(QAccessible::Description));
        }
        return texts;
    }

    const PseudoTranslator m_translator;
    int m_count = 0;
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_Translation)
#include "tst_Translation.moc"
