#include "controls/Scene.h"

#include <QSignalSpy>

#include <cmath>

using namespace Qt::StringLiterals;
using quillmere::testing::Scene;

namespace {

const auto pressAction = QAccessibleActionInterface::pressAction();
const auto toggleAction = QAccessibleActionInterface::toggleAction();

QString counting(const QString &button)
{
    return u"property int clicks: 0\n"_s + button;
}

bool ringShows(const Scene &scene, const QString &name)
{
    for (const auto *child : scene.item(name)->childItems()) {
        if (QString::fromLatin1(child->metaObject()->className()).startsWith(u"FocusRing"_s)) {
            return child->isVisible();
        }
    }
    qFatal("No focus ring.");
}

} // namespace

class tst_Buttons : public QObject {
    Q_OBJECT

private slots:
    void isPressedByMouseAndKeyboard_data();
    void isPressedByMouseAndKeyboard();
    void showsItsLabelAsItStands();
    void doesNothingWhenReleasedOutside();
    void pressesOnReleaseOfSpaceOnly();
    void doesNotRepeatWhileReturnIsHeld();
    void leavesKeysWithModifiersToOthers();
    void showsFocusOfTheKeyboardOnly();
    void showsNoFocusThatCameAfterTheMouse();
    void isDimmedAndDeafWhenDisabled();
    void isDeafWhenHidden();
    void isDeafAndShowsASpinnerWhenBusy();
    void keepsItsHeightWithASymbolAndWhenBusy();
    void isWholePointsWide_data();
    void isWholePointsWide();
    void dimsWhilePressedAsItsStyleSays_data();
    void dimsWhilePressedAsItsStyleSays();
    void cutsALabelThatDoesNotFit();
    void hasANameARoleAndAnActionForAssistivePrograms();
    void tellsAssistivePrograms_data();
    void tellsAssistivePrograms();
    void marksTheSelectedPill();
    void choosesThePillBesideItByArrowKeys();
    void leavesItsStateToItsOwnerWhenToggled();
    void togglesForAssistivePrograms();
    void hasTheSizesOfASwitch_data();
    void hasTheSizesOfASwitch();
};

void tst_Buttons::isPressedByMouseAndKeyboard_data()
{
    QTest::addColumn<QString>("button");
    QTest::newRow("primary") << u"PrimaryButton { objectName: \"it\"; text: \"A\"; onClicked: ++root.clicks }"_s;
    QTest::newRow("secondary") << u"SecondaryButton { objectName: \"it\"; text: \"A\"; onClicked: ++root.clicks }"_s;
    QTest::newRow("bordered") << u"BorderedButton { objectName: \"it\"; text: \"A\"; onClicked: ++root.clicks }"_s;
    QTest::newRow("prominent") << u"ProminentButton { objectName: \"it\"; text: \"A\"; onClicked: ++root.clicks }"_s;
    QTest::newRow("plain") << u"PlainButton { objectName: \"it\"; text: \"A\"; onClicked: ++root.clicks }"_s;
    QTest::newRow("plain around other content")
        << u"PlainButton { objectName: \"it\"; text: \"A\"; onClicked: ++root.clicks; contentItem: Row { Label { text: \"B\" } } }"_s;
    QTest::newRow("icon")
        << u"IconButton { objectName: \"it\"; symbol: \"trash\"; label: \"A\"; onClicked: ++root.clicks }"_s;
    QTest::newRow("pill") << u"Pill { objectName: \"it\"; text: \"A\"; onClicked: ++root.clicks }"_s;
    QTest::newRow("switch") << u"Switch { objectName: \"it\"; text: \"A\"; onToggled: ++root.clicks }"_s;
}

void tst_Buttons::isPressedByMouseAndKeyboard()
{
    QFETCH(QString, button);
    Scene scene(counting(button));
    scene.click(u"it"_s);
    QCOMPARE(scene.count(u"clicks"_s), 1);
    scene.press(Qt::Key_Space);
    QCOMPARE(scene.count(u"clicks"_s), 2);
    scene.press(Qt::Key_Return);
    QCOMPARE(scene.count(u"clicks"_s), 3);
    scene.press(Qt::Key_Enter);
    QCOMPARE(scene.count(u"clicks"_s), 4);
    QVERIFY(scene.doAccessibly(pressAction, u"it"_s));
    QCOMPARE(scene.count(u"clicks"_s), 5);
}

