#include "analytics/AnalyticsDataManager.h"
#include "analytics/dashboard/StudioAnalyticsTab.h"
#include "support/ViewTest.h"

#include <QFile>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmere::testing;

namespace quillmere {

namespace {

const auto white = u"#ffffffff"_s;
const auto clear = u"#00000000"_s;
const auto gray = u"#ff98989d"_s;
const auto cyan = u"#ff5ac8f5"_s;
const auto green = u"#ff32d74b"_s;
const auto yellow = u"#ffffd60a"_s;
const auto orange = u"#ffff9f0a"_s;
const auto purple = u"#ffbf5af2"_s;
const auto strip = u"#ff111111"_s;
const auto line = u"#ff1f1f1f"_s;
const auto card = u"#ff1a1a1a"_s;

bool isTracked(const QQuickItem *text, double spacing)
{
    const auto font = text->property("font").value<QFont>();
    return font.letterSpacingType() == QFont::AbsoluteSpacing && qAbs(font.letterSpacing() - spacing) < 0.02;
}

} // namespace

class tst_AnalyticsDashboard : public ViewTest {
    Q_OBJECT

private slots:
    // The table of tabs

    void tellsEachTab_data()
    {
        QTest::addColumn<int>("tab");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("view");
        int tab = 0;
        const auto row = [&](const char *rawValue, const QString &title, const QString &view) {
            QTest::newRow(rawValue) << tab++ << title << view;
        };
        row("overview", u"Overview"_s, u"OverviewView"_s);
        row("training", u"Training"_s, u"TrainingTelemetryView"_s);
        row("validation", u"Validation"_s, u"ValidationView"_s);
        row("deployment", u"Deployment"_s, u"DeploymentView"_s);
        row("monitoring", u"Monitoring"_s, u"MonitoringView"_s);
        row("telemetry", u"Telemetry"_s, u"GaugeAnalyticsDashboardView"_s);
    }
    void tellsEachTab()
    {
        QFETCH(int, tab);
        QFETCH(QString, title);
        QFETCH(QString, view);
        QCOMPARE(StudioAnalyticsTab::allCases(), QList<int>({0, 1, 2, 3, 4, 5}));
        QCOMPARE(StudioAnalyticsTab::rawValue(tab), QString::fromLatin1(QTest::currentDataTag()));
        QCOMPARE(StudioAnalyticsTab::title(tab), title);
        const QUrl url = StudioAnalyticsTab::view(tab);
        QCOMPARE(url.fileName(), view + u".qml"_s);
        QVERIFY2(QFile::exists(u':' + url.path()), qPrintable(url.path()));
    }

    // The header

    void composesItsHeader()
    {
        opens();
        const QQuickItem *header = m_window->all(u"DashboardHeader"_s).value(0);
        QCOMPARE(colorOf(header), strip);
        const QQuickItem *border = m_window->all(u"Divider"_s, header).value(0);
        QCOMPARE(colorOf(border), line);
        QCOMPARE(placeOf(border), QRectF(0, placeOf(header).bottom() - 1, 980, 1));

        const QQuickItem *symbol = m_window->symbol(u"chart.xyaxis.line"_s);
        QCOMPARE(colorOf(symbol), cyan);
        QCOMPARE(symbol->property("size").toDouble(), 18.0);
        QVERIFY(!symbol->property("bold").toBool()); // the bold face is for bold and heavier
        QCOMPARE(placeOf(symbol).left(), 20.0);
        const QQuickItem *title = m_window->text(u"QUILLMERE TELEMETRY"_s);
        QCOMPARE(fontOf(title), u"Inter 13 600"_s);
        QVERIFY(isTracked(title, 1.2));
        QCOMPARE(colorOf(title), white);

        const QQuickItem *toggle = m_window->control(QAccessible::CheckBox, u"Full Telemetry"_s);
        QVERIFY(toggle->property("small").toBool());
        QCOMPARE(fontOf(toggle), u"Inter 12 400"_s);
        const QQuickItem *chip = m_window->symbol(u"cpu"_s);
        QCOMPARE(gapAcross(toggle, chip), 12.0);
        QCOMPARE(placeOf(chip).right(), 960.0);
        QCOMPARE(gapAcross(indicators().constLast(), toggle), 20.0);
        // 12 points above and below the highest of what stands in it, in one line.
        const double highest = std::max(
            {placeOf(title).height(), placeOf(symbol).height(), placeOf(toggle).height(), placeOf(chip).height()});
        QCOMPARE(placeOf(header).height(), highest + 24);
        for (const QQuickItem *item : std::array<const QQuickItem *, 4>{title, symbol, toggle, chip}) {
            QVERIFY(qAbs(placeOf(item).center().y() - placeOf(header).center().y()) <= 0.5);
        }
    }

