#include "service/Json.h"

#include <QTest>
#include <QTimeZone>

#include <limits>
#include <thread>

using namespace quillmere;
using namespace Qt::StringLiterals;

namespace {

struct Part {
    qint64 sizeBytes = 0;
    std::optional<bool> isLast;

    static constexpr auto fields()
    {
        return std::tuple{Field{"sizeBytes", &Part::sizeBytes}, Field{"isLast", &Part::isLast}};
    }
};

struct Shipment {
    QString id;
    QDateTime sentAt;
    QList<Part> parts;
    std::optional<Part> spare;
    std::optional<QString> trackingUrl;
    AnyCodable anything;

    static constexpr auto fields()
    {
        return std::tuple{Field{"id", &Shipment::id}, Field{"sentAt", &Shipment::sentAt},
            Field{"parts", &Shipment::parts}, Field{"spare", &Shipment::spare},
            Field{"trackingUrl", &Shipment::trackingUrl}, Field{"anything", &Shipment::anything}};
    }
};

struct Dated {
    QDateTime at;

    static constexpr auto fields() { return std::tuple{Field{"at", &Dated::at}}; }
};

struct Note {
    std::optional<QString> aLongName;

    static constexpr auto fields() { return std::tuple{Field{"aLongName", &Note::aLongName}}; }
};

static_assert(Decodable<Shipment> && Encodable<Shipment> && Decodable<QList<Shipment>>);
static_assert(!Decodable<int> && !Decodable<double>, "No field of the wire is of these types.");

QByteArray shipment(const char *part = R"({"size_bytes":1})", const char *rest = "")
{
    return R"({"id":"s","sent_at":"2024-05-01T12:00:00Z","anything":1,"parts":[{"size_bytes":7},)" + QByteArray(part)
        + "]" + rest + "}";
}

QString failureText(const auto &result)
{
    return result ? u"no failure"_s : result.failure().localizedDescription();
}

QDateTime utc(int year, int month, int day, int hour, int minute, int second)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute, second), Qt::UTC);
}

} // namespace

class tst_Json : public QObject {
    Q_OBJECT

private slots:
    void decodesEveryKindOfField()
    {
        const auto decoded = decode<Shipment>(
            shipment(R"({"size_bytes":2,"is_last":true})", R"(,"spare":{"size_bytes":3},"tracking_url":"u")"),
            KeyCoding::SnakeCase);

        QVERIFY2(decoded, qPrintable(failureText(decoded)));
        QCOMPARE(decoded->id, u"s"_s);
        QCOMPARE(decoded->sentAt, utc(2024, 5, 1, 12, 0, 0));
        QCOMPARE(decoded->parts.size(), 2);
        QCOMPARE(decoded->parts[0].sizeBytes, 7);
        QVERIFY(!decoded->parts[0].isLast);
        QCOMPARE(decoded->parts[1].sizeBytes, 2);
        QCOMPARE(decoded->parts[1].isLast, std::optional(true));
        QCOMPARE(decoded->spare->sizeBytes, 3);
        QCOMPARE(decoded->trackingUrl, std::optional(u"u"_s));
        QCOMPARE(decoded->anything.value, QVariant::fromValue<qlonglong>(1));
    }

