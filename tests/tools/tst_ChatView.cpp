#include "app/theme/Color.h"
#include "app/theme/Theme.h"
#include "support/AnimationTime.h"
#include "support/ViewTest.h"

#include <QClipboard>
#include <QEasingCurve>
#include <QGuiApplication>
#include <QLocale>
#include <QRegularExpression>
#include <QTest>
#include <QWheelEvent>

#include <ctime>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmere::testing;

namespace quillmere {

namespace {

const auto greeting = u"Hello! I'm your fine-tuned AI model. How can I help you today?"_s;
const auto hint = u"Type your message..."_s;
const auto white = u"#ffffffff"_s;

QString replyTo(const QString &text)
{
    return u"I received your message: \""_s + text
        + u"\". This is a simulated response from your fine-tuned model. In production, this would connect to your actual AI model API."_s;
}

} // namespace

class tst_ChatView : public ViewTest {
    Q_OBJECT

private:
    void open(QSize size = {980, 760}) { ViewTest::open(u"Tools/ChatView.qml"_s, size); }

    QQuickItem *list() const { return m_window->all(u"MessageList"_s).value(0); }
    QList<QQuickItem *> rows() const { return m_window->all(u"ChatMessageRow"_s); }
    int count() const { return list()->property("count").toInt(); }
    QQuickItem *input() const { return m_window->field(u"Message"_s); }
    QString typed() const { return input()->property("text").toString(); }
    QQuickItem *send() const { return m_window->button(u"Send"_s); }
    QQuickItem *modelButton() const { return m_window->all(u"ModelMenu"_s).value(0); }
    QQuickItem *text(const QString &text, const QQuickItem *in = nullptr) const { return m_window->text(text, in); }
    QQuickItem *bubble(const QQuickItem *row) const
    {
        return text(row->property("content").toString(), row)->parentItem();
    }

    void paste(const QString &text)
    {
        QGuiApplication::clipboard()->setText(text);
        m_window->click(input());
        m_window->press(Qt::Key_V, Qt::ControlModifier);
    }
    // Types nothing: the text stands in the field at once.
    void say(const QString &text)
    {
        input()->setProperty("text", text);
        m_window->click(input());
        m_window->press(Qt::Key_Return);
        settle();
    }
    void reply()
    {
        m_world->clock.advance(1s);
        settle();
    }
    // The last row ends at the lower edge of the list.
    bool isAtEnd() const
    {
        QQuickItem *last = nullptr;
        QMetaObject::invokeMethod(list(), "itemAtIndex", Q_RETURN_ARG(QQuickItem *, last), Q_ARG(int, count() - 1));
        return last && qAbs(placeOf(last).bottom() - placeOf(list()).bottom()) <= 1;
    }

private slots:
    void init()
    {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        ViewTest::init();
    }
    void cleanup()
    {
        ViewTest::cleanup();
        QLocale::setDefault(QLocale::c());
    }

    // What can be done.

    void opensOnTheGreetingWithNothingToSend()
    {
        open();
        QCOMPARE(count(), 1);
        QVERIFY(text(greeting));
        QVERIFY(text(hint));
        QVERIFY(!send()->isEnabled());
        QCOMPARE(colorOf(send(), "labelColor"), word(Color::gray()));
        QCOMPARE(send()->opacity(), 1.0);
        m_window->click(send());
        QCOMPARE(count(), 1);
        QVERIFY(text(u"GPT-4 Custom"_s, modelButton()));
    }

    void sendsByTheButton()
    {
        open();
        m_window->click(input());
        m_window->type(u"Hi there"_s);
        QVERIFY(send()->isEnabled());
        QCOMPARE(colorOf(send(), "labelColor"), word(Color::blue()));
        m_window->click(send());
        QCOMPARE(count(), 2);
        QVERIFY(text(u"Hi there"_s));
        QCOMPARE(typed(), QString());
        QVERIFY(!send()->isEnabled());
        // The keyboard is back where the next message is typed.
        m_window->type(u"x"_s);
        QCOMPARE(typed(), u"x"_s);
        m_world->clock.advance(999ms);
        QCOMPARE(count(), 2);
        m_world->clock.advance(1ms);
        QCOMPARE(count(), 3);
        QVERIFY(text(replyTo(u"Hi there"_s)));
    }

