// What the shared controls look like: every panel, line, text and symbol of each, with its place, size and colours.

#include "controls/Scene.h"

#include <QColor>
#include <QFont>

using namespace Qt::StringLiterals;
using quillmere::testing::Scene;

class tst_Looks : public QObject {
    Q_OBJECT

private slots:
    void looksAsItDid_data();
    void looksAsItDid();
};

namespace {

// To a tenth of a point.
QString inWords(double points)
{
    return QString::number(qRound(points * 10) / 10.0);
}

QString inWords(const QColor &color)
{
    return color.alpha() == 255 ? color.name() : color.name(QColor::HexArgb);
}

// Font and colour of a text, fill, corners and edge of a panel; nothing of what is neither.
QString drawnBy(const QQuickItem *item)
{
    const auto color = item->property("color").value<QColor>();
    if (item->inherits("QQuickText") || item->inherits("QQuickTextInput")) {
        const auto font = item->property("font").value<QFont>();
        const QString text = item->property("text").toString();
        return text.isEmpty()
            ? QString()
            : u"%1 %2 %3 %4 %5"_s.arg(item->property("name").isValid() ? u"symbol"_s : text, font.family(),
                QString::number(font.pixelSize()), QString::number(font.weight()), inWords(color));
    }
    const QObject *border = item->property("border").value<QObject *>();
    if (!border) {
        return {};
    }
    const int width = border->property("width").toInt();
    const auto edge = border->property("color").value<QColor>();
    QString words = inWords(color);
    if (const double radius = item->property("radius").toDouble(); radius > 0) {
        words += u" round "_s + inWords(radius);
    }
    // One that nobody gave a colour says that it is black, and is not drawn.
    if (width > 0 && edge != Qt::black) {
        words += u" edge %1 %2"_s.arg(width).arg(inWords(edge));
    }
    return words;
}

// One line for each thing drawn, "x y, width height: what". A text's own width and height are the font's business.
void describe(const QQuickItem *item, const QPointF &origin, double opacity, QStringList &lines)
{
    if (!item->isVisible() || item->opacity() == 0) {
        return;
    }
    opacity *= item->opacity();
    if (const QString what = drawnBy(item); !what.isEmpty()) {
        const QRectF place = item->mapRectToScene(QRectF(0, 0, item->width(), item->height())).translated(-origin);
        QString line = inWords(place.x()) + u' ' + inWords(place.y());
        if (!item->inherits("QQuickText")) {
            line += u", "_s + inWords(place.width()) + u' ' + inWords(place.height());
        }
        line += u": "_s + what;
        lines.append(opacity < 1 ? line + u" at "_s + inWords(opacity) : line);
    }
    for (const QQuickItem *child : item->childItems()) {
        describe(child, origin, opacity, lines);
    }
}

} // namespace