    void showsAFixedStatus()
    {
        opens();
        QCOMPARE(indicators().size(), 4);
        const QStringList labels{u"GPU"_s, u"UTIL"_s, u"VRAM"_s, u"TPS"_s};
        const QStringList values{u"82°C"_s, u"94%"_s, u"14GB"_s, u"4.2k"_s};
        const QStringList colors{green, yellow, purple, cyan};
        for (int i = 0; i < 4; ++i) {
            const QQuickItem *indicator = indicators().at(i);
            QCOMPARE(m_window->texts(indicator), QStringList({labels[i], values[i]}));
            const QQuickItem *dot = m_window->all(u"QQuickRectangle"_s, indicator).value(0);
            QCOMPARE(placeOf(dot).size(), QSizeF(6, 6));
            QCOMPARE(dot->property("radius").toDouble(), 3.0);
            QCOMPARE(colorOf(dot), colors[i]);
            const QQuickItem *label = m_window->text(labels[i], indicator);
            const QQuickItem *value = m_window->text(values[i], indicator);
            QCOMPARE(fontOf(label), u"Open Runde 10 700"_s);
            QCOMPARE(colorOf(label), gray);
            QCOMPARE(fontOf(value), u"Open Runde 10 500"_s);
            QCOMPARE(colorOf(value), white);
            QCOMPARE(gapAcross(dot, label), 4.0);
            QCOMPARE(gapAcross(label, value), 4.0);
        }
    }

    void keepsItsStatusWhateverTheManagersFiguresDo()
    {
        opens();
        const QStringList before = m_window->texts(m_window->all(u"DashboardHeader"_s).value(0));
        AnalyticsDataManager::shared();
        for (int tick = 0; tick < 500; ++tick) {
            m_world->clock.advance(2s);
        }
        settle();
        QVERIFY(AnalyticsDataManager::shared().tokensPerSec() != 4250.0);
        QCOMPARE(m_window->texts(m_window->all(u"DashboardHeader"_s).value(0)), before);
    }

    // The tabs

    void showsTheOverviewFirst()
    {
        opens();
        QCOMPARE(selectedTitles(), QStringList{u"OVERVIEW"_s});
        QCOMPARE(content()->property("source").toUrl(), StudioAnalyticsTab::view(StudioAnalyticsTab::Overview));
        QCOMPARE(colorOf(underline(tabs().at(0))), cyan);
        QVERIFY(!isTelemetryFull());
        QVERIFY(!monitor());
    }

