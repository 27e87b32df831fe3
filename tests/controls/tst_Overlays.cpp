#include "controls/Scene.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;
using quillmere::testing::Scene;

namespace {

const auto pressAction = QAccessibleActionInterface::pressAction();

} // namespace

class tst_Overlays : public QObject {
    Q_OBJECT

private slots:
    void showsASheetWhileItsFlagIsSet();
    void makesTheContentOfASheetAnewAtEachOpening();
    void closesTheTopmostSheetByEscape();
    void letsTheSearchInASheetHaveEscapeFirst();
    void keepsInputFromWhatASheetCovers();
    void keepsTheTabulatorInsideASheet();
    void givesTheFocusBackWhenASheetCloses();
    void closesByTheMarkOfItsHost();
    void fadesASheetOverTheStandardTime();
    void answersAnAlertByItsButtons();
    void answersAnAlertByReturnAndEscapeWhereverTheFocusIs();
    void asksOnceMoreAfterAnAnswer();
    void hasNothingForEscapeWhereAnAlertHasOneButton();
    void ignoresAKeyThatIsHeldFromBeforeTheAlert();
    void keepsAnAlertAboveASheetThatOpensLater();
    void leavesTheMarksOfTheWindowFreeUnderAnAlert();
    void readsAnAlertOut();
    void opensAndClosesAPopoverByItsButton();
    void closesAPopoverByAClickOutsideOrEscape();
    void tellsThatAPopoverBeginsToClose();
    void keepsAPopoverInsideTheWindow();
    void goesThroughAMenuByKeys();
    void choosesFromAMenuByMouse();
    void closesAMenuByASecondPressOfItsButton();
    void fadesAMenuOut();
    void skipsSectionsDividersAndDisabledRows();
    void namesTheRowsOfAMenuForAssistivePrograms();
};

namespace {

const auto twoSheets =
    u"property bool first: true\nproperty bool second: false\nproperty int clicks: 0\n"
    "PrimaryButton { objectName: \"below\"; text: \"Below\"; onClicked: ++root.clicks }\n"
    "Sheet { objectName: \"a\"; title: \"A\"; visible: root.first; contentWidth: 500; contentHeight: 400; onClosed: "
    "root.first = false\n"
    "content: Item { SecondaryButton { objectName: \"inside\"; focus: true; text: \"Inside\"; onClicked: root.second = "
    "true } } }\n"
    "Sheet { objectName: \"b\"; title: \"B\"; visible: root.second; contentWidth: 300; contentHeight: 200; onClosed: root.second = false }"_s;

const auto alert =
    u"property bool asks: true\nproperty var answers: []\n"
    "PrimaryButton { objectName: \"below\"; text: \"Below\"; onClicked: root.answers = root.answers.concat(-1) }\n"
    "AlertPanel { objectName: \"alert\"; title: \"Update Available\"; text: \"Version 2.0.0 & more\"\n"
    "visible: root.asks; buttons: [\"Download\", \"Later\", \"Never\"]; onAnswered: index => root.answers = root.answers.concat(index) }"_s;

QList<int> answers(const Scene &scene)
{
    QList<int> result;
    for (const QVariant &answer : scene.value(u"answers"_s).toList()) {
        result.append(answer.toInt());
    }
    return result;
}

QQuickItem *button(const Scene &scene, const QString &text)
{
    for (auto *item : scene.view.contentItem()->findChildren<QQuickItem *>()) {
        if (item->property("text").toString() == text && item->metaObject()->indexOfMethod("press()") >= 0) {
            return item;
        }
    }
    // The items of a popup hang below the window's overlay by their visual parents.
    QList<QQuickItem *> open{scene.view.contentItem()};
    while (!open.isEmpty()) {
        auto *item = open.takeLast();
        if (item->property("text").toString() == text && item->metaObject()->indexOfMethod("press()") >= 0) {
            return item;
        }
        open.append(item->childItems());
    }
    qFatal("There is no button %s.", qPrintable(text));
}

} // namespace

void tst_Overlays::showsASheetWhileItsFlagIsSet()
{
    Scene scene(twoSheets);
    QVERIFY(scene.object(u"a"_s)->property("visible").toBool());
    QCOMPARE(scene.object(u"a"_s)->property("width").toDouble(), 500.0);
    QCOMPARE(scene.object(u"a"_s)->property("height").toDouble(), 400.0);
    scene.view.rootObject()->setProperty("first", false);
    QVERIFY(!scene.object(u"a"_s)->property("visible").toBool());
    scene.view.rootObject()->setProperty("first", true);
    QVERIFY(scene.object(u"a"_s)->property("visible").toBool());
}

