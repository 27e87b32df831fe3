#include "support/AnimationTime.h"
#include "support/ViewTest.h"
#include "workspace/projects/ProjectsViewModel.h"

#include <QSignalSpy>

#include <cmath>

using namespace Qt::StringLiterals;
using namespace quillmere;
using namespace quillmere::testing;
using namespace std::chrono_literals;

namespace {

const QString white = u"#ffffffff"_s;
const QString secondary = u"#ffa1a1aa"_s;
const QString tertiary = u"#ff71717a"_s;
const QString accent = u"#ff3b82f6"_s;
const QString surface = u"#ff121214"_s;
const QString border = u"#ff27272a"_s;
const QString outline = u"#ff27272a 1"_s;

} // namespace

class tst_ProjectsView : public ViewTest {
    Q_OBJECT

private slots:
    // Head, search and body

    void showsASpinnerForHalfASecondAndThenTheCards()
    {
        open();
        QCOMPARE(m_window->all(u"Spinner"_s).size(), 1);
        QCOMPARE(colorOf(m_window->all(u"Spinner"_s).first()), white);
        QVERIFY(cards().isEmpty());
        QVERIFY(!m_window->shows(u"No Projects Yet"_s));
        m_world->clock.advance(499ms);
        redraw();
        QVERIFY(cards().isEmpty());
        m_world->clock.advance(1ms);
        redraw();
        QVERIFY(m_window->all(u"Spinner"_s).isEmpty());
        QCOMPARE(names(), QStringList({u"Medical LLM"_s, u"Code Assistant"_s, u"Customer Support Bot"_s}));
    }

    void hasItsHeadAndItsSearchBoxInPlace()
    {
        open();
        QCOMPARE(colorOf(m_view->rootObject()), u"#ff09090b"_s);
        auto *title = m_window->text(u"Projects"_s);
        QCOMPARE(fontOf(title), u"Space Grotesk 24 700"_s);
        QCOMPARE(colorOf(title), white);
        QCOMPARE(placeOf(title).topLeft(), QPointF(24, 20));
        auto *subtitle = m_window->text(u"Manage your fine-tuning projects and workspaces"_s);
        QCOMPARE(fontOf(subtitle), u"Inter 14 400"_s);
        QCOMPARE(colorOf(subtitle), secondary);
        QCOMPARE(placeOf(subtitle).top() - placeOf(title).bottom(), 4.0);

        auto *button = m_window->button(u"New Project"_s);
        QVERIFY(QString::fromLatin1(button->metaObject()->className()).startsWith(u"PrimaryButton"_s));
        QVERIFY(m_window->symbol(u"plus"_s, button));
        QCOMPARE(button->property("spacing").toInt(), 8);
        QCOMPARE(placeOf(button).right(), 980.0 - 24);

        auto *box = m_window->all(u"SearchBox"_s).first();
        QCOMPARE(placeOf(box).left(), 24.0);
        QCOMPARE(placeOf(box).width(), 980.0 - 48);
        QCOMPARE(placeOf(box).top() - placeOf(subtitle).bottom(), 20.0);
        QCOMPARE(colorOf(box), surface);
        QCOMPARE(box->property("radius").toInt(), 8);
        auto *glass = m_window->symbol(u"magnifyingglass"_s, box);
        QCOMPARE(colorOf(glass), tertiary);
        QCOMPARE(placeIn(glass, box).left(), 12.0);
        auto *field = m_window->all(u"PlainField"_s).first();
        QCOMPARE(placeIn(field, box).left() - placeIn(glass, box).right(), 12.0);
        QCOMPARE(box->height(), field->implicitHeight() + 24);
        QCOMPARE(colorOf(field), white);
        QVERIFY(m_window->shows(u"Search projects..."_s));
    }