void tst_Buttons::showsItsLabelAsItStands()
{
    Scene scene(counting(
        u"PrimaryButton { objectName: \"it\"; text: \"Verify & <b>Create</b>\"; onClicked: ++root.clicks }"_s));
    bool shown = false;
    for (const auto *child : scene.item(u"it"_s)->findChildren<QQuickItem *>()) {
        shown = shown
            || (child->property("text").toString() == u"Verify & <b>Create</b>"_s
                && child->property("textFormat").toInt() == Qt::PlainText);
    }
    QVERIFY(shown);
    QCOMPARE(scene.accessible(u"it"_s)->text(QAccessible::Name), u"Verify & <b>Create</b>"_s);
    scene.press(Qt::Key_Space, Qt::AltModifier);
    QCOMPARE(scene.count(u"clicks"_s), 0);
}

void tst_Buttons::doesNothingWhenReleasedOutside()
{
    Scene scene(counting(u"PrimaryButton { objectName: \"it\"; text: \"A\"; onClicked: ++root.clicks }"_s));
    QTest::mousePress(&scene.view, Qt::LeftButton, {}, scene.middle(scene.item(u"it"_s)));
    QVERIFY(scene.item(u"it"_s)->property("pressed").toBool());
    QTest::mouseMove(&scene.view, QPoint(400, 400));
    QVERIFY(!scene.item(u"it"_s)->property("pressed").toBool());
    QTest::mouseRelease(&scene.view, Qt::LeftButton, {}, QPoint(400, 400));
    QCOMPARE(scene.count(u"clicks"_s), 0);
}

void tst_Buttons::pressesOnReleaseOfSpaceOnly()
{
    Scene scene(counting(u"PrimaryButton { objectName: \"it\"; text: \"A\"; onClicked: ++root.clicks }\n"
                         "PrimaryButton { objectName: \"other\"; y: 100; text: \"B\" }"_s));
    scene.item(u"it"_s)->forceActiveFocus();
    QTest::keyPress(&scene.view, Qt::Key_Space);
    QCOMPARE(scene.count(u"clicks"_s), 0);
    QVERIFY(scene.item(u"it"_s)->property("pressed").toBool());
    // The focus goes elsewhere before the key comes up: nothing was pressed.
    scene.item(u"other"_s)->forceActiveFocus();
    QTest::keyRelease(&scene.view, Qt::Key_Space);
    QCOMPARE(scene.count(u"clicks"_s), 0);
    QVERIFY(!scene.item(u"it"_s)->property("pressed").toBool());
}

void tst_Buttons::doesNotRepeatWhileReturnIsHeld()
{
    Scene scene(counting(u"PrimaryButton { objectName: \"it\"; text: \"A\"; onClicked: ++root.clicks }"_s));
    scene.item(u"it"_s)->forceActiveFocus();
    QKeyEvent first(QEvent::KeyPress, Qt::Key_Return, {});
    QKeyEvent again(QEvent::KeyPress, Qt::Key_Return, {}, {}, true);
    QCoreApplication::sendEvent(&scene.view, &first);
    QCoreApplication::sendEvent(&scene.view, &again);
    QCOMPARE(scene.count(u"clicks"_s), 1);
}

