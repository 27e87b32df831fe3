#include "analytics/AnalyticsDataManager.h"
#include "analytics/overview/CheckStatus.h"
#include "analytics/overview/OverviewState.h"
#include "analytics/thresholds/DataThresholdControlState.h"
#include "app/theme/Color.h"
#include "support/ViewTest.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace quillmere;
using namespace quillmere::testing;
using namespace std::chrono_literals;

namespace {

const QString white = u"#ffffffff"_s;
const QString gray = u"#ff98989d"_s;

// Hands out the same whole numbers again and again.
class FixedRandom : public RandomSource {
public:
    explicit FixedRandom(bool highest) : m_highest(highest) { }
    double uniform(double lowest, double highest) override { return m_highest ? highest : lowest; }
    int integer(int lowest, int highest) override { return m_highest ? highest : lowest; }

private:
    const bool m_highest;
};

QList<double> valuesOf(const QList<ChartBar> &bars)
{
    QList<double> values;
    for (const ChartBar &bar : bars) {
        values.append(bar.value);
    }
    return values;
}

} // namespace

class tst_OverviewView : public ViewTest {
    Q_OBJECT

private slots:
    // The token distribution

    void drawsTwentyGreenBarsAHundredApart()
    {
        const OverviewState overview;
        QCOMPARE(overview.tokenDistribution().size(), 20);
        for (int i = 0; i < 20; ++i) {
            const ChartBar bar = overview.tokenDistribution().at(i);
            QCOMPARE(bar.x, i * 100.0);
            QCOMPARE(bar.color, Color::green());
            QVERIFY(bar.label.isEmpty());
            QVERIFY(bar.value >= 100 && bar.value <= 1000);
            QCOMPARE(bar.value, std::floor(bar.value));
        }
    }

    void drawsCountsFromAHundredToAThousandInclusive()
    {
        for (const bool highest : {false, true}) {
            m_world->environment.makeRandomSource = [=] { return std::make_unique<FixedRandom>(highest); };
            QCOMPARE(valuesOf(OverviewState().tokenDistribution()), QList<double>(20, highest ? 1000 : 100));
        }
    }

    void drawsTheBarsAnewAtEachTickThoughNoFigureOfTheirsComesFromIt()
    {
        OverviewState overview;
        QList<QList<double>> seen{valuesOf(overview.tokenDistribution())};
        for (int tick = 0; tick < 3; ++tick) {
            m_world->clock.advance(1999ms);
            settle();
            QCOMPARE(valuesOf(overview.tokenDistribution()), seen.last());
            m_world->clock.advance(1ms);
            settle();
            QVERIFY(!seen.contains(valuesOf(overview.tokenDistribution())));
            seen.append(valuesOf(overview.tokenDistribution()));
        }
    }

    void drawsTheBarsOnceForTheSixWritesOfATick()
    {
        OverviewState overview;
        QSignalSpy drawn(&overview, &OverviewState::changed);
        QSignalSpy written(&AnalyticsDataManager::shared(), &AnalyticsDataManager::willChange);
        m_world->clock.advance(2s);
        settle();
        QCOMPARE(written.size(), 6);
        QCOMPARE(drawn.size(), 1);
    }

    // The screen

    void showsTheDatasetsFigures()
    {
        open();
        const QStringList expected{u"TOTAL SAMPLES: 42500"_s, u"TOTAL TOKENS: 12.4M"_s, u"VOCAB SIZE: 50,257"_s,
            u"DUPLICATES: 1.2%"_s, u"AVG LENGTH: 292"_s, u"QUALITY SCORE: 0.88"_s};
        QStringList names;
        for (auto *card : cards()) {
            names.append(QAccessible::queryAccessibleInterface(card)->text(QAccessible::Name));
            QCOMPARE(m_window->texts(card).join(u": "_s),
                QStringList({names.last().section(u": "_s, 1), names.last().section(u": "_s, 0, 0)}).join(u": "_s));
        }
        QCOMPARE(names, expected);
    }

