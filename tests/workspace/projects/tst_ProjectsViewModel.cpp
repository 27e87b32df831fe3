#include "support/TestEnvironment.h"
#include "workspace/projects/ProjectsViewModel.h"

#include <QLocale>
#include <QSignalSpy>
#include <QTest>
#include <QUuid>

using namespace Qt::StringLiterals;
using namespace quillmere;
using namespace quillmere::testing;
using namespace std::chrono_literals;

class tst_ProjectsViewModel : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        world = std::make_unique<TestEnvironment>();
        model = std::make_unique<ProjectsViewModel>();
    }
    void cleanup()
    {
        QLocale::setDefault(QLocale::c());
        model.reset();
        world.reset();
    }

    void startsEmpty()
    {
        QVERIFY(model->projects().isEmpty());
        QVERIFY(!model->isLoading());
        QVERIFY(!model->errorMessage());
        QVERIFY(model->searchText().isEmpty());
        QVERIFY(!model->hasFilteredProjects());
    }

    void showsTheSamplesHalfASecondAfterTheLoad()
    {
        model->loadProjects();
        QVERIFY(model->isLoading());
        world->clock.advance(499ms);
        QVERIFY(model->isLoading());
        QVERIFY(model->projects().isEmpty());
        world->clock.advance(1ms);
        QVERIFY(!model->isLoading());

        const QDateTime now = world->clock.now();
        const QList<Project> &projects = model->projects();
        QCOMPARE(projects.size(), 3);
        expect(projects[0], u"1"_s, u"Medical LLM"_s, u"Fine-tuning Llama for medical Q&A"_s, 2, 5, now.addSecs(-3'600),
            Project::ProjectStatus::training);
        expect(projects[1], u"2"_s, u"Code Assistant"_s, u"Custom coding assistant with LoRA"_s, 1, 3,
            now.addSecs(-86'400), Project::ProjectStatus::active);
        expect(projects[2], u"3"_s, u"Customer Support Bot"_s, u"Support ticket classification and response"_s, 1, 2,
            now.addSecs(-172'800), Project::ProjectStatus::archived);
        QVERIFY(!model->errorMessage());
    }

    void buildsTheSamplesAfreshAtEachLoad()
    {
        load();
        const QDateTime before = model->projects().first().lastUpdated;
        world->clock.advance(10min);
        load();
        QCOMPARE(before.secsTo(model->projects().first().lastUpdated), 600);
    }

    void forgetsWhatWasCreatedAtTheNextLoad()
    {
        load();
        model->createProject(u"Mine"_s, u"kept nowhere"_s);
        QCOMPARE(model->projects().size(), 4);
        model->loadProjects();
        // Until then it stays.
        QCOMPARE(model->projects().size(), 4);
        world->clock.advance(500ms);
        QCOMPARE(model->projects().size(), 3);
        QCOMPARE(model->projects().first().name, u"Medical LLM"_s);
    }

    void doesNothingWhenItIsGoneBeforeTheSamplesCome()
    {
        model->loadProjects();
        model.reset();
        world->clock.advance(1s);
        QCOMPARE(world->clock.scheduledCount(), 0);
    }

    void asksNobody()
    {
        world->isSignedIn();
        world->secrets.reads.clear();
        load();
        model->createProject(u"Mine"_s, {});
        settle();
        QVERIFY(world->service.requests().isEmpty());
        QVERIFY(world->secrets.reads.isEmpty());
    }

    void putsANewProjectBeforeAllOthers()
    {
        load();
        model->createProject(u"Mine"_s, u"What it is for"_s);
        QCOMPARE(model->projects().size(), 4);
        const Project &project = model->projects().first();
        expect(project, project.id, u"Mine"_s, u"What it is for"_s, 0, 0, world->clock.now(),
            Project::ProjectStatus::active);
        QVERIFY(!QUuid::fromString(project.id).isNull());

        model->createProject(u"Mine"_s, u"What it is for"_s);
        QVERIFY(model->projects()[0].id != model->projects()[1].id);
        QCOMPARE(shown("updatedText"), u"Updated 0 sec ago"_s);
        QCOMPARE(shown("badge"), u"Active"_s);
        QCOMPARE(shown("modelCount"), u"0"_s);
        QCOMPARE(shown("datasetCount"), u"0"_s);
    }

    void takesAnyText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << QString();
        QTest::newRow("blanks") << u"   "_s;
        QTest::newRow("markup") << u"<b>bold</b> <img src='x'> &amp;"_s;
        QTest::newRow("quotes") << u"\"O'Neil\" \\ `x`"_s;
        QTest::newRow("emoji") << u"👩‍👩‍👧‍👧 🚀"_s;
        QTest::newRow("right to left") << u"نموذج طبي"_s;
        QTest::newRow("ten thousand characters") << QString(10'000, u'x');
    }
    void takesAnyText()
    {
        QFETCH(QString, text);
        model->createProject(text, text);
        QCOMPARE(model->projects().first().name, text);
        QCOMPARE(model->projects().first().description, text);
        QCOMPARE(shown("name"), text);
        QCOMPARE(shown("description"), text);
    }

    void namesAndColoursEachStatus()
    {
        load();
        QCOMPARE(column("badge"), QStringList({u"Training"_s, u"Active"_s, u"Archived"_s}));
        QCOMPARE(column("statusColor"), QStringList({u"#3b82f6"_s, u"#22c55e"_s, u"#71717a"_s}));
    }

    void findsWhatHoldsTheSearchText_data()
    {
        QTest::addColumn<QString>("search");
        QTest::addColumn<QStringList>("found");
        const QString medical = u"Medical LLM"_s;
        const QString code = u"Code Assistant"_s;
        const QString support = u"Customer Support Bot"_s;
        QTest::newRow("nothing") << QString() << QStringList{medical, code, support};
        QTest::newRow("name") << u"Code Ass"_s << QStringList{code};
        QTest::newRow("other case") << u"mEDICAL lLM"_s << QStringList{medical};
        QTest::newRow("description only") << u"ticket"_s << QStringList{support};
        QTest::newRow("several, in order") << u"us"_s << QStringList{code, support};
        QTest::newRow("ampersand") << u"q&a"_s << QStringList{medical};
        QTest::newRow("a blank is looked for") << u"l l"_s << QStringList{medical};
        QTest::newRow("a blank around it is not cut off") << u" Code"_s << QStringList{};
        QTest::newRow("status is not searched") << u"Archived"_s << QStringList{};
        QTest::newRow("no pattern") << u"M.dical"_s << QStringList{};
        QTest::newRow("accents count") << u"mèdical"_s << QStringList{};
    }
    void findsWhatHoldsTheSearchText()
    {
        QFETCH(QString, search);
        QFETCH(QStringList, found);
        load();
        model->setSearchText(search);
        QCOMPARE(column("name"), found);
        QCOMPARE(model->hasFilteredProjects(), !found.isEmpty());
        QCOMPARE(model->projects().size(), 3);
        model->setSearchText({});
        QCOMPARE(column("name").size(), 3);
    }

    void comparesCaseByTheRulesOfTheLocale()
    {
        model->createProject(u"ISTANBUL"_s, {});
        model->setSearchText(u"istanbul"_s);
        QVERIFY(model->hasFilteredProjects());
        model->setSearchText({});
        QLocale::setDefault(QLocale(QLocale::Turkish));
        model->setSearchText(u"istanbul"_s);
        QVERIFY(!model->hasFilteredProjects());
    }

    void keepsSearchingWhileTheListChanges()
    {
        model->setSearchText(u"medical"_s);
        load();
        QCOMPARE(column("name"), QStringList{u"Medical LLM"_s});
        model->createProject(u"Other"_s, {});
        QCOMPARE(column("name"), QStringList{u"Medical LLM"_s});
        model->createProject(u"Medical images"_s, {});
        QCOMPARE(column("name"), QStringList({u"Medical images"_s, u"Medical LLM"_s}));
    }

    void tellsHowLongAgoInWordsBetweenUpdatedAndAgo()
    {
        load();
        QCOMPARE(column("updatedText"),
            QStringList({u"Updated 1 hr ago"_s, u"Updated 1 day ago"_s, u"Updated 2 days ago"_s}));
    }

    void keepsTheWordsTrue()
    {
        model->createProject(u"Mine"_s, {});
        QCOMPARE(shown("updatedText"), u"Updated 0 sec ago"_s);
        world->clock.advance(1s);
        QCOMPARE(shown("updatedText"), u"Updated 1 sec ago"_s);
        world->clock.advance(58s);
        QCOMPARE(shown("updatedText"), u"Updated 59 sec ago"_s);
        world->clock.advance(1s);
        QCOMPARE(shown("updatedText"), u"Updated 1 min ago"_s);
        world->clock.advance(59min);
        QCOMPARE(shown("updatedText"), u"Updated 1 hr ago"_s);
        world->clock.advance(47h);
        QCOMPARE(shown("updatedText"), u"Updated 2 days ago"_s);
        // They belong to the card alone.
        QCOMPARE(model->projects().first().lastUpdated.secsTo(world->clock.now()), 172'800);
    }

    void tellsTheViewOnlyWhenTheWordsChange()
    {
        load();
        QSignalSpy told(model->filteredProjects(), &QAbstractItemModel::dataChanged);
        QSignalSpy reset(model->filteredProjects(), &QAbstractItemModel::modelReset);
        world->clock.advance(59min);
        QCOMPARE(told.size(), 0);
        world->clock.advance(1h);
        QCOMPARE(told.size(), 1);
        QCOMPARE(column("updatedText").first(), u"Updated 2 hr ago"_s);
        QCOMPARE(reset.size(), 0);
    }

    void keepsNoTimerWhenItIsGone()
    {
        QCOMPARE(world->clock.scheduledCount(), 1);
        world->clock.advance(1min);
        QCOMPARE(world->clock.scheduledCount(), 1);
        model.reset();
        QCOMPARE(world->clock.scheduledCount(), 0);
    }

    void announcesEachWriteBeforeIt()
    {
        QStringList log;
        connect(model.get(), &Observable::willChange, this, [&](const QString &field) {
            log.append(u"%1 of %2, loading %3"_s.arg(field).arg(model->projects().size()).arg(model->isLoading()));
        });
        load();
        model->createProject(u"Mine"_s, {});
        QCOMPARE(log,
            QStringList({u"isLoading of 0, loading 0"_s, u"projects of 0, loading 1"_s, u"isLoading of 3, loading 1"_s,
                u"projects of 3, loading 0"_s}));
    }

private:
    void load()
    {
        model->loadProjects();
        world->clock.advance(500ms);
    }

    static void expect(const Project &project, const QString &id, const QString &name, const QString &description,
        int models, int datasets, const QDateTime &updated, Project::ProjectStatus status)
    {
        QCOMPARE(project.id, id);
        QCOMPARE(project.name, name);
        QCOMPARE(project.description, description);
        QCOMPARE(project.modelCount, models);
        QCOMPARE(project.datasetCount, datasets);
        QCOMPARE(project.lastUpdated, updated);
        QCOMPARE(project.status, status);
    }

    // What the cards are given under that name, from the first to the last.
    QStringList column(const QByteArray &role) const
    {
        const QAbstractItemModel &cards = *model->filteredProjects();
        QStringList texts;
        for (int row = 0; row < cards.rowCount(); ++row) {
            texts.append(cards.index(row, 0).data(cards.roleNames().key(role)).toString());
        }
        return texts;
    }
    QString shown(const QByteArray &role) const { return column(role).value(0); }

    std::unique_ptr<TestEnvironment> world;
    std::unique_ptr<ProjectsViewModel> model;
};

QTEST_MAIN(tst_ProjectsViewModel)
#include "tst_ProjectsViewModel.moc"
