#include "app/theme/Color.h"
#include "support/ViewTest.h"
#include "tools/wizard/SimplifiedFineTuningState.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmere::testing;

namespace quillmere {

namespace {

QString white(double opacity)
{
    return word(Color::faded(Qt::white, opacity));
}

const QStringList sources{u"Upload File"_s, u"Sample Dataset"_s, u"Import URL"_s, u"Database"_s};
const QStringList models{u"GPT-3.5 Turbo"_s, u"GPT-4"_s, u"Claude 3"_s, u"Llama 2"_s};
const QStringList goals{u"General Purpose"_s, u"Chatbot"_s, u"Classification"_s, u"Code Generation"_s};

const QString blue = word(Color::blue());
const QString gray = word(Color::gray());
const QString opaqueWhite = u"#ffffffff"_s;

} // namespace

class tst_SimplifiedFineTuningView : public ViewTest {
    Q_OBJECT

private:
    using ViewTest::open;
    void open() { open(u"Tools/SimplifiedFineTuningView.qml"_s, {980, 760}); }

    // A button or a card.
    QQuickItem *control(const QString &name) const
    {
        auto *button = m_window->button(name);
        return button ? button : m_window->control(QAccessible::RadioButton, name);
    }
    QQuickItem *text(const QString &text) const { return m_window->text(text); }
    void click(const QString &name) { m_window->click(control(name)); }

    // Goes on to that step with samples as the source.
    void goTo(int step)
    {
        click(u"Sample Dataset"_s);
        for (int i = 0; i < step; ++i) {
            click(u"Continue"_s);
        }
    }

    QQuickItem *dropZone() const { return m_window->all(u"quillmere::DashedFrame"_s).value(0); }
    QQuickItem *background(const QString &name) const { return backgroundOf(control(name))->childItems().value(0); }
    bool isChosen(const QString &name) const
    {
        return QAccessible::queryAccessibleInterface(control(name))->state().checked;
    }

    QStringList chosen(const QStringList &names) const
    {
        QStringList chosen;
        std::copy_if(
            names.begin(), names.end(), std::back_inserter(chosen), [&](const auto &name) { return isChosen(name); });
        return chosen;
    }

    // The label and the value of each row, from top to bottom.
    QStringList settings() const
    {
        QStringList rows;
        for (const auto *row : m_window->all(u"SettingRow"_s)) {
            rows.append(row->property("label").toString() + u"="_s + row->property("value").toString());
        }
        return rows;
    }

    QStringList reviewed() const
    {
        QStringList cards;
        for (const auto *card : m_window->all(u"ReviewCard"_s)) {
            cards.append(card->property("title").toString() + u"="_s + card->property("value").toString());
        }
        return cards;
    }

    bool showsSuccess() const { return text(u"Training Started!"_s) != nullptr; }

private slots:
    // What can be done.

    void opensOnUploadWithItsZoneAndContinueShut()
    {
        open();
        QVERIFY(text(u"Select Training Data"_s));
        QCOMPARE(chosen(sources), QStringList({u"Upload File"_s}));
        QVERIFY(dropZone());
        QVERIFY(!control(u"Continue"_s)->isEnabled());
        QCOMPARE(control(u"Continue"_s)->opacity(), 0.5);
        QCOMPARE(colorOf(control(u"Continue"_s), "fillColor"), white(0.1));
        click(u"Continue"_s);
        QVERIFY(text(u"Select Training Data"_s));
    }

    void browsesNoFiles()
    {
        open();
        click(u"Browse Files"_s);
        QVERIFY(dropZone());
        QVERIFY(!control(u"Continue"_s)->isEnabled());
        QVERIFY(m_world->urlOpener.opened.isEmpty());
        QCOMPARE(QGuiApplication::topLevelWindows().size(), 1);
        QCOMPARE(colorOf(dropZone(), "strokeColor"), white(0.1));
    }

    void takesNoDroppedFile()
    {
        open();
        QMimeData file;
        file.setUrls({QUrl(u"file:///data.csv"_s)});
        const QPoint place = placeOf(dropZone()).center().toPoint();
        QDragEnterEvent enter(place, Qt::CopyAction, &file, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_view.get(), &enter);
        QVERIFY(!enter.isAccepted());
        QCOMPARE(colorOf(dropZone(), "strokeColor"), white(0.1));
        QDropEvent drop(place, Qt::CopyAction, &file, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_view.get(), &drop);
        QVERIFY(!drop.isAccepted());
        QVERIFY(!control(u"Continue"_s)->isEnabled());
    }

    void goesOnWithAnyOtherSourceAtOnce_data()
    {
        QTest::addColumn<QString>("source");
        for (const QString &source : sources.mid(1)) {
            QTest::newRow(qPrintable(source)) << source;
        }
    }

