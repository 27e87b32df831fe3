#include "identity/AuthManager.h"
#include "support/AnimationTime.h"
#include "support/ViewTest.h"
#include "workspace/models/ModelsViewModel.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmere::testing;

namespace quillmere {

namespace {

const auto white = u"#ffffffff"_s;
const auto black = u"#ff000000"_s;
const auto surface = u"#ff121214"_s;
const auto outline = u"#ff27272a 1"_s;
const auto accent = u"#ff3b82f6"_s;
const auto green = u"#ff22c55e"_s;
const auto red = u"#ffef4444"_s;
const auto textSecondary = u"#ffa1a1aa"_s;
const auto textTertiary = u"#ff71717a"_s;

// A model with all its fields.
QByteArray model(const QByteArray &id, const QByteArray &name, const QByteArray &description = "What it is for")
{
    return "{\"id\":\"" + id + "\",\"name\":\"" + name + "\",\"description\":\"" + description
        + "\",\"parameters\":7000000000,\"context_length\":8192,\"supports_finetuning\":true,"
          "\"download_url\":\"https://downloads.example/secret\",\"size_bytes\":14483464192}";
}

QByteArray bareModel(const QByteArray &id, const QByteArray &name)
{
    return "{\"id\":\"" + id + "\",\"name\":\"" + name + "\"}";
}

// "m0" with the name "Model 0" and so on.
QByteArray manyModels(int count)
{
    QByteArrayList models;
    for (int i = 0; i < count; ++i) {
        const QByteArray number = QByteArray::number(i);
        models.append(model('m' + number, "Model " + number, i % 2 == 0 ? "An even one" : "An odd one"));
    }
    return '[' + models.join(',') + ']';
}

} // namespace

class tst_ModelsView : public ViewTest {
    Q_OBJECT

private slots:
    // What stands in its body

    void showsASpinnerWhileItLoadsAndThenTheGrid()
    {
        m_world->service.hasModels('[' + model("a", "First") + ',' + model("b", "Second") + ']');
        m_world->service.on("GET /v1/models").hangsBeforeReply();
        opens();
        const auto spinners = m_window->all(u"Spokes"_s);
        QCOMPARE(spinners.size(), 1);
        QCOMPARE(colorOf(spinners[0]), white);
        QVERIFY(!m_window->shows(u"No Models Found"_s));
        QVERIFY(cards().isEmpty());
        QVERIFY(eventually([this] { return m_world->service.requests().size() == 1; }));
        m_world->service.release();
        QVERIFY(eventually([this] { return cards().size() == 2; }));
        QVERIFY(m_window->all(u"Spokes"_s).isEmpty());
        QCOMPARE(names(), QStringList({u"First"_s, u"Second"_s}));
    }

    void showsTheSpinnerInsteadOfTheGridWhileItLoadsAgain()
    {
        opensWith('[' + model("a", "First") + ']');
        m_world->service.on("GET /v1/models").hangsBeforeReply();
        viewModel().loadModels();
        QVERIFY(cards().isEmpty());
        QCOMPARE(m_window->all(u"Spokes"_s).size(), 1);
        QVERIFY(eventually([this] { return m_world->service.requests().size() == 2; }));
        m_world->service.release();
        QVERIFY(eventually([this] { return cards().size() == 1; }));
    }

    void showsTheEmptyStateForAnEmptyCatalog()
    {
        opensWith("[]");
        const auto *icon = m_window->symbol(u"cpu"_s);
        QCOMPARE(icon->property("size").toInt(), 64);
        QCOMPARE(colorOf(icon), textTertiary);
        const auto *title = m_window->text(u"No Models Found"_s);
        QCOMPARE(fontOf(title), u"Space Grotesk 18 500"_s);
        QCOMPARE(colorOf(title), white);
        const auto *text = m_window->text(u"Try adjusting your search or filters"_s);
        QCOMPARE(fontOf(text), u"Inter 14 400"_s);
        QCOMPARE(colorOf(text), textSecondary);
        QCOMPARE(placeOf(title).top() - placeOf(icon).bottom(), 24.0);
        QCOMPARE(placeOf(text).top() - placeOf(title).bottom(), 8.0);
        QVERIFY(m_window->all(u"PrimaryButton"_s).isEmpty());
        QVERIFY(cards().isEmpty());
        QVERIFY(m_window->all(u"Spokes"_s).isEmpty());
    }

    void showsWhyALoadFailedAndLoadsAgainOnRetry()
    {
        m_world->service.hasModels('[' + model("a", "First") + ']');
        m_world->service.on("GET /v1/models", 1).answers(503, R"({"detail":"The catalog is being rebuilt"})");
        opens();
        QVERIFY(eventually([this] { return m_window->shows(u"Failed to Load Models"_s); }));
        const auto *icon = m_window->symbol(u"exclamationmark.triangle"_s);
        QCOMPARE(icon->property("size").toInt(), 64);
        QCOMPARE(colorOf(icon), red);
        QCOMPARE(fontOf(m_window->text(u"Failed to Load Models"_s)), u"Space Grotesk 18 500"_s);
        const auto *message = m_window->text(u"The catalog is being rebuilt"_s);
        QCOMPARE(fontOf(message), u"Inter 14 400"_s);
        QCOMPARE(colorOf(message), textSecondary);
        QVERIFY(m_window->all(u"Spokes"_s).isEmpty());
        QVERIFY(!m_window->shows(u"No Models Found"_s));

        auto *retry = m_window->button(u"Retry"_s);
        QVERIFY(m_window->symbol(u"arrow.clockwise"_s, retry));
        m_window->click(retry);
        QVERIFY(eventually([this] { return cards().size() == 1; }));
        QVERIFY(!m_window->shows(u"Failed to Load Models"_s));
        QCOMPARE(m_world->service.requests("GET", "/v1/models").size(), 2);
    }

