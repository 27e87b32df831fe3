#include "platform/RecordListModel.h"

#include <QAbstractItemModelTester>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

struct Fruit {
    QString id;
    QString name;
    std::optional<int> weight;

    QString label() const { return name.toUpper(); }

    static constexpr auto fields()
    {
        return std::tuple{Field{"id", &Fruit::id}, Field{"name", &Fruit::name}, Field{"weight", &Fruit::weight},
            Field{"label", &Fruit::label}};
    }
};

// One fruit for each word, its id the letters before a colon, its name those after it or the same.
QList<Fruit> fruits(const QString &words)
{
    QList<Fruit> list;
    for (const QString &word : words.split(u' ', Qt::SkipEmptyParts)) {
        const QStringList parts = word.split(u':');
        list.append({parts.first(), parts.last(), {}});
    }
    return list;
}

class FruitModel : public RecordListModel<Fruit> {
public:
    // What the view was told, and in how many pieces.
    QStringList told;

    FruitModel()
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

    QString names() const
    {
        QStringList list;
        for (int row = 0; row < rowCount(); ++row) {
            list.append(data(index(row), roleNames().key("name")).toString());
        }
        return list.join(u' ');
    }
    QVariant at(int row, const QByteArray &role) const { return data(index(row), roleNames().key(role)); }
};

} // namespace

class tst_RecordListModel : public QObject {
    Q_OBJECT

private slots:
    void namesItsRolesAfterTheFields()
    {
        const QHash<int, QByteArray> roles = FruitModel().roleNames();
        QCOMPARE(QSet<QByteArray>(roles.cbegin(), roles.cend()),
            QSet<QByteArray>({"identifier", "name", "weight", "label"}));
        for (auto role = roles.keyBegin(); role != roles.keyEnd(); ++role) {
            QVERIFY(*role >= Qt::UserRole);
        }
    }

    void givesTheFieldsOfARecord()
    {
        FruitModel model;
        model.setRecords({{u"a"_s, u"apple"_s, 150}, {u"b"_s, u"banana"_s, {}}});
        QCOMPARE(model.rowCount(), 2);
        QCOMPARE(model.at(0, "identifier"), u"a"_s);
        QCOMPARE(model.at(0, "name"), u"apple"_s);
        QCOMPARE(model.at(0, "weight"), 150);
        QCOMPARE(model.at(1, "label"), u"BANANA"_s);
        QVERIFY(!model.at(1, "weight").isValid());
        QCOMPARE(model.records().size(), 2);
    }