    void takesTheKeyboardByAClickBesideItsText()
    {
        open();
        const QPointF corner = placeOf(m_window->all(u"MessageField"_s).value(0)).topLeft();
        QTest::mouseClick(m_view.get(), Qt::LeftButton, {}, (corner + QPointF(5, 5)).toPoint());
        m_window->type(u"x"_s);
        QCOMPARE(typed(), u"x"_s);
    }

    void sendsByReturnAndStaysInTheField_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("Return") << Qt::Key_Return;
        QTest::newRow("Enter of the number pad") << Qt::Key_Enter;
    }
    void sendsByReturnAndStaysInTheField()
    {
        QFETCH(Qt::Key, key);
        open();
        m_window->click(input());
        m_window->type(u"one"_s);
        m_window->press(key);
        QCOMPARE(typed(), QString());
        QCOMPARE(count(), 2);
        m_window->type(u"two"_s);
        m_window->press(key);
        QCOMPARE(count(), 3);
        QVERIFY(text(u"two"_s));
    }

    void breaksTheLineByShiftAndReturn()
    {
        open();
        m_window->click(input());
        m_window->type(u"a"_s);
        m_window->press(Qt::Key_Return, Qt::ShiftModifier);
        m_window->type(u"b"_s);
        QCOMPARE(count(), 1);
        m_window->press(Qt::Key_Return);
        QCOMPARE(count(), 2);
        const QString sent = rows().constLast()->property("content").toString();
        QCOMPARE(sent.split(QRegularExpression(u"[\n\u2028]"_s)), QStringList({u"a"_s, u"b"_s}));
    }

    void sendsNoBlanksAloneAndKeepsThem()
    {
        open();
        m_window->click(input());
        m_window->type(u"   "_s);
        QVERIFY(send()->isEnabled());
        QCOMPARE(colorOf(send(), "labelColor"), word(Color::blue()));
        m_window->press(Qt::Key_Return);
        m_window->click(send());
        m_world->clock.advance(2s);
        QCOMPARE(count(), 1);
        QCOMPARE(typed(), u"   "_s);
        QVERIFY(send()->isEnabled());
    }

    void showsTheBlanksAroundAText()
    {
        open();
        say(u"  Hello  "_s);
        reply();
        QVERIFY(text(u"  Hello  "_s));
        QVERIFY(text(replyTo(u"  Hello  "_s)));
    }

    void showsEveryTextAsItStands_data()
    {
        QTest::addColumn<QString>("content");
        QTest::newRow("quotation marks") << u"He said \"no\""_s;
        QTest::newRow("markup") << u"<b>bold</b> <img src='http://127.0.0.1:1/x.png'> &lt; <style>"_s;
        QTest::newRow("markdown") << u"# Title\n* **one**\n[link](http://127.0.0.1:1)"_s;
        QTest::newRow("place markers") << u"%1 %n"_s;
        QTest::newRow("line breaks") << u"one\n\n\ntwo"_s;
        QTest::newRow("emoji") << u"👩‍👩‍👧‍👦 🇩🇪"_s;
        QTest::newRow("right to left") << u"مرحبا بالعالم \u202Eabc"_s;
        QTest::newRow("a mnemonic") << u"Save & &Quit"_s;
    }
    void showsEveryTextAsItStands()
    {
        QFETCH(QString, content);
        open();
        say(content);
        reply();
        for (const QString &shown : {content, replyTo(content)}) {
            const auto *words = text(shown);
            QVERIFY(words);
            QCOMPARE(words->property("textFormat").toInt(), int(Qt::PlainText));
            QCOMPARE(words->property("lineCount").toInt() > shown.count(u'\n'), true);
        }
        QVERIFY(m_world->service.requests().isEmpty());
        QVERIFY(m_world->urlOpener.opened.isEmpty());
    }

