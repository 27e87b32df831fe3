#include "app/theme/Color.h"
#include "app/theme/Theme.h"
#include "support/ViewTest.h"
#include "tools/documentation/DocCategories.h"

#include <QFile>
#include <QWheelEvent>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmere::testing;

namespace quillmere {

using DocumentationVocabulary::DocCategory;

namespace {

const QStringList categories{
    u"Getting Started"_s, u"Fine-Tuning"_s, u"Datasets"_s, u"Models"_s, u"API Reference"_s, u"Keyboard Shortcuts"_s};
const QStringList titles{u"Getting Started"_s, u"Fine-Tuning Guide"_s, u"Dataset Preparation"_s, u"Models Overview"_s,
    u"API Reference"_s, u"Keyboard Shortcuts"_s};

const auto white = u"#ffffffff"_s;
const auto accent = u"#ff3b82f6"_s;
const auto green = u"#ff22c55e"_s;
const auto surface = u"#ff121214"_s;
const auto secondary = u"#ffa1a1aa"_s;
const auto tertiary = u"#ff71717a"_s;
const auto clear = u"#00000000"_s;
const auto line = u"#ff27272a 1"_s;

QStringList properties(const QQuickItem *item, std::initializer_list<const char *> names)
{
    QStringList values;
    for (const char *name : names) {
        values.append(item->property(name).toString());
    }
    return values;
}

} // namespace

class tst_DocumentationView : public ViewTest {
    Q_OBJECT

private:
    void open(const QString &category = {}, QSize size = {980, 760})
    {
        ViewTest::open(u"Tools/DocumentationView.qml"_s, size);
        if (!category.isEmpty()) {
            m_window->click(row(category));
        }
    }

    QQuickItem *row(const QString &category) const { return m_window->button(category); }
    QQuickItem *page() const { return m_window->all(u"DocPage"_s).value(0); }
    QQuickItem *text(const QString &text, const QQuickItem *in = nullptr) const { return m_window->text(text, in); }
    QQuickItem *search() const { return m_window->field(u"Search documentation..."_s); }
    QQuickItem *area() const { return m_window->all(u"ScrollArea"_s).value(0); }

    QStringList selected() const
    {
        QStringList selected;
        for (const QString &category : categories) {
            const bool filled = colorOf(row(category), "fillColor") == word(Color::faded(Theme::accent(), 0.2));
            if (filled != QAccessible::queryAccessibleInterface(row(category))->state().selected) {
                selected.append(u"half of "_s + category);
            } else if (filled) {
                selected.append(category);
            }
        }
        return selected;
    }
    QStringList sections() const
    {
        QStringList sections;
        for (const auto *section : m_window->all(u"DocSection"_s)) {
            sections.append(section->property("title").toString());
        }
        return sections;
    }
    QStringList tips(const QString &section) const
    {
        QStringList tips;
        for (const auto *tip : m_window->all(u"TipItem"_s, this->section(section))) {
            tips.append(tip->property("text").toString());
        }
        return tips;
    }
    QQuickItem *section(const QString &title) const
    {
        return m_window->all(u"DocSection"_s).value(sections().indexOf(title));
    }

private slots:
    void tellsEachCategory_data()
    {
        QTest::addColumn<DocCategory>("category");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("icon");
        QTest::addColumn<QString>("page");
        QTest::newRow("getting started") << DocCategory::GettingStarted << u"Getting Started"_s << u"play.circle"_s
                                         << u"GettingStartedContent"_s;
        QTest::newRow("fine-tuning") << DocCategory::FineTuning << u"Fine-Tuning"_s << u"bolt"_s
                                     << u"FineTuningDocsContent"_s;
        QTest::newRow("datasets") << DocCategory::Datasets << u"Datasets"_s << u"cylinder.split.1x2"_s
                                  << u"DatasetsDocsContent"_s;
        QTest::newRow("models") << DocCategory::Models << u"Models"_s << u"cpu"_s << u"ModelsDocsContent"_s;
        QTest::newRow("api") << DocCategory::Api << u"API Reference"_s << u"curlybraces"_s << u"APIReferenceContent"_s;
        QTest::newRow("shortcuts") << DocCategory::Shortcuts << u"Keyboard Shortcuts"_s << u"keyboard"_s
                                   << u"KeyboardShortcutsContent"_s;
    }
    void tellsEachCategory()
    {
        QFETCH(DocCategory, category);
        QFETCH(QString, page);
        QTEST(rawValue(category), "title");
        QTEST(DocCategories::title(category), "title");
        QTEST(DocCategories::icon(category), "icon");
        QCOMPARE(DocCategories::page(category).fileName(), page + u".qml"_s);
        QVERIFY(QFile::exists(u':' + DocCategories::page(category).path()));
    }

