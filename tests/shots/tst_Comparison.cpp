#include "shots/Comparison.h"

#include <QFontDatabase>
#include <QPainter>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quillmere::testing {

namespace {

// A card with a word on it, as the screens have them.
struct Look {
    QColor ground{0x09, 0x09, 0x0B};
    QColor fill{0x12, 0x12, 0x14};
    QColor stroke{0x27, 0x27, 0x2A};
    QColor label{0xA1, 0xA1, 0xAA};
    int weight = QFont::Medium;
    double radius = 12;
    int padding = 20;
    bool divider = true;
    QSize size{300, 120};
};

QImage drawn(const Look &look)
{
    QImage picture(look.size, QImage::Format_RGB32);
    picture.fill(look.ground);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(look.fill);
    painter.setPen(look.stroke);
    painter.drawRoundedRect(QRectF(20.5, 20.5, 259, 79), look.radius, look.radius);
    if (look.divider) {
        painter.fillRect(QRect(21, 60, 258, 1), look.stroke);
    }
    QFont font(u"Inter"_s);
    font.setPixelSize(12);
    font.setWeight(QFont::Weight(look.weight));
    painter.setFont(font);
    painter.setPen(look.label);
    painter.drawText(20 + look.padding, 48, u"Support Triage Assistant"_s);
    return picture;
}

} // namespace

class tst_Comparison : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        for (const char *weight : {"Medium", "SemiBold"}) {
            QVERIFY(QFontDatabase::addApplicationFont(u":/fonts/Inter-%1.ttf"_s.arg(QLatin1String(weight))) >= 0);
        }
    }

    void findsNoDifferenceInTheSamePicture()
    {
        QVERIFY(!compare(drawn({}), drawn({})));
        QVERIFY(!compare(drawn({}), drawn({}).convertToFormat(QImage::Format_RGB888)));
    }

    void overlooksWhatProcessorsRoundDifferently()
    {
        QVERIFY(!compare(drawn({}), drawn({.fill = QColor(0x14, 0x13, 0x12)})));
        QVERIFY(!compare(drawn({}), drawn({.ground = QColor(0x09, 0x07, 0x0B)})));
    }

    void findsTheSmallestChangesOfALook_data()
    {
        QTest::addColumn<QImage>("changed");
        const auto row = [](const char *name, const Look &look) { QTest::newRow(name) << drawn(look); };
        row("the label a shade darker", {.label = QColor(0x9B, 0x9B, 0xA4)});
        row("the label a shade redder", {.label = QColor(0xA7, 0xA1, 0xAA)});
        row("the fill a shade lighter", {.fill = QColor(0x15, 0x15, 0x17)});
        row("the stroke a shade lighter", {.stroke = QColor(0x2D, 0x2D, 0x30)});
        row("a heavier label", {.weight = QFont::DemiBold});
        row("a rounder corner", {.radius = 13});
        row("a sharper corner", {.radius = 11});
        row("a wider padding", {.padding = 21});
        row("no divider", {.divider = false});
        row("a wider picture", {.size = QSize(301, 120)});
    }
    void findsTheSmallestChangesOfALook()
    {
        QFETCH(QImage, changed);
        QVERIFY(compare(drawn({}), changed));
        QVERIFY(compare(changed, drawn({})));
    }

    void tellsWhereTheDifferenceIs()
    {
        QImage changed = drawn({});
        changed.setPixelColor(30, 40, Qt::red);
        changed.setPixelColor(33, 41, Qt::red);
        const Difference difference = compare(drawn({}), changed);
        QCOMPARE(difference.pixels, 2);
        QCOMPARE(difference.place, QRect(QPoint(30, 40), QPoint(33, 41)));
    }

    void drawsReferencePictureAndDifferenceSideBySide()
    {
        QImage changed = drawn({});
        changed.setPixelColor(30, 40, Qt::red);
        const QImage drawing = compare(drawn({}), changed).drawing;
        QCOMPARE(drawing.size(), QSize(3 * 300 + 2 * 8, 120));
        QCOMPARE(drawing.copy(0, 0, 300, 120), drawn({}));
        QCOMPARE(drawing.copy(308, 0, 300, 120), changed.convertToFormat(QImage::Format_RGB32));
        QCOMPARE(drawing.pixelColor(2 * 308 + 30, 40), QColor(255, 64, 64));
    }
};

} // namespace quillmere::testing

QTEST_MAIN(quillmere::testing::tst_Comparison)
#include "tst_Comparison.moc"