    void turnsIntoTheErrorStateWhenADownloadFails()
    {
        opensWith('[' + model("a", "First") + ',' + model("b", "Second") + ']');
        QVERIFY(eventually([this] { return cards().size() == 2; }));
        m_window->click(m_window->button(u"Download First"_s));
        QVERIFY(eventually([this] { return m_window->shows(u"Failed to Load Models"_s); }));
        QVERIFY(m_window->shows(viewModel().failureText()));
        QVERIFY(cards().isEmpty());
        QCOMPARE(viewModel().models().size(), 2);
        // Neither a search nor a filter brings the grid back.
        m_window->click(pill(u"Fine-tunable"_s));
        m_window->click(m_window->field(u"Search models..."_s));
        m_window->type(u"first"_s);
        QVERIFY(cards().isEmpty());
        m_window->click(m_window->button(u"Retry"_s));
        QVERIFY(eventually([this] { return names() == QStringList{u"First"_s}; }));
    }

    void asksForNoDownloadByACardThatHasGone()
    {
        opensWith('[' + model("a", "First") + ']');
        QVERIFY(eventually([this] { return cards().size() == 1; }));
        cards().constFirst()->forceActiveFocus(Qt::TabFocusReason);
        m_window->press(Qt::Key_Return);
        QVERIFY(eventually([this] { return m_window->shows(u"Failed to Load Models"_s); }));
        const auto asked = m_world->service.requests().size();
        m_window->press(Qt::Key_Return);
        settle();
        QCOMPARE(m_world->service.requests().size(), asked);
    }

