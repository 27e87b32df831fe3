#include "controls/Scene.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using quillmere::testing::Scene;

namespace {

const auto increaseAction = QAccessibleActionInterface::increaseAction();
const auto decreaseAction = QAccessibleActionInterface::decreaseAction();

// 116 points long, so that its knob travels 100: one point of the pointer is one of the value.
const auto slider =
    u"property real held: 30\nproperty int moves: 0\n"
    "Slider { objectName: \"it\"; x: 100; y: 100; width: 116; label: \"Share\"; from: 0; to: 100; value: root.held\n"
    "onMoved: value => { root.held = value; ++root.moves } }"_s;
const auto frozenSlider =
    u"property int moves: 0\n"
    "Slider { objectName: \"it\"; x: 100; y: 100; width: 116; label: \"Share\"; from: 0; to: 100; value: 30\n"
    "onMoved: ++root.moves }"_s;
const auto stepper =
    u"property int held: 8\n"
    "Stepper { objectName: \"it\"; x: 100; y: 100; label: \"Batch Size\"; value: root.held; stepSize: 4\n"
    "onStepped: direction => root.held += 4 * direction }"_s;
const auto picker = u"property int held: 0\nproperty int picks: 0\n"
                    "SegmentedPicker { objectName: \"it\"; x: 100; y: 100; label: \"Truncation\"; entries: [\"Start\", "
                    "\"Middle\", \"End\"]\n"
                    "currentIndex: root.held; onPicked: index => { root.held = index; ++root.picks } }"_s;

QList<QQuickItem *> allBelow(const QQuickItem *item)
{
    QList<QQuickItem *> all;
    for (auto *child : item->childItems()) {
        all << child << allBelow(child);
    }
    return all;
}

} // namespace

class tst_Values : public QObject {
    Q_OBJECT

private slots:
    void jumpsToWhereTheTrackIsPressed();
    void followsThePointerWhileItIsDragged();
    void doesNotJumpWhenItsKnobIsTaken();
    void goesByKeys_data();
    void goesByKeys();
    void keepsBetweenItsEnds_data();
    void keepsBetweenItsEnds();
    void tellsItsValueToAssistivePrograms();
    void isMovedByAssistivePrograms();
    void staysWhereItsOwnerHoldsIt();
    void leavesTheWheelToThePage();
    void doesNotScrollThePageWhileItIsDragged();
    void isDimmedAndDeafWhenDisabled_data();
    void isDimmedAndDeafWhenDisabled();
    void isFoundByTabAndShowsIt_data();
    void isFoundByTabAndShowsIt();
    void hasTheSizesOfTheToolkit();

    void stepsOnceForEachPress();
    void stepsOnWhileItIsHeld();
    void stopsWhenThePointerLeaves();
    void stepsByKeys();
    void stepsForAssistivePrograms();
    void leavesAValueToItsOwnerWhenStepped();

    void picksWhatIsPressed();
    void picksByKeys();
    void picksForAssistivePrograms();
    void doesNotPickWhatHoldsAlready();
    void leavesTheChoiceToItsOwner();
    void givesEachChoiceTheSameWidth();

    void showsItsValueByAFormat();
    void namesASliderOnceForAssistivePrograms();

private:
    static QPoint at(int x) { return {100 + x, 108}; }
    static double held(const Scene &scene) { return scene.value(u"held"_s).toDouble(); }
    // What assistive programs see of a control stands inside of it.
    static QQuickItem *inside(const Scene &scene, const QString &name, QAccessible::Role role);
    static QAccessibleInterface *accessible(const Scene &scene, QAccessible::Role role)
    {
        return QAccessible::queryAccessibleInterface(inside(scene, u"it"_s, role));
    }
    static QQuickItem *segment(const Scene &scene, const QString &name);
};

QQuickItem *tst_Values::inside(const Scene &scene, const QString &name, QAccessible::Role role)
{
    for (auto *child : allBelow(scene.item(name))) {
        const auto *interface = QAccessible::queryAccessibleInterface(child);
        if (interface && interface->role() == role) {
            return child;
        }
    }
    qFatal("%s has no such part.", qPrintable(name));
}