    void goesOnWithAnyOtherSourceAtOnce()
    {
        QFETCH(QString, source);
        open();
        click(source);
        QCOMPARE(chosen(sources), QStringList({source}));
        QVERIFY(!dropZone());
        QVERIFY(control(u"Continue"_s)->isEnabled());
        QCOMPARE(control(u"Continue"_s)->opacity(), 1.0);
        QCOMPARE(colorOf(control(u"Continue"_s), "fillColor"), blue);

        click(u"Upload File"_s);
        QCOMPARE(chosen(sources), QStringList({u"Upload File"_s}));
        QVERIFY(dropZone());
        QVERIFY(!control(u"Continue"_s)->isEnabled());
        QCOMPARE(control(u"Continue"_s)->opacity(), 0.5);

        click(source);
        click(u"Continue"_s);
        QVERIFY(text(u"Choose Base Model"_s));
    }

    void goesThroughFourStepsAndBack()
    {
        open();
        const QStringList titles{
            u"Select Training Data"_s, u"Choose Base Model"_s, u"Configure Training"_s, u"Review & Start"_s};
        click(u"Database"_s);
        for (int step = 0; step < 4; ++step) {
            for (const QString &title : titles) {
                QCOMPARE(text(title) != nullptr, title == titles.at(step));
            }
            QCOMPARE(control(u"Back"_s) != nullptr, step > 0);
            QCOMPARE(control(u"Continue"_s) != nullptr, step < 3);
            QCOMPARE(control(u"Start Fine-Tuning"_s) != nullptr, step == 3);
            if (step < 3) {
                click(u"Continue"_s);
            }
        }
        for (int step = 2; step >= 0; --step) {
            click(u"Back"_s);
            QVERIFY(text(titles.at(step)));
        }
        QCOMPARE(chosen(sources), QStringList({u"Database"_s}));
    }

    void staysAtTheFirstStepHoweverOftenBackIsPressed()
    {
        open();
        goTo(1);
        auto *back = control(u"Back"_s);
        back->forceActiveFocus(Qt::TabFocusReason);
        for (int i = 0; i < 3; ++i) {
            m_window->press(Qt::Key_Return);
            QVERIFY(text(u"Select Training Data"_s));
        }
        QAccessible::queryAccessibleInterface(back)->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
        QVERIFY(text(u"Select Training Data"_s));
    }

    void handsTheKeyboardFromAButtonThatGoesToTheStep()
    {
        open();
        goTo(1);
        control(u"Back"_s)->forceActiveFocus(Qt::TabFocusReason);
        m_window->press(Qt::Key_Return);
        QVERIFY(text(u"Select Training Data"_s));
        m_window->press(Qt::Key_Tab);
        QCOMPARE(m_view->activeFocusItem(), control(u"Upload File"_s));

        goTo(2);
        control(u"Continue"_s)->forceActiveFocus(Qt::TabFocusReason);
        m_window->press(Qt::Key_Return);
        QVERIFY(text(u"Review & Start"_s));
        m_window->press(Qt::Key_Tab);
        QCOMPARE(m_view->activeFocusItem(), control(u"Start Fine-Tuning"_s));
    }

    void recommendsTheFirstModelWhateverIsChosen()
    {
        open();
        goTo(1);
        QCOMPARE(chosen(models), QStringList({u"GPT-3.5 Turbo"_s}));
        for (const QString &model : models) {
            click(model);
            QCOMPARE(chosen(models), QStringList({model}));
            for (auto *card : m_window->all(u"ModelCard"_s)) {
                QCOMPARE(m_window->text(u"RECOMMENDED"_s, card) != nullptr, card == control(u"GPT-3.5 Turbo"_s));
            }
        }
    }

    void showsTheSameSettingsForEveryGoalAndModel()
    {
        const QStringList expected{u"Learning Rate=2e-5"_s, u"Batch Size=8"_s, u"Epochs=3"_s, u"LoRA Rank=16"_s};
        open();
        goTo(1);
        for (const QString &model : models) {
            click(model);
            click(u"Continue"_s);
            for (const QString &goal : goals) {
                click(goal);
                QCOMPARE(chosen(goals), QStringList({goal}));
                QCOMPARE(settings(), expected);
            }
            click(u"Back"_s);
        }
    }

    void showsTheChoicesForReviewByTheirTitles()
    {
        open();
        click(u"Import URL"_s);
        click(u"Continue"_s);
        click(u"Claude 3"_s);
        click(u"Continue"_s);
        click(u"Code Generation"_s);
        click(u"Continue"_s);
        QCOMPARE(reviewed(), QStringList({u"Dataset=Import URL"_s, u"Model=Claude 3"_s, u"Goal=Code Generation"_s}));
    }

