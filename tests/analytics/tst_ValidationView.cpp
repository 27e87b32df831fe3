#include "analytics/validation/ValidationCurves.h"
#include "app/theme/Color.h"
#include "charts/LineMarks.h"
#include "support/ViewTest.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace quillmere;
using namespace quillmere::testing;
using namespace std::chrono_literals;

class tst_ValidationView : public ViewTest {
    Q_OBJECT

private slots:
    void computesItsCurvesToTheLastDigit()
    {
        const auto train = ValidationCurves::trainLoss();
        const auto validation = ValidationCurves::validationLoss();
        const auto accuracy = ValidationCurves::accuracy();
        QCOMPARE(train.size(), 20);
        QCOMPARE(validation.size(), 20);
        QCOMPARE(accuracy.size(), 20);
        for (int i = 0; i < 20; ++i) {
            // QCOMPARE would take what is close to it.
            QVERIFY(train.at(i).x() == i && train.at(i).y() == 1.0 / (i + 1));
            QVERIFY(validation.at(i).x() == i && validation.at(i).y() == 1.1 / (i + 1) + 0.05);
            QVERIFY(accuracy.at(i).x() == i && accuracy.at(i).y() == i * 0.02 + 0.5);
        }
        QCOMPARE(train.first().y(), 1.0);
        QCOMPARE(train.last().y(), 0.05);
        QCOMPARE(validation.first().y(), 1.15);
        QCOMPARE(validation.last().y(), 0.105);
        QCOMPARE(accuracy.first().y(), 0.5);
        QCOMPARE(accuracy.last().y(), 0.88);
    }

    void drawsItsCurvesAsStraightLines()
    {
        open();
        const auto marks = m_view->rootObject()->findChildren<LineMarks *>();
        QCOMPARE(marks.size(), 2);
        QCOMPARE(marks.at(0)->series().size(), 2);
        const auto *train = marks.at(0)->series().at(0);
        const auto *validation = marks.at(0)->series().at(1);
        const auto *accuracy = marks.at(1)->series().at(0);
        QCOMPARE(train->name(), u"Train"_s);
        QCOMPARE(train->color(), Color::green());
        QCOMPARE(train->points(), ValidationCurves::trainLoss());
        QCOMPARE(validation->name(), u"Val"_s);
        QCOMPARE(validation->color(), Color::yellow());
        QCOMPARE(validation->points(), ValidationCurves::validationLoss());
        QCOMPARE(accuracy->name(), u"Acc"_s);
        QCOMPARE(accuracy->color(), Color::cyan());
        QCOMPARE(accuracy->points(), ValidationCurves::accuracy());
        for (const auto *mark : marks) {
            QVERIFY(!mark->isSmoothed());
        }
    }

    void showsItsHeadAndBadges()
    {
        open();
        const auto *title = m_window->text(u"VALIDATION RESULTS"_s);
        QCOMPARE(fontOf(title), u"Inter 24 700"_s);
        QCOMPARE(colorOf(title), u"#ffffffff"_s);
        QStringList badges;
        for (const auto *badge : m_window->all(u"Badge"_s)) {
            badges.append(badge->property("text").toString() + u' ' + colorOf(badge, "tint"));
            const auto *label = m_window->all(u"Label"_s, badge).first();
            QCOMPARE(fontOf(label), u"Inter 10 700"_s);
            QCOMPARE(placeOf(label).left() - placeOf(badge).left(), 6.0);
            QCOMPARE(badge->height() - label->implicitHeight(), 12.0);
            QCOMPARE(badge->property("radius").toInt(), 4);
        }
        QCOMPARE(badges, QStringList({u"STABLE #ff32d74b"_s, u"NO OVERFIT #ff5ac8f5"_s, u"F1: 0.92 #ffbf5af2"_s}));
    }