    void composesItsTabs_data()
    {
        QTest::addColumn<int>("width");
        QTest::newRow("small window") << 980;
        QTest::newRow("no multiple of six") << 1217;
        QTest::newRow("large window") << 1700;
    }
    void composesItsTabs()
    {
        QFETCH(int, width);
        opens({width, 760});
        QCOMPARE(tabs().size(), 6);
        const QStringList titles{
            u"OVERVIEW"_s, u"TRAINING"_s, u"VALIDATION"_s, u"DEPLOYMENT"_s, u"MONITORING"_s, u"TELEMETRY"_s};
        const QQuickItem *tabStrip = m_window->all(u"AnalyticsTabStrip"_s).value(0);
        QCOMPARE(colorOf(tabStrip), strip);
        const QQuickItem *border = m_window->all(u"Divider"_s, tabStrip).value(0);
        QCOMPARE(colorOf(border), line);
        QCOMPARE(placeOf(border), QRectF(0, placeOf(tabStrip).bottom() - 1, width, 1));
        double left = 0;
        for (int i = 0; i < 6; ++i) {
            const QQuickItem *tab = tabs().at(i);
            QCOMPARE(m_window->texts(tab), QStringList{titles[i]});
            QVERIFY(m_window->all(u"SymbolIcon"_s, tab).isEmpty());
            QCOMPARE(placeOf(tab).left(), left);
            QVERIFY(qAbs(placeOf(tab).width() - width / 6.0) < 1);
            left = placeOf(tab).right();

            const bool selected = i == 0;
            const QQuickItem *title = m_window->text(titles[i], tab);
            QCOMPARE(fontOf(title), selected ? u"Open Runde 11 700"_s : u"Open Runde 11 500"_s);
            QVERIFY(isTracked(title, 1));
            QCOMPARE(colorOf(title), selected ? white : gray);
            QCOMPARE(colorOf(backgroundOf(tab)), selected ? card : clear);
            QCOMPARE(colorOf(underline(tab)), selected ? cyan : clear);
            QCOMPARE(placeOf(underline(tab)).height(), 2.0);
            QCOMPARE(placeOf(underline(tab)).top() - placeOf(title).bottom(), 8.0);
            QCOMPARE(paddingOf(tab), QSizeF(12, 12));
        }
        QCOMPARE(left, double(width));
    }

    void showsEachTabAtOnce_data()
    {
        QTest::addColumn<int>("tab");
        for (int tab = StudioAnalyticsTab::count - 1; tab >= 0; --tab) {
            QTest::newRow(qPrintable(StudioAnalyticsTab::rawValue(tab))) << tab;
        }
    }
    void showsEachTabAtOnce()
    {
        QFETCH(int, tab);
        opens();
        m_window->click(tabs().at(tab));
        QCOMPARE(selectedTitles(), QStringList{StudioAnalyticsTab::title(tab).toUpper()});
        QCOMPARE(content()->property("source").toUrl(), StudioAnalyticsTab::view(tab));
        QCOMPARE(content()->property("status").toInt(), 1); // ready
        const auto *view = content()->property("item").value<QQuickItem *>();
        QCOMPARE(placeOf(view).left(), 0.0);
        QCOMPARE(placeOf(view).top(), placeOf(m_window->all(u"AnalyticsTabStrip"_s).value(0)).bottom());
        QCOMPARE(placeOf(view).bottomRight(), QPointF(980, 760));
        QCOMPARE(colorOf(m_view->rootObject()), u"#ff000000"_s);
        settle();
    }

    void endsAScreenWithItsTabAndMakesItAnewOnReturn()
    {
        opens();
        m_window->click(tabs().at(StudioAnalyticsTab::Monitoring));
        const QPointer<QObject> first = shown();
        m_window->click(tabs().at(StudioAnalyticsTab::Validation));
        QVERIFY(eventually([&] { return first.isNull(); }));
        m_window->click(tabs().at(StudioAnalyticsTab::Monitoring));
        QVERIFY(shown());
    }

    void makesNothingAnewForASecondPressOfTheSameTab()
    {
        opens();
        m_window->click(tabs().at(StudioAnalyticsTab::Monitoring));
        const QPointer<QObject> first = shown();
        m_window->click(tabs().at(StudioAnalyticsTab::Monitoring));
        settle();
        QVERIFY(first);
        QCOMPARE(shown(), first.data());
    }