    void startsForTwoSecondsAndTellsOfTheSuccess()
    {
        open();
        goTo(3);
        auto *start = control(u"Start Fine-Tuning"_s);
        m_window->click(start);
        QVERIFY(!start->isEnabled());
        QCOMPARE(control(u"Starting..."_s), start);
        QVERIFY(m_window->text(u"Starting..."_s, start));
        QVERIFY(!m_window->symbol(u"bolt.fill"_s, start));
        QCOMPARE(m_window->all(u"Spinner"_s).size(), 1);
        QVERIFY(control(u"Back"_s)->isEnabled());
        m_window->click(start);
        m_world->clock.advance(1999ms);
        QVERIFY(!showsSuccess());
        m_world->clock.advance(1ms);
        QVERIFY(eventually([&] { return showsSuccess(); }));
        QVERIFY(text(u"You can monitor progress in the Dashboard."_s));
        QVERIFY(start->isEnabled());
        QVERIFY(m_window->symbol(u"bolt.fill"_s, start));
        QCOMPARE(m_world->clock.scheduledCount(), 0);
        QVERIFY(m_world->service.requests().isEmpty());
    }

    void tellsOfTheSuccessOnTheStepThatTheUserWentBackTo()
    {
        open();
        goTo(3);
        click(u"Start Fine-Tuning"_s);
        click(u"Back"_s);
        click(u"Back"_s);
        m_world->clock.advance(2s);
        QVERIFY(eventually([&] { return showsSuccess(); }));
        QVERIFY(text(u"Choose Base Model"_s));
        click(u"Done"_s);
        QVERIFY(eventually([&] { return !showsSuccess(); }));
        QVERIFY(text(u"Choose Base Model"_s));
        click(u"Continue"_s);
        click(u"Continue"_s);
        QVERIFY(control(u"Start Fine-Tuning"_s)->isEnabled());
        QVERIFY(!showsSuccess());
    }

    void staysDisabledForWhoComesBackDuringThePause()
    {
        open();
        goTo(3);
        click(u"Start Fine-Tuning"_s);
        click(u"Back"_s);
        click(u"Continue"_s);
        QVERIFY(!control(u"Starting..."_s)->isEnabled());
    }

    void resetsNothingWhenDoneAndStartsAgain_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("by the mouse") << Qt::Key_unknown;
        QTest::newRow("by Return") << Qt::Key_Return;
        QTest::newRow("by Escape") << Qt::Key_Escape;
    }

    void resetsNothingWhenDoneAndStartsAgain()
    {
        QFETCH(Qt::Key, key);
        open();
        goTo(3);
        const QStringList choices = reviewed();
        for (int round = 0; round < 2; ++round) {
            click(u"Start Fine-Tuning"_s);
            m_world->clock.advance(2s);
            QVERIFY(eventually([&] { return showsSuccess(); }));
            if (key == Qt::Key_unknown) {
                click(u"Done"_s);
            } else {
                m_window->press(key);
            }
            QVERIFY(eventually([&] { return !showsSuccess(); }));
            QVERIFY(!m_view->rootObject()->findChild<SimplifiedFineTuningState *>()->showSuccess());
            QVERIFY(text(u"Review & Start"_s));
            QCOMPARE(reviewed(), choices);
        }
    }

    void choosesByTheKeyboard()
    {
        open();
        control(u"Upload File"_s)->forceActiveFocus(Qt::TabFocusReason);
        m_window->press(Qt::Key_Left);
        QVERIFY(control(u"Upload File"_s)->property("visualFocus").toBool());
        m_window->press(Qt::Key_Up);
        QCOMPARE(chosen(sources), QStringList({u"Upload File"_s}));
        m_window->press(Qt::Key_Right);
        QCOMPARE(chosen(sources), QStringList({u"Sample Dataset"_s}));
        m_window->press(Qt::Key_Down);
        QCOMPARE(chosen(sources), QStringList({u"Database"_s}));
        QVERIFY(control(u"Database"_s)->hasActiveFocus());
        m_window->press(Qt::Key_Down);
        m_window->press(Qt::Key_Right);
        QCOMPARE(chosen(sources), QStringList({u"Database"_s}));
        m_window->press(Qt::Key_Left);
        QCOMPARE(chosen(sources), QStringList({u"Import URL"_s}));
        m_window->press(Qt::Key_Up);
        m_window->press(Qt::Key_Tab);
        m_window->press(Qt::Key_Space);
        QCOMPARE(chosen(sources), QStringList({u"Sample Dataset"_s}));
    }

    void tellsAssistiveProgramsOfItsCards()
    {
        open();
        auto *card = QAccessible::queryAccessibleInterface(control(u"Sample Dataset"_s));
        QCOMPARE(card->role(), QAccessible::RadioButton);
        QVERIFY(card->state().checkable);
        QVERIFY(!card->state().checked);
        QVERIFY(card->state().focusable);
        QCOMPARE(card->text(QAccessible::Description), u"Pre-loaded examples"_s);
        card->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QVERIFY(card->state().checked);
        click(u"Continue"_s);
        QCOMPARE(QAccessible::queryAccessibleInterface(control(u"GPT-3.5 Turbo"_s))->text(QAccessible::Description),
            u"RECOMMENDED. Fast & cost-effective"_s);
    }