void tst_Buttons::leavesKeysWithModifiersToOthers()
{
    Scene scene(counting(u"property int others: 0\nKeys.onReturnPressed: ++others\n"
                         "PrimaryButton { objectName: \"it\"; text: \"A\"; onClicked: ++root.clicks }"_s));
    scene.item(u"it"_s)->forceActiveFocus();
    scene.press(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(scene.count(u"clicks"_s), 0);
    QCOMPARE(scene.count(u"others"_s), 1);
}

void tst_Buttons::showsFocusOfTheKeyboardOnly()
{
    Scene scene(u"PrimaryButton { objectName: \"it\"; text: \"A\" }\n"
                "PrimaryButton { objectName: \"next\"; y: 100; text: \"B\" }"_s);
    scene.click(u"it"_s);
    QVERIFY(scene.item(u"it"_s)->hasActiveFocus());
    QVERIFY(!ringShows(scene, u"it"_s));
    scene.press(Qt::Key_Tab);
    QVERIFY(scene.item(u"next"_s)->hasActiveFocus());
    QVERIFY(ringShows(scene, u"next"_s));
    QVERIFY(!ringShows(scene, u"it"_s));
    QTest::mouseClick(&scene.view, Qt::LeftButton, {}, QPoint(700, 500));
    QVERIFY(scene.item(u"next"_s)->hasActiveFocus());
    QVERIFY(!ringShows(scene, u"next"_s));
}

void tst_Buttons::showsNoFocusThatCameAfterTheMouse()
{
    Scene scene(u"PrimaryButton { objectName: \"it\"; text: \"A\"; onClicked: next.forceActiveFocus() }\n"
                "PrimaryButton { id: next; objectName: \"next\"; y: 100; text: \"B\" }"_s);
    scene.item(u"it"_s)->forceActiveFocus();
    QVERIFY(!ringShows(scene, u"it"_s));
    scene.click(u"it"_s);
    QVERIFY(scene.item(u"next"_s)->hasActiveFocus());
    QVERIFY(!ringShows(scene, u"next"_s));
    // A modifier may be held for the next click.
    scene.press(Qt::Key_Control);
    scene.press(Qt::Key_Shift);
    QVERIFY(!ringShows(scene, u"next"_s));
    scene.press(Qt::Key_Space);
    QVERIFY(ringShows(scene, u"next"_s));
}

void tst_Buttons::isDimmedAndDeafWhenDisabled()
{
    Scene scene(
        counting(u"PrimaryButton { objectName: \"it\"; enabled: false; text: \"A\"; onClicked: ++root.clicks }"_s));
    scene.click(u"it"_s);
    scene.press(Qt::Key_Tab);
    scene.press(Qt::Key_Return);
    scene.doAccessibly(pressAction, u"it"_s);
    QCOMPARE(scene.count(u"clicks"_s), 0);
    QCOMPARE(scene.item(u"it"_s)->opacity(), 0.5);
}

void tst_Buttons::isDeafWhenHidden()
{
    Scene scene(counting(u"PrimaryButton { objectName: \"it\"; text: \"Back\"; onClicked: ++root.clicks }"_s));
    scene.item(u"it"_s)->forceActiveFocus(Qt::TabFocusReason);
    scene.press(Qt::Key_Return);
    QCOMPARE(scene.count(u"clicks"_s), 1);
    scene.item(u"it"_s)->setVisible(false);
    scene.press(Qt::Key_Return);
    scene.press(Qt::Key_Space);
    scene.doAccessibly(pressAction, u"it"_s);
    QCOMPARE(scene.count(u"clicks"_s), 1);
}

void tst_Buttons::isDeafAndShowsASpinnerWhenBusy()
{
    Scene scene(counting(
        u"PrimaryButton { objectName: \"it\"; busy: true; symbol: \"bolt\"; text: \"Start\"; busyText: \"Starting...\"; onClicked: ++root.clicks }"_s));
    scene.click(u"it"_s);
    scene.press(Qt::Key_Space);
    scene.press(Qt::Key_Return);
    scene.doAccessibly(pressAction, u"it"_s);
    QCOMPARE(scene.count(u"clicks"_s), 0);
    QStringList shown;
    bool spins = false;
    for (const auto *child : scene.item(u"it"_s)->findChildren<QQuickItem *>()) {
        if (child->isVisible() && child->property("text").isValid()) {
            shown.append(child->property("text").toString());
        }
        spins = spins || (child->isVisible() && child->property("turning").isValid());
    }
    QVERIFY(spins);
    QVERIFY(shown.contains(u"Starting..."_s));
    QVERIFY(!shown.contains(u"Start"_s));
    QCOMPARE(scene.accessible(u"it"_s)->text(QAccessible::Name), u"Starting..."_s);
    QCOMPARE(scene.item(u"it"_s)->opacity(), 1.0);
}

void tst_Buttons::keepsItsHeightWithASymbolAndWhenBusy()
{
    Scene scene(u"PrimaryButton { objectName: \"it\"; text: \"Continue\" }"_s);
    const double height = scene.item(u"it"_s)->height();
    QVERIFY(height > 16);
    scene.item(u"it"_s)->setProperty("symbol", u"plus"_s);
    QCOMPARE(scene.item(u"it"_s)->height(), height);
    scene.item(u"it"_s)->setProperty("busy", true);
    QCOMPARE(scene.item(u"it"_s)->height(), height);
}

void tst_Buttons::isWholePointsWide_data()
{
    QTest::addColumn<QString>("control");
    QTest::newRow("primary") << u"PrimaryButton { symbol: \"plus\"; "_s;
    QTest::newRow("secondary") << u"SecondaryButton { "_s;
    QTest::newRow("bordered") << u"BorderedButton { "_s;
    QTest::newRow("pill") << u"Pill { "_s;
    QTest::newRow("badge") << u"Badge { tint: \"red\"; "_s;
}

// Or, aligned at its end, it would begin between two of them with a blurred edge.
void tst_Buttons::isWholePointsWide()
{
    QFETCH(QString, control);
    const QString text = u"Mill Willow Ill"_s;
    for (int length = 1; length <= text.size(); ++length) {
        const Scene scene(control + u"objectName: \"it\"; text: \"%1\" }"_s.arg(text.left(length)));
        const double width = scene.item(u"it"_s)->width();
        QCOMPARE(width, std::round(width));
    }
}

void tst_Buttons::dimsWhilePressedAsItsStyleSays_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<double>("pressed");
    QTest::newRow("primary") << u"PrimaryButton"_s << 0.9;
    QTest::newRow("secondary") << u"SecondaryButton"_s << 0.8;
}