void tst_Overlays::makesTheContentOfASheetAnewAtEachOpening()
{
    Scene scene(u"property bool shows: true\nproperty int made: 0\nproperty int gone: 0\n"
                "Sheet { title: \"A\"; visible: root.shows; contentWidth: 300; contentHeight: 200\n"
                "content: Item { Component.onCompleted: ++root.made; Component.onDestruction: ++root.gone } }"_s);
    QCOMPARE(scene.count(u"made"_s), 1);
    scene.view.rootObject()->setProperty("shows", false);
    QTRY_COMPARE(scene.count(u"gone"_s), 1);
    scene.view.rootObject()->setProperty("shows", true);
    QCOMPARE(scene.count(u"made"_s), 2);
}

void tst_Overlays::closesTheTopmostSheetByEscape()
{
    Scene scene(twoSheets);
    scene.view.rootObject()->setProperty("second", true);
    scene.press(Qt::Key_Escape);
    QVERIFY(!scene.value(u"second"_s).toBool());
    QVERIFY(scene.value(u"first"_s).toBool());
    scene.press(Qt::Key_Escape);
    QVERIFY(!scene.value(u"first"_s).toBool());
    // The flag opens it again: closing it did not cut the binding.
    scene.view.rootObject()->setProperty("first", true);
    QVERIFY(scene.object(u"a"_s)->property("visible").toBool());
}

void tst_Overlays::letsTheSearchInASheetHaveEscapeFirst()
{
    Scene scene(
        u"property bool shows: true\n"
        "Sheet { title: \"A\"; visible: root.shows; contentWidth: 300; contentHeight: 200; onClosed: root.shows = "
        "false\n"
        "content: FocusScope { SearchBox { placeholderText: \"Search\"; Component.onCompleted: field.forceActiveFocus() } } }"_s);
    scene.type(u"a"_s);
    scene.press(Qt::Key_Escape);
    QVERIFY(scene.value(u"shows"_s).toBool());
    scene.press(Qt::Key_Escape);
    QVERIFY(!scene.value(u"shows"_s).toBool());
}

void tst_Overlays::keepsInputFromWhatASheetCovers()
{
    Scene scene(twoSheets);
    scene.click(u"below"_s);
    QCOMPARE(scene.count(u"clicks"_s), 0);
    QVERIFY(scene.value(u"first"_s).toBool());
    scene.view.rootObject()->setProperty("first", false);
    scene.click(u"below"_s);
    QCOMPARE(scene.count(u"clicks"_s), 1);
}

void tst_Overlays::keepsTheTabulatorInsideASheet()
{
    Scene scene(twoSheets);
    for (int i = 0; i < 4; ++i) {
        scene.press(Qt::Key_Tab);
        QVERIFY(!scene.item(u"below"_s)->hasActiveFocus());
    }
}

void tst_Overlays::givesTheFocusBackWhenASheetCloses()
{
    Scene scene(
        u"property bool shows: false\n"
        "PrimaryButton { objectName: \"opens\"; text: \"Open\"; onClicked: root.shows = true }\n"
        "Sheet { title: \"A\"; visible: root.shows; contentWidth: 300; contentHeight: 200; onClosed: root.shows = false }"_s);
    scene.press(Qt::Key_Tab);
    QVERIFY(scene.item(u"opens"_s)->hasActiveFocus());
    scene.press(Qt::Key_Return);
    QVERIFY(scene.value(u"shows"_s).toBool());
    QVERIFY(!scene.item(u"opens"_s)->hasActiveFocus());
    scene.press(Qt::Key_Escape);
    QVERIFY(scene.item(u"opens"_s)->hasActiveFocus());
}

void tst_Overlays::closesByTheMarkOfItsHost()
{
    Scene scene(
        u"property bool shows: true\n"
        "Sheet { title: \"A\"; visible: root.shows; hasCloseMark: true; contentWidth: 300; contentHeight: 200; onClosed: root.shows = false }"_s);
    // 12 points off the top right corner of a sheet in the middle of the window.
    QTest::mouseClick(&scene.view, Qt::LeftButton, {}, QPoint(550 - 12 - 10, 200 + 12 + 10));
    QVERIFY(!scene.value(u"shows"_s).toBool());
}

