// What a bar chart draws, pixel by pixel, for what it is given.

#include "app/theme/Color.h"
#include "charts/BarMarks.h"
#include "charts/Picture.h"

#include <QAccessible>
#include <QSignalSpy>

#include <cmath>

using namespace Qt::StringLiterals;
using namespace quillmere;
using namespace quillmere::testing;

namespace {

// What a screen's state is to a chart.
class State : public QObject {
    Q_OBJECT
    Q_PROPERTY(QList<quillmere::ChartBar> bars MEMBER bars NOTIFY barsChanged)

public:
    explicit State(const QList<ChartBar> &bars) : bars(bars) { }
    void set(const QList<ChartBar> &others)
    {
        bars = others;
        emit barsChanged();
    }
    QList<ChartBar> bars;

signals:
    void barsChanged();
};

QList<ChartBar> twenty(double value = 1000)
{
    QList<ChartBar> bars;
    for (int i = 0; i < 20; ++i) {
        bars.append(ChartBar::at(i * 100, value * (i % 5 + 1) / 5, Color::green()));
    }
    return bars;
}

QList<ChartBar> three()
{
    return {ChartBar::labelled(u"Positive"_s, 4500, Color::blue()),
        ChartBar::labelled(u"Negative"_s, 3200, Color::red()), ChartBar::labelled(u"Neutral"_s, 2100, Color::gray())};
}

const auto chart = u"BarChart { objectName: \"it\"; x: 100; y: 100; width: 400; height: 300; bars: root.given.bars }"_s;

QQuickItem *plotOf(const Picture &picture)
{
    return picture.item()->property("plot").value<QQuickItem *>();
}

QRectF placeOf(const QQuickItem *item)
{
    return item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
}

// Where bars of a colour stand in a row of the window: first and last pixel of each.
QList<QPair<int, int>> barsIn(const QImage &image, int y, const QColor &color)
{
    QList<QPair<int, int>> bars;
    bool inside = false;
    for (int x = 0; x < image.width(); ++x) {
        const bool is = isLike(image.pixelColor(x, y), color);
        if (is && !inside) {
            bars.append({x, x});
        } else if (is) {
            bars.last().second = x;
        }
        inside = is;
    }
    return bars;
}

// Counts its paintings.
class CountedMarks : public BarMarks {
public:
    using BarMarks::BarMarks;
    void paint(QPainter *painter) override
    {
        ++paintings;
        BarMarks::paint(painter);
    }
    int paintings = 0;
};

} // namespace

class tst_BarChart : public QObject {
    Q_OBJECT

private slots:
    void drawsABarOverEachNumber();
    void drawsABarOverEachLabel();
    void isAsHighAsItsValue();
    void startsAtZero();
    void hangsWhatIsNegativeBelowTheLineOfZeros();
    void drawsNoBarForZeroOrWhatIsNoNumber();
    void bearsAnyNumbers_data();
    void bearsAnyNumbers();
    void drawsHardEdges();
    void cutsLongLabelsToTheirBands();
    void followsTheStateThatItIsBoundTo();
    void isPaintedOnlyWhenSomethingChanged();
    void isBlankWithoutBars();
    void speaksItsData();
};

void tst_BarChart::drawsABarOverEachNumber()
{
    State state(twenty());
    Picture picture(chart, &state);
    const QRectF plot = placeOf(plotOf(picture));
    const auto bars = barsIn(picture.grab(), int(plot.bottom()) - 10, Color::green());
    QCOMPARE(bars.size(), 20);
    const double band = plot.width() / 20;
    for (int i = 0; i < 20; ++i) {
        const double middle = (bars[i].first + bars[i].second + 1) / 2.0;
        QVERIFY(std::abs(middle - (plot.left() + (i + 0.5) * band)) <= 1);
        const int width = bars[i].second - bars[i].first + 1;
        QVERIFY(width >= band * 0.6 && width <= band * 0.8);
    }
    // The label of a number stands below its bar.
    for (const QQuickItem *label : picture.all(u"Label"_s, picture.item())) {
        if (placeOf(label).top() > plot.bottom()) {
            const double number = label->property("text").toString().toDouble();
            QVERIFY(std::abs(placeOf(label).center().x() - (plot.left() + (number / 100 + 0.5) * band)) <= 1);
        }
    }
}