    // What can be done.

    void opensOnTheFirstOfSixCategories()
    {
        open();
        QStringList shown;
        for (const auto *row : m_window->all(u"DocCategoryRow"_s)) {
            shown.append(row->property("text").toString());
        }
        QCOMPARE(shown, categories);
        QCOMPARE(selected(), QStringList{u"Getting Started"_s});
        QCOMPARE(search()->property("text").toString(), QString());
        QCOMPARE(page()->property("title").toString(), u"Getting Started"_s);
    }

    void opensThePageOfTheCategoryThatIsClicked_data()
    {
        QTest::addColumn<int>("place");
        for (int i = 0; i < categories.size(); ++i) {
            QTest::newRow(qPrintable(categories[i])) << i;
        }
    }
    void opensThePageOfTheCategoryThatIsClicked()
    {
        QFETCH(int, place);
        open(categories[place]);
        QCOMPARE(selected(), QStringList{categories[place]});
        QCOMPARE(m_window->all(u"DocPage"_s).size(), 1);
        const auto *title = m_window->all(u"Label"_s, page()).value(0);
        QCOMPARE(title->property("text").toString(), titles[place]);
        QCOMPARE(fontOf(title), u"Space Grotesk 24 700"_s);
        QCOMPARE(colorOf(title), white);
    }

    void opensAPageByKeysAndForAssistivePrograms()
    {
        open();
        row(u"Models"_s)->forceActiveFocus(Qt::TabFocusReason);
        m_window->press(Qt::Key_Return);
        QCOMPARE(selected(), QStringList{u"Models"_s});
        QAccessible::queryAccessibleInterface(row(u"Datasets"_s))
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(page()->property("title").toString(), u"Dataset Preparation"_s);
    }

    void filtersNothingByTheSearchText()
    {
        open(u"Models"_s);
        const QStringList before = m_window->texts();
        m_window->click(search());
        for (const QString &typed : {u"zzz"_s, u"qwen"_s}) {
            m_window->type(typed);
            m_window->press(Qt::Key_Return);
            m_world->clock.advance(2s);
            settle();
            QStringList now = m_window->texts();
            QCOMPARE(selected(), QStringList{u"Models"_s});
            QStringList expected = before;
            // What is typed stands in the place of the field's own hint.
            expected.removeOne(u"Search documentation..."_s);
            now.removeOne(u"Search documentation..."_s);
            QCOMPARE(now, expected);
        }
        QCOMPARE(search()->property("text").toString(), u"zzzqwen"_s);
    }

    void keepsTheSearchTextWhenACategoryIsSelected()
    {
        open();
        m_window->click(search());
        m_window->type(u"lora"_s);
        for (const QString &category : {u"API Reference"_s, u"Getting Started"_s}) {
            m_window->click(row(category));
            QCOMPARE(selected(), QStringList{category});
            QCOMPARE(search()->property("text").toString(), u"lora"_s);
        }
    }