void tst_Overlays::fadesASheetOverTheStandardTime()
{
    Scene scene(twoSheets, true);
    auto *sheet = scene.object(u"a"_s);
    QTRY_COMPARE(sheet->property("opacity").toDouble(), 1.0);
    scene.view.rootObject()->setProperty("first", false);
    // It is on its way out, and still there.
    QVERIFY(sheet->property("visible").toBool());
    QTRY_VERIFY(!sheet->property("visible").toBool());
}

void tst_Overlays::answersAnAlertByItsButtons()
{
    Scene scene(alert);
    for (const auto &[text, index] :
        {std::pair(u"Download"_s, 0), std::pair(u"Later"_s, 1), std::pair(u"Never"_s, 2)}) {
        QTest::mouseClick(&scene.view, Qt::LeftButton, {}, scene.middle(button(scene, text)));
        QCOMPARE(answers(scene).constLast(), index);
    }
    QCOMPARE(answers(scene).size(), 3);
}

void tst_Overlays::answersAnAlertByReturnAndEscapeWhereverTheFocusIs()
{
    Scene scene(alert);
    scene.press(Qt::Key_Return);
    QCOMPARE(answers(scene), QList<int>({0}));
    scene.press(Qt::Key_Escape);
    QCOMPARE(answers(scene), QList<int>({0, 1}));
    button(scene, u"Never"_s)->forceActiveFocus(Qt::TabFocusReason);
    scene.press(Qt::Key_Enter);
    QCOMPARE(answers(scene), QList<int>({0, 1, 0}));
    scene.press(Qt::Key_Escape);
    QCOMPARE(answers(scene), QList<int>({0, 1, 0, 1}));
    scene.press(Qt::Key_Space);
    QCOMPARE(answers(scene), QList<int>({0, 1, 0, 1, 2}));
    scene.click(u"below"_s);
    QCOMPARE(answers(scene), QList<int>({0, 1, 0, 1, 2}));
}

void tst_Overlays::asksOnceMoreAfterAnAnswer()
{
    Scene scene(alert);
    scene.view.rootObject()->setProperty("asks", false);
    scene.press(Qt::Key_Return);
    QCOMPARE(answers(scene), QList<int>());
    scene.view.rootObject()->setProperty("asks", true);
    scene.press(Qt::Key_Return);
    QCOMPARE(answers(scene), QList<int>({0}));
}

void tst_Overlays::hasNothingForEscapeWhereAnAlertHasOneButton()
{
    Scene scene(
        u"property var answers: []\n"
        "AlertPanel { objectName: \"alert\"; visible: true; title: \"A\"; text: \"B\"; buttons: [\"OK\"]; onAnswered: index => root.answers = root.answers.concat(index) }"_s);
    scene.press(Qt::Key_Escape);
    QCOMPARE(answers(scene), QList<int>());
    QVERIFY(scene.object(u"alert"_s)->property("visible").toBool());
    scene.press(Qt::Key_Return);
    QCOMPARE(answers(scene), QList<int>({0}));
}

