#include "platform/FilteredListModel.h"

#include <QAbstractItemModelTester>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

struct Fruit {
    QString name;
    int weight = 0;
};

struct FruitRow {
    QString id;
    QString label;

    static constexpr auto fields() { return std::tuple{Field{"id", &FruitRow::id}, Field{"label", &FruitRow::label}}; }
};

int rowsMade = 0;
int textsMade = 0;

class FruitModel : public FilteredListModel<Fruit, FruitRow> {
public:
    // What the view was told.
    QStringList told;

    FruitModel()
        : FilteredListModel(
            [](const Fruit &fruit) {
                ++rowsMade;
                return FruitRow{fruit.name, u"%1 of %2 g"_s.arg(fruit.name).arg(fruit.weight)};
            },
            [](const Fruit &fruit) {
                ++textsMade;
                return fruit.name;
            })
    {
        connect(this, &QAbstractItemModel::rowsInserted, this, [this](const QModelIndex &, int first, int last) {
            told.append(u"inserted %1-%2"_s.arg(first).arg(last));
        });
        connect(this, &QAbstractItemModel::rowsRemoved, this,
            [this](const QModelIndex &, int first, int last) { told.append(u"removed %1-%2"_s.arg(first).arg(last)); });
        connect(this, &QAbstractItemModel::modelReset, this, [this] { told.append(u"reset"_s); });
        connect(
            this, &QAbstractItemModel::dataChanged, this, [this](const QModelIndex &first, const QModelIndex &last) {
                told.append(u"changed %1-%2"_s.arg(first.row()).arg(last.row()));
            });
    }

    QStringList labels() const
    {
        QStringList list;
        for (int row = 0; row < rowCount(); ++row) {
            list.append(data(index(row), roleNames().key("label")).toString());
        }
        return list;
    }
    QString names() const
    {
        QStringList list;
        for (int row = 0; row < rowCount(); ++row) {
            list.append(data(index(row), roleNames().key("identifier")).toString());
        }
        return list.join(u' ');
    }
};

} // namespace