    void scrollsALongPageWhileTheColumnStays_data()
    {
        QTest::addColumn<QString>("by");
        QTest::newRow("wheel") << u"wheel"_s;
        QTest::newRow("touchpad") << u"touchpad"_s;
        QTest::newRow("keys") << u"keys"_s;
    }
    void scrollsALongPageWhileTheColumnStays()
    {
        QFETCH(QString, by);
        open(u"Fine-Tuning"_s, {980, 500});
        const double heading = placeOf(text(u"DOCUMENTATION"_s)).top();
        const double resources = placeOf(text(u"RESOURCES"_s)).top();
        const double field = placeOf(search()).top();
        const double title = placeOf(text(u"Fine-Tuning Guide"_s)).top();
        if (by == u"keys"_s) {
            area()->forceActiveFocus(Qt::TabFocusReason);
            m_window->press(Qt::Key_End);
            // To its end, and as far as its padding.
            QCOMPARE(qRound(placeOf(page()).bottom()), 500 - 24);
            m_window->press(Qt::Key_Home);
            QCOMPARE(placeOf(text(u"Fine-Tuning Guide"_s)).top(), title);
            m_window->press(Qt::Key_PageDown);
        } else {
            const QPoint pixels = by == u"touchpad"_s ? QPoint(0, -90) : QPoint();
            const QPointF place = placeOf(area()).center();
            QWheelEvent wheel(place, m_view->mapToGlobal(place), pixels, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(m_view.get(), &wheel);
        }
        QVERIFY(placeOf(text(u"Fine-Tuning Guide"_s)).top() < title - 50);
        QCOMPARE(placeOf(text(u"DOCUMENTATION"_s)).top(), heading);
        QCOMPARE(placeOf(text(u"RESOURCES"_s)).top(), resources);
        QCOMPARE(placeOf(search()).top(), field);
        // The next page begins at its beginning.
        m_window->click(row(u"Getting Started"_s));
        QCOMPARE(placeOf(page()).top(), title);
    }

    void opensItsThreeLinksInTheBrowser_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("icon");
        QTest::addColumn<QUrl>("url");
        QTest::newRow("documentation") << u"Online Docs"_s << u"globe"_s << QUrl(u"https://docs.example/start"_s);
        QTest::newRow("source") << u"GitHub"_s << u"chevron.left.forwardslash.chevron.right"_s
                                << QUrl(u"https://source.example/studio"_s);
        QTest::newRow("community") << u"Discord"_s << u"bubble.left.and.bubble.right"_s
                                   << QUrl(u"https://chat.example/join"_s);
    }
    void opensItsThreeLinksInTheBrowser()
    {
        QFETCH(QString, title);
        QFETCH(QString, icon);
        QFETCH(QUrl, url);
        m_world->environment.hosts.onlineDocs = u"https://docs.example/start"_s;
        m_world->environment.hosts.sourcePage = u"https://source.example/studio"_s;
        m_world->environment.hosts.communityInvite = u"https://chat.example/join"_s;
        open();
        auto *link = m_window->control(QAccessible::Link, title);
        QVERIFY(link);
        m_window->click(link);
        QCOMPARE(m_world->urlOpener.opened, QList<QUrl>{url});
        m_window->press(Qt::Key_Return);
        QCOMPARE(m_world->urlOpener.opened, QList<QUrl>({url, url}));
        QCOMPARE(selected(), QStringList{u"Getting Started"_s});

        QCOMPARE(fontOf(text(title, link)), u"Inter 12 400"_s);
        QCOMPARE(colorOf(text(title, link)), tertiary);
        QCOMPARE(m_window->symbol(icon, link)->property("size").toInt(), 14);
        QCOMPARE(m_window->symbol(icon, link)->width(), 20.0);
        QCOMPARE(colorOf(m_window->symbol(icon, link)), tertiary);
        QCOMPARE(placeOf(text(title, link)).left() - placeOf(m_window->symbol(icon, link)).right(), 12.0);
        QCOMPARE(m_window->symbol(u"arrow.up.right"_s, link)->property("size").toInt(), 10);
        QCOMPARE(paddingOf(link), QSizeF(16, 8));
    }

    void ignoresALinkWhoseTextIsNoUrl()
    {
        m_world->environment.hosts.sourcePage = u"not a url"_s;
        open();
        m_window->click(m_window->control(QAccessible::Link, u"GitHub"_s));
        settle();
        QVERIFY(m_world->urlOpener.opened.isEmpty());
    }

    void staysWhereItIsWhenTheBrowserDoesNotOpen()
    {
        m_world->urlOpener.opens = false;
        open();
        const QStringList before = m_window->texts();
        m_window->click(m_window->control(QAccessible::Link, u"Discord"_s));
        settle();
        QCOMPARE(m_window->texts(), before);
    }