    // Name and description stand on the card itself; its texts would say them once more.
    void saysNothingOfACardTwice()
    {
        open();
        goTo(0);
        for (const QString &type : {u"DatasetOptionCard"_s, u"ModelCard"_s, u"TrainingGoalCard"_s}) {
            const auto cards = m_window->all(type);
            QCOMPARE(cards.size(), 4);
            for (auto *card : cards) {
                QCOMPARE(QAccessible::queryAccessibleInterface(card)->childCount(), 0);
            }
            click(u"Continue"_s);
        }
    }

    // How it looks.

    void growsItsCardsUnderThePointer_data()
    {
        QTest::addColumn<int>("step");
        QTest::addColumn<QString>("name");
        QTest::addColumn<double>("scale");
        QTest::newRow("a source") << 0 << u"Database"_s << 1.02;
        QTest::newRow("a model") << 1 << u"GPT-4"_s << 1.01;
        QTest::newRow("a goal") << 2 << u"Chatbot"_s << 1.01;
    }

    void growsItsCardsUnderThePointer()
    {
        QFETCH(int, step);
        QFETCH(QString, name);
        QFETCH(double, scale);
        open();
        goTo(step);
        auto *card = control(name);
        QCOMPARE(card->scale(), 1.0);
        QCOMPARE(strokeOf(background(name)), white(0.05) + u" 1"_s);
        m_window->hover(card);
        QVERIFY(eventually([&] { return card->scale() == scale; }));
        QVERIFY(card->property("isHovering").toBool());
        // What is drawn grows as the card does, by whole points around its middle.
        const QRectF grown = placeOf(background(name));
        QVERIFY(qAbs(grown.width() - card->width() * scale) <= 1);
        QCOMPARE(grown.center(), placeOf(card).center());
        QCOMPARE(grown, QRectF(grown.toRect()));
        QCOMPARE(strokeOf(background(name)), white(0.1) + u" 1"_s);
        m_window->click(card);
        QCOMPARE(strokeOf(background(name)), blue + u" 2"_s);
        QTest::mouseMove(m_view.get(), QPoint(5, 5));
        QVERIFY(eventually([&] { return card->scale() == 1.0; }));
        QCOMPARE(strokeOf(background(name)), blue + u" 2"_s);
    }

    void keepsItsLookAroundItsSteps()
    {
        open();
        QCOMPARE(colorOf(m_view->rootObject()), u"#ff000000"_s);
        auto *title = text(u"Fine-Tune Wizard"_s);
        auto *subtitle = text(u"Create your custom model in 4 simple steps"_s);
        QCOMPARE(fontOf(title), u"Open Runde 24 700"_s);
        QCOMPARE(colorOf(title), opaqueWhite);
        QCOMPARE(fontOf(subtitle), u"Open Runde 14 400"_s);
        QCOMPARE(colorOf(subtitle), gray);
        QCOMPARE(placeOf(title).topLeft(), QPointF(32, 32));
        QCOMPARE(placeOf(subtitle).top(), placeOf(title).bottom() + 4);

        const auto *indicator = m_window->all(u"StepIndicator"_s).value(0);
        QCOMPARE(placeOf(indicator).left(), 32);
        QCOMPARE(placeOf(indicator).width(), 980 - 64);
        const auto *line = m_window->all(u"Divider"_s).value(0);
        QCOMPARE(colorOf(line), white(0.1));
        QCOMPARE(placeOf(line).height(), 1);
        QCOMPARE(placeOf(line).width(), 980);
        const auto *disc = m_window->all(u"StepMark"_s).value(0)->childItems().value(0);
        QCOMPARE(placeOf(line).top(), placeOf(disc).bottom() + 24);

        QCOMPARE(placeOf(text(u"Select Training Data"_s)).topLeft(), QPointF(32, placeOf(line).bottom() + 32));
        QCOMPARE(fontOf(text(u"Select Training Data"_s)), u"Open Runde 20 700"_s);

        goTo(1);
        auto *back = control(u"Back"_s);
        auto *on = control(u"Continue"_s);
        QCOMPARE(placeOf(back), QRectF(24, 760 - 64, 100, 40));
        QCOMPARE(fontOf(back), u"Open Runde 14 500"_s);
        QCOMPARE(colorOf(back, "fillColor"), white(0.1));
        QCOMPARE(colorOf(back, "labelColor"), opaqueWhite);
        QCOMPARE(placeOf(on), QRectF(980 - 24 - 120, 760 - 64, 120, 40));
        QCOMPARE(fontOf(on), u"Open Runde 14 600"_s);
        QCOMPARE(on->property("radius").toInt(), 10);
        QVERIFY(m_window->symbol(u"arrow.right"_s, on));
        const auto *edge = m_window->all(u"Divider"_s).last();
        QCOMPARE(placeOf(edge), QRectF(0, 760 - 88, 980, 1));
        QCOMPARE(colorOf(edge), white(0.1));
    }

