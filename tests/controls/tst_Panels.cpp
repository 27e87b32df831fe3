// What shows and does nothing itself: scrolling regions, cards, bars, spinners, the marks of the window, symbols.

#include "controls/Scene.h"
#include "controls/SymbolTable.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace quillmere;
using quillmere::testing::Scene;

class tst_Panels : public QObject {
    Q_OBJECT

private slots:
    void scrollsByTheWheel();
    void scrollsByTheTouchpadPointByPoint();
    void stopsAtItsEnds();
    void scrollsByKeysFromWhateverHasTheFocusInside();
    void showsWhatTheKeyboardComesTo_data();
    void showsWhatTheKeyboardComesTo();
    void isWalkedThroughInReadingOrder_data();
    void isWalkedThroughInReadingOrder();
    void staysWhereItIsUnderThePointer();
    void takesTheFocusOnlyWhereThereIsSomethingToScroll();
    void showsItsBarWhileThePointerIsInside();
    void scrollsByDraggingItsBar();
    void scrollsAListOfCardsBetweenItsMargins();
    void scrollsAGridByKeysWhoseCardsTakeNone();
    void turnsWhileItIsSeen();
    void standsStillWhereThereAreNoAnimations();
    void stopsTurningWhenHidden_data();
    void stopsTurningWhenHidden();
    void stopsTurningWhenTheWindowIsHidden();
    void stopsTurningOutsideOfAWindow();
    void drawsTheNextSpokeAtEachTurn();
    void fillsTheBarByItsValue_data();
    void fillsTheBarByItsValue();
    void tellsAssistiveProgramsTheProgress();
    void showsAnotherStrokeWhileTheCardIsHovered();
    void showsWhyThereIsNothingAndWhatToDo();
    void hasNoButtonWithoutAText();
    void minimizesZoomsAndClosesTheWindow();
    void namesTheMarksOfTheWindow();
    void zoomsByADoubleClickOnTheStrip();
    void hasNoEdgesWhileZoomed();
    void givesAHiddenCellNoColumn();
    void hasAGlyphForEverySymbolInTheSources();
};

namespace {

const auto area = u"ScrollArea { objectName: \"it\"; width: 300; height: 200; contentHeight: 1000\n"
                  "PrimaryButton { objectName: \"inside\"; text: \"A\" } }"_s;

double contentY(const Scene &scene)
{
    return scene.item(u"it"_s)->property("contentY").toDouble();
}

} // namespace

void tst_Panels::scrollsByTheWheel()
{
    Scene scene(area);
    scene.turnWheel(u"it"_s, QPoint(0, -120));
    QCOMPARE(contentY(scene), 72.0);
    scene.turnWheel(u"it"_s, QPoint(0, -240));
    QCOMPARE(contentY(scene), 216.0);
    scene.turnWheel(u"it"_s, QPoint(0, 120));
    QCOMPARE(contentY(scene), 144.0);
}

void tst_Panels::scrollsByTheTouchpadPointByPoint()
{
    Scene scene(area);
    scene.turnWheel(u"it"_s, QPoint(0, -30), QPoint(0, -7));
    QCOMPARE(contentY(scene), 7.0);
}

void tst_Panels::stopsAtItsEnds()
{
    Scene scene(area);
    scene.turnWheel(u"it"_s, QPoint(0, 120));
    QCOMPARE(contentY(scene), 0.0);
    scene.turnWheel(u"it"_s, QPoint(0, -12000));
    QCOMPARE(contentY(scene), 800.0);
}

void tst_Panels::scrollsByKeysFromWhateverHasTheFocusInside()
{
    Scene scene(area);
    scene.item(u"inside"_s)->forceActiveFocus(Qt::TabFocusReason);
    scene.press(Qt::Key_PageDown);
    QCOMPARE(contentY(scene), 180.0);
    scene.press(Qt::Key_End);
    QCOMPARE(contentY(scene), 800.0);
    scene.press(Qt::Key_PageUp);
    QCOMPARE(contentY(scene), 620.0);
    scene.press(Qt::Key_Home);
    QCOMPARE(contentY(scene), 0.0);
}

