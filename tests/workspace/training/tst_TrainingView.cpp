#include "identity/AuthManager.h"
#include "support/ViewTest.h"
#include "workspace/training/TrainingViewModel.h"

#include <cmath>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmere::testing;

namespace quillmere {

namespace {

const auto white = u"#ffffffff"_s;
const auto surface = u"#ff121214"_s;
const auto border = u"#ff27272a"_s;
const auto outline = u"#ff27272a 1"_s;
const auto accent = u"#ff3b82f6"_s;
const auto green = u"#ff22c55e"_s;
const auto red = u"#ffef4444"_s;
const auto textSecondary = u"#ffa1a1aa"_s;
const auto textTertiary = u"#ff71717a"_s;

QByteArray job(const QByteArray &id, const QByteArray &status, const QByteArray &name = "A job")
{
    return "{\"id\":\"" + id + "\",\"name\":\"" + name + "\",\"status\":\"" + status
        + "\",\"progress\":40,\"error_message\":\"Out of memory\",\"started_at\":\"2026-11-20T10:00:00Z\","
          "\"completed_at\":\"2026-11-20T11:00:00Z\",\"created_at\":\"2026-11-20T09:00:00Z\","
          "\"config\":{\"epochs\":9},\"metrics\":{\"loss\":0.9}}";
}

} // namespace

class tst_TrainingView : public ViewTest {
    Q_OBJECT

private slots:
    // What stands in its body

    void showsASpinnerAndThenThreeSamplesToASignedOutUser()
    {
        opens();
        const auto spinners = m_window->all(u"Spokes"_s);
        QCOMPARE(spinners.size(), 1);
        QCOMPARE(colorOf(spinners[0]), white);
        QVERIFY(cards().isEmpty());
        QVERIFY(!m_window->shows(u"No Training Jobs"_s));
        QCOMPARE(statistics(), QStringList({u"0"_s, u"0"_s, u"0"_s}));

        m_world->clock.advance(300ms);
        QVERIFY(eventually([this] { return cards().size() == 3; }));
        QVERIFY(m_window->all(u"Spokes"_s).isEmpty());
        QCOMPARE(names(),
            QStringList({u"Medical LLaMA Fine-Tuning"_s, u"Code Assistant LoRA"_s, u"Customer Support Bot"_s}));
        QCOMPARE(statistics(), QStringList({u"1"_s, u"1"_s, u"3"_s}));
    }

    void showsTheEmptyStateWhenTheServiceHasNoJobs()
    {
        opensWith("[]");
        QVERIFY(eventually([this] { return m_window->shows(u"No Training Jobs"_s); }));
        QVERIFY(m_window->all(u"Spokes"_s).isEmpty());
        QCOMPARE(statistics(), QStringList({u"0"_s, u"0"_s, u"0"_s}));
        m_world->clock.advance(1s);
        QVERIFY(cards().isEmpty());
    }

    void showsSamplesAndNoErrorWhenTheServiceIsDown()
    {
        m_world->isSignedIn();
        m_world->service.on("GET /v1/fine-tuning/jobs").answers(503, R"({"detail":"Down"})");
        opens();
        QVERIFY(eventually([this] { return model().errorMessage().has_value(); }));
        QCOMPARE(m_window->all(u"Spokes"_s).size(), 1);
        m_world->clock.advance(300ms);
        QVERIFY(eventually([this] { return cards().size() == 3; }));
        for (const QString &text : m_window->texts()) {
            QVERIFY(!text.contains(u"Down"_s));
            QVERIFY(!text.contains(u"Out of memory"_s));
        }
    }

    void loadsEachTimeItAppears()
    {
        opensWith('[' + job("a", "running") + ']');
        QVERIFY(eventually([this] { return cards().size() == 1; }));
        m_view.reset();
        m_world->service.on("GET /v1/fine-tuning/jobs").hangsBeforeReply();
        opens();
        QVERIFY(cards().isEmpty());
        QCOMPARE(m_window->all(u"Spokes"_s).size(), 1);
        QVERIFY(eventually([this] { return m_world->service.requests().size() == 2; }));
    }

    // Filters