    void showsAReplyToEachOfTwoSends()
    {
        open();
        say(u"one"_s);
        m_world->clock.advance(500ms);
        say(u"two"_s);
        m_world->clock.advance(500ms);
        QCOMPARE(count(), 4);
        m_world->clock.advance(500ms);
        QCOMPARE(count(), 5);
        QCOMPARE(rows().constLast()->property("content").toString(), replyTo(u"two"_s));
    }

    void choosesAnotherModelByTheMenu()
    {
        open();
        m_window->click(modelButton());
        QStringList entries;
        for (const auto *item : m_window->all(u"MenuItem"_s)) {
            entries.append(item->property("text").toString());
        }
        QCOMPARE(entries,
            QStringList({u"GPT-4 Custom"_s, u"Claude Fine-tuned"_s, u"Gemini Pro Custom"_s, u"Mistral Custom"_s}));
        m_window->click(m_window->all(u"MenuItem"_s)[2]);
        QVERIFY(eventually([this] { return m_window->all(u"MenuItem"_s).isEmpty(); }));
        QVERIFY(text(u"Gemini Pro Custom"_s, modelButton()));
        QCOMPARE(QAccessible::queryAccessibleInterface(modelButton())->text(QAccessible::Name),
            u"Model: Gemini Pro Custom"_s);
        QCOMPARE(count(), 1);
        say(u"Hello"_s);
        reply();
        QVERIFY(text(replyTo(u"Hello"_s)));
    }

    void marksTheChosenModelInTheMenu()
    {
        open();
        const auto marked = [this] {
            QStringList marked;
            for (const auto *item : m_window->all(u"MenuItem"_s)) {
                if (m_window->symbol(u"checkmark"_s, item)) {
                    marked.append(item->property("text").toString());
                }
            }
            return marked;
        };
        const auto choose = [this](int place) {
            m_window->click(modelButton());
            m_window->click(m_window->all(u"MenuItem"_s)[place]);
            QVERIFY(eventually([this] { return m_window->all(u"MenuItem"_s).isEmpty(); }));
        };
        // The chosen one, chosen again, stays marked.
        for (const int place : {1, 1, 3}) {
            choose(place);
            m_window->click(modelButton());
            QCOMPARE(marked(), QStringList{m_window->all(u"MenuItem"_s)[place]->property("text").toString()});
            m_window->press(Qt::Key_Escape);
            QVERIFY(eventually([this] { return m_window->all(u"MenuItem"_s).isEmpty(); }));
        }
        QVERIFY(text(u"Mistral Custom"_s, modelButton()));
    }

    void choosesAModelByKeys()
    {
        open();
        modelButton()->forceActiveFocus(Qt::TabFocusReason);
        m_window->press(Qt::Key_Space);
        m_window->press(Qt::Key_Down);
        m_window->press(Qt::Key_Down);
        m_window->press(Qt::Key_Return);
        QVERIFY(text(u"Claude Fine-tuned"_s, modelButton()));
    }

    void showsTheGreetingAndThenThePendingReplyAfterAReset()
    {
        open();
        say(u"Hello"_s);
        m_world->clock.advance(500ms);
        m_window->click(m_window->button(u"Reset conversation"_s));
        QCOMPARE(count(), 1);
        QVERIFY(text(greeting));
        QVERIFY(!text(u"Hello"_s));
        m_world->clock.advance(500ms);
        QCOMPARE(count(), 2);
        QVERIFY(text(replyTo(u"Hello"_s)));
    }

    void leavesTheFieldAndTheModelAtAReset()
    {
        open();
        say(u"Hello"_s);
        m_window->type(u"half a thought"_s);
        m_window->click(m_window->button(u"Reset conversation"_s));
        QCOMPARE(typed(), u"half a thought"_s);
        QVERIFY(text(u"GPT-4 Custom"_s, modelButton()));
    }

    void attachesNothing()
    {
        open();
        const QStringList before = m_window->texts();
        m_window->click(m_window->button(u"Attach"_s));
        m_world->clock.advance(2s);
        settle();
        QCOMPARE(m_window->texts(), before);
        QCOMPARE(QGuiApplication::topLevelWindows().size(), 1);
        QCOMPARE(count(), 1);
    }

