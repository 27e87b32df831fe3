#include "platform/SearchIndex.h"
#include "platform/Text.h"

#include <QLocale>
#include <QTest>

#include <random>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

using Entries = std::vector<qsizetype>;

// Entries of one text each.
SearchIndex indexOf(const QStringList &texts)
{
    SearchIndex index;
    for (const QString &text : texts) {
        index.add({text});
    }
    return index;
}

} // namespace

class tst_SearchIndex : public QObject {
    Q_OBJECT

private slots:
    void init() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }
    void cleanupTestCase() { QLocale::setDefault(QLocale::system()); }

    void findsTheEntriesThatHoldAPart_data()
    {
        QTest::addColumn<QString>("part");
        QTest::addColumn<Entries>("found");
        QTest::newRow("in one") << u"quill"_s << Entries{1};
        QTest::newRow("in several") << u"l"_s << Entries{0, 1, 3};
        QTest::newRow("in other case") << u"MARL"_s << Entries{0};
        QTest::newRow("more than once in one") << u"é"_s << Entries{3};
        QTest::newRow("whole texts") << u"brook"_s << Entries{2};
        QTest::newRow("at the end of a text") << u"7b"_s << Entries{0};
        QTest::newRow("longer than any text") << u"Marlowe 7B, the larger one"_s << Entries{};
        QTest::newRow("nowhere") << u"zebra"_s << Entries{};
        QTest::newRow("across two texts") << u"7bquill"_s << Entries{};
        QTest::newRow("accents in other case") << u"ÉTÉ"_s << Entries{3};
        QTest::newRow("accents count") << u"ete"_s << Entries{};
        QTest::newRow("empty") << QString() << Entries{0, 1, 2, 3, 4};
    }
    void findsTheEntriesThatHoldAPart()
    {
        QFETCH(QString, part);
        QFETCH(Entries, found);
        const SearchIndex index = indexOf({u"Marlowe 7B"_s, u"Quill"_s, u"brook"_s, u"un été l'été"_s, u""_s});
        QCOMPARE(index.entriesWith(part), found);
    }

    void findsAnEntryByAnyOfItsTextsAndOnce()
    {
        SearchIndex index;
        index.add({u"Marlowe"_s, u"calm"_s});
        index.add({u"Calm"_s, QString()});
        index.add({QString(), u"A calm, calm lark"_s});
        index.add({u"Lark"_s, u"m"_s, u"owe"_s});
        QCOMPARE(index.entriesWith(u"calm"_s), Entries({0, 1, 2}));
        QCOMPARE(index.entriesWith(u"lark"_s), Entries({2, 3}));
        QCOMPARE(index.entriesWith(u"marlowe"_s), Entries({0}));
        // From one text of an entry into its next.
        QCOMPARE(index.entriesWith(u"mowe"_s), Entries{});
        QCOMPARE(index.entriesWith(u"larkm"_s), Entries{});
    }

    void findsWhatBeginsInAHitThatRunsIntoTheNextText()
    {
        QCOMPARE(indexOf({u"xaa"_s, u"aab"_s}).entriesWith(u"aab"_s), Entries{1});
        QCOMPARE(indexOf({u"a"_s, u"a"_s, u"a"_s, u"aa"_s}).entriesWith(u"aa"_s), Entries{3});
    }

    void followsTheCasesOfTheUsersLanguage()
    {
        QLocale::setDefault(QLocale(QLocale::Turkish));
        const SearchIndex index = indexOf({u"IRMAK"_s, u"İZMİR"_s});
        QCOMPARE(index.entriesWith(u"ırmak"_s), Entries{0});
        QCOMPARE(index.entriesWith(u"irmak"_s), Entries{});
        QCOMPARE(index.entriesWith(u"izmir"_s), Entries{1});
    }

    void findsNothingInNothing()
    {
        SearchIndex index;
        QCOMPARE(index.entriesWith(u"a"_s), Entries{});
        QCOMPARE(index.entriesWith({}), Entries{});
        index.add({u"a"_s});
        index.clear();
        QCOMPARE(index.entriesWith(u"a"_s), Entries{});
        QCOMPARE(index.entriesWith({}), Entries{});
        index.add({u"b"_s});
        QCOMPARE(index.entriesWith(u"b"_s), Entries{0});
    }

    // The comparison of single texts says what is right.
    void findsWhatALookAtEachTextFinds_data()
    {
        QTest::addColumn<QString>("letters");
        QTest::newRow("plain") << u"abAB"_s;
        QTest::newRow("of one, two, three and four bytes") << u"aÉé\u0130ı€ΣσςK\u212A"_s + QString::fromUcs4(U"𐐀𐐨");
    }
    void findsWhatALookAtEachTextFinds()
    {
        QFETCH(QString, letters);
        const QList<char32_t> alphabet = [&] {
            QList<char32_t> list;
            for (const uint letter : letters.toUcs4()) {
                list.append(letter);
            }
            return list;
        }();
        std::mt19937 random(7); // NOLINT: the same texts at each run
        const auto text = [&](unsigned longest) {
            QString made;
            for (unsigned i = random() % (longest + 1); i > 0; --i) {
                const char32_t letter = alphabet[qsizetype(random() % unsigned(alphabet.size()))];
                made += QString::fromUcs4(&letter, 1);
            }
            return made;
        };
        int hits = 0;
        for (int round = 0; round < 300; ++round) {
            QList<std::pair<QString, QString>> entries;
            SearchIndex index;
            for (int i = 0; i < 12; ++i) {
                entries.append({text(6), text(6)});
                index.add({entries.last().first, entries.last().second});
            }
            const QString part = text(3);
            Entries expected;
            for (int i = 0; i < 12; ++i) {
                if (text::localizedCaseInsensitiveContains(entries[i].first, part)
                    || text::localizedCaseInsensitiveContains(entries[i].second, part)) {
                    expected.push_back(i);
                }
            }
            hits += int(expected.size());
            QCOMPARE(index.entriesWith(part), expected);
        }
        QVERIFY(hits > 300 && hits < 300 * 12);
    }
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_SearchIndex)
#include "tst_SearchIndex.moc"