QQuickItem *tst_Values::segment(const Scene &scene, const QString &name)
{
    for (auto *child : allBelow(scene.view.contentItem())) {
        const auto *interface = QAccessible::queryAccessibleInterface(child);
        if (interface && interface->role() == QAccessible::RadioButton && interface->text(QAccessible::Name) == name) {
            return child;
        }
    }
    qFatal("There is no choice %s.", qPrintable(name));
}

void tst_Values::jumpsToWhereTheTrackIsPressed()
{
    Scene scene(slider);
    QTest::mousePress(&scene.view, Qt::LeftButton, {}, at(8 + 70));
    QCOMPARE(held(scene), 70.0);
    QTest::mouseRelease(&scene.view, Qt::LeftButton, {}, at(8 + 70));
    QCOMPARE(held(scene), 70.0);
    QCOMPARE(scene.count(u"moves"_s), 1);
}

void tst_Values::followsThePointerWhileItIsDragged()
{
    Scene scene(slider);
    QTest::mousePress(&scene.view, Qt::LeftButton, {}, at(8 + 70));
    QTest::mouseMove(&scene.view, at(8 + 75));
    QCOMPARE(held(scene), 75.0);
    QTest::mouseMove(&scene.view, at(8 + 20) + QPoint(0, 200)); // far off below it
    QCOMPARE(held(scene), 20.0);
    QTest::mouseRelease(&scene.view, Qt::LeftButton, {}, at(8 + 20));
    QTest::mouseMove(&scene.view, at(8 + 40));
    QCOMPARE(held(scene), 20.0);
}

void tst_Values::doesNotJumpWhenItsKnobIsTaken()
{
    Scene scene(slider);
    QTest::mousePress(&scene.view, Qt::LeftButton, {}, at(30 + 3)); // 5 left of the middle of the knob
    QCOMPARE(held(scene), 30.0);
    QTest::mouseMove(&scene.view, at(30 + 3 + 12));
    QCOMPARE(held(scene), 42.0);
    QTest::mouseRelease(&scene.view, Qt::LeftButton, {}, at(45));
}

void tst_Values::goesByKeys_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<double>("value");
    QTest::newRow("right") << Qt::Key_Right << 31.0;
    QTest::newRow("up") << Qt::Key_Up << 31.0;
    QTest::newRow("left") << Qt::Key_Left << 29.0;
    QTest::newRow("down") << Qt::Key_Down << 29.0;
    QTest::newRow("page up") << Qt::Key_PageUp << 40.0;
    QTest::newRow("page down") << Qt::Key_PageDown << 20.0;
    QTest::newRow("home") << Qt::Key_Home << 0.0;
    QTest::newRow("end") << Qt::Key_End << 100.0;
    QTest::newRow("another") << Qt::Key_A << 30.0;
}

void tst_Values::goesByKeys()
{
    QFETCH(Qt::Key, key);
    QFETCH(double, value);
    Scene scene(slider);
    scene.press(Qt::Key_Tab);
    scene.press(key);
    QCOMPARE(held(scene), value);
    scene.press(key, Qt::ControlModifier);
    QCOMPARE(held(scene), value);
}

void tst_Values::keepsBetweenItsEnds_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<double>("end");
    QTest::newRow("low") << -50 << Qt::Key_Left << 0.0;
    QTest::newRow("high") << 200 << Qt::Key_Right << 100.0;
}

void tst_Values::keepsBetweenItsEnds()
{
    QFETCH(int, x);
    QFETCH(Qt::Key, key);
    QFETCH(double, end);
    Scene scene(slider);
    QTest::mousePress(&scene.view, Qt::LeftButton, {}, at(50));
    QTest::mouseMove(&scene.view, at(x));
    QTest::mouseRelease(&scene.view, Qt::LeftButton, {}, at(x));
    QCOMPARE(held(scene), end);
    const int moves = scene.count(u"moves"_s);
    scene.press(key);
    QCOMPARE(held(scene), end);
    QCOMPARE(scene.count(u"moves"_s), moves);
}

