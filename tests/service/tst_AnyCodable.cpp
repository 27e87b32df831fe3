#include "service/Json.h"

#include <QTest>

#include <cmath>
#include <concepts>
#include <limits>

using namespace quillmere;
using namespace Qt::StringLiterals;

static_assert(!std::equality_comparable<AnyCodable>, "A dynamic value has no equality.");

namespace {

template <typename T>
concept Hashable = requires(const T &value)
{
    qHash(value);
};
static_assert(!Hashable<AnyCodable> && Hashable<QString>, "A dynamic value has no hash.");

QVariant whole(qlonglong number)
{
    return QVariant::fromValue(number);
}

} // namespace

class tst_AnyCodable : public QObject {
    Q_OBJECT

private slots:
    void takesTheFirstTypeThatFits_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QVariant>("value");
        const auto row = [](const char *name, const char *json, const QVariant &value) {
            QTest::newRow(name) << QByteArray(json) << value;
        };

        row("true is a boolean, not 1", "true", true);
        row("false is a boolean, not 0", "false", false);
        row("1", "1", whole(1));
        row("0", "0", whole(0));
        row("a negative number", "-7", whole(-7));
        row("1.0 is whole", "1.0", whole(1));
        row("1e3 is whole", "1e3", whole(1000));
        row("minus nought is whole", "-0.0", whole(0));
        row("1.5", "1.5", 1.5);
        row("1e-3", "1e-3", 0.001);
        row("a whole number that a double would change", "9007199254740993", whole(9007199254740993));
        row("the largest of 64 bits", "9223372036854775807", whole(std::numeric_limits<qlonglong>::max()));
        row("the smallest of 64 bits", "-9223372036854775808", whole(std::numeric_limits<qlonglong>::min()));
        row("one above 64 bits", "9223372036854775808", 9223372036854775808.0);
        row("one below 64 bits", "-9223372036854775809", -9223372036854775808.0);
        row("64 bits without a sign", "18446744073709551615", 18446744073709551615.0);
        row("one above 64 bits without a sign", "18446744073709551616", 18446744073709551616.0);
        row("thirty digits", "123456789012345678901234567890", 123456789012345678901234567890.0);
        row("a large number with an exponent", "1e300", 1e300);
        row("a number in a string is a string", "\"1\"", u"1"_s);
        row("an empty string", "\"\"", u""_s);
        row("a long integer in a string", "\"123456789012345678901\"", u"123456789012345678901"_s);
        row("null", "null", QVariant());
        row("an empty list", "[]", QVariantList());
        row("a list of two types", "[1,\"a\"]", QVariantList{whole(1), u"a"_s});
        row("a list with null", "[null,true]", QVariantList{QVariant(), true});
        row("an empty map", "{}", QVariantMap());
        row("a map in a map", R"({"k":{"n":2}})", QVariantMap{{u"k"_s, QVariantMap{{u"n"_s, whole(2)}}}});
        row("a list in a map in a list", R"([{"a":[1.5]}])", QVariantList{QVariantMap{{u"a"_s, QVariantList{1.5}}}});
    }

    void takesTheFirstTypeThatFits()
    {
        QFETCH(QByteArray, json);
        QFETCH(QVariant, value);

        const auto decoded = decode<AnyCodable>(json, KeyCoding::SnakeCase);

        QVERIFY2(decoded, decoded ? "" : qPrintable(decoded.failure().localizedDescription()));
        QCOMPARE(decoded->value.typeId(), value.typeId());
        QCOMPARE(decoded->value, value);
    }

    void holdsPlainValuesInsideListsAndMaps()
    {
        const auto decoded = decode<AnyCodable>(R"([{"a":1},[true]])", KeyCoding::SnakeCase);

        QVERIFY(decoded);
        const QVariantList list = decoded->value.toList();
        QCOMPARE(list[0].typeId(), int(QMetaType::QVariantMap));
        QCOMPARE(list[0].toMap()[u"a"_s].typeId(), int(QMetaType::LongLong));
        QCOMPARE(list[1].typeId(), int(QMetaType::QVariantList));
        QCOMPARE(list[1].toList()[0].typeId(), int(QMetaType::Bool));
    }

    void leavesTheKeysOfItsMapsAlone()
    {
        const auto decoded = decode<AnyCodable>(R"({"learning_rate":1,"numEpochs":2,"_x_":3})", KeyCoding::SnakeCase);

        QVERIFY(decoded);
        QCOMPARE(decoded->value.toMap().keys(), QStringList({u"_x_"_s, u"learning_rate"_s, u"numEpochs"_s}));
        QCOMPARE(*encode(*decoded, KeyCoding::SnakeCase), R"({"_x_":3,"learning_rate":1,"numEpochs":2})");
    }

    void takesTheLastOfEqualKeys()
    {
        const auto decoded = decode<AnyCodable>(R"({"a":1,"b":2,"a":"x"})", KeyCoding::Plain);

        QVERIFY(decoded);
        QCOMPARE(decoded->value.toMap(), QVariantMap({{u"a"_s, u"x"_s}, {u"b"_s, whole(2)}}));
    }

    // It stays in the document, which the records of a reply share; that must outlive the reply and the other records.
    void leavesAMapReadableWhenNothingElseOfItsReplyIsLeft()
    {
        AnyCodableMap map;
        {
            QByteArray reply = R"([{"a":1},{"a":[2,"b"],"c":{"d":null},"a":[3]}])";
            auto decoded = decode<QList<AnyCodableMap>>(reply, KeyCoding::SnakeCase);
            QVERIFY(decoded);
            map = decoded->last();
            reply.fill('x');
        }

        const QMap<QString, AnyCodable> values = map.toMap();
        QCOMPARE(values.keys(), QStringList({u"a"_s, u"c"_s}));
        QCOMPARE(values[u"a"_s].value, QVariant(QVariantList{whole(3)}));
        QCOMPARE(values[u"c"_s].value, QVariant(QVariantMap{{u"d"_s, QVariant()}}));
        QCOMPARE(*encode(map, KeyCoding::SnakeCase), R"({"a":[3],"c":{"d":null}})");
    }

    // Strings that recur are shared while decoding; sharing must not mix them up.
    void keepsManyDifferentKeysAndTextsApart()
    {
        QByteArray json = "{";
        QVariantMap expected;
        for (int i = 0; i < 5000; ++i) {
            const QByteArray number = QByteArray::number(i % 2500);
            json += (i == 0 ? "\"key" : ",\"key") + number + "\":\"text" + number + '"';
            expected[u"key%1"_s.arg(i % 2500)] = u"text%1"_s.arg(i % 2500);
        }

        const auto decoded = decode<AnyCodable>(json + '}', KeyCoding::Plain);

        QVERIFY(decoded);
        QCOMPARE(decoded->value.toMap(), expected);
    }

    void comesOutOfDecodingAndEncodingUnchanged_data()
    {
        QTest::addColumn<QByteArray>("json");

        for (const char *json : {"true", "1", "1.5", "\"1\"", "null", "[]", "{}", "[1,\"a\",null,[false]]",
                 R"({"k":{"n":2}})", R"({"steps":[1,2.5,{"loss":null}]})", "9007199254740993", "-9223372036854775808",
                 "\"tab\\tquote\\\" \\u0000\"", "\"Z\xc3\xbcrich \xf0\x9f\x98\x80\""}) {
            QTest::newRow(json) << QByteArray(json);
        }
    }

    void comesOutOfDecodingAndEncodingUnchanged()
    {
        QFETCH(QByteArray, json);

        const auto decoded = decode<AnyCodable>(json, KeyCoding::SnakeCase);
        QVERIFY(decoded);
        const auto encoded = encode(*decoded, KeyCoding::SnakeCase);

        QVERIFY(encoded);
        QCOMPARE(*encoded, json);
    }

    void encodesByTheTypeItHolds_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QByteArray>("json");

        QTest::newRow("nothing") << QVariant() << QByteArray("null");
        QTest::newRow("null pointer") << QVariant::fromValue(nullptr) << QByteArray("null");
        QTest::newRow("boolean") << QVariant(true) << QByteArray("true");
        QTest::newRow("int") << QVariant(3) << QByteArray("3");
        QTest::newRow("long long") << whole(9007199254740993) << QByteArray("9007199254740993");
        QTest::newRow("double") << QVariant(0.25) << QByteArray("0.25");
        QTest::newRow("string") << QVariant(u"a"_s) << QByteArray("\"a\"");
        QTest::newRow("list") << QVariant(QVariantList{1, QVariant()}) << QByteArray("[1,null]");
        QTest::newRow("map") << QVariant(QVariantMap{{u"aB"_s, true}}) << QByteArray(R"({"aB":true})");
        QTest::newRow("any other type") << QVariant(QDate(2026, 1, 1)) << QByteArray("null");
    }

    void encodesByTheTypeItHolds()
    {
        QFETCH(QVariant, value);
        QFETCH(QByteArray, json);

        const auto encoded = encode(AnyCodable{value}, KeyCoding::SnakeCase);

        QVERIFY(encoded);
        QCOMPARE(*encoded, json);
    }

    void doesNotEncodeWhatJsonCannotSay_data()
    {
        QTest::addColumn<QVariant>("value");

        QTest::newRow("not a number") << QVariant(std::nan(""));
        QTest::newRow("infinity") << QVariant(std::numeric_limits<double>::infinity());
        QTest::newRow("infinity in a list") << QVariant(QVariantList{-std::numeric_limits<double>::infinity()});
        QTest::newRow("infinity in a map") << QVariant(QVariantMap{{u"a"_s, std::numeric_limits<double>::infinity()}});
        QTest::newRow("lone surrogate") << QVariant(QString(QChar(0xd800)));
        QTest::newRow("lone surrogate in a key") << QVariant(QVariantMap{{QString(QChar(0xdc00)), 1}});
    }

    void doesNotEncodeWhatJsonCannotSay()
    {
        QFETCH(QVariant, value);

        const auto encoded = encode(AnyCodable{value}, KeyCoding::SnakeCase);

        QVERIFY(!encoded);
        QCOMPARE(encoded.failure().kind(), Failure::Kind::Encoding);
    }
};

QTEST_APPLESS_MAIN(tst_AnyCodable)
#include "tst_AnyCodable.moc"