    void givesEachCardItsSymbolAndColour_data()
    {
        QTest::addColumn<int>("card");
        QTest::addColumn<QString>("symbol");
        QTest::addColumn<QColor>("color");
        QTest::newRow("samples") << 0 << u"doc.text.fill"_s << Color::blue();
        QTest::newRow("tokens") << 1 << u"text.quote"_s << Color::purple();
        QTest::newRow("vocabulary") << 2 << u"character.book.closed.fill"_s << Color::orange();
        QTest::newRow("duplicates") << 3 << u"doc.on.doc.fill"_s << Color::red();
        QTest::newRow("length") << 4 << u"ruler.fill"_s << Color::cyan();
        QTest::newRow("quality") << 5 << u"star.fill"_s << Color::green();
    }
    void givesEachCardItsSymbolAndColour()
    {
        QFETCH(int, card);
        QFETCH(QString, symbol);
        QFETCH(QColor, color);
        open();
        const auto *it = cards().at(card);
        const auto *icon = m_window->symbol(symbol, it);
        QVERIFY(icon);
        QCOMPARE(icon->property("color").value<QColor>(), color);
        QCOMPARE(colorOf(it), u"#ff1a1a1a"_s);
        QCOMPARE(it->property("radius").toInt(), 8);
        const auto labels = m_window->all(u"Label"_s, it);
        QCOMPARE(fontOf(labels.at(0)), u"Geist Mono 24 700"_s);
        QCOMPARE(colorOf(labels.at(0)), white);
        QCOMPARE(fontOf(labels.at(1)), u"Inter 10 700"_s);
        QCOMPARE(colorOf(labels.at(1)), gray);
    }

    void tellsTheSameTimeAtAnyHour()
    {
        open();
        QVERIFY(m_window->shows(u"Last Updated: 12:45 PM"_s));
        m_world->clock.advance(std::chrono::hours(7));
        settle();
        QVERIFY(m_window->shows(u"Last Updated: 12:45 PM"_s));
        QVERIFY(m_window->shows(u"DATASET ANALYTICS"_s));
    }

    void showsTheLabelsWithTheirCounts()
    {
        open();
        const QList<ChartBar> bars = OverviewState::labelFrequency();
        QCOMPARE(bars,
            QList<ChartBar>({ChartBar::labelled(u"Positive"_s, 4500, Color::blue()),
                ChartBar::labelled(u"Negative"_s, 3200, Color::red()),
                ChartBar::labelled(u"Neutral"_s, 2100, Color::gray())}));
        QCOMPARE(charts().at(1)->property("bars").value<QList<ChartBar>>(), bars);
        for (const auto &text : {u"Positive"_s, u"Negative"_s, u"Neutral"_s}) {
            QVERIFY(m_window->text(text, charts().at(1)));
        }
    }

    void showsTheBarsThatWereDrawn()
    {
        open();
        auto *overview = m_view->rootObject()->findChild<OverviewState *>();
        QCOMPARE(charts().at(0)->property("bars").value<QList<ChartBar>>(), overview->tokenDistribution());
        const QList<ChartBar> before = overview->tokenDistribution();
        const QStringList texts = figures();
        m_world->clock.advance(2s);
        settle();
        QVERIFY(overview->tokenDistribution() != before);
        QCOMPARE(charts().at(0)->property("bars").value<QList<ChartBar>>(), overview->tokenDistribution());
        QCOMPARE(figures(), texts);
    }

    void makesBothChartsTwoHundredHighAndAlikeInWidth()
    {
        open();
        QCOMPARE(charts().size(), 2);
        QCOMPARE(charts().at(0)->height(), 200.0);
        QCOMPARE(charts().at(1)->height(), 200.0);
        const QRectF one = placeOf(cardAround(u"TOKEN DISTRIBUTION"_s));
        const QRectF other = placeOf(cardAround(u"LABEL FREQUENCY"_s));
        QCOMPARE(other.left() - one.right(), 16.0);
        QVERIFY(std::abs(one.width() - other.width()) <= 1);
        QCOMPARE(placeOf(charts().at(0)).left() - one.left(), 16.0);
        QVERIFY(m_window->symbol(u"chart.bar.fill"_s));
        QVERIFY(m_window->symbol(u"chart.pie.fill"_s));
        QCOMPARE(fontOf(m_window->text(u"TOKEN DISTRIBUTION"_s)), u"Inter 12 700"_s);
        QCOMPARE(colorOf(m_window->text(u"TOKEN DISTRIBUTION"_s)), gray);
    }