    void filtersByPill_data()
    {
        QTest::addColumn<QString>("pill");
        QTest::addColumn<QStringList>("shown");
        QTest::newRow("all") << u"All"_s << QStringList({u"r"_s, u"p"_s, u"c"_s, u"f"_s, u"x"_s, u"u"_s});
        QTest::newRow("running") << u"Running"_s << QStringList({u"r"_s, u"p"_s});
        QTest::newRow("completed") << u"Completed"_s << QStringList({u"c"_s});
        QTest::newRow("failed") << u"Failed"_s << QStringList({u"f"_s, u"x"_s});
    }
    void filtersByPill()
    {
        QFETCH(QString, pill);
        QFETCH(QStringList, shown);
        opensWith('[' + job("r", "running", "r") + ',' + job("p", "pending", "p") + ',' + job("c", "completed", "c")
            + ',' + job("f", "failed", "f") + ',' + job("x", "cancelled", "x") + ',' + job("u", "odd", "u") + ']');
        QVERIFY(eventually([this] { return cards().size() == 6; }));
        m_window->click(this->pill(pill));
        QVERIFY(eventually([&] { return names() == shown; }));
        QCOMPARE(statistics(), QStringList({u"1"_s, u"1"_s, u"6"_s}));
        QCOMPARE(m_world->service.requests().size(), 1);
        // The pill under the pointer is a little lighter.
        m_window->hover(m_window->text(u"Training"_s));
        QVERIFY(eventually([&] { return !this->pill(pill)->property("hovered").toBool(); }));
        for (const QString &name : {u"All"_s, u"Running"_s, u"Completed"_s, u"Failed"_s}) {
            QCOMPARE(colorOf(backgroundOf(this->pill(name))), name == pill ? accent : surface);
            QCOMPARE(colorOf(m_window->text(name, this->pill(name))), white);
            QCOMPARE(bool(QAccessible::queryAccessibleInterface(this->pill(name))->state().checked), name == pill);
        }
    }

    void showsTheEmptyStateForAFilterWithoutHits()
    {
        opensWith('[' + job("c", "completed") + ']');
        QVERIFY(eventually([this] { return cards().size() == 1; }));
        m_window->click(pill(u"Failed"_s));
        QVERIFY(eventually([this] { return m_window->shows(u"No Training Jobs"_s); }));
        QVERIFY(cards().isEmpty());
        QCOMPARE(statistics(), QStringList({u"0"_s, u"1"_s, u"1"_s}));
    }

    // The card

    void showsAJobByItsStatus_data()
    {
        QTest::addColumn<QByteArray>("status");
        QTest::addColumn<QString>("badge");
        QTest::addColumn<QString>("color");
        QTest::newRow("running") << QByteArray("running") << u"Running"_s << u"22c55e"_s;
        QTest::newRow("pending") << QByteArray("pending") << u"Pending"_s << u"22c55e"_s;
        QTest::newRow("completed") << QByteArray("completed") << u"Completed"_s << u"3b82f6"_s;
        QTest::newRow("failed") << QByteArray("failed") << u"Failed"_s << u"ef4444"_s;
        QTest::newRow("cancelled") << QByteArray("cancelled") << u"Cancelled"_s << u"ef4444"_s;
        QTest::newRow("unknown") << QByteArray("queued again") << u"Queued Again"_s << u"a1a1aa"_s;
    }
    void showsAJobByItsStatus()
    {
        QFETCH(QByteArray, status);
        QFETCH(QString, badge);
        QFETCH(QString, color);
        opensWith('[' + job("ft-1", status, "Its name") + ']');
        QVERIFY(eventually([this] { return cards().size() == 1; }));
        const QQuickItem *card = cards().constFirst();
        const QQuickItem *text = m_window->text(badge, card);
        QCOMPARE(fontOf(text), u"Inter 11 700"_s);
        QCOMPARE(colorOf(text), u"#ff"_s + color);
        const QQuickItem *ground = text->parentItem();
        QCOMPARE(colorOf(ground), u"#26"_s + color);
        QCOMPARE(radiusOf(ground), 4.0);
        QCOMPARE(placeOf(ground).width(), std::ceil(text->implicitWidth() + 20));
        QCOMPARE(placeOf(ground).height(), text->implicitHeight() + 10);
        QCOMPARE(colorOf(dotOf(card)), u"#ff"_s + color);

        const bool isRunning = status == "running";
        QCOMPARE(m_window->all(u"ProgressBar"_s, card).size(), isRunning ? 1 : 0);
        QCOMPARE(m_window->text(u"40%"_s, card) != nullptr, isRunning);
        QCOMPARE(m_window->button(u"Cancel Its name"_s) != nullptr, isRunning);
        QCOMPARE(m_window->all(u"JobMetricItem"_s, card).size(), isRunning ? 4 : 0);
        QVERIFY(m_window->button(u"Details of Its name"_s));

        // Neither dates nor the failure's text nor anything of config and metrics.
        QStringList expected{u"Its name"_s, u"ID: ft-1"_s, badge};
        if (isRunning) {
            expected << u"40%"_s << u"EPOCH"_s << u"2/5"_s << u"LOSS"_s << u"0.342"_s << u"LEARNING RATE"_s << u"1e-4"_s
                     << u"ETA"_s << u"~45 min"_s;
        }
        QStringList shown = m_window->texts(card);
        shown.sort();
        expected.sort();
        QCOMPARE(shown, expected);
    }

