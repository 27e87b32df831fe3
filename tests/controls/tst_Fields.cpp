#include "controls/RestingCaret.h"
#include "controls/Scene.h"
#include "support/Waiting.h"

#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QStyleHints>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using quillmere::RestingCaret;
using quillmere::testing::eventually;
using quillmere::testing::Scene;

class tst_Fields : public QObject {
    Q_OBJECT

private slots:
    void takesWhatIsTypedAndTellsItsOwner_data();
    void takesWhatIsTypedAndTellsItsOwner();
    void showsItsPlaceholderOnlyWhileNothingIsTyped();
    void hasANameForAssistivePrograms_data();
    void hasANameForAssistivePrograms();
    void keepsASecretFromAssistivePrograms();
    void isTheNextStopOfTheTabulator();
    void takesNothingWhenDisabled();
    void emptiesTheSearchByEscape();
    void leavesEscapeToOthersWhenTheSearchIsEmpty();
    void growsWithItsLinesBetweenItsLimits();
    void scrollsToTheCursorBeyondItsLimit();
    void breaksLinesByReturn();
    void handsItsTextInByReturnWhereToldSo();
    void tellsOfEveryEdit();
    void takesAClickBelowItsText();
    void letsTheCaretRestWhenNobodyTypes_data();
    void letsTheCaretRestWhenNobodyTypes();
};

void tst_Fields::takesWhatIsTypedAndTellsItsOwner_data()
{
    QTest::addColumn<QString>("field");
    QTest::newRow("plain")
        << u"PlainField { label: \"A\"; objectName: \"it\"; width: 200; onTextEdited: root.typed = text; onAccepted: root.accepted = true }"_s;
    QTest::newRow("rounded")
        << u"RoundedField { label: \"A\"; objectName: \"it\"; onTextEdited: root.typed = text; onAccepted: root.accepted = true }"_s;
}

void tst_Fields::takesWhatIsTypedAndTellsItsOwner()
{
    QFETCH(QString, field);
    Scene scene(u"property string typed\nproperty bool accepted: false\n"_s + field);
    scene.click(u"it"_s);
    scene.type(u"llama"_s);
    QCOMPARE(scene.value(u"typed"_s).toString(), u"llama"_s);
    QVERIFY(!scene.value(u"accepted"_s).toBool());
    scene.press(Qt::Key_Return);
    QVERIFY(scene.value(u"accepted"_s).toBool());
    QMetaObject::invokeMethod(scene.item(u"it"_s), "clear");
    QCOMPARE(scene.item(u"it"_s)->property("text").toString(), QString());
}

void tst_Fields::showsItsPlaceholderOnlyWhileNothingIsTyped()
{
    Scene scene(u"PlainField { label: \"A\"; objectName: \"it\"; width: 200; placeholderText: \"Search <b>\" }"_s);
    const auto *placeholder = scene.item(u"it"_s)->childItems().constFirst();
    QCOMPARE(placeholder->property("text").toString(), u"Search <b>"_s);
    QVERIFY(placeholder->isVisible());
    scene.click(u"it"_s);
    // Text that an input method is still composing hides it too.
    QInputMethodEvent composing(u"にほ"_s, {});
    QCoreApplication::sendEvent(scene.item(u"it"_s), &composing);
    QVERIFY(!placeholder->isVisible());
    QInputMethodEvent givenUp(QString(), {});
    QCoreApplication::sendEvent(scene.item(u"it"_s), &givenUp);
    QVERIFY(placeholder->isVisible());
    scene.type(u"a"_s);
    QVERIFY(!placeholder->isVisible());
}

void tst_Fields::hasANameForAssistivePrograms_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << u"PlainField { objectName: \"it\"; label: \"Email\"; placeholderText: \"ada\" }"_s
                           << u"Email"_s;
    QTest::newRow("rounded") << u"RoundedField { label: \"Name\"; Component.onCompleted: field.objectName = \"it\" }"_s
                             << u"Name"_s;
    QTest::newRow("growing") << u"GrowingField { label: \"Text\"; Component.onCompleted: field.objectName = \"it\" }"_s
                             << u"Text"_s;
    QTest::newRow("search")
        << u"SearchBox { placeholderText: \"Search models...\"; Component.onCompleted: field.objectName = \"it\" }"_s
        << u"Search models..."_s;
}

void tst_Fields::hasANameForAssistivePrograms()
{
    QFETCH(QString, field);
    QFETCH(QString, name);
    Scene scene(field);
    auto *it = scene.accessible(u"it"_s);
    QCOMPARE(it->role(), QAccessible::EditableText);
    QCOMPARE(it->text(QAccessible::Name), name);
    QVERIFY(it->state().focusable);
    scene.item(u"it"_s)->setProperty("text", u"typed"_s);
    QCOMPARE(it->text(QAccessible::Value), u"typed"_s);
    scene.item(u"it"_s)->setEnabled(false);
    QCOMPARE(it->text(QAccessible::Description), u"Unavailable"_s);
}