    void givesNothingWhereThereIsNothing()
    {
        FruitModel model;
        model.setRecords(fruits(u"a"_s));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"is not valid"_s));
        QVERIFY(!model.data({}, Qt::UserRole).isValid());
        QVERIFY(!model.at(0, "colour").isValid());
        QVERIFY(!model.data(model.index(0), Qt::DisplayRole).isValid());
        QVERIFY(!model.data(model.index(0), Qt::UserRole + 4).isValid());
        QCOMPARE(model.rowCount(model.index(0)), 0);
    }

    void appendsOneWithoutTouchingTheOthers()
    {
        FruitModel model;
        QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
        model.append({u"a"_s, u"apple"_s, 150});
        model.append({u"b"_s, u"banana"_s, {}});
        QCOMPARE(model.rowCount(), 2);
        QCOMPARE(model.at(1, "name"), u"banana"_s);
        QCOMPARE(inserted.count(), 2);
        QCOMPARE(inserted[1][1].toInt(), 1);
        QCOMPARE(inserted[1][2].toInt(), 1);
        QCOMPARE(changed.count(), 0);
        QCOMPARE(reset.count(), 0);
    }

    void tellsWhatWentCameAndChanged_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        QTest::addColumn<QStringList>("told");
        const auto row = [](const char *name, const QString &before, const QString &after, const QStringList &told) {
            QTest::newRow(name) << before << after << told;
        };
        row("one more at the end", u"a b"_s, u"a b c"_s, {u"inserted 2-2"_s, u"changed 0-2"_s});
        row("one more in front", u"a b"_s, u"z a b"_s, {u"inserted 0-0"_s, u"changed 0-2"_s});
        row("several in the middle", u"a b"_s, u"a x y z b"_s, {u"inserted 1-3"_s, u"changed 0-4"_s});
        row("one less", u"a b c"_s, u"a c"_s, {u"removed 1-1"_s, u"changed 0-1"_s});
        row("a run less", u"a b c d"_s, u"a d"_s, {u"removed 1-2"_s, u"changed 0-1"_s});
        row("some go at both ends", u"a b c"_s, u"b"_s, {u"removed 2-2"_s, u"removed 0-0"_s, u"changed 0-0"_s});
        row("one replaced", u"a b c"_s, u"a x c"_s, {u"removed 1-1"_s, u"inserted 1-1"_s, u"changed 0-2"_s});
        row("all the same", u"a b"_s, u"a b"_s, {u"changed 0-1"_s});
        row("another name", u"a b"_s, u"a b:berry"_s, {u"changed 0-1"_s});
        row("gone, come and changed", u"a b c"_s, u"b:berry d c e"_s,
            {u"removed 0-0"_s, u"inserted 1-1"_s, u"inserted 3-3"_s, u"changed 0-3"_s});
        row("the first records", u""_s, u"a b"_s, {u"reset"_s});
        row("none left", u"a b"_s, u""_s, {u"reset"_s});
        row("none of the old ones stays", u"a b"_s, u"c d"_s, {u"reset"_s});
        row("places change", u"a b"_s, u"b a"_s, {u"reset"_s});
        row("ids repeat in the new ones", u"a b"_s, u"a b b"_s, {u"reset"_s});
        row("ids repeat in the old ones", u"a b b"_s, u"a b"_s, {u"reset"_s});
        row("ids repeat in both", u"a a"_s, u"a a"_s, {u"reset"_s});
    }
    void tellsWhatWentCameAndChanged()
    {
        QFETCH(QString, before);
        QFETCH(QString, after);
        QFETCH(QStringList, told);
        FruitModel model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.setRecords(fruits(before));
        model.told.clear();
        model.setRecords(fruits(after));
        QCOMPARE(model.told, told);
        QStringList names;
        for (const Fruit &fruit : fruits(after)) {
            names.append(fruit.name);
        }
        QCOMPARE(model.names(), names.join(u' '));
    }

    void resetsWherePiecesWouldBeMany_data()
    {
        QTest::addColumn<int>("pieces");
        QTest::addColumn<bool>("resets");
        QTest::newRow("as many as it tells") << 64 << false;
        QTest::newRow("one more") << 65 << true;
    }
    void resetsWherePiecesWouldBeMany()
    {
        QFETCH(int, pieces);
        QFETCH(bool, resets);
        QStringList before;
        QStringList after;
        for (int i = 0; i < pieces; ++i) {
            before << u"stays%1"_s.arg(i) << u"goes%1"_s.arg(i);
            after << u"stays%1"_s.arg(i);
        }
        FruitModel model;
        model.setRecords(fruits(before.join(u' ')));
        model.told.clear();
        model.setRecords(fruits(after.join(u' ')));
        QCOMPARE(model.told.contains(u"reset"_s), resets);
        QCOMPARE(model.told.filter(u"removed"_s).size(), resets ? 0 : pieces);
        QCOMPARE(model.rowCount(), pieces);
    }

    void whoHoldsOnToARecordStaysWithIt()
    {
        FruitModel model;
        model.setRecords(fruits(u"a b c d"_s));
        const QPersistentModelIndex b = model.index(1);
        const QPersistentModelIndex c = model.index(2);
        const QPersistentModelIndex d = model.index(3);
        model.setRecords(fruits(u"z y b x d"_s));
        QCOMPARE(b.row(), 2);
        QCOMPARE(d.row(), 4);
        QVERIFY(!c.isValid());
        QCOMPARE(b.data(model.roleNames().key("identifier")).toString(), u"b"_s);
    }

    void anyChangeLeavesTheModelRight()
    {
        // All lists of up to four out of four records, one after the other, with a tester that looks at every step.
        QStringList lists{QString()};
        for (qsizetype i = 0; i < lists.size(); ++i) {
            for (const QChar letter : u"abcd"_s) {
                if (lists[i].size() < 8 && !lists[i].contains(letter)) {
                    lists.append(lists[i] + letter + u' ');
                }
            }
        }
        QCOMPARE(lists.size(), 65);
        FruitModel model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        for (const QString &from : lists) {
            for (const QString &to : lists) {
                model.setRecords(fruits(from));
                model.setRecords(fruits(to));
                QCOMPARE(model.names(), to.trimmed());
            }
        }
    }

    void appendsOneRowAtTheEnd()
    {
        FruitModel model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.setRecords(fruits(u"apple pear"_s));
        model.told.clear();
        model.append(fruits(u"plum"_s).first());
        QCOMPARE(model.names(), u"apple pear plum"_s);
        QCOMPARE(model.told, QStringList(u"inserted 2-2"_s));
    }

    void tellsOfAReplacedRecordTheFieldsThatChanged()
    {
        FruitModel model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.setRecords(fruits(u"apple pear plum"_s));
        QList<QList<int>> changes;
        connect(&model, &QAbstractItemModel::dataChanged, this,
            [&](const QModelIndex &, const QModelIndex &, const QList<int> &roles) { changes.append(roles); });
        model.told.clear();
        Fruit heavy = model.records()[1];
        heavy.weight = 7;
        model.replace(1, heavy);
        QCOMPARE(model.at(1, "weight"), QVariant(7));
        QCOMPARE(model.told, QStringList(u"changed 1-1"_s));
        QCOMPARE(changes, QList<QList<int>>{{model.roleNames().key("weight")}});
        // The label is made of the name.
        heavy.name = u"quince"_s;
        model.replace(1, heavy);
        QCOMPARE(QSet<int>(changes[1].begin(), changes[1].end()),
            QSet<int>({model.roleNames().key("name"), model.roleNames().key("label")}));
        model.replace(1, heavy);
        QCOMPARE(changes.size(), 2);
        QCOMPARE(model.names(), u"apple quince plum"_s);
    }
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_RecordListModel)
#include "tst_RecordListModel.moc"