    void hasAStrokeInTheStatusColorWhileThePointerIsOverIt_data()
    {
        QTest::addColumn<QByteArray>("status");
        QTest::addColumn<QString>("stroke");
        QTest::newRow("running") << QByteArray("running") << u"#8022c55e 1"_s;
        QTest::newRow("failed") << QByteArray("failed") << u"#80ef4444 1"_s;
        QTest::newRow("unknown") << QByteArray("odd") << u"#80a1a1aa 1"_s;
    }
    void hasAStrokeInTheStatusColorWhileThePointerIsOverIt()
    {
        QFETCH(QByteArray, status);
        QFETCH(QString, stroke);
        opensWith('[' + job("a", status) + ']');
        QVERIFY(eventually([this] { return cards().size() == 1; }));
        const QQuickItem *card = cards().constFirst();
        QCOMPARE(strokeOf(card), outline);
        m_window->hover(card);
        QVERIFY(eventually([&] { return strokeOf(card) == stroke; }));
        // Over its buttons too.
        m_window->hover(m_window->button(u"Details of A job"_s));
        settle();
        QCOMPARE(strokeOf(card), stroke);
        m_window->hover(pill(u"All"_s));
        QVERIFY(eventually([&] { return strokeOf(card) == outline; }));
    }

    void stopsAJobAtTheService()
    {
        opensWith('[' + job("a", "running", "First") + ',' + job("b", "running", "Second") + ']');
        QVERIFY(eventually([this] { return cards().size() == 2; }));
        m_window->click(m_window->button(u"Cancel Second"_s));
        QVERIFY(eventually([this] { return statistics() == QStringList({u"1"_s, u"0"_s, u"2"_s}); }));
        QCOMPARE(m_world->service.requests("POST", "/v1/fine-tuning/jobs/b/cancel").size(), 1);
        QVERIFY(eventually([this] { return m_window->shows(u"Cancelled"_s); }));
        QVERIFY(!m_window->button(u"Cancel Second"_s));
        QVERIFY(m_window->button(u"Cancel First"_s));
    }

    void stopsASampleInPlace()
    {
        opens();
        m_world->clock.advance(300ms);
        QVERIFY(eventually([this] { return cards().size() == 3; }));
        QVERIFY(m_window->shows(u"67%"_s));
        m_window->click(m_window->button(u"Cancel Medical LLaMA Fine-Tuning"_s));
        QVERIFY(eventually([this] { return m_window->shows(u"Cancelled"_s); }));
        QVERIFY(!m_window->shows(u"67%"_s));
        QCOMPARE(statistics(), QStringList({u"0"_s, u"1"_s, u"3"_s}));
        QVERIFY(m_window->all(u"Spokes"_s).isEmpty());
        m_window->click(pill(u"Failed"_s));
        QVERIFY(eventually([this] {
            return names() == QStringList({u"Medical LLaMA Fine-Tuning"_s, u"Customer Support Bot"_s});
        }));
    }

    void showsNothingOfACancelThatFailed()
    {
        opensWith('[' + job("a", "running", "First") + ']');
        QVERIFY(eventually([this] { return cards().size() == 1; }));
        const QStringList before = m_window->texts();
        m_world->service.on("POST /v1/fine-tuning/jobs/a/cancel").answers(500, R"({"detail":"Too late"})");
        m_window->click(m_window->button(u"Cancel First"_s));
        QVERIFY(eventually([this] { return model().errorMessage().has_value(); }));
        settle();
        QCOMPARE(m_window->texts(), before);
    }

    void doesNothingForTheArrow()
    {
        opens();
        m_world->clock.advance(300ms);
        QVERIFY(eventually([this] { return cards().size() == 3; }));
        const QStringList before = m_window->texts();
        for (const QString &name : names()) {
            m_window->click(m_window->button(u"Details of "_s + name));
            settle();
            QCOMPARE(m_window->texts(), before);
        }
        QVERIFY(!sheet());
        QVERIFY(m_world->service.requests().isEmpty());
        QCOMPARE(m_world->clock.scheduledCount(), 0);
    }