    void keepsItsLookFromItsHeadToItsMatrix()
    {
        open(QSize(1190, 900));
        const auto *title = m_window->text(u"VALIDATION RESULTS"_s);
        QCOMPARE(placeOf(title).left(), 24.0);
        const auto *head = title->parentItem()->parentItem();
        QCOMPARE(placeOf(head).top(), 24.0);

        const QStringList titles{u"TRAIN VS VAL LOSS"_s, u"ACCURACY CURVE"_s, u"CONFUSION MATRIX"_s};
        const auto cards = m_window->all(u"ChartCard"_s);
        QCOMPARE(cards.size(), 3);
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(colorOf(cards[i]), u"#ff1a1a1a"_s);
            QCOMPARE(cards[i]->property("radius").toInt(), 8);
            QCOMPARE(strokeOf(cards[i]), u"#ff333333 1"_s);
            const auto *name = m_window->text(titles[i], cards[i]);
            QVERIFY(name);
            QCOMPARE(fontOf(name), u"Inter 12 700"_s);
            QCOMPARE(colorOf(name), u"#ff98989d"_s);
            QCOMPARE(placeOf(name).topLeft() - placeOf(cards[i]).topLeft(), QPointF(12, 12));
        }
        QCOMPARE(placeOf(cards[0]).topLeft(), QPointF(24, placeOf(head).bottom() + 24));
        QCOMPARE(placeOf(cards[1]).left() - placeOf(cards[0]).right(), 16.0);
        QCOMPARE(placeOf(cards[1]).right(), m_view->width() - 24.0);
        QCOMPARE(placeOf(cards[2]).topLeft(), QPointF(24, placeOf(cards[0]).bottom() + 24));
        QCOMPARE(placeOf(cards[2]).right(), m_view->width() - 24.0);
        const auto *figure = m_window->text(u"95"_s, cards[2]);
        QCOMPARE(fontOf(figure), u"Inter 12 400"_s);
        QCOMPARE(colorOf(figure), u"#ffffffff"_s);
    }

    void exportsNothing()
    {
        open();
        const QImage before = m_view->grabWindow();
        auto *button = m_window->button(u"Export Report"_s);
        QCOMPARE(colorOf(button, "tint"), u"#ffffffff"_s);
        QCOMPARE(placeOf(button).right(), m_view->width() - 24.0);
        m_window->click(button);
        QTest::mouseMove(m_view.get(), QPoint(m_view->width() - 1, m_view->height() - 1));
        settle();
        QVERIFY(m_world->urlOpener.opened.isEmpty());
        QCOMPARE(m_view->grabWindow(), before);
    }

    void brightensTheDiagonalOfItsMatrix()
    {
        open(QSize(1190, 900));
        const auto *matrix = m_window->all(u"ConfusionMatrix"_s).first();
        const auto cells = m_window->all(u"QQuickRectangle"_s, matrix);
        QCOMPARE(cells.size(), 25);
        for (int i = 0; i < 25; ++i) {
            const auto *cell = cells.at(i);
            const bool onDiagonal = i / 5 == i % 5;
            QCOMPARE(cell->height(), 50.0);
            QCOMPARE(m_window->texts(cell), QStringList({onDiagonal ? u"95"_s : u"2"_s}));
            QColor color = Color::faded(Color::blue(), onDiagonal ? 0.8 : 0.1);
            QCOMPARE(cell->property("color").value<QColor>(), color);
            if (i % 5 > 0) {
                QCOMPARE(placeOf(cell).left() - placeOf(cells.at(i - 1)).right(), 2.0);
            }
            if (i >= 5) {
                QCOMPARE(placeOf(cell).top() - placeOf(cells.at(i - 5)).bottom(), 2.0);
            }
        }
        const QRectF card = placeOf(m_window->all(u"ChartCard"_s).last());
        QCOMPARE(placeOf(cells.last()).right(), card.right() - 12);
        QCOMPARE(placeOf(cells.last()).bottom(), card.bottom() - 12);
    }

    void fillsItsWidth_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("smallest window") << QSize(980, 661);
        QTest::newRow("usual window") << QSize(1220, 761);
        QTest::newRow("large window") << QSize(1700, 1061);
    }
    void fillsItsWidth()
    {
        QFETCH(QSize, size);
        open(size);
        const auto cards = m_window->all(u"ChartCard"_s);
        QCOMPARE(cards.size(), 3);
        const QRectF one = placeOf(cards.at(0));
        const QRectF other = placeOf(cards.at(1));
        QCOMPARE(one.left(), 24.0);
        QCOMPARE(other.left() - one.right(), 16.0);
        QCOMPARE(other.right(), size.width() - 24.0);
        QVERIFY(std::abs(one.width() - other.width()) <= 1);
        QCOMPARE(placeOf(cards.at(2)).width(), size.width() - 48.0);
        QCOMPARE(placeOf(cards.at(2)).top() - one.bottom(), 24.0);
        QCOMPARE(m_window->texts(cards.at(0)).contains(u"TRAIN VS VAL LOSS"_s), true);
        QCOMPARE(m_window->texts(cards.at(1)).contains(u"ACCURACY CURVE"_s), true);
        QCOMPARE(m_window->texts(cards.at(2)).contains(u"CONFUSION MATRIX"_s), true);
    }

    void givesTheSamePictureAtAnyTime()
    {
        open();
        const QImage before = m_view->grabWindow();
        m_world->clock.advance(10s);
        settle();
        QCOMPARE(m_view->grabWindow(), before);
        QCOMPARE(m_world->clock.scheduledCount(), 0);
    }

private:
    void open(QSize size = QSize(1190, 780)) { ViewTest::open(u"Analytics/ValidationView.qml"_s, size); }
};

QTEST_MAIN(tst_ValidationView)
#include "tst_ValidationView.moc"