void tst_Values::tellsItsValueToAssistivePrograms()
{
    Scene scene(slider);
    auto *it = accessible(scene, QAccessible::Slider);
    QCOMPARE(it->text(QAccessible::Name), u"Share"_s);
    QVERIFY(it->state().focusable);
    auto *value = it->valueInterface();
    QVERIFY(value);
    QCOMPARE(value->currentValue().toDouble(), 30.0);
    QCOMPARE(value->minimumValue().toDouble(), 0.0);
    QCOMPARE(value->maximumValue().toDouble(), 100.0);
    QCOMPARE(value->minimumStepSize().toDouble(), 1.0);
    scene.view.rootObject()->setProperty("held", 44);
    QCOMPARE(value->currentValue().toDouble(), 44.0);
}

void tst_Values::isMovedByAssistivePrograms()
{
    Scene scene(slider);
    auto *it = accessible(scene, QAccessible::Slider);
    it->actionInterface()->doAction(increaseAction);
    QCOMPARE(held(scene), 31.0);
    it->actionInterface()->doAction(decreaseAction);
    it->actionInterface()->doAction(decreaseAction);
    QCOMPARE(held(scene), 29.0);
    it->valueInterface()->setCurrentValue(77.0);
    QCOMPARE(held(scene), 77.0);
    it->valueInterface()->setCurrentValue(500.0);
    QCOMPARE(held(scene), 100.0);
    it->valueInterface()->setCurrentValue(qQNaN());
    QCOMPARE(held(scene), 100.0);
    // The owner's word still arrives afterwards.
    scene.view.rootObject()->setProperty("held", 12);
    QCOMPARE(it->valueInterface()->currentValue().toDouble(), 12.0);
}

void tst_Values::staysWhereItsOwnerHoldsIt()
{
    Scene scene(frozenSlider);
    const QImage before = scene.view.grabWindow();
    QTest::mousePress(&scene.view, Qt::LeftButton, {}, at(8 + 70));
    QTest::mouseMove(&scene.view, at(8 + 75));
    QTest::mouseRelease(&scene.view, Qt::LeftButton, {}, at(8 + 75));
    QCOMPARE(scene.count(u"moves"_s), 2);
    scene.press(Qt::Key_Right);
    scene.press(Qt::Key_End);
    QCOMPARE(scene.count(u"moves"_s), 4);
    auto *it = accessible(scene, QAccessible::Slider);
    it->valueInterface()->setCurrentValue(77.0);
    it->actionInterface()->doAction(increaseAction);
    QCOMPARE(scene.count(u"moves"_s), 6);
    QCOMPARE(it->valueInterface()->currentValue().toDouble(), 30.0);
    QCOMPARE(scene.item(u"it"_s)->property("value").toDouble(), 30.0);
    // A press elsewhere takes the ring away, the pointer's leaving the light.
    QTest::mouseClick(&scene.view, Qt::LeftButton, {}, QPoint(700, 500));
    QCOMPARE(scene.view.grabWindow(), before);
}

namespace {

const auto page =
    u"property real held: 30\n"
    "ScrollArea { objectName: \"page\"; width: 300; height: 200; contentHeight: 1000\n"
    "Slider { objectName: \"it\"; x: 100; y: 100; width: 116; label: \"Share\"; from: 0; to: 100; value: root.held\n"
    "onMoved: value => root.held = value } }"_s;

} // namespace

void tst_Values::leavesTheWheelToThePage()
{
    Scene scene(page);
    scene.turnWheel(u"it"_s, QPoint(0, -120));
    QCOMPARE(held(scene), 30.0);
    QCOMPARE(scene.item(u"page"_s)->property("contentY").toDouble(), 72.0);
}

void tst_Values::doesNotScrollThePageWhileItIsDragged()
{
    Scene scene(page);
    QTest::mousePress(&scene.view, Qt::LeftButton, {}, at(8 + 70));
    for (int y = 0; y > -90; y -= 10) {
        QTest::mouseMove(&scene.view, at(8 + 60) + QPoint(0, y));
    }
    QCOMPARE(held(scene), 60.0);
    QCOMPARE(scene.item(u"page"_s)->property("contentY").toDouble(), 0.0);
    QTest::mouseRelease(&scene.view, Qt::LeftButton, {}, at(8 + 60));
}

