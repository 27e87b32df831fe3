#include "support/ViewTest.h"
#include "workspace/datasets/DatasetsViewModel.h"

#include <QFile>
#include <QTemporaryDir>

#include <QWheelEvent>
#include <cmath>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmere::testing;

namespace quillmere {

namespace {

const auto white = u"#ffffffff"_s;
const auto surface = u"#ff121214"_s;
const auto outline = u"#ff27272a 1"_s;
const auto accent = u"#ff3b82f6"_s;
const auto textSecondary = u"#ffa1a1aa"_s;
const auto textTertiary = u"#ff71717a"_s;

QByteArray file(const QByteArray &id, const QByteArray &filename, const QByteArray &purpose = "fine-tune")
{
    return "{\"id\":\"" + id + "\",\"filename\":\"" + filename + "\",\"purpose\":\"" + purpose
        + "\",\"bytes\":15420000,\"created_at\":\"2026-11-20T10:00:00Z\"}";
}

} // namespace

class tst_DatasetsView : public ViewTest {
    Q_OBJECT

private slots:
    // What stands in its body

    void showsASpinnerAndThenThreeSamplesToASignedOutUser()
    {
        opens();
        const auto spinners = m_window->all(u"Spokes"_s);
        QCOMPARE(spinners.size(), 1);
        QCOMPARE(colorOf(spinners[0]), white);
        QVERIFY(rows().isEmpty());
        QVERIFY(!m_window->shows(u"No Datasets"_s));
        QVERIFY(!m_window->shows(u"0 files"_s));

        m_world->clock.advance(300ms);
        QVERIFY(eventually([this] { return rows().size() == 3; }));
        QVERIFY(m_window->all(u"Spokes"_s).isEmpty());
        QCOMPARE(
            names(), QStringList({u"medical_qa_train.jsonl"_s, u"medical_qa_val.jsonl"_s, u"code_samples.jsonl"_s}));
        QVERIFY(m_window->shows(u"3 files"_s));
        QVERIFY(m_window->shows(u"26.7 MB"_s));
    }

    void showsTheEmptyStateWhenTheServiceHasNone()
    {
        opensWith("[]");
        QVERIFY(eventually([this] { return m_window->shows(u"No Datasets"_s); }));
        QVERIFY(m_window->all(u"Spokes"_s).isEmpty());
        QVERIFY(!m_window->shows(u"0 files"_s));
        m_world->clock.advance(1s);
        QVERIFY(rows().isEmpty());
    }

    void showsSamplesAndNoErrorWhenTheServiceIsDown()
    {
        m_world->isSignedIn();
        m_world->service.on("GET /v1/files").answers(503, R"({"detail":"Down"})");
        opens();
        QVERIFY(eventually([this] { return model().errorMessage().has_value(); }));
        QCOMPARE(m_window->all(u"Spokes"_s).size(), 1);
        m_world->clock.advance(300ms);
        QVERIFY(eventually([this] { return rows().size() == 3; }));
        for (const QString &text : m_window->texts()) {
            QVERIFY(!text.contains(u"Down"_s));
        }
    }

    void loadsEachTimeItAppears()
    {
        opensWith('[' + file("a", "a.csv") + ']');
        QVERIFY(eventually([this] { return rows().size() == 1; }));
        m_window->hover(rows().first());
        m_window->click(m_window->button(u"Delete a.csv"_s));
        QVERIFY(eventually([this] { return m_window->shows(u"No Datasets"_s); }));
        QCOMPARE(m_world->service.requests().size(), 1);
        m_view.reset();
        opens();
        QVERIFY(eventually([this] { return rows().size() == 1; }));
        QCOMPARE(m_world->service.requests().size(), 2);
    }

    // Search and filter

