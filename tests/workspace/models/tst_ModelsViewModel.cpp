#include "identity/AuthManager.h"
#include "platform/MainQueue.h"
#include "service/APIError.h"
#include "support/TestEnvironment.h"
#include "workspace/models/ModelsViewModel.h"

#include <QSignalSpy>

#include <limits>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using quillmere::testing::eventually;
using quillmere::testing::settle;

namespace quillmere {

namespace {

using Filter = ModelsViewModel::ModelFilter;
using Ids = QSet<QString>;

// A model with a name made of its id; `more` is the rest of its fields.
QByteArray model(const QByteArray &id, const QByteArray &more = {})
{
    return "{\"id\":\"" + id + "\",\"name\":\"Model " + id + '"' + (more.isEmpty() ? "" : ',' + more) + '}';
}

QByteArray listOf(const QList<QByteArray> &models)
{
    return '[' + models.join(',') + ']';
}

const QByteArray fiveModels = listOf({
    model("a", R"("supports_finetuning":true,"description":"A calm, factual tone")"),
    model("b", R"("supports_finetuning":false,"description":"Source code")"),
    model("c", R"("description":"Calm seas")"),
    model("d", R"("supports_finetuning":null)"),
    model("e", R"("supports_finetuning":true)"),
});

QStringList idsOf(const QList<ModelInfo> &models)
{
    QStringList ids;
    for (const ModelInfo &model : models) {
        ids.append(model.id);
    }
    return ids;
}

QStringList letters(const QString &ids)
{
    return ids.split(QString(), Qt::SkipEmptyParts);
}

} // namespace

class tst_ModelsViewModel : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_world = std::make_unique<testing::TestEnvironment>();
        m_model = std::make_unique<ModelsViewModel>();
    }
    void cleanup()
    {
        m_model.reset();
        m_world.reset();
    }

    void startsEmptyAndIdle()
    {
        QVERIFY(m_model->models().isEmpty());
        QVERIFY(m_model->downloadedModels().isEmpty());
        QVERIFY(m_model->downloadingModels().isEmpty());
        QVERIFY(!m_model->isLoading());
        QVERIFY(!m_model->errorMessage());
        QVERIFY(!m_model->hasFailed());
        QCOMPARE(m_model->searchText(), QString());
        QCOMPARE(m_model->selectedFilter(), Filter::All);
        QVERIFY(!m_model->hasFilteredModels());
        QCOMPARE(&m_model->api, &QuillmereAPIClient::shared());
    }

    void namesItsFilters()
    {
        QCOMPARE(ModelsViewModel::filterTitle(Filter::All), u"All"_s);
        QCOMPARE(ModelsViewModel::filterTitle(Filter::Supported), u"Fine-tunable"_s);
        QCOMPARE(ModelsViewModel::filterTitle(Filter::Downloaded), u"Downloaded"_s);
    }

    // Loading

    void loadsTheCatalogWithoutASignIn()
    {
        loads(fiveModels);
        QCOMPARE(idsOf(m_model->models()), letters(u"abcde"_s));
        QCOMPARE(shown(), letters(u"abcde"_s));
        QVERIFY(!m_model->errorMessage());
        const auto requests = m_world->service.requests();
        QCOMPARE(requests.size(), 1);
        QCOMPARE(requests[0].method, QByteArray("GET"));
        QCOMPARE(requests[0].target, QByteArray("/v1/models"));
        QVERIFY(!requests[0].hasHeader("Authorization"));
    }

    void sendsNoTokenForTheCatalogOfASignedInUser()
    {
        m_world->isSignedIn();
        loads(fiveModels);
        QVERIFY(!m_world->service.requests().constFirst().hasHeader("Authorization"));
    }

    void takesTheStandInsWholeCatalog()
    {
        m_model->loadModels();
        QVERIFY(eventually([this] { return !m_model->isLoading(); }));
        QCOMPARE(m_model->models().size(), 24);
        QCOMPARE(m_model->models()[0].name, u"Marlowe 7B"_s);
    }

    void announcesItsFieldsInOrder()
    {
        m_world->service.hasModels(fiveModels);
        QStringList fields = announcements();
        QCOMPARE(fields, QStringList({u"isLoading"_s, u"errorMessage"_s, u"models"_s, u"isLoading"_s}));
        m_world->service.on("GET /v1/models").answers(500);
        fields = announcements();
        QCOMPARE(
            fields, QStringList({u"isLoading"_s, u"errorMessage"_s, u"errorMessage"_s, u"models"_s, u"isLoading"_s}));
    }

    void staysEmptyWhenTheCatalogIsEmpty()
    {
        loads(fiveModels);
        loads("[]");
        m_world->clock.advance(5s);
        QVERIFY(m_model->models().isEmpty());
        QVERIFY(!m_model->hasFilteredModels());
        QVERIFY(!m_model->errorMessage());
    }

    void emptiesTheListWhenALoadFails_data()
    {
        QTest::addColumn<QString>("failure");
        QTest::addColumn<QString>("text");
        QTest::newRow("the service says why") << u"status"_s << u"Down for an hour"_s;
        QTest::newRow("not found") << u"404"_s << u"Resource not found"_s;
        QTest::newRow("a status without words") << u"bare"_s << u"Unknown error (status: 502)"_s;
        QTest::newRow("connection cut") << u"cut"_s << QString();
        QTest::newRow("a reply that cannot be read") << u"reply"_s << QString();
    }
    void emptiesTheListWhenALoadFails()
    {
        QFETCH(QString, failure);
        QFETCH(QString, text);
        loads(fiveModels);
        auto route = m_world->service.on("GET /v1/models");
        if (failure == u"status"_s) {
            route.answers(503, R"({"detail":"Down for an hour"})");
        } else if (failure == u"404"_s) {
            route.answers(404);
        } else if (failure == u"bare"_s) {
            route.answers(502);
        } else if (failure == u"cut"_s) {
            route.closesWithoutReply();
        } else {
            route.omitsField("name");
        }
        m_model->loadModels();
        QVERIFY(m_model->isLoading());
        // What was there stays until the service has answered.
        QCOMPARE(m_model->models().size(), 5);
        QVERIFY(eventually([this] { return !m_model->isLoading(); }));
        QVERIFY(m_model->hasFailed());
        QVERIFY(!m_model->failureText().isEmpty());
        QCOMPARE(m_model->failureText(), *m_model->errorMessage());
        if (!text.isEmpty()) {
            QCOMPARE(m_model->failureText(), text);
        }
        QVERIFY(m_model->models().isEmpty());
        QVERIFY(!m_model->hasFilteredModels());
        m_world->clock.advance(5s);
        QVERIFY(m_model->models().isEmpty());
    }

    void forgetsTheFailureAsSoonAsItLoadsAgain()
    {
        m_world->service.on("GET /v1/models", 1).answers(500);
        m_model->loadModels();
        QVERIFY(eventually([this] { return m_model->hasFailed(); }));
        m_world->service.hasModels(fiveModels);
        m_model->loadModels();
        QVERIFY(!m_model->hasFailed());
        QVERIFY(!m_model->errorMessage());
        QCOMPARE(m_model->failureText(), QString());
        QVERIFY(eventually([this] { return !m_model->isLoading(); }));
        QCOMPARE(m_model->models().size(), 5);
    }

    void letsTheLastOfTwoLoadsStay()
    {
        m_world->service.hasModels(listOf({model("first")}));
        m_world->service.on("GET /v1/models", 1).hangsBeforeReply();
        m_model->loadModels();
        QVERIFY(eventually([this] { return m_world->service.requests().size() == 1; }));
        m_world->service.hasModels(listOf({model("second")}));
        m_model->loadModels();
        QVERIFY(eventually([this] { return !m_model->isLoading(); }));
        QCOMPARE(idsOf(m_model->models()), QStringList{u"second"_s});

        m_world->service.hasModels(listOf({model("third")}));
        m_world->service.release();
        QVERIFY(eventually([this] { return idsOf(m_model->models()) != QStringList{u"second"_s}; }));
        QVERIFY(!m_model->isLoading());
        QCOMPARE(m_model->models().size(), 1);
    }

    // Downloading

    void marksAModelTwoSecondsAfterItsRecordCame()
    {
        m_world->isSignedIn();
        loads(fiveModels);
        m_world->service.forgetRequests();
        m_world->service.on("GET /v1/models/b/download", 1).hangsBeforeReply();
        m_model->downloadModel(u"b"_s);
        QCOMPARE(m_model->downloadingModels(), Ids{u"b"_s});
        QVERIFY(eventually([this] { return m_world->service.requests().size() == 1; }));
        m_world->clock.advance(30s);
        QCOMPARE(m_model->downloadingModels(), Ids{u"b"_s});
        m_world->service.release();
        QVERIFY(eventually([this] { return m_world->clock.dueIn(2s) == 1; }));

        m_world->clock.advance(1'999ms);
        QCOMPARE(m_model->downloadingModels(), Ids{u"b"_s});
        QVERIFY(m_model->downloadedModels().isEmpty());
        m_world->clock.advance(1ms);
        QVERIFY(m_model->downloadingModels().isEmpty());
        QCOMPARE(m_model->downloadedModels(), Ids{u"b"_s});
        QVERIFY(!m_model->errorMessage());
        QCOMPARE(m_model->models().size(), 5);

        // The record was all that was asked for.
        settle();
        const auto requests = m_world->service.requests();
        QCOMPARE(requests.size(), 1);
        QCOMPARE(requests[0].method, QByteArray("GET"));
        QCOMPARE(requests[0].target, QByteArray("/v1/models/b/download"));
        QVERIFY(requests[0].hasHeader("Authorization"));
    }

    void hasNoSecondEffectForASecondPress()
    {
        m_world->isSignedIn();
        loads(fiveModels);
        m_world->service.forgetRequests();
        m_model->downloadModel(u"a"_s);
        m_model->downloadModel(u"a"_s);
        QVERIFY(eventually([this] { return m_world->clock.dueIn(2s) == 1; }));
        m_model->downloadModel(u"a"_s);
        settle();
        QCOMPARE(m_world->clock.scheduledCount(), 1);
        m_world->clock.advance(2s);
        m_model->downloadModel(u"a"_s);
        settle();
        QCOMPARE(m_world->service.requests().size(), 1);
        QVERIFY(m_model->downloadingModels().isEmpty());
        QCOMPARE(m_model->downloadedModels(), Ids{u"a"_s});
        QCOMPARE(m_world->clock.scheduledCount(), 0);
    }

    void keepsSeveralDownloadsApart()
    {
        m_world->isSignedIn();
        loads(fiveModels);
        m_model->downloadModel(u"a"_s);
        QVERIFY(eventually([this] { return m_world->clock.dueIn(2s) == 1; }));
        m_world->clock.advance(1s);
        m_model->downloadModel(u"b"_s);
        QVERIFY(eventually([this] { return m_world->clock.dueIn(2s) == 1; }));
        QCOMPARE(m_model->downloadingModels(), Ids({u"a"_s, u"b"_s}));
        m_world->clock.advance(1s);
        QCOMPARE(m_model->downloadingModels(), Ids{u"b"_s});
        QCOMPARE(m_model->downloadedModels(), Ids{u"a"_s});
        QCOMPARE(m_model->downloadedText(), u"1 downloaded"_s);
        m_world->clock.advance(1s);
        QCOMPARE(m_model->downloadedModels(), Ids({u"a"_s, u"b"_s}));
        QCOMPARE(m_model->downloadedText(), u"2 downloaded"_s);
    }

    void failsADownloadWhenSignedOutAndKeepsTheModels()
    {
        loads(fiveModels);
        m_model->downloadModel(u"a"_s);
        QVERIFY(eventually([this] { return m_model->hasFailed(); }));
        QCOMPARE(m_model->failureText(), failure(APIError::unauthorized).localizedDescription());
        QVERIFY(m_model->downloadingModels().isEmpty());
        QVERIFY(m_model->downloadedModels().isEmpty());
        QCOMPARE(m_model->models().size(), 5);
        QCOMPARE(shown(), letters(u"abcde"_s));
        QCOMPARE(m_world->clock.scheduledCount(), 0);

        m_model->loadModels();
        QVERIFY(!m_model->hasFailed());
    }

    void forgetsNoMarkForADownloadThatFails()
    {
        m_world->isSignedIn();
        loads(fiveModels);
        downloads(u"a"_s);
        m_model->downloadModel(u"c"_s);
        QVERIFY(eventually([this] { return m_world->clock.dueIn(2s) == 1; }));
        m_world->service.on("GET /v1/models/b/download").omitsField("expires_at");
        m_model->downloadModel(u"b"_s);
        QVERIFY(eventually([this] { return m_model->hasFailed(); }));
        QCOMPARE(m_model->downloadedModels(), Ids{u"a"_s});
        QCOMPARE(m_model->downloadingModels(), Ids{u"c"_s});
        // The one under way goes on behind the failure.
        m_world->clock.advance(2s);
        QCOMPARE(m_model->downloadedModels(), Ids({u"a"_s, u"c"_s}));
        QVERIFY(m_model->hasFailed());
    }

    void mayTryADownloadAgainThatFailed()
    {
        m_world->isSignedIn();
        loads(fiveModels);
        m_world->service.on("GET /v1/models/a/download", 1).answers(429);
        m_model->downloadModel(u"a"_s);
        QVERIFY(eventually([this] { return m_model->hasFailed(); }));
        loads(fiveModels);
        downloads(u"a"_s);
        QCOMPARE(m_model->downloadedModels(), Ids{u"a"_s});
    }

    void keepsItsMarksOverALoad()
    {
        m_world->isSignedIn();
        loads(fiveModels);
        downloads(u"a"_s);
        m_model->downloadModel(u"b"_s);
        QVERIFY(eventually([this] { return m_world->clock.dueIn(2s) == 1; }));
        loads(listOf({model("b"), model("a")}));
        QCOMPARE(values("isDownloaded"), QVariantList({false, true}));
        QCOMPARE(values("isDownloading"), QVariantList({true, false}));
        m_world->clock.advance(2s);
        QCOMPARE(values("isDownloaded"), QVariantList({true, true}));
    }

    void endsASessionThatTheServiceRefusesDuringADownload()
    {
        m_world->isSignedIn();
        loads(fiveModels);
        m_world->service.revokesTokens();
        // The session is over before the failure is told.
        bool wasOver = false;
        connect(m_model.get(), &ModelsViewModel::errorMessageChanged, this,
            [&] { wasOver = !AuthManager::shared().isAuthenticated(); });
        m_model->downloadModel(u"a"_s);
        QVERIFY(eventually([this] { return m_model->hasFailed(); }));
        QVERIFY(wasOver);
        QVERIFY(m_model->downloadingModels().isEmpty());
    }

    void mayGoWhenTheSessionEndsDuringADownload()
    {
        m_world->isSignedIn();
        loads(fiveModels);
        m_world->service.revokesTokens();
        connect(&AuthManager::shared(), &AuthManager::isAuthenticatedChanged, this, [this] { m_model.reset(); });
        m_model->downloadModel(u"a"_s);
        QVERIFY(eventually([this] { return !m_model; }));
        settle();
        QVERIFY(!AuthManager::shared().isAuthenticated());
    }

    void asksForNothingUnderAnIdThatMakesNoAddress()
    {
        m_world->isSignedIn();
        loads(listOf({model("two words")}));
        m_world->service.forgetRequests();
        m_model->downloadModel(u"two words"_s);
        QVERIFY(eventually([this] { return m_model->hasFailed(); }));
        QCOMPARE(m_model->failureText(), failure(APIError::invalidURL).localizedDescription());
        QVERIFY(m_world->service.requests().isEmpty());
        QVERIFY(m_model->downloadingModels().isEmpty());
    }

    void mayGoBeforeItsModelsCome()
    {
        m_world->isSignedIn();
        m_world->service.on("GET /v1/models").hangsBeforeReply();
        m_model->loadModels();
        m_model->downloadModel(u"a"_s);
        QVERIFY(eventually([this] { return m_world->service.requests().size() == 2; }));
        m_model.reset();
        QSignalSpy answered(&m_world->service, &StandIn::replySent);
        m_world->service.release();
        QVERIFY(eventually([&] { return answered.size() == 2; }));
        settle();
        QCOMPARE(m_world->service.requests().size(), 2);
    }

    void mayGoBeforeAModelIsMarked()
    {
        m_world->isSignedIn();
        loads(fiveModels);
        m_model->downloadModel(u"a"_s);
        QVERIFY(eventually([this] { return m_world->clock.dueIn(2s) == 1; }));
        m_model.reset();
        m_world->clock.advance(3s);
        QCOMPARE(m_world->clock.scheduledCount(), 0);
    }

    void marksNothingWhileAnAlertIsUp()
    {
        m_world->isSignedIn();
        loads(fiveModels);
        m_model->downloadModel(u"a"_s);
        QVERIFY(eventually([this] { return m_world->clock.dueIn(2s) == 1; }));
        MainQueue::shared().hold();
        m_world->clock.advance(3s);
        QVERIFY(m_model->downloadedModels().isEmpty());
        MainQueue::shared().release();
        QVERIFY(eventually([this] { return !m_model->downloadedModels().isEmpty(); }));
    }

    // What is shown of them

    void findsModelsByNameOrDescription_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("ids");
        QTest::newRow("none") << QString() << u"abcde"_s;
        QTest::newRow("in every name") << u"model"_s << u"abcde"_s;
        QTest::newRow("a name in other case") << u"MODEL D"_s << u"d"_s;
        QTest::newRow("only in descriptions") << u"calm"_s << u"ac"_s;
        QTest::newRow("a description in other case") << u"SOURCE"_s << u"b"_s;
        QTest::newRow("a blank counts") << u" calm"_s << u"a"_s;
        QTest::newRow("not in ids") << u"tone b"_s << QString();
        QTest::newRow("not what stands for no description") << u"available"_s << QString();
        QTest::newRow("from name into description") << u"model aa"_s << QString();
    }
    void findsModelsByNameOrDescription()
    {
        QFETCH(QString, text);
        QFETCH(QString, ids);
        loads(fiveModels);
        m_model->setSearchText(text);
        QCOMPARE(shown(), letters(ids));
        QCOMPARE(m_model->hasFilteredModels(), !ids.isEmpty());
        QCOMPARE(m_model->models().size(), 5);
        m_model->setSearchText({});
        QCOMPARE(shown(), letters(u"abcde"_s));
    }

    void passesOnlyWhatTheServiceCallsTunable()
    {
        loads(fiveModels);
        m_model->setSelectedFilter(Filter::Supported);
        QCOMPARE(shown(), letters(u"ae"_s));
        QCOMPARE(values("isTunable"), QVariantList({true, true}));
        m_model->setSelectedFilter(Filter::All);
        QCOMPARE(values("isTunable"), QVariantList({true, false, false, false, true}));
    }

    void passesNothingAsDownloadedWhileNothingIsMarked()
    {
        loads(fiveModels);
        m_model->setSelectedFilter(Filter::Downloaded);
        QVERIFY(!m_model->hasFilteredModels());
    }

    void letsAModelJoinTheDownloadedOnesInItsPlace()
    {
        m_world->isSignedIn();
        loads(fiveModels);
        downloads(u"e"_s);
        downloads(u"a"_s);
        m_model->downloadModel(u"c"_s);
        QVERIFY(eventually([this] { return m_world->clock.dueIn(2s) == 1; }));
        m_model->setSelectedFilter(Filter::Downloaded);
        QCOMPARE(shown(), letters(u"ae"_s));
        QSignalSpy inserted(m_model->filteredModels(), &QAbstractItemModel::rowsInserted);
        QSignalSpy removed(m_model->filteredModels(), &QAbstractItemModel::rowsRemoved);
        m_world->clock.advance(2s);
        QCOMPARE(shown(), letters(u"ace"_s));
        QCOMPARE(inserted.size(), 1);
        QCOMPARE(inserted[0][1].toInt(), 1);
        QCOMPARE(inserted[0][2].toInt(), 1);
        QCOMPARE(removed.size(), 0);
    }

    void searchesAndFiltersTogether()
    {
        loads(fiveModels);
        m_model->setSearchText(u"calm"_s);
        m_model->setSelectedFilter(Filter::Supported);
        QCOMPARE(shown(), letters(u"a"_s));
        m_model->setSearchText(u"seas"_s);
        QVERIFY(!m_model->hasFilteredModels());
        m_model->setSelectedFilter(Filter::All);
        QCOMPARE(shown(), letters(u"c"_s));
        // A load keeps both.
        loads(listOf({model("x", R"("description":"Many SEAS")"), model("y")}));
        QCOMPARE(shown(), letters(u"x"_s));
    }

    void touchesNoOtherRowForAMark()
    {
        m_world->isSignedIn();
        loads(fiveModels);
        QStringList told;
        connect(m_model->filteredModels(), &QAbstractItemModel::dataChanged, this,
            [&](const QModelIndex &first, const QModelIndex &last) {
                told.append(u"%1-%2"_s.arg(first.row()).arg(last.row()));
            });
        QSignalSpy reset(m_model->filteredModels(), &QAbstractItemModel::modelReset);
        QSignalSpy removed(m_model->filteredModels(), &QAbstractItemModel::rowsRemoved);
        QSignalSpy inserted(m_model->filteredModels(), &QAbstractItemModel::rowsInserted);
        m_model->downloadModel(u"d"_s);
        QCOMPARE(told, QStringList{u"3-3"_s});
        QCOMPARE(values("isDownloading"), QVariantList({false, false, false, true, false}));
        QVERIFY(eventually([this] { return m_world->clock.dueIn(2s) == 1; }));
        m_world->clock.advance(2s);
        told.removeDuplicates();
        QCOMPARE(told, QStringList{u"3-3"_s});
        QCOMPARE(values("isDownloading"), QVariantList({false, false, false, false, false}));
        QCOMPARE(values("isDownloaded"), QVariantList({false, false, false, true, false}));
        QCOMPARE(reset.size() + removed.size() + inserted.size(), 0);
    }

    void marksEachModelOfOneId()
    {
        m_world->isSignedIn();
        loads(listOf({model("a"), model("b"), model("a")}));
        QCOMPARE(shown(), letters(u"aba"_s));
        m_model->downloadModel(u"a"_s);
        QCOMPARE(values("isDownloading"), QVariantList({true, false, true}));
        QVERIFY(eventually([this] { return m_world->clock.dueIn(2s) == 1; }));
        m_world->clock.advance(2s);
        QCOMPARE(values("isDownloaded"), QVariantList({true, false, true}));
        QCOMPARE(m_model->downloadedText(), u"1 downloaded"_s);
    }

    void showsTheFiguresOfAModel_data()
    {
        QTest::addColumn<QByteArray>("field");
        QTest::addColumn<qint64>("value");
        QTest::addColumn<QString>("text");
        const auto row = [](const char *field, qint64 value, const QString &text) {
            QTest::addRow("%s %lld", field, value) << QByteArray(field) << value << text;
        };
        constexpr qint64 most = std::numeric_limits<qint64>::max();
        constexpr qint64 least = std::numeric_limits<qint64>::min();
        row("parameters", 7'000'000'000, u"7.0B"_s);
        row("parameters", 1'000'000'000, u"1.0B"_s);
        row("parameters", 1'250'000'000, u"1.2B"_s); // a half goes to the even neighbour
        row("parameters", 999'999'999, u"1000M"_s);
        row("parameters", 2'500'000, u"2M"_s);
        row("parameters", 1'500'000, u"2M"_s);
        row("parameters", 1'000'000, u"1M"_s);
        row("parameters", 999'999, u"999999"_s);
        row("parameters", 0, u"0"_s);
        row("parameters", -7'000'000'000, u"-7000000000"_s);
        row("parameters", most, u"9223372036.9B"_s);
        row("parameters", least, u"-9223372036854775808"_s);
        row("context_length", 4'096, u"4K"_s);
        row("context_length", 8'192, u"8K"_s);
        row("context_length", 1'999, u"1K"_s);
        row("context_length", 999, u"0K"_s);
        row("context_length", -1'999, u"-1K"_s);
        row("context_length", most, u"9223372036854775K"_s);
        row("context_length", least, u"-9223372036854775K"_s);
        row("size_bytes", 0, u"Zero KB"_s);
        row("size_bytes", 15'420'000, u"15.4 MB"_s);
        row("size_bytes", 14'483'464'192, u"14.48 GB"_s);
        row("size_bytes", -1'000, u"-1 KB"_s);
        row("size_bytes", most, u"9.22 EB"_s);
        row("size_bytes", least, u"-9.22 EB"_s);
    }
    void showsTheFiguresOfAModel()
    {
        QFETCH(QByteArray, field);
        QFETCH(qint64, value);
        QFETCH(QString, text);
        loads(listOf({model("a", '"' + field + "\":" + QByteArray::number(value))}));
        QCOMPARE(m_model->models().size(), 1);
        const QStringList figures = {
            values("params")[0].toString(), values("context")[0].toString(), values("size")[0].toString()};
        const QStringList expected = {field == "parameters" ? text : QString(),
            field == "context_length" ? text : QString(), field == "size_bytes" ? text : QString()};
        QCOMPARE(figures, expected);
    }

    void saysWhereAModelHasNoDescription()
    {
        loads(listOf({model("a"), model("b", R"("description":null)"), model("c", R"("description":"")"),
            model("d", R"("description":"<b>Mine</b>")")}));
        QCOMPARE(values("description"),
            QVariantList({u"No description available"_s, u"No description available"_s, QString(), u"<b>Mine</b>"_s}));
    }

private:
    void loads(const QByteArray &models)
    {
        m_world->service.hasModels(models);
        m_model->loadModels();
        QVERIFY(m_model->isLoading());
        QVERIFY(eventually([this] { return !m_model->isLoading(); }));
        QVERIFY(!m_model->hasFailed());
    }

    void downloads(const QString &id)
    {
        m_model->downloadModel(id);
        QVERIFY(eventually([this] { return m_world->clock.dueIn(2s) == 1; }));
        m_world->clock.advance(2s);
        QVERIFY(m_model->downloadedModels().contains(id));
    }

    // The fields written by a load, in order.
    QStringList announcements()
    {
        QStringList fields;
        const auto connection =
            connect(m_model.get(), &Observable::willChange, this, [&](const QString &field) { fields.append(field); });
        m_model->loadModels();
        // A write is announced before it is made.
        (void)eventually([this] { return !m_model->isLoading(); });
        disconnect(connection);
        return fields;
    }

    QVariantList values(const QByteArray &role) const
    {
        QVariantList list;
        const auto *rows = m_model->filteredModels();
        for (int row = 0; row < rows->rowCount(); ++row) {
            list.append(rows->index(row, 0).data(rows->roleNames().key(role)));
        }
        return list;
    }

    QStringList shown() const { return QVariant(values("identifier")).toStringList(); }

    std::unique_ptr<testing::TestEnvironment> m_world;
    std::unique_ptr<ModelsViewModel> m_model;
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_ModelsViewModel)
#include "tst_ModelsViewModel.moc"
