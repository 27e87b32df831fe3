#include "app/theme/Color.h"
#include "app/theme/Theme.h"
#include "support/ViewTest.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>
#include <QTextOption>

#include <cmath>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmere::testing;

namespace quillmere {

namespace {

const QStringList versions{u"v1.2.0"_s, u"v1.1.5"_s, u"v1.0.0"_s};
const auto waiting = u"Waiting for generation..."_s;
const auto answer = u"Quantum computing uses quantum bits or qubits..."_s;

const QString gray = word(Color::gray());
const QString white = u"#ffffffff"_s;
const QString green = word(Color::green());
const QString line = u"#ff333333 1"_s;

} // namespace

class tst_DeploymentView : public ViewTest {
    Q_OBJECT

private:
    void open(QSize size = {980, 760}) { ViewTest::open(u"Tools/DeploymentView.qml"_s, size); }

    QList<QQuickItem *> rows() const { return m_window->all(u"DeploymentRow"_s); }
    QQuickItem *row(const QString &version) const { return rows().value(versions.indexOf(version)); }
    QQuickItem *text(const QString &text, const QQuickItem *in = nullptr) const { return m_window->text(text, in); }
    // Whatever the pointer adds to it.
    QString fillOf(const QQuickItem *row) const { return colorOf(row, "fillColor"); }

    QStringList highlighted() const
    {
        QStringList highlighted;
        for (const QString &version : versions) {
            const bool filled = fillOf(row(version)) == word(Color::faded(Color::cyan(), 0.1));
            const bool checked = QAccessible::queryAccessibleInterface(row(version))->state().checked;
            if (filled && checked) {
                highlighted.append(version);
            } else if (filled || checked) {
                highlighted.append(u"half of "_s + version);
            }
        }
        return highlighted;
    }

    QQuickItem *prompt() const { return m_window->field(u"Prompt"_s); }
    QQuickItem *run() const
    {
        auto *button = m_window->button(u"RUN INFERENCE"_s);
        return button ? button : m_window->button(u"GENERATING..."_s);
    }
    QStringList figures() const
    {
        QStringList figures;
        for (const auto *slider : m_window->all(u"LabeledSlider"_s)) {
            figures.append(m_window->texts(slider));
        }
        return figures;
    }

private slots:
    // What can be done.

    void opensWithTheNewestVersionHighlightedAndNoAnswer()
    {
        open();
        QCOMPARE(highlighted(), QStringList{u"v1.2.0"_s});
        for (const auto *row : rows()) {
            QCOMPARE(colorOf(backgroundOf(row)->childItems().value(0)), fillOf(row));
        }
        QVERIFY(text(waiting));
        QCOMPARE(colorOf(text(waiting)), gray);
        QCOMPARE(prompt()->property("text").toString(), u"Explain quantum computing in simple terms."_s);
        QVERIFY(m_window->button(u"RUN INFERENCE"_s));
    }

    void movesTheHighlightToTheRowThatIsClickedAndNothingElse()
    {
        open();
        QStringList before = m_window->texts();
        for (const QString &version : {u"v1.0.0"_s, u"v1.1.5"_s, u"v1.1.5"_s, u"v1.2.0"_s}) {
            m_window->click(row(version));
            QCOMPARE(highlighted(), QStringList{version});
            QCOMPARE(m_window->texts(), before);
        }
    }

    void movesTheHighlightByKeysAndForAssistivePrograms()
    {
        open();
        row(u"v1.1.5"_s)->forceActiveFocus(Qt::TabFocusReason);
        m_window->press(Qt::Key_Space);
        QCOMPARE(highlighted(), QStringList{u"v1.1.5"_s});
        auto *interface = QAccessible::queryAccessibleInterface(row(u"v1.0.0"_s));
        QCOMPARE(interface->role(), QAccessible::RadioButton);
        QCOMPARE(interface->text(QAccessible::Name), u"v1.0.0, ARCHIVED, 91.5%, 7.2GB, 1 week ago"_s);
        interface->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(highlighted(), QStringList{u"v1.0.0"_s});
    }