    void forgetsEverythingWhenItIsLeft()
    {
        open(u"Models"_s);
        m_window->click(search());
        m_window->type(u"lora"_s);
        close();
        open();
        QCOMPARE(selected(), QStringList{u"Getting Started"_s});
        QCOMPARE(search()->property("text").toString(), QString());
    }

    // What it looks like.

    void composesTheColumn()
    {
        open(u"Datasets"_s);
        const auto *column = m_window->all(u"DocSidebar"_s).value(0);
        QCOMPARE(placeOf(column), QRectF(0, 0, 220, 760));
        QCOMPARE(colorOf(column), u"#ff050506"_s);
        for (const QString &heading : {u"DOCUMENTATION"_s, u"RESOURCES"_s}) {
            QCOMPARE(fontOf(text(heading)), u"Inter 11 700"_s);
            QCOMPARE(colorOf(text(heading)), tertiary);
            QCOMPARE(text(heading)->property("leftPadding").toInt(), 16);
            QCOMPARE(text(heading)->property("topPadding").toInt(), 20);
            QCOMPARE(text(heading)->property("bottomPadding").toInt(), 8);
        }
        QCOMPARE(placeOf(text(u"DOCUMENTATION"_s)).top(), 0.0);
        const auto links = m_window->all(u"ExternalLinkButton"_s);
        QCOMPARE(links.size(), 3);
        QCOMPARE(placeOf(links[2]).bottom(), 760 - 20.0);
        QCOMPARE(placeOf(links[1]).top() - placeOf(links[0]).bottom(), 4.0);

        QCOMPARE(placeOf(row(u"Getting Started"_s)).top() - placeOf(text(u"DOCUMENTATION"_s)).bottom(), 8.0);
        QCOMPARE(placeOf(row(u"Fine-Tuning"_s)).top() - placeOf(row(u"Getting Started"_s)).bottom(), 4.0);
        for (const QString &category : categories) {
            const auto *item = row(category);
            const QString content = category == u"Datasets"_s ? white : secondary;
            QCOMPARE(fontOf(text(category, item)), u"Inter 14 400"_s);
            QCOMPARE(colorOf(text(category, item)), content);
            const auto *icon = m_window->all(u"SymbolIcon"_s, item).value(0);
            QCOMPARE(colorOf(icon), content);
            QCOMPARE(icon->property("size").toInt(), 14);
            QCOMPARE(icon->width(), 20.0);
            QCOMPARE(paddingOf(item), QSizeF(16, 10));
            QCOMPARE(item->property("radius").toInt(), 8);
            QCOMPARE(colorOf(item, "fillColor"),
                category == u"Datasets"_s ? word(Color::faded(Theme::accent(), 0.2)) : clear);
        }
    }

    void composesTheContent()
    {
        open();
        const auto *divider = m_window->all(u"Divider"_s).value(0);
        QCOMPARE(placeOf(divider), QRectF(220, 0, 1, 760));
        QCOMPARE(colorOf(divider), u"#ff27272a"_s);
        QCOMPARE(colorOf(m_view->rootObject()), u"#ff09090b"_s);

        const auto *box = m_window->all(u"SearchBox"_s).value(0);
        QCOMPARE(placeOf(box).topLeft(), QPointF(221 + 24, 24));
        QCOMPARE(placeOf(box).right(), 980 - 24.0);
        QCOMPARE(colorOf(box), surface);
        QCOMPARE(strokeOf(box), line);
        QCOMPARE(box->property("radius").toInt(), 8);
        QCOMPARE(colorOf(m_window->symbol(u"magnifyingglass"_s)), tertiary);
        QCOMPARE(placeOf(m_window->symbol(u"magnifyingglass"_s)).left() - placeOf(box).left(), 12.0);
        QCOMPARE(box->height(), search()->implicitHeight() + 24);
        QCOMPARE(colorOf(search()), white);

        QCOMPARE(placeOf(page()).top() - placeOf(box).bottom(), 48.0);
        QCOMPARE(placeOf(page()).left(), 221 + 24.0);
        QCOMPARE(placeOf(page()).right(), 980 - 24.0);
        const QList<QQuickItem *> parts = page()->childItems();
        QCOMPARE(parts.size(), 7);
        for (int i = 1; i < parts.size(); ++i) {
            QCOMPARE(placeOf(parts[i]).top() - placeOf(parts[i - 1]).bottom(), 16.0);
        }
    }