void tst_Values::isDimmedAndDeafWhenDisabled_data()
{
    QTest::addColumn<QString>("qml");
    QTest::addColumn<int>("role");
    QTest::newRow("slider") << slider << int(QAccessible::Slider);
    QTest::newRow("stepper") << stepper << int(QAccessible::SpinBox);
    QTest::newRow("picker") << picker << int(QAccessible::RadioButton);
}

void tst_Values::isDimmedAndDeafWhenDisabled()
{
    QFETCH(QString, qml);
    QFETCH(int, role);
    Scene scene(qml);
    const double before = held(scene);
    scene.item(u"it"_s)->setEnabled(false);
    QCOMPARE(scene.item(u"it"_s)->opacity(), 0.5);
    scene.click(u"it"_s);
    scene.press(Qt::Key_Tab);
    scene.press(Qt::Key_Up);
    auto *it = accessible(scene, QAccessible::Role(role));
    for (const QString &action : it->actionInterface()->actionNames()) {
        it->actionInterface()->doAction(action);
    }
    if (it->valueInterface()) {
        it->valueInterface()->setCurrentValue(99);
        QCOMPARE(it->valueInterface()->currentValue().toDouble(), before);
    }
    QCOMPARE(held(scene), before);
    QCOMPARE(it->text(QAccessible::Description), u"Unavailable"_s);
}

void tst_Values::isFoundByTabAndShowsIt_data()
{
    QTest::addColumn<QString>("qml");
    QTest::newRow("slider") << slider;
    QTest::newRow("stepper") << stepper;
    QTest::newRow("picker") << picker;
}

void tst_Values::isFoundByTabAndShowsIt()
{
    QFETCH(QString, qml);
    Scene scene(qml + u"\nPrimaryButton { objectName: \"next\"; y: 300; text: \"Next\" }"_s);
    const auto ringShows = [&] {
        for (const auto *child : allBelow(scene.item(u"it"_s))) {
            if (QString::fromLatin1(child->metaObject()->className()).startsWith(u"FocusRing"_s)
                && child->isVisible()) {
                return true;
            }
        }
        return false;
    };
    scene.click(u"it"_s);
    QVERIFY(scene.item(u"it"_s)->hasActiveFocus());
    QVERIFY(!ringShows());
    scene.press(Qt::Key_Tab);
    QVERIFY(scene.item(u"next"_s)->hasActiveFocus());
    scene.press(Qt::Key_Tab, Qt::ShiftModifier);
    QVERIFY(scene.item(u"it"_s)->hasActiveFocus());
    QVERIFY(ringShows());
}

void tst_Values::hasTheSizesOfTheToolkit()
{
    Scene scene(
        u"Slider { objectName: \"slider\"; label: \"A\"; value: 0 }\n"
        "Stepper { objectName: \"stepper\"; label: \"A\"; value: 0 }\n"
        "SegmentedPicker { objectName: \"picker\"; label: \"A\"; entries: [\"GPU\", \"CPU\"]; currentIndex: 0 }"_s);
    QCOMPARE(scene.item(u"slider"_s)->height(), 16.0);
    QCOMPARE(scene.item(u"stepper"_s)->size(), QSizeF(20, 24));
    QCOMPARE(scene.item(u"picker"_s)->height(), 24.0);
}

void tst_Values::stepsOnceForEachPress()
{
    Scene scene(stepper);
    QTest::mouseClick(&scene.view, Qt::LeftButton, {}, QPoint(110, 106));
    QCOMPARE(held(scene), 12.0);
    for (int i = 0; i < 5; ++i) {
        QTest::mouseClick(&scene.view, Qt::LeftButton, {}, QPoint(110, 118));
    }
    QCOMPARE(held(scene), -8.0);
    scene.clock.advance(5s);
    QCOMPARE(held(scene), -8.0);
}

