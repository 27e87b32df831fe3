#include "analytics/thresholds/DataThresholdControlState.h"
#include "support/ViewTest.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace quillmere;
using namespace quillmere::testing;
using namespace std::chrono_literals;

namespace {

const QString white = u"#ffffffff"_s;
const QString gray = u"#ff98989d"_s;
const QString cyan = u"#ff5ac8f5"_s;

const QStringList atFirst{u"DATA CONTROLS"_s, u"TOKEN LIMITS"_s, u"Min Tokens"_s, u"10"_s, u"Max Tokens"_s, u"2048"_s,
    u"QUALITY FILTERS"_s, u"Max Duplicates"_s, u"5.0%"_s, u"Min Quality Score"_s, u"0.75"_s, u"Max Imbalance"_s,
    u"3.0:1"_s, u"PREPROCESSING"_s, u"Remove Outliers"_s, u"Normalize Text"_s, u"Stopword Filter"_s, u"TRUNCATION"_s,
    u"Start"_s, u"Middle"_s, u"End"_s, u"DATASET SIZE LIMIT"_s, u"100000 rows"_s};

} // namespace

class tst_DataThresholdControlView : public ViewTest {
    Q_OBJECT

private slots:
    void init()
    {
        ViewTest::init();
        open();
    }

    void showsEveryValueAsItIsBeforeAnyChange()
    {
        QCOMPARE(m_window->texts(), atFirst);
        QVERIFY(isOn(u"Remove Outliers"_s));
        QVERIFY(!isOn(u"Normalize Text"_s));
        QVERIFY(!isOn(u"Stopword Filter"_s));
        QCOMPARE(chosen(), QStringList({u"Start"_s}));
        QCOMPARE(state().minLabelFreq(), 0.5);
    }

    void movesEachSliderBetweenItsEnds_data()
    {
        QTest::addColumn<QString>("slider");
        QTest::addColumn<QString>("least");
        QTest::addColumn<QString>("most");
        QTest::newRow("least tokens") << u"Min Tokens"_s << u"0"_s << u"100"_s;
        QTest::newRow("most tokens") << u"Max Tokens"_s << u"512"_s << u"8192"_s;
        QTest::newRow("duplicates") << u"Max Duplicates"_s << u"0.0%"_s << u"20.0%"_s;
        QTest::newRow("quality") << u"Min Quality Score"_s << u"0.00"_s << u"1.00"_s;
        QTest::newRow("imbalance") << u"Max Imbalance"_s << u"1.0:1"_s << u"10.0:1"_s;
    }
    void movesEachSliderBetweenItsEnds()
    {
        QFETCH(QString, slider);
        QFETCH(QString, least);
        QFETCH(QString, most);
        const auto *it = m_window->control(QAccessible::Slider, slider);
        drag(it, Qt::LeftEdge);
        QCOMPARE(figureOf(slider), least);
        drag(it, Qt::RightEdge);
        QCOMPARE(figureOf(slider), most);
        QCOMPARE(othersThan(slider), others(slider));
    }

    void slidesWithoutSteps()
    {
        auto *it = m_window->control(QAccessible::Slider, u"Min Tokens"_s);
        QAccessible::queryAccessibleInterface(it)->valueInterface()->setCurrentValue(12.345);
        QCOMPARE(state().minTokens(), 12.345);
        QCOMPARE(figureOf(u"Min Tokens"_s), u"12"_s);
    }

    void neverLetsTheLeastTokensPassTheMost()
    {
        drag(m_window->control(QAccessible::Slider, u"Min Tokens"_s), Qt::RightEdge);
        drag(m_window->control(QAccessible::Slider, u"Max Tokens"_s), Qt::LeftEdge);
        QCOMPARE(state().minTokens(), 100.0);
        QCOMPARE(state().maxTokens(), 512.0);
    }

    void turnsEachSwitchByItself()
    {
        for (const QString &name : {u"Remove Outliers"_s, u"Normalize Text"_s, u"Stopword Filter"_s}) {
            const bool before = isOn(name);
            m_window->click(m_window->control(QAccessible::CheckBox, name));
            QCOMPARE(isOn(name), !before);
        }
        QVERIFY(!isOn(u"Remove Outliers"_s));
        QVERIFY(isOn(u"Normalize Text"_s));
        QVERIFY(isOn(u"Stopword Filter"_s));
        QCOMPARE(m_window->texts(), atFirst);
    }