    void doesNothingOnItsFiveActions_data()
    {
        QTest::addColumn<QString>("button");
        for (const char *name : {"New Deployment", "Export Model", "Quantize (4-bit)", "Clone Version", "Archive"}) {
            QTest::newRow(name) << QString::fromLatin1(name);
        }
    }
    void doesNothingOnItsFiveActions()
    {
        QFETCH(QString, button);
        open();
        const QStringList before = m_window->texts();
        QVERIFY(m_window->button(button)->isEnabled());
        m_window->click(m_window->button(button));
        m_window->press(Qt::Key_Space);
        m_world->clock.advance(2s);
        settle();
        QCOMPARE(m_window->texts(), before);
        QCOMPARE(highlighted(), QStringList{u"v1.2.0"_s});
        QCOMPARE(m_world->clock.scheduledCount(), 0);
        QVERIFY(m_world->urlOpener.opened.isEmpty());
        QVERIFY(m_world->service.requests().isEmpty());
        QCOMPARE(QGuiApplication::topLevelWindows().size(), 1);
    }

    void keepsItsSlidersWhereTheyAre()
    {
        open();
        const QStringList before{u"Temperature"_s, u"0.7"_s, u"Max Tokens"_s, u"512"_s};
        QCOMPARE(figures(), before);
        for (const QString &name : {u"Temperature"_s, u"Max Tokens"_s}) {
            auto *slider = m_window->control(QAccessible::Slider, name);
            QVERIFY(slider);
            const QImage standing = m_view->grabWindow();
            const QRectF place = placeOf(slider);
            const auto at = [&](double part) {
                return QPoint(int(place.left() + part * place.width()), int(place.center().y()));
            };
            QTest::mousePress(m_view.get(), Qt::LeftButton, {}, at(0.1));
            for (double part = 0.1; part < 1; part += 0.2) {
                QTest::mouseMove(m_view.get(), at(part));
            }
            QTest::mouseRelease(m_view.get(), Qt::LeftButton, {}, at(0.9));
            QCOMPARE(figures(), before);
            for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Left, Qt::Key_End, Qt::Key_PageUp, Qt::Key_Home}) {
                m_window->press(key);
                QCOMPARE(figures(), before);
            }
            auto *interface = QAccessible::queryAccessibleInterface(slider);
            interface->valueInterface()->setCurrentValue(interface->valueInterface()->minimumValue());
            interface->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
            QCOMPARE(figures(), before);
            // The knob has not moved either.
            prompt()->forceActiveFocus();
            QTest::mouseMove(m_view.get(), QPoint(5, 750));
            const QRect region = place.toRect();
            QVERIFY(eventually([&] { return m_view->grabWindow().copy(region) == standing.copy(region); }));
        }
    }

    void answersAfterASecond()
    {
        open();
        m_window->click(run());
        QVERIFY(m_window->button(u"GENERATING..."_s));
        QCOMPARE(m_window->all(u"Spokes"_s, run()).size(), 1);
        QVERIFY(!run()->isEnabled());
        QVERIFY(text(waiting));
        m_world->clock.advance(999ms);
        QVERIFY(text(waiting));
        m_world->clock.advance(1ms);
        QVERIFY(text(answer));
        QCOMPARE(colorOf(text(answer)), white);
        QVERIFY(!text(waiting));
        QVERIFY(m_window->button(u"RUN INFERENCE"_s));
        QVERIFY(run()->isEnabled());
        QVERIFY(m_window->all(u"Spokes"_s).isEmpty());
    }

    void takesNoSecondPressWithinTheSecond()
    {
        open();
        m_window->click(run());
        m_world->clock.advance(500ms);
        m_window->click(run());
        m_window->press(Qt::Key_Return);
        m_window->press(Qt::Key_Space);
        QAccessible::queryAccessibleInterface(run())->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
        QCOMPARE(m_world->clock.scheduledCount(), 1);
        m_world->clock.advance(500ms);
        QVERIFY(m_window->button(u"RUN INFERENCE"_s));
        QCOMPARE(m_world->clock.scheduledCount(), 0);
    }

    void keepsTheEarlierAnswerOnScreenDuringASecondRun()
    {
        open();
        m_window->click(run());
        m_world->clock.advance(1s);
        m_window->click(run());
        QVERIFY(m_window->button(u"GENERATING..."_s));
        QVERIFY(text(answer));
        m_world->clock.advance(1s);
        QVERIFY(text(answer));
        QVERIFY(m_window->button(u"RUN INFERENCE"_s));
    }

    void givesTheSameAnswerToAnEditedAndToAnEmptyPrompt()
    {
        open();
        m_window->click(prompt());
        m_window->press(Qt::Key_End, Qt::ControlModifier);
        m_window->type(u" Or not"_s);
        QCOMPARE(prompt()->property("text").toString(), u"Explain quantum computing in simple terms. Or not"_s);
        QVERIFY(text(waiting));
        m_window->press(Qt::Key_A, Qt::ControlModifier);
        m_window->press(Qt::Key_Delete);
        QCOMPARE(prompt()->property("text").toString(), QString());
        m_window->click(run());
        m_world->clock.advance(1s);
        QVERIFY(text(answer));
        QCOMPARE(prompt()->property("text").toString(), QString());
    }

    void breaksTheLineOfThePromptByReturn()
    {
        open();
        m_window->click(prompt());
        m_window->press(Qt::Key_A, Qt::ControlModifier);
        m_window->type(u"a"_s);
        m_window->press(Qt::Key_Return);
        m_window->type(u"b"_s);
        QCOMPARE(prompt()->property("text").toString(), u"a\nb"_s);
        QVERIFY(m_window->button(u"RUN INFERENCE"_s));
    }

    void keepsTheBoxOfALongPromptAsItIs()
    {
        open();
        const QRectF box = placeOf(prompt()->parentItem()->parentItem());
        m_window->click(prompt());
        for (int i = 0; i < 20; ++i) {
            m_window->press(Qt::Key_Return);
        }
        QCOMPARE(placeOf(prompt()->parentItem()->parentItem()), box);
        QVERIFY(prompt()->height() > box.height());
    }

    void takesALongPromptWithoutABlankAtOnce()
    {
        open();
        m_window->click(prompt());
        QGuiApplication::clipboard()->setText(QString(400'000, u'x'));
        m_window->press(Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(prompt()->property("wrapMode").toInt(), int(QTextOption::WrapAtWordBoundaryOrAnywhere));
        m_window->press(Qt::Key_V, Qt::ControlModifier);
        m_view->grabWindow();
        QCOMPARE(prompt()->property("text").toString().size(), 400'000);
        // Broken at words first the lines take ten times as long.
        QCOMPARE(prompt()->property("wrapMode").toInt(), int(QTextOption::WrapAnywhere));
    }

    void forgetsEverythingWhenItIsLeft()
    {
        open();
        m_window->click(row(u"v1.0.0"_s));
        m_window->click(run());
        m_world->clock.advance(1s);
        QVERIFY(text(answer));
        close();
        open();
        QCOMPARE(highlighted(), QStringList{u"v1.2.0"_s});
        QVERIFY(text(waiting));
    }

    void scrollsItsLeftPaneWhereTheWindowIsLow()
    {
        open({980, 300});
        auto *pane = m_window->all(u"ScrollArea"_s).value(0);
        const double playground = placeOf(text(u"INFERENCE PLAYGROUND"_s)).top();
        const double title = placeOf(text(u"MODEL REGISTRY"_s)).top();
        pane->forceActiveFocus(Qt::TabFocusReason);
        m_window->press(Qt::Key_End);
        QVERIFY(placeOf(text(u"MODEL REGISTRY"_s)).top() < title);
        QVERIFY(placeOf(m_window->button(u"Archive"_s)).bottom() <= 300 - 24);
        QCOMPARE(placeOf(text(u"INFERENCE PLAYGROUND"_s)).top(), playground);
    }

    void keepsTheLinesBetweenRowsWhenTheHighlightMoves()
    {
        open();
        const auto *registry = m_window->all(u"ModelRegistry"_s).value(0);
        for (const QString &version : {u"v1.1.5"_s, u"v1.0.0"_s, u"v1.2.0"_s}) {
            m_window->click(row(version));
            QTest::mouseMove(m_view.get(), QPoint(5, 700));
            settle();
            const QImage shown = m_view->grabWindow();
            for (const auto *divider : m_window->all(u"Divider"_s, registry)) {
                const QPointF place = placeOf(divider).topLeft();
                QCOMPARE(place.y(), std::floor(place.y()));
                QCOMPARE(word(shown.pixelColor(300, int(place.y()))), u"#ff333333"_s);
            }
        }
    }

    // What it looks like.

    void composesTheRegistry()
    {
        open();
        QCOMPARE(fontOf(text(u"MODEL REGISTRY"_s)), u"Inter 18 700"_s);
        QCOMPARE(colorOf(text(u"MODEL REGISTRY"_s)), white);
        const auto *button = m_window->button(u"New Deployment"_s);
        QVERIFY(m_window->symbol(u"plus"_s, button));
        QCOMPARE(colorOf(button, "fillColor"), word(Color::blue()));
        QCOMPARE(placeOf(button).right(), 980 - 300 - 24.0);
        QCOMPARE(placeOf(button).top(), 24.0);

        const auto *registry = m_window->all(u"ModelRegistry"_s).value(0);
        QCOMPARE(placeOf(registry).top() - placeOf(button).bottom(), 24.0);
        QCOMPARE(placeOf(registry).left(), 24.0);
        QCOMPARE(placeOf(registry).width(), 980 - 300 - 48.0);
        QCOMPARE(colorOf(registry), u"#ff1a1a1a"_s);
        QCOMPARE(registry->property("radius").toInt(), 8);
        QCOMPARE(strokeOf(registry), line);
        QCOMPARE(m_window->all(u"Divider"_s, registry).size(), 3);

        QStringList titles;
        QList<double> lefts;
        for (const auto *title : m_window->all(u"Title"_s, registry)) {
            titles.append(title->property("text").toString());
            lefts.append(placeOf(title).left());
            QCOMPARE(fontOf(title), u"Inter 11 600"_s);
            QCOMPARE(colorOf(title), gray);
            QCOMPARE(title->width(), titles.size() == 5 ? 120.0 : 80.0);
        }
        QCOMPARE(titles, QStringList({u"VERSION"_s, u"STATUS"_s, u"ACCURACY"_s, u"SIZE"_s, u"CREATED"_s}));
        // 16 within the stroke.
        QCOMPARE(lefts.constFirst(), 24 + 1 + 16.0);

        // The last row is round where the table is, within its stroke.
        QCOMPARE(rows().last()->property("cornerRadius").toInt(), 7);
        // Each cell stands below its title.
        for (const auto *row : rows()) {
            QCOMPARE(placeOf(row).width(), registry->width() - 2);
            QCOMPARE(placeOf(m_window->all(u"ModelStatusBadge"_s, row).value(0)).left(), lefts[1]);
            const auto *size = text(u"7.2GB"_s, row);
            QCOMPARE(placeOf(size).left(), lefts[3]);
            QCOMPARE(fontOf(size), u"Inter 13 400"_s);
            QCOMPARE(colorOf(size), gray);
            const auto *arrow = m_window->symbol(u"chevron.right"_s, row);
            QCOMPARE(colorOf(arrow), gray);
            QCOMPARE(placeOf(arrow).right(), placeOf(row).right() - 16);
        }
    }

    void showsThreeVersions_data()
    {
        QTest::addColumn<QString>("version");
        QTest::addColumn<QStringList>("cells");
        QTest::addColumn<QColor>("color");
        QTest::newRow("active") << u"v1.2.0"_s
                                << QStringList({u"v1.2.0"_s, u"LIVE"_s, u"94.2%"_s, u"7.2GB"_s, u"2 mins ago"_s})
                                << Color::green();
        QTest::newRow("ready") << u"v1.1.5"_s
                               << QStringList({u"v1.1.5"_s, u"READY"_s, u"93.8%"_s, u"7.2GB"_s, u"2 days ago"_s})
                               << Color::cyan();
        QTest::newRow("archived") << u"v1.0.0"_s
                                  << QStringList({u"v1.0.0"_s, u"ARCHIVED"_s, u"91.5%"_s, u"7.2GB"_s, u"1 week ago"_s})
                                  << Color::gray();
    }
    void showsThreeVersions()
    {
        QFETCH(QString, version);
        QFETCH(QStringList, cells);
        QFETCH(QColor, color);
        open();
        const auto *row = this->row(version);
        QStringList shown = m_window->texts(row);
        shown.sort();
        QStringList told = cells;
        told.sort();
        QCOMPARE(shown, told);
        QCOMPARE(fontOf(text(version, row)), u"Inter 13 500"_s);
        QCOMPARE(colorOf(text(version, row)), white);
        QCOMPARE(fontOf(text(cells[2], row)), u"Inter 13 400"_s);
        QCOMPARE(colorOf(text(cells[2], row)), green);
        QCOMPARE(colorOf(text(cells[4], row)), gray);

        const auto *badge = m_window->all(u"ModelStatusBadge"_s, row).value(0);
        const auto *status = text(cells[1], badge);
        QCOMPARE(fontOf(status), u"Inter 9 700"_s);
        QCOMPARE(colorOf(status), word(color));
        QCOMPARE(colorOf(badge), word(Color::faded(color, 0.2)));
        QCOMPARE(badge->property("radius").toInt(), 2);
        QCOMPARE(badge->width(), std::ceil(status->implicitWidth() + 12));
        QCOMPARE(badge->height(), status->implicitHeight() + 4);
    }

    void composesTheActions_data()
    {
        QTest::addColumn<int>("place");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("icon");
        QTest::addColumn<QColor>("color");
        QTest::newRow("export") << 0 << u"Export Model"_s << u"square.and.arrow.up"_s << Color::blue();
        QTest::newRow("quantize") << 1 << u"Quantize (4-bit)"_s << u"arrow.down.to.line"_s << Color::purple();
        QTest::newRow("clone") << 2 << u"Clone Version"_s << u"doc.on.doc"_s << Color::orange();
        QTest::newRow("archive") << 3 << u"Archive"_s << u"archivebox"_s << Color::red();
    }
    void composesTheActions()
    {
        QFETCH(int, place);
        QFETCH(QString, title);
        QFETCH(QString, icon);
        QFETCH(QColor, color);
        open();
        const auto *heading = text(u"DEPLOYMENT ACTIONS"_s);
        QCOMPARE(fontOf(heading), u"Inter 12 700"_s);
        QCOMPARE(colorOf(heading), gray);

        const auto *button = m_window->all(u"ActionButton"_s).value(place);
        const double width = (980 - 300 - 48 - 48) / 4.0;
        QCOMPARE(placeOf(button).left(), 24 + place * (width + 16));
        QCOMPARE(placeOf(button).width(), width);
        QCOMPARE(placeOf(button).top(), placeOf(heading).bottom() + 16);
        const auto *symbol = m_window->symbol(icon, button);
        QVERIFY(symbol);
        QCOMPARE(symbol->property("size").toInt(), 20);
        QCOMPARE(colorOf(symbol), word(color));
        QCOMPARE(fontOf(text(title, button)), u"Inter 11 500"_s);
        QCOMPARE(colorOf(text(title, button)), white);
        QCOMPARE(placeOf(text(title, button)).top() - placeOf(symbol).bottom(), 8.0);
        QCOMPARE(placeOf(symbol).top() - placeOf(button).top(), 16.0);
        QCOMPARE(placeOf(button).bottom() - placeOf(text(title, button)).bottom(), 16.0);
        const auto *ground = backgroundOf(button);
        QCOMPARE(colorOf(ground), u"#ff1a1a1a"_s);
        QCOMPARE(ground->property("radius").toInt(), 8);
        QCOMPARE(strokeOf(ground), line);
    }

    void composesThePlayground()
    {
        open();
        const auto *pane = m_window->all(u"InferencePlayground"_s).value(0);
        QCOMPARE(placeOf(pane), QRectF(680, 0, 300, 760));
        QCOMPARE(colorOf(pane), u"#ff161616"_s);
        const auto *edge = m_window->all(u"Divider"_s, pane).value(0);
        QCOMPARE(placeOf(edge), QRectF(680, 0, 1, 760));
        QCOMPARE(colorOf(edge), u"#ff333333"_s);

        const auto *heading = text(u"INFERENCE PLAYGROUND"_s);
        QCOMPARE(fontOf(heading), u"Inter 12 900"_s);
        QCOMPARE(colorOf(heading), gray);
        QCOMPARE(colorOf(m_window->symbol(u"play.fill"_s)), gray);
        QCOMPARE(placeOf(m_window->symbol(u"play.fill"_s)).left(), 700.0);

        const auto boxes = m_window->all(u"PlaygroundBox"_s);
        QCOMPARE(boxes.size(), 2);
        for (const auto *box : boxes) {
            QCOMPARE(placeOf(box).left(), 700.0);
            QCOMPARE(box->width(), 260.0);
            const auto *title = m_window->all(u"Label"_s, box).value(0);
            QCOMPARE(fontOf(title), u"Inter 10 700"_s);
            QCOMPARE(colorOf(title), gray);
            const auto *ground = box->childItems().value(1);
            QCOMPARE(ground->y() - title->height(), 8.0);
            QCOMPARE(ground->height(), box == boxes[0] ? 80.0 : 150.0);
            QCOMPARE(colorOf(ground), u"#ff111111"_s);
            QCOMPARE(strokeOf(ground), line);
            QCOMPARE(ground->property("radius").toInt(), 4);
        }
        QVERIFY(text(u"PROMPT"_s, boxes[0]));
        QVERIFY(text(u"OUTPUT"_s, boxes[1]));
        QCOMPARE(fontOf(prompt()), u"Inter 13 400"_s);
        QCOMPARE(fontOf(text(waiting)), u"Inter 13 400"_s);
        for (const auto &[inner, outer] :
            {std::pair<const QQuickItem *, const QQuickItem *>{prompt(), boxes[0]}, {text(waiting), boxes[1]}}) {
            QCOMPARE(placeOf(inner).topLeft() - placeOf(outer->childItems().value(1)).topLeft(), QPointF(8, 8));
        }

        QCOMPARE(placeOf(run()).left(), 700.0);
        QCOMPARE(placeOf(run()).width(), 260.0);
        QCOMPARE(colorOf(run(), "fillColor"), word(Color::cyan()));
        QCOMPARE(colorOf(text(u"RUN INFERENCE"_s)), u"#ff000000"_s);
        QCOMPARE(fontOf(text(u"RUN INFERENCE"_s)), u"Inter 11 700"_s);
        QCOMPARE(run()->property("radius").toInt(), 4);
        QCOMPARE(paddingOf(run()), QSizeF(12, 12));

        // 20 between all of its parts, down to the button.
        const QList<QQuickItem *> parts = run()->parentItem()->childItems();
        QCOMPARE(parts.size(), 6);
        QCOMPARE(placeOf(parts[0]).top(), 20.0);
        for (int i = 1; i < parts.size(); ++i) {
            QCOMPARE(placeOf(parts[i]).top() - placeOf(parts[i - 1]).bottom(), 20.0);
        }
        const auto sliders = m_window->all(u"LabeledSlider"_s);
        QCOMPARE(placeOf(sliders[1]).top() - placeOf(sliders[0]).bottom(), 16.0);
        QCOMPARE(sliders[0]->property("to").toDouble(), 1.0);
        QCOMPARE(sliders[1]->property("from").toDouble(), 64.0);
        QCOMPARE(sliders[1]->property("to").toDouble(), 2048.0);
    }
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_DeploymentView)
#include "tst_DeploymentView.moc"