    void keepsItsLookFromItsHeadToItsChecks()
    {
        open();
        const double right = m_view->width() - 320.0 - 24;
        const auto *title = m_window->text(u"DATASET ANALYTICS"_s);
        QCOMPARE(fontOf(title), u"Inter 24 700"_s);
        QCOMPARE(colorOf(title), white);
        QCOMPARE(placeOf(title).topLeft(), QPointF(24, 24));
        const auto *updated = m_window->text(u"Last Updated: 12:45 PM"_s);
        QCOMPARE(colorOf(updated), gray);
        QCOMPARE(placeOf(updated).right(), right);

        // What stands below each other is 24 apart.
        const QRectF tokens = placeOf(cardAround(u"TOKEN DISTRIBUTION"_s));
        const QRectF checked = placeOf(cardAround(u"CONSISTENCY CHECKS"_s));
        QCOMPARE(placeOf(cards().first()).top() - placeOf(title).bottom(), 24.0);
        QCOMPARE(tokens.top() - placeOf(cards().last()).bottom(), 24.0);
        QCOMPARE(checked.top() - tokens.bottom(), 24.0);
        QCOMPARE(checked.left(), 24.0);
        QCOMPARE(checked.right(), right);

        for (const auto *card : m_window->all(u"AnalyticsCard"_s)) {
            QCOMPARE(colorOf(card), u"#ff1a1a1a"_s);
            QCOMPARE(card->property("radius").toInt(), 8);
            QCOMPARE(strokeOf(card), u"#ff333333 1"_s);
        }
        for (auto *card : cards()) {
            const auto *icon = m_window->all(u"SymbolIcon"_s, card).first();
            QCOMPARE(placeOf(icon).topLeft() - placeOf(card).topLeft(), QPointF(12, 12));
            QCOMPARE(placeOf(card).bottom() - placeOf(m_window->all(u"Label"_s, card).last()).bottom(), 12.0);
        }
        for (const QString &name : {u"chart.bar.fill"_s, u"chart.pie.fill"_s, u"checkmark.shield.fill"_s}) {
            const auto *symbol = m_window->symbol(name);
            QCOMPARE(symbol->property("size").toInt(), 12);
            QVERIFY(symbol->property("bold").toBool());
            QCOMPARE(colorOf(symbol), gray);
        }

        const auto checks = m_window->all(u"CheckItem"_s);
        for (int i = 0; i < checks.size(); ++i) {
            const auto *mark = m_window->all(u"SymbolIcon"_s, checks[i]).first();
            const auto *words = m_window->all(u"Label"_s, checks[i]).first();
            QCOMPARE(placeOf(words).left() - placeOf(mark).right(), 6.0);
            QCOMPARE(i == 0 ? 20.0 : placeOf(checks[i]).left() - placeOf(checks[i - 1]).right(), 20.0);
        }
    }

    void showsTheChecksWithTheirMarks()
    {
        open();
        QStringList names;
        for (auto *check : m_window->all(u"CheckItem"_s)) {
            names.append(QAccessible::queryAccessibleInterface(check)->text(QAccessible::Name));
        }
        QCOMPARE(names,
            QStringList({u"Schema Validation: Passed"_s, u"Alignment: Passed"_s, u"Tokenizer Compatibility: Warning"_s,
                u"Encoding: Passed"_s, u"Language Detection: Passed"_s}));
        QVERIFY(m_window->symbol(u"checkmark.shield.fill"_s));
        QCOMPARE(fontOf(m_window->text(u"Encoding"_s)), u"Geist Mono 12 400"_s);
    }