    void searchesWhileTyping()
    {
        opensWith('[' + file("a", "one.csv") + ',' + file("b", "two.csv") + ']');
        QVERIFY(eventually([this] { return rows().size() == 2; }));
        m_window->click(m_window->field(u"Search datasets..."_s));
        m_window->type(u"TW"_s);
        QVERIFY(eventually([this] { return names() == QStringList(u"two.csv"_s); }));
        // Without a hit too the count and the total are those of all.
        m_window->type(u"x"_s);
        QVERIFY(eventually([this] { return m_window->shows(u"No Datasets"_s); }));
        QVERIFY(m_window->button(u"Upload Dataset"_s, m_window->all(u"DatasetsEmptyState"_s).first()));
        QVERIFY(m_window->shows(u"2 files"_s));
        QVERIFY(m_window->shows(u"30.8 MB"_s));
        m_window->press(Qt::Key_Escape);
        QVERIFY(eventually([this] { return rows().size() == 2; }));
    }

    void filtersByPill_data()
    {
        QTest::addColumn<QString>("pill");
        QTest::addColumn<QStringList>("shown");
        QTest::newRow("all") << u"All"_s << QStringList({u"f"_s, u"v"_s, u"t"_s, u"o"_s});
        QTest::newRow("fine-tune") << u"Fine-Tune"_s << QStringList(u"f"_s);
        QTest::newRow("validation") << u"Validation"_s << QStringList(u"v"_s);
        QTest::newRow("test") << u"Test"_s << QStringList(u"t"_s);
    }
    void filtersByPill()
    {
        QFETCH(QString, pill);
        QFETCH(QStringList, shown);
        opensWith('[' + file("1", "f") + ',' + file("2", "v", "validation") + ',' + file("3", "t", "test") + ','
            + file("4", "o", "other") + ']');
        QVERIFY(eventually([this] { return rows().size() == 4; }));
        m_window->click(this->pill(pill));
        QVERIFY(eventually([&] { return names() == shown; }));
        QVERIFY(m_window->shows(u"4 files"_s));
        m_window->hover(m_window->text(u"Datasets"_s));
        QVERIFY(eventually([&] { return !this->pill(pill)->property("hovered").toBool(); }));
        for (const QString &name : {u"All"_s, u"Fine-Tune"_s, u"Validation"_s, u"Test"_s}) {
            QCOMPARE(colorOf(backgroundOf(this->pill(name))), name == pill ? accent : surface);
            QCOMPARE(bool(QAccessible::queryAccessibleInterface(this->pill(name))->state().checked), name == pill);
        }
    }

    // Rows

    void showsItsButtonWhileThePointerIsOverTheRow()
    {
        opensWith('[' + file("a", "one.csv") + ',' + file("b", "two.csv") + ']');
        QVERIFY(eventually([this] { return rows().size() == 2; }));
        QVERIFY(!offersToDelete(u"one.csv"_s));
        QCOMPARE(colorOf(groundOf(rows()[0])), u"#00000000"_s);
        m_window->hover(rows()[0]);
        QVERIFY(eventually([this] { return offersToDelete(u"one.csv"_s); }));
        QVERIFY(!offersToDelete(u"two.csv"_s));
        QCOMPARE(colorOf(groundOf(rows()[0])), u"#05ffffff"_s);
        const QQuickItem *trash = m_window->symbol(u"trash"_s, rows()[0]);
        QCOMPARE(colorOf(trash), textTertiary);
        m_window->hover(rows()[1]);
        QVERIFY(eventually([this] { return offersToDelete(u"two.csv"_s); }));
        QVERIFY(!offersToDelete(u"one.csv"_s));

        m_window->click(m_window->button(u"Delete two.csv"_s));
        QVERIFY(eventually([this] { return names() == QStringList(u"one.csv"_s); }));
        QCOMPARE(m_world->service.requests().size(), 1);
    }

    void goesThroughALongListByTabAndBack()
    {
        opensWithMany(60);
        m_window->control(QAccessible::List, u"Datasets"_s)->forceActiveFocus(Qt::TabFocusReason);
        for (int i = 0; i < 60; ++i) {
            m_window->press(Qt::Key_Tab);
            QCOMPARE(focused(), u"Delete file-%1.csv"_s.arg(i));
            redraw();
        }
        for (int i = 58; i >= 0; --i) {
            m_window->press(Qt::Key_Backtab);
            QCOMPARE(focused(), u"Delete file-%1.csv"_s.arg(i));
            redraw();
        }
    }