void tst_BarChart::drawsABarOverEachLabel()
{
    State state(three());
    Picture picture(chart, &state);
    const QRectF plot = placeOf(plotOf(picture));
    const QImage image = picture.grab();
    QStringList below;
    for (const QQuickItem *label : picture.all(u"Label"_s, picture.item())) {
        if (placeOf(label).top() > plot.bottom()) {
            below.append(label->property("text").toString());
            const QColor color = state.bars[below.size() - 1].color;
            const auto bars = barsIn(image, int(plot.bottom()) - 10, color);
            QCOMPARE(bars.size(), 1);
            const double middle = (bars[0].first + bars[0].second + 1) / 2.0;
            QVERIFY(std::abs(placeOf(label).center().x() - middle) <= 1);
        }
    }
    QCOMPARE(below, QStringList({u"Positive"_s, u"Negative"_s, u"Neutral"_s}));
    // Between labels there is no line: the grid's are those of the counts.
    for (int x = int(plot.left()); x < plot.right(); ++x) {
        QCOMPARE(image.pixelColor(x, int(plot.top()) + 5), QColor(Qt::black));
    }
}

void tst_BarChart::isAsHighAsItsValue()
{
    State state(three());
    Picture picture(chart, &state);
    const QQuickItem *plot = plotOf(picture);
    for (int i = 0; i < 3; ++i) {
        const double x = (i + 0.5) / 3 * plot->width();
        const double top = plot->height() * (1 - state.bars[i].value / 5000);
        QVERIFY(isLike(picture.at(plot, {x, top + 2}), state.bars[i].color));
        QVERIFY(isDark(picture.at(plot, {x, top - 2})));
    }
}

void tst_BarChart::startsAtZero()
{
    State state({ChartBar::at(0, 900, Color::green()), ChartBar::at(1, 1000, Color::green())});
    Picture picture(chart, &state);
    QVERIFY(picture.labels(picture.item()).contains(u"0"_s));
    const QQuickItem *plot = plotOf(picture);
    QVERIFY(isLike(picture.at(plot, {plot->width() / 4, plot->height() - 1}), Color::green()));
    QVERIFY(isLike(picture.at(plot, {plot->width() / 4, plot->height() * 0.12}), Color::green()));
    QVERIFY(isDark(picture.at(plot, {plot->width() / 4, plot->height() * 0.08})));
}

void tst_BarChart::hangsWhatIsNegativeBelowTheLineOfZeros()
{
    State state({ChartBar::at(0, -40, Color::red()), ChartBar::at(1, 40, Color::green())});
    Picture picture(chart, &state);
    const QQuickItem *plot = plotOf(picture);
    const double left = plot->width() / 4;
    const double right = plot->width() * 3 / 4;
    QVERIFY(isLike(picture.at(plot, {left, plot->height() * 0.95}), Color::red()));
    QVERIFY(isDark(picture.at(plot, {left, plot->height() * 0.45})));
    QVERIFY(isLike(picture.at(plot, {right, plot->height() * 0.05}), Color::green()));
    QVERIFY(isDark(picture.at(plot, {right, plot->height() * 0.55})));
}

void tst_BarChart::drawsNoBarForZeroOrWhatIsNoNumber()
{
    State state({ChartBar::at(0, 0, Color::green()), ChartBar::at(1, qQNaN(), Color::green()),
        ChartBar::at(2, qInf(), Color::green()), ChartBar::at(3, 5, Color::green()),
        ChartBar::at(qQNaN(), 5, Color::green())});
    Picture picture(chart, &state);
    const QRectF plot = placeOf(plotOf(picture));
    const auto bars = barsIn(picture.grab(), int(plot.bottom()) - 1, Color::green());
    QCOMPARE(bars.size(), 1);
    QVERIFY(bars[0].first > plot.center().x());
    QVERIFY(!picture.labels(picture.item()).join(u' ').contains(u"n"_s));
}

void tst_BarChart::bearsAnyNumbers_data()
{
    QTest::addColumn<QList<double>>("values");
    QTest::newRow("zeros") << QList<double>{0, 0, 0};
    QTest::newRow("one") << QList<double>{3};
    QTest::newRow("equal") << QList<double>{7, 7, 7};
    QTest::newRow("huge") << QList<double>{1.7e308, -1.7e308};
    QTest::newRow("tiny") << QList<double>{1e-310, 2e-310};
    QTest::newRow("not finite") << QList<double>{qQNaN(), 1, -qInf()};
}