class tst_FilteredListModel : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        rowsMade = 0;
        textsMade = 0;
        m_tester.reset();
        m_model = std::make_unique<FruitModel>();
        m_tester = std::make_unique<QAbstractItemModelTester>(
            m_model.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        m_model->setRecords({{u"Apple"_s, 150}, {u"Pear"_s, 180}, {u"Grape"_s, 5}, {u"Pineapple"_s, 900}});
        m_model->told.clear();
    }

    void showsAllInTheirOrderAtFirst()
    {
        QCOMPARE(m_model->names(), u"Apple Pear Grape Pineapple"_s);
        QCOMPARE(m_model->labels().first(), u"Apple of 150 g"_s);
        QCOMPARE(m_model->records().size(), 4);
    }

    void givesNothingWhereThereIsNothing()
    {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"is not valid"_s));
        QVERIFY(!m_model->data({}, Qt::UserRole).isValid());
        QVERIFY(!m_model->data(m_model->index(0), Qt::DisplayRole).isValid());
        QVERIFY(!m_model->data(m_model->index(0), Qt::UserRole + 2).isValid());
        QCOMPARE(m_model->rowCount(m_model->index(0)), 0);
    }

    void makesARowOnlyWhenItIsAskedFor()
    {
        m_tester.reset();
        QList<Fruit> many(100'000, {u"Apple"_s, 1});
        rowsMade = 0;
        m_model->setRecords(many);
        QCOMPARE(rowsMade, 0);
        for (const int role : m_model->roleNames().keys()) {
            m_model->data(m_model->index(70'000), role);
        }
        QCOMPARE(rowsMade, 1);
    }

    void findsWhateverTheCase_data()
    {
        QTest::addColumn<QString>("searched");
        QTest::addColumn<QString>("found");
        QTest::newRow("small") << u"apple"_s << u"Apple Pineapple"_s;
        QTest::newRow("capital") << u"PEAR"_s << u"Pear"_s;
        QTest::newRow("in the middle") << u"ape"_s << u"Grape"_s;
        QTest::newRow("nowhere") << u"plum"_s << QString();
        QTest::newRow("nothing searched") << QString() << u"Apple Pear Grape Pineapple"_s;
    }
    void findsWhateverTheCase()
    {
        QFETCH(QString, searched);
        QFETCH(QString, found);
        m_model->search(u"first something else"_s);
        m_model->search(searched);
        QCOMPARE(m_model->names(), found);
        QCOMPARE(m_model->records().size(), 4);
    }

    void looksAtEachTextOnceForManySearches()
    {
        textsMade = 0;
        m_model->search(u"a"_s);
        m_model->search(u"ap"_s);
        m_model->search(u"app"_s);
        QCOMPARE(textsMade, 4);
    }

    void tellsNothingForASearchThatIsTheSame()
    {
        m_model->search(u"apple"_s);
        m_model->told.clear();
        m_model->search(u"APPLE"_s);
        QVERIFY(m_model->told.isEmpty());
    }

    void filtersAndSearchesTogether()
    {
        m_model->filter([](const Fruit &fruit) { return fruit.weight > 100; });
        QCOMPARE(m_model->names(), u"Apple Pear Pineapple"_s);
        m_model->search(u"apple"_s);
        QCOMPARE(m_model->names(), u"Apple Pineapple"_s);
        m_model->filter({});
        m_model->search(u""_s);
        QCOMPARE(m_model->names(), u"Apple Pear Grape Pineapple"_s);
    }

    void tellsOfOneMoreInFront()
    {
        m_model->prepend({u"Plum"_s, 40});
        QCOMPARE(m_model->told, QStringList(u"inserted 0-0"_s));
        QCOMPARE(m_model->names(), u"Plum Apple Pear Grape Pineapple"_s);
    }

    void keepsWhatDoesNotPassFromTheView()
    {
        m_model->search(u"apple"_s);
        m_model->told.clear();
        m_model->prepend({u"Plum"_s, 40});
        QVERIFY(m_model->told.isEmpty());
        QCOMPARE(m_model->names(), u"Apple Pineapple"_s);
        m_model->prepend({u"Red Apple"_s, 40});
        QCOMPARE(m_model->told, QStringList(u"inserted 0-0"_s));
        QCOMPARE(
            m_model->labels(), QStringList({u"Red Apple of 40 g"_s, u"Apple of 150 g"_s, u"Pineapple of 900 g"_s}));
        m_model->search(u"plum"_s);
        QCOMPARE(m_model->names(), u"Plum"_s);
    }

    void prependsToAnEmptyListWhileSearching()
    {
        m_model->setRecords({});
        m_model->search(u"apple"_s);
        m_model->prepend({u"Plum"_s, 40});
        m_model->prepend({u"Apple"_s, 40});
        QCOMPARE(m_model->names(), u"Apple"_s);
        m_model->search(u"pl"_s);
        QCOMPARE(m_model->names(), u"Apple Plum"_s);
    }

    void removesOne()
    {
        m_model->search(u"apple"_s);
        m_model->told.clear();
        m_model->remove(1);
        QVERIFY(m_model->told.isEmpty());
        m_model->remove(2);
        QCOMPARE(m_model->told, QStringList(u"removed 1-1"_s));
        QCOMPARE(m_model->names(), u"Apple"_s);
        m_model->search({});
        QCOMPARE(m_model->names(), u"Apple Grape"_s);
        m_model->remove(0);
        QCOMPARE(m_model->names(), u"Grape"_s);
    }

    void showsARecordInTheOthersPlace()
    {
        QCOMPARE(m_model->labels().at(1), u"Pear of 180 g"_s);
        m_model->replace(1, {u"Plum"_s, 41});
        QCOMPARE(m_model->told, QStringList(u"changed 1-1"_s));
        QCOMPARE(m_model->labels().at(1), u"Plum of 41 g"_s);
    }

    void letsARecordComeAndGoWithItsReplacement()
    {
        m_model->search(u"apple"_s);
        m_model->told.clear();
        m_model->replace(2, {u"Grapple"_s, 5});
        QCOMPARE(m_model->told, QStringList(u"inserted 1-1"_s));
        QCOMPARE(m_model->names(), u"Apple Grapple Pineapple"_s);
        m_model->replace(0, {u"Plum"_s, 5});
        QCOMPARE(m_model->told.last(), u"removed 0-0"_s);
        QCOMPARE(m_model->names(), u"Grapple Pineapple"_s);
    }

    void looksAgainAtARecordWhoseSurroundingsChanged()
    {
        bool lovesGrapes = false;
        m_model->filter([&](const Fruit &fruit) { return lovesGrapes || fruit.name != u"Grape"_s; });
        QCOMPARE(m_model->names(), u"Apple Pear Pineapple"_s);
        m_model->told.clear();
        lovesGrapes = true;
        m_model->refresh(2);
        QCOMPARE(m_model->told, QStringList(u"inserted 2-2"_s));
        m_model->refresh(2);
        QCOMPARE(m_model->told.last(), u"changed 2-2"_s);
        QCOMPARE(m_model->names(), u"Apple Pear Grape Pineapple"_s);
    }

private:
    std::unique_ptr<FruitModel> m_model;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_FilteredListModel)
#include "tst_FilteredListModel.moc"