void tst_Values::stepsOnWhileItIsHeld()
{
    Scene scene(stepper);
    QTest::mousePress(&scene.view, Qt::LeftButton, {}, QPoint(110, 106));
    QCOMPARE(held(scene), 12.0);
    scene.clock.advance(399ms);
    QCOMPARE(held(scene), 12.0);
    scene.clock.advance(1ms);
    QCOMPARE(held(scene), 16.0);
    scene.clock.advance(300ms);
    QCOMPARE(held(scene), 28.0);
    QTest::mouseRelease(&scene.view, Qt::LeftButton, {}, QPoint(110, 106));
    scene.clock.advance(5s);
    QCOMPARE(held(scene), 28.0);
}

void tst_Values::stopsWhenThePointerLeaves()
{
    Scene scene(stepper);
    QTest::mousePress(&scene.view, Qt::LeftButton, {}, QPoint(110, 106));
    QTest::mouseMove(&scene.view, QPoint(200, 300));
    scene.clock.advance(5s);
    QCOMPARE(held(scene), 12.0);
    QTest::mouseRelease(&scene.view, Qt::LeftButton, {}, QPoint(200, 300));
}

void tst_Values::stepsByKeys()
{
    Scene scene(stepper);
    scene.press(Qt::Key_Tab);
    scene.press(Qt::Key_Up);
    QCOMPARE(held(scene), 12.0);
    scene.press(Qt::Key_Down);
    scene.press(Qt::Key_Down);
    QCOMPARE(held(scene), 4.0);
}

void tst_Values::stepsForAssistivePrograms()
{
    Scene scene(stepper);
    auto *it = accessible(scene, QAccessible::SpinBox);
    QCOMPARE(it->text(QAccessible::Name), u"Batch Size"_s);
    QCOMPARE(it->valueInterface()->currentValue().toDouble(), 8.0);
    QCOMPARE(it->valueInterface()->minimumStepSize().toDouble(), 4.0);
    it->actionInterface()->doAction(increaseAction);
    QCOMPARE(held(scene), 12.0);
    it->actionInterface()->doAction(decreaseAction);
    it->actionInterface()->doAction(decreaseAction);
    QCOMPARE(held(scene), 4.0);
    it->valueInterface()->setCurrentValue(8.0);
    QCOMPARE(held(scene), 8.0);
    QCOMPARE(it->valueInterface()->currentValue().toDouble(), 8.0);
}

void tst_Values::leavesAValueToItsOwnerWhenStepped()
{
    Scene scene(u"property int steps: 0\n"
                "Stepper { objectName: \"it\"; x: 100; y: 100; label: \"A\"; value: 3; onStepped: ++root.steps }"_s);
    QTest::mouseClick(&scene.view, Qt::LeftButton, {}, QPoint(110, 106));
    scene.press(Qt::Key_Down);
    accessible(scene, QAccessible::SpinBox)->valueInterface()->setCurrentValue(9.0);
    QCOMPARE(scene.count(u"steps"_s), 3);
    QCOMPARE(accessible(scene, QAccessible::SpinBox)->valueInterface()->currentValue().toDouble(), 3.0);
}

void tst_Values::picksWhatIsPressed()
{
    Scene scene(picker);
    QTest::mouseClick(&scene.view, Qt::LeftButton, {}, scene.middle(segment(scene, u"End"_s)));
    QCOMPARE(held(scene), 2.0);
    QTest::mouseClick(&scene.view, Qt::LeftButton, {}, scene.middle(segment(scene, u"Middle"_s)));
    QCOMPARE(held(scene), 1.0);
}

void tst_Values::picksByKeys()
{
    Scene scene(picker);
    scene.press(Qt::Key_Tab);
    scene.press(Qt::Key_Left);
    QCOMPARE(held(scene), 0.0);
    scene.press(Qt::Key_Right);
    QCOMPARE(held(scene), 1.0);
    QVERIFY(segment(scene, u"Middle"_s)->hasActiveFocus());
    scene.press(Qt::Key_Down);
    scene.press(Qt::Key_Right);
    QCOMPARE(held(scene), 2.0);
    scene.press(Qt::Key_Up);
    QCOMPARE(held(scene), 1.0);
    scene.press(Qt::Key_Home);
    QCOMPARE(held(scene), 0.0);
    scene.press(Qt::Key_End);
    QCOMPARE(held(scene), 2.0);
    QVERIFY(segment(scene, u"End"_s)->hasActiveFocus());
}