    void growsWithALongerWordForTheWayOn()
    {
        open();
        auto *on = control(u"Continue"_s);
        on->setProperty("text", u"Continue with the next step"_s);
        const auto *word = text(u"Continue with the next step"_s);
        const auto *arrow = m_window->symbol(u"arrow.right"_s, on);
        QTRY_COMPARE(placeOf(on).width(), std::ceil(placeOf(arrow).right() - placeOf(word).left()) + 24);
        QCOMPARE(placeOf(on).right(), 980 - 24);
    }

    void marksThePastTheCurrentAndTheComingSteps()
    {
        open();
        const QStringList labels{u"Select Data"_s, u"Choose Model"_s, u"Configure"_s, u"Start"_s};
        for (int step = 0; step < 4; ++step) {
            const auto marks = m_window->all(u"StepMark"_s);
            QCOMPARE(marks.size(), 4);
            for (int i = 0; i < 4; ++i) {
                auto *mark = marks.at(i);
                auto *disc = mark->childItems().value(0);
                auto *label = m_window->text(labels.at(i), mark);
                auto *number = m_window->text(QString::number(i + 1), mark);
                auto *check = m_window->symbol(u"checkmark"_s, mark);
                const auto *told = QAccessible::queryAccessibleInterface(mark);
                QCOMPARE(told->text(QAccessible::Name), u"Step %1: %2"_s.arg(i + 1).arg(labels.at(i)));
                QCOMPARE(told->text(QAccessible::Description), i == step ? u"Current"_s : i < step ? u"Done"_s : u""_s);
                QCOMPARE(disc->size(), QSizeF(28, 28));
                QVERIFY(eventually([&] { return colorOf(disc) == (i <= step ? blue : white(0.1)); }));
                QCOMPARE(check != nullptr, i < step);
                QCOMPARE(number != nullptr, i >= step);
                if (number) {
                    QCOMPARE(fontOf(number), u"Open Runde 12 700"_s);
                    QCOMPARE(colorOf(number), i == step ? opaqueWhite : gray);
                }
                QCOMPARE(fontOf(label), i == step ? u"Open Runde 13 600"_s : u"Open Runde 13 400"_s);
                QVERIFY(eventually([&] { return colorOf(label) == (i > step ? gray : opaqueWhite); }));
                QTRY_COMPARE(placeOf(label).left(), placeOf(disc).right() + 12);
                if (i == 3) {
                    // The last label ends where the indicator ends, but for what does not divide by three.
                    QTRY_VERIFY(qAbs(placeOf(label).right() - (980 - 32)) < 3);
                    continue;
                }
                const auto *bar = mark->childItems().value(2)->childItems().value(0);
                QCOMPARE(bar->height(), 2);
                QVERIFY(bar->width() > 50);
                QTRY_COMPARE(placeOf(bar).left(), placeOf(label).right() + 12 + 8);
                const auto *next = marks.at(i + 1)->childItems().value(0);
                QTRY_COMPARE(placeOf(next).left(), placeOf(bar).right() + 8 + 12);
                QVERIFY(eventually([&] { return colorOf(bar) == (i < step ? blue : white(0.1)); }));
            }
            if (step == 0) {
                click(u"Sample Dataset"_s);
            }
            if (step < 3) {
                click(u"Continue"_s);
            }
        }
    }