    void laysThreeColumnsOutAtAnyWidth_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("smallest window") << QSize(940, 760);
        QTest::newRow("wide") << QSize(1220, 860);
        QTest::newRow("odd") << QSize(1001, 760);
        QTest::newRow("very wide") << QSize(2340, 1400);
    }
    void laysThreeColumnsOutAtAnyWidth()
    {
        QFETCH(QSize, size);
        open(size);
        load();
        auto *model = m_view->rootObject()->findChild<ProjectsViewModel *>();
        model->createProject(u"Fourth"_s, {});
        redraw();
        const auto all = cards();
        QCOMPARE(all.size(), 4);
        const double bodyTop = placeOf(m_window->all(u"SearchBox"_s).first()).bottom() + 20;
        QCOMPARE(placeOf(all[0]).topLeft(), QPointF(24, bodyTop + 24));
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(all[i]->height(), 200.0);
            QCOMPARE(all[i]->width(), std::floor((size.width() - 48 - 32) / 3.0));
            QCOMPARE(placeOf(all[i]).left(), 24 + i * (all[i]->width() + 16));
            QCOMPARE(placeOf(all[i]).top(), placeOf(all[0]).top());
        }
        // Columns are whole points wide, so that up to two points may be left over.
        const double left = size.width() - 24 - placeOf(all[2]).right();
        QVERIFY(left >= 0 && left <= 2);
        QCOMPARE(placeOf(all[3]).topLeft(), QPointF(24, bodyTop + 24 + 200 + 16));
    }

    // Cards

    void setsTheFiguresOfACardOnOneLine()
    {
        open();
        load();
        const auto *card = cards().first();
        const auto lineOf = [&](const QString &text) {
            const auto *label = m_window->text(text, card);
            return std::round(placeIn(label, card).top() + label->baselineOffset());
        };
        for (const QString &text : {u"Models"_s, u"5"_s, u"Datasets"_s, u"Updated 1 hr ago"_s}) {
            QCOMPARE(lineOf(text), lineOf(u"2"_s));
        }
    }

    void keepsTheLookOfEachCard()
    {
        open();
        load();
        auto *card = cards().first();
        QCOMPARE(colorOf(card), surface);
        QCOMPARE(card->property("radius").toInt(), 12);
        QCOMPARE(strokeOf(card), outline);

        auto *folder = m_window->symbol(u"folder.fill"_s, card);
        QCOMPARE(folder->property("size").toInt(), 20);
        QCOMPARE(colorOf(folder), accent);
        QCOMPARE(placeIn(folder, card).left(), 20.0);

        auto *badge = m_window->all(u"Badge"_s).first();
        auto *word = m_window->text(u"Training"_s, badge);
        QCOMPARE(fontOf(word), u"Inter 10 700"_s);
        QCOMPARE(colorOf(word), accent);
        QCOMPARE(colorOf(badge), u"#263b82f6"_s);
        QCOMPARE(badge->property("radius").toInt(), 4);
        QCOMPARE(badge->width(), std::ceil(word->implicitWidth() + 16));
        QCOMPARE(badge->height(), word->implicitHeight() + 8);
        QCOMPARE(placeIn(badge, card).right(), card->width() - 20);
        QCOMPARE(std::min(placeIn(badge, card).top(), placeIn(folder, card).top()), 20.0);
        const double topRow = std::max(placeIn(badge, card).bottom(), placeIn(folder, card).bottom());

        auto *name = m_window->text(u"Medical LLM"_s, card);
        QCOMPARE(fontOf(name), u"Inter 14 500"_s);
        QCOMPARE(colorOf(name), white);
        QCOMPARE(placeIn(name, card).topLeft(), QPointF(20, topRow + 16));
        auto *description = m_window->text(u"Fine-tuning Llama for medical Q&A"_s, card);
        QCOMPARE(fontOf(description), u"Inter 12 400"_s);
        QCOMPARE(colorOf(description), secondary);
        QCOMPARE(placeIn(description, card).top() - placeIn(name, card).bottom(), 6.0);

        const auto stats = m_window->all(u"StatItem"_s);
        QCOMPARE(placeIn(stats[0], card).bottomLeft(), QPointF(20, 180));
        QCOMPARE(placeIn(stats[1], card).left() - placeIn(stats[0], card).right(), 16.0);
        expectStat(stats[0], u"cpu"_s, u"2"_s, u"Models"_s);
        expectStat(stats[1], u"cylinder.split.1x2"_s, u"5"_s, u"Datasets"_s);

        auto *updated = m_window->text(u"Updated 1 hr ago"_s, card);
        QCOMPARE(fontOf(updated), u"Inter 11 400"_s);
        QCOMPARE(colorOf(updated), tertiary);
        QCOMPARE(placeIn(updated, card).right(), card->width() - 20);
        QVERIFY(!updated->property("truncated").toBool());
    }

    void cutsNoAgeInTheSmallestWindowWithTheWidestSidebar()
    {
        open({940, 760});
        load();
        for (const QString &age : {u"Updated 1 hr ago"_s, u"Updated 1 day ago"_s, u"Updated 2 days ago"_s}) {
            const auto *label = m_window->text(age);
            QVERIFY2(!label->property("truncated").toBool(), qPrintable(age));
            QVERIFY(label->property("contentWidth").toDouble() <= label->width());
        }
    }

    void coloursTheBadgeByStatus()
    {
        open();
        load();
        QStringList words;
        for (auto *badge : m_window->all(u"Badge"_s)) {
            words += badge->property("text").toString() + u" "_s + colorOf(badge, "tint");
        }
        QCOMPARE(words, QStringList({u"Training #ff3b82f6"_s, u"Active #ff22c55e"_s, u"Archived #ff71717a"_s}));
    }

    void liftsTheCardUnderThePointer()
    {
        open();
        load();
        const auto all = cards();
        auto *card = all[1];
        const QPointF middle = placeOf(card).center();
        m_window->hover(card);
        QVERIFY(card->property("isHovered").toBool());
        QCOMPARE(card->scale(), 1.02);
        QCOMPARE(strokeOf(card), u"#803b82f6 1"_s);
        QCOMPARE(placeOf(card).center(), middle);
        QCOMPARE(all[0]->scale(), 1.0);
        m_window->hover(m_window->text(u"Projects"_s));
        QCOMPARE(card->scale(), 1.0);
        QCOMPARE(strokeOf(card), outline);
    }

    void easesIntoTheLiftOver15Hundredths()
    {
        m_world->environment.animations = true;
        AnimationTime time;
        open();
        load();
        auto *card = cards().first();
        QSignalSpy steps(card, &QQuickItem::scaleChanged);
        m_window->hover(card);
        QVERIFY(card->scale() < 1.02);
        QVERIFY(time.passesUntil([&] { return card->scale() == 1.02; }));
        QVERIFY(steps.size() > 1);
    }

    void showsAnyTextAsItStandsAndKeepsTheCardsShape_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("markup") << u"<b>bold</b><br><img src='x'> &amp;"_s;
        QTest::newRow("quotes") << u"\"O'Neil\" \\ `x`"_s;
        QTest::newRow("emoji") << u"👩‍👩‍👧‍👧 🚀"_s;
        QTest::newRow("right to left") << u"نموذج طبي للأسئلة والأجوبة"_s;
        QTest::newRow("ten thousand letters without a blank") << QString(10'000, u'x');
        QTest::newRow("ten thousand characters in words") << u"word "_s.repeated(2'000);
        QTest::newRow("lines") << u"one\ntwo\nthree\nfour"_s;
        QTest::newRow("right to left and long") << u"نموذج "_s.repeated(1'000);
    }
    void showsAnyTextAsItStandsAndKeepsTheCardsShape()
    {
        QFETCH(QString, text);
        open();
        load();
        const double other = cards()[1]->height();
        m_view->rootObject()->findChild<ProjectsViewModel *>()->createProject(text, text);
        redraw();
        auto *card = cards().first();
        QCOMPARE(card->property("name").toString(), text);
        QCOMPARE(card->height(), other);
        QCOMPARE(card->height(), 200.0);

        QList<QQuickItem *> shown;
        for (auto *label : m_window->all(u"Label"_s)) {
            if (card->isAncestorOf(label) && label->property("text").toString() == text) {
                shown.append(label);
            }
        }
        QCOMPARE(shown.size(), 2);
        for (auto *label : shown) {
            QCOMPARE(label->property("textFormat").toInt(), int(Qt::PlainText));
            QCOMPARE(placeIn(label, card).left(), 20.0);
            QCOMPARE(label->width(), card->width() - 40);
            QVERIFY(label->property("contentWidth").toDouble() <= label->width());
            QCOMPARE(label->property("effectiveHorizontalAlignment").toInt(), int(Qt::AlignLeft));
        }
        QCOMPARE(shown[0]->property("lineCount").toInt(), 1);
        QVERIFY(shown[1]->property("lineCount").toInt() <= 2);
        const auto *stats = m_window->all(u"StatItem"_s).first();
        QVERIFY(placeIn(shown[1], card).bottom() <= placeIn(stats, card).top() - 16);
        QVERIFY(text.size() < 100 || shown[0]->property("truncated").toBool());
        QVERIFY(text.size() < 100 || shown[1]->property("truncated").toBool());
    }

    void keepsAnEmptyLineForAnEmptyDescription()
    {
        open();
        load();
        m_view->rootObject()->findChild<ProjectsViewModel *>()->createProject(u"Mine"_s, {});
        redraw();
        auto *card = cards().first();
        QStringList texts;
        QQuickItem *description = nullptr;
        for (auto *label : m_window->all(u"Label"_s)) {
            if (card->isAncestorOf(label)) {
                texts.append(label->property("text").toString());
                description = texts.last().isEmpty() ? label : description;
            }
        }
        std::sort(texts.begin(), texts.end());
        QCOMPARE(texts,
            QStringList({QString(), u"0"_s, u"0"_s, u"Active"_s, u"Datasets"_s, u"Mine"_s, u"Models"_s,
                u"Updated 0 sec ago"_s}));
        QVERIFY(description->height() > 10);
    }

    void keepsTheWordsOfAgeTrueOnDisplay()
    {
        open();
        load();
        QVERIFY(m_window->shows(u"Updated 1 hr ago"_s));
        m_world->clock.advance(1h + 1s);
        redraw();
        QVERIFY(m_window->shows(u"Updated 2 hr ago"_s));
        QVERIFY(!m_window->shows(u"Updated 1 hr ago"_s));
        close();
        QCOMPARE(m_world->clock.scheduledCount(), 0);
    }

    // Search

    void findsProjectsByWhatIsTyped()
    {
        open();
        load();
        m_window->click(m_window->all(u"SearchBox"_s).first());
        m_window->type(u"TICKET"_s);
        redraw();
        QCOMPARE(m_view->rootObject()->property("searchText").toString(), u"TICKET"_s);
        QCOMPARE(names(), QStringList{u"Customer Support Bot"_s});
        m_window->press(Qt::Key_Escape);
        redraw();
        QCOMPARE(m_view->rootObject()->property("searchText").toString(), QString());
        QCOMPARE(names().size(), 3);
    }

    void speaksOfAFirstProjectWhenNothingIsFound()
    {
        open();
        load();
        search(u"zzz"_s);
        QVERIFY(cards().isEmpty());
        auto *symbol = m_window->symbol(u"folder.badge.plus"_s);
        QCOMPARE(symbol->property("size").toInt(), 64);
        QCOMPARE(colorOf(symbol), tertiary);
        auto *title = m_window->text(u"No Projects Yet"_s);
        QCOMPARE(fontOf(title), u"Space Grotesk 18 500"_s);
        QCOMPARE(colorOf(title), white);
        auto *text = m_window->text(u"Create your first project to organize your\nfine-tuning workflows"_s);
        QCOMPARE(fontOf(text), u"Inter 14 400"_s);
        QCOMPARE(colorOf(text), secondary);
        QCOMPARE(text->property("lineCount").toInt(), 2);
        QCOMPARE(text->property("effectiveHorizontalAlignment").toInt(), int(Qt::AlignHCenter));
        QCOMPARE(placeOf(text).top() - placeOf(title).bottom(), 8.0);
        QCOMPARE(placeOf(title).top() - placeOf(symbol).bottom(), 24.0);
        auto *button = m_window->button(u"Create Project"_s);
        QVERIFY(m_window->symbol(u"plus"_s, button));
        QCOMPARE(placeOf(button).top() - placeOf(text).bottom(), 24.0);
        QVERIFY(qAbs(placeOf(button).center().x() - 490) < 1);

        m_window->click(button);
        QVERIFY(m_view->rootObject()->property("showNewProjectSheet").toBool());
        QVERIFY(sheet());
    }

    void keepsTheSearchForWhatIsCreated()
    {
        open();
        load();
        search(u"medical"_s);
        m_view->rootObject()->findChild<ProjectsViewModel *>()->createProject(u"Other"_s, {});
        redraw();
        QCOMPARE(names(), QStringList{u"Medical LLM"_s});
        QVERIFY(!m_window->shows(u"No Projects Yet"_s));
    }

    // The sheet

    void keepsTheLookOfItsSheet()
    {
        open();
        load();
        m_window->click(m_window->button(u"New Project"_s));
        redraw();
        auto *form = sheet();
        QVERIFY(form);
        QCOMPARE(form->size(), QSizeF(500, 400));
        QCOMPARE(placeOf(form).center(), QPointF(490, 380));

        auto *title = m_window->text(u"Create New Project"_s);
        QCOMPARE(fontOf(title), u"Space Grotesk 18 500"_s);
        QCOMPARE(colorOf(title), white);
        QCOMPARE(placeIn(title, form).topLeft(), QPointF(24, 24));
        auto *mark = m_window->symbol(u"xmark"_s, form);
        QCOMPARE(colorOf(mark), secondary);
        QCOMPARE(placeIn(mark, form).right(), 476.0);
        QCOMPARE(placeIn(mark, form).center().y(), placeIn(title, form).center().y());

        QList<QQuickItem *> lines;
        for (auto *line : m_window->all(u"Divider"_s)) {
            if (form->isAncestorOf(line)) {
                lines.append(line);
            }
        }
        QCOMPARE(lines.size(), 2);
        QCOMPARE(colorOf(lines[0]), border);
        QCOMPARE(lines[0]->width(), 500.0);
        QCOMPARE(placeIn(lines[0], form).top(), placeIn(title, form).bottom() + 24);

        expectField(form, u"Project Name"_s, u"e.g., Medical LLM Fine-tuning"_s, placeIn(lines[0], form).bottom() + 24);
        const auto boxes = fieldBoxes();
        expectField(form, u"Description"_s, u"Optional description..."_s, placeIn(boxes[0], form).bottom() + 20);
        auto *growing = m_window->all(u"GrowingField"_s).first();
        QCOMPARE(growing->property("minimumLines").toInt(), 3.0);
        QCOMPARE(growing->property("maximumLines").toInt(), 5.0);
        QVERIFY(placeIn(boxes[1], form).bottom() + 24 <= placeIn(lines[1], form).top());

        auto *cancel = m_window->button(u"Cancel"_s);
        auto *create = m_window->button(u"Create Project"_s);
        QVERIFY(QString::fromLatin1(cancel->metaObject()->className()).startsWith(u"SecondaryButton"_s));
        QVERIFY(QString::fromLatin1(create->metaObject()->className()).startsWith(u"PrimaryButton"_s));
        QCOMPARE(placeIn(create, form).bottomRight(), QPointF(476, 376));
        QCOMPARE(placeIn(create, form).top(), placeIn(lines[1], form).bottom() + 24);
        QVERIFY(placeIn(cancel, form).right() < placeIn(create, form).left());
        QCOMPARE(placeOf(cancel).top(), placeOf(create).top());
    }

    void createsWithTheNameAsItStands_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("word") << u"Mine"_s;
        QTest::newRow("blanks only") << u"   "_s;
        QTest::newRow("blanks around") << u"  a b "_s;
        QTest::newRow("markup") << u"<i>&"_s;
    }
    void createsWithTheNameAsItStands()
    {
        QFETCH(QString, name);
        open();
        load();
        openSheet();
        QVERIFY(!m_window->button(u"Create Project"_s)->isEnabled());
        m_window->click(m_window->button(u"Create Project"_s));
        QVERIFY(sheet());

        // The first field has the keyboard.
        m_window->type(name);
        QVERIFY(m_window->button(u"Create Project"_s)->isEnabled());
        m_window->press(Qt::Key_Tab);
        m_window->type(u"for tests"_s);
        m_window->click(m_window->button(u"Create Project"_s));
        redraw();
        QVERIFY(!sheet());
        QVERIFY(!m_view->rootObject()->property("showNewProjectSheet").toBool());

        auto *card = cards().first();
        QCOMPARE(cards().size(), 4);
        QCOMPARE(card->property("name").toString(), name);
        QVERIFY(m_window->text(u"for tests"_s, card));
        QVERIFY(m_window->text(u"Active"_s, card));
        QVERIFY(m_window->text(u"Updated 0 sec ago"_s, card));
        for (auto *stat : m_window->all(u"StatItem"_s).mid(0, 2)) {
            QCOMPARE(stat->property("value").toString(), u"0"_s);
        }
        // In sight, at the top.
        QCOMPARE(placeOf(card).left(), 24.0);
        QCOMPARE(placeOf(card).top(), placeOf(m_window->all(u"SearchBox"_s).first()).bottom() + 44);
    }

    void disablesTheButtonAgainWhenTheNameIsEmptied()
    {
        open();
        load();
        openSheet();
        m_window->type(u"a"_s);
        QVERIFY(m_window->button(u"Create Project"_s)->isEnabled());
        m_window->press(Qt::Key_Backspace);
        QVERIFY(!m_window->button(u"Create Project"_s)->isEnabled());
    }

    void closesItsSheetWithoutAProject_data()
    {
        QTest::addColumn<QString>("way");
        for (const char *way : {"Cancel", "Close", "Escape"}) {
            QTest::newRow(way) << QString::fromLatin1(way);
        }
    }
    void closesItsSheetWithoutAProject()
    {
        QFETCH(QString, way);
        open();
        load();
        openSheet();
        m_window->type(u"Mine"_s);
        if (way == u"Escape"_s) {
            m_window->press(Qt::Key_Escape);
        } else {
            m_window->click(m_window->button(way));
        }
        QVERIFY(!sheet());
        QVERIFY(!m_view->rootObject()->property("showNewProjectSheet").toBool());
        QCOMPARE(names().size(), 3);
        // Opened again it is empty.
        openSheet();
        QVERIFY(m_window->shows(u"e.g., Medical LLM Fine-tuning"_s));
        QVERIFY(!m_window->button(u"Create Project"_s)->isEnabled());
    }

    void createsOneProjectHoweverOftenItsButtonIsPressed()
    {
        m_world->environment.animations = true;
        AnimationTime time;
        open();
        load();
        openSheet();
        QVERIFY(time.passesUntil([&] { return m_window->button(u"Create Project"_s) != nullptr; }));
        m_window->type(u"Mine"_s);
        auto *button = m_window->button(u"Create Project"_s);
        m_window->click(button);
        // It still fades away.
        QVERIFY(sheet());
        m_window->click(button);
        QVERIFY(time.passesUntil([&] { return !sheet(); }));
        QCOMPARE(m_view->rootObject()->findChild<ProjectsViewModel *>()->projects().size(), 4);
    }

    void createsNothingWhileTheSheetFadesAwayByEscape()
    {
        m_world->environment.animations = true;
        AnimationTime time;
        open();
        load();
        openSheet();
        QVERIFY(time.passesUntil([&] { return m_window->button(u"Create Project"_s) != nullptr; }));
        m_window->type(u"Mine"_s);
        auto *button = m_window->button(u"Create Project"_s);
        m_window->press(Qt::Key_Escape);
        QVERIFY(sheet());
        m_window->click(button);
        QVERIFY(time.passesUntil([&] { return !sheet(); }));
        QCOMPARE(m_view->rootObject()->findChild<ProjectsViewModel *>()->projects().size(), 3);
    }

    void growsTheDescriptionFromThreeToFiveLines()
    {
        open();
        load();
        openSheet();
        auto *field = m_window->all(u"GrowingField"_s).first();
        auto *box = fieldBoxes()[1];
        const double three = field->height();
        QCOMPARE(box->height(), three + 24);
        m_window->press(Qt::Key_Tab);
        const double line = three / 3;
        for (int lines = 2; lines <= 8; ++lines) {
            m_window->press(Qt::Key_Return);
            QCOMPARE(field->height(), line * std::clamp(lines, 3, 5));
            QCOMPARE(box->height(), field->height() + 24);
            // What is typed stays in sight, above the buttons.
            QVERIFY(placeOf(box).bottom() < placeOf(m_window->button(u"Cancel"_s)).top() - 24);
        }
        QCOMPARE(sheet()->size(), QSizeF(500, 400));
        m_window->type(u"x"_s);
        m_window->click(m_window->text(u"Create New Project"_s));
    }

    void goesThroughTheSheetByTheTabulator()
    {
        open();
        load();
        openSheet();
        m_window->type(u"a"_s);
        QStringList way;
        for (int i = 0; i < 5; ++i) {
            const auto *focus = QAccessible::queryAccessibleInterface(m_view->activeFocusItem());
            way.append(focus->text(QAccessible::Name));
            m_window->press(Qt::Key_Tab);
        }
        QCOMPARE(way, QStringList({u"Project Name"_s, u"Description"_s, u"Cancel"_s, u"Create Project"_s, u"Close"_s}));
        m_window->button(u"Create Project"_s)->forceActiveFocus(Qt::TabFocusReason);
        m_window->press(Qt::Key_Return);
        redraw();
        QCOMPARE(names().first(), u"a"_s);
    }

    // Coming and going

    void dropsWhatWasCreatedWhenItIsLeft()
    {
        open();
        load();
        m_view->rootObject()->findChild<ProjectsViewModel *>()->createProject(u"Mine"_s, {});
        redraw();
        QCOMPARE(names().size(), 4);
        search(u"Mine"_s);
        close();
        open();
        QCOMPARE(m_window->all(u"Spinner"_s).size(), 1);
        load();
        QCOMPARE(names(), QStringList({u"Medical LLM"_s, u"Code Assistant"_s, u"Customer Support Bot"_s}));
    }

    void canBeLeftWhileItLoads()
    {
        open();
        close();
        m_world->clock.advance(1s);
        QCOMPARE(m_world->clock.scheduledCount(), 0);
    }

    void scrollsManyProjectsWithFewCards()
    {
        open();
        load();
        auto *model = m_view->rootObject()->findChild<ProjectsViewModel *>();
        for (int i = 0; i < 300; ++i) {
            model->createProject(u"Project %1"_s.arg(i), {});
        }
        redraw();
        QCOMPARE(cards().first()->property("name").toString(), u"Project 299"_s);
        QVERIFY(m_view->rootObject()->findChildren<QQuickItem *>().size() < 3'000);
        auto *grid = m_window->control(QAccessible::List, u"Projects"_s);
        grid->forceActiveFocus(Qt::TabFocusReason);
        m_window->press(Qt::Key_End);
        redraw();
        QVERIFY(names().contains(u"Customer Support Bot"_s));
        QCOMPARE(placeOf(cards().last()).bottom(), 760.0 - 24);
        QVERIFY(cards().size() < 30);
        m_window->press(Qt::Key_Home);
        redraw();
        QCOMPARE(cards().first()->property("name").toString(), u"Project 299"_s);
    }

    void beginsASearchAtTheTop()
    {
        open();
        load();
        auto *model = m_view->rootObject()->findChild<ProjectsViewModel *>();
        for (int i = 0; i < 300; ++i) {
            model->createProject(u"Project %1"_s.arg(i), {});
        }
        redraw();
        const double top = placeOf(cards().first()).top();
        m_window->control(QAccessible::List, u"Projects"_s)->forceActiveFocus(Qt::TabFocusReason);
        m_window->press(Qt::Key_End);
        redraw();
        m_window->click(m_window->field(u"Search projects..."_s));
        m_window->type(u"1"_s);
        redraw();
        QCOMPARE(names().first(), u"Project 291"_s);
        QCOMPARE(placeOf(cards().first()).top(), top);
    }

    void tellsAssistiveProgramsWhatIsThere()
    {
        open();
        load();
        auto *card = accessible(cards().first());
        QCOMPARE(card->role(), QAccessible::ListItem);
        QCOMPARE(card->text(QAccessible::Name), u"Medical LLM"_s);
        QCOMPARE(card->text(QAccessible::Description), u"Fine-tuning Llama for medical Q&A"_s);
        const auto *grid = accessible(cards().first()->parentItem()->parentItem());
        QCOMPARE(grid->role(), QAccessible::List);
        QCOMPARE(grid->text(QAccessible::Name), u"Projects"_s);
        openSheet();
        for (const QString &name : {u"Project Name"_s, u"Description"_s}) {
            QCOMPARE(accessible(m_window->field(name))->role(), QAccessible::EditableText);
        }
        for (const QString &name : {u"Close"_s, u"Cancel"_s, u"Create Project"_s}) {
            QCOMPARE(accessible(m_window->button(name))->role(), QAccessible::Button);
        }
    }

private:
    void open(QSize size = {980, 760}) { ViewTest::open(u"Workspace/ProjectsView.qml"_s, size); }
    void load()
    {
        m_world->clock.advance(500ms);
        redraw();
    }
    void search(const QString &text)
    {
        m_window->click(m_window->all(u"SearchBox"_s).first());
        m_window->type(text);
        redraw();
    }
    void openSheet()
    {
        m_window->click(m_window->button(u"New Project"_s));
        redraw();
    }

    QList<QQuickItem *> cards() const { return m_window->all(u"ProjectCard"_s); }
    QStringList names() const
    {
        QStringList names;
        for (const auto *card : cards()) {
            names.append(card->property("name").toString());
        }
        return names;
    }
    QQuickItem *sheet() const { return m_window->all(u"NewProjectSheet"_s).value(0); }
    // The boxes around the two inputs of the sheet.
    QList<QQuickItem *> fieldBoxes() const
    {
        QList<QQuickItem *> boxes;
        for (auto *field : m_window->all(u"NewProjectField"_s)) {
            boxes.append(field->childItems().first()->childItems().at(1));
        }
        return boxes;
    }

    void expectStat(QQuickItem *stat, const QString &icon, const QString &value, const QString &label) const
    {
        auto *symbol = m_window->symbol(icon, stat);
        QVERIFY(symbol);
        QCOMPARE(symbol->property("size").toInt(), 10);
        QCOMPARE(colorOf(symbol), tertiary);
        auto *figure = m_window->text(value, stat);
        QCOMPARE(fontOf(figure), u"Inter 12 500"_s);
        QCOMPARE(colorOf(figure), white);
        QCOMPARE(placeIn(figure, stat).left() - placeIn(symbol, stat).right(), 4.0);
        auto *word = m_window->text(label, stat);
        QCOMPARE(fontOf(word), u"Inter 10 400"_s);
        QCOMPARE(colorOf(word), tertiary);
        QCOMPARE(placeIn(word, stat).left() - placeIn(figure, stat).right(), 4.0);
    }

    void expectField(QQuickItem *form, const QString &label, const QString &placeholder, double top) const
    {
        auto *name = m_window->text(label, form);
        QCOMPARE(fontOf(name), u"Inter 14 500"_s);
        QCOMPARE(colorOf(name), secondary);
        QCOMPARE(placeIn(name, form).topLeft(), QPointF(24, top));
        auto *hint = m_window->text(placeholder, form);
        QVERIFY(hint);
        auto *box = name->parentItem()->childItems().at(1);
        QCOMPARE(colorOf(box), surface);
        QCOMPARE(box->property("radius").toInt(), 8);
        QCOMPARE(placeIn(box, form).top() - placeIn(name, form).bottom(), 8.0);
        QCOMPARE(box->width(), 452.0);
        QCOMPARE(placeIn(hint, box).topLeft(), QPointF(12, 12));
    }
};

QTEST_MAIN(tst_ProjectsView)
#include "tst_ProjectsView.moc"