namespace {

const auto form = u"ScrollArea { objectName: \"it\"; width: 300; height: 200; contentHeight: 1000\n"
                  "Column { spacing: 60; topPadding: 20\n"
                  "Repeater { model: 10; PrimaryButton { height: 40; text: \"A\" } } } }"_s;
const auto list = u"CardList { objectName: \"it\"; width: 300; height: 200; accessibleName: \"Cards\"; model: 10; "
                  u"topMargin: 20; spacing: 60\n"
                  "delegate: Item { width: 300; height: 40; PrimaryButton { height: 40; text: \"A\" } } }"_s;

int buttonsBelow(const QQuickItem *item)
{
    int buttons = item->activeFocusOnTab() && item->property("text").isValid() ? 1 : 0;
    for (const auto *child : item->childItems()) {
        buttons += buttonsBelow(child);
    }
    return buttons;
}

// Where the item with the focus stands in what can be seen of the region.
QRectF focusedPlace(const Scene &scene)
{
    return scene.view.activeFocusItem()->mapRectToItem(
        scene.item(u"it"_s), scene.view.activeFocusItem()->boundingRect());
}

} // namespace

void tst_Panels::showsWhatTheKeyboardComesTo_data()
{
    QTest::addColumn<QString>("qml");
    QTest::newRow("in an area") << form;
    QTest::newRow("in a list") << list;
}

void tst_Panels::showsWhatTheKeyboardComesTo()
{
    QFETCH(QString, qml);
    Scene scene(qml);
    // Of a list there is no more than what shows and the next ones.
    QVERIFY(buttonsBelow(scene.item(u"it"_s)) >= 4);
    scene.press(Qt::Key_Tab); // the region
    scene.press(Qt::Key_Tab);
    scene.press(Qt::Key_Tab);
    const double start = contentY(scene);
    QCOMPARE(focusedPlace(scene).top(), 120.0); // it was in sight
    scene.press(Qt::Key_Tab);
    QCOMPARE(focusedPlace(scene).bottom(), 200.0 - 12);
    QCOMPARE(contentY(scene), start + 72);
    scene.press(Qt::Key_Tab, Qt::ShiftModifier);
    QCOMPARE(contentY(scene), start + 72);
    scene.press(Qt::Key_Tab, Qt::ShiftModifier);
    QCOMPARE(focusedPlace(scene).top(), 12.0);
}

void tst_Panels::isWalkedThroughInReadingOrder_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QStringList>("places");
    QTest::newRow("forward") << Qt::Key_Tab << QStringList{u"first"_s, u"beside"_s, u"below"_s};
    QTest::newRow("back") << Qt::Key_Backtab << QStringList{u"below"_s, u"beside"_s, u"first"_s};
}

void tst_Panels::isWalkedThroughInReadingOrder()
{
    QFETCH(Qt::Key, key);
    QFETCH(QStringList, places);
    Scene scene(u"Item {\n"
                "id: lines\n"
                "PlainField { objectName: \"below\"; label: \"C\"; y: 100; width: 50 }\n"
                "PlainField { objectName: \"beside\"; label: \"B\"; x: 100; width: 50 }\n"
                "PlainField { objectName: \"first\"; label: \"A\"; width: 50 }\n"
                "ReadingOrder { item: lines }\n"
                "}"_s);
    for (const QString &place : std::as_const(places)) {
        scene.press(key);
        QVERIFY2(scene.item(place)->hasActiveFocus(), qPrintable(place));
    }
}

void tst_Panels::staysWhereItIsUnderThePointer()
{
    Scene scene(form);
    scene.turnWheel(u"it"_s, QPoint(0, -50));
    QCOMPARE(contentY(scene), 30.0);
    QTest::mouseClick(&scene.view, Qt::LeftButton, {}, QPoint(10, 5)); // the lower part of the first button
    QVERIFY(scene.view.activeFocusItem()->property("text").isValid());
    QCOMPARE(contentY(scene), 30.0);
}

void tst_Panels::takesTheFocusOnlyWhereThereIsSomethingToScroll()
{
    Scene scene(u"ScrollArea { objectName: \"short\"; width: 300; height: 200; contentHeight: 200 }\n"
                "ScrollArea { objectName: \"it\"; y: 300; width: 300; height: 200; contentHeight: 201 }"_s);
    QVERIFY(!scene.item(u"short"_s)->activeFocusOnTab());
    QVERIFY(scene.item(u"it"_s)->activeFocusOnTab());
    scene.press(Qt::Key_Tab);
    QVERIFY(scene.item(u"it"_s)->hasActiveFocus());
    scene.press(Qt::Key_End);
    QCOMPARE(contentY(scene), 1.0);
}

namespace {

QQuickItem *barOf(const QQuickItem *view)
{
    for (auto *child : view->childItems()) {
        if (child->property("minimumSize").isValid()) {
            return child;
        }
    }
    qFatal("No scroll bar.");
}

} // namespace