    void keepsItsLookWhereDataIsChosen()
    {
        open();
        const QStringList descriptions{
            u"CSV, JSONL, TXT"_s, u"Pre-loaded examples"_s, u"Fetch from link"_s, u"SQL, MongoDB"_s};
        const QStringList icons{u"arrow.up.doc.fill"_s, u"doc.text.fill"_s, u"link.circle.fill"_s, u"cylinder.fill"_s};
        const QList<QColor> colors{Color::blue(), Color::green(), Color::purple(), Color::orange()};
        const auto cards = m_window->all(u"DatasetOptionCard"_s);
        QCOMPARE(cards.size(), 4);
        for (int i = 0; i < 4; ++i) {
            auto *card = cards.at(i);
            auto *title = m_window->text(sources.at(i), card);
            auto *description = m_window->text(descriptions.at(i), card);
            auto *icon = m_window->symbol(icons.at(i), card);
            QCOMPARE(fontOf(title), u"Open Runde 14 600"_s);
            QCOMPARE(colorOf(title), opaqueWhite);
            QCOMPARE(fontOf(description), u"Open Runde 12 400"_s);
            QCOMPARE(colorOf(description), gray);
            QCOMPARE(placeOf(description).top(), placeOf(title).bottom() + 4);
            QCOMPARE(icon->property("size").toInt(), 20);
            QCOMPARE(colorOf(icon), word(colors.at(i)));
            QCOMPARE(placeIn(icon, card).left(), 16);
            QCOMPARE(card->height(), placeOf(description).bottom() - placeOf(title).top() + 32);
            QCOMPARE(card->property("radius").toInt(), 16);
            auto *mark = m_window->symbol(u"checkmark.circle.fill"_s, card);
            QCOMPARE(mark != nullptr, i == 0);
            if (mark) {
                QCOMPARE(colorOf(mark), blue);
                QVERIFY(qAbs(placeIn(mark, card).right() - (card->width() - 16)) < 1);
            }
        }
        QCOMPARE(placeOf(cards.at(1)).left(), placeOf(cards.at(0)).right() + 16);
        QCOMPARE(placeOf(cards.at(2)).top(), placeOf(cards.at(0)).bottom() + 16);
        QCOMPARE(placeOf(cards.at(1)).right(), 980 - 32);
        QCOMPARE(placeOf(cards.at(0)).top(), placeOf(text(u"Select Training Data"_s)).bottom() + 24);

        auto *zone = dropZone();
        QCOMPARE(zone->height(), 240);
        QCOMPARE(zone->width(), 980 - 64);
        QCOMPARE(placeOf(zone).top(), placeOf(cards.at(2)).bottom() + 24);
        QCOMPARE(colorOf(zone), white(0.03));
        QCOMPARE(colorOf(zone, "strokeColor"), white(0.1));
        QCOMPARE(zone->property("strokeWidth").toInt(), 2);
        QCOMPARE(zone->property("dash").toInt(), 10);
        QCOMPARE(zone->property("radius").toInt(), 16);
        auto *cloud = m_window->symbol(u"icloud.and.arrow.up"_s, zone);
        QCOMPARE(cloud->property("size").toInt(), 40);
        QCOMPARE(colorOf(cloud), blue);
        auto *invitation = m_window->text(u"Drag & Drop file here"_s, zone);
        QCOMPARE(fontOf(invitation), u"Open Runde 16 500"_s);
        QCOMPARE(colorOf(invitation), opaqueWhite);
        QCOMPARE(placeOf(invitation).top(), placeOf(cloud).bottom() + 16);
        auto *limits = m_window->text(u"Supports CSV, JSONL, TXT (Max 100MB)"_s, zone);
        QCOMPARE(fontOf(limits), u"Open Runde 12 400"_s);
        QCOMPARE(colorOf(limits), gray);
        auto *browse = control(u"Browse Files"_s);
        QCOMPARE(fontOf(browse), u"Open Runde 13 500"_s);
        QCOMPARE(browse->property("radius").toInt(), 8);
        QCOMPARE(placeOf(browse).top(), placeOf(limits).bottom() + 16);
        QCOMPARE(browse->property("horizontalPadding").toInt(), 16);
        QCOMPARE(browse->property("verticalPadding").toInt(), 8);
        QVERIFY(placeIn(cloud, zone).top() >= 40);
        QVERIFY(placeIn(browse, zone).bottom() <= 200);
    }

    // The stroke lies inside of the zone, dash and gap of ten points each, and the gaps show the zone's ground.
    void dashesTheZone()
    {
        open();
        const QRectF zone = placeOf(dropZone());
        const QImage picture = m_view->grabWindow();
        const int y = int(zone.top());
        int dashes = 0;
        int longest = 0;
        int shortest = 1000;
        int run = 0;
        bool inDash = picture.pixelColor(int(zone.left()) + 40, y).red() > 20;
        for (int x = int(zone.left()) + 40; x < int(zone.right()) - 40; ++x) {
            const bool isDash = picture.pixelColor(x, y).red() > 20;
            if (isDash != inDash) {
                if (dashes > 0) {
                    longest = std::max(longest, run);
                    shortest = std::min(shortest, run);
                }
                ++dashes;
                run = 0;
                inDash = isDash;
            }
            ++run;
        }
        QVERIFY(dashes > 70);
        QVERIFY2(shortest >= 9 && longest <= 11, qPrintable(u"%1 to %2"_s.arg(shortest).arg(longest)));
        QCOMPARE(picture.pixelColor(int(zone.center().x()) - 200, int(zone.center().y())).red(), qRound(255 * 0.03));
        QCOMPARE(picture.pixelColor(int(zone.center().x()), y - 1).red(), 0);
    }