void tst_Fields::keepsASecretFromAssistivePrograms()
{
    Scene scene(u"RoundedField { objectName: \"around\"; label: \"Address\"; secret: true; text: \"s3cret\"\n"
                "Component.onCompleted: field.objectName = \"it\" }"_s);
    QCOMPARE(scene.accessible(u"around"_s)->role(), QAccessible::Grouping);
    QCOMPARE(scene.accessible(u"around"_s)->text(QAccessible::Name), u"Address"_s);
    auto *it = scene.accessible(u"it"_s);
    QVERIFY(it->state().passwordEdit);
    for (const auto kind : {QAccessible::Name, QAccessible::Description, QAccessible::Value, QAccessible::Help}) {
        QVERIFY(!it->text(kind).contains(u"s3cret"_s));
    }
    if (auto *text = it->textInterface()) {
        QVERIFY(!text->text(0, 6).contains(u"s3cret"_s));
    }
    if (auto *value = it->valueInterface()) {
        QVERIFY(!value->currentValue().toString().contains(u"s3cret"_s));
    }
    QCOMPARE(scene.item(u"it"_s)->property("displayText").toString(), QString(6, QChar(0x2022)));
}

void tst_Fields::isTheNextStopOfTheTabulator()
{
    Scene scene(u"GrowingField { label: \"A\"; Component.onCompleted: field.objectName = \"first\" }\n"
                "RoundedField { y: 200; label: \"B\"; Component.onCompleted: field.objectName = \"second\" }"_s);
    scene.press(Qt::Key_Tab);
    QVERIFY(scene.item(u"first"_s)->hasActiveFocus());
    scene.press(Qt::Key_Tab);
    QVERIFY(scene.item(u"second"_s)->hasActiveFocus());
    QCOMPARE(scene.item(u"first"_s)->property("text").toString(), QString());
    scene.press(Qt::Key_Backtab);
    QVERIFY(scene.item(u"first"_s)->hasActiveFocus());
}

void tst_Fields::takesNothingWhenDisabled()
{
    Scene scene(u"RoundedField { objectName: \"it\"; label: \"A\"; enabled: false }"_s);
    scene.click(u"it"_s);
    scene.type(u"a"_s);
    QCOMPARE(scene.item(u"it"_s)->property("text").toString(), QString());
}

void tst_Fields::emptiesTheSearchByEscape()
{
    Scene scene(u"SearchBox { objectName: \"it\"; placeholderText: \"Search\" }"_s);
    scene.click(u"it"_s);
    scene.type(u"llama"_s);
    QCOMPARE(scene.item(u"it"_s)->property("text").toString(), u"llama"_s);
    scene.press(Qt::Key_Escape);
    QCOMPARE(scene.item(u"it"_s)->property("text").toString(), QString());
}

void tst_Fields::leavesEscapeToOthersWhenTheSearchIsEmpty()
{
    Scene scene(u"property int escapes: 0\nKeys.onEscapePressed: ++escapes\n"
                "SearchBox { objectName: \"it\"; placeholderText: \"Search\" }"_s);
    scene.click(u"it"_s);
    scene.type(u"a"_s);
    scene.press(Qt::Key_Escape);
    QCOMPARE(scene.count(u"escapes"_s), 0);
    scene.press(Qt::Key_Escape);
    QCOMPARE(scene.count(u"escapes"_s), 1);
}

void tst_Fields::growsWithItsLinesBetweenItsLimits()
{
    Scene scene(u"GrowingField { objectName: \"it\"; label: \"A\"; minimumLines: 3; maximumLines: 5 }\n"
                "GrowingField { objectName: \"one\"; y: 300; label: \"B\"; minimumLines: 1; maximumLines: 1 }"_s);
    const double line = scene.item(u"one"_s)->implicitHeight();
    QVERIFY(line > 10);
    const auto lines = [&] { return scene.item(u"it"_s)->implicitHeight() / line; };
    QCOMPARE(lines(), 3.0);
    scene.item(u"it"_s)->setProperty("text", u"1\n2\n3\n4"_s);
    QCOMPARE(lines(), 4.0);
    scene.item(u"it"_s)->setProperty("text", u"1\n2\n3\n4\n5\n6\n7"_s);
    QCOMPARE(lines(), 5.0);
}