    void refusesWhatIsNotWellFormed_data()
    {
        QTest::addColumn<QByteArray>("json");
        const auto row = [](const char *name, const QByteArray &json) { QTest::newRow(name) << json; };

        row("cut off", "[1");
        row("not JSON", "<html>");
        row("trailing value", "1 2");
        row("trailing comma", "[1,]");
        row("trailing NUL", QByteArray("1\0", 2));
        row("comment", "[1] // one");
        row("byte order mark", "\xef\xbb\xbf[1]");
        row("single quotes", "['a']");
        row("key without quotes", "{a:1}");
        row("raw newline in a string", "\"a\nb\"");
        row("raw tab in a string", "\"a\tb\"");
        row("raw NUL in a string", QByteArray("\"a\0b\"", 5));
        row("unknown escape", R"("\x41")");
        row("high surrogate alone", R"("\ud800")");
        row("high surrogate before a letter", R"("\ud800\u0041")");
        row("two high surrogates", R"("\ud800\ud800")");
        row("low surrogate alone", R"("\udc00")");
        row("surrogates the wrong way round", R"("\udc00\ud800")");
        row("lone surrogate in a key", R"({"\ud800":1})");
        row("UTF-8 cut off", "\"\xc3\"");
        row("UTF-8 overlong", "\"\xc0\x80\"");
        row("UTF-8 of a surrogate", "\"\xed\xa0\x80\"");
        row("Latin-1", "\"Z\xfcrich\"");
        row("leading zero", "01");
        row("leading zero of a long integer", "0123456789012345678901");
        row("plus sign", "+1");
        row("no digit before the point", ".5");
        row("no digit after the point", "1.");
        row("no digit after the exponent", "1e");
        row("minus alone", "-");
        row("hexadecimal", "0x10");
        row("not a number", "NaN");
        row("infinity", "Infinity");
        row("beyond a double", "1e400");
        row("beyond a double below", "-1e400");
        row("beyond a double in 400 digits", QByteArray(400, '9'));
        row("letters on a long integer", "123456789012345678901x");
        row("a long integer, then not JSON", "[123456789012345678901");
    }

    void refusesWhatIsNotWellFormed()
    {
        QFETCH(QByteArray, json);

        const auto decoded = decode<AnyCodable>(json, KeyCoding::SnakeCase);

        QVERIFY(!decoded);
        QCOMPARE(decoded.failure().kind(), Failure::Kind::Decoding);
        QCOMPARE(failureText(decoded), u"The reply could not be read: it is not valid JSON."_s);
    }

    void saysThatAnEmptyReplyIsEmpty_data()
    {
        QTest::addColumn<QByteArray>("json");

        QTest::newRow("no bytes") << QByteArray();
        QTest::newRow("an empty array of bytes") << QByteArray("");
        QTest::newRow("white space") << QByteArray(" \r\n\t");
    }

    void saysThatAnEmptyReplyIsEmpty()
    {
        QFETCH(QByteArray, json);

        const auto decoded = decode<Shipment>(json, KeyCoding::SnakeCase);

        QCOMPARE(failureText(decoded), u"The reply could not be read: it is empty."_s);
        QCOMPARE(decoded.failure().kind(), Failure::Kind::Decoding);
    }

    void readsDeepNestingUpToItsLimit_data()
    {
        QTest::addColumn<int>("levels");
        QTest::addColumn<bool>("isRead");

        QTest::newRow("1024 levels") << 1024 << true;
        QTest::newRow("1025 levels") << 1025 << false;
        QTest::newRow("a million levels") << 1000000 << false;
    }

    void readsDeepNestingUpToItsLimit()
    {
        QFETCH(int, levels);
        QFETCH(bool, isRead);

        const auto decoded = decode<AnyCodable>(QByteArray(levels, '[') + QByteArray(levels, ']'), KeyCoding::Plain);

        QCOMPARE(failureText(decoded),
            isRead ? u"no failure"_s : u"The reply could not be read: it is nested too deeply."_s);
    }

    void readsAFullListOfAnySpacing()
    {
        const auto decoded = decode<QList<qint64>>(" [ 1 ,\n\t2\r\n] \n", KeyCoding::Plain);

        QVERIFY2(decoded, qPrintable(failureText(decoded)));
        QCOMPARE(*decoded, QList<qint64>({1, 2}));
    }

    void namesTheFieldThatDoesNotFitAndQuotesNothing_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QString>("where");
        const auto row = [](const char *name, const QByteArray &json, const QString &where) {
            QTest::newRow(name) << json << where;
        };