void tst_Overlays::ignoresAKeyThatIsHeldFromBeforeTheAlert()
{
    Scene scene(alert);
    QTest::simulateEvent(&scene.view, true, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
    QCOMPARE(answers(scene), QList<int>());
}

void tst_Overlays::keepsAnAlertAboveASheetThatOpensLater()
{
    Scene scene(alert
        + u"\nproperty bool sheet: false\nSheet { title: \"S\"; visible: root.sheet; contentWidth: 700; contentHeight: 500; onClosed: root.sheet = false }"_s);
    scene.view.rootObject()->setProperty("sheet", true);
    QTest::mouseClick(&scene.view, Qt::LeftButton, {}, scene.middle(button(scene, u"Later"_s)));
    QCOMPARE(answers(scene), QList<int>({1}));
    scene.press(Qt::Key_Escape);
    QCOMPARE(answers(scene), QList<int>({1, 1}));
    QVERIFY(scene.value(u"sheet"_s).toBool());
}

void tst_Overlays::leavesTheMarksOfTheWindowFreeUnderAnAlert()
{
    Scene scene(u"Window { id: own; objectName: \"own\"; width: 800; height: 600; visible: true\n"
                "AlertPanel { visible: true; title: \"A\"; text: \"B\"; buttons: [\"OK\"] }\n"
                "TitleStrip { width: own.width; window: own } }"_s);
    auto *window = qobject_cast<QQuickWindow *>(scene.object(u"own"_s));
    QVERIFY(QTest::qWaitForWindowExposed(window));
    // The mark at the far right closes the window.
    QTest::mouseClick(window, Qt::LeftButton, {}, QPoint(800 - 6 - 20, 20));
    QTRY_VERIFY(!window->isVisible());
}

void tst_Overlays::readsAnAlertOut()
{
    Scene scene(alert);
    auto *panel = scene.object(u"alert"_s)->property("contentItem").value<QQuickItem *>();
    auto *it = QAccessible::queryAccessibleInterface(panel);
    QCOMPARE(it->role(), QAccessible::AlertMessage);
    QCOMPARE(it->text(QAccessible::Name), u"Update Available"_s);
    QCOMPARE(it->text(QAccessible::Description), u"Version 2.0.0 & more"_s);
    auto *later = QAccessible::queryAccessibleInterface(button(scene, u"Later"_s));
    QCOMPARE(later->role(), QAccessible::Button);
    later->actionInterface()->doAction(pressAction);
    QCOMPARE(answers(scene), QList<int>({1}));
}

namespace {

const auto popover =
    u"property bool shows: false\n"
    "IconButton { objectName: \"button\"; x: 400; y: 100; symbol: \"cpu\"; label: \"Monitor\"; onClicked: root.shows = "
    "!root.shows\n"
    "Popover { objectName: \"popover\"; visible: root.shows; contentWidth: 320; contentHeight: 280; onDismissed: root.shows = false } }"_s;

} // namespace

void tst_Overlays::opensAndClosesAPopoverByItsButton()
{
    for (const bool animations : {false, true}) {
        Scene scene(popover, animations);
        scene.click(u"button"_s);
        QTRY_VERIFY(scene.object(u"popover"_s)->property("opened").toBool());
        scene.click(u"button"_s);
        QVERIFY(!scene.value(u"shows"_s).toBool());
        QTRY_VERIFY(!scene.object(u"popover"_s)->property("visible").toBool());
        QVERIFY(!scene.value(u"shows"_s).toBool());
        scene.click(u"button"_s);
        QTRY_VERIFY(scene.object(u"popover"_s)->property("opened").toBool());
    }
}

void tst_Overlays::closesAPopoverByAClickOutsideOrEscape()
{
    Scene scene(popover);
    scene.click(u"button"_s);
    QTest::mouseClick(&scene.view, Qt::LeftButton, {}, QPoint(20, 500));
    QVERIFY(!scene.value(u"shows"_s).toBool());
    QVERIFY(!scene.object(u"popover"_s)->property("visible").toBool());
    scene.click(u"button"_s);
    QVERIFY(scene.object(u"popover"_s)->property("visible").toBool());
    // Inside it nothing closes.
    QTest::mouseClick(&scene.view, Qt::LeftButton, {}, QPoint(412, 250));
    QVERIFY(scene.object(u"popover"_s)->property("visible").toBool());
    scene.press(Qt::Key_Escape);
    QVERIFY(!scene.value(u"shows"_s).toBool());
}

void tst_Overlays::tellsThatAPopoverBeginsToClose()
{
    Scene scene(popover, true);
    scene.click(u"button"_s);
    QTRY_VERIFY(scene.object(u"popover"_s)->property("opened").toBool());
    scene.press(Qt::Key_Escape);
    QVERIFY(!scene.value(u"shows"_s).toBool());
    QVERIFY(scene.object(u"popover"_s)->property("visible").toBool());
}

void tst_Overlays::keepsAPopoverInsideTheWindow()
{
    Scene scene(u"IconButton { objectName: \"button\"; x: 770; y: 10; symbol: \"cpu\"; label: \"Monitor\"\n"
                "Popover { objectName: \"popover\"; visible: true; contentWidth: 320; contentHeight: 280 } }"_s);
    const auto *popup = scene.object(u"popover"_s);
    const double left = 770 + popup->property("x").toDouble();
    QVERIFY(left + popup->property("width").toDouble() <= 800 - 8);
    // Its arrow still points at the middle of the button.
    auto *frame = popup->property("background").value<QQuickItem *>();
    QCOMPARE(left + frame->property("arrowX").toDouble(), 770 + scene.item(u"button"_s)->width() / 2);
}

namespace {

const auto menu =
    u"property string chosen\n"
    "BorderedButton { objectName: \"button\"; x: 50; y: 50; text: \"Add Node\"; onClicked: menu.toggle()\n"
    "Menu { id: menu; objectName: \"menu\"\n"
    "MenuSection { text: \"Tools\" }\n"
    "MenuItem { objectName: \"search\"; symbol: \"magnifyingglass\"; text: \"Search\"; onTriggered: root.chosen = text "
    "}\n"
    "MenuItem { objectName: \"off\"; enabled: false; text: \"Off\"; onTriggered: root.chosen = text }\n"
    "MenuDivider {}\n"
    "MenuItem { objectName: \"call\"; text: \"API Call\"; onTriggered: root.chosen = text } } }"_s;

} // namespace

void tst_Overlays::goesThroughAMenuByKeys()
{
    Scene scene(menu);
    scene.press(Qt::Key_Tab);
    scene.press(Qt::Key_Space);
    QVERIFY(scene.object(u"menu"_s)->property("opened").toBool());
    scene.press(Qt::Key_Down);
    scene.press(Qt::Key_Return);
    QCOMPARE(scene.value(u"chosen"_s).toString(), u"Search"_s);
    QVERIFY(!scene.object(u"menu"_s)->property("visible").toBool());
    scene.press(Qt::Key_Space);
    QVERIFY(scene.object(u"menu"_s)->property("opened").toBool());
    scene.press(Qt::Key_Escape);
    QVERIFY(!scene.object(u"menu"_s)->property("visible").toBool());
    QVERIFY(scene.item(u"button"_s)->hasActiveFocus());
}

void tst_Overlays::choosesFromAMenuByMouse()
{
    Scene scene(menu);
    scene.click(u"button"_s);
    QCOMPARE(scene.item(u"call"_s)->height(), 26.0);
    scene.hover(u"call"_s);
    QVERIFY(scene.item(u"call"_s)->property("highlighted").toBool());
    scene.click(u"call"_s);
    QCOMPARE(scene.value(u"chosen"_s).toString(), u"API Call"_s);
    QVERIFY(!scene.object(u"menu"_s)->property("visible").toBool());
}

void tst_Overlays::closesAMenuByASecondPressOfItsButton()
{
    Scene scene(menu);
    scene.click(u"button"_s);
    QVERIFY(scene.object(u"menu"_s)->property("opened").toBool());
    scene.click(u"button"_s);
    QVERIFY(!scene.object(u"menu"_s)->property("visible").toBool());
}

void tst_Overlays::fadesAMenuOut()
{
    Scene scene(menu, true);
    QObject *popup = scene.object(u"menu"_s);
    scene.click(u"button"_s);
    QTRY_VERIFY(popup->property("opened").toBool());
    const QSignalSpy fading(popup, SIGNAL(opacityChanged()));
    scene.click(u"button"_s);
    QTRY_VERIFY(!popup->property("visible").toBool());
    QVERIFY(!fading.isEmpty());
}

void tst_Overlays::skipsSectionsDividersAndDisabledRows()
{
    Scene scene(menu);
    scene.click(u"button"_s);
    scene.press(Qt::Key_Down);
    QVERIFY(scene.item(u"search"_s)->property("highlighted").toBool());
    scene.press(Qt::Key_Down);
    QVERIFY(scene.item(u"call"_s)->property("highlighted").toBool());
    scene.press(Qt::Key_Up);
    QVERIFY(scene.item(u"search"_s)->property("highlighted").toBool());
}

void tst_Overlays::namesTheRowsOfAMenuForAssistivePrograms()
{
    Scene scene(menu);
    scene.click(u"button"_s);
    auto *it = scene.accessible(u"call"_s);
    QCOMPARE(it->role(), QAccessible::MenuItem);
    QCOMPARE(it->text(QAccessible::Name), u"API Call"_s);
    QVERIFY(scene.doAccessibly(pressAction, u"call"_s));
    QCOMPARE(scene.value(u"chosen"_s).toString(), u"API Call"_s);
    QVERIFY(!scene.object(u"menu"_s)->property("visible").toBool());
    QCOMPARE(scene.accessible(u"off"_s)->text(QAccessible::Description), u"Unavailable"_s);
}

QTEST_MAIN(tst_Overlays)
#include "tst_Overlays.moc"