    void growsTheFieldFromOneLineToFive()
    {
        open();
        m_window->click(input());
        const auto *box = m_window->all(u"MessageField"_s).value(0);
        const double empty = box->height();
        const double bottom = placeOf(box).bottom();
        m_window->type(u"1"_s);
        QCOMPARE(box->height(), empty);
        const double line = empty - 24;
        for (int lines = 2; lines <= 8; ++lines) {
            m_window->press(Qt::Key_Return, Qt::ShiftModifier);
            m_window->type(QString::number(lines));
            QVERIFY2(qAbs(box->height() - 24 - std::min(lines, 5) * line) <= 1, qPrintable(QString::number(lines)));
            QCOMPARE(placeOf(box).bottom(), bottom);
            QVERIFY(placeOf(list()).bottom() <= placeOf(box).top() - 16);
        }
        m_window->press(Qt::Key_Return);
        QCOMPARE(box->height(), empty);
    }

    // The list and its end.

    void followsItsEndWithEachMessage()
    {
        open();
        for (int i = 0; i < 12; ++i) {
            say(u"Message %1"_s.arg(i));
            QVERIFY(count() < 8 || isAtEnd());
            reply();
            QVERIFY(count() < 8 || isAtEnd());
        }
        QVERIFY(list()->property("contentHeight").toDouble() > list()->height());
    }

    void doesNotScrollOnItsFirstDisplay()
    {
        open({980, 240});
        QCOMPARE(list()->property("contentY").toDouble(), -24.0);
    }

    void comesBackToItsEndFromFarUp()
    {
        open();
        for (int i = 0; i < 300; ++i) {
            say(i % 7 == 0 ? u"A text of several lines.\nThis is one.\nAnd this is one."_s : u"short"_s);
        }
        reply();
        QCOMPARE(count(), 601);
        QVERIFY(isAtEnd());
        QMetaObject::invokeMethod(list(), "positionViewAtBeginning");
        QVERIFY(text(greeting));
        say(u"the last one"_s);
        QVERIFY(isAtEnd());
        QCOMPARE(rows().constLast()->property("content").toString(), u"the last one"_s);
    }

    void followsItsEndWhenTheFieldShrinksWithTheSend()
    {
        open();
        for (int i = 0; i < 10; ++i) {
            say(u"short"_s);
        }
        say(u"one\ntwo\nthree\nfour\nfive"_s);
        QVERIFY(isAtEnd());
    }

    void goesToItsEndOnTheDefaultCurve()
    {
        m_world->environment.animations = true;
        AnimationTime time;
        open();
        for (int i = 0; i < 20; ++i) {
            say(u"short"_s);
        }
        QObject *travel = nullptr;
        for (QObject *child : list()->findChildren<QObject *>()) {
            if (child->inherits("QQuickNumberAnimation") && child->property("property") == u"contentY"_s) {
                travel = child;
            }
        }
        QVERIFY(travel);
        QCOMPARE(travel->property("duration").toInt(), 350);
        QCOMPARE(travel->property("easing").value<QEasingCurve>().type(), QEasingCurve::InOutQuad);
        QVERIFY(time.passesUntil([&] { return !travel->property("running").toBool(); }));
        QVERIFY(isAtEnd());

        const double start = list()->property("contentY").toDouble();
        say(u"one more"_s);
        QVERIFY(travel->property("running").toBool());
        QVERIFY(!isAtEnd());
        double last = start;
        bool between = false;
        QVERIFY(time.passesUntil([&] {
            const double now = list()->property("contentY").toDouble();
            const bool back = now < last;
            last = now;
            between = between || (now > start && !isAtEnd());
            return back || isAtEnd();
        }));
        QVERIFY(between);
        QVERIFY(isAtEnd());
    }