    void picksWhereToTruncate()
    {
        m_window->click(m_window->control(QAccessible::RadioButton, u"End"_s));
        QCOMPARE(state().truncationStrategy(), 2);
        QCOMPARE(chosen(), QStringList({u"End"_s}));
        m_window->press(Qt::Key_Left);
        QCOMPARE(state().truncationStrategy(), 1);
        QCOMPARE(chosen(), QStringList({u"Middle"_s}));
    }

    void stepsTheLimitByAThousand()
    {
        step(-1);
        QVERIFY(m_window->shows(u"99000 rows"_s));
        step(1);
        step(1);
        QVERIFY(m_window->shows(u"101000 rows"_s));
    }

    void stepsTheLimitToZeroAndBelow()
    {
        for (int i = 0; i < 100; ++i) {
            step(-1);
        }
        QVERIFY(m_window->shows(u"0 rows"_s));
        step(-1);
        QVERIFY(m_window->shows(u"-1000 rows"_s));
    }

    void stepsTheLimitOnWhileItIsHeld()
    {
        const QPoint up = placeOf(stepper()).topLeft().toPoint() + QPoint(10, 6);
        QTest::mousePress(m_view.get(), Qt::LeftButton, {}, up);
        m_world->clock.advance(600ms);
        QTest::mouseRelease(m_view.get(), Qt::LeftButton, {}, up);
        QCOMPARE(state().datasetLimit(), 104000);
    }

    void goesFromTheFirstControlToTheLastByTab()
    {
        open(500);
        QStringList names;
        for (int i = 0; i < 11; ++i) {
            m_window->press(Qt::Key_Tab);
            const auto *it = QAccessible::queryAccessibleInterface(m_view->activeFocusItem());
            names.append(it->text(QAccessible::Name));
        }
        QCOMPARE(names,
            QStringList({u"Data controls"_s, u"Min Tokens"_s, u"Max Tokens"_s, u"Max Duplicates"_s,
                u"Min Quality Score"_s, u"Max Imbalance"_s, u"Remove Outliers"_s, u"Normalize Text"_s,
                u"Stopword Filter"_s, u"Start"_s, u"Dataset size limit"_s}));
        // The last one stood below the lower edge.
        QVERIFY(placeOf(m_view->activeFocusItem()).bottom() <= m_view->height());
    }

    void hasItsLooks()
    {
        QCOMPARE(colorOf(m_view->rootObject()), u"#ff161616"_s);
        QCOMPARE(fontOf(m_window->text(u"DATA CONTROLS"_s)), u"Geist Mono 12 900"_s);
        QCOMPARE(colorOf(m_window->text(u"DATA CONTROLS"_s)), gray);
        QVERIFY(m_window->symbol(u"slider.horizontal.3"_s));
        QCOMPARE(fontOf(m_window->text(u"TOKEN LIMITS"_s)), u"Geist Mono 10 700"_s);
        QCOMPARE(colorOf(m_window->text(u"TOKEN LIMITS"_s)), gray);
        QCOMPARE(fontOf(m_window->text(u"Min Tokens"_s)), u"Geist Mono 11 400"_s);
        QCOMPARE(colorOf(m_window->text(u"Min Tokens"_s)), gray);
        QCOMPARE(fontOf(m_window->text(u"2048"_s)), u"Geist Mono 11 400"_s);
        QCOMPARE(colorOf(m_window->text(u"2048"_s)), cyan);
        QCOMPARE(fontOf(m_window->text(u"Normalize Text"_s)), u"Geist Mono 12 400"_s);
        QCOMPARE(colorOf(m_window->text(u"Normalize Text"_s)), white);
        QCOMPARE(fontOf(m_window->text(u"100000 rows"_s)), u"Geist Mono 12 400"_s);
        QCOMPARE(colorOf(m_window->text(u"100000 rows"_s)), cyan);

        const QList<QQuickItem *> lines = m_window->all(u"Divider"_s);
        QList<QRectF> edges;
        int between = 0;
        for (const auto *line : lines) {
            QVERIFY(colorOf(line) == u"#ff333333"_s || line->width() == 1);
            if (line->height() == m_view->height()) {
                edges.append(placeOf(line));
            } else if (line->height() == 1) {
                ++between;
            }
        }
        QCOMPARE(edges, QList<QRectF>({QRectF(0, 0, 1, m_view->height())}));
        QCOMPARE(between, 4);
    }

