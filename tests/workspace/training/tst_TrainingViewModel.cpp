#include "app/theme/Color.h"
#include "identity/AuthManager.h"
#include "support/TestEnvironment.h"
#include "workspace/training/TrainingViewModel.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using quillmere::testing::eventually;
using quillmere::testing::settle;

namespace quillmere {

namespace {

using Filter = TrainingViewModel::JobStatusFilter;

QByteArray jobNamed(const QByteArray &id, const QByteArray &status)
{
    return "{\"id\":\"" + id + "\",\"name\":\"Job " + id + "\",\"status\":\"" + status
        + "\",\"progress\":40,\"created_at\":\"2026-11-20T10:00:00Z\"}";
}

// Two running and one of every other status known, one unknown, in no order.
const QByteArray jobsOfEveryStatus = '[' + jobNamed("c", "completed") + ',' + jobNamed("r1", "running") + ','
    + jobNamed("x", "cancelled") + ',' + jobNamed("p", "pending") + ',' + jobNamed("f", "failed") + ','
    + jobNamed("u", "in_progress") + ',' + jobNamed("r2", "running") + ']';

QStringList idsOf(const QList<FineTuneJob> &jobs)
{
    QStringList ids;
    for (const FineTuneJob &job : jobs) {
        ids.append(job.id);
    }
    return ids;
}

const QStringList sampleIds{u"ft-29384"_s, u"ft-29381"_s, u"ft-29377"_s};

} // namespace

class tst_TrainingViewModel : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_world = std::make_unique<testing::TestEnvironment>();
        m_model = std::make_unique<TrainingViewModel>();
    }
    void cleanup()
    {
        m_model.reset();
        m_world.reset();
    }

    void startsEmptyAndIdle()
    {
        QVERIFY(m_model->jobs().isEmpty());
        QVERIFY(!m_model->isLoading());
        QVERIFY(!m_model->errorMessage());
        QCOMPARE(m_model->selectedFilter(), Filter::All);
        QVERIFY(!m_model->hasFilteredJobs());
        QCOMPARE(counts(), QStringList({u"0"_s, u"0"_s, u"0"_s}));
        QCOMPARE(&m_model->api, &QuillmereAPIClient::shared());
    }

    void namesItsFilters()
    {
        QCOMPARE(TrainingViewModel::filterTitle(Filter::All), u"All"_s);
        QCOMPARE(TrainingViewModel::filterTitle(Filter::Running), u"Running"_s);
        QCOMPARE(TrainingViewModel::filterTitle(Filter::Completed), u"Completed"_s);
        QCOMPARE(TrainingViewModel::filterTitle(Filter::Failed), u"Failed"_s);
    }

    // Signed out

    void showsThreeSamplesAfterAMomentToASignedOutUser()
    {
        m_model->loadJobs();
        QVERIFY(m_model->isLoading());
        m_world->clock.advance(299ms);
        QVERIFY(m_model->isLoading());
        QVERIFY(m_model->jobs().isEmpty());
        m_world->clock.advance(1ms);
        QVERIFY(!m_model->isLoading());
        QCOMPARE(idsOf(m_model->jobs()), sampleIds);
        QCOMPARE(counts(), QStringList({u"1"_s, u"1"_s, u"3"_s}));
        QVERIFY(!m_model->errorMessage());
        QVERIFY(m_world->service.requests().isEmpty());
    }

    void makesTheSamplesRelativeToTheMoment()
    {
        const QDateTime start = m_world->clock.now();
        loadsSamples();
        const QDateTime now = start.addMSecs(300);
        const auto &jobs = m_model->jobs();
        const FineTuneJob running{.id = u"ft-29384"_s,
            .name = u"Medical LLaMA Fine-Tuning"_s,
            .status = u"running"_s,
            .progress = 67,
            .config = {},
            .metrics = {},
            .errorMessage = {},
            .startedAt = now.addSecs(-8'100),
            .completedAt = {},
            .createdAt = now.addSecs(-8'100)};
        const FineTuneJob completed{.id = u"ft-29381"_s,
            .name = u"Code Assistant LoRA"_s,
            .status = u"completed"_s,
            .progress = 100,
            .config = {},
            .metrics = {},
            .errorMessage = {},
            .startedAt = now.addSecs(-172'800),
            .completedAt = now.addSecs(-86'400),
            .createdAt = now.addSecs(-172'800)};
        const FineTuneJob failed{.id = u"ft-29377"_s,
            .name = u"Customer Support Bot"_s,
            .status = u"failed"_s,
            .progress = 23,
            .config = {},
            .metrics = {},
            .errorMessage = u"Out of memory"_s,
            .startedAt = now.addSecs(-259'200),
            .completedAt = now.addSecs(-259'000),
            .createdAt = now.addSecs(-259'200)};
        QCOMPARE(jobs.size(), 3);
        QVERIFY(isSame(jobs[0], running));
        QVERIFY(isSame(jobs[1], completed));
        QVERIFY(isSame(jobs[2], failed));

        m_world->clock.advance(1h);
        loadsSamples();
        QCOMPARE(*m_model->jobs()[0].startedAt, now.addSecs(3600).addMSecs(300).addSecs(-8'100));
    }

    void cancelsASampleInPlace()
    {
        loadsSamples();
        const FineTuneJob before = m_model->jobs()[0];
        m_world->clock.advance(5min);
        m_model->cancelJob(u"ft-29384"_s);

        FineTuneJob expected = before;
        expected.status = u"cancelled"_s;
        expected.errorMessage = {};
        expected.completedAt = m_world->clock.now();
        QVERIFY(isSame(m_model->jobs()[0], expected));
        QCOMPARE(m_model->jobs()[0].progress, 67);
        QCOMPARE(idsOf(m_model->jobs()), sampleIds);
        QCOMPARE(counts(), QStringList({u"0"_s, u"1"_s, u"3"_s}));
        m_model->setSelectedFilter(Filter::Failed);
        QCOMPARE(shown(u"badge"_s), QStringList({u"Cancelled"_s, u"Failed"_s}));
        QVERIFY(!m_model->isLoading());
        QCOMPARE(m_world->clock.scheduledCount(), 0);
        settle();
        QVERIFY(m_world->service.requests().isEmpty());
    }

    void clearsTheFailureTextOfASampleThatIsCanceled()
    {
        loadsSamples();
        m_model->cancelJob(u"ft-29377"_s);
        QVERIFY(!m_model->jobs()[2].errorMessage);
        QCOMPARE(m_model->jobs()[2].status, u"cancelled"_s);
        QCOMPARE(*m_model->jobs()[2].completedAt, m_world->clock.now());
    }

    void cancelsNothingForAnUnknownId()
    {
        loadsSamples();
        QSignalSpy willChange(m_model.get(), &TrainingViewModel::willChange);
        m_model->cancelJob(u"FT-29384"_s);
        QCOMPARE(willChange.size(), 0);
        QCOMPARE(counts(), QStringList({u"1"_s, u"1"_s, u"3"_s}));
    }

    void cancelsTheFirstOfTwoWithOneId()
    {
        loads('[' + jobNamed("a", "running") + ',' + jobNamed("a", "running") + ']');
        AuthManager::shared().logout();
        m_model->cancelJob(u"a"_s);
        QCOMPARE(m_model->jobs()[0].status, u"cancelled"_s);
        QCOMPARE(m_model->jobs()[1].status, u"running"_s);
    }

    // Signed in

    void showsTheServicesJobsInTheOrderReceived()
    {
        loads(jobsOfEveryStatus);
        QCOMPARE(idsOf(m_model->jobs()), QStringList({u"c"_s, u"r1"_s, u"x"_s, u"p"_s, u"f"_s, u"u"_s, u"r2"_s}));
        QCOMPARE(shown(u"identifier"_s), idsOf(m_model->jobs()));
        QVERIFY(!m_model->isLoading());
        QVERIFY(!m_model->errorMessage());
        QCOMPARE(m_world->service.requests().size(), 1);
    }

    void staysEmptyWhenTheServiceHasNoJobs()
    {
        loads("[]");
        m_world->clock.advance(1s);
        QVERIFY(m_model->jobs().isEmpty());
        QVERIFY(!m_model->hasFilteredJobs());
        QCOMPARE(counts(), QStringList({u"0"_s, u"0"_s, u"0"_s}));
    }

    void replacesJobsByAnEmptyList()
    {
        loads(jobsOfEveryStatus);
        loads("[]");
        QVERIFY(m_model->jobs().isEmpty());
        QVERIFY(!m_model->hasFilteredJobs());
    }

    void showsSamplesWhenTheServiceFails_data()
    {
        QTest::addColumn<QString>("failure");
        QTest::newRow("down") << u"status"_s;
        QTest::newRow("connection cut") << u"cut"_s;
        QTest::newRow("a reply that cannot be read") << u"reply"_s;
    }
    void showsSamplesWhenTheServiceFails()
    {
        QFETCH(QString, failure);
        loads(jobsOfEveryStatus);
        const QStringList before = idsOf(m_model->jobs());
        auto route = m_world->service.on("GET /v1/fine-tuning/jobs");
        if (failure == u"status"_s) {
            route.answers(503, R"({"detail":"Down for an hour"})");
        } else if (failure == u"cut"_s) {
            route.closesWithoutReply();
        } else {
            route.omitsField("status");
        }
        m_model->loadJobs();
        QVERIFY(eventually([this] { return m_model->errorMessage().has_value(); }));
        QVERIFY(!m_model->errorMessage()->isEmpty());
        if (failure == u"status"_s) {
            QCOMPARE(m_model->errorMessage().value_or(u"none"_s), u"Down for an hour"_s);
        }
        // The spinner and the earlier jobs stay until the samples are there.
        m_world->clock.advance(299ms);
        QVERIFY(m_model->isLoading());
        QCOMPARE(idsOf(m_model->jobs()), before);
        m_world->clock.advance(1ms);
        QVERIFY(!m_model->isLoading());
        QCOMPARE(idsOf(m_model->jobs()), sampleIds);
    }

    void neverForgetsItsLastFailure()
    {
        m_world->isSignedIn();
        m_world->service.on("GET /v1/fine-tuning/jobs", 1).answers(503, R"({"detail":"Down"})");
        m_model->loadJobs();
        QVERIFY(eventually([this] { return m_model->errorMessage().has_value(); }));
        m_world->clock.advance(300ms);
        loads("[]");
        QCOMPARE(m_model->errorMessage().value_or(u"none"_s), u"Down"_s);
    }

    void showsSamplesAfterTheSessionWasEndedByTheService()
    {
        m_world->isSignedIn();
        m_world->service.revokesTokens();
        m_model->loadJobs();
        QVERIFY(eventually([this] { return m_model->errorMessage().has_value(); }));
        QVERIFY(!AuthManager::shared().isAuthenticated());
        m_world->clock.advance(300ms);
        QCOMPARE(idsOf(m_model->jobs()), sampleIds);
    }

    void cancelsAtTheServiceAndLoadsAnew()
    {
        loads('[' + jobNamed("a", "running") + ',' + jobNamed("b", "running") + ']');
        m_world->service.forgetRequests();
        m_model->cancelJob(u"a"_s);
        // What the service returns for the job is dropped; the list is what counts.
        QVERIFY(eventually([this] { return m_model->isLoading(); }));
        QCOMPARE(m_model->jobs()[0].status, u"running"_s);
        QVERIFY(eventually([this] { return !m_model->isLoading(); }));
        QCOMPARE(m_model->jobs()[0].status, u"cancelled"_s);
        QCOMPARE(m_model->jobs()[1].status, u"running"_s);
        const auto requests = m_world->service.requests();
        QCOMPARE(requests.size(), 2);
        QCOMPARE(requests[0].method, QByteArray("POST"));
        QCOMPARE(requests[0].target, QByteArray("/v1/fine-tuning/jobs/a/cancel"));
        QCOMPARE(requests[1].method, QByteArray("GET"));
        QCOMPARE(requests[1].target, QByteArray("/v1/fine-tuning/jobs"));
    }

    void asksTheServiceForIdsThatItDoesNotKnowToo()
    {
        loads(jobsOfEveryStatus);
        m_world->service.forgetRequests();
        m_model->cancelJob(u"unknown"_s);
        QVERIFY(eventually([this] { return m_model->errorMessage().has_value(); }));
        QCOMPARE(m_model->errorMessage().value_or(u"none"_s), u"Resource not found"_s);
        QCOMPARE(m_world->service.requests().size(), 1);
    }

    void keepsJobsWhenACancelFails()
    {
        loads(jobsOfEveryStatus);
        const QStringList before = idsOf(m_model->jobs());
        m_world->service.forgetRequests();
        m_world->service.on("POST /v1/fine-tuning/jobs/r1/cancel").answers(500, R"({"detail":"Too late"})");
        QSignalSpy jobsChanged(m_model.get(), &TrainingViewModel::jobsChanged);
        m_model->cancelJob(u"r1"_s);
        QVERIFY(eventually([this] { return m_model->errorMessage().has_value(); }));
        settle();
        m_world->clock.advance(1s);
        QCOMPARE(m_model->errorMessage().value_or(u"none"_s), u"Too late"_s);
        QCOMPARE(idsOf(m_model->jobs()), before);
        QCOMPARE(jobsChanged.size(), 0);
        QVERIFY(!m_model->isLoading());
        QCOMPARE(m_world->service.requests().size(), 1);
    }

    void letsTheLastOfTwoLoadsStay()
    {
        m_world->isSignedIn();
        m_world->service.hasJobs('[' + jobNamed("first", "running") + ']');
        m_world->service.on("GET /v1/fine-tuning/jobs", 1).hangsBeforeReply();
        m_model->loadJobs();
        QVERIFY(eventually([this] { return m_world->service.requests().size() == 1; }));
        m_world->service.hasJobs('[' + jobNamed("second", "running") + ']');
        m_model->loadJobs();
        QVERIFY(eventually([this] { return !m_model->isLoading(); }));
        QCOMPARE(idsOf(m_model->jobs()), QStringList{u"second"_s});

        m_world->service.hasJobs('[' + jobNamed("third", "running") + ']');
        m_world->service.release();
        QVERIFY(eventually([this] { return idsOf(m_model->jobs()) != QStringList{u"second"_s}; }));
        QVERIFY(!m_model->isLoading());
        QCOMPARE(m_model->jobs().size(), 1);
    }

    void mayGoBeforeItsJobsCome()
    {
        m_model->loadJobs();
        m_model.reset();
        m_world->clock.advance(1s);

        m_model = std::make_unique<TrainingViewModel>();
        m_world->isSignedIn();
        m_world->service.on("GET /v1/fine-tuning/jobs").hangsBeforeReply();
        m_world->service.on("POST /v1/fine-tuning/jobs/a/cancel").hangsBeforeReply();
        m_model->loadJobs();
        m_model->cancelJob(u"a"_s);
        QVERIFY(eventually([this] { return m_world->service.requests().size() == 2; }));
        m_model.reset();
        QSignalSpy answered(&m_world->service, &StandIn::replySent);
        m_world->service.release();
        QVERIFY(eventually([&] { return answered.size() == 2; }));
        settle();
        QCOMPARE(m_world->service.requests().size(), 2);
    }

    // What is shown of them

    void passesStatusesLetterForLetter_data()
    {
        QTest::addColumn<Filter>("filter");
        QTest::addColumn<QStringList>("ids");
        QTest::newRow("all") << Filter::All << QStringList({u"c"_s, u"r1"_s, u"x"_s, u"p"_s, u"f"_s, u"u"_s, u"r2"_s});
        QTest::newRow("running") << Filter::Running << QStringList({u"r1"_s, u"p"_s, u"r2"_s});
        QTest::newRow("completed") << Filter::Completed << QStringList({u"c"_s});
        QTest::newRow("failed") << Filter::Failed << QStringList({u"x"_s, u"f"_s});
    }
    void passesStatusesLetterForLetter()
    {
        QFETCH(Filter, filter);
        QFETCH(QStringList, ids);
        loads(jobsOfEveryStatus);
        m_model->setSelectedFilter(filter);
        QCOMPARE(shown(u"identifier"_s), ids);
        // The counts look at all jobs; pending ones are not active.
        QCOMPARE(counts(), QStringList({u"2"_s, u"1"_s, u"7"_s}));

        for (const QByteArray status : {"Running", "RUNNING", " running", "canceled", ""}) {
            QVERIFY(!TrainingVocabulary::passes(Filter::Running, QString::fromLatin1(status)));
            QVERIFY(!TrainingVocabulary::passes(Filter::Failed, QString::fromLatin1(status)));
            QVERIFY(TrainingVocabulary::passes(Filter::All, QString::fromLatin1(status)));
        }
    }

    void keepsTheFilterOverALoad()
    {
        loads(jobsOfEveryStatus);
        m_model->setSelectedFilter(Filter::Completed);
        loads('[' + jobNamed("r", "running") + ']');
        QCOMPARE(m_model->selectedFilter(), Filter::Completed);
        QVERIFY(!m_model->hasFilteredJobs());
        QCOMPARE(m_model->jobs().size(), 1);
    }

    void showsAJobByItsStatus_data()
    {
        QTest::addColumn<QByteArray>("status");
        QTest::addColumn<QString>("badge");
        QTest::addColumn<QString>("color");
        QTest::addColumn<bool>("isRunning");
        QTest::newRow("running") << QByteArray("running") << u"Running"_s << u"22C55E"_s << true;
        QTest::newRow("pending") << QByteArray("pending") << u"Pending"_s << u"22C55E"_s << false;
        QTest::newRow("completed") << QByteArray("completed") << u"Completed"_s << u"3B82F6"_s << false;
        QTest::newRow("failed") << QByteArray("failed") << u"Failed"_s << u"EF4444"_s << false;
        QTest::newRow("cancelled") << QByteArray("cancelled") << u"Cancelled"_s << u"EF4444"_s << false;
        QTest::newRow("unknown") << QByteArray("waiting for GPU") << u"Waiting For Gpu"_s << u"A1A1AA"_s << false;
        QTest::newRow("with an underscore") << QByteArray("in_progress") << u"In_Progress"_s << u"A1A1AA"_s << false;
        QTest::newRow("in capitals") << QByteArray("RUNNING") << u"Running"_s << u"A1A1AA"_s << false;
        QTest::newRow("empty") << QByteArray("") << u""_s << u"A1A1AA"_s << false;
    }
    void showsAJobByItsStatus()
    {
        QFETCH(QByteArray, status);
        QFETCH(QString, badge);
        QFETCH(QString, color);
        QFETCH(bool, isRunning);
        loads('[' + jobNamed("a", status) + ']');
        const TrainingJobRow row = TrainingJobRow::of(m_model->jobs().constFirst());
        QCOMPARE(row.id, u"a"_s);
        QCOMPARE(row.name, u"Job a"_s);
        QCOMPARE(row.badge, badge);
        QCOMPARE(row.statusColor, Color::hex(color));
        QCOMPARE(row.isRunning, isRunning);
    }

    void showsProgressAsAWholeNumber_data()
    {
        QTest::addColumn<qint64>("progress");
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("part");
        QTest::newRow("none") << qint64(0) << u"0%"_s << 0.0;
        QTest::newRow("some") << qint64(67) << u"67%"_s << 0.67;
        QTest::newRow("all") << qint64(100) << u"100%"_s << 1.0;
        QTest::newRow("more than all") << qint64(1234567) << u"1234567%"_s << 1.0;
        QTest::newRow("less than none") << qint64(-3) << u"-3%"_s << 0.0;
    }
    void showsProgressAsAWholeNumber()
    {
        QFETCH(qint64, progress);
        QFETCH(QString, text);
        QFETCH(double, part);
        FineTuneJob job;
        job.progress = progress;
        const TrainingJobRow row = TrainingJobRow::of(job);
        QCOMPARE(row.progressText, text);
        QCOMPARE(row.progress, part);
    }

    void announcesEachWriteBeforeItHappens()
    {
        m_world->isSignedIn();
        m_world->service.hasJobs("[]");
        QStringList fields;
        connect(m_model.get(), &TrainingViewModel::willChange, this, [&](const QString &field) {
            fields.append(field);
            QCOMPARE(m_model->isLoading(), fields.size() > 1);
        });
        m_model->loadJobs();
        QVERIFY(eventually([this] { return !m_model->isLoading(); }));
        QCOMPARE(fields, QStringList({u"isLoading"_s, u"jobs"_s, u"isLoading"_s}));
    }

private:
    // Signed in, and the service's list is there.
    void loads(const QByteArray &jobs)
    {
        if (!AuthManager::shared().isAuthenticated()) {
            m_world->isSignedIn();
        }
        m_world->service.hasJobs(jobs);
        m_model->loadJobs();
        QVERIFY(m_model->isLoading());
        QVERIFY(eventually([this] { return !m_model->isLoading(); }));
    }

    void loadsSamples()
    {
        m_model->loadJobs();
        m_world->clock.advance(300ms);
        QCOMPARE(idsOf(m_model->jobs()), sampleIds);
    }

    QStringList counts() const { return {m_model->activeCount(), m_model->completedCount(), m_model->totalCount()}; }

    // One role of the filtered list, from top to bottom.
    QStringList shown(const QString &role) const
    {
        const QAbstractItemModel *list = m_model->filteredJobs();
        QStringList texts;
        for (int row = 0; row < list->rowCount(); ++row) {
            texts.append(list->index(row, 0).data(list->roleNames().key(role.toLatin1())).toString());
        }
        return texts;
    }

    static bool isSame(const FineTuneJob &a, const FineTuneJob &b)
    {
        return a.id == b.id && a.name == b.name && a.status == b.status && a.progress == b.progress
            && a.config.has_value() == b.config.has_value() && a.metrics.has_value() == b.metrics.has_value()
            && a.errorMessage == b.errorMessage && a.startedAt == b.startedAt && a.completedAt == b.completedAt
            && a.createdAt == b.createdAt;
    }

    std::unique_ptr<testing::TestEnvironment> m_world;
    std::unique_ptr<TrainingViewModel> m_model;
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_TrainingViewModel)
#include "tst_TrainingViewModel.moc"
