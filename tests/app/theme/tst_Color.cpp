#include "app/theme/Color.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace quillmere {

class tst_Color : public QObject {
    Q_OBJECT

private slots:
    void readsHexadecimalDigits_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QColor>("color");
        const QColor accent(0x3B, 0x82, 0xF6);
        const QColor fallback(1, 1, 0, 1);
        QTest::newRow("six digits") << u"3B82F6"_s << accent;
        QTest::newRow("a leading mark") << u"#3B82F6"_s << accent;
        QTest::newRow("small letters") << u"3b82f6"_s << accent;
        QTest::newRow("rubbish at both ends") << u"##3B82F6 !"_s << accent;
        QTest::newRow("blanks around") << u" \t3B82F6\n"_s << accent;
        QTest::newRow("three digits") << u"F00"_s << QColor(255, 0, 0);
        QTest::newRow("three digits times seventeen") << u"#19a"_s << QColor(17, 153, 170);
        QTest::newRow("eight digits, alpha first") << u"80FF0000"_s << QColor(255, 0, 0, 128);
        QTest::newRow("eight digits, clear") << u"00123456"_s << QColor(0x12, 0x34, 0x56, 0);
        QTest::newRow("six letters that are no digits") << u"GGGGGG"_s << QColor(0, 0, 0);
        QTest::newRow("three letters that are no digits") << u"xyz"_s << QColor(0, 0, 0);
        QTest::newRow("eight letters that are no digits") << u"zzzzzzzz"_s << QColor(0, 0, 0, 0);
        QTest::newRow("digits up to a letter") << u"12GG34"_s << QColor(0, 0, 0x12);
        QTest::newRow("a mark in the middle") << u"12#456"_s << QColor(0, 0, 0x12);
        QTest::newRow("three with one digit") << u"Fzz"_s << QColor(0, 0, 255);
        QTest::newRow("five") << u"12345"_s << fallback;
        QTest::newRow("seven") << u"1234567"_s << fallback;
        QTest::newRow("nine") << u"123456789"_s << fallback;
        QTest::newRow("two") << u"#12"_s << fallback;
        QTest::newRow("nothing") << u""_s << fallback;
        QTest::newRow("marks alone") << u"#!?"_s << fallback;
        QTest::newRow("very many") << QString(100, u'F') << fallback;
    }
    void readsHexadecimalDigits()
    {
        QFETCH(QString, text);
        QFETCH(QColor, color);
        QCOMPARE(Color::hex(text).name(QColor::HexArgb), color.name(QColor::HexArgb));
    }

    void fadesToAnOpacity()
    {
        QCOMPARE(Color::faded(QColor(1, 2, 3), 0.4), QColor(1, 2, 3, 102));
        QCOMPARE(Color::faded(QColor(1, 2, 3, 7), 1), QColor(1, 2, 3));
    }

    void hasTheToolkitsColorsByWord()
    {
        QCOMPARE(Color::blue().name(), u"#0a84ff"_s);
        QCOMPARE(Color::green().name(), u"#32d74b"_s);
        QCOMPARE(Color::red().name(), u"#ff453a"_s);
        QCOMPARE(Color::orange().name(), u"#ff9f0a"_s);
        QCOMPARE(Color::yellow().name(), u"#ffd60a"_s);
        QCOMPARE(Color::purple().name(), u"#bf5af2"_s);
        QCOMPARE(Color::cyan().name(), u"#5ac8f5"_s);
        QCOMPARE(Color::gray().name(), u"#98989d"_s);
    }
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_Color)
#include "tst_Color.moc"