    void leavesNothingRunningButTheManager()
    {
        opens();
        for (int tab = 0; tab < StudioAnalyticsTab::count; ++tab) {
            m_window->click(tabs().at(tab));
            m_world->clock.advance(2s);
            settle();
        }
        m_window->click(tabs().at(StudioAnalyticsTab::Validation));
        AnalyticsDataManager::shared();
        QVERIFY(eventually([this] { return m_world->clock.scheduledCount() == 1; }));
    }

    void goesThroughTheTabsByArrowKeys()
    {
        opens();
        m_window->click(tabs().at(1));
        m_window->press(Qt::Key_Right);
        QCOMPARE(selectedTitles(), QStringList{u"VALIDATION"_s});
        QVERIFY(tabs().at(2)->hasActiveFocus());
        m_window->press(Qt::Key_Left);
        m_window->press(Qt::Key_Left);
        QCOMPARE(selectedTitles(), QStringList{u"OVERVIEW"_s});
        m_window->press(Qt::Key_Left);
        QCOMPARE(selectedTitles(), QStringList{u"OVERVIEW"_s});
        // From where the keyboard is.
        m_window->press(Qt::Key_Tab);
        m_window->press(Qt::Key_Tab);
        m_window->press(Qt::Key_Right);
        QCOMPARE(selectedTitles(), QStringList{u"DEPLOYMENT"_s});
    }

    void readsItsTabsOut()
    {
        opens();
        auto *list = m_window->control(QAccessible::PageTabList, u"Analytics"_s);
        QVERIFY(list);
        auto *training = QAccessible::queryAccessibleInterface(tabs().at(1));
        QCOMPARE(training->role(), QAccessible::PageTab);
        QCOMPARE(training->text(QAccessible::Name), u"Training"_s);
        QVERIFY(!training->state().selected);
        training->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(selectedTitles(), QStringList{u"TRAINING"_s});
        QVERIFY(training->state().selected);
    }

    // Full telemetry

    void togglesFullTelemetryOnEveryTabAndMakesNothingAnew_data() { showsEachTabAtOnce_data(); }
    void togglesFullTelemetryOnEveryTabAndMakesNothingAnew()
    {
        QFETCH(int, tab);
        opens();
        m_window->click(tabs().at(tab));
        const QPointer<QObject> before = shown();
        const QQuickItem *toggle = m_window->control(QAccessible::CheckBox, u"Full Telemetry"_s);
        for (const bool full : {true, false}) {
            m_window->click(toggle);
            QCOMPARE(isTelemetryFull(), full);
            QCOMPARE(toggle->property("checked").toBool(), full);
            settle();
            QVERIFY(before);
            QCOMPARE(shown(), before.data());
        }
        // It is kept from tab to tab.
        m_window->click(toggle);
        m_window->click(tabs().at((tab + 1) % StudioAnalyticsTab::count));
        QVERIFY(isTelemetryFull());
    }

    // The system monitor

    void opensAndClosesTheSystemMonitorByItsButton()
    {
        opens();
        QCOMPARE(colorOf(m_window->symbol(u"cpu"_s)), gray);
        m_window->click(cpu());
        QVERIFY(showsSystemMonitor());
        QVERIFY(eventually([this] { return monitor() != nullptr; }));
        QCOMPARE(colorOf(m_window->symbol(u"cpu"_s)), cyan);
        QCOMPARE(placeOf(monitor()).size(), QSizeF(320, 280));
        QVERIFY(placeOf(monitor()).top() > placeOf(cpu()).bottom());
        QVERIFY(QRectF(0, 0, 980, 760).contains(placeOf(monitor())));

        m_window->click(cpu());
        QVERIFY(!showsSystemMonitor());
        QVERIFY(eventually([this] { return monitor() == nullptr; }));
        settle();
        QVERIFY(!showsSystemMonitor());
        QCOMPARE(colorOf(m_window->symbol(u"cpu"_s)), gray);
    }

