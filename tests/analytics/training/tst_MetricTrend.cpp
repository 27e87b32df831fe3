#include "analytics/training/MetricTrend.h"

#include "app/theme/Color.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace quillmere {

class tst_MetricTrend : public QObject {
    Q_OBJECT

private slots:
    void goesByTheSignAlone_data()
    {
        QTest::addColumn<QString>("trend");
        QTest::addColumn<QColor>("color");

        QTest::newRow("a fall") << u"-0.02"_s << Color::green();
        QTest::newRow("a rise") << u"+0.01"_s << Color::red();
        QTest::newRow("a rise that is good") << u"+1.2%"_s << Color::red();
        QTest::newRow("no sign") << u"Stable"_s << Color::gray();
        QTest::newRow("no sign either") << u"High"_s << Color::gray();
        QTest::newRow("nothing") << QString() << Color::gray();
        QTest::newRow("both signs") << u"+0.1-0.2"_s << Color::green();
    }

    void goesByTheSignAlone()
    {
        QFETCH(QString, trend);
        QTEST(MetricTrend::color(trend), "color");
    }
};

} // namespace quillmere

QTEST_APPLESS_MAIN(quillmere::tst_MetricTrend)
#include "tst_MetricTrend.moc"
