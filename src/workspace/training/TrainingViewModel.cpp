#include "workspace/training/TrainingViewModel.h"

#include "identity/AuthManager.h"
#include "platform/Environment.h"
#include "platform/MainQueue.h"

#include <QPointer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

constexpr std::chrono::milliseconds sampleJobsDelay{300};

qsizetype countWith(const QList<FineTuneJob> &jobs, const QString &status)
{
    return std::count_if(jobs.cbegin(), jobs.cend(), [&](const FineTuneJob &job) { return job.status == status; });
}

QList<FineTuneJob> sampleJobs(const QDateTime &now)
{
    const auto ago = [&now](int seconds) { return now.addSecs(-seconds); };
    return {
        {
            .id = u"ft-29384"_s,
            .name = TrainingViewModel::tr("Medical LLaMA Fine-Tuning"),
            .status = u"running"_s,
            .progress = 67,
            .config = {},
            .metrics = {},
            .errorMessage = {},
            .startedAt = ago(8'100),
            .completedAt = {},
            .createdAt = ago(8'100),
        },
        {
            .id = u"ft-29381"_s,
            .name = TrainingViewModel::tr("Code Assistant LoRA"),
            .status = u"completed"_s,
            .progress = 100,
            .config = {},
            .metrics = {},
            .errorMessage = {},
            .startedAt = ago(172'800),
            .completedAt = ago(86'400),
            .createdAt = ago(172'800),
        },
        {
            .id = u"ft-29377"_s,
            .name = TrainingViewModel::tr("Customer Support Bot"),
            .status = u"failed"_s,
            .progress = 23,
            .config = {},
            .metrics = {},
            .errorMessage = TrainingViewModel::tr("Out of memory"),
            .startedAt = ago(259'200),
            .completedAt = ago(259'000),
            .createdAt = ago(259'200),
        },
    };
}

const char *nameOf(TrainingVocabulary::JobStatusFilter filter)
{
    switch (filter) {
    case TrainingVocabulary::JobStatusFilter::All:
        return QT_TRANSLATE_NOOP("quillmere::TrainingViewModel", "All");
    case TrainingVocabulary::JobStatusFilter::Running:
        return QT_TRANSLATE_NOOP("quillmere::TrainingViewModel", "Running");
    case TrainingVocabulary::JobStatusFilter::Completed:
        return QT_TRANSLATE_NOOP("quillmere::TrainingViewModel", "Completed");
    case TrainingVocabulary::JobStatusFilter::Failed:
        return QT_TRANSLATE_NOOP("quillmere::TrainingViewModel", "Failed");
    }
    Q_UNREACHABLE();
}

} // namespace

QString TrainingVocabulary::rawValue(JobStatusFilter filter)
{
    return QString::fromLatin1(nameOf(filter));
}

bool TrainingVocabulary::passes(JobStatusFilter filter, const QString &status)
{
    switch (filter) {
    case JobStatusFilter::All:
        return true;
    case JobStatusFilter::Running:
        return status == u"running"_s || status == u"pending"_s;
    case JobStatusFilter::Completed:
        return status == u"completed"_s;
    case JobStatusFilter::Failed:
        return status == u"failed"_s || status == u"cancelled"_s;
    }
    Q_UNREACHABLE();
}

QString TrainingViewModel::filterTitle(JobStatusFilter filter)
{
    return tr(nameOf(filter));
}

void TrainingViewModel::setJobs(QList<FineTuneJob> jobs)
{
    publish(m_jobs, std::move(jobs), u"jobs"_s, &TrainingViewModel::jobsChanged);
    refilter();
}

void TrainingViewModel::setIsLoading(bool isLoading)
{
    publish(m_isLoading, isLoading, u"isLoading"_s, &TrainingViewModel::isLoadingChanged);
}

void TrainingViewModel::setErrorMessage(const QString &message)
{
    publish(m_errorMessage, message, u"errorMessage"_s, &TrainingViewModel::errorMessageChanged);
}

void TrainingViewModel::setSelectedFilter(JobStatusFilter filter)
{
    if (filter == m_selectedFilter) {
        return;
    }
    m_selectedFilter = filter;
    refilter();
    emit selectedFilterChanged();
}

void TrainingViewModel::refilter()
{
    QList<TrainingJobRow> rows;
    for (const FineTuneJob &job : std::as_const(m_jobs)) {
        if (TrainingVocabulary::passes(m_selectedFilter, job.status)) {
            rows.append(TrainingJobRow::of(job));
        }
    }
    m_filteredJobs.setRecords(std::move(rows));
    emit filteredJobsChanged();
}

QString TrainingViewModel::activeCount() const
{
    return QString::number(countWith(m_jobs, u"running"_s));
}

QString TrainingViewModel::completedCount() const
{
    return QString::number(countWith(m_jobs, u"completed"_s));
}

QString TrainingViewModel::totalCount() const
{
    return QString::number(m_jobs.size());
}

void TrainingViewModel::loadJobs()
{
    setIsLoading(true);
    if (AuthManager::shared().isAuthenticated()) {
        fetchJobs();
    } else {
        loadSampleJobs();
    }
}

QCoro::Task<> TrainingViewModel::fetchJobs()
{
    const QPointer<TrainingViewModel> self(this);
    auto response = co_await api.listFineTuneJobs();
    if (!self) {
        co_return;
    }
    if (!response) {
        setErrorMessage(response.failure().localizedDescription());
        loadSampleJobs();
        co_return;
    }
    setJobs(std::move(response->data));
    setIsLoading(false);
}

void TrainingViewModel::loadSampleJobs()
{
    MainQueue::shared().asyncAfter(sampleJobsDelay, this, [this] {
        setJobs(sampleJobs(Environment::current().clock->now()));
        setIsLoading(false);
    });
}

void TrainingViewModel::cancelJob(const QString &jobId)
{
    if (AuthManager::shared().isAuthenticated()) {
        cancelAtService(jobId);
    } else {
        cancelInPlace(jobId);
    }
}

QCoro::Task<> TrainingViewModel::cancelAtService(QString jobId)
{
    const QPointer<TrainingViewModel> self(this);
    const auto job = co_await api.cancelFineTuneJob(jobId);
    if (!self) {
        co_return;
    }
    if (!job) {
        setErrorMessage(job.failure().localizedDescription());
        co_return;
    }
    loadJobs();
}

void TrainingViewModel::cancelInPlace(const QString &jobId)
{
    QList<FineTuneJob> jobs = m_jobs;
    const auto job =
        std::find_if(jobs.begin(), jobs.end(), [&](const FineTuneJob &candidate) { return candidate.id == jobId; });
    if (job == jobs.end()) {
        return;
    }
    job->status = u"cancelled"_s;
    job->errorMessage = {};
    job->completedAt = Environment::current().clock->now();
    setJobs(std::move(jobs));
}

} // namespace quillmere