    void closesTheSystemMonitorByEscape()
    {
        opens();
        m_window->click(cpu());
        QVERIFY(eventually([this] { return monitor() != nullptr; }));
        m_window->press(Qt::Key_Escape);
        QVERIFY(!showsSystemMonitor());
        QVERIFY(eventually([this] { return monitor() == nullptr; }));
    }

    void closesTheSystemMonitorByAClickOutside()
    {
        opens();
        m_window->click(cpu());
        QVERIFY(eventually([this] { return monitor() != nullptr; }));
        QTest::mouseClick(m_view.get(), Qt::LeftButton, {}, QPoint(100, 600));
        QVERIFY(!showsSystemMonitor());
        QVERIFY(eventually([this] { return monitor() == nullptr; }));
        // And the button opens it again.
        m_window->click(cpu());
        QVERIFY(showsSystemMonitor());
        QVERIFY(eventually([this] { return monitor() != nullptr; }));
    }

    void keepsTheSystemMonitorOpenForAClickInside()
    {
        opens();
        m_window->click(cpu());
        QVERIFY(eventually([this] { return monitor() != nullptr; }));
        m_window->click(m_window->text(u"SYSTEM MONITOR"_s));
        QVERIFY(showsSystemMonitor());
    }

    void startsTheSystemMonitorOnTheFirstDeviceEachTime()
    {
        opens();
        m_window->click(cpu());
        QVERIFY(eventually([this] { return monitor() != nullptr; }));
        QVERIFY(isChecked(device(u"GPU"_s)));
        m_window->click(device(u"CPU"_s));
        QVERIFY(isChecked(device(u"CPU"_s)));
        m_window->click(cpu());
        QVERIFY(eventually([this] { return monitor() == nullptr; }));
        m_window->click(cpu());
        QVERIFY(eventually([this] { return monitor() != nullptr; }));
        QVERIFY(isChecked(device(u"GPU"_s)));
    }

    void composesTheSystemMonitor()
    {
        opensMonitor();
        const QQuickItem *title = m_window->text(u"SYSTEM MONITOR"_s);
        QCOMPARE(fontOf(title), u"Geist Mono 12 900"_s);
        QCOMPARE(colorOf(title), white);
        const QQuickItem *picker = m_window->all(u"SegmentedPicker"_s, monitor()).value(0);
        QCOMPARE(placeOf(picker).width(), 100.0);
        QCOMPARE(placeOf(picker).right(), placeOf(monitor()).right() - 12);
        const QQuickItem *head = title->parentItem();
        QCOMPARE(colorOf(head), line);
        QCOMPARE(placeOf(head).top(), placeOf(monitor()).top());
        QCOMPARE(placeOf(picker).top() - placeOf(head).top(), 12.0);
        QCOMPARE(placeOf(head).bottom() - placeOf(picker).bottom(), 12.0);
        const QQuickItem *divider = m_window->all(u"Divider"_s, monitor()).value(0);
        QVERIFY(m_window->all(u"MonitorGauge"_s).size() == 4);
        QCOMPARE(colorOf(m_window->text(u"THROUGHPUT (TOK/S)"_s)), gray);
        QCOMPARE(fontOf(m_window->text(u"THROUGHPUT (TOK/S)"_s)), u"Geist Mono 10 700"_s);
        QVERIFY(divider);

        const QQuickItem *curve = m_window->all(u"Sparkline"_s).value(0);
        QCOMPARE(placeOf(curve).height(), 30.0);
        QCOMPARE(colorOf(curve), cyan);
        QCOMPARE(curve->property("lineWidth").toDouble(), 1.5);
        QCOMPARE(colorOf(curve->parentItem()), strip);
        QCOMPARE(curve->parentItem()->property("radius").toDouble(), 4.0);
        QCOMPARE(placeOf(curve).left() - placeOf(monitor()).left(), 16.0);
        QCOMPARE(placeOf(monitor()).right() - placeOf(curve).right(), 16.0);
        QCOMPARE(placeOf(monitor()).bottom() - placeOf(curve).bottom(), 16.0);
        QCOMPARE(placeOf(curve).top() - placeOf(m_window->text(u"THROUGHPUT (TOK/S)"_s)).bottom(), 4.0);
    }