void tst_Looks::looksAsItDid_data()
{
    QTest::addColumn<QString>("qml");
    QTest::addColumn<QStringList>("look");

    QTest::newRow("bordered button") << u"BorderedButton { text: \"Add\" }"_s
                                     << QStringList{
                                            u"0 0, 49 26: #1fffffff round 6"_s, u"12 5: Add Inter 13 400 #d9ffffff"_s};
    QTest::newRow("prominent button") << u"ProminentButton { text: \"Add\" }"_s
                                      << QStringList{
                                             u"0 0, 49 26: #0a84ff round 6"_s, u"12 5: Add Inter 13 400 #ffffff"_s};
    QTest::newRow("primary button") << u"PrimaryButton { symbol: \"plus\"; text: \"Add\" }"_s
                                    << QStringList{u"0 0, 83 32: #ffffff round 6"_s,
                                           u"16 7: symbol Quillmere Symbols 17 400 #000000"_s,
                                           u"41 8: Add Inter 13 500 #000000"_s};
    QTest::newRow("secondary button") << u"SecondaryButton { text: \"Add\" }"_s
                                      << QStringList{
                                             u"0 0, 58 32: #27272a round 6"_s, u"16 8: Add Inter 13 500 #ffffff"_s};
    QTest::newRow("plain button") << u"PlainButton { text: \"Add\" }"_s
                                  << QStringList{
                                         u"0 0, 25 16: #00000000 round 6"_s, u"0 0: Add Inter 13 400 #d9ffffff"_s};
    QTest::newRow("icon button") << u"IconButton { symbol: \"plus\"; label: \"Add\" }"_s
                                 << QStringList{u"0 0, 27 27: #00000000 round 6"_s,
                                        u"4 4: symbol Quillmere Symbols 19 400 #d9ffffff"_s};
    QTest::newRow("wide button") << u"PrimaryButton { width: 200; height: 50; symbol: \"plus\"; text: \"Add\" }"_s
                                 << QStringList{u"0 0, 200 50: #ffffff round 6"_s,
                                        u"75 16: symbol Quillmere Symbols 17 400 #000000"_s,
                                        u"100 17: Add Inter 13 500 #000000"_s};
    QTest::newRow("busy button") << u"PrimaryButton { text: \"Add\"; busy: true; busyText: \"Adding...\" }"_s
                                 << QStringList{
                                        u"0 0, 113 32: #ffffff round 6"_s, u"40 8: Adding... Inter 13 500 #000000"_s};
    QTest::newRow("disabled button") << u"PrimaryButton { text: \"Add\"; enabled: false }"_s
                                     << QStringList{u"0 0, 58 32: #ffffff round 6 at 0.5"_s,
                                            u"16 8: Add Inter 13 500 #000000 at 0.5"_s};
    QTest::newRow("focused button") << u"BorderedButton { text: \"Add\"; FocusRing {} }"_s
                                    << QStringList{u"0 0, 49 26: #1fffffff round 6"_s,
                                           u"12 5: Add Inter 13 400 #d9ffffff"_s,
                                           u"-4 -4, 57 34: #00000000 round 10 edge 2 #cc0a84ff"_s};
    QTest::newRow("card") << u"Card { width: 100; height: 50 }"_s
                          << QStringList{u"0 0, 100 50: #121214 round 12 edge 1 #27272a"_s};
    QTest::newRow("badge") << u"Badge { text: \"NEW\"; tint: Color.red }"_s
                           << QStringList{u"0 0, 42 21: #26ff453a round 4"_s, u"8 0: NEW Inter 10 700 #ff453a"_s};
    QTest::newRow("badge with a symbol") << u"Badge { text: \"NEW\"; tint: Color.red; symbol: \"plus\" }"_s
                                         << QStringList{u"0 0, 57 21: #26ff453a round 4"_s,
                                                u"8 5: symbol Quillmere Symbols 11 700 #ff453a"_s,
                                                u"23 0: NEW Inter 10 700 #ff453a"_s};
    QTest::newRow("pill") << u"Pill { text: \"All\" }"_s
                          << QStringList{u"0 0, 47 31: #121214 round 6"_s, u"16 8: All Inter 12 500 #ffffff"_s};
    QTest::newRow("selected pill") << u"Pill { text: \"All\"; selected: true }"_s
                                   << QStringList{
                                          u"0 0, 47 31: #3b82f6 round 6"_s, u"16 8: All Inter 12 500 #ffffff"_s};
    QTest::newRow("row of pills") << u"PillRow { Pill { text: \"A\"; width: 50 } Pill { text: \"B\"; width: 50 } }"_s
                                  << QStringList{u"0 0, 50 31: #121214 round 6"_s, u"21 8: A Inter 12 500 #ffffff"_s,
                                         u"58 0, 50 31: #121214 round 6"_s, u"79 8: B Inter 12 500 #ffffff"_s};
    QTest::newRow("plain field") << u"PlainField { label: \"A\"; width: 100; placeholderText: \"Name\" }"_s
                                 << QStringList{u"0 0: Name Inter 14 400 #71717a"_s};
    QTest::newRow("filled field")
        << u"PlainField { label: \"A\"; width: 100; placeholderText: \"Name\"; text: \"Ada\" }"_s
        << QStringList{u"0 0, 100 17: Ada Inter 14 400 #ffffff"_s};
    QTest::newRow("disabled field") << u"PlainField { label: \"A\"; width: 100; text: \"Ada\"; enabled: false }"_s
                                    << QStringList{u"0 0, 100 17: Ada Inter 14 400 #ffffff at 0.5"_s};
    QTest::newRow("rounded field") << u"RoundedField { label: \"A\"; placeholderText: \"Name\" }"_s
                                   << QStringList{u"0 0, 200 28: #2a2a2d round 6 edge 1 #26ffffff"_s,
                                          u"8 0: Name Inter 13 400 #71717a"_s};
    QTest::newRow("rounded field that is typed in")
        << u"RoundedField { label: \"A\"; text: \"Ada\"; Component.onCompleted: field.forceActiveFocus() }"_s
        << QStringList{u"0 0, 200 28: #2a2a2d round 6 edge 2 #cc0a84ff"_s, u"8 0, 184 28: Ada Inter 13 400 #ffffff"_s};
    QTest::newRow("search box") << u"SearchBox { placeholderText: \"Search\" }"_s
                                << QStringList{u"0 0, 300 37: #121214 round 8 edge 1 #27272a"_s,
                                       u"10 10: symbol Quillmere Symbols 17 400 #71717a"_s,
                                       u"39 0: Search Inter 14 400 #71717a"_s};
    QTest::newRow("search box that is typed in")
        << u"SearchBox { placeholderText: \"Search\"; Component.onCompleted: field.forceActiveFocus() }"_s
        << QStringList{u"0 0, 300 37: #121214 round 8 edge 1 #cc0a84ff"_s,
               u"10 10: symbol Quillmere Symbols 17 400 #71717a"_s, u"39 0: Search Inter 14 400 #71717a"_s};
    QTest::newRow("growing field") << u"GrowingField { label: \"A\"; width: 100; placeholderText: \"Message\" }"_s
                                   << QStringList{u"0 0: Message Inter 14 400 #71717a"_s};
    QTest::newRow("divider") << u"Divider { width: 100 }"_s << QStringList{u"0 0, 100 1: #27272a"_s};
    QTest::newRow("upright divider") << u"Divider { height: 100; vertical: true }"_s
                                     << QStringList{u"0 0, 1 100: #27272a"_s};
    QTest::newRow("segmented picker")
        << u"SegmentedPicker { label: \"A\"; width: 304; entries: [\"A\", \"B\", \"C\"]; currentIndex: 1 }"_s
        << QStringList{u"0 0, 304 24: #2a2a2d round 6"_s, u"2 2, 100 20: #00000000 round 5"_s,
               u"48 4: A Inter 12 500 #8cffffff"_s, u"102 2, 100 20: #26ffffff round 5"_s,
               u"148 4: B Inter 12 500 #ffffff"_s, u"202 2, 100 20: #00000000 round 5"_s,
               u"248 4: C Inter 12 500 #8cffffff"_s};
    QTest::newRow("segmented picker without a choice")
        << u"SegmentedPicker { label: \"A\"; width: 304; entries: [\"A\", \"B\", \"C\"]; currentIndex: -1 }"_s
        << QStringList{u"0 0, 304 24: #2a2a2d round 6"_s, u"2 2, 100 20: #00000000 round 5"_s,
               u"48 4: A Inter 12 500 #8cffffff"_s, u"102 2, 100 20: #00000000 round 5"_s,
               u"148 4: B Inter 12 500 #8cffffff"_s, u"101 6, 1 12: #27272a"_s, u"202 2, 100 20: #00000000 round 5"_s,
               u"248 4: C Inter 12 500 #8cffffff"_s, u"201 6, 1 12: #27272a"_s};
    QTest::newRow("slider") << u"Slider { label: \"A\"; width: 116; value: 0.25 }"_s
                            << QStringList{u"0 6, 116 4: #26ffffff round 2"_s, u"0 6, 33 4: #0a84ff round 2"_s,
                                   u"25 0, 16 16: #ffffff round 8"_s};
    QTest::newRow("labeled slider")
        << u"LabeledSlider { width: 216; title: \"Rate\"; from: 0; to: 10; value: 5; format: \"%.1f\" }"_s
        << QStringList{u"0 0: Rate Geist Mono 11 400 #98989d"_s, u"196.2 0: 5.0 Geist Mono 11 400 #5ac8f5"_s,
               u"0 25, 216 4: #26ffffff round 2"_s, u"0 25, 108 4: #5ac8f5 round 2"_s,
               u"100 19, 16 16: #ffffff round 8"_s};
    QTest::newRow("stepper") << u"Stepper { label: \"A\"; value: 1 }"_s
                             << QStringList{u"0 0, 20 24: #1fffffff round 6"_s, u"1 1, 18 10: #00000000 round 5"_s,
                                    u"5 1: symbol Quillmere Symbols 10 700 #d9ffffff"_s,
                                    u"1 13, 18 10: #00000000 round 5"_s,
                                    u"5 13: symbol Quillmere Symbols 10 700 #d9ffffff"_s};
    QTest::newRow("switch") << u"Switch { width: 200; text: \"Fast\" }"_s
                            << QStringList{u"0 3: Fast Inter 13 400 #ffffff"_s, u"162 0, 38 22: #26ffffff round 11"_s,
                                   u"164 2, 18 18: #ffffff round 9"_s};
    QTest::newRow("switch that is on") << u"Switch { width: 200; text: \"Fast\"; checked: true }"_s
                                       << QStringList{u"0 3: Fast Inter 13 400 #ffffff"_s,
                                              u"162 0, 38 22: #0a84ff round 11"_s, u"180 2, 18 18: #ffffff round 9"_s};
    QTest::newRow("small switch") << u"Switch { width: 200; text: \"Fast\"; small: true }"_s
                                  << QStringList{u"0 0: Fast Inter 12 400 #ffffff"_s,
                                         u"174 0, 26 15: #26ffffff round 7.5"_s,
                                         u"175.5 1.5, 12 12: #ffffff round 6"_s};
    QTest::newRow("small switch that is on")
        << u"Switch { width: 200; text: \"Fast\"; small: true; checked: true }"_s
        << QStringList{u"0 0: Fast Inter 12 400 #ffffff"_s, u"174 0, 26 15: #0a84ff round 7.5"_s,
               u"186.5 1.5, 12 12: #ffffff round 6"_s};
    QTest::newRow("progress bar") << u"ProgressBar { width: 100; value: 0.4 }"_s
                                  << QStringList{u"0 0, 100 6: #26ffffff round 3"_s, u"0 0, 40 6: #0a84ff round 3"_s};
    QTest::newRow("empty state")
        << u"EmptyState { width: 400; height: 400; symbol: \"cpu\"; title: \"No Models\"; text: \"There are none.\"; buttonText: \"Add\"; buttonIcon: \"plus\" }"_s
        << QStringList{u"161 97: symbol Quillmere Symbols 77 400 #71717a"_s,
               u"154.8 198: No Models Space Grotesk 18 500 #ffffff"_s,
               u"147.7 229: There are none. Inter 14 400 #a1a1aa"_s, u"158 270, 83 32: #ffffff round 6"_s,
               u"174 277: symbol Quillmere Symbols 17 400 #000000"_s, u"199 278: Add Inter 13 500 #000000"_s};
    QTest::newRow("screen header")
        << u"ScreenHeader { width: 600; title: \"Models\"; subtitle: \"All of them\"; BorderedButton { width: 50; text: \"A\" } BorderedButton { width: 50; text: \"B\" } }"_s
        << QStringList{u"24 20: Models Space Grotesk 24 700 #ffffff"_s, u"24 55: All of them Inter 14 400 #a1a1aa"_s,
               u"460 33, 50 26: #1fffffff round 6"_s, u"481 38: A Inter 13 400 #d9ffffff"_s,
               u"526 33, 50 26: #1fffffff round 6"_s, u"547 38: B Inter 13 400 #d9ffffff"_s};
    QTest::newRow("menu")
        << u"PlainButton { width: 200; height: 30; Menu { visible: root.shows; width: 200\nMenuSection { text: \"Tools\" }\nMenuItem { text: \"Search\"; symbol: \"magnifyingglass\" }\nMenuDivider {}\nMenuItem { text: \"Held\"; checkable: true; checked: true }\nMenuItem { text: \"Other\"; checkable: true }\nMenuItem { text: \"Off\"; enabled: false } } }"_s
        << QStringList{u"0 0, 200 30: #00000000 round 6"_s, u"13 39: Tools Inter 11 600 #8cffffff"_s,
               u"13 63, 190 26: #00000000 round 5"_s, u"23 68: symbol Quillmere Symbols 16 400 #d9ffffff"_s,
               u"47 68: Search Inter 13 400 #d9ffffff"_s, u"23 94, 170 1: #26ffffff"_s,
               u"13 100, 190 26: #00000000 round 5"_s, u"23 105: symbol Quillmere Symbols 16 400 #d9ffffff"_s,
               u"47 105: Held Inter 13 400 #d9ffffff"_s, u"13 126, 190 26: #00000000 round 5"_s,
               u"47 131: Other Inter 13 400 #d9ffffff"_s, u"13 152, 190 26: #00000000 round 5 at 0.5"_s,
               u"23 157: Off Inter 13 400 #d9ffffff at 0.5"_s, u"8 34, 200 149: #2a2a2d round 8 edge 1 #1affffff"_s};
    QTest::newRow("popover")
        << u"PlainButton { x: 300; width: 100; height: 30; Popover { visible: root.shows; contentWidth: 200; contentHeight: 100; contentItem: Card {} } }"_s
        << QStringList{u"300 0, 100 30: #00000000 round 6"_s, u"250 41, 200 100: #121214 round 12 edge 1 #27272a"_s};
    QTest::newRow("sheet")
        << u"Sheet { title: \"A\"; visible: root.shows; contentWidth: 300; contentHeight: 200; hasCloseMark: true; content: Item {} }"_s
        << QStringList{u"0 0, 800 600: #8c000000"_s, u"250 200, 300 200: #09090b round 10 edge 1 #1affffff"_s,
               u"513 212, 25 25: #00000000 round 6"_s, u"517 216: symbol Quillmere Symbols 17 400 #a1a1aa"_s};
    QTest::newRow("alert")
        << u"AlertPanel { visible: root.shows; title: \"Sure?\"; text: \"It goes.\"; buttons: [\"Yes\", \"No\"] }"_s
        << QStringList{u"0 0, 800 600: #8c000000"_s, u"190 226, 420 148: #2a2a2d round 12 edge 1 #1affffff"_s,
               u"214 250: Sure? Inter 15 600 #ffffff"_s, u"214 277: It goes. Inter 13 400 #a1a1aa"_s,
               u"531 317, 55 32: #0a84ff round 6"_s, u"547 325: Yes Inter 13 500 #ffffff"_s,
               u"473 317, 50 32: #1fffffff round 6"_s, u"489 325: No Inter 13 500 #ffffff"_s};
    QTest::newRow("flexible grid")
        << u"FlexibleGrid { width: 310; minimumColumnWidth: 90; spacing: 10; Repeater { model: 4; Card { height: 20 } } }"_s
        << QStringList{u"0 0, 97 20: #121214 round 12 edge 1 #27272a"_s,
               u"107 0, 96 20: #121214 round 12 edge 1 #27272a"_s, u"213 0, 97 20: #121214 round 12 edge 1 #27272a"_s,
               u"0 30, 97 20: #121214 round 12 edge 1 #27272a"_s};
    QTest::newRow("grid of cards")
        << u"CardGrid { id: grid; width: 500; height: 300; accessibleName: \"A\"; columns: 2; cardHeight: 100; model: 3; delegate: Card { width: grid.cardWidth; height: grid.cardHeight } }"_s
        << QStringList{u"24 24, 218 100: #121214 round 12 edge 1 #27272a"_s,
               u"258 24, 218 100: #121214 round 12 edge 1 #27272a"_s,
               u"24 140, 218 100: #121214 round 12 edge 1 #27272a"_s};
    QTest::newRow("list of cards")
        << u"CardList { width: 500; height: 300; accessibleName: \"A\"; model: 3; delegate: Card { width: 400; height: 50 } }"_s
        << QStringList{u"0 24, 400 50: #121214 round 12 edge 1 #27272a"_s,
               u"0 86, 400 50: #121214 round 12 edge 1 #27272a"_s, u"0 148, 400 50: #121214 round 12 edge 1 #27272a"_s};
    QTest::newRow("symbol") << u"SymbolIcon { name: \"plus\"; size: 20 }"_s
                            << QStringList{u"0 0: symbol Quillmere Symbols 24 400 #000000"_s};
    QTest::newRow("bold symbol") << u"SymbolIcon { name: \"plus\"; bold: true }"_s
                                 << QStringList{u"0 0: symbol Quillmere Symbols 17 700 #000000"_s};
    QTest::newRow("grown panel")
        << u"Item { width: 100; height: 50; scale: 1.1; GrowingPanel { anchors.fill: parent; grown: 1.1; radius: 8; color: Theme.surface; strokeColor: Theme.border } }"_s
        << QStringList{u"-5 -3, 110 56: #121214 round 8 edge 1 #27272a"_s};
}

void tst_Looks::looksAsItDid()
{
    QFETCH(QString, qml);
    QFETCH(QStringList, look);
    Scene scene(u"property bool shows: true\n"_s + qml);
    QStringList lines;
    for (const QQuickItem *item : scene.view.contentItem()->childItems()) {
        describe(item, QPointF(), 1, lines);
    }
    QCOMPARE(lines.join(u'\n'), look.join(u'\n'));
}

QTEST_MAIN(tst_Looks)
#include "tst_Looks.moc"