    void showsGettingStarted()
    {
        open();
        const auto *welcome = text(
            u"Welcome to Quillmere Studio! This guide will help you get up and running with fine-tuning your first model."_s);
        QVERIFY(welcome);
        QCOMPARE(fontOf(welcome), u"Inter 14 400"_s);
        QCOMPARE(colorOf(welcome), secondary);

        const QList<QStringList> told{
            {u"1"_s, u"Download a Base Model"_s,
                u"Browse the Models tab and download a pre-trained model like Llama 3 or Mistral."_s,
                u"arrow.down.circle"_s},
            {u"2"_s, u"Prepare Your Dataset"_s,
                u"Upload your training data in JSONL format with instruction/response pairs."_s, u"doc.text"_s},
            {u"3"_s, u"Configure Training"_s,
                u"Set your hyperparameters or use the wizard for automatic configuration."_s, u"slider.horizontal.3"_s},
            {u"4"_s, u"Start Fine-Tuning"_s, u"Launch the training job and monitor progress in real-time."_s,
                u"play.fill"_s}};
        const auto cards = m_window->all(u"QuickStartCard"_s);
        QCOMPARE(cards.size(), 4);
        for (int i = 0; i < cards.size(); ++i) {
            const auto *card = cards[i];
            QCOMPARE(properties(card, {"step", "title", "description", "icon"}), told[i]);
            const auto *number = text(told[i][0], card);
            QCOMPARE(fontOf(number), u"Inter 16 700"_s);
            QCOMPARE(colorOf(number), white);
            const auto *disc = number->parentItem();
            QCOMPARE(disc->size(), QSizeF(40, 40));
            QCOMPARE(disc->property("radius").toInt(), 20);
            QCOMPARE(colorOf(disc), accent);
            QCOMPARE(placeOf(disc).topLeft() - placeOf(card).topLeft(), QPointF(20, 20));
            QCOMPARE(fontOf(text(told[i][1], card)), u"Inter 14 500"_s);
            QCOMPARE(colorOf(text(told[i][1], card)), white);
            QCOMPARE(fontOf(text(told[i][2], card)), u"Inter 12 400"_s);
            QCOMPARE(colorOf(text(told[i][2], card)), secondary);
            QCOMPARE(placeOf(text(told[i][2], card)).top() - placeOf(text(told[i][1], card)).bottom(), 4.0);
            const auto *icon = m_window->symbol(told[i][3], card);
            QCOMPARE(icon->property("size").toInt(), 24);
            QCOMPARE(colorOf(icon), tertiary);
            QCOMPARE(placeOf(card).right() - placeOf(icon).right(), 20.0);
            QCOMPARE(colorOf(card), surface);
            QCOMPARE(strokeOf(card), line);
            QCOMPARE(card->property("radius").toInt(), 12);
            QCOMPARE(card->height(), 80.0);
        }

        QCOMPARE(sections(), QStringList{u"Tips for Success"_s});
        QCOMPARE(tips(u"Tips for Success"_s),
            QStringList({u"Start with a smaller model (7B-8B parameters) for faster iteration"_s,
                u"Use QLoRA for memory-efficient fine-tuning on consumer GPUs"_s,
                u"Ensure your dataset has at least 100+ high-quality examples"_s,
                u"Monitor validation loss to prevent overfitting"_s}));
    }