    void showsFourGaugesWithoutDecimals()
    {
        opensMonitor();
        const QList<QStringList> texts{{u"82"_s, u"TEMP"_s, u"°C"_s}, {u"94"_s, u"UTIL"_s, u"%"_s},
            {u"320"_s, u"POWER"_s, u"W"_s}, {u"2"_s, u"CLOCK"_s, u"GHz"_s}};
        const QList<double> fractions{82.0 / 100, 94.0 / 100, 320.0 / 450, 2.1 / 3};
        const QStringList colors{green, yellow, orange, cyan};
        const auto gauges = m_window->all(u"MonitorGauge"_s);
        for (int i = 0; i < 4; ++i) {
            QStringList shown = m_window->texts(gauges[i]);
            shown.sort();
            QStringList expected = texts[i];
            expected.sort();
            QCOMPARE(shown, expected);
            const QQuickItem *ring = m_window->all(u"CompactGauge"_s, gauges[i]).value(0);
            QCOMPARE(ring->property("fraction").toDouble(), fractions[i]);
            QCOMPARE(colorOf(ring), colors[i]);
            const QQuickItem *figure = m_window->text(texts[i][0], gauges[i]);
            QCOMPARE(fontOf(figure), u"Geist Mono 20 700"_s);
            QCOMPARE(colorOf(figure), colors[i]);
            QCOMPARE(fontOf(m_window->text(texts[i][1], gauges[i])), u"Geist Mono 10 400"_s);
            QCOMPARE(colorOf(m_window->text(texts[i][1], gauges[i])), gray);
            QCOMPARE(fontOf(m_window->text(texts[i][2], gauges[i])), u"Inter 10 700"_s);
            QCOMPARE(colorOf(m_window->text(texts[i][2], gauges[i])), white);
        }
        // Two columns, 16 points apart and off the edges.
        QCOMPARE(placeOf(gauges[0]).left() - placeOf(monitor()).left(), 16.0);
        QCOMPARE(gapAcross(gauges[0], gauges[1]), 16.0);
        QCOMPARE(placeOf(gauges[2]).left(), placeOf(gauges[0]).left());
        QCOMPARE(placeOf(gauges[2]).top() - placeOf(gauges[0]).bottom(), 16.0);
        QCOMPARE(placeOf(monitor()).right() - placeOf(gauges[1]).right(), 16.0);
    }

    void showsAllOfTheSystemMonitorWhereItIsLow_data()
    {
        QTest::addColumn<int>("width");
        QTest::newRow("narrow") << 660;
        QTest::newRow("wide") << 1652;
    }
    void showsAllOfTheSystemMonitorWhereItIsLow()
    {
        QFETCH(int, width);
        open(u"Analytics/SystemPerformanceMonitor.qml"_s, {width, 160});
        QList<QQuickItem *> parts = m_window->all(u"MonitorGauge"_s);
        QCOMPARE(parts.size(), 4);
        parts.append(m_window->all(u"Sparkline"_s));
        double right = 0;
        for (const QQuickItem *part : parts) {
            QVERIFY(QRectF(16, 49, width - 32, 111).contains(placeOf(part)));
            QVERIFY(placeOf(part).left() >= right + 16);
            for (const QQuickItem *text : m_window->all(u"Label"_s, part)) {
                QVERIFY(placeOf(part).contains(placeOf(text)));
            }
            right = placeOf(part).right();
        }
        QVERIFY(placeOf(parts.constLast()).width() >= 150);
    }