    void scrollsByWheelTouchpadAndKeys()
    {
        open();
        for (int i = 0; i < 30; ++i) {
            say(u"short"_s);
        }
        const auto position = [this] { return list()->property("contentY").toDouble(); };
        const auto turn = [this](QPoint pixels, int angle) {
            const QPointF place = placeOf(list()).center();
            QWheelEvent wheel(place, m_view->mapToGlobal(place), pixels, QPoint(0, angle), Qt::NoButton, Qt::NoModifier,
                Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(m_view.get(), &wheel);
        };
        const double end = position();
        turn({}, 120);
        QVERIFY(position() < end - 50);
        turn({0, 33}, 120);
        const double before = position();
        turn({0, -33}, -120);
        QCOMPARE(position(), before + 33);
        list()->forceActiveFocus(Qt::TabFocusReason);
        m_window->press(Qt::Key_Home);
        QVERIFY(text(greeting));
        QCOMPARE(position(), -24.0);
        m_window->press(Qt::Key_PageDown);
        QVERIFY(position() > 100);
        m_window->press(Qt::Key_End);
        // By hand the list goes on to its own margin below the last row.
        QCOMPARE(placeOf(rows().constLast()).bottom(), placeOf(list()).bottom() - 24);
    }

    void keepsFewRowsOfManyMessages()
    {
        open();
        for (int i = 0; i < 1000; ++i) {
            say(u"short"_s);
        }
        QCOMPARE(count(), 1001);
        const auto made = list()->property("contentItem").value<QQuickItem *>()->childItems().size();
        QVERIFY2(made < 60, qPrintable(QString::number(made)));
    }

    void answersSoonAfterALongPaste_data()
    {
        QTest::addColumn<QString>("content");
        const auto repeated = [](const QString &part, qsizetype length) {
            return part.repeated(length / part.size() + 1).left(length);
        };
        QTest::newRow("100 KB of words") << repeated(u"lorem ipsum dolor "_s, 100'000);
        QTest::newRow("100 KB without a blank") << QString(100'000, u'x');
        QTest::newRow("100 KB of short lines") << repeated(u"lorem ipsum\n"_s, 100'000);
        QTest::newRow("a megabyte without a blank") << QString(1'000'000, u'x');
    }
    void answersSoonAfterALongPaste()
    {
        QFETCH(QString, content);
        open();
        // In processor time, which what else the machine does has no part in.
        std::clock_t before = std::clock();
        const auto taken = [&] {
            const std::clock_t start = std::exchange(before, std::clock());
            return (before - start) * 1000 / CLOCKS_PER_SEC;
        };
        paste(content);
        m_view->grabWindow();
        const auto pasted = taken();
        QCOMPARE(typed().size(), content.size());
        m_window->press(Qt::Key_Return);
        settle();
        m_view->grabWindow();
        const auto sent = taken();
        QCOMPARE(count(), 2);
        reply();
        m_view->grabWindow();
        const auto replied = taken();
        QCOMPARE(count(), 3);
        QVERIFY(isAtEnd());
        qInfo("pasted in %ld ms, sent in %ld ms, replied in %ld ms", pasted, sent, replied);
        // Generous, for slow machines; what this guards against takes ten times as long and more.
        const auto most = content.size() / 100'000 * 2'000;
        QVERIFY(pasted < most && sent < most && replied < most);
    }

    // For assistive programs.

    void readsOutItsMessages()
    {
        open();
        say(u"Hello"_s);
        QCOMPARE(QAccessible::queryAccessibleInterface(list())->role(), QAccessible::List);
        QCOMPARE(QAccessible::queryAccessibleInterface(list())->text(QAccessible::Name), u"Conversation"_s);
        auto *first = m_window->control(QAccessible::ListItem, u"Model: "_s + greeting);
        auto *second = m_window->control(QAccessible::ListItem, u"You: Hello"_s);
        QVERIFY(first && second);
        QCOMPARE(QAccessible::queryAccessibleInterface(second)->text(QAccessible::Description),
            m_world->clock.now().toLocalTime().time().toString(u"HH:mm"_s));
    }

    void announcesEachReplyOnce()
    {
        open();
        // A notification is read out when it comes into view.
        QStringList announced;
        int notifications = 0;
        for (const QQuickItem *item : m_view->rootObject()->findChildren<QQuickItem *>()) {
            auto *interface = QAccessible::queryAccessibleInterface(const_cast<QQuickItem *>(item));
            if (interface && interface->role() == QAccessible::Notification) {
                ++notifications;
                QVERIFY(!item->isVisible());
                connect(item, &QQuickItem::visibleChanged, this, [=, &announced] {
                    if (item->isVisible()) {
                        announced.append(interface->text(QAccessible::Name));
                    }
                });
            }
        }
        QCOMPARE(notifications, 1);
        say(u"one"_s);
        m_world->clock.advance(500ms);
        say(u"two"_s);
        QCOMPARE(announced, QStringList());
        m_world->clock.advance(1s);
        QCOMPARE(announced, QStringList({replyTo(u"one"_s), replyTo(u"two"_s)}));
        m_window->click(m_window->button(u"Reset conversation"_s));
        QCOMPARE(announced.size(), 2);
    }

    // What it looks like.

    void composesTheHeader()
    {
        open();
        QCOMPARE(colorOf(m_view->rootObject()), u"#ff1e1e20"_s);
        const auto *title = text(u"Chat with Model"_s);
        const auto *subtitle = text(u"Talk to your fine-tuned AI models"_s);
        QCOMPARE(fontOf(title), u"Inter 24 700"_s);
        QCOMPARE(fontOf(subtitle), u"Inter 13 400"_s);
        QCOMPARE(colorOf(subtitle), word(Theme::secondaryLabel()));
        QCOMPARE(placeOf(title).topLeft(), QPointF(24, 24));
        QCOMPARE(placeOf(subtitle).top() - placeOf(title).bottom(), 4.0);

        const auto *model = modelButton();
        QCOMPARE(colorOf(model, "fillColor"), word(Color::faded(Color::blue(), 0.1)));
        QCOMPARE(model->property("radius").toInt(), 8);
        QCOMPARE(paddingOf(model), QSizeF(16, 8));
        QCOMPARE(m_window->symbol(u"brain.head.profile"_s, model)->property("size").toInt(), 14);
        QCOMPARE(m_window->symbol(u"chevron.down"_s, model)->property("size").toInt(), 10);
        QCOMPARE(fontOf(text(u"GPT-4 Custom"_s, model)), u"Inter 13 500"_s);

        const auto *reset = m_window->button(u"Reset conversation"_s);
        QCOMPARE(m_window->symbol(u"arrow.clockwise"_s, reset)->property("size").toInt(), 14);
        QCOMPARE(paddingOf(reset), QSizeF(8, 8));
        QCOMPARE(colorOf(reset, "fillColor"), word(Theme::controlBackground()));
        QCOMPARE(reset->property("radius").toInt(), 6);
        QCOMPARE(placeOf(reset).right(), 980 - 24.0);
        QVERIFY(placeOf(model).right() < placeOf(reset).left());

        // No gaps: header, line, list, line, input.
        const auto lines = m_window->all(u"Divider"_s);
        QCOMPARE(lines.size(), 2);
        QCOMPARE(placeOf(lines[0]).top() - placeOf(subtitle).bottom(), 24.0);
        QCOMPARE(placeOf(list()).top(), placeOf(lines[0]).bottom());
        QCOMPARE(placeOf(list()).bottom(), placeOf(lines[1]).top());
    }

    void composesAMessageOfTheModel()
    {
        open();
        const auto *row = rows().constFirst();
        const auto *icon = m_window->symbol(u"sparkles"_s, row);
        QCOMPARE(icon->property("size").toInt(), 16);
        QCOMPARE(colorOf(icon), white);
        const auto *avatar = icon->parentItem();
        QCOMPARE(avatar->size(), QSizeF(32, 32));
        QCOMPARE(avatar->property("radius").toInt(), 16);
        QCOMPARE(colorOf(avatar), u"#ff1a1a1a"_s);
        QCOMPARE(placeOf(avatar).left(), 24.0);
        QCOMPARE(placeOf(avatar).top() - placeOf(list()).top(), 24.0);

        const auto *words = text(greeting, row);
        QCOMPARE(fontOf(words), u"Inter 14 400"_s);
        QCOMPARE(colorOf(words), word(Theme::label()));
        QCOMPARE(colorOf(bubble(row)), u"#ff2a2a2d"_s);
        QCOMPARE(bubble(row)->property("radius").toInt(), 16);
        QCOMPARE(placeOf(words).topLeft() - placeOf(bubble(row)).topLeft(), QPointF(14, 14));
        QCOMPARE(placeOf(bubble(row)).bottomRight() - placeOf(words).bottomRight(), QPointF(14, 14));
        QVERIFY(placeOf(bubble(row)).left() > placeOf(avatar).right());

        const auto *stamp = text(m_world->clock.now().toLocalTime().time().toString(u"HH:mm"_s), row);
        QCOMPARE(fontOf(stamp), u"Inter 10 400"_s);
        QCOMPARE(colorOf(stamp), word(Theme::secondaryLabel()));
        QCOMPARE(placeOf(stamp).top() - placeOf(bubble(row)).bottom(), 6.0);
        QCOMPARE(placeOf(stamp).left(), placeOf(bubble(row)).left());
    }

    void composesAMessageOfTheUser()
    {
        open();
        say(u"Hi"_s);
        const auto *row = rows().constLast();
        const auto *icon = m_window->symbol(u"person.circle.fill"_s, row);
        QCOMPARE(icon->property("size").toInt(), 16);
        QCOMPARE(colorOf(icon), word(Color::blue()));
        const auto *avatar = icon->parentItem();
        QCOMPARE(avatar->size(), QSizeF(32, 32));
        QCOMPARE(colorOf(avatar), word(Color::faded(Color::blue(), 0.1)));
        QCOMPARE(placeOf(avatar).right(), 980 - 24.0);
        QCOMPARE(colorOf(text(u"Hi"_s, row)), white);
        QCOMPARE(colorOf(bubble(row)), u"#ff222222"_s);
        QVERIFY(placeOf(bubble(row)).right() < placeOf(avatar).left());
        const auto *stamp = m_window->all(u"Label"_s, row).constLast();
        QCOMPARE(placeOf(stamp).right(), placeOf(bubble(row)).right());
        QCOMPARE(placeOf(row).top() - placeOf(rows().constFirst()).bottom(), 16.0);
    }

    void keepsBubblesWithinSixHundred_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<double>("widest");
        QTest::newRow("in a wide window") << QSize(1700, 900) << 600.0;
        QTest::newRow("in a narrow window") << QSize(500, 600) << 500.0 - 48 - 32;
    }
    void keepsBubblesWithinSixHundred()
    {
        QFETCH(QSize, size);
        QFETCH(double, widest);
        open(size);
        say(u"word "_s.repeated(100));
        say(QString(500, u'x'));
        for (const auto *row : rows().mid(1)) {
            QVERIFY(bubble(row)->width() <= widest);
            QVERIFY(bubble(row)->width() > widest - 60);
            QVERIFY(text(row->property("content").toString(), row)->property("lineCount").toInt() > 1);
            QVERIFY(text(row->property("content").toString(), row)->property("contentWidth").toDouble() <= widest - 28);
        }
    }

    void composesTheInput()
    {
        open();
        const auto *attach = m_window->symbol(u"paperclip"_s);
        QCOMPARE(attach->property("size").toInt(), 16);
        QCOMPARE(colorOf(attach), word(Theme::secondaryLabel()));
        const auto *box = m_window->all(u"MessageField"_s).value(0);
        QCOMPARE(colorOf(box), u"#ff2a2a2d"_s);
        QCOMPARE(box->property("radius").toInt(), 12);
        QCOMPARE(placeOf(input()).topLeft() - placeOf(box).topLeft(), QPointF(12, 12));
        QCOMPARE(placeOf(box).bottom(), 760 - 16.0);
        QCOMPARE(placeOf(box).top() - placeOf(m_window->all(u"Divider"_s)[1]).bottom(), 16.0);
        const auto *symbol = m_window->symbol(u"arrow.up.circle.fill"_s);
        QCOMPARE(symbol->property("size").toInt(), 32);
        QCOMPARE(placeOf(send()).right(), 980 - 16.0);
        QCOMPARE(placeOf(send()).left() - placeOf(box).right(), 12.0);
    }
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_ChatView)
#include "tst_ChatView.moc"