    void cutsALongNameAndKeepsItsButtons()
    {
        opensWith('[' + job(QByteArray(300, 'i'), "running", QByteArray("Long name ").repeated(60)) + ']');
        QVERIFY(eventually([this] { return cards().size() == 1; }));
        const QQuickItem *card = cards().constFirst();
        const QQuickItem *name = m_window->text(QString::fromLatin1(QByteArray("Long name ").repeated(60)), card);
        const QQuickItem *id = m_window->text(u"ID: "_s + QString(300, u'i'), card);
        for (const QQuickItem *text : {name, id}) {
            QVERIFY(text->property("truncated").toBool());
            QCOMPARE(text->property("lineCount").toInt(), 1);
            QVERIFY(placeOf(text).right() < placeOf(m_window->text(u"Running"_s, card)).left());
        }
        QVERIFY(placeOf(card).contains(placeOf(m_window->symbol(u"arrow.right.circle"_s, card))));
    }

    void beginsANameFromRightToLeftAtTheLeftToo()
    {
        opensWith('[' + job("1", "running", "שלום עולם") + ']');
        QVERIFY(eventually([this] { return cards().size() == 1; }));
        const QQuickItem *name = m_window->text(u"שלום עולם"_s, cards().constFirst());
        QCOMPARE(name->property("effectiveHorizontalAlignment").toInt(), int(Qt::AlignLeft));
    }