    void keepsItsLookWhereAModelIsChosen()
    {
        open();
        goTo(1);
        const QStringList descriptions{u"Fast & cost-effective"_s, u"High reasoning capability"_s,
            u"Large context window"_s, u"Open source & flexible"_s};
        const auto cards = m_window->all(u"ModelCard"_s);
        QCOMPARE(cards.size(), 4);
        for (int i = 0; i < 4; ++i) {
            auto *title = m_window->text(models.at(i), cards.at(i));
            QCOMPARE(fontOf(title), u"Open Runde 15 600"_s);
            QCOMPARE(placeIn(title, cards.at(i)).left(), 16);
            auto *description = m_window->text(descriptions.at(i), cards.at(i));
            QCOMPARE(fontOf(description), u"Open Runde 12 400"_s);
            QCOMPARE(colorOf(description), gray);
        }
        auto *badge = m_window->all(u"Badge"_s).value(0);
        auto *recommended = m_window->text(u"RECOMMENDED"_s, badge);
        QCOMPARE(fontOf(recommended), u"Open Runde 9 700"_s);
        QCOMPARE(colorOf(recommended), u"#ff000000"_s);
        QCOMPARE(colorOf(badge), word(Color::yellow()));
        QCOMPARE(badge->property("radius").toInt(), 4);
        QCOMPARE(badge->property("horizontalPadding").toInt(), 6);
        QCOMPARE(badge->property("verticalPadding").toInt(), 2);
        QCOMPARE(placeOf(cards.at(1)).left(), placeOf(cards.at(0)).right() + 12);
        QCOMPARE(placeOf(cards.at(2)).top(), placeOf(cards.at(0)).bottom() + 12);
    }

    void keepsItsLookWhereAGoalIsChosen()
    {
        open();
        goTo(2);
        const QStringList descriptions{
            u"Balanced performance"_s, u"Optimized for dialogue"_s, u"Labeling & sorting"_s, u"Writing code"_s};
        const QStringList icons{u"brain"_s, u"bubble.left.and.bubble.right.fill"_s, u"tag.fill"_s, u"terminal.fill"_s};
        const QList<QColor> colors{Color::blue(), Color::green(), Color::orange(), Color::purple()};
        const auto cards = m_window->all(u"TrainingGoalCard"_s);
        QCOMPARE(cards.size(), 4);
        for (int i = 0; i < 4; ++i) {
            auto *title = m_window->text(goals.at(i), cards.at(i));
            auto *description = m_window->text(descriptions.at(i), cards.at(i));
            auto *icon = m_window->symbol(icons.at(i), cards.at(i));
            QCOMPARE(fontOf(title), u"Open Runde 14 600"_s);
            QCOMPARE(placeOf(description).top(), placeOf(title).bottom() + 2);
            QCOMPARE(icon->property("size").toInt(), 18);
            QCOMPARE(icon->width(), 32);
            QCOMPARE(colorOf(icon), word(colors.at(i)));
        }
        QCOMPARE(placeOf(cards.at(1)).left(), placeOf(cards.at(0)).right() + 12);
        QCOMPARE(placeOf(cards.at(2)).top(), placeOf(cards.at(0)).bottom() + 12);

        auto *heading = text(u"Auto-Optimized Settings"_s);
        QCOMPARE(fontOf(heading), u"Open Runde 14 600"_s);
        auto *box = heading->parentItem()->parentItem();
        QCOMPARE(colorOf(box), white(0.03));
        QCOMPARE(box->property("radius").toInt(), 12);
        QCOMPARE(strokeOf(box), white(0.1) + u" 1"_s);
        QCOMPARE(placeOf(box).top(), placeOf(cards.at(2)).bottom() + 24);
        for (auto *row : m_window->all(u"SettingRow"_s)) {
            auto *label = m_window->text(row->property("label").toString(), row);
            auto *value = m_window->text(row->property("value").toString(), row);
            QCOMPARE(fontOf(label), u"Open Runde 13 400"_s);
            QCOMPARE(colorOf(label), gray);
            QCOMPARE(fontOf(value), u"Open Runde 13 500"_s);
            QCOMPARE(colorOf(value), blue);
            QCOMPARE(placeIn(label, row).topLeft(), QPointF(16, 12));
            QCOMPARE(placeIn(value, row).right(), row->width() - 16);
        }
    }

