#include "platform/Text.h"

#include <QLocale>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTimeZone>

#include <array>
#include <clocale>
#include <cstdio>
#include <limits>

using namespace Qt::StringLiterals;

namespace quillmere {

class tst_Text : public QObject {
    Q_OBJECT

private slots:
    void init() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }
    void cleanupTestCase() { QLocale::setDefault(QLocale::system()); }

    void findsAPartWhateverTheCase_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("part");
        QTest::addColumn<bool>("found");
        QTest::newRow("same case") << u"Llama"_s << u"lam"_s << true;
        QTest::newRow("other case") << u"Llama"_s << u"LAM"_s << true;
        QTest::newRow("absent") << u"Llama"_s << u"lmaa"_s << false;
        QTest::newRow("empty part") << u"Llama"_s << QString() << true;
        QTest::newRow("empty text") << QString() << u"a"_s << false;
        QTest::newRow("both empty") << QString() << QString() << true;
        QTest::newRow("a blank counts") << u"Llama"_s << u" "_s << false;
        QTest::newRow("diacritics count") << u"Café"_s << u"cafe"_s << false;
        QTest::newRow("diacritics in other case") << u"Café"_s << u"CAFÉ"_s << true;
        QTest::newRow("an accent behind its letter") << u"Cafe\u0301"_s << u"café"_s << true;
        QTest::newRow("an accent sought behind its letter") << u"Café"_s << u"fe\u0301"_s << true;
        QTest::newRow("not its letter alone") << u"Cafe\u0301"_s << u"cafe"_s << false;
        QTest::newRow("Greek final sigma") << u"ΟΔΟΣ"_s << u"οδος"_s << true;
        QTest::newRow("beyond the first plane") << u"𐐀x"_s << u"𐐨X"_s << true;
        QTest::newRow("a pattern is plain text") << u"abc"_s << u"a.c"_s << false;
    }
    void findsAPartWhateverTheCase()
    {
        QFETCH(QString, text);
        QFETCH(QString, part);
        QFETCH(bool, found);
        QCOMPARE(text::localizedCaseInsensitiveContains(text, part), found);
    }

    void followsTheCasesOfTheUsersLanguage()
    {
        QLocale::setDefault(QLocale(QLocale::Turkish));
        QVERIFY(text::localizedCaseInsensitiveContains(u"DIŞ"_s, u"dış"_s));
        QVERIFY(!text::localizedCaseInsensitiveContains(u"DIŞ"_s, u"diş"_s));
        QCOMPARE(text::capitalized(u"istanbul"_s), u"İstanbul"_s);
    }

    void capitalizesEachWord_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");
        QTest::newRow("one word") << u"running"_s << u"Running"_s;
        QTest::newRow("capitals become small") << u"RUNNING"_s << u"Running"_s;
        QTest::newRow("words") << u"in progress"_s << u"In Progress"_s;
        QTest::newRow("a hyphen parts") << u"fine-tune"_s << u"Fine-Tune"_s;
        QTest::newRow("an underscore parts") << u"in_progress"_s << u"In_Progress"_s;
        QTest::newRow("an apostrophe does not") << u"don't"_s << u"Don't"_s;
        QTest::newRow("a curly apostrophe does not") << u"don’t"_s << u"Don’t"_s;
        QTest::newRow("digits do not") << u"gpt4all 7b"_s << u"Gpt4all 7b"_s;
        QTest::newRow("blanks stay") << u"  a   b "_s << u"  A   B "_s;
        QTest::newRow("accents") << u"éCOLE"_s << u"École"_s;
        QTest::newRow("accents of their own") << u"e\u0301cole"_s << u"E\u0301cole"_s;
        QTest::newRow("beyond the first plane") << u"𐐨𐐨"_s << u"𐐀𐐨"_s;
        QTest::newRow("empty") << QString() << QString();
    }
    void capitalizesEachWord()
    {
        QFETCH(QString, text);
        QFETCH(QString, expected);
        QCOMPARE(text::capitalized(text), expected);
    }

    void formatsRealsByPrintf_data()
    {
        QTest::addColumn<QString>("format");
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("expected");
        QTest::newRow("no decimals") << u"%.0f"_s << 2048.0 << u"2048"_s;
        QTest::newRow("a half goes to the even neighbour") << u"%.0f"_s << 2.5 << u"2"_s;
        QTest::newRow("a percent sign") << u"%.1f%%"_s << 5.0 << u"5.0%"_s;
        QTest::newRow("percent signs around") << u"%% %.1f %%%%"_s << 5.0 << u"% 5.0 %%"_s;
        QTest::newRow("words behind") << u"%.1f:1"_s << 3.0 << u"3.0:1"_s;
        QTest::newRow("words beyond ASCII") << u"θ %.2f °C"_s << 0.25 << u"θ 0.25 °C"_s;
        QTest::newRow("negative") << u"%.2f"_s << -0.001 << u"-0.00"_s;
        QTest::newRow("flags and width") << u"%+08.2f"_s << 3.14159 << u"+0003.14"_s;
        QTest::newRow("exponent") << u"%.2e"_s << 12345.0 << u"1.23e+04"_s;
        QTest::newRow("longer than any buffer") << u"%300.1f"_s << 1.0 << u"1.0"_s.rightJustified(300);
        QTest::newRow("no number") << u"%.1f"_s << std::numeric_limits<double>::infinity() << u"inf"_s;
    }
    void formatsRealsByPrintf()
    {
        QFETCH(QString, format);
        QFETCH(double, value);
        QFETCH(QString, expected);
        QCOMPARE(text::format(format, value), expected);
    }

    void formatsWholeNumbersByPrintf()
    {
        QCOMPARE(text::format(u"%lld rows"_s, qint64(100000)), u"100000 rows"_s);
        QCOMPARE(text::format(u"%lld rows"_s, qint64(-1000)), u"-1000 rows"_s);
        QCOMPARE(text::format(u"%lld"_s, std::numeric_limits<qint64>::min()), u"-9223372036854775808"_s);
        QCOMPARE(text::format(u"%03lli"_s, qint64(7)), u"007"_s);
    }

    void formatsWithAPointWhateverTheUsersLocale()
    {
        // The C library's locale, which printf reads, not the toolkit's; few machines have a German one ready.
        QTemporaryDir locales;
        QProcess::execute(
            u"localedef"_s, {u"-i"_s, u"de_DE"_s, u"-f"_s, u"UTF-8"_s, locales.filePath(u"de_DE.UTF-8"_s)});
        qputenv("LOCPATH", locales.path().toLocal8Bit());
        const bool german = std::setlocale(LC_NUMERIC, "de_DE.UTF-8") != nullptr;
        const auto restore = qScopeGuard([] {
            std::setlocale(LC_NUMERIC, "C");
            qunsetenv("LOCPATH");
        });
        if (!german) {
            QSKIP("localedef could not make a locale with a decimal comma here.");
        }
        std::array<char, 8> comma{};
        std::snprintf(comma.data(), comma.size(), "%.1f", 1.5);
        QCOMPARE(comma.data(), "1,5");
        QCOMPARE(text::format(u"%.1f"_s, 1.5), u"1.5"_s);
    }

    void showsAFormatThatDoesNotFitAsItStands_data()
    {
        QTest::addColumn<QString>("format");
        QTest::addColumn<bool>("whole");
        QTest::newRow("none") << u"rows"_s << false;
        QTest::newRow("empty") << QString() << false;
        QTest::newRow("only a percent sign") << u"%%"_s << false;
        QTest::newRow("a percent sign at the end") << u"%.1f %"_s << false;
        QTest::newRow("two") << u"%f %f"_s << false;
        QTest::newRow("a whole number for a real") << u"%lld"_s << false;
        QTest::newRow("a real for a whole number") << u"%f"_s << true;
        QTest::newRow("a short whole number") << u"%d"_s << true;
        QTest::newRow("a text") << u"%s"_s << false;
        QTest::newRow("one that writes") << u"%f%n"_s << false;
        QTest::newRow("a width from an argument") << u"%*f"_s << false;
        QTest::newRow("a precision from an argument") << u"%.*f"_s << false;
        QTest::newRow("a long double") << u"%Lf"_s << false;
        QTest::newRow("a width without bounds") << u"%9999999f"_s << false;
        QTest::newRow("two lines, the second with one more") << u"%f\n%f"_s << false;
    }
    void showsAFormatThatDoesNotFitAsItStands()
    {
        QFETCH(QString, format);
        QFETCH(bool, whole);
        QTest::ignoreMessage(QtWarningMsg, qPrintable(u"\"%1\" is no format for one such value."_s.arg(format)));
        QCOMPARE(whole ? text::format(format, qint64(1)) : text::format(format, 1.0), format);
    }

    void countsCharactersAsAReaderDoes_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<qsizetype>("count");
        QTest::newRow("empty") << QString() << qsizetype(0);
        QTest::newRow("letters") << u"abc"_s << qsizetype(3);
        QTest::newRow("an accent of its own") << u"e\u0301x"_s << qsizetype(2);
        QTest::newRow("an emoji") << u"😀"_s << qsizetype(1);
        QTest::newRow("a flag") << u"🇫🇷"_s << qsizetype(1);
        QTest::newRow("a line's end") << u"a\r\nb"_s << qsizetype(3);
    }
    void countsCharactersAsAReaderDoes()
    {
        QFETCH(QString, text);
        QFETCH(qsizetype, count);
        QCOMPARE(text::characterCount(text), count);
    }

    void showsATimeOfDayInTheUsersLocale_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<QString>("expected");
        QTest::newRow("none told") << QLocale::c() << u"3:07 PM"_s;
        QTest::newRow("US English") << QLocale(QLocale::English, QLocale::UnitedStates) << u"3:07 PM"_s;
        QTest::newRow("German") << QLocale(QLocale::German, QLocale::Germany) << u"15:07"_s;
    }
    void showsATimeOfDayInTheUsersLocale()
    {
        QFETCH(QLocale, locale);
        const QLocale before;
        QLocale::setDefault(locale);
        QString shown = text::time(QDateTime(QDate(2026, 11, 20), QTime(15, 7, 42)));
        QLocale::setDefault(before);
        // Locales of some releases part the two by a narrow blank.
        QTEST(shown.replace(QChar(0x202F), u' '), "expected");
    }

    void knowsAnEndlessWord_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("has");
        const QString longest(2000, u'x');
        QTest::newRow("empty") << QString() << false;
        QTest::newRow("the longest word that is one") << longest << false;
        QTest::newRow("a letter more") << longest + u'x' << true;
        QTest::newRow("two of the longest") << longest + u' ' + longest << false;
        QTest::newRow("two lines") << longest + u'\n' + longest << false;
        QTest::newRow("after a blank") << u"a "_s + longest + u'x' << true;
        QTest::newRow("before a blank") << longest + u"x a"_s << true;
        QTest::newRow("blanks that keep together") << QString(2001, u'\u00a0') << true;
    }
    void knowsAnEndlessWord()
    {
        QFETCH(QString, text);
        QTEST(text::hasEndlessWord(text), "has");
    }

    void showsByteCounts_data()
    {
        QTest::addColumn<qint64>("bytes");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *name, qint64 bytes, const QString &expected) {
            QTest::newRow(name) << bytes << expected;
        };
        row("nothing", 0, u"Zero KB"_s);
        row("one", 1, u"1 byte"_s);
        row("two", 2, u"2 bytes"_s);
        row("largest in bytes", 999, u"999 bytes"_s);
        row("smallest in KB", 1000, u"1 KB"_s);
        row("KB have no decimals", 1499, u"1 KB"_s);
        row("KB round", 1500, u"2 KB"_s);
        row("largest in KB", 999'499, u"999 KB"_s);
        row("rounding reaches the next unit", 999'500, u"1 MB"_s);
        row("a sample", 15'420'000, u"15.4 MB"_s);
        row("another sample", 2'340'000, u"2.3 MB"_s);
        row("their sum", 26'660'000, u"26.7 MB"_s);
        row("no zero at the end", 9'000'000, u"9 MB"_s);
        row("rounded to no zero", 8'960'000, u"9 MB"_s);
        row("a ten keeps its zero", 10'000'000, u"10 MB"_s);
        row("largest in MB", 999'949'999, u"999.9 MB"_s);
        row("MB that round to a GB", 999'950'000, u"1 GB"_s);
        row("GB have two decimals", 1'250'000'000, u"1.25 GB"_s);
        row("or one", 1'200'000'000, u"1.2 GB"_s);
        row("TB", 3'456'000'000'000, u"3.46 TB"_s);
        row("PB", 7'000'000'000'000'000, u"7 PB"_s);
        row("the largest", std::numeric_limits<qint64>::max(), u"9.22 EB"_s);
        row("below zero", -1500, u"-2 KB"_s);
        row("the smallest", std::numeric_limits<qint64>::min(), u"-9.22 EB"_s);
    }
    void showsByteCounts()
    {
        QFETCH(qint64, bytes);
        QFETCH(QString, expected);
        QCOMPARE(text::byteCount(bytes), expected);
    }

    void byteCountsHaveTheUsersDecimalPoint()
    {
        QLocale::setDefault(QLocale(QLocale::German));
        QCOMPARE(text::byteCount(15'420'000), u"15,4 MB"_s);
    }

    void roundsFiguresAsPrintfDoes_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QString>("expected");
        QTest::newRow("a half to the even neighbour below") << 0.5 << 0 << u"0"_s;
        QTest::newRow("a half to the even neighbour above") << 1.5 << 0 << u"2"_s;
        QTest::newRow("and once more") << 2.5 << 0 << u"2"_s;
        QTest::newRow("an eighth") << 0.125 << 2 << u"0.12"_s;
        QTest::newRow("zeros stay") << 3.0 << 2 << u"3.00"_s;
        QTest::newRow("below zero") << -1.25 << 1 << u"-1.2"_s;
        QTest::newRow("zero below zero") << -0.04 << 1 << u"-0.0"_s;
        QTest::newRow("small") << 0.00002 << 5 << u"0.00002"_s;
        QTest::newRow("huge") << 1e300 << 0 << QString::number(1e300, 'f', 0);
    }
    void roundsFiguresAsPrintfDoes()
    {
        QFETCH(double, value);
        QFETCH(int, decimals);
        QFETCH(QString, expected);
        QCOMPARE(text::fixed(value, decimals), expected);
    }

    void showsADayWithoutWeekdayAndTime_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<QString>("expected");
        QTest::newRow("C, which counts as US English") << QLocale::c() << u"November 20, 2026"_s;
        QTest::newRow("US English") << QLocale(QLocale::English, QLocale::UnitedStates) << u"November 20, 2026"_s;
        QTest::newRow("British English") << QLocale(QLocale::English, QLocale::UnitedKingdom) << u"20 November 2026"_s;
        QTest::newRow("German") << QLocale(QLocale::German) << u"20. November 2026"_s;
        QTest::newRow("French") << QLocale(QLocale::French) << u"20 novembre 2026"_s;
        QTest::newRow("Spanish") << QLocale(QLocale::Spanish) << u"20 de noviembre de 2026"_s;
        QTest::newRow("Hungarian") << QLocale(QLocale::Hungarian) << u"2026. november 20."_s;
        QTest::newRow("Turkish") << QLocale(QLocale::Turkish) << u"20 Kasım 2026"_s;
        QTest::newRow("Japanese") << QLocale(QLocale::Japanese) << u"2026年11月20日"_s;
        QTest::newRow("Chinese") << QLocale(QLocale::Chinese) << u"2026年11月20日"_s;
    }
    void showsADayWithoutWeekdayAndTime()
    {
        QFETCH(QLocale, locale);
        QFETCH(QString, expected);
        QLocale::setDefault(locale);
        QCOMPARE(text::date(QDateTime(QDate(2026, 11, 20), QTime(12, 0))), expected);
    }

    void showsTheDayOfTheUsersPlace()
    {
        const QByteArray before = qgetenv("TZ");
        const auto restore = qScopeGuard([before] {
            before.isNull() ? qunsetenv("TZ") : qputenv("TZ", before);
            tzset();
        });
        qputenv("TZ", "Pacific/Auckland");
        tzset();
        QCOMPARE(text::date(QDateTime(QDate(2026, 11, 20), QTime(23, 0), Qt::UTC)), u"November 21, 2026"_s);
    }

    void showsTheDistanceInItsLargestWholeUnit_data()
    {
        QTest::addColumn<qint64>("seconds");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *name, qint64 seconds, const QString &expected) {
            QTest::newRow(name) << seconds << expected;
        };
        row("now", 0, u"0 sec"_s);
        row("seconds", 5, u"5 sec"_s);
        row("most seconds", 59, u"59 sec"_s);
        row("one minute", 60, u"1 min"_s);
        row("minutes are whole", 12 * 60 + 59, u"12 min"_s);
        row("most minutes", 3599, u"59 min"_s);
        row("one hour", 3600, u"1 hr"_s);
        row("hours", 23 * 3600 + 3599, u"23 hr"_s);
        row("one day", 86'400, u"1 day"_s);
        row("days", 2 * 86'400, u"2 days"_s);
        row("many days", 400 * 86'400, u"400 days"_s);
        row("a moment to come", -7200, u"2 hr"_s);
    }
    void showsTheDistanceInItsLargestWholeUnit()
    {
        QFETCH(qint64, seconds);
        QFETCH(QString, expected);
        const QDateTime now(QDate(2026, 11, 20), QTime(12, 0), Qt::UTC);
        QCOMPARE(text::relative(now.addSecs(-seconds), now), expected);
    }
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_Text)
#include "tst_Text.moc"