void tst_Buttons::dimsWhilePressedAsItsStyleSays()
{
    QFETCH(QString, type);
    QFETCH(double, pressed);
    Scene scene(type + u" { objectName: \"it\"; text: \"A\" }"_s);
    QCOMPARE(scene.item(u"it"_s)->opacity(), 1.0);
    QTest::mousePress(&scene.view, Qt::LeftButton, {}, scene.middle(scene.item(u"it"_s)));
    QCOMPARE(scene.item(u"it"_s)->opacity(), pressed);
    QTest::mouseRelease(&scene.view, Qt::LeftButton, {}, scene.middle(scene.item(u"it"_s)));
    QCOMPARE(scene.item(u"it"_s)->opacity(), 1.0);
}

void tst_Buttons::cutsALabelThatDoesNotFit()
{
    Scene scene(
        u"PrimaryButton { objectName: \"it\"; width: 100; symbol: \"plus\"; text: \"A label of quite some length\" }"_s);
    const QRectF button = scene.item(u"it"_s)->mapRectToScene(scene.item(u"it"_s)->boundingRect());
    bool cut = false;
    for (const auto *child : scene.item(u"it"_s)->findChildren<QQuickItem *>()) {
        if (child->property("truncated").toBool()) {
            cut = true;
            QVERIFY(button.adjusted(15, 0, -15, 0).contains(child->mapRectToScene(child->boundingRect())));
        }
    }
    QVERIFY(cut);
}

void tst_Buttons::hasANameARoleAndAnActionForAssistivePrograms()
{
    Scene scene(u"IconButton { objectName: \"it\"; symbol: \"trash\"; label: \"Delete the file\" }"_s);
    auto *it = scene.accessible(u"it"_s);
    QCOMPARE(it->role(), QAccessible::Button);
    QCOMPARE(it->text(QAccessible::Name), u"Delete the file"_s);
    QVERIFY(it->state().focusable);
    QVERIFY(it->actionInterface()->actionNames().contains(pressAction));
    QCOMPARE(it->childCount(), 0); // the symbol has nothing to say besides
}

void tst_Buttons::tellsAssistivePrograms_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("description");
    QTest::newRow("nothing at rest") << QString() << QString();
    QTest::newRow("that it is disabled") << u"enabled: false"_s << u"Unavailable"_s;
    QTest::newRow("that it is busy") << u"busy: true"_s << u"Unavailable"_s;
}

void tst_Buttons::tellsAssistivePrograms()
{
    QFETCH(QString, state);
    QFETCH(QString, description);
    Scene scene(u"PrimaryButton { objectName: \"it\"; text: \"A\"; "_s + state + u" }"_s);
    QCOMPARE(scene.accessible(u"it"_s)->text(QAccessible::Description), description);
}