void tst_Panels::showsItsBarWhileThePointerIsInside()
{
    Scene scene(area);
    const auto *bar = barOf(scene.item(u"it"_s));
    QCOMPARE(bar->opacity(), 0.0);
    QTest::mouseMove(&scene.view, QPoint(150, 100));
    QTRY_COMPARE(bar->opacity(), 1.0);
    QTest::mouseMove(&scene.view, QPoint(700, 500));
    QTRY_COMPARE(bar->opacity(), 0.0);
}

void tst_Panels::scrollsByDraggingItsBar()
{
    Scene scene(area);
    QTest::mouseMove(&scene.view, QPoint(294, 10));
    QTest::mousePress(&scene.view, Qt::LeftButton, {}, QPoint(294, 10));
    QTest::mouseMove(&scene.view, QPoint(294, 60));
    QTest::mouseMove(&scene.view, QPoint(294, 110));
    QTest::mouseRelease(&scene.view, Qt::LeftButton, {}, QPoint(294, 110));
    QVERIFY(contentY(scene) > 300);
}

void tst_Panels::scrollsAListOfCardsBetweenItsMargins()
{
    Scene scene(u"CardList { objectName: \"it\"; accessibleName: \"Jobs\"; width: 300; height: 200; model: 10\n"
                "delegate: Card { x: 24; width: 252; height: 50 } }"_s);
    QTRY_COMPARE(contentY(scene), -24.0);
    scene.turnWheel(u"it"_s, QPoint(0, -120));
    QCOMPARE(contentY(scene), 48.0);
    scene.turnWheel(u"it"_s, QPoint(0, -120000));
    // Ten cards with twelve points between them, and air below the last.
    QCOMPARE(contentY(scene), 10 * 50 + 9 * 12 + 24 - 200.0);
    scene.turnWheel(u"it"_s, QPoint(0, 120000));
    QCOMPARE(contentY(scene), -24.0);
    QCOMPARE(scene.accessible(u"it"_s)->role(), QAccessible::List);
    QCOMPARE(scene.accessible(u"it"_s)->text(QAccessible::Name), u"Jobs"_s);
}

void tst_Panels::scrollsAGridByKeysWhoseCardsTakeNone()
{
    Scene scene(u"CardGrid { id: grid; objectName: \"it\"; width: 500; height: 300; accessibleName: \"Cards\"\n"
                "columns: 2; cardHeight: 100; stepsThroughCards: false; model: 20\n"
                "delegate: Card { width: grid.cardWidth; height: grid.cardHeight } }"_s);
    QTRY_COMPARE(contentY(scene), -24.0);
    scene.press(Qt::Key_Tab);
    QVERIFY(scene.item(u"it"_s)->hasActiveFocus());
    scene.press(Qt::Key_PageDown);
    QVERIFY(contentY(scene) > -24.0);
}

namespace {

const auto spinner = u"Item { objectName: \"around\"; Spinner { objectName: \"it\" } }"_s;

bool turns(const Scene &scene)
{
    return scene.item(u"it"_s)->property("turning").toBool();
}

} // namespace

void tst_Panels::turnsWhileItIsSeen()
{
    Scene scene(spinner, true);
    QVERIFY(turns(scene));
    QCOMPARE(scene.item(u"it"_s)->size(), QSizeF(32, 32));
    QCOMPARE(scene.accessible(u"it"_s)->text(QAccessible::Name), u"In progress"_s);
}

void tst_Panels::standsStillWhereThereAreNoAnimations()
{
    Scene scene(spinner);
    QVERIFY(!turns(scene));
}

void tst_Panels::stopsTurningWhenHidden_data()
{
    QTest::addColumn<QString>("hidden");
    QTest::newRow("itself") << u"it"_s;
    QTest::newRow("what it stands in") << u"around"_s;
}

void tst_Panels::stopsTurningWhenHidden()
{
    QFETCH(QString, hidden);
    Scene scene(spinner, true);
    QSignalSpy changes(scene.item(u"it"_s), SIGNAL(turningChanged()));
    scene.item(hidden)->setVisible(false);
    QVERIFY(!turns(scene));
    QCOMPARE(changes.count(), 1);
    scene.item(hidden)->setVisible(true);
    QVERIFY(turns(scene));
}

void tst_Panels::stopsTurningWhenTheWindowIsHidden()
{
    Scene scene(spinner, true);
    scene.view.hide();
    QTRY_VERIFY(!turns(scene));
    scene.view.show();
    QTRY_VERIFY(turns(scene));
}

void tst_Panels::stopsTurningOutsideOfAWindow()
{
    Scene scene(spinner, true);
    auto *it = scene.item(u"it"_s);
    auto *parent = it->parentItem();
    it->setParentItem(nullptr);
    QVERIFY(!turns(scene));
    it->setParentItem(parent);
    QVERIFY(turns(scene));
}