    void composesASectionAndItsTips()
    {
        open();
        const auto *section = this->section(u"Tips for Success"_s);
        QCOMPARE(colorOf(section), surface);
        QCOMPARE(strokeOf(section), line);
        QCOMPARE(section->property("radius").toInt(), 12);
        const auto *title = text(u"Tips for Success"_s);
        QCOMPARE(fontOf(title), u"Inter 14 500"_s);
        QCOMPARE(colorOf(title), white);
        QCOMPARE(placeOf(title).topLeft() - placeOf(section).topLeft(), QPointF(20, 20));
        const auto all = m_window->all(u"TipItem"_s, section);
        QCOMPARE(placeOf(all[0]).top() - placeOf(title).bottom(), 12.0);
        QCOMPARE(placeOf(section).bottom() - placeOf(all[3]).bottom(), 20.0);
        for (const auto *tip : all) {
            const auto *lamp = m_window->symbol(u"lightbulb.fill"_s, tip);
            QCOMPARE(lamp->property("size").toInt(), 14);
            QCOMPARE(colorOf(lamp), word(Color::yellow()));
            const auto *words = m_window->all(u"Label"_s, tip).value(0);
            QCOMPARE(fontOf(words), u"Inter 12 400"_s);
            QCOMPARE(colorOf(words), secondary);
            QCOMPARE(placeOf(words).left() - placeOf(lamp).right(), 8.0);
            // The lamp stands beside the middle of the first line.
            QVERIFY(qAbs(placeOf(words).top() + 12 * 1.21 / 2 - placeOf(lamp).center().y()) <= 0.5);
        }
    }

    void showsFineTuning()
    {
        open(u"Fine-Tuning"_s);
        QCOMPARE(
            sections(), QStringList({u"Understanding Fine-Tuning"_s, u"Training Methods"_s, u"Hyperparameters"_s}));
        QVERIFY(text(
            u"Fine-tuning adapts a pre-trained language model to your specific use case by training it on your custom dataset. This allows the model to learn domain-specific knowledge and behaviors while retaining its general capabilities."_s));

        const QList<QStringList> methods{
            {u"Full Fine-Tuning"_s, u"Updates all model weights. Requires significant VRAM."_s, u"40GB+"_s, u"Slow"_s},
            {u"LoRA"_s, u"Low-Rank Adaptation. Trains small adapter layers."_s, u"16GB+"_s, u"Medium"_s},
            {u"QLoRA"_s, u"Quantized LoRA. 4-bit quantization for efficiency."_s, u"8GB+"_s, u"Fast"_s}};
        const auto cards = m_window->all(u"MethodCard"_s);
        QCOMPARE(cards.size(), 3);
        for (int i = 0; i < cards.size(); ++i) {
            const auto *card = cards[i];
            QCOMPARE(properties(card, {"title", "description", "vram", "speed"}), methods[i]);
            QCOMPARE(
                QAccessible::queryAccessibleInterface(cards[i])->text(QAccessible::Name), methods[i].join(u", "_s));
            // Bare, with no label.
            QCOMPARE(m_window->texts(card).size(), 4);
            QCOMPARE(fontOf(text(methods[i][0], card)), u"Inter 14 500"_s);
            QCOMPARE(colorOf(text(methods[i][0], card)), white);
            QCOMPARE(fontOf(text(methods[i][1], card)), u"Inter 12 400"_s);
            QCOMPARE(colorOf(text(methods[i][1], card)), secondary);
            QCOMPARE(fontOf(text(methods[i][2], card)), u"Geist Mono 12 400"_s);
            QCOMPARE(colorOf(text(methods[i][2], card)), accent);
            QCOMPARE(fontOf(text(methods[i][3], card)), u"Inter 10 400"_s);
            QCOMPARE(colorOf(text(methods[i][3], card)), tertiary);
            QVERIFY(placeOf(text(methods[i][2], card)).top() < placeOf(text(methods[i][3], card)).top());
            QCOMPARE(placeOf(card).right() - placeOf(text(methods[i][3], card)).right(), 16.0);
            QCOMPARE(colorOf(card), word(Color::faded(Qt::black, 0.3)));
            QCOMPARE(card->property("radius").toInt(), 8);
        }

        const QList<QStringList> parameters{
            {u"Learning Rate"_s, u"1e-4 to 5e-5"_s, u"Controls step size during optimization"_s},
            {u"Epochs"_s, u"1-5"_s, u"Number of passes through the dataset"_s},
            {u"Batch Size"_s, u"1-8"_s, u"Samples processed together (limited by VRAM)"_s},
            {u"LoRA Rank"_s, u"8-64"_s, u"Rank of adapter matrices (higher = more capacity)"_s}};
        const auto rows = m_window->all(u"HyperparamRow"_s);
        QCOMPARE(rows.size(), 4);
        for (int i = 0; i < rows.size(); ++i) {
            QCOMPARE(properties(rows[i], {"name", "typical", "description"}), parameters[i]);
            QCOMPARE(fontOf(text(parameters[i][0], rows[i])), u"Geist Mono 12 400"_s);
            QCOMPARE(colorOf(text(parameters[i][0], rows[i])), white);
            QCOMPARE(fontOf(text(parameters[i][1], rows[i])), u"Geist Mono 12 400"_s);
            QCOMPARE(colorOf(text(parameters[i][1], rows[i])), accent);
            QCOMPARE(fontOf(text(parameters[i][2], rows[i])), u"Inter 11 400"_s);
            QCOMPARE(colorOf(text(parameters[i][2], rows[i])), tertiary);
        }
    }