void tst_BarChart::bearsAnyNumbers()
{
    QFETCH(QList<double>, values);
    QList<ChartBar> bars;
    for (const double value : values) {
        bars.append(ChartBar::at(double(bars.size()), value, Color::green()));
    }
    State state(bars);
    Picture picture(chart, &state);
    picture.grab();
    const QStringList said =
        picture.labels(picture.item()) + QStringList(picture.item()->property("summary").toString());
    QVERIFY(said.size() >= 3);
    for (const QString &text : said) {
        QVERIFY2(!text.contains(u"nan"_s) && !text.contains(u"inf"_s), qPrintable(text));
    }
}

void tst_BarChart::drawsHardEdges()
{
    State state(twenty());
    Picture picture(chart, &state);
    const QRectF plot = placeOf(plotOf(picture));
    const QImage image = picture.grab();
    for (int x = int(plot.left()); x < plot.right(); ++x) {
        const QColor color = image.pixelColor(x, int(plot.bottom()) - 10);
        QVERIFY(isLike(color, Color::green()) || isDark(color));
    }
}

void tst_BarChart::cutsLongLabelsToTheirBands()
{
    State state({ChartBar::labelled(u"Contradiction of the premise by all that follows"_s, 3, Color::blue()),
        ChartBar::labelled(u"Neither of the two, nor anything in between"_s, 2, Color::red())});
    Picture picture(chart, &state);
    picture.item()->setWidth(160);
    const QRectF plot = placeOf(plotOf(picture));
    QList<QRectF> below;
    for (const QQuickItem *label : picture.all(u"Label"_s, picture.item())) {
        if (placeOf(label).top() > plot.bottom()) {
            below.append(placeOf(label));
        }
    }
    QCOMPARE(below.size(), 2);
    QVERIFY(below[0].right() < below[1].left());
    QVERIFY(below[1].right() <= placeOf(picture.item()).right());
}

void tst_BarChart::followsTheStateThatItIsBoundTo()
{
    State state(twenty());
    Picture picture(chart, &state);
    const QQuickItem *plot = plotOf(picture);
    const auto labels = picture.all(u"Label"_s, picture.item());
    const QPointF first(plot->width() / 40, plot->height() * 0.5);
    QVERIFY(isDark(picture.at(plot, first)));

    QList<ChartBar> others = twenty();
    others[0].value = 990;
    state.set(others);
    QVERIFY(isLike(picture.at(plot, first), Color::green()));
    // The axes have stayed what they were, down to the items.
    QCOMPARE(picture.all(u"Label"_s, picture.item()), labels);
}

void tst_BarChart::isPaintedOnlyWhenSomethingChanged()
{
    Picture picture(u""_s);
    CountedMarks marks(picture.view.rootObject());
    marks.setSize(QSizeF(200, 100));
    marks.setBars(twenty());
    picture.grab();
    picture.grab();
    QCOMPARE(marks.paintings, 1);
    marks.setBars(twenty());
    picture.grab();
    QCOMPARE(marks.paintings, 1);
    marks.setBars(twenty(999));
    picture.grab();
    QCOMPARE(marks.paintings, 2);
}

void tst_BarChart::isBlankWithoutBars()
{
    State state({});
    Picture picture(chart, &state);
    const QImage image = picture.grab();
    QImage blank(image.size(), image.format());
    blank.fill(Qt::black);
    QCOMPARE(image, blank);
}

void tst_BarChart::speaksItsData()
{
    State state(three());
    Picture picture(chart, &state);
    const auto *spoken = QAccessible::queryAccessibleInterface(picture.item());
    QVERIFY(spoken);
    QCOMPARE(spoken->role(), QAccessible::Chart);
    QCOMPARE(spoken->text(QAccessible::Name), u"Positive 4500, Negative 3200, Neutral 2100"_s);
    state.set(twenty());
    QCOMPARE(spoken->text(QAccessible::Name), u"20 values from 200 to 1000"_s);
    state.set({});
    QCOMPARE(spoken->text(QAccessible::Name), u"No data"_s);
}

QTEST_MAIN(tst_BarChart)
#include "tst_BarChart.moc"