    void goesThroughItsRowsFromTheTopAfterAFilter()
    {
        opensWithMany(6);
        for (const QString &name : {u"Validation"_s, u"Test"_s, u"All"_s}) {
            m_window->click(pill(name));
            redraw();
        }
        pill(u"Test"_s)->forceActiveFocus(Qt::TabFocusReason);
        for (int i = 0; i < 6; ++i) {
            m_window->press(Qt::Key_Tab);
            QCOMPARE(focused(), u"Delete file-%1.csv"_s.arg(i));
        }
    }

    void keepsTheKeyboardFromRowsThatHaveGone()
    {
        opensWithMany(60);
        m_window->control(QAccessible::List, u"Datasets"_s)->forceActiveFocus(Qt::TabFocusReason);
        m_window->press(Qt::Key_Tab);
        QCOMPARE(focused(), u"Delete file-0.csv"_s);
        for (int i = 0; i < 60; ++i) {
            QWheelEvent turn({490, 500}, {490, 500}, {}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(m_view.get(), &turn);
            redraw();
        }
        QVERIFY(names().contains(u"file-59.csv"_s));
        m_window->press(Qt::Key_Return);
        QVERIFY(m_window->shows(u"60 files"_s));

        m_window->press(Qt::Key_Home);
        redraw();
        m_window->press(Qt::Key_Tab);
        QCOMPARE(focused(), u"Delete file-0.csv"_s);
        model().setSelectedPurpose(u"validation"_s);
        redraw();
        m_window->press(Qt::Key_Return);
        QVERIFY(m_window->shows(u"60 files"_s));
    }

    void showsItsButtonToTheKeyboard()
    {
        opensWith('[' + file("a", "one.csv") + ',' + file("b", "two.csv") + ',' + file("c", "three.csv") + ']');
        QVERIFY(eventually([this] { return rows().size() == 3; }));
        pill(u"Test"_s)->forceActiveFocus(Qt::TabFocusReason);
        m_window->press(Qt::Key_Tab);
        QVERIFY(eventually([this] { return offersToDelete(u"one.csv"_s); }));
        m_window->press(Qt::Key_Tab);
        QVERIFY(eventually([this] { return offersToDelete(u"two.csv"_s); }));
        QVERIFY(!offersToDelete(u"one.csv"_s));
        // The next row takes its place.
        m_window->press(Qt::Key_Space);
        QVERIFY(eventually([this] { return names() == QStringList({u"one.csv"_s, u"three.csv"_s}); }));
        QVERIFY(eventually([this] { return offersToDelete(u"three.csv"_s); }));
        m_window->press(Qt::Key_Return);
        QVERIFY(eventually([this] { return names() == QStringList(u"one.csv"_s); }));
        QVERIFY(eventually([this] { return offersToDelete(u"one.csv"_s); }));
        m_window->press(Qt::Key_Return);
        QVERIFY(eventually([this] { return m_window->shows(u"No Datasets"_s); }));
    }

    void removesByAssistivePrograms()
    {
        opensWith('[' + file("a", "one.csv") + ']');
        QVERIFY(eventually([this] { return rows().size() == 1; }));
        QQuickItem *trash = trashOf(rows()[0]);
        QVERIFY(trash);
        auto *interface = QAccessible::queryAccessibleInterface(trash);
        QCOMPARE(interface->text(QAccessible::Name), u"Delete one.csv"_s);
        interface->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QVERIFY(eventually([this] { return m_window->shows(u"No Datasets"_s); }));
    }

    void cutsALongNameInTheMiddle()
    {
        const QByteArray name = QByteArray("a very long name ").repeated(20) + ".jsonl";
        opensWith('[' + file("a", name, "a-purpose-that-nobody-thought-of") + ']');
        QVERIFY(eventually([this] { return rows().size() == 1; }));
        const QQuickItem *row = rows()[0];
        const QQuickItem *label = m_window->text(QString::fromLatin1(name), row);
        QVERIFY(label->property("truncated").toBool());
        QCOMPARE(label->property("elide").toInt(), int(Qt::ElideMiddle));
        QCOMPARE(label->property("lineCount").toInt(), 1);
        const QQuickItem *badge = m_window->text(u"A-Purpose-That-Nobody-Thought-Of"_s, row);
        QVERIFY(placeOf(label).right() < placeOf(badge->parentItem()).left());
        QCOMPARE(placeOf(badge->parentItem()).width(), 120.0);
    }

    void showsMarkupAsItStands()
    {
        const auto name = u"<b>Bold</b> &amp; <img src='http://127.0.0.1:1/x'>"_s;
        opensWith('[' + file("1", name.toUtf8(), "<i>test</i>") + ']');
        QVERIFY(eventually([this] { return rows().size() == 1; }));
        for (const QString &text : {name, u"<I>Test</I>"_s}) {
            QVERIFY2(m_window->shows(text), qPrintable(text));
            QCOMPARE(m_window->text(text)->property("textFormat").toInt(), int(Qt::PlainText));
        }
    }

    // Uploading

    void uploadsAPickedFile_data()
    {
        QTest::addColumn<bool>("fromEmptyState");
        QTest::newRow("from the header") << false;
        QTest::newRow("from the empty state") << true;
    }
    void uploadsAPickedFile()
    {
        QFETCH(bool, fromEmptyState);
        QTemporaryDir folder;
        QFile picked(folder.filePath(u"picked.csv"_s));
        QVERIFY(picked.open(QIODevice::WriteOnly) && picked.write("a,b\n") == 4);
        picked.close();

        opensWith("[]");
        QVERIFY(eventually([this] { return m_window->shows(u"No Datasets"_s); }));
        const QQuickItem *from =
            fromEmptyState ? m_window->all(u"DatasetsEmptyState"_s).first() : m_window->all(u"ScreenHeader"_s).first();
        // Twice: a dialog that was closed opens again.
        m_window->click(m_window->button(u"Upload Dataset"_s, from));
        QVERIFY(m_world->filePicker.isUp());
        QCOMPARE(m_view->rootObject()->property("showFilePicker"), true);
        m_world->filePicker.answers(QList<QUrl>());
        QVERIFY(eventually([this] { return m_view->rootObject()->property("showFilePicker") == false; }));
        m_window->click(m_window->button(u"Upload Dataset"_s, from));
        m_world->service.on("POST /v1/files").hangsBeforeReply();
        m_world->filePicker.picks(picked.fileName());

        QVERIFY(eventually([this] { return names() == QStringList(u"picked.csv"_s); }));
        QVERIFY(m_window->text(u"Fine-Tune"_s, rows()[0]));
        QVERIFY(m_window->text(u"4 bytes"_s, rows()[0]));
        QVERIFY(m_window->shows(u"1 files"_s));
        QVERIFY(m_window->all(u"Spokes"_s).isEmpty());
        QVERIFY(eventually([this] { return m_world->service.uploads().size() == 1; }));
        m_world->service.release();
        QVERIFY(eventually([this] { return model().datasets().first().id.startsWith(u"file-"_s); }));
        QCOMPARE(names(), QStringList(u"picked.csv"_s));
    }

    // Composition

    void composesTheHeader()
    {
        opensWith("[]");
        QCOMPARE(colorOf(m_view->rootObject()), u"#ff09090b"_s);
        const QQuickItem *title = m_window->text(u"Datasets"_s);
        QCOMPARE(fontOf(title), u"Space Grotesk 24 700"_s);
        QCOMPARE(colorOf(title), white);
        QCOMPARE(placeOf(title).topLeft(), QPointF(24, 20));
        const QQuickItem *subtitle = m_window->text(u"Upload and manage training datasets"_s);
        QCOMPARE(fontOf(subtitle), u"Inter 14 400"_s);
        QCOMPARE(colorOf(subtitle), textSecondary);
        QCOMPARE(gapBetween(title, subtitle), 4.0);
        const QQuickItem *button = m_window->button(u"Upload Dataset"_s, m_window->all(u"ScreenHeader"_s).first());
        QCOMPARE(placeOf(button).right(), 980.0 - 24.0);
        QCOMPARE(colorOf(backgroundOf(button)), white);
        QCOMPARE(
            gapAcross(m_window->symbol(u"arrow.up.doc"_s, button), m_window->text(u"Upload Dataset"_s, button)), 8.0);
    }

    void composesTheSearchRow()
    {
        opensWith('[' + file("a", "a.csv") + ']');
        QVERIFY(eventually([this] { return rows().size() == 1; }));
        const QQuickItem *box = m_window->all(u"SearchBox"_s).first();
        QCOMPARE(placeOf(box).left(), 24.0);
        QCOMPARE(placeOf(box).width(), 300.0);
        QCOMPARE(gapBetween(m_window->text(u"Upload and manage training datasets"_s), box), 20.0);
        QCOMPARE(colorOf(box), surface);
        QCOMPARE(strokeOf(box), outline);
        QCOMPARE(radiusOf(box), 8.0);
        QCOMPARE(colorOf(m_window->symbol(u"magnifyingglass"_s, box)), textTertiary);
        QQuickItem *previous = nullptr;
        for (const QString &name : {u"All"_s, u"Fine-Tune"_s, u"Validation"_s, u"Test"_s}) {
            QQuickItem *one = pill(name);
            QVERIFY(one);
            QCOMPARE(fontOf(m_window->text(name, one)), u"Inter 12 500"_s);
            QCOMPARE(colorOf(m_window->text(name, one)), white);
            QCOMPARE(paddingOf(one), QSizeF(12, 6));
            QCOMPARE(radiusOf(backgroundOf(one)), 6.0);
            QCOMPARE(previous ? gapAcross(previous, one) : gapAcross(box, one), previous ? 8.0 : 16.0);
            previous = one;
        }
        const QQuickItem *count = m_window->text(u"1 files"_s);
        const QQuickItem *total = m_window->text(u"15.4 MB"_s, count->parentItem());
        QCOMPARE(fontOf(count), u"Geist Mono 12 400"_s);
        QCOMPARE(colorOf(count), textSecondary);
        QCOMPARE(fontOf(total), u"Geist Mono 12 400"_s);
        QCOMPARE(colorOf(total), textTertiary);
        QCOMPARE(gapAcross(count, total), 16.0);
        QCOMPARE(placeOf(total).right(), 980.0 - 24.0);
    }

    void composesTheTable()
    {
        opensWith('[' + file("a", "one.csv", "validation") + ',' + file("b", "two.jsonl") + ']');
        QVERIFY(eventually([this] { return rows().size() == 2; }));
        const QQuickItem *table = m_window->all(u"DatasetsTable"_s).first();
        const QQuickItem *card = table->childItems().first();
        QCOMPARE(colorOf(card), surface);
        QCOMPARE(strokeOf(card), outline);
        QCOMPARE(radiusOf(card), 12.0);
        QCOMPARE(placeOf(card).left(), 24.0);
        QCOMPARE(placeOf(card).right(), 980.0 - 24.0);
        QCOMPARE(gapBetween(m_window->all(u"SearchBox"_s).first(), card), 16.0 + 24.0);

        const QStringList headings{u"FILENAME"_s, u"PURPOSE"_s, u"SIZE"_s, u"UPLOADED"_s};
        const QList<double> widths{980.0 - 48 - 40 - 420, 120, 100, 140};
        double x = 24 + 20;
        for (int i = 0; i < 4; ++i) {
            const QQuickItem *heading = m_window->text(headings[i]);
            QCOMPARE(fontOf(heading), u"Inter 11 700"_s);
            QCOMPARE(colorOf(heading), textTertiary);
            QCOMPARE(placeOf(heading).left(), x);
            QCOMPARE(placeOf(heading).width(), widths[i]);
            QCOMPARE(placeOf(heading).top(), placeOf(card).top() + 12);
            QCOMPARE(heading->property("horizontalAlignment").toInt(), int(i < 2 ? Qt::AlignLeft : Qt::AlignRight));
            x += widths[i];
        }
        const QQuickItem *name = m_window->text(u"FILENAME"_s);
        QCOMPARE(placeOf(rows()[0]).top(), placeOf(name).bottom() + 12 + 1);
        QCOMPARE(gapBetween(rows()[0], rows()[1]), 1.0);
        QCOMPARE(placeOf(card).bottom(), placeOf(rows()[1]).bottom() + 1);

        const QQuickItem *row = rows()[0];
        const QQuickItem *icon = m_window->symbol(u"tablecells"_s, row);
        QCOMPARE(colorOf(icon), accent);
        QCOMPARE(placeOf(icon).width(), 20.0);
        QCOMPARE(placeOf(icon).left(), 44.0);
        const QQuickItem *filename = m_window->text(u"one.csv"_s, row);
        QCOMPARE(fontOf(filename), u"Inter 14 400"_s);
        QCOMPARE(colorOf(filename), white);
        QCOMPARE(gapAcross(icon, filename), 12.0);
        const QQuickItem *badge = m_window->text(u"Validation"_s, row);
        QCOMPARE(fontOf(badge), u"Inter 11 500"_s);
        QCOMPARE(colorOf(badge), accent);
        QCOMPARE(colorOf(badge->parentItem()), u"#263b82f6"_s);
        QCOMPARE(radiusOf(badge->parentItem()), 4.0);
        QCOMPARE(placeOf(badge->parentItem()).left(), placeOf(m_window->text(u"PURPOSE"_s)).left());
        QCOMPARE(placeOf(badge->parentItem()).height(), badge->implicitHeight() + 8);
        QCOMPARE(placeOf(badge->parentItem()).width(), std::ceil(badge->implicitWidth() + 16));
        const QQuickItem *size = m_window->text(u"15.4 MB"_s, row);
        QCOMPARE(fontOf(size), u"Geist Mono 12 400"_s);
        QCOMPARE(colorOf(size), textSecondary);
        QCOMPARE(placeOf(size).right(), placeOf(m_window->text(u"SIZE"_s)).right());
        const QQuickItem *day = m_window->text(u"November 20, 2026"_s, row);
        QCOMPARE(fontOf(day), u"Inter 12 400"_s);
        QCOMPARE(colorOf(day), textTertiary);
        QCOMPARE(placeOf(day).right(), placeOf(m_window->text(u"UPLOADED"_s)).right());
        m_window->hover(row);
        QVERIFY(eventually([this] { return offersToDelete(u"one.csv"_s); }));
        QVERIFY(qAbs(placeOf(m_window->button(u"Delete one.csv"_s)).center().x() - (980.0 - 24 - 20 - 30)) <= 1);
    }

    void composesTheEmptyState()
    {
        opensWith("[]");
        QVERIFY(eventually([this] { return m_window->shows(u"No Datasets"_s); }));
        const QQuickItem *state = m_window->all(u"DatasetsEmptyState"_s).first();
        const QQuickItem *icon = m_window->symbol(u"cylinder.split.1x2"_s, state);
        QCOMPARE(icon->property("size").toDouble(), 64.0);
        QCOMPARE(colorOf(icon), textTertiary);
        const QQuickItem *title = m_window->text(u"No Datasets"_s);
        QCOMPARE(fontOf(title), u"Space Grotesk 18 500"_s);
        const QQuickItem *text = m_window->text(u"Upload your training data in JSONL, JSON, or CSV format"_s);
        QCOMPARE(fontOf(text), u"Inter 14 400"_s);
        QCOMPARE(colorOf(text), textSecondary);
        QCOMPARE(gapBetween(title, text), 8.0);
        const QQuickItem *button = m_window->button(u"Upload Dataset"_s, state);
        QCOMPARE(gapBetween(text, button), 24.0);
        const QQuickItem *formats = m_window->text(u"Supported formats"_s);
        QCOMPARE(fontOf(formats), u"Inter 11 700"_s);
        QCOMPARE(colorOf(formats), textTertiary);
        QCOMPARE(gapBetween(button, formats), 24.0 + 16.0);

        const auto badges = m_window->all(u"FormatBadge"_s);
        QCOMPARE(badges.size(), 3);
        const QStringList names{u"JSONL"_s, u"JSON"_s, u"CSV"_s};
        const QStringList icons{u"doc.text"_s, u"curlybraces"_s, u"tablecells"_s};
        for (int i = 0; i < 3; ++i) {
            const QQuickItem *name = m_window->text(names[i], badges[i]);
            QCOMPARE(fontOf(name), u"Inter 12 500"_s);
            QCOMPARE(colorOf(name), textSecondary);
            QCOMPARE(m_window->symbol(icons[i], badges[i])->property("size").toDouble(), 12.0);
            QCOMPARE(colorOf(badges[i]), surface);
            QCOMPARE(strokeOf(badges[i]), outline);
            QCOMPARE(radiusOf(badges[i]), 6.0);
            QCOMPARE(placeOf(name).right(), placeOf(badges[i]).right() - 12);
            QCOMPARE(i == 0 ? gapBetween(formats, badges[i]) : gapAcross(badges[i - 1], badges[i]), 12.0);
        }
        for (const QQuickItem *item :
            {icon, title, text, button, formats, static_cast<const QQuickItem *>(badges[1])}) {
            QVERIFY(qAbs(placeOf(item).center().x() - 490) <= 12);
        }
    }

    void isReadOutByAssistivePrograms()
    {
        opens();
        m_world->clock.advance(300ms);
        QVERIFY(eventually([this] { return rows().size() == 3; }));
        QVERIFY(m_window->control(QAccessible::Heading, u"Datasets"_s));
        QVERIFY(m_window->control(QAccessible::List, u"Datasets"_s));
        QVERIFY(m_window->control(QAccessible::ColumnHeader, u"PURPOSE"_s));
        QVERIFY(m_window->control(QAccessible::ListItem, u"code_samples.jsonl"_s));
    }

    void beginsAtTheTopWithEachSearchAndPurpose()
    {
        opensWithMany(300);
        const double top = placeOf(rows().constFirst()).top();
        const auto scrollsToTheEnd = [this] {
            m_window->control(QAccessible::List, u"Datasets"_s)->forceActiveFocus();
            m_window->press(Qt::Key_End);
            return eventually([&] { return m_window->shows(u"file-299.csv"_s); });
        };
        QVERIFY(scrollsToTheEnd());
        m_window->click(m_window->control(QAccessible::RadioButton, u"Validation"_s));
        settle();
        QCOMPARE(names().constFirst(), u"file-1.csv"_s);
        QCOMPARE(placeOf(rows().constFirst()).top(), top);

        QVERIFY(scrollsToTheEnd());
        m_window->click(m_window->field(u"Search datasets..."_s));
        m_window->type(u"9"_s);
        QVERIFY(eventually([this] { return names().value(0) == u"file-9.csv"_s; }));
        QCOMPARE(placeOf(rows().constFirst()).top(), top);
    }

    void showsManyDatasetsWithFewRows()
    {
        QByteArrayList files;
        for (int i = 0; i < 10'000; ++i) {
            files.append(file(QByteArray::number(i), "file-" + QByteArray::number(i) + (i % 3 ? ".csv" : ".txt")));
        }
        opensWith('[' + files.join(',') + ']');
        QVERIFY(eventually([this] { return m_window->shows(u"file-0.txt"_s); }));
        QVERIFY(m_window->shows(u"10000 files"_s));
        QQuickItem *list = m_window->control(QAccessible::List, u"Datasets"_s);
        const auto live = [&] { return list->property("contentItem").value<QQuickItem *>()->childItems().size(); };
        QVERIFY2(live() < 50, QByteArray::number(live()));
        list->forceActiveFocus();
        m_window->press(Qt::Key_End);
        QVERIFY(eventually([this] { return m_window->shows(u"file-9999.txt"_s); }));
        QVERIFY2(live() < 50, QByteArray::number(live()));
        // A row that has shown another dataset before shows this one whole; and the table ends with the last.
        QVERIFY(m_window->symbol(u"doc.plaintext"_s, rows().last()));
        const QQuickItem *card = m_window->all(u"DatasetsTable"_s).first()->childItems().first();
        QCOMPARE(placeOf(card).bottom(), placeOf(rows().last()).bottom() + 1);
        QCOMPARE(placeOf(card).bottom(), 760.0 - 24.0);
        QVERIFY(card->height() < 1000);

        m_window->click(m_window->field(u"Search datasets..."_s));
        m_window->type(u"9876"_s);
        QVERIFY(eventually([this] { return names() == QStringList(u"file-9876.txt"_s); }));
    }

private:
    // "file-0.csv" and so on, by turns for tests and for validation.
    void opensWithMany(int count)
    {
        QByteArrayList files;
        for (int i = 0; i < count; ++i) {
            const QByteArray number = QByteArray::number(i);
            files.append(file(number, "file-" + number + ".csv", i % 2 == 0 ? "test" : "validation"));
        }
        opensWith('[' + files.join(',') + ']');
        QVERIFY(eventually([this] { return m_window->shows(u"file-0.csv"_s); }));
    }

    // The name of what has the keyboard.
    QString focused() const
    {
        const auto *access = QAccessible::queryAccessibleInterface(m_view->activeFocusItem());
        return access ? access->text(QAccessible::Name) : QString();
    }

    // In the room that the main window leaves to it at its smallest.
    void opens() { open(u"Workspace/DatasetsView.qml"_s, {980, 760}); }

    void opensWith(const QByteArray &files)
    {
        m_world->isSignedIn();
        m_world->service.hasFiles(files);
        opens();
        QVERIFY(eventually([this] { return !model().isLoading(); }));
    }

    DatasetsViewModel &model() const { return *m_view->rootObject()->findChild<DatasetsViewModel *>(); }
    QList<QQuickItem *> rows() const { return m_window->all(u"DatasetRow"_s); }
    QQuickItem *pill(const QString &name) const { return m_window->control(QAccessible::RadioButton, name); }
    const QQuickItem *groundOf(const QQuickItem *row) const
    {
        const auto boxes = m_window->all(u"QQuickRectangle"_s, row);
        const auto ground = std::find_if(boxes.cbegin(), boxes.cend(),
            [&](const QQuickItem *box) { return box->size() == row->size() - QSizeF(2, 0); });
        return ground == boxes.cend() ? nullptr : *ground;
    }
    bool offersToDelete(const QString &name) const
    {
        const auto all = rows();
        return std::any_of(all.cbegin(), all.cend(),
            [&](const QQuickItem *row) { return m_window->text(name, row) && m_window->symbol(u"trash"_s, row); });
    }
    // Shown or not.
    static QQuickItem *trashOf(const QQuickItem *row)
    {
        for (QQuickItem *item : row->findChildren<QQuickItem *>()) {
            const auto *interface = QAccessible::queryAccessibleInterface(item);
            if (interface && interface->role() == QAccessible::Button) {
                return item;
            }
        }
        return nullptr;
    }

    QStringList names() const
    {
        QStringList names;
        for (const QQuickItem *row : rows()) {
            names.append(row->property("filename").toString());
        }
        return names;
    }
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_DatasetsView)
#include "tst_DatasetsView.moc"