    void showsDatasets()
    {
        open(u"Datasets"_s);
        QCOMPARE(sections(), QStringList({u"JSONL Format"_s, u"Best Practices"_s}));
        const auto *words =
            text(u"Your training data should be in JSONL format with each line containing a JSON object:"_s);
        QCOMPARE(fontOf(words), u"Inter 12 400"_s);
        QCOMPARE(colorOf(words), secondary);
        const auto *code = m_window->all(u"CodeBlock"_s).value(0);
        // The words' escapes, so that the compiler of these signals is not led astray.
        const QString mark(u'"');
        const QString lines = u"{'instruction': 'What is machine learning?', 'response': 'Machine learning is...'}\n"
                              "{'instruction': 'Explain neural networks', 'response': 'Neural networks are...'}"_s;
        const auto *json = text(QString(lines).replace(u'\'', mark));
        QVERIFY(json);
        QCOMPARE(fontOf(json), u"Geist Mono 12 400"_s);
        QCOMPARE(colorOf(json), green);
        QCOMPARE(colorOf(code), u"#ff000000"_s);
        QCOMPARE(code->property("radius").toInt(), 8);
        QCOMPARE(placeOf(json).topLeft() - placeOf(code).topLeft(), QPointF(16, 16));
        QCOMPARE(tips(u"Best Practices"_s),
            QStringList({u"Aim for 100-10,000 high-quality examples"_s,
                u"Keep responses consistent in style and format"_s, u"Include a variety of instruction types"_s,
                u"Split data into training (80%) and validation (20%)"_s}));
    }

    void showsModels()
    {
        open(u"Models"_s);
        QCOMPARE(sections(), QStringList({u"Supported Models"_s, u"Model Selection Guide"_s}));
        QVERIFY(text(
            u"Quillmere Studio supports fine-tuning various open-source LLMs including Llama 3, Mistral, Phi-3, Gemma, and Qwen families."_s));
        QCOMPARE(tips(u"Model Selection Guide"_s),
            QStringList({u"7B-8B models: Good balance of quality and speed"_s,
                u"13B-14B models: Better reasoning, needs more VRAM"_s,
                u"70B+ models: Best quality, requires multi-GPU or cloud"_s}));
    }