        row("missing", "{}", u".id is missing"_s);
        row("missing in a list", shipment("{}"), u".parts[1].size_bytes is missing"_s);
        row("null where a value is required", shipment(R"({"size_bytes":null})"),
            u".parts[1].size_bytes is not a whole number of 64 bits"_s);
        row("number in a string", shipment(R"({"size_bytes":"12"})"),
            u".parts[1].size_bytes is not a whole number of 64 bits"_s);
        row("fraction", shipment(R"({"size_bytes":66.5})"), u".parts[1].size_bytes is not a whole number of 64 bits"_s);
        row("boolean for a number", shipment(R"({"size_bytes":true})"),
            u".parts[1].size_bytes is not a whole number of 64 bits"_s);
        row("one above 64 bits", shipment(R"({"size_bytes":9223372036854775808})"),
            u".parts[1].size_bytes is not a whole number of 64 bits"_s);
        row("one below 64 bits", shipment(R"({"size_bytes":-9223372036854775809})"),
            u".parts[1].size_bytes is not a whole number of 64 bits"_s);
        row("wrong type of what is optional", shipment(R"({"size_bytes":1,"is_last":1})"),
            u".parts[1].is_last is not a boolean"_s);
        row("wrong type within what is optional", shipment("{\"size_bytes\":1}", R"(,"spare":{"size_bytes":""})"),
            u".spare.size_bytes is not a whole number of 64 bits"_s);
        row("missing within what is optional", shipment("{\"size_bytes\":1}", R"(,"spare":{})"),
            u".spare.size_bytes is missing"_s);
        row("list for a record", shipment("[]"), u".parts[1] is not an object"_s);
        row("null for a record in a list", shipment("null"), u".parts[1] is not an object"_s);
        row("number for a text", R"({"id":5})", u".id is not a string"_s);
        row("number for a date", R"({"id":"s","sent_at":1714564800})", u".sent_at is not a date with time and zone"_s);
        row("map for a list", R"({"id":"s","sent_at":"2024-05-01T12:00:00Z","parts":{}})", u".parts is not a list"_s);
        row("missing dynamic value", R"({"id":"s","sent_at":"2024-05-01T12:00:00Z","parts":[]})",
            u".anything is missing"_s);
        row("list for the whole", "[]", u" is not an object"_s);
        row("null for the whole", "null", u" is not an object"_s);
        row("text for the whole", "\"secret\"", u" is not an object"_s);
    }

    void namesTheFieldThatDoesNotFitAndQuotesNothing()
    {
        QFETCH(QByteArray, json);
        QFETCH(QString, where);

        const auto decoded = decode<Shipment>(json, KeyCoding::SnakeCase);

        const QString text = failureText(decoded);
        QVERIFY2(text.startsWith(u"The reply could not be read: "_s), qPrintable(text));
        QVERIFY2(text.endsWith(u"Shipment"_s + where + u'.'), qPrintable(text));
        QCOMPARE(decoded.failure().kind(), Failure::Kind::Decoding);
    }

    void readsWholeNumbersInAnyForm_data()
    {
        QTest::addColumn<QByteArray>("number");
        QTest::addColumn<qint64>("value");

        QTest::newRow("1") << QByteArray("1") << qint64(1);
        QTest::newRow("1.0") << QByteArray("1.0") << qint64(1);
        QTest::newRow("1e3") << QByteArray("1e3") << qint64(1000);
        QTest::newRow("-2.50E+1") << QByteArray("-2.50E+1") << qint64(-25);
        QTest::newRow("more than a double holds") << QByteArray("9007199254740993") << qint64(9007199254740993);
        QTest::newRow("largest") << QByteArray("9223372036854775807") << std::numeric_limits<qint64>::max();
        QTest::newRow("smallest") << QByteArray("-9223372036854775808") << std::numeric_limits<qint64>::min();
    }

    void readsWholeNumbersInAnyForm()
    {
        QFETCH(QByteArray, number);
        QFETCH(qint64, value);

        const auto decoded = decode<Part>("{\"size_bytes\":" + number + '}', KeyCoding::SnakeCase);

        QVERIFY2(decoded, qPrintable(failureText(decoded)));
        QCOMPARE(decoded->sizeBytes, value);
    }

    // A number beyond 64 bits takes a second look at the bytes; the strings and numbers around it must not change.
    void readsWhatStandsBesideALongInteger()
    {
        const auto decoded = decode<AnyCodableMap>(
            "{\"a\":123456789012345678901,\"b\":\"\\\"123456789012345678901, \\\\\",\"c\":[-9007199254740993,"
            "9223372036854775807,1234567890123456789012.5,-123456789012345678901],\"d\\\\\":1e2}",
            KeyCoding::Plain);

        QVERIFY2(decoded, qPrintable(failureText(decoded)));
        const QMap<QString, AnyCodable> values = decoded->toMap();
        QCOMPARE(values.value(u"a"_s).value, QVariant(123456789012345678901.0));
        QCOMPARE(values.value(u"b"_s).value, QVariant(u"\"123456789012345678901, \\"_s));
        QCOMPARE(values.value(u"c"_s).value,
            QVariant(QVariantList{QVariant::fromValue<qlonglong>(-9007199254740993),
                QVariant::fromValue<qlonglong>(9223372036854775807), 1234567890123456789012.5,
                -123456789012345678901.0}));
        QCOMPARE(values.value(u"d\\"_s).value, QVariant::fromValue<qlonglong>(100));
    }

    void convertsKeysOfSnakeCase_data()
    {
        QTest::addColumn<QByteArray>("key");
        QTest::addColumn<bool>("isTheField");

        QTest::newRow("snake case") << QByteArray("a_long_name") << true;
        QTest::newRow("the field's own name") << QByteArray("aLongName") << true;
        QTest::newRow("both mixed") << QByteArray("a_longName") << true;
        QTest::newRow("doubled underscore") << QByteArray("a__long_name") << true;
        QTest::newRow("upper case after the underscore") << QByteArray("a_Long_Name") << true;
        QTest::newRow("escaped underscore") << QByteArray("a\\u005flong_name") << true;
        QTest::newRow("no underscore") << QByteArray("alongname") << false;
        QTest::newRow("all upper case") << QByteArray("A_LONG_NAME") << false;
        QTest::newRow("too short") << QByteArray("a_long_nam") << false;
        QTest::newRow("too long") << QByteArray("a_long_names") << false;
        QTest::newRow("underscore in the wrong place") << QByteArray("a_lo_ng_name") << false;
        QTest::newRow("leading underscore") << QByteArray("_a_long_name") << false;
        QTest::newRow("hyphen") << QByteArray("a-long-name") << false;
        QTest::newRow("empty") << QByteArray("") << false;
    }

    void convertsKeysOfSnakeCase()
    {
        QFETCH(QByteArray, key);
        QFETCH(bool, isTheField);

        const auto decoded = decode<Note>("{\"" + key + "\":\"x\"}", KeyCoding::SnakeCase);

        QVERIFY2(decoded, qPrintable(failureText(decoded)));
        QCOMPARE(decoded->aLongName.has_value(), isTheField);
    }

    void takesPlainKeysLetterForLetter()
    {
        QCOMPARE(decode<Note>(R"({"aLongName":"x"})", KeyCoding::Plain)->aLongName, std::optional(u"x"_s));
        QVERIFY(!decode<Note>(R"({"a_long_name":"x"})", KeyCoding::Plain)->aLongName);
        QCOMPARE(*encode(Note{u"x"_s}, KeyCoding::Plain), R"({"aLongName":"x"})");
        QVERIFY(failureText(decode<Part>("{}", KeyCoding::Plain)).endsWith(u"Part.sizeBytes is missing."_s));
    }

    void takesTheLastOfEqualKeys()
    {
        const auto plain = decode<Note>(R"({"a_long_name":5,"a_long_name":"x"})", KeyCoding::SnakeCase);
        QVERIFY2(plain, qPrintable(failureText(plain)));
        QCOMPARE(plain->aLongName, std::optional(u"x"_s));

        const auto converted = decode<Note>(R"({"aLongName":"x","a_long_name":"y"})", KeyCoding::SnakeCase);
        QCOMPARE(converted->aLongName, std::optional(u"y"_s));

        const auto ending = decode<Note>(R"({"a_long_name":"x","a_long_name":null})", KeyCoding::SnakeCase);
        QVERIFY(!ending->aLongName);
    }

    void passesOverUnknownKeysAndAnyOrder()
    {
        const auto decoded = decode<Part>(
            R"({"z":[{"size_bytes":9}],"is_last":false,"y":{},"size_bytes":4,"x":null})", KeyCoding::SnakeCase);

        QVERIFY2(decoded, qPrintable(failureText(decoded)));
        QCOMPARE(decoded->sizeBytes, 4);
        QCOMPARE(decoded->isLast, std::optional(false));
    }

    void readsDatesWithTimeAndZone_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QDateTime>("date");

        QTest::newRow("UTC") << QByteArray("2024-05-01T12:00:00Z") << utc(2024, 5, 1, 12, 0, 0);
        QTest::newRow("east") << QByteArray("2024-05-01T12:00:00+02:00") << utc(2024, 5, 1, 10, 0, 0);
        QTest::newRow("west over midnight") << QByteArray("2024-12-31T20:30:59-05:45") << utc(2025, 1, 1, 2, 15, 59);
        QTest::newRow("no offset told as minus")
            << QByteArray("2024-05-01T12:00:00-00:00") << utc(2024, 5, 1, 12, 0, 0);
        QTest::newRow("leap day") << QByteArray("2024-02-29T00:00:00Z") << utc(2024, 2, 29, 0, 0, 0);
        QTest::newRow("leap day of a century") << QByteArray("2000-02-29T23:59:59Z") << utc(2000, 2, 29, 23, 59, 59);
        QTest::newRow("before the epoch") << QByteArray("1969-12-31T23:59:59Z") << utc(1969, 12, 31, 23, 59, 59);
        QTest::newRow("first") << QByteArray("0001-01-01T00:00:00Z") << utc(1, 1, 1, 0, 0, 0);
        QTest::newRow("last") << QByteArray("9999-12-31T23:59:59Z") << utc(9999, 12, 31, 23, 59, 59);
        QTest::newRow("escaped") << QByteArray("2024\\u002d05-01T12:00:00Z") << utc(2024, 5, 1, 12, 0, 0);
    }

    void readsDatesWithTimeAndZone()
    {
        QFETCH(QByteArray, text);
        QFETCH(QDateTime, date);

        const auto decoded = decode<Dated>("{\"at\":\"" + text + "\"}", KeyCoding::SnakeCase);

        QVERIFY2(decoded, qPrintable(failureText(decoded)));
        QCOMPARE(decoded->at, date);
        QCOMPARE(decoded->at.timeSpec(), Qt::UTC);
        QCOMPARE(*encode(*decoded, KeyCoding::SnakeCase),
            "{\"at\":\"" + date.toString(u"yyyy-MM-dd'T'HH:mm:ss'Z'"_s).toUtf8() + "\"}");
    }

    void refusesAnyOtherFormOfDate_data()
    {
        QTest::addColumn<QByteArray>("text");

        for (const char *text : {"", "2024-05-01", "2024-05-01T12:00:00", "2024-05-01T12:00Z",
                 "2024-05-01T12:00:00.123Z", "2024-05-01T12:00:00,5Z", "2024-05-01 12:00:00Z", "2024-05-01t12:00:00Z",
                 "2024-05-01T12:00:00z", "2024-05-01T12:00:00ZZ", "2024-05-01T12:00:00Z ", " 2024-05-01T12:00:00Z",
                 "2024-05-01T12:00:00+0200", "2024-05-01T12:00:00+02", "2024-05-01T12:00:00+2:00",
                 "2024-05-01T12:00:00+24:00", "2024-05-01T12:00:00+02:60", "2024-05-01T12:00:00*02:00",
                 "2024-05-01T24:00:00Z", "2024-05-01T12:60:00Z", "2024-05-01T12:00:60Z", "2024-13-01T12:00:00Z",
                 "2024-00-01T12:00:00Z", "2024-05-00T12:00:00Z", "2024-04-31T12:00:00Z", "2023-02-29T12:00:00Z",
                 "1900-02-29T12:00:00Z", "20240501T120000Z", "24-05-01T12:00:00Z", "+2024-05-01T12:00:00Z",
                 "-024-05-01T12:00:00Z", "2024-5-1T12:00:00Z", "2024-W18-3T12:00:00Z", "1714564800",
                 "Wed, 01 May 2024 12:00:00 GMT", "\xd9\xa2\xd9\xa0\xd9\xa2\xd9\xa4-05-01T12:00:00Z"}) {
            QTest::newRow(text) << QByteArray(text);
        }
    }

    void refusesAnyOtherFormOfDate()
    {
        QFETCH(QByteArray, text);

        const auto decoded = decode<Dated>("{\"at\":\"" + text + "\"}", KeyCoding::SnakeCase);

        QVERIFY2(failureText(decoded).endsWith(u"Dated.at is not a date with time and zone."_s),
            qPrintable(failureText(decoded)));
    }

    void encodesSnakeCaseAndLeavesOutWhatIsAbsent()
    {
        Shipment sent;
        sent.id = u"s"_s;
        sent.sentAt = QDateTime(QDate(2024, 5, 1), QTime(14, 0, 0, 999), QTimeZone(7200));
        sent.parts = {{7, {}}, {8, true}};

        QCOMPARE(*encode(sent, KeyCoding::SnakeCase),
            R"({"anything":null,"id":"s","parts":[{"size_bytes":7},{"is_last":true,"size_bytes":8}],)"
            R"("sent_at":"2024-05-01T12:00:00Z"})");
    }

    void encodesTextsSoThatTheyComeBack()
    {
        const Note note{u"\"\\/\b\f\n\r\t\u0001 Z\u00fcrich \U0001f600 </script> \u2028"_s + QChar(0)};

        const auto encoded = encode(note, KeyCoding::SnakeCase);
        QVERIFY(encoded);
        const auto decoded = decode<Note>(*encoded, KeyCoding::SnakeCase);

        QVERIFY2(decoded, qPrintable(failureText(decoded)));
        QCOMPARE(decoded->aLongName, note.aLongName);
    }

    void namesTheFieldThatCannotBeEncoded()
    {
        const auto dateless = encode(QList<Dated>{{utc(2024, 5, 1, 0, 0, 0)}, {}}, KeyCoding::SnakeCase);
        QVERIFY2(failureText(dateless).endsWith(u"[1].at is not a date of the years 1 to 9999."_s),
            qPrintable(failureText(dateless)));
        QCOMPARE(dateless.failure().kind(), Failure::Kind::Encoding);
        QVERIFY(!encode(Dated{utc(10000, 1, 1, 0, 0, 0)}, KeyCoding::SnakeCase));
        QVERIFY(!encode(Dated{utc(-1, 1, 1, 0, 0, 0)}, KeyCoding::SnakeCase));

        const auto broken = encode(Note{QString(QChar(0xdc00))}, KeyCoding::SnakeCase);
        QVERIFY2(
            failureText(broken).endsWith(u"Note.a_long_name is not valid Unicode."_s), qPrintable(failureText(broken)));
        QVERIFY(failureText(broken).startsWith(u"The request could not be written: "_s));
    }

    void decodesOnSeveralThreadsAtOnce()
    {
        std::array<int, 4> decoded{};
        std::vector<std::thread> threads;
        for (int &count : decoded) {
            threads.emplace_back([&count] {
                for (int i = 0; i < 500; ++i) {
                    const auto part =
                        decode<Part>("{\"size_bytes\":" + QByteArray::number(i) + '}', KeyCoding::SnakeCase);
                    count += part && part->sizeBytes == i;
                }
            });
        }
        for (std::thread &thread : threads) {
            thread.join();
        }

        QCOMPARE(decoded, (std::array{500, 500, 500, 500}));
    }
};

QTEST_APPLESS_MAIN(tst_Json)
#include "tst_Json.moc"