namespace {

const auto pills = u"property int chosen: 0\n"
                   "PillRow { Repeater { model: [\"All\", \"Running\", \"Failed\"]\n"
                   "Pill { required property int index; required property string modelData; objectName: \"pill\" + "
                   "index; text: modelData\n"
                   "selected: root.chosen === index; onClicked: root.chosen = index } } }"_s;

} // namespace

void tst_Buttons::marksTheSelectedPill()
{
    Scene scene(
        u"property int chosen: 0\n"
        "PillRow {\n"
        "Pill { objectName: \"first\"; text: \"All\"; selected: root.chosen === 0; onClicked: root.chosen = 0 }\n"
        "Pill { objectName: \"second\"; text: \"Running\"; selected: root.chosen === 1; onClicked: root.chosen = 1 } }"_s);
    QCOMPARE(scene.item(u"first"_s)->property("fillColor").value<QColor>(), QColor(0x3B, 0x82, 0xF6));
    QCOMPARE(scene.item(u"second"_s)->property("fillColor").value<QColor>(), QColor(0x12, 0x12, 0x14));
    scene.click(u"second"_s);
    QCOMPARE(scene.item(u"second"_s)->property("fillColor").value<QColor>(), QColor(0x3B, 0x82, 0xF6));
    QCOMPARE(scene.accessible(u"second"_s)->role(), QAccessible::RadioButton);
    QVERIFY(scene.accessible(u"second"_s)->state().checked);
    QVERIFY(!scene.accessible(u"first"_s)->state().checked);
}

void tst_Buttons::choosesThePillBesideItByArrowKeys()
{
    Scene scene(pills);
    scene.press(Qt::Key_Tab);
    scene.press(Qt::Key_Right);
    QCOMPARE(scene.count(u"chosen"_s), 1);
    scene.press(Qt::Key_Right);
    scene.press(Qt::Key_Right);
    QCOMPARE(scene.count(u"chosen"_s), 2);
    scene.press(Qt::Key_Left);
    QCOMPARE(scene.count(u"chosen"_s), 1);
}

void tst_Buttons::leavesItsStateToItsOwnerWhenToggled()
{
    Scene scene(u"property bool on: false\n"
                "Switch { objectName: \"free\"; checked: root.on; onToggled: root.on = !root.on }\n"
                "Switch { objectName: \"frozen\"; y: 50; checked: true }"_s);
    scene.click(u"free"_s);
    QVERIFY(scene.value(u"on"_s).toBool());
    QVERIFY(scene.item(u"free"_s)->property("checked").toBool());
    // A change from elsewhere still arrives after a click.
    scene.view.rootObject()->setProperty("on", false);
    QVERIFY(!scene.item(u"free"_s)->property("checked").toBool());
    scene.click(u"frozen"_s);
    QVERIFY(scene.item(u"frozen"_s)->property("checked").toBool());
}

void tst_Buttons::togglesForAssistivePrograms()
{
    Scene scene(u"property bool on: false\n"
                "Switch { objectName: \"it\"; text: \"Fast\"; checked: root.on; onToggled: root.on = !root.on }"_s);
    auto *it = scene.accessible(u"it"_s);
    QCOMPARE(it->role(), QAccessible::CheckBox);
    QCOMPARE(it->text(QAccessible::Name), u"Fast"_s);
    QVERIFY(it->state().checkable);
    QVERIFY(!it->state().checked);
    QVERIFY(scene.doAccessibly(toggleAction, u"it"_s));
    QVERIFY(it->state().checked);
    QVERIFY(scene.doAccessibly(toggleAction, u"it"_s));
    QVERIFY(!it->state().checked);
}

void tst_Buttons::hasTheSizesOfASwitch_data()
{
    QTest::addColumn<QString>("size");
    QTest::addColumn<QSizeF>("points");
    QTest::newRow("regular") << QString() << QSizeF(38, 22);
    QTest::newRow("small") << u"small: true"_s << QSizeF(26, 15);
}

void tst_Buttons::hasTheSizesOfASwitch()
{
    QFETCH(QString, size);
    QFETCH(QSizeF, points);
    Scene scene(u"Switch { objectName: \"it\"; "_s + size + u" }"_s);
    QCOMPARE(scene.item(u"it"_s)->size(), points);
}

QTEST_MAIN(tst_Buttons)
#include "tst_Buttons.moc"