    void showsANameOfManyLinesInOne()
    {
        opensWith('[' + job("1", "running", QByteArray("Line\\n").repeated(200'000)) + ',' + job("2", "failed") + ']');
        QVERIFY(eventually([this] { return cards().size() == 2; }));
        QCOMPARE(cards().constLast()->property("name").toString(), u"A job"_s);
        QCOMPARE(m_window->all(u"Label"_s, cards().constFirst()).constFirst()->property("lineCount").toInt(), 1);
    }

    void beginsAtTheTopWithEachFilter()
    {
        QByteArrayList jobs;
        for (int i = 0; i < 100; ++i) {
            const QByteArray number = QByteArray::number(i);
            jobs.append(job(number, i % 2 == 0 ? "completed" : "failed", "Job " + number));
        }
        opensWith('[' + jobs.join(',') + ']');
        QVERIFY(eventually([this] { return m_window->shows(u"Job 0"_s); }));
        const double top = placeOf(cards().constFirst()).top();
        m_window->control(QAccessible::List, u"Training jobs"_s)->forceActiveFocus();
        m_window->press(Qt::Key_End);
        QVERIFY(eventually([this] { return m_window->shows(u"Job 99"_s); }));
        for (const auto &[filter, first] :
            {std::pair(u"Completed"_s, u"Job 0"_s), std::pair(u"Failed"_s, u"Job 1"_s)}) {
            m_window->click(pill(filter));
            settle();
            QCOMPARE(names().constFirst(), first);
            QCOMPARE(placeOf(cards().constFirst()).top(), top);
        }
    }

    void showsMarkupAsItStands()
    {
        const auto name = u"<b>Bold</b> &amp; <img src='http://127.0.0.1:1/x'>"_s;
        opensWith('[' + job("<i>1</i>", "<u>odd</u>", name.toUtf8()) + ']');
        QVERIFY(eventually([this] { return cards().size() == 1; }));
        for (const QString &text : {name, u"ID: <i>1</i>"_s, u"<U>Odd</U>"_s}) {
            QVERIFY2(m_window->shows(text), qPrintable(text));
            QCOMPARE(m_window->text(text)->property("textFormat").toInt(), int(Qt::PlainText));
        }
    }

    // The sheet

    void opensASheetForANewTrainingAndClosesIt_data()
    {
        QTest::addColumn<QString>("opener");
        QTest::addColumn<bool>("byEscape");
        QTest::newRow("New Training, mark") << u"New Training"_s << false;
        QTest::newRow("New Training, Escape") << u"New Training"_s << true;
        QTest::newRow("Start Training, mark") << u"Start Training"_s << false;
    }
    void opensASheetForANewTrainingAndClosesIt()
    {
        QFETCH(QString, opener);
        QFETCH(bool, byEscape);
        opensWith("[]");
        QVERIFY(eventually([this] { return m_window->shows(u"No Training Jobs"_s); }));
        QVERIFY(!sheet());
        // Twice: closing leaves nothing behind that would stop it from opening again.
        for (int i = 0; i < 2; ++i) {
            m_window->click(m_window->button(opener));
            QVERIFY(eventually([this] { return sheet() != nullptr; }));
            const QRectF place = placeOf(sheet());
            QVERIFY(place.width() >= 900);
            QVERIFY(place.height() >= 700);
            if (byEscape) {
                m_window->press(Qt::Key_Escape);
            } else {
                m_window->click(m_window->button(u"Close"_s, sheet()));
            }
            QVERIFY(eventually([this] { return sheet() == nullptr; }));
        }
        settle();
        QCOMPARE(m_world->service.requests().size(), 1);
        QVERIFY(m_window->all(u"Spokes"_s).isEmpty());
        QVERIFY(m_window->shows(u"No Training Jobs"_s));
    }

    void takesNoInputBehindTheSheet()
    {
        opensWith('[' + job("a", "running", "First") + ']');
        QVERIFY(eventually([this] { return cards().size() == 1; }));
        const QQuickItem *all = pill(u"Running"_s);
        m_window->click(m_window->button(u"New Training"_s));
        QVERIFY(eventually([this] { return sheet() != nullptr; }));
        m_window->click(all);
        settle();
        QCOMPARE(model().selectedFilter(), TrainingViewModel::JobStatusFilter::All);
    }

    // Composition

    void composesTheHeader()
    {
        opensWith("[]");
        QCOMPARE(colorOf(m_view->rootObject()), u"#ff09090b"_s);
        const QQuickItem *title = m_window->text(u"Training"_s);
        QCOMPARE(fontOf(title), u"Space Grotesk 24 700"_s);
        QCOMPARE(colorOf(title), white);
        QCOMPARE(placeOf(title).left(), 24.0);
        const QQuickItem *subtitle = m_window->text(u"Monitor and manage your fine-tuning jobs"_s);
        QCOMPARE(fontOf(subtitle), u"Inter 14 400"_s);
        QCOMPARE(colorOf(subtitle), textSecondary);
        QCOMPARE(gapBetween(title, subtitle), 4.0);
        QCOMPARE(placeOf(title).top(), 20.0);

        const QQuickItem *button = m_window->button(u"New Training"_s);
        QCOMPARE(placeOf(button).right(), 980.0 - 24.0);
        QCOMPARE(colorOf(backgroundOf(button)), white);
        QCOMPARE(radiusOf(backgroundOf(button)), 6.0);
        const QQuickItem *label = m_window->text(u"New Training"_s, button);
        QCOMPARE(fontOf(label), u"Inter 13 500"_s);
        QCOMPARE(colorOf(label), u"#ff000000"_s);
        const QQuickItem *plus = m_window->symbol(u"plus"_s, button);
        QVERIFY(placeOf(plus).left() >= placeOf(button).left() + 16);
        QCOMPARE(gapAcross(plus, label), 8.0);
        QVERIFY(qAbs(placeOf(label).right() - (placeOf(button).right() - 16)) < 1);
        QCOMPARE(paddingOf(button), QSizeF(16, 8));
    }

    void composesTheStatistics()
    {
        opensWith("[]");
        const auto cards = m_window->all(u"TrainingStatCard"_s);
        QCOMPARE(cards.size(), 3);
        const QQuickItem *subtitle = m_window->text(u"Monitor and manage your fine-tuning jobs"_s);
        QCOMPARE(gapBetween(subtitle, cards[0]), 20.0);
        QCOMPARE(placeOf(cards[0]).left(), 24.0);
        QCOMPARE(placeOf(cards[2]).right(), 980.0 - 24.0);
        QCOMPARE(gapAcross(cards[0], cards[1]), 16.0);
        QCOMPARE(gapAcross(cards[1], cards[2]), 16.0);
        QCOMPARE(placeOf(cards[0]).width(), placeOf(cards[2]).width());

        const QStringList titles{u"Active Jobs"_s, u"Completed"_s, u"Total Jobs"_s};
        const QStringList icons{u"play.circle.fill"_s, u"checkmark.circle.fill"_s, u"chart.bar.fill"_s};
        const QStringList colors{u"22c55e"_s, u"3b82f6"_s, u"a855f7"_s};
        for (qsizetype i = 0; i < 3; ++i) {
            QCOMPARE(colorOf(cards[i]), surface);
            QCOMPARE(radiusOf(cards[i]), 12.0);
            QCOMPARE(strokeOf(cards[i]), outline);
            const QQuickItem *icon = m_window->symbol(icons[i], cards[i]);
            QCOMPARE(icon->property("size").toDouble(), 20.0);
            QCOMPARE(colorOf(icon), u"#ff"_s + colors[i]);
            const QQuickItem *tile = icon->parentItem();
            QCOMPARE(placeOf(tile).size(), QSizeF(44, 44));
            QCOMPARE(placeOf(tile).topLeft(), placeOf(cards[i]).topLeft() + QPointF(16, 16));
            QCOMPARE(placeOf(tile).bottom(), placeOf(cards[i]).bottom() - 16);
            QCOMPARE(colorOf(tile), u"#26"_s + colors[i]);
            QCOMPARE(radiusOf(tile), 8.0);
            const QQuickItem *value = m_window->text(u"0"_s, cards[i]);
            QCOMPARE(fontOf(value), u"Space Grotesk 18 500"_s);
            QCOMPARE(colorOf(value), white);
            const QQuickItem *title = m_window->text(titles[i], cards[i]);
            QCOMPARE(fontOf(title), u"Inter 12 400"_s);
            QCOMPARE(colorOf(title), textSecondary);
            QCOMPARE(gapAcross(tile, value), 16.0);
            QCOMPARE(gapBetween(value, title), 2.0);
            QCOMPARE(placeOf(value).left(), placeOf(title).left());
        }
    }

    void composesTheFilters()
    {
        opensWith("[]");
        QQuickItem *previous = nullptr;
        for (const QString &name : {u"All"_s, u"Running"_s, u"Completed"_s, u"Failed"_s}) {
            QQuickItem *one = pill(name);
            QVERIFY(one);
            const QQuickItem *label = m_window->text(name, one);
            QCOMPARE(fontOf(label), u"Inter 12 500"_s);
            QCOMPARE(colorOf(label), white);
            QCOMPARE(paddingOf(one), QSizeF(16, 8));
            QCOMPARE(radiusOf(backgroundOf(one)), 6.0);
            if (previous) {
                QCOMPARE(gapAcross(previous, one), 8.0);
            } else {
                QCOMPARE(placeOf(one).left(), 24.0);
                QCOMPARE(gapBetween(m_window->all(u"TrainingStatCard"_s).constFirst(), one), 20.0);
            }
            previous = one;
        }
    }

    void composesTheCardOfARunningJob()
    {
        opensWith('[' + job("a", "running", "First") + ',' + job("b", "completed", "Second") + ']');
        QVERIFY(eventually([this] { return cards().size() == 2; }));
        const QQuickItem *card = cards()[0];
        QCOMPARE(colorOf(card), surface);
        QCOMPARE(radiusOf(card), 12.0);
        QCOMPARE(placeOf(card).left(), 24.0);
        QCOMPARE(placeOf(card).right(), 980.0 - 24.0);
        QCOMPARE(gapBetween(pill(u"All"_s), card), 16.0 + 24.0);
        QCOMPARE(gapBetween(card, cards()[1]), 12.0);

        const QQuickItem *dot = dotOf(card);
        QCOMPARE(placeOf(dot).left(), placeOf(card).left() + 20);
        QCOMPARE(radiusOf(dot), 5.0);
        const QQuickItem *name = m_window->text(u"First"_s, card);
        QCOMPARE(fontOf(name), u"Inter 14 500"_s);
        QCOMPARE(colorOf(name), white);
        QCOMPARE(gapAcross(dot, name), 16.0);
        const QQuickItem *id = m_window->text(u"ID: a"_s, card);
        QCOMPARE(fontOf(id), u"Geist Mono 12 400"_s);
        QCOMPARE(colorOf(id), textTertiary);
        QCOMPARE(gapBetween(name, id), 4.0);

        const QQuickItem *badge = m_window->text(u"Running"_s, card)->parentItem();
        const QQuickItem *percent = m_window->text(u"40%"_s, card);
        QCOMPARE(fontOf(percent), u"Geist Mono 12 400"_s);
        QCOMPARE(colorOf(percent), white);
        const QQuickItem *bar = m_window->all(u"ProgressBar"_s, card).constFirst();
        QCOMPARE(placeOf(bar).width(), 80.0);
        QCOMPARE(colorOf(bar, "tint"), green);
        QCOMPARE(placeOf(bar->childItems().constFirst()).width(), 32.0);
        QCOMPARE(placeOf(percent).right(), placeOf(bar).right());
        QCOMPARE(gapBetween(percent, bar), 4.0);
        QCOMPARE(gapAcross(badge, bar), 16.0);

        const QQuickItem *stop = m_window->symbol(u"stop.circle"_s, m_window->button(u"Cancel First"_s));
        const QQuickItem *details = m_window->symbol(u"arrow.right.circle"_s, m_window->button(u"Details of First"_s));
        QCOMPARE(colorOf(stop), red);
        QCOMPARE(colorOf(details), textSecondary);
        QCOMPARE(gapAcross(bar, stop), 16.0);
        QCOMPARE(gapAcross(stop, details), 8.0);
        QCOMPARE(placeOf(details).right(), placeOf(card).right() - 20);

        const auto metrics = m_window->all(u"JobMetricItem"_s, card);
        QCOMPARE(metrics.size(), 4);
        const QStringList labels{u"EPOCH"_s, u"LOSS"_s, u"LEARNING RATE"_s, u"ETA"_s};
        const QStringList values{u"2/5"_s, u"0.342"_s, u"1e-4"_s, u"~45 min"_s};
        for (qsizetype i = 0; i < 4; ++i) {
            const QQuickItem *label = m_window->text(labels[i], metrics[i]);
            QCOMPARE(fontOf(label), u"Inter 9 700"_s);
            QCOMPARE(colorOf(label), textTertiary);
            const QQuickItem *value = m_window->text(values[i], metrics[i]);
            QCOMPARE(fontOf(value), u"Geist Mono 12 400"_s);
            QCOMPARE(colorOf(value), white);
            QCOMPARE(gapBetween(label, value), 2.0);
            if (i > 0) {
                QCOMPARE(gapAcross(metrics[i - 1], metrics[i]), 24.0);
            }
        }
        QCOMPARE(placeOf(metrics[0]).left(), placeOf(card).left() + 20);
        QCOMPARE(placeOf(metrics[0]).bottom(), placeOf(card).bottom() - 12);
        const auto dividers = m_window->all(u"Divider"_s, card);
        QCOMPARE(dividers.size(), 1);
        QCOMPARE(colorOf(dividers[0]), border);
        QCOMPARE(placeOf(dividers[0]).height(), 1.0);
        QCOMPARE(gapBetween(dividers[0], metrics[0]), 12.0);
        bool hasShade = false;
        for (const QQuickItem *box : m_window->all(u"QQuickRectangle"_s, card)) {
            hasShade = hasShade || colorOf(box) == u"#4d000000"_s;
        }
        QVERIFY(hasShade);
        // Of the main row: padding of 20 above and below the taller of its columns.
        const double tallest = std::max(placeOf(id).bottom() - placeOf(name).top(),
            std::max(placeOf(bar).bottom() - placeOf(percent).top(), placeOf(badge).height()));
        QVERIFY(placeOf(dividers[0]).top() - placeOf(card).top() >= tallest + 40);
        QCOMPARE(placeOf(name).top() - placeOf(card).top(), placeOf(dividers[0]).top() - placeOf(id).bottom());

        // That of the completed one is the main row alone.
        QCOMPARE(placeOf(cards()[1]).height(),
            placeOf(m_window->text(u"ID: b"_s)).bottom() - placeOf(m_window->text(u"Second"_s)).top() + 40);
    }

    void composesTheEmptyState()
    {
        opensWith("[]");
        QVERIFY(eventually([this] { return m_window->shows(u"No Training Jobs"_s); }));
        const QQuickItem *icon = m_window->symbol(u"terminal"_s);
        QCOMPARE(icon->property("size").toDouble(), 64.0);
        QCOMPARE(colorOf(icon), textTertiary);
        const QQuickItem *title = m_window->text(u"No Training Jobs"_s);
        QCOMPARE(fontOf(title), u"Space Grotesk 18 500"_s);
        QCOMPARE(colorOf(title), white);
        const QQuickItem *text = m_window->text(u"Start fine-tuning a model with your dataset"_s);
        QCOMPARE(fontOf(text), u"Inter 14 400"_s);
        QCOMPARE(colorOf(text), textSecondary);
        const QQuickItem *button = m_window->button(u"Start Training"_s);
        QCOMPARE(colorOf(backgroundOf(button)), white);
        QCOMPARE(gapAcross(m_window->symbol(u"sparkles"_s, button), m_window->text(u"Start Training"_s, button)), 8.0);
        QCOMPARE(gapBetween(icon, title), 24.0);
        QCOMPARE(gapBetween(text, button), 24.0);
        for (const QQuickItem *item : {icon, title, text, button}) {
            QVERIFY(qAbs(placeOf(item).center().x() - 490) <= 1);
        }
    }

    // Keyboard and assistive programs

    void isUsedWithoutAMouse()
    {
        opensWith('[' + job("a", "running", "First") + ']');
        QVERIFY(eventually([this] { return cards().size() == 1; }));
        pill(u"All"_s)->forceActiveFocus(Qt::TabFocusReason);
        m_window->press(Qt::Key_Right);
        m_window->press(Qt::Key_Right);
        QCOMPARE(model().selectedFilter(), TrainingViewModel::JobStatusFilter::Completed);
        m_window->press(Qt::Key_Left);
        QCOMPARE(model().selectedFilter(), TrainingViewModel::JobStatusFilter::Running);

        m_window->button(u"Cancel First"_s)->forceActiveFocus(Qt::TabFocusReason);
        m_window->press(Qt::Key_Space);
        QVERIFY(eventually(
            [this] { return m_world->service.requests("POST", "/v1/fine-tuning/jobs/a/cancel").size() == 1; }));
    }

    void cancelsNoJobThatTheFilterLeavesOut()
    {
        opensWith('[' + job("a", "running", "First") + ',' + job("b", "completed", "Second") + ']');
        QVERIFY(eventually([this] { return cards().size() == 2; }));
        m_window->button(u"Cancel First"_s)->forceActiveFocus(Qt::TabFocusReason);
        model().setSelectedFilter(TrainingViewModel::JobStatusFilter::Completed);
        redraw();
        QCOMPARE(names(), QStringList(u"Second"_s));
        m_window->press(Qt::Key_Return);
        settle();
        QVERIFY(m_world->service.requests("POST", "/v1/fine-tuning/jobs/a/cancel").isEmpty());
    }

    void isReadOutByAssistivePrograms()
    {
        opens();
        m_world->clock.advance(300ms);
        QVERIFY(eventually([this] { return cards().size() == 3; }));
        QVERIFY(m_window->control(QAccessible::Heading, u"Training"_s));
        QVERIFY(m_window->control(QAccessible::StaticText, u"Active Jobs: 1"_s));
        QVERIFY(m_window->control(QAccessible::List, u"Training jobs"_s));
        QVERIFY(m_window->control(QAccessible::ListItem, u"Code Assistant LoRA"_s));
        QVERIFY(m_window->control(QAccessible::ProgressBar, u"Progress"_s));
    }

    void scrollsThroughManyJobs()
    {
        QByteArrayList jobs;
        for (int i = 0; i < 200; ++i) {
            jobs.append(job(QByteArray::number(i), i % 3 ? "completed" : "running", "Job " + QByteArray::number(i)));
        }
        opensWith('[' + jobs.join(',') + ']');
        QVERIFY(eventually([this] { return m_window->shows(u"Job 0"_s); }));
        QVERIFY(cards().size() < 20);
        QQuickItem *list = m_window->control(QAccessible::List, u"Training jobs"_s);
        list->forceActiveFocus();
        m_window->press(Qt::Key_End);
        QVERIFY(eventually([this] { return m_window->shows(u"Job 199"_s); }));
        // A card that has shown another job before shows this one whole.
        const QQuickItem *last = m_window->text(u"Job 198"_s);
        QVERIFY(last);
        QVERIFY(m_window->button(u"Cancel Job 198"_s));
        QVERIFY(!m_window->button(u"Cancel Job 199"_s));
        QVERIFY(m_window->shows(u"ID: 199"_s));
    }

private:
    // In the room that the main window leaves to it at its smallest.
    void opens() { open(u"Workspace/TrainingView.qml"_s, {980, 760}); }

    void opensWith(const QByteArray &jobs)
    {
        m_world->isSignedIn();
        m_world->service.hasJobs(jobs);
        opens();
        QVERIFY(eventually([this] { return !model().isLoading(); }));
    }

    TrainingViewModel &model() const { return *m_view->rootObject()->findChild<TrainingViewModel *>(); }
    QList<QQuickItem *> cards() const { return m_window->all(u"TrainingJobCard"_s); }
    QQuickItem *pill(const QString &name) const { return m_window->control(QAccessible::RadioButton, name); }
    QQuickItem *sheet() const { return m_window->control(QAccessible::Dialog, u"New Training"_s); }

    QStringList names() const
    {
        QStringList names;
        for (const QQuickItem *card : cards()) {
            names.append(card->property("name").toString());
        }
        return names;
    }

    QStringList statistics() const
    {
        QStringList values;
        for (const QQuickItem *card : m_window->all(u"TrainingStatCard"_s)) {
            values.append(card->property("value").toString());
        }
        return values;
    }

    QQuickItem *dotOf(const QQuickItem *card) const
    {
        for (QQuickItem *box : m_window->all(u"QQuickRectangle"_s, card)) {
            if (placeOf(box).size() == QSizeF(10, 10)) {
                return box;
            }
        }
        return nullptr;
    }
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_TrainingView)
#include "tst_TrainingView.moc"