void tst_Panels::drawsTheNextSpokeAtEachTurn()
{
    Scene scene(spinner, true);
    const auto picture = [&] { return scene.view.grabWindow().copy(0, 0, 32, 32); };
    const QImage before = picture();
    QTRY_VERIFY(picture() != before);
}

void tst_Panels::fillsTheBarByItsValue_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("width");
    QTest::newRow("nothing") << 0.0 << 0.0;
    QTest::newRow("two thirds") << 0.67 << 67.0;
    QTest::newRow("all") << 1.0 << 100.0;
    QTest::newRow("beyond the end") << 12.47 << 100.0;
    QTest::newRow("before the beginning") << -0.5 << 0.0;
}

void tst_Panels::fillsTheBarByItsValue()
{
    QFETCH(double, value);
    QFETCH(double, width);
    Scene scene(u"ProgressBar { objectName: \"it\"; width: 100; value: %1 }"_s.arg(value));
    QCOMPARE(scene.item(u"it"_s)->height(), 6.0);
    QCOMPARE(scene.item(u"it"_s)->childItems().constFirst()->width(), width);
}

void tst_Panels::tellsAssistiveProgramsTheProgress()
{
    Scene scene(u"ProgressBar { objectName: \"it\"; width: 100; value: 0.25 }"_s);
    auto *it = scene.accessible(u"it"_s);
    QCOMPARE(it->role(), QAccessible::ProgressBar);
    QCOMPARE(it->text(QAccessible::Name), u"Progress"_s);
    QCOMPARE(it->text(QAccessible::Description), u"25 %"_s);
}

void tst_Panels::showsAnotherStrokeWhileTheCardIsHovered()
{
    Scene scene(u"Card { objectName: \"it\"; width: 100; height: 100; hoverStrokeColor: Color.green }"_s);
    const auto stroke = [&] { return scene.view.grabWindow().pixelColor(50, 0); };
    QCOMPARE(stroke(), QColor(0x27, 0x27, 0x2A));
    scene.hover(u"it"_s);
    QCOMPARE(stroke(), QColor(0x32, 0xD7, 0x4B));
}

void tst_Panels::showsWhyThereIsNothingAndWhatToDo()
{
    Scene scene(
        u"property int clicks: 0\n"
        "EmptyState { objectName: \"it\"; width: 400; height: 400; symbol: \"terminal\"; title: \"No Training Jobs\"\n"
        "text: \"Start\"; buttonIcon: \"sparkles\"; buttonText: \"Start Training\"; onButtonClicked: ++root.clicks }"_s);
    scene.press(Qt::Key_Tab);
    scene.press(Qt::Key_Return);
    QCOMPARE(scene.count(u"clicks"_s), 1);
}

void tst_Panels::hasNoButtonWithoutAText()
{
    Scene scene(
        u"EmptyState { objectName: \"it\"; width: 400; height: 400; symbol: \"cpu\"; title: \"No Models Found\"; text: \"Try\" }"_s);
    scene.press(Qt::Key_Tab);
    for (const auto *child : scene.item(u"it"_s)->findChildren<QQuickItem *>()) {
        QVERIFY(!child->hasActiveFocus());
    }
}

namespace {

// The marks belong to a window of the application's own kind.
const auto framed = u"Window { id: own; objectName: \"own\"; width: 800; height: 600; visible: true; flags: Qt.Window "
                    u"| Qt.FramelessWindowHint\n"
                    "TitleStrip { objectName: \"strip\"; width: own.width; window: own }\n"
                    "ResizeEdges { objectName: \"edges\"; anchors.fill: parent; window: own } }"_s;

QQuickWindow &own(const Scene &scene)
{
    auto *window = qobject_cast<QQuickWindow *>(scene.object(u"own"_s));
    if (!QTest::qWaitForWindowExposed(window)) {
        qFatal("The window did not show.");
    }
    return *window;
}

void clickMark(QQuickWindow &window, int fromTheRight)
{
    QTest::mouseClick(&window, Qt::LeftButton, {}, QPoint(window.width() - 6 - 20 - 40 * fromTheRight, 20));
}

} // namespace

void tst_Panels::minimizesZoomsAndClosesTheWindow()
{
    Scene scene(framed);
    QQuickWindow &window = own(scene);
    clickMark(window, 1);
    QTRY_COMPARE(window.visibility(), QWindow::Maximized);
    clickMark(window, 1);
    QTRY_COMPARE(window.visibility(), QWindow::Windowed);
    clickMark(window, 2);
    QTRY_COMPARE(window.visibility(), QWindow::Minimized);
    window.showNormal();
    clickMark(window, 0);
    QTRY_VERIFY(!window.isVisible());
}

