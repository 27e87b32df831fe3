#include "app/SidebarItem.h"

#include <QFile>
#include <QMetaEnum>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quillmere {

class tst_SidebarItem : public QObject {
    Q_OBJECT

private slots:
    void hasThirteenDestinations()
    {
        QCOMPARE(SidebarItem::count, 13);
        // And one case for no selection at all.
        QCOMPARE(QMetaEnum::fromType<SidebarItem::Case>().keyCount(), 14);
    }

    void tellsEachDestination_data()
    {
        QTest::addColumn<int>("place");
        QTest::addColumn<QString>("rawValue");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("icon");
        QTest::addColumn<QString>("view");
        int place = 0;
        const auto row = [&](const char *name, const QString &title, const QString &icon, const QString &view) {
            QTest::newRow(name) << place++ << QString::fromLatin1(name) << title << icon << view;
        };
        row("dashboard", u"Dashboard"_s, u"house"_s, u"MonitoringView"_s);
        row("projects", u"Projects"_s, u"square.stack.3d.up"_s, u"ProjectsView"_s);
        row("datasets", u"Datasets"_s, u"cylinder.split.1x2"_s, u"DatasetsView"_s);
        row("models", u"Models"_s, u"cpu"_s, u"ModelsView"_s);
        row("training", u"Training"_s, u"terminal"_s, u"TrainingView"_s);
        row("analytics", u"Analytics"_s, u"chart.xyaxis.line"_s, u"AnalyticsDashboard"_s);
        row("settings", u"Settings"_s, u"gearshape"_s, u"SettingsView"_s);
        row("documentation", u"Documentation"_s, u"book"_s, u"DocumentationView"_s);
        row("fineTune", u"Fine-Tune"_s, u"bolt"_s, u"SimplifiedFineTuningView"_s);
        row("chat", u"Chat"_s, u"bubble.left"_s, u"ChatView"_s);
        row("deployment", u"Deployment"_s, u"paperplane"_s, u"DeploymentView"_s);
        row("agents", u"Agents"_s, u"brain"_s, u"AgentsView"_s);
        row("profile", u"Profile"_s, u"person"_s, u"UserProfileView"_s);
    }
    void tellsEachDestination()
    {
        QFETCH(int, place);
        QFETCH(QString, rawValue);
        QFETCH(QString, title);
        QFETCH(QString, icon);
        QFETCH(QString, view);
        QCOMPARE(SidebarItem::rawValue(place), rawValue);
        QCOMPARE(SidebarItem::title(place), title);
        QCOMPARE(SidebarItem::icon(place), icon);
        // The case's name is the raw value, with the capital that QML asks for.
        QString key = QString::fromLatin1(QMetaEnum::fromType<SidebarItem::Case>().valueToKey(place));
        key[0] = key[0].toLower();
        QCOMPARE(key, rawValue);

        const QUrl url = SidebarItem::view(place);
        QCOMPARE(url.scheme(), u"qrc"_s);
        QVERIFY2(QFile::exists(u':' + url.path()), qPrintable(url.path()));
        QCOMPARE(url.fileName(), view + u".qml"_s);
    }

    void hasSevenRows()
    {
        QCOMPARE(SidebarItem::mainGroup(),
            QList<int>({SidebarItem::Dashboard, SidebarItem::Projects, SidebarItem::Datasets, SidebarItem::Models,
                SidebarItem::Training, SidebarItem::Analytics}));
        QCOMPARE(SidebarItem::systemGroup(), QList<int>{SidebarItem::Settings});
    }

    void showsTheDashboardsViewForNoSelection()
    {
        QCOMPARE(SidebarItem::view(SidebarItem::None), SidebarItem::view(SidebarItem::Dashboard));
        QCOMPARE(SidebarItem::rawValue(SidebarItem::None), u""_s);
        QCOMPARE(SidebarItem::title(SidebarItem::None), u""_s);
        QCOMPARE(SidebarItem::icon(SidebarItem::None), u""_s);
    }

    // The map for newcomers names, for each destination, the folder in which its view stands.
    void standsInTheMapOfTheArchitecture()
    {
        QFile file(QStringLiteral(SOURCE_FOLDER "/docs/architecture.md"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(file.readAll());
        for (int item = 0; item < SidebarItem::count; ++item) {
            const QRegularExpression row(
                u"^\\| %1 \\| `([^`]+)`"_s.arg(QRegularExpression::escape(SidebarItem::title(item))),
                QRegularExpression::MultilineOption);
            const QRegularExpressionMatch match = row.match(text);
            QVERIFY2(match.hasMatch(), qPrintable(SidebarItem::title(item)));
            const QString view =
                QStringLiteral(SOURCE_FOLDER "/") + match.captured(1) + SidebarItem::view(item).fileName();
            QVERIFY2(QFile::exists(view), qPrintable(view));
        }
    }

    void isEmptyBeyondItsCases_data()
    {
        QTest::addColumn<int>("item");
        QTest::newRow("one too many") << 13;
        QTest::newRow("below none") << -2;
    }
    void isEmptyBeyondItsCases()
    {
        QFETCH(int, item);
        QCOMPARE(SidebarItem::rawValue(item), u""_s);
        QCOMPARE(SidebarItem::view(item), QUrl());
    }
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_SidebarItem)
#include "tst_SidebarItem.moc"
