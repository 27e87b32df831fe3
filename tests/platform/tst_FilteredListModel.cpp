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
    QString origin{};
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
                return QStringList{fruit.name, fruit.origin};
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

    void showsWhatIsThereToWhoLookedWhileItChanged_data()
    {
        QTest::addColumn<std::function<void(FruitModel &)>>("change");
        QTest::addColumn<QString>("names");
        using Change = std::function<void(FruitModel &)>;
        QTest::newRow("a record goes") << Change([](auto &model) {
            model.removeIf([](const Fruit &fruit) { return fruit.name == u"Apple"_s; });
        }) << u"Pear Grape Pineapple"_s;
        QTest::newRow("a record comes") << Change([](auto &model) {
            model.prepend({u"Plum"_s, 60});
        }) << u"Plum Apple Pear Grape Pineapple"_s;
        QTest::newRow("a record stops passing") << Change([](auto &model) {
            model.filter([](const Fruit &fruit) { return fruit.weight > 0; });
            model.replace(0, {u"Apple"_s, 0});
        }) << u"Pear Grape Pineapple"_s;
        QTest::newRow("a record begins to pass") << Change([](auto &model) {
            model.filter([](const Fruit &fruit) { return fruit.weight > 150; });
            model.replace(0, {u"Apple"_s, 200});
        }) << u"Apple Pear Pineapple"_s;
        QTest::newRow("a search leaves some out") << Change([](auto &model) { model.search(u"pear"_s); }) << u"Pear"_s;
        QTest::newRow("a search lets some in again") << Change([](auto &model) {
            model.search(u"pear"_s);
            model.search({});
        }) << u"Apple Pear Grape Pineapple"_s;
    }
    void showsWhatIsThereToWhoLookedWhileItChanged()
    {
        QFETCH(std::function<void(FruitModel &)>, change);
        const auto look = [this] { m_model->data(m_model->index(0), Qt::UserRole); };
        connect(m_model.get(), &QAbstractItemModel::rowsAboutToBeRemoved, this, look);
        connect(m_model.get(), &QAbstractItemModel::rowsAboutToBeInserted, this, look);
        change(*m_model);
        QTEST(m_model->names(), "names");
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
        m_model->setRecords(m_model->records());
        m_model->search(u"a"_s);
        m_model->search(u"ap"_s);
        m_model->search(u"app"_s);
        QCOMPARE(textsMade, 4);
    }

    void looksIntoEachOfARecordsTexts()
    {
        m_model->setRecords({{u"Apple"_s, 150, u"Peru"_s}, {u"Pear"_s, 180, u"Tyrol"_s}, {u"Prune"_s, 5, {}}});
        m_model->search(u"PERU"_s);
        QCOMPARE(m_model->names(), u"Apple"_s);
        // Not from one into the next.
        m_model->search(u"arty"_s);
        QCOMPARE(m_model->names(), QString());
        m_model->search(u"r"_s);
        QCOMPARE(m_model->names(), u"Apple Pear Prune"_s);
        m_model->prepend({u"Kiwi"_s, 70, u"Tyrol"_s});
        m_model->search(u"tyrol"_s);
        QCOMPARE(m_model->names(), u"Kiwi Pear"_s);
        m_model->prepend({u"Fig"_s, 70, u"TYROL"_s});
        m_model->replace(1, {u"Kiwi"_s, 70, u"Crete"_s});
        QCOMPARE(m_model->names(), u"Fig Pear"_s);
    }

    void givesTheFieldsOfARowUnderTheirNames()
    {
        const QHash<int, QByteArray> roles = m_model->roleNames();
        QCOMPARE(QSet<QByteArray>(roles.cbegin(), roles.cend()), QSet<QByteArray>({"identifier", "label"}));
    }

    void tellsWhatASearchTakesAwayAndBrings_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        QTest::addColumn<QStringList>("told");
        const auto row = [](const char *name, const QString &before, const QString &after, const QStringList &told) {
            QTest::newRow(name) << before << after << told;
        };
        row("some go from the middle", u""_s, u"apple"_s, {u"removed 1-2"_s});
        row("and come back", u"apple"_s, u""_s, {u"inserted 1-2"_s});
        row("others come", u"apple"_s, u"pear"_s, {u"removed 0-1"_s, u"inserted 0-0"_s});
        row("one of the middle stays", u""_s, u"pear"_s, {u"removed 0-3"_s, u"inserted 0-0"_s});
        row("all go", u""_s, u"plum"_s, {u"removed 0-3"_s});
        row("some come after none", u"plum"_s, u"ape"_s, {u"inserted 0-0"_s});
        row("the same stay", u"apple"_s, u"appl"_s, {});
    }
    void tellsWhatASearchTakesAwayAndBrings()
    {
        QFETCH(QString, before);
        QFETCH(QString, after);
        QFETCH(QStringList, told);
        m_model->search(before);
        m_model->told.clear();
        m_model->search(after);
        QCOMPARE(m_model->told, told);
    }

    void leavesOneOutOfTheMiddleAndTakesItBack()
    {
        m_model->filter([](const Fruit &fruit) { return fruit.weight != 180; });
        QCOMPARE(m_model->told, QStringList(u"removed 1-1"_s));
        QCOMPARE(m_model->names(), u"Apple Grape Pineapple"_s);
        m_model->filter({});
        QCOMPARE(m_model->told, QStringList({u"removed 1-1"_s, u"inserted 1-1"_s}));
        QCOMPARE(m_model->names(), u"Apple Pear Grape Pineapple"_s);
    }

    void leavesAloneWhoHoldsOnToARowThatStays()
    {
        const QPersistentModelIndex apple = m_model->index(0);
        const QPersistentModelIndex pear = m_model->index(1);
        const QPersistentModelIndex pineapple = m_model->index(3);
        m_model->search(u"apple"_s);
        QCOMPARE(apple.row(), 0);
        QVERIFY(!pear.isValid());
        QCOMPARE(pineapple.row(), 1);
        QCOMPARE(pineapple.data(m_model->roleNames().key("identifier")).toString(), u"Pineapple"_s);
    }

    void givesTheRightRowToWhoReadsAmidAChange()
    {
        m_model->filter([](const Fruit &fruit) { return fruit.weight == 180 || fruit.weight == 900; });
        QStringList read;
        connect(m_model.get(), &QAbstractItemModel::rowsRemoved, this, [&] { read.append(m_model->labels().first()); });
        m_model->filter([](const Fruit &fruit) { return fruit.weight == 5 || fruit.weight == 900; });
        QCOMPARE(read, QStringList{u"Pineapple of 900 g"_s});
        QCOMPARE(m_model->labels(), QStringList({u"Grape of 5 g"_s, u"Pineapple of 900 g"_s}));
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

    void removesWhatItIsTold()
    {
        const auto remove = [this](const QString &name) {
            m_model->removeIf([&](const Fruit &fruit) { return fruit.name == name; });
        };
        m_model->search(u"apple"_s);
        m_model->told.clear();
        remove(u"Pear"_s);
        QVERIFY(m_model->told.isEmpty());
        remove(u"Pineapple"_s);
        QCOMPARE(m_model->told, QStringList(u"removed 1-1"_s));
        QCOMPARE(m_model->names(), u"Apple"_s);
        m_model->search({});
        QCOMPARE(m_model->names(), u"Apple Grape"_s);
        remove(u"Apple"_s);
        remove(u"Plum"_s);
        QCOMPARE(m_model->names(), u"Grape"_s);
    }

    void removesAllThatAreAlike()
    {
        m_model->prepend({u"Pear"_s, 1});
        m_model->told.clear();
        m_model->removeIf([](const Fruit &fruit) { return fruit.name == u"Pear"_s; });
        QCOMPARE(m_model->told, QStringList({u"removed 2-2"_s, u"removed 0-0"_s}));
        QCOMPARE(m_model->names(), u"Apple Grape Pineapple"_s);
    }

    void removesManyAtOnce()
    {
        QList<Fruit> many(1000, {u"Apple"_s, 1});
        many.insert(500, {u"Pear"_s, 1});
        m_model->setRecords(many);
        m_model->search(u"e"_s);
        m_model->told.clear();
        m_model->removeIf([](const Fruit &fruit) { return fruit.name == u"Apple"_s; });
        QCOMPARE(m_model->told, QStringList(u"reset"_s));
        QCOMPARE(m_model->names(), u"Pear"_s);
        QCOMPARE(m_model->records().size(), 1);
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
