#include "app/theme/Theme.h"

#include <QDirIterator>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetrics>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quillmere {

class tst_Theme : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { Theme::registerFaces(); }

    void hasTwelveColors_data()
    {
        QTest::addColumn<QColor>("color");
        QTest::addColumn<QString>("value");
        QTest::newRow("background") << Theme::background() << u"#ff09090b"_s;
        QTest::newRow("surface") << Theme::surface() << u"#ff121214"_s;
        QTest::newRow("sidebarBackground") << Theme::sidebarBackground() << u"#ff050506"_s;
        QTest::newRow("success") << Theme::success() << u"#ff22c55e"_s;
        QTest::newRow("accent") << Theme::accent() << u"#ff3b82f6"_s;
        QTest::newRow("purple") << Theme::purple() << u"#ffa855f7"_s;
        QTest::newRow("error") << Theme::error() << u"#ffef4444"_s;
        QTest::newRow("cyan") << Theme::cyan() << u"#ff06b6d4"_s;
        QTest::newRow("textPrimary") << Theme::textPrimary() << u"#ffffffff"_s;
        QTest::newRow("textSecondary") << Theme::textSecondary() << u"#ffa1a1aa"_s;
        QTest::newRow("textTertiary") << Theme::textTertiary() << u"#ff71717a"_s;
        QTest::newRow("border") << Theme::border() << u"#ff27272a"_s;
    }
    void hasTwelveColors()
    {
        QFETCH(QColor, color);
        QFETCH(QString, value);
        QCOMPARE(color.name(QColor::HexArgb), value);
    }

    void hasTheToolkitsOwnColors()
    {
        QCOMPARE(Theme::windowBackground().name(), u"#1e1e20"_s);
        QCOMPARE(Theme::controlBackground().name(), u"#2a2a2d"_s);
        QCOMPARE(Theme::label(), whiteAt(0.85));
        QCOMPARE(Theme::secondaryLabel(), whiteAt(0.55));
        QCOMPARE(Theme::bordered(), whiteAt(0.12));
        QCOMPARE(Theme::outline(), whiteAt(0.15));
        QCOMPARE(Theme::hairline(), whiteAt(0.1));
        QCOMPARE(Theme::ultraThinMaterial(), whiteAt(0.06));
    }

    void hasSixFonts_data()
    {
        QTest::addColumn<QFont>("font");
        QTest::addColumn<QString>("family");
        QTest::addColumn<int>("size");
        QTest::addColumn<int>("weight");
        QTest::newRow("titleFont") << Theme::titleFont() << u"Space Grotesk"_s << 24 << int(QFont::Bold);
        QTest::newRow("headingFont") << Theme::headingFont() << u"Space Grotesk"_s << 18 << int(QFont::Medium);
        QTest::newRow("bodyMediumFont") << Theme::bodyMediumFont() << u"Inter"_s << 14 << int(QFont::Medium);
        QTest::newRow("bodyFont") << Theme::bodyFont() << u"Inter"_s << 14 << int(QFont::Normal);
        QTest::newRow("captionFont") << Theme::captionFont() << u"Inter"_s << 12 << int(QFont::Normal);
        QTest::newRow("monoFont") << Theme::monoFont() << u"Geist Mono"_s << 12 << int(QFont::Normal);
    }
    void hasSixFonts()
    {
        QFETCH(QFont, font);
        QFETCH(QString, family);
        QFETCH(int, size);
        QFETCH(int, weight);
        isDrawnAs(font, family, size, weight);
    }

    void findsFacesByName_data()
    {
        QTest::addColumn<QFont>("font");
        QTest::addColumn<QString>("family");
        QTest::addColumn<int>("size");
        QTest::addColumn<int>("weight");
        const auto row = [](const char *name, const QFont &font, const QString &family, int size, int weight) {
            QTest::newRow(name) << font << family << size << weight;
        };
        row("Gabarito-Regular", Theme::face(u"Gabarito-Regular"_s, 20), u"Gabarito"_s, 20, QFont::Normal);
        row("Gabarito-Regular in bold", Theme::face(u"Gabarito-Regular"_s, 32, QFont::Bold), u"Gabarito"_s, 32,
            QFont::Bold);
        row("Gabarito", Theme::face(u"Gabarito"_s, 28, QFont::Bold), u"Gabarito"_s, 28, QFont::Bold);
        row("SpaceGrotesk-Medium", Theme::face(u"SpaceGrotesk-Medium"_s, 16), u"Space Grotesk"_s, 16, QFont::Medium);
        row("SpaceGrotesk-Light", Theme::face(u"SpaceGrotesk-Light"_s, 16), u"Space Grotesk"_s, 16, QFont::Light);
        row("Inter-Regular", Theme::face(u"Inter-Regular"_s, 14), u"Inter"_s, 14, QFont::Normal);
        row("the system's", Theme::system(13), u"Inter"_s, 13, QFont::Normal);
        row("the system's semibold", Theme::system(13, QFont::DemiBold), u"Inter"_s, 13, QFont::DemiBold);
        row("the system's heaviest", Theme::system(13, QFont::Black), u"Inter"_s, 13, QFont::Black);
        row("the monospaced one", Theme::monospaced(20, QFont::Medium), u"Geist Mono"_s, 20, QFont::Medium);
        row("the rounded one", Theme::rounded(20, QFont::Bold), u"Open Runde"_s, 20, QFont::Bold);
    }
    void findsFacesByName()
    {
        QFETCH(QFont, font);
        QFETCH(QString, family);
        QFETCH(int, size);
        QFETCH(int, weight);
        isDrawnAs(font, family, size, weight);
    }

    void monospacesItsMonospacedFont()
    {
        QVERIFY(QFontInfo(Theme::monoFont()).fixedPitch());
        const QFontMetricsF metrics(Theme::monoFont());
        QCOMPARE(metrics.horizontalAdvance(u"1"_s), metrics.horizontalAdvance(u"W"_s));
    }

    void setsLettersApartInPoints()
    {
        const QFont font = Theme::tracked(Theme::system(10), 1);
        QCOMPARE(font.letterSpacingType(), QFont::AbsoluteSpacing);
        QCOMPARE(font.letterSpacing(), 1.0);
        QCOMPARE(Theme::system(10).letterSpacing(), 0.0);
    }

    void takesEveryFontFileIn()
    {
        int files = 0;
        for (QDirIterator file(u":/fonts"_s, QDir::Files); file.hasNext(); ++files) {
            const int id = QFontDatabase::addApplicationFont(file.next());
            QVERIFY2(id >= 0 && !QFontDatabase::applicationFontFamilies(id).isEmpty(), qPrintable(file.filePath()));
        }
        QVERIFY(files >= 20);
    }

private:
    static QColor whiteAt(double opacity) { return QColor(255, 255, 255, qRound(opacity * 255)); }

    // Asked for and found: a face that is missing would be replaced by another.
    static void isDrawnAs(const QFont &font, const QString &family, int size, int weight)
    {
        const QFontInfo found(font);
        QCOMPARE(found.family(), family);
        QCOMPARE(found.pixelSize(), size);
        QCOMPARE(found.weight(), weight);
        QCOMPARE(font.weight(), QFont::Weight(weight));
        QCOMPARE(font.pixelSize(), size);
    }
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_Theme)
#include "tst_Theme.moc"