    void keepsItsDistances()
    {
        const auto *limits = m_window->text(u"TOKEN LIMITS"_s);
        const auto *least = m_window->text(u"Min Tokens"_s);
        const auto *slider = m_window->control(QAccessible::Slider, u"Min Tokens"_s);
        QCOMPARE(placeOf(least).top() - placeOf(limits).bottom(), 12.0);
        QCOMPARE(placeOf(slider).top() - placeOf(least).bottom(), 4.0);
        QCOMPARE(placeOf(m_window->text(u"Max Tokens"_s)).top() - placeOf(slider).bottom(), 16.0);
        const auto rowOf = [&](const QString &name) { return placeOf(m_window->control(QAccessible::CheckBox, name)); };
        QCOMPARE(rowOf(u"Normalize Text"_s).top() - rowOf(u"Remove Outliers"_s).bottom(), 12.0);
        QCOMPARE(placeOf(m_window->text(u"10"_s)).right(), placeOf(slider).right());
    }

    // The view is made anew on each visit.
    void forgetsItsValuesWhenItIsLeft()
    {
        drag(m_window->control(QAccessible::Slider, u"Min Tokens"_s), Qt::RightEdge);
        step(1);
        open();
        QCOMPARE(m_window->texts(), atFirst);
    }

    void announcesEachWriteBeforeIt()
    {
        auto &thresholds = state();
        QList<std::pair<QString, QVariant>> announced;
        connect(&thresholds, &DataThresholdControlState::willChange, this, [&](const QString &field) {
            announced.append({field, thresholds.property(field.toLatin1().constData())});
        });
        thresholds.setMinTokens(20);
        thresholds.setMinTokens(20);
        thresholds.stepDatasetLimit(-1);
        thresholds.setRemoveOutliers(false);
        const QList<std::pair<QString, QVariant>> expected{
            {u"minTokens"_s, 10.0}, {u"minTokens"_s, 20.0}, {u"datasetLimit"_s, 100000.0}, {u"removeOutliers"_s, true}};
        QCOMPARE(announced, expected);
    }

private:
    void open(int height = 800) { ViewTest::open(u"Analytics/DataThresholdControlView.qml"_s, QSize(320, height)); }

    DataThresholdControlState &state() const { return *m_view->rootObject()->findChild<DataThresholdControlState *>(); }

    bool isOn(const QString &name) const
    {
        return QAccessible::queryAccessibleInterface(m_window->control(QAccessible::CheckBox, name))->state().checked;
    }

    QStringList chosen() const
    {
        QStringList names;
        for (const QString &name : {u"Start"_s, u"Middle"_s, u"End"_s}) {
            const auto *segment = m_window->control(QAccessible::RadioButton, name);
            if (QAccessible::queryAccessibleInterface(const_cast<QQuickItem *>(segment))->state().checked) {
                names.append(name);
            }
        }
        return names;
    }

    // The text behind the slider's name.
    QString figureOf(const QString &slider) const
    {
        const QStringList texts = m_window->texts();
        return texts.at(texts.indexOf(slider) + 1);
    }

    QStringList othersThan(const QString &slider) const
    {
        QStringList texts = m_window->texts();
        texts.removeAt(texts.indexOf(slider) + 1);
        return texts;
    }
    static QStringList others(const QString &slider)
    {
        QStringList texts = atFirst;
        texts.removeAt(texts.indexOf(slider) + 1);
        return texts;
    }

    // From its middle over one of its ends.
    void drag(const QQuickItem *slider, Qt::Edge end)
    {
        const QPoint middle = placeOf(slider).center().toPoint();
        const QPoint beyond(end == Qt::LeftEdge ? 2 : m_view->width() - 2, middle.y());
        QTest::mousePress(m_view.get(), Qt::LeftButton, {}, middle);
        QTest::mouseMove(m_view.get(), beyond);
        QTest::mouseRelease(m_view.get(), Qt::LeftButton, {}, beyond);
    }

    const QQuickItem *stepper() const { return m_window->control(QAccessible::SpinBox, u"Dataset size limit"_s); }

    void step(int direction)
    {
        const QPoint half(10, direction > 0 ? 6 : 18);
        QTest::mouseClick(m_view.get(), Qt::LeftButton, {}, placeOf(stepper()).topLeft().toPoint() + half);
    }
};

QTEST_MAIN(tst_DataThresholdControlView)
#include "tst_DataThresholdControlView.moc"