void tst_Values::picksForAssistivePrograms()
{
    Scene scene(picker);
    QCOMPARE(scene.accessible(u"it"_s)->role(), QAccessible::Grouping);
    QCOMPARE(scene.accessible(u"it"_s)->text(QAccessible::Name), u"Truncation"_s);
    auto *start = QAccessible::queryAccessibleInterface(segment(scene, u"Start"_s));
    auto *end = QAccessible::queryAccessibleInterface(segment(scene, u"End"_s));
    QVERIFY(start->state().checked);
    QVERIFY(!end->state().checked);
    end->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(held(scene), 2.0);
    QVERIFY(!start->state().checked);
    QVERIFY(end->state().checked);
}

void tst_Values::doesNotPickWhatHoldsAlready()
{
    Scene scene(picker);
    QTest::mouseClick(&scene.view, Qt::LeftButton, {}, scene.middle(segment(scene, u"Start"_s)));
    scene.press(Qt::Key_Return);
    QCOMPARE(scene.count(u"picks"_s), 0);
}

void tst_Values::leavesTheChoiceToItsOwner()
{
    Scene scene(u"property int picks: 0\n"
                "SegmentedPicker { objectName: \"it\"; x: 100; y: 100; label: \"A\"; entries: [\"One\", \"Two\"]; "
                "currentIndex: 0\n"
                "onPicked: ++root.picks }"_s);
    QTest::mouseClick(&scene.view, Qt::LeftButton, {}, scene.middle(segment(scene, u"Two"_s)));
    scene.press(Qt::Key_End);
    QCOMPARE(scene.count(u"picks"_s), 2);
    QVERIFY(QAccessible::queryAccessibleInterface(segment(scene, u"One"_s))->state().checked);
    QVERIFY(!QAccessible::queryAccessibleInterface(segment(scene, u"Two"_s))->state().checked);
}

void tst_Values::givesEachChoiceTheSameWidth()
{
    Scene scene(picker);
    const double own = scene.item(u"it"_s)->width();
    QCOMPARE(segment(scene, u"Start"_s)->width(), (own - 4) / 3);
    QCOMPARE(segment(scene, u"Middle"_s)->width(), (own - 4) / 3);
    QVERIFY(segment(scene, u"Middle"_s)->width() >= segment(scene, u"Middle"_s)->implicitWidth());
    scene.item(u"it"_s)->setWidth(304);
    QCOMPARE(segment(scene, u"End"_s)->width(), 100.0);
}

void tst_Values::showsItsValueByAFormat()
{
    Scene scene(
        u"property real held: 5\n"
        "LabeledSlider { objectName: \"it\"; width: 300; title: \"Max & Most\"; from: 0; to: 20; format: \"%.1f%%\"\n"
        "value: root.held; onMoved: value => root.held = value }"_s);
    const auto texts = [&] {
        QStringList all;
        for (const auto *child : allBelow(scene.item(u"it"_s))) {
            if (child->property("text").isValid()) {
                all.append(child->property("text").toString());
            }
        }
        return all;
    };
    QCOMPARE(texts(), QStringList({u"Max & Most"_s, u"5.0%"_s}));
    scene.press(Qt::Key_Tab);
    scene.press(Qt::Key_End);
    QCOMPARE(held(scene), 20.0);
    QCOMPARE(texts(), QStringList({u"Max & Most"_s, u"20.0%"_s}));
    QCOMPARE(accessible(scene, QAccessible::Slider)->text(QAccessible::Name), u"Max & Most"_s);
}

void tst_Values::namesASliderOnceForAssistivePrograms()
{
    Scene scene(u"LabeledSlider { title: \"Rate\"; from: 0; to: 1; value: 0.5; format: \"%.1f\" }"_s);
    const auto *window = QAccessible::queryAccessibleInterface(&scene.view);
    QStringList names;
    for (int i = 0; i < window->childCount(); ++i) {
        names.append(window->child(i)->text(QAccessible::Name));
    }
    QCOMPARE(names, (QStringList{u"0.5"_s, u"Rate"_s}));
}

QTEST_MAIN(tst_Values)
#include "tst_Values.moc"