    void keepsRetryInTheWindowWhateverTheServiceSays_data()
    {
        QTest::addColumn<QByteArray>("words");
        QTest::newRow("many words") << QByteArray("many words ").repeated(50'000);
        QTest::newRow("a word without an end") << QByteArray(500'000, 'x');
        QTest::newRow("many lines") << QByteArray("line\\n").repeated(50'000);
    }
    void keepsRetryInTheWindowWhateverTheServiceSays()
    {
        QFETCH(QByteArray, words);
        m_world->service.on("GET /v1/models", 1).answers(500, R"({"detail":"<b>So</b> )" + words + R"("})");
        opens();
        QVERIFY(eventually([this] { return m_window->shows(u"Failed to Load Models"_s); }));
        QVERIFY(viewModel().errorMessage()->size() > 200'000);
        const auto *message = m_window->text(viewModel().failureText());
        QCOMPARE(message->property("textFormat").toInt(), int(Qt::PlainText));
        QVERIFY(placeOf(message).left() >= 40);
        QVERIFY(placeOf(message).right() <= 980 - 40);
        QVERIFY(placeOf(m_window->symbol(u"exclamationmark.triangle"_s)).top() > 130);
        QVERIFY(placeOf(m_window->button(u"Retry"_s)).bottom() < 760);
    }

    void loadsEachTimeItAppears()
    {
        opensWith('[' + model("a", "First") + ']');
        m_window->click(m_window->field(u"Search models..."_s));
        m_window->type(u"x"_s);
        QVERIFY(m_window->shows(u"No Models Found"_s));
        close();
        opens();
        QVERIFY(eventually([this] { return cards().size() == 1; }));
        QCOMPARE(m_world->service.requests().size(), 2);
    }

    // Head, search and filters

    void hasItsHeadSearchAndFiltersInPlace_data()
    {
        QTest::addColumn<int>("width");
        QTest::newRow("smallest window") << 940;
        QTest::newRow("large window") << 1700;
    }
    void hasItsHeadSearchAndFiltersInPlace()
    {
        QFETCH(int, width);
        opensWith("[]", {width, 760});
        QCOMPARE(colorOf(m_view->rootObject()), u"#ff09090b"_s);
        const auto *title = m_window->text(u"Models"_s);
        QCOMPARE(fontOf(title), u"Space Grotesk 24 700"_s);
        QCOMPARE(colorOf(title), white);
        QCOMPARE(placeOf(title).topLeft(), QPointF(24, 20));
        const auto *subtitle = m_window->text(u"Browse and download pre-trained models for fine-tuning"_s);
        QCOMPARE(fontOf(subtitle), u"Inter 14 400"_s);
        QCOMPARE(colorOf(subtitle), textSecondary);
        QCOMPARE(placeOf(subtitle).top() - placeOf(title).bottom(), 4.0);

        const auto *box = m_window->all(u"SearchBox"_s).constFirst();
        QCOMPARE(placeOf(box).topLeft(), QPointF(24, placeOf(subtitle).bottom() + 20));
        QCOMPARE(box->width(), 300.0);
        QCOMPARE(colorOf(box), surface);
        QCOMPARE(strokeOf(box), outline);
        QCOMPARE(box->property("radius").toInt(), 8);
        const auto *glass = m_window->symbol(u"magnifyingglass"_s, box);
        QCOMPARE(colorOf(glass), textTertiary);
        QCOMPARE(placeIn(glass, box).left(), 10.0);
        const auto *field = m_window->field(u"Search models..."_s);
        QCOMPARE(colorOf(field), white);
        QCOMPARE(placeIn(field, box).left() - placeIn(glass, box).right(), 12.0);
        QCOMPARE(box->height(), field->implicitHeight() + 20);

        double left = placeOf(box).right() + 16;
        for (const QString &name : {u"All"_s, u"Fine-tunable"_s, u"Downloaded"_s}) {
            const auto *button = pill(name);
            const auto *label = m_window->text(name, button);
            QCOMPARE(fontOf(label), u"Inter 12 500"_s);
            QCOMPARE(colorOf(label), white);
            QCOMPARE(paddingOf(button), QSizeF(12, 6));
            QCOMPARE(backgroundOf(button)->property("radius").toInt(), 6);
            QCOMPARE(colorOf(backgroundOf(button)), name == u"All"_s ? accent : surface);
            QCOMPARE(placeOf(button).left(), left);
            left = placeOf(button).right() + 8;
        }
    }

    // As where the words are longer.
    void leavesTheFiltersTheirRoomWhereTheSearchHasTooLittle()
    {
        opensWith("[]", {560, 760});
        const auto *box = m_window->all(u"SearchBox"_s).constFirst();
        QVERIFY(box->width() < 300);
        QCOMPARE(placeOf(pill(u"All"_s)).left(), placeOf(box).right() + 16);
        QCOMPARE(placeOf(pill(u"Downloaded"_s)).right(), 560 - 24.0);
    }

    void countsWhatIsDownloadedInAChip()
    {
        m_world->isSignedIn();
        opensWith('[' + model("a", "First") + ',' + model("b", "Second") + ']');
        QVERIFY(!m_window->symbol(u"checkmark.circle.fill"_s));
        downloads(u"First"_s);
        const auto *count = m_window->text(u"1 downloaded"_s);
        QCOMPARE(fontOf(count), u"Inter 12 400"_s);
        QCOMPARE(colorOf(count), textSecondary);
        const auto *chip = count->parentItem()->parentItem();
        const auto *icon = m_window->symbol(u"checkmark.circle.fill"_s, chip);
        QCOMPARE(colorOf(icon), green);
        QCOMPARE(placeOf(count).left() - placeOf(icon).right(), 6.0);
        QCOMPARE(colorOf(chip), surface);
        QCOMPARE(chip->property("radius").toInt(), 8);
        QCOMPARE(placeOf(chip).right(), 980.0 - 24);
        QVERIFY(std::abs(placeIn(icon, chip).left() - 12) < 1);
        QCOMPARE(chip->width(), std::ceil(count->parentItem()->width()) + 24);
        QCOMPARE(chip->height(), std::ceil(count->parentItem()->height()) + 12);

        downloads(u"Second"_s);
        QVERIFY(m_window->shows(u"2 downloaded"_s));
        // Whatever the list shows of them.
        m_window->click(m_window->field(u"Search models..."_s));
        m_window->type(u"nothing"_s);
        QVERIFY(m_window->shows(u"2 downloaded"_s));
    }

    void findsModelsByWhatIsTyped()
    {
        opensWith('[' + model("a", "First", "calm") + ',' + model("b", "Second", "wild") + ']');
        QVERIFY(eventually([this] { return cards().size() == 2; }));
        m_window->click(m_window->field(u"Search models..."_s));
        m_window->type(u"WILD"_s);
        QVERIFY(eventually([this] { return names() == QStringList{u"Second"_s}; }));
        m_window->type(u"er"_s);
        QVERIFY(eventually([this] { return m_window->shows(u"No Models Found"_s); }));
        m_window->press(Qt::Key_Escape);
        QVERIFY(eventually([this] { return cards().size() == 2; }));
        QCOMPARE(m_world->service.requests().size(), 1);
    }

    void filtersByPill()
    {
        m_world->isSignedIn();
        opensWith('[' + model("a", "First") + ',' + bareModel("b", "Second") + ',' + bareModel("c", "Third") + ']');
        m_window->click(pill(u"Fine-tunable"_s));
        QVERIFY(eventually([this] { return names() == QStringList{u"First"_s}; }));
        m_window->click(pill(u"Downloaded"_s));
        QVERIFY(eventually([this] { return m_window->shows(u"No Models Found"_s); }));
        m_window->click(pill(u"All"_s));
        QVERIFY(eventually([this] { return cards().size() == 3; }));
        downloads(u"Third"_s);
        m_window->click(pill(u"Downloaded"_s));
        QVERIFY(eventually([this] { return names() == QStringList{u"Third"_s}; }));
        m_window->hover(m_window->text(u"Models"_s));
        QVERIFY(eventually([&] { return !pill(u"Downloaded"_s)->property("hovered").toBool(); }));
        for (const QString &name : {u"All"_s, u"Fine-tunable"_s, u"Downloaded"_s}) {
            const bool isSelected = name == u"Downloaded"_s;
            QCOMPARE(colorOf(backgroundOf(pill(name))), isSelected ? accent : surface);
            QCOMPARE(bool(accessible(pill(name))->state().checked), isSelected);
        }
    }

    // The grid

    void laysTwoColumnsOutAtAnyWidth_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("smallest window") << QSize(940, 760);
        QTest::newRow("odd") << QSize(1001, 760);
        QTest::newRow("wide") << QSize(1700, 1160);
        QTest::newRow("very wide") << QSize(3500, 1160);
    }
    void laysTwoColumnsOutAtAnyWidth()
    {
        QFETCH(QSize, size);
        opensWith(manyModels(4), size);
        QVERIFY(eventually([this] { return cards().size() == 4; }));
        const auto all = cards();
        const double bodyTop = placeOf(m_window->all(u"SearchBox"_s).constFirst()).bottom() + 16;
        QCOMPARE(placeOf(all[0]).topLeft(), QPointF(24, bodyTop + 24));
        for (const auto *card : all) {
            QCOMPARE(card->height(), 280.0);
            QCOMPARE(card->width(), std::floor((size.width() - 48 - 16) / 2.0));
        }
        QCOMPARE(placeOf(all[1]).left() - placeOf(all[0]).right(), 16.0);
        QCOMPARE(placeOf(all[1]).top(), placeOf(all[0]).top());
        QCOMPARE(placeOf(all[2]).left(), 24.0);
        QCOMPARE(placeOf(all[2]).top() - placeOf(all[0]).bottom(), 16.0);
        const double left = size.width() - 24 - placeOf(all[1]).right();
        QVERIFY(left >= 0 && left <= 1);
    }

    void endsWithItsPaddingBelowTheLastCard()
    {
        opensWith(manyModels(9));
        QVERIFY(eventually([this] { return cards().size() > 3; }));
        scrollsToTheEnd();
        QCOMPARE(names().constLast(), u"Model 8"_s);
        QCOMPARE(placeOf(cards().constLast()).bottom(), 760.0 - 24);
    }

    void makesAFewDozenCardsOfTenThousandModels()
    {
        opensWith(manyModels(10'000), {1700, 1160});
        QVERIFY(eventually([this] { return cards().size() > 6; }));
        const auto made = [this] {
            int count = 0;
            for (const auto *child : grid()->property("contentItem").value<QQuickItem *>()->childItems()) {
                count += QString::fromLatin1(child->metaObject()->className()).startsWith(u"ModelCatalogCard"_s);
            }
            return count;
        };
        QVERIFY(made() < 24);
        for (int i = 0; i < 60; ++i) {
            QMetaObject::invokeMethod(grid(), "forceLayout");
            grid()->setProperty("contentY", grid()->property("contentY").toDouble() + 300);
        }
        scrollsToTheEnd();
        QVERIFY2(made() < 36, qPrintable(QString::number(made())));
        // Cards that are used again show what they are used for now.
        QCOMPARE(names().constLast(), u"Model 9999"_s);
        QVERIFY(m_window->shows(u"An odd one"_s));
        m_window->click(m_window->field(u"Search models..."_s));
        m_window->type(u"Model 777"_s);
        QStringList expected{u"Model 777"_s};
        for (int i = 7770; i < 7780; ++i) {
            expected.append(u"Model %1"_s.arg(i));
        }
        QVERIFY(eventually([&] { return !names().isEmpty() && names() == expected.mid(0, names().size()); }));
    }

    void startsASearchAtTheTop()
    {
        opensWith(manyModels(200));
        QVERIFY(eventually([this] { return cards().size() > 3; }));
        const double top = placeOf(cards().constFirst()).top();
        scrollsToTheEnd();
        m_window->click(m_window->field(u"Search models..."_s));
        m_window->type(u"even"_s);
        QVERIFY(eventually([this] { return !names().isEmpty() && names().constFirst() == u"Model 0"_s; }));
        QCOMPARE(placeOf(cards().constFirst()).top(), top);
        scrollsToTheEnd();
        m_window->click(pill(u"Fine-tunable"_s));
        settle();
        QCOMPARE(names().constFirst(), u"Model 0"_s);
        QCOMPARE(placeOf(cards().constFirst()).top(), top);
    }

    void leavesTheGridWhereItIsWhenAModelIsMarked()
    {
        m_world->isSignedIn();
        opensWith(manyModels(200));
        QVERIFY(eventually([this] { return cards().size() > 3; }));
        scrollsToTheEnd();
        const double place = grid()->property("contentY").toDouble();
        auto *const last = cards().constLast();
        downloads(u"Model 199"_s);
        QCOMPARE(grid()->property("contentY").toDouble(), place);
        QCOMPARE(card(u"Model 199"_s), last);
        QCOMPARE(m_window->all(u"SecondaryButton"_s).size(), 1);
    }

    // Cards

    void keepsTheLookOfEachCard()
    {
        opensWith('[' + model("a", "First") + ']');
        QVERIFY(eventually([this] { return cards().size() == 1; }));
        auto *card = cards().constFirst();
        QCOMPARE(colorOf(card), surface);
        QCOMPARE(card->property("radius").toInt(), 12);
        QCOMPARE(strokeOf(card), outline);
        QCOMPARE(card->height(), 280.0);

        const auto *icon = m_window->symbol(u"cpu"_s, card);
        QCOMPARE(icon->property("size").toInt(), 20);
        QCOMPARE(colorOf(icon), accent);
        const auto *tile = icon->parentItem();
        QCOMPARE(placeIn(tile, card), QRectF(20, 20, 48, 48));
        QCOMPARE(tile->property("radius").toInt(), 8);
        QCOMPARE(colorOf(tile), u"#263b82f6"_s);

        const auto *name = m_window->text(u"First"_s, card);
        QCOMPARE(fontOf(name), u"Inter 14 500"_s);
        QCOMPARE(colorOf(name), white);
        QCOMPARE(placeIn(name, card).topLeft(), QPointF(20, 68 + 16));
        const auto *description = m_window->text(u"What it is for"_s, card);
        QCOMPARE(fontOf(description), u"Inter 12 400"_s);
        QCOMPARE(colorOf(description), textSecondary);
        QCOMPARE(placeIn(description, card).top() - placeIn(name, card).bottom(), 6.0);

        const auto specs = m_window->all(u"SpecItem"_s, card);
        QCOMPARE(specs.size(), 3);
        const QStringList labels{u"PARAMS"_s, u"CONTEXT"_s, u"SIZE"_s};
        const QStringList values{u"7.0B"_s, u"8K"_s, u"14.48 GB"_s};
        double left = 20;
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(placeIn(specs[i], card).left(), left);
            QCOMPARE(placeIn(specs[i], card).top() - placeIn(description, card).bottom(), 16.0);
            left = placeIn(specs[i], card).right() + 16;
            const auto *label = m_window->text(labels[i], specs[i]);
            QCOMPARE(fontOf(label), u"Inter 9 700"_s);
            QCOMPARE(colorOf(label), textTertiary);
            const auto *value = m_window->text(values[i], specs[i]);
            QCOMPARE(fontOf(value), u"Geist Mono 12 400"_s);
            QCOMPARE(colorOf(value), white);
            QCOMPARE(placeOf(value).left(), placeOf(label).left());
            QCOMPARE(placeOf(value).top() - placeOf(label).bottom(), 2.0);
        }

        auto *button = m_window->button(u"Download First"_s);
        QVERIFY(QString::fromLatin1(button->metaObject()->className()).startsWith(u"PrimaryButton"_s));
        QCOMPARE(placeIn(button, card).left(), 20.0);
        QCOMPARE(placeIn(button, card).right(), card->width() - 20);
        QCOMPARE(placeIn(button, card).bottom(), 260.0);
        QVERIFY(m_window->shows(u"Download"_s));
        QCOMPARE(placeOf(m_window->text(u"Download"_s, button)).left()
                - placeOf(m_window->symbol(u"arrow.down.circle"_s, button)).right(),
            8.0);
        QCOMPARE(accessible(card)->role(), QAccessible::ListItem);
        QCOMPARE(accessible(card)->text(QAccessible::Name), u"First"_s);
        // Nothing else of the record.
        QCOMPARE(m_window->texts(card).size(), 2 + 6 + 1 + 1);
    }

    void showsTheTwoBadgesEachOnItsOwnTest()
    {
        m_world->isSignedIn();
        opensWith('[' + model("a", "Tunable") + ',' + bareModel("b", "Bare") + ']');
        QVERIFY(eventually([this] { return cards().size() == 2; }));
        const auto badges = [this](const QString &name) {
            QStringList words;
            for (const auto *badge : m_window->all(u"Badge"_s, card(name))) {
                words.append(badge->property("text").toString());
            }
            return words;
        };
        QCOMPARE(badges(u"Tunable"_s), QStringList{u"Fine-tunable"_s});
        QCOMPARE(badges(u"Bare"_s), QStringList{});
        downloads(u"Tunable"_s);
        downloads(u"Bare"_s);
        QCOMPARE(badges(u"Tunable"_s), QStringList({u"Fine-tunable"_s, u"Downloaded"_s}));
        QCOMPARE(badges(u"Bare"_s), QStringList{u"Downloaded"_s});

        m_window->hover(m_window->text(u"Models"_s));
        const auto *card = this->card(u"Tunable"_s);
        QVERIFY(eventually([&] { return card->scale() == 1.0; }));
        const auto both = m_window->all(u"Badge"_s, card);
        const QStringList colors{green, accent};
        const QStringList grounds{u"#2622c55e"_s, u"#263b82f6"_s};
        const QStringList symbols{u"bolt.fill"_s, u"checkmark.circle.fill"_s};
        for (int i = 0; i < 2; ++i) {
            const auto *icon = m_window->symbol(symbols[i], both[i]);
            const auto *word = m_window->all(u"Label"_s, both[i]).constFirst();
            QCOMPARE(icon->property("size").toInt(), 9);
            QCOMPARE(colorOf(icon), colors[i]);
            QCOMPARE(fontOf(word), u"Inter 10 700"_s);
            QCOMPARE(colorOf(word), colors[i]);
            QCOMPARE(colorOf(both[i]), grounds[i]);
            QCOMPARE(both[i]->property("radius").toInt(), 4);
            QCOMPARE(placeIn(icon, both[i]).left(), 8.0);
            QCOMPARE(both[i]->width(), std::ceil(placeIn(word, both[i]).left() + word->implicitWidth() + 8));
            QCOMPARE(both[i]->height(), word->implicitHeight() + 8);
            QCOMPARE(placeIn(both[i], card).right(), card->width() - 20);
        }
        QCOMPARE(placeOf(both[1]).top() - placeOf(both[0]).bottom(), 6.0);
        QCOMPARE((placeIn(both[0], card).top() + placeIn(both[1], card).bottom()) / 2, 20 + 24.0);
    }

    void downloadsAModelAndSaysSo()
    {
        m_world->isSignedIn();
        opensWith('[' + model("a", "First") + ',' + model("b", "Second") + ']');
        QVERIFY(eventually([this] { return cards().size() == 2; }));
        m_window->click(m_window->button(u"Download Second"_s));
        auto *button = m_window->button(u"Downloading Second"_s);
        QVERIFY(!button->isEnabled());
        QVERIFY(m_window->shows(u"Downloading..."_s));
        const auto spinners = m_window->all(u"Spokes"_s, button);
        QCOMPARE(spinners.size(), 1);
        QCOMPARE(colorOf(spinners[0]), white);
        QVERIFY(!m_window->symbol(u"arrow.down.circle"_s, button));
        QVERIFY(m_window->button(u"Download First"_s)->isEnabled());
        // Again, for nothing.
        m_window->click(button);
        QVERIFY(eventually([this] { return m_world->clock.dueIn(2s) == 1; }));
        m_world->clock.advance(2s);
        QVERIFY(eventually([this] { return m_window->shows(u"1 downloaded"_s); }));
        QCOMPARE(m_world->service.requests("GET", "/v1/models/b/download").size(), 1);

        const auto *card = this->card(u"Second"_s);
        const auto after = m_window->all(u"SecondaryButton"_s, card);
        QCOMPARE(after.size(), 1);
        QVERIFY(!after[0]->isEnabled());
        QVERIFY(m_window->symbol(u"checkmark"_s, after[0]));
        QCOMPARE(m_window->texts(after[0]), QStringList{u"Downloaded"_s});
        QCOMPARE(placeIn(after[0], card).bottom(), 260.0);
        QCOMPARE(placeIn(after[0], card).left(), 20.0);
        QCOMPARE(placeIn(after[0], card).right(), card->width() - 20);
        QVERIFY(!m_window->button(u"Download Second"_s));
        QVERIFY(m_window->button(u"Download First"_s));
        QVERIFY(m_window->all(u"Spokes"_s).isEmpty());
    }

    void keepsItsHeightWithoutAnyFigure()
    {
        opensWith('[' + bareModel("a", "Bare") + ',' + model("b", "Full") + ']');
        QVERIFY(eventually([this] { return cards().size() == 2; }));
        const auto *card = cards()[0];
        QCOMPARE(card->height(), 280.0);
        QVERIFY(m_window->all(u"SpecItem"_s, card).isEmpty());
        QVERIFY(m_window->text(u"No description available"_s, card));
        QCOMPARE(placeIn(m_window->button(u"Download Bare"_s), card).bottom(), 260.0);
    }

    void leavesOutTheFiguresThatAreNotThere()
    {
        opensWith(R"([{"id":"a","name":"First","context_length":4096}])");
        QVERIFY(eventually([this] { return cards().size() == 1; }));
        const auto *card = cards()[0];
        const auto specs = m_window->all(u"SpecItem"_s, card);
        QCOMPARE(specs.size(), 1);
        QCOMPARE(m_window->texts(specs[0]), QStringList({u"CONTEXT"_s, u"4K"_s}));
        QCOMPARE(placeIn(specs[0], card).left(), 20.0);
    }

    void liftsTheCardUnderThePointer()
    {
        opensWith('[' + model("a", "First") + ',' + model("b", "Second") + ']');
        QVERIFY(eventually([this] { return cards().size() == 2; }));
        const auto all = cards();
        const QPointF middle = placeOf(all[1]).center();
        m_window->hover(all[1]);
        QVERIFY(eventually([&] { return all[1]->scale() == 1.01; }));
        QCOMPARE(strokeOf(all[1]), u"#803b82f6 1"_s);
        QCOMPARE(placeOf(all[1]).center(), middle);
        QCOMPARE(all[0]->scale(), 1.0);
        // Over its button too.
        m_window->hover(m_window->button(u"Download Second"_s));
        settle();
        QCOMPARE(all[1]->scale(), 1.01);
        m_window->hover(m_window->text(u"Models"_s));
        QVERIFY(eventually([&] { return all[1]->scale() == 1.0; }));
        QCOMPARE(strokeOf(all[1]), outline);
    }

    void clipsNoCardThatIsLifted_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("smallest window") << QSize(940, 760);
        QTest::newRow("very wide") << QSize(3500, 1160);
    }
    void clipsNoCardThatIsLifted()
    {
        QFETCH(QSize, size);
        opensWith(manyModels(4), size);
        QVERIFY(eventually([this] { return cards().size() == 4; }));
        const auto all = cards();
        const QList<QRectF> places{placeOf(all[0]), placeOf(all[1]), placeOf(all[2]), placeOf(all[3])};
        for (int i = 0; i < 4; ++i) {
            m_window->hover(all[i]);
            QVERIFY(eventually([&] { return all[i]->scale() == 1.01; }));
            QVERIFY(placeOf(grid()).contains(placeOf(all[i])) || i > 1);
            for (int other = 0; other < 4; ++other) {
                QVERIFY(other == i || !places[other].intersects(placeOf(all[i])));
            }
        }
    }

    void easesIntoTheLift()
    {
        m_world->environment.animations = true;
        AnimationTime time;
        opensWith('[' + model("a", "First") + ']');
        QVERIFY(eventually([this] { return cards().size() == 1; }));
        auto *card = cards().constFirst();
        QSignalSpy steps(card, &QQuickItem::scaleChanged);
        m_window->hover(card);
        QVERIFY(card->scale() < 1.01);
        QVERIFY(time.passesUntil([&] { return card->scale() == 1.01; }));
        QVERIFY(steps.size() > 1);
    }

    void showsAnyTextAsItStandsAndKeepsTheCardsShape_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("markup") << u"<b>bold</b><br><img src='http://127.0.0.1:1/x'> &amp;"_s;
        QTest::newRow("quotes") << u"\\\"O'Neil\\\" `x`"_s;
        QTest::newRow("emoji") << u"👩‍👩‍👧‍👧 🚀"_s;
        QTest::newRow("right to left") << u"نموذج طبي للأسئلة والأجوبة"_s;
        QTest::newRow("lines") << u"one\\ntwo\\nthree\\nfour"_s;
        QTest::newRow("ten thousand letters without a blank") << QString(10'000, u'x');
        QTest::newRow("ten thousand characters in words") << u"word "_s.repeated(2'000);
        QTest::newRow("a megabyte") << u"word "_s.repeated(200'000);
    }
    void showsAnyTextAsItStandsAndKeepsTheCardsShape()
    {
        QFETCH(QString, text);
        opensWith('[' + model("a", text.toUtf8(), text.toUtf8()) + ',' + model("b", "Other") + ']', {940, 760});
        QVERIFY(eventually([this] { return cards().size() == 2; }));
        const auto *card = cards()[0];
        QCOMPARE(card->height(), 280.0);
        const QString sent = viewModel().models()[0].name;
        QList<QQuickItem *> words;
        for (auto *label : m_window->all(u"Label"_s, card)) {
            const QString shown = label->property("text").toString();
            if (!shown.isEmpty() && sent.startsWith(shown) && shown.size() >= std::min<qsizetype>(sent.size(), 1'000)) {
                words.append(label);
            }
        }
        QCOMPARE(words.size(), 2);
        for (const auto *label : words) {
            QCOMPARE(label->property("textFormat").toInt(), int(Qt::PlainText));
            QCOMPARE(placeIn(label, card).left(), 20.0);
            QCOMPARE(label->width(), card->width() - 40);
            QVERIFY(label->property("lineCount").toInt() <= 2);
            QVERIFY(label->property("contentWidth").toDouble() <= label->width());
            QCOMPARE(label->property("effectiveHorizontalAlignment").toInt(), int(Qt::AlignLeft));
            QVERIFY(text.size() < 100 || label->property("truncated").toBool());
        }
        const auto specs = m_window->all(u"SpecItem"_s, card);
        QVERIFY(placeOf(specs[0]).bottom() <= placeOf(m_window->all(u"PrimaryButton"_s, card).constFirst()).top() - 12);
    }

    void showsTheWidestFiguresWithinTheCard()
    {
        opensWith(R"([{"id":"a","name":"First","parameters":-9223372036854775808,"context_length":9223372036854775807,)"
                  R"("size_bytes":9223372036854775807}])",
            {940, 760});
        QVERIFY(eventually([this] { return cards().size() == 1; }));
        const auto *card = cards()[0];
        const auto specs = m_window->all(u"SpecItem"_s, card);
        QCOMPARE(specs.size(), 3);
        QVERIFY(placeIn(specs[2], card).right() <= card->width() - 20);
    }

    // Keyboard

    void reachesEveryCardWithTabAndTheArrowKeys()
    {
        m_world->isSignedIn();
        opensWith(manyModels(50));
        QVERIFY(eventually([this] { return cards().size() > 3; }));
        m_window->click(m_window->field(u"Search models..."_s));
        // Search, the three filters, the first card.
        for (int i = 0; i < 4; ++i) {
            m_window->press(Qt::Key_Tab);
        }
        QCOMPARE(focused(), u"Model 0"_s);
        m_window->press(Qt::Key_Right);
        QCOMPARE(focused(), u"Model 1"_s);
        m_window->press(Qt::Key_Down);
        QCOMPARE(focused(), u"Model 3"_s);
        m_window->press(Qt::Key_Left);
        QCOMPARE(focused(), u"Model 2"_s);
        m_window->press(Qt::Key_Up);
        QCOMPARE(focused(), u"Model 0"_s);
        for (int i = 0; i < 12; ++i) {
            m_window->press(Qt::Key_Down);
        }
        QCOMPARE(focused(), u"Model 24"_s);
        const auto *card = m_view->activeFocusItem();
        QVERIFY(placeOf(grid()).adjusted(0, 12, 0, -12).contains(placeOf(card)));
        QCOMPARE(m_window->all(u"FocusRing"_s, card).size(), 1);

        m_window->press(Qt::Key_Return);
        QCOMPARE(viewModel().downloadingModels(), QSet<QString>{u"m24"_s});
        QCOMPARE(focused(), u"Model 24"_s);
        m_window->press(Qt::Key_Right);
        m_window->press(Qt::Key_Space);
        QCOMPARE(viewModel().downloadingModels(), QSet<QString>({u"m24"_s, u"m25"_s}));
        QVERIFY(eventually([this] { return m_world->clock.dueIn(2s) == 2; }));
        m_world->clock.advance(2s);
        // Back to the filters, and here again.
        m_window->press(Qt::Key_Backtab);
        QCOMPARE(m_view->activeFocusItem(), pill(u"Downloaded"_s));
        m_window->press(Qt::Key_Tab);
        QCOMPARE(focused(), u"Model 25"_s);
    }

    void comesBackIntoViewWithTheKeyboard()
    {
        opensWith(manyModels(100));
        QVERIFY(eventually([this] { return cards().size() > 3; }));
        m_window->click(m_window->field(u"Search models..."_s));
        scrollsToTheEnd();
        for (int i = 0; i < 4; ++i) {
            m_window->press(Qt::Key_Tab);
        }
        QCOMPARE(focused(), u"Model 0"_s);
        QVERIFY(placeOf(grid()).contains(placeOf(m_view->activeFocusItem())));
    }

    void comesToTheFirstCardAfterAnotherSearch()
    {
        opensWith(manyModels(100));
        QVERIFY(eventually([this] { return cards().size() > 3; }));
        m_window->click(m_window->field(u"Search models..."_s));
        for (int i = 0; i < 4; ++i) {
            m_window->press(Qt::Key_Tab);
        }
        m_window->press(Qt::Key_Down);
        QCOMPARE(focused(), u"Model 2"_s);
        m_window->click(m_window->field(u"Search models..."_s));
        m_window->type(u"odd"_s);
        QVERIFY(eventually([this] { return !names().isEmpty() && names().constFirst() == u"Model 1"_s; }));
        for (int i = 0; i < 4; ++i) {
            m_window->press(Qt::Key_Tab);
        }
        QCOMPARE(focused(), u"Model 1"_s);
        m_window->press(Qt::Key_Right);
        QCOMPARE(focused(), u"Model 3"_s);
    }

    void downloadsForAssistiveProgramsToo()
    {
        m_world->isSignedIn();
        opensWith('[' + model("a", "First") + ']');
        QVERIFY(eventually([this] { return cards().size() == 1; }));
        auto *button = accessible(m_window->button(u"Download First"_s));
        QCOMPARE(button->text(QAccessible::Description), QString());
        button->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(viewModel().downloadingModels(), QSet<QString>{u"a"_s});
        QVERIFY(eventually([this] { return m_window->button(u"Downloading First"_s) != nullptr; }));
        QCOMPARE(
            accessible(m_window->button(u"Downloading First"_s))->text(QAccessible::Description), u"Unavailable"_s);
    }

    // The way out

    void mayGoDuringADownload()
    {
        m_world->isSignedIn();
        opensWith('[' + model("a", "First") + ']');
        QVERIFY(eventually([this] { return cards().size() == 1; }));
        m_window->click(m_window->button(u"Download First"_s));
        QVERIFY(eventually([this] { return m_world->clock.dueIn(2s) == 1; }));
        close();
        m_world->clock.advance(3s);
        settle();
    }

private:
    // In the room that the main window leaves to it at its smallest.
    void opens(QSize size = {980, 760}) { open(u"Workspace/ModelsView.qml"_s, size); }

    void opensWith(const QByteArray &models, QSize size = {980, 760})
    {
        m_world->service.hasModels(models);
        opens(size);
        QVERIFY(eventually([this] { return !viewModel().isLoading(); }));
    }

    void downloads(const QString &name)
    {
        const auto count = viewModel().downloadedModels().size();
        QVERIFY(eventually([&] { return m_window->button(u"Download "_s + name) != nullptr; }));
        m_window->click(m_window->button(u"Download "_s + name));
        QVERIFY(eventually([this] { return m_world->clock.dueIn(2s) == 1; }));
        m_world->clock.advance(2s);
        QCOMPARE(viewModel().downloadedModels().size(), count + 1);
        settle();
    }

    void scrollsToTheEnd()
    {
        auto *view = grid();
        QMetaObject::invokeMethod(view, "positionViewAtEnd");
        const auto value = [view](const char *name) { return view->property(name).toDouble(); };
        view->setProperty(
            "contentY", value("originY") + value("contentHeight") + value("bottomMargin") - view->height());
        settle();
    }

    ModelsViewModel &viewModel() const { return *m_view->rootObject()->findChild<ModelsViewModel *>(); }
    QQuickItem *grid() const { return m_window->all(u"CardGrid"_s).constFirst(); }
    QQuickItem *pill(const QString &name) const { return m_window->control(QAccessible::RadioButton, name); }

    // Those on the screen; the grid keeps some more around it.
    QList<QQuickItem *> cards() const
    {
        QList<QQuickItem *> cards = m_window->all(u"ModelCatalogCard"_s);
        const QRectF window(0, 0, m_view->width(), m_view->height());
        cards.removeIf([&](const QQuickItem *card) { return !window.intersects(placeOf(card)); });
        return cards;
    }

    QQuickItem *card(const QString &name) const
    {
        for (QQuickItem *card : cards()) {
            if (card->property("name").toString() == name) {
                return card;
            }
        }
        return nullptr;
    }

    // From left to right and from top to bottom. A card under the pointer is a little higher than its neighbour.
    QStringList names() const
    {
        QStringList names;
        for (const QQuickItem *card : cards()) {
            names.append(card->property("name").toString());
        }
        return names;
    }

    QString focused() const
    {
        const auto *item = m_view->activeFocusItem();
        return item ? item->property("name").toString() : QString();
    }
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_ModelsView)
#include "tst_ModelsView.moc"