    void keepsItsLookAtTheReview()
    {
        open();
        goTo(3);
        const QStringList icons{u"doc.text.fill"_s, u"cpu.fill"_s, u"target"_s};
        const QList<QColor> colors{Color::blue(), Color::purple(), Color::green()};
        const auto cards = m_window->all(u"ReviewCard"_s);
        QCOMPARE(reviewed(),
            QStringList({u"Dataset=Sample Dataset"_s, u"Model=GPT-3.5 Turbo"_s, u"Goal=General Purpose"_s}));
        for (int i = 0; i < 3; ++i) {
            auto *card = cards.at(i);
            auto *icon = m_window->symbol(icons.at(i), card);
            auto *title = m_window->text(card->property("title").toString(), card);
            auto *value = m_window->text(card->property("value").toString(), card);
            QCOMPARE(icon->width(), 24);
            QCOMPARE(colorOf(icon), word(colors.at(i)));
            QCOMPARE(placeIn(icon, card).left(), 16);
            QCOMPARE(fontOf(title), u"Open Runde 14 400"_s);
            QCOMPARE(colorOf(title), gray);
            QCOMPARE(fontOf(value), u"Open Runde 14 600"_s);
            QCOMPARE(colorOf(value), opaqueWhite);
            QCOMPARE(colorOf(card), white(0.03));
            QCOMPARE(strokeOf(card), white(0.05) + u" 1"_s);
            QCOMPARE(card->property("radius").toInt(), 12);
            if (i > 0) {
                QCOMPARE(placeOf(card).top(), placeOf(cards.at(i - 1)).bottom() + 16);
            }
        }
        auto *start = control(u"Start Fine-Tuning"_s);
        QCOMPARE(start->width(), 980 - 64);
        QCOMPARE(placeOf(start).top(), placeOf(cards.last()).bottom() + 24);
        QCOMPARE(fontOf(start), u"Open Runde 16 600"_s);
        QCOMPARE(colorOf(start, "fillColor"), blue);
        QCOMPARE(colorOf(start, "labelColor"), opaqueWhite);
        QCOMPARE(start->property("radius").toInt(), 12);
        QCOMPARE(start->property("spacing").toInt(), 12);
        QCOMPARE(start->property("verticalPadding").toInt(), 16);
    }

    void keepsItsLookAtTheSuccess()
    {
        open();
        goTo(3);
        click(u"Start Fine-Tuning"_s);
        m_world->clock.advance(2s);
        QVERIFY(eventually([&] { return showsSuccess(); }));
        auto *view = m_window->all(u"SuccessView"_s).value(0);
        auto *check = m_window->symbol(u"checkmark.circle.fill"_s, view);
        auto *title = text(u"Training Started!"_s);
        auto *line = text(u"You can monitor progress in the Dashboard."_s);
        auto *done = control(u"Done"_s);
        QCOMPARE(check->property("size").toInt(), 64);
        QCOMPARE(colorOf(check), word(Color::green()));
        QCOMPARE(fontOf(title), u"Open Runde 24 700"_s);
        QCOMPARE(colorOf(title), opaqueWhite);
        QCOMPARE(fontOf(line), u"Open Runde 14 400"_s);
        QCOMPARE(colorOf(line), gray);
        QCOMPARE(colorOf(done, "fillColor"), blue);
        QVERIFY(qAbs(placeIn(check, view).top() - 40) < 1);
        QCOMPARE(placeOf(title).top(), placeOf(check).bottom() + 24);
        QCOMPARE(placeOf(line).top(), placeOf(title).bottom() + 8);
        QCOMPARE(placeOf(done).top(), placeOf(line).bottom() + 24);
        QVERIFY(qAbs(placeIn(done, view).bottom() - (view->height() - 40)) < 1);
        QVERIFY(qAbs(view->width() - (line->width() + 80)) < 1);
        QVERIFY(done->hasActiveFocus());
    }

    // Behind "New Training".

    void standsInTheSheetOfTheTrainingScreen()
    {
        open(u"Workspace/TrainingView.qml"_s, {1200, 800});
        click(u"New Training"_s);
        QVERIFY(eventually([&] { return text(u"Fine-Tune Wizard"_s) != nullptr; }));
        auto *wizard = m_window->all(u"SimplifiedFineTuningView"_s).value(0);
        QVERIFY(wizard->width() >= 900);
        QVERIFY(wizard->height() >= 700);
        goTo(3);
        click(u"Start Fine-Tuning"_s);
        m_world->clock.advance(2s);
        QVERIFY(eventually([&] { return showsSuccess(); }));

        m_window->press(Qt::Key_Escape);
        QVERIFY(eventually([&] { return !showsSuccess(); }));
        QVERIFY(text(u"Review & Start"_s));
        m_window->press(Qt::Key_Escape);
        QVERIFY(eventually([&] { return text(u"Fine-Tune Wizard"_s) == nullptr; }));

        click(u"New Training"_s);
        QVERIFY(eventually([&] { return text(u"Fine-Tune Wizard"_s) != nullptr; }));
        QVERIFY(text(u"Select Training Data"_s));
        QCOMPARE(chosen(sources), QStringList({u"Upload File"_s}));
    }

    void leavesNothingBehindWhenItsSheetClosesDuringThePause()
    {
        open(u"Workspace/TrainingView.qml"_s, {1200, 800});
        click(u"New Training"_s);
        QVERIFY(eventually([&] { return text(u"Fine-Tune Wizard"_s) != nullptr; }));
        goTo(3);
        click(u"Start Fine-Tuning"_s);
        click(u"Close"_s);
        QVERIFY(eventually([&] { return text(u"Fine-Tune Wizard"_s) == nullptr; }));
        m_world->clock.advance(2s);
        settle();
        QVERIFY(!showsSuccess());
    }
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_SimplifiedFineTuningView)
#include "tst_SimplifiedFineTuningView.moc"