    void showsTheSameFiguresForBothDevicesUnderANewCurve()
    {
        opensMonitor();
        const QStringList before = m_window->texts(monitor());
        const QQuickItem *curve = m_window->all(u"Sparkline"_s).value(0);
        QVariant points = curve->property("points");
        for (const QString &name : {u"CPU"_s, u"GPU"_s}) {
            m_window->click(device(name));
            QVERIFY(isChecked(device(name)));
            QCOMPARE(m_window->texts(monitor()), before);
            QVERIFY(curve->property("points") != points);
            points = curve->property("points");
        }
        // The choice that holds is no change.
        m_window->click(device(u"GPU"_s));
        QCOMPARE(curve->property("points"), points);
        m_world->clock.advance(1min);
        settle();
        QCOMPARE(curve->property("points"), points);
    }

    // Like quantities

    void keepsTheFiguresOfItsScreensApart()
    {
        opens();
        m_window->click(tabs().at(StudioAnalyticsTab::Monitoring));
        m_window->click(cpu());
        QVERIFY(eventually([this] { return monitor() != nullptr; }));
        const auto *page = qobject_cast<QQuickItem *>(shown());
        QVERIFY(page);
        const QQuickItem *header = m_window->all(u"DashboardHeader"_s).value(0);
        const auto contains = [this](const QQuickItem *in, const QStringList &texts) {
            const QStringList shown = m_window->texts(in);
            return std::all_of(texts.begin(), texts.end(), [&](const QString &text) { return shown.contains(text); });
        };
        QVERIFY(contains(header, {u"82°C"_s, u"94%"_s, u"14GB"_s, u"4.2k"_s}));
        QVERIFY(contains(monitor(), {u"82"_s, u"94"_s}));
        QVERIFY(contains(page, {u"34"_s, u"°C"_s, u"92%"_s, u"18"_s, u"GB"_s, u"Epoch 2/5"_s}));
        QVERIFY(m_window->control(QAccessible::StaticText, u"4.2k"_s, page));
        QCOMPARE(AnalyticsDataManager::shared().totalEpochs(), 10);
        QCOMPARE(AnalyticsDataManager::shared().tokensPerSec(), 4250.0);
    }

private:
    void opens(QSize size = {980, 760}) { open(u"Analytics/AnalyticsDashboard.qml"_s, size); }

    void opensMonitor()
    {
        opens();
        m_window->click(cpu());
        QVERIFY(eventually([this] { return monitor() != nullptr; }));
    }

    QList<QQuickItem *> indicators() const { return m_window->all(u"StatusIndicator"_s); }
    QList<QQuickItem *> tabs() const { return m_window->all(u"AnalyticsTabButton"_s); }
    QQuickItem *content() const { return m_window->all(u"QQuickLoader"_s, m_view->rootObject()).value(0); }
    QObject *shown() const { return content()->property("item").value<QObject *>(); }
    QQuickItem *cpu() const { return m_window->button(u"System Monitor"_s); }
    QQuickItem *monitor() const { return m_window->all(u"SystemPerformanceMonitor"_s).value(0); }
    QQuickItem *device(const QString &name) const
    {
        return m_window->control(QAccessible::RadioButton, name, monitor());
    }
    QQuickItem *underline(const QQuickItem *tab) const
    {
        const auto *words = tab->property("contentItem").value<QQuickItem *>();
        return m_window->all(u"QQuickRectangle"_s, words).value(0);
    }
    bool isTelemetryFull() const { return m_view->rootObject()->property("isTelemetryFull").toBool(); }
    bool showsSystemMonitor() const { return m_view->rootObject()->property("showSystemMonitor").toBool(); }
    static bool isChecked(QQuickItem *item) { return QAccessible::queryAccessibleInterface(item)->state().checked; }

    QStringList selectedTitles() const
    {
        QStringList titles;
        for (QQuickItem *tab : tabs()) {
            if (QAccessible::queryAccessibleInterface(tab)->state().selected) {
                titles += m_window->texts(tab);
            }
        }
        return titles;
    }
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_AnalyticsDashboard)
#include "tst_AnalyticsDashboard.moc"