    void showsTheServicesRoutes()
    {
        m_world->environment.hosts.apiEndpoint = u"https://api.example"_s;
        open(u"API Reference"_s);
        QCOMPARE(sections(), QStringList({u"Base URL"_s, u"Authentication"_s, u"Endpoints"_s}));
        const auto *endpoint = text(u"https://api.example"_s);
        QVERIFY(endpoint);
        QCOMPARE(fontOf(endpoint), u"Geist Mono 14 400"_s);
        QCOMPARE(colorOf(endpoint), accent);
        QCOMPARE(colorOf(m_window->all(u"CodeBlock"_s).value(0)), u"#ff000000"_s);
        QVERIFY(text(u"All API requests require a Bearer token in the Authorization header."_s));

        // "GET" twice and "POST" twice, each in its colour.
        const QList<QStringList> told{{u"GET"_s, u"/models"_s, u"List available models"_s},
            {u"GET"_s, u"/files"_s, u"List uploaded datasets"_s},
            {u"POST"_s, u"/fine-tuning/jobs"_s, u"Create fine-tuning job"_s},
            {u"POST"_s, u"/chat/completions"_s, u"Chat completion"_s}};
        const auto rows = m_window->all(u"EndpointRow"_s);
        QCOMPARE(rows.size(), 4);
        for (int i = 0; i < rows.size(); ++i) {
            QCOMPARE(properties(rows[i], {"method", "path", "description"}), told[i]);
            const auto *method = text(told[i][0], rows[i]);
            QCOMPARE(fontOf(method), u"Inter 10 700"_s);
            QCOMPARE(method->width(), 50.0);
            QCOMPARE(colorOf(method), i < 2 ? green : accent);
            QCOMPARE(fontOf(text(told[i][1], rows[i])), u"Geist Mono 12 400"_s);
            QCOMPARE(colorOf(text(told[i][1], rows[i])), white);
            QCOMPARE(fontOf(text(told[i][2], rows[i])), u"Inter 12 400"_s);
            QCOMPARE(colorOf(text(told[i][2], rows[i])), tertiary);
        }
        QVERIFY(m_world->service.requests().isEmpty());
    }

    void coloursAMethodByItsName_data()
    {
        QTest::addColumn<QString>("method");
        QTest::addColumn<QString>("color");
        QTest::newRow("GET") << u"GET"_s << green;
        QTest::newRow("POST") << u"POST"_s << accent;
        QTest::newRow("DELETE") << u"DELETE"_s << u"#ffef4444"_s;
        QTest::newRow("another") << u"PATCH"_s << secondary;
        QTest::newRow("small letters") << u"get"_s << secondary;
        QTest::newRow("none") << QString() << secondary;
    }
    void coloursAMethodByItsName()
    {
        QFETCH(QString, method);
        open(u"API Reference"_s);
        auto *row = m_window->all(u"EndpointRow"_s).value(0);
        row->setProperty("method", method);
        QTEST(colorOf(row->childItems().value(0)), "color");
    }

    void showsTheTableOfShortcuts()
    {
        open(u"Keyboard Shortcuts"_s);
        QCOMPARE(sections(), QStringList({u"Navigation"_s, u"Actions"_s}));
        QStringList shown;
        for (const auto *row : m_window->all(u"ShortcutRow"_s)) {
            QStringList keys;
            for (const auto *cap : m_window->all(u"KeyCap"_s, row)) {
                const auto *label = m_window->all(u"Label"_s, cap).value(0);
                keys.append(label->property("text").toString());
                QCOMPARE(fontOf(label), u"Inter 12 500"_s);
                QCOMPARE(colorOf(label), white);
                QCOMPARE(colorOf(cap), surface);
                QCOMPARE(strokeOf(cap), line);
                QCOMPARE(cap->height(), label->implicitHeight() + 8);
                QVERIFY(cap->width() >= label->implicitWidth() + 16);
            }
            const auto *action = text(row->property("action").toString(), row);
            QCOMPARE(fontOf(action), u"Inter 12 400"_s);
            QCOMPARE(colorOf(action), secondary);
            QCOMPARE(placeOf(action).right(), placeOf(row).right());
            shown.append(keys.join(u' ') + u": "_s + row->property("action").toString());
        }
        QCOMPARE(shown,
            QStringList({u"⌘ 1: Go to Dashboard"_s, u"⌘ 2: Go to Projects"_s, u"⌘ 3: Go to Datasets"_s,
                u"⌘ 4: Go to Models"_s, u"⌘ ,: Open Settings"_s, u"⌘ N: New Project"_s, u"⌘ U: Upload Dataset"_s,
                u"⌘ T: New Training Job"_s, u"⌘ F: Search"_s}));
        QCOMPARE(m_window->all(u"ShortcutRow"_s, section(u"Navigation"_s)).size(), 5);
    }
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_DocumentationView)
#include "tst_DocumentationView.moc"