    void marksACheckByItsStatus_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("symbol");
        QTest::addColumn<QColor>("color");
        QTest::newRow("pass") << int(CheckStatus::Pass) << u"checkmark.circle.fill"_s << Color::green();
        QTest::newRow("warning") << int(CheckStatus::Warning) << u"exclamationmark.triangle.fill"_s << Color::yellow();
        QTest::newRow("fail, which no check of the screen is")
            << int(CheckStatus::Fail) << u"xmark.circle.fill"_s << Color::red();
    }
    void marksACheckByItsStatus()
    {
        QFETCH(int, status);
        QFETCH(QString, symbol);
        QFETCH(QColor, color);
        open();
        QQmlComponent component(m_view->engine(), QUrl(u"qrc:/qt/qml/Quillmere/Analytics/CheckItem.qml"_s));
        const std::unique_ptr<QObject> made(
            component.createWithInitialProperties({{u"label"_s, u"Check"_s}, {u"status"_s, status}}));
        auto *check = qobject_cast<QQuickItem *>(made.get());
        QVERIFY(check);
        check->setParentItem(m_view->contentItem());
        const auto *mark = m_window->symbol(symbol, check);
        QVERIFY(mark);
        QCOMPARE(mark->property("color").value<QColor>(), color);
    }

    void staysInItsLinesAndColumns_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("columns");
        // What sidebar, header and tabs leave.
        QTest::newRow("smallest window") << QSize(980, 661) << 3;
        QTest::newRow("usual window") << QSize(1220, 761) << 4;
        QTest::newRow("large window") << QSize(1700, 1061) << 7;
    }
    void staysInItsLinesAndColumns()
    {
        QFETCH(QSize, size);
        QFETCH(int, columns);
        open(size);
        const auto *panel = m_window->all(u"DataThresholdControlView"_s).first();
        QCOMPARE(placeOf(panel), QRectF(size.width() - 320, 0, 320, size.height()));

        const double inner = size.width() - 320 - 48;
        int inFirstRow = 0;
        for (const auto *card : cards()) {
            const QRectF place = placeOf(card);
            QVERIFY(place.width() >= 160);
            QVERIFY(std::abs(place.width() - (inner - (columns - 1) * 16) / columns) < 1);
            QCOMPARE(place.left(), std::floor(place.left()));
            inFirstRow += place.top() == placeOf(cards().first()).top() ? 1 : 0;
        }
        QCOMPARE(inFirstRow, std::min(columns, 6));
        QCOMPARE(placeOf(cards().at(1)).left() - placeOf(cards().at(0)).right(), 16.0);

        const QRectF around = placeOf(cardAround(u"CONSISTENCY CHECKS"_s));
        const auto checks = m_window->all(u"CheckItem"_s);
        QCOMPARE(checks.size(), 5);
        for (const auto *check : checks) {
            QVERIFY(around.adjusted(20, 0, -19, 0).contains(placeOf(check)));
            QCOMPARE(placeOf(check).center().y(), placeOf(checks.first()).center().y());
            for (const auto *label : m_window->all(u"Label"_s, check)) {
                QVERIFY(placeOf(label).right() <= placeOf(check).right());
                QVERIFY(label->property("contentWidth").toDouble() <= label->width());
            }
        }
    }

    void scrollsWithinTheScreenByKeysOnly()
    {
        open(QSize(950, 400));
        m_window->press(Qt::Key_Tab);
        m_window->press(Qt::Key_End);
        QCOMPARE(placeOf(cardAround(u"CONSISTENCY CHECKS"_s)).bottom(), 400.0 - 24);
    }

    // Beside the panel

    void isNotAlteredByThePanelsControls()
    {
        open();
        auto *overview = m_view->rootObject()->findChild<OverviewState *>();
        const QList<ChartBar> bars = overview->tokenDistribution();
        const QStringList before = figures();
        auto *thresholds = m_view->rootObject()->findChild<DataThresholdControlState *>();
        m_window->click(m_window->control(QAccessible::CheckBox, u"Remove Outliers"_s));
        m_window->click(m_window->control(QAccessible::Slider, u"Max Duplicates"_s));
        m_window->click(m_window->control(QAccessible::RadioButton, u"End"_s));
        QVERIFY(!thresholds->removeOutliers());
        QCOMPARE(thresholds->duplicateThreshold(), 10.0);
        settle();
        QCOMPARE(figures(), before);
        QCOMPARE(overview->tokenDistribution(), bars);
    }

    void ticksWhileASliderIsDragged()
    {
        open();
        auto *overview = m_view->rootObject()->findChild<OverviewState *>();
        const QList<ChartBar> bars = overview->tokenDistribution();
        auto *slider = m_window->control(QAccessible::Slider, u"Max Duplicates"_s);
        const QPoint middle = placeOf(slider).center().toPoint();
        QTest::mousePress(m_view.get(), Qt::LeftButton, {}, middle);
        QTest::mouseMove(m_view.get(), middle + QPoint(20, 0));
        const double held = m_view->rootObject()->findChild<DataThresholdControlState *>()->duplicateThreshold();
        m_world->clock.advance(2s);
        settle();
        QVERIFY(overview->tokenDistribution() != bars);
        QCOMPARE(m_view->rootObject()->findChild<DataThresholdControlState *>()->duplicateThreshold(), held);
        QTest::mouseMove(m_view.get(), middle + QPoint(40, 0));
        QVERIFY(m_view->rootObject()->findChild<DataThresholdControlState *>()->duplicateThreshold() > held);
        QTest::mouseRelease(m_view.get(), Qt::LeftButton, {}, middle + QPoint(40, 0));
    }

    // Each tick is one frame, and nothing is drawn between two.
    void drawsOneFrameForATickAndNoneBetween()
    {
        open();
        QVERIFY(eventually([&] { return isAtRest(); }));
        QSignalSpy frames(m_view.get(), &QQuickWindow::frameSwapped);
        for (int i = 0; i < 19; ++i) {
            m_world->clock.advance(100ms);
            settle();
        }
        QVERIFY(isAtRest());
        QCOMPARE(frames.size(), 0);
        m_world->clock.advance(100ms);
        QVERIFY(eventually([&] { return frames.size() == 1; }));
        QVERIFY(isAtRest());
        QCOMPARE(frames.size(), 1);
    }

    void ticksNoMoreForAScreenThatIsLeft()
    {
        auto overview = std::make_unique<OverviewState>();
        overview.reset();
        m_world->clock.advance(2s);
        settle(); // nothing is called that is gone
        open();
        QCOMPARE(m_view->rootObject()->findChildren<OverviewState *>().size(), 1);
    }

private:
    void open(QSize size = QSize(1190, 780)) { ViewTest::open(u"Analytics/OverviewView.qml"_s, size); }

    // No frame in a tenth of a second.
    bool isAtRest()
    {
        QSignalSpy frames(m_view.get(), &QQuickWindow::frameSwapped);
        return !frames.wait(100);
    }

    QList<QQuickItem *> cards() const { return m_window->all(u"OverviewSummaryCard"_s); }
    QList<QQuickItem *> charts() const { return m_window->all(u"BarChart"_s); }
    const QQuickItem *cardAround(const QString &title) const
    {
        for (const auto *card : m_window->all(u"ChartCard"_s)) {
            if (card->property("title").toString() == title) {
                return card;
            }
        }
        qFatal("No card %s.", qPrintable(title));
    }

    // The texts beside the panel but for the axes', which follow the bars.
    QStringList figures() const
    {
        QStringList texts;
        for (const auto *card : cards()) {
            texts << m_window->texts(card);
        }
        for (const auto *check : m_window->all(u"CheckItem"_s)) {
            texts << m_window->texts(check);
        }
        return texts << m_window->texts(charts().at(1));
    }
};

QTEST_MAIN(tst_OverviewView)
#include "tst_OverviewView.moc"