void tst_Fields::scrollsToTheCursorBeyondItsLimit()
{
    Scene scene(u"GrowingField { objectName: \"it\"; label: \"A\"; minimumLines: 2; maximumLines: 2 }"_s);
    scene.click(u"it"_s);
    for (int i = 0; i < 6; ++i) {
        scene.press(Qt::Key_Return);
    }
    const double height = scene.item(u"it"_s)->height();
    const double content = scene.item(u"it"_s)->property("contentHeight").toDouble();
    QVERIFY(content > 2 * height);
    QCOMPARE(scene.item(u"it"_s)->property("contentY").toDouble(), content - height);
    scene.press(Qt::Key_Home, Qt::ControlModifier);
    QCOMPARE(scene.item(u"it"_s)->property("contentY").toDouble(), 0.0);
    scene.turnWheel(u"it"_s, QPoint(0, -120));
    // By three lines, of which it shows two.
    QVERIFY(qAbs(scene.item(u"it"_s)->property("contentY").toDouble() - 1.5 * height) <= 3);
}

void tst_Fields::breaksLinesByReturn()
{
    Scene scene(u"property int accepted: 0\n"
                "GrowingField { objectName: \"it\"; label: \"A\"; onAccepted: ++root.accepted }"_s);
    scene.click(u"it"_s);
    scene.type(u"a"_s);
    scene.press(Qt::Key_Return);
    scene.type(u"b"_s);
    QCOMPARE(scene.item(u"it"_s)->property("text").toString(), u"a\nb"_s);
    QCOMPARE(scene.count(u"accepted"_s), 0);
}

void tst_Fields::handsItsTextInByReturnWhereToldSo()
{
    Scene scene(
        u"property int accepted: 0\n"
        "GrowingField { objectName: \"it\"; label: \"A\"; returnAccepts: true; onAccepted: ++root.accepted }"_s);
    scene.click(u"it"_s);
    scene.type(u"a"_s);
    scene.press(Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(scene.count(u"accepted"_s), 0);
    scene.type(u"b"_s);
    QVERIFY(scene.item(u"it"_s)->property("text").toString().size() == 3);
    scene.press(Qt::Key_Return);
    QCOMPARE(scene.count(u"accepted"_s), 1);
    QVERIFY(scene.item(u"it"_s)->property("text").toString().size() == 3);
}

void tst_Fields::tellsOfEveryEdit()
{
    Scene scene(u"property string typed\n"
                "GrowingField { objectName: \"it\"; label: \"A\"; onTextEdited: root.typed = text }"_s);
    scene.click(u"it"_s);
    scene.type(u"ab"_s);
    QCOMPARE(scene.value(u"typed"_s).toString(), u"ab"_s);
}

void tst_Fields::takesAClickBelowItsText()
{
    Scene scene(u"GrowingField { objectName: \"it\"; label: \"A\"; minimumLines: 3; text: \"one\" }"_s);
    QTest::mouseClick(&scene.view, Qt::LeftButton, {}, QPoint(100, int(scene.item(u"it"_s)->height()) - 3));
    scene.type(u"s"_s);
    QVERIFY(scene.item(u"it"_s)->property("text").toString().contains(u's'));
}

void tst_Fields::letsTheCaretRestWhenNobodyTypes_data()
{
    QTest::addColumn<QString>("field");
    QTest::newRow("one line") << u"PlainField { label: \"A\"; objectName: \"it\"; width: 200 }"_s;
    QTest::newRow("several lines") << u"GrowingField { label: \"A\"; objectName: \"it\" }"_s;
}

void tst_Fields::letsTheCaretRestWhenNobodyTypes()
{
    QFETCH(QString, field);
    QStyleHints *hints = QGuiApplication::styleHints();
    const auto asBefore = qScopeGuard([hints] { hints->setCursorFlashTime(-1); });
    hints->setCursorFlashTime(20);
    Scene scene(field);
    const RestingCaret caret;
    const QImage without = scene.view.grabWindow();
    const auto showsACaret = [&] { return scene.view.grabWindow() != without; };

    scene.click(u"it"_s);
    QVERIFY(eventually(showsACaret));
    QVERIFY(eventually([&] { return !showsACaret(); }));
    scene.clock.advance(9'999ms);
    QCOMPARE(hints->cursorFlashTime(), 20);
    scene.clock.advance(1ms);
    QCOMPARE(hints->cursorFlashTime(), 0);
    QVERIFY(showsACaret());

    // Each key begins it anew.
    scene.press(Qt::Key_Left);
    QCOMPARE(hints->cursorFlashTime(), 20);
    scene.clock.advance(6s);
    scene.press(Qt::Key_Left);
    scene.clock.advance(6s);
    QVERIFY(eventually([&] { return !showsACaret(); }));
    scene.clock.advance(4s);
    QCOMPARE(hints->cursorFlashTime(), 0);
}

QTEST_MAIN(tst_Fields)
#include "tst_Fields.moc"