void tst_Panels::namesTheMarksOfTheWindow()
{
    Scene scene(framed);
    own(scene);
    QStringList names;
    for (const auto *item : scene.item(u"strip"_s)->findChildren<QQuickItem *>()) {
        if (item->property("accessibleName").isValid()) {
            names.append(item->property("accessibleName").toString());
            // The tabulator goes through the window's content only.
            QVERIFY(!item->activeFocusOnTab());
        }
    }
    QCOMPARE(names, QStringList({u"Minimize"_s, u"Zoom"_s, u"Close"_s}));
}

void tst_Panels::zoomsByADoubleClickOnTheStrip()
{
    Scene scene(framed);
    QQuickWindow &window = own(scene);
    QTest::mouseDClick(&window, Qt::LeftButton, {}, QPoint(300, 20));
    QTRY_COMPARE(window.visibility(), QWindow::Maximized);
}

void tst_Panels::hasNoEdgesWhileZoomed()
{
    Scene scene(framed);
    QQuickWindow &window = own(scene);
    QVERIFY(scene.item(u"edges"_s)->isVisible());
    window.showMaximized();
    QTRY_VERIFY(!scene.item(u"edges"_s)->isVisible());
}

void tst_Panels::givesAHiddenCellNoColumn()
{
    Scene scene(u"property bool shows: true\n"
                "FlexibleGrid { objectName: \"it\"; width: 310; minimumColumnWidth: 90; spacing: 10\n"
                "Card { objectName: \"first\"; height: 20; visible: root.shows }\n"
                "Repeater { model: 3; Card { height: 20 } } }"_s);
    const auto places = [&] {
        QStringList places;
        for (const auto *cell : scene.item(u"it"_s)->childItems()) {
            if (cell->isVisible() && cell->height() > 0) {
                places.append(u"%1 %2 %3"_s.arg(cell->x()).arg(cell->y()).arg(cell->width()));
            }
        }
        return places;
    };
    QTRY_COMPARE(places(), (QStringList{u"0 0 97"_s, u"107 0 96"_s, u"213 0 97"_s, u"0 30 97"_s}));
    scene.view.rootObject()->setProperty("shows", false);
    QTRY_COMPARE(places(), (QStringList{u"0 0 97"_s, u"107 0 96"_s, u"213 0 97"_s}));
    scene.item(u"it"_s)->setWidth(200);
    QTRY_COMPARE(places(), (QStringList{u"0 0 95"_s, u"105 0 95"_s, u"0 30 95"_s}));
    scene.view.rootObject()->setProperty("shows", true);
    QTRY_COMPARE(places(), (QStringList{u"0 0 95"_s, u"105 0 95"_s, u"0 30 95"_s, u"105 30 95"_s}));
}

void tst_Panels::hasAGlyphForEverySymbolInTheSources()
{
    // In QML what stands behind a name, symbol or icon; elsewhere a text that begins like a symbol of several words.
    static const QRegularExpression property(uR"(\b(?:name|symbol|\w*[iI]con):\s*([^\n]*))"_s);
    static const QRegularExpression text(uR"RX("([a-z][a-z0-9]*(?:\.[a-z0-9]+)*)")RX"_s);
    static const QRegularExpression words(
        uR"RX("((?:arrow|bubble|chart|checkmark|chevron|cylinder|doc|exclamationmark|folder|link|person|play|plus|rectangle|server|slider|square|star|stop|text|xmark)\.[a-z0-9.]+)")RX"_s);
    int found = 0;
    for (QDirIterator files(
             QStringLiteral(SOURCES), {u"*.qml"_s, u"*.cpp"_s, u"*.h"_s}, QDir::Files, QDirIterator::Subdirectories);
         files.hasNext();) {
        QFile file(files.next());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString source = QString::fromUtf8(file.readAll());
        QStringList names;
        if (file.fileName().endsWith(u".qml"_s)) {
            for (auto lines = property.globalMatch(source); lines.hasNext();) {
                const QString line = lines.next().captured(1);
                for (auto matches = text.globalMatch(line); matches.hasNext();) {
                    names.append(matches.next().captured(1));
                }
            }
        }
        for (auto matches = words.globalMatch(source); matches.hasNext();) {
            names.append(matches.next().captured(1));
        }
        for (const QString &name : std::as_const(names)) {
            ++found;
            QVERIFY2(!SymbolTable::glyph(name).isEmpty(), qPrintable(file.fileName() + u": "_s + name));
        }
    }
    QVERIFY(found > 20);
}

QTEST_MAIN(tst_Panels)
#include "tst_Panels.moc"
