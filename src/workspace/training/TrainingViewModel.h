#pragma once

#include "platform/Observable.h"
#include "platform/RecordListModel.h"
#include "service/QuillmereAPIClient.h"
#include "workspace/training/TrainingJobRow.h"

#include <QCoroTask>

#include <QtQml/qqmlregistration.h>

#include <optional>

namespace quillmere {

// The vocabulary of TrainingView.
namespace TrainingVocabulary {
Q_NAMESPACE
QML_NAMED_ELEMENT(TrainingVocabulary)

enum class JobStatusFilter { All, Running, Completed, Failed };
Q_ENUM_NS(JobStatusFilter)

// "All", "Running", "Completed", "Failed": what the filter is called, whatever the user's language.
QString rawValue(JobStatusFilter filter);

// Whether a job of that status passes; statuses are compared letter for letter.
bool passes(JobStatusFilter filter, const QString &status);

} // namespace TrainingVocabulary

// The user's fine-tuning jobs: loaded from the service, or three samples where nobody is signed in or the service fails;
// counted, filtered, and a running one canceled. The screen shows the counts and the filtered list, in the order received; it
// never shows `errorMessage`, which keeps the text of the last failure.
class TrainingViewModel : public quillmere::Observable {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(bool isLoading READ isLoading NOTIFY isLoadingChanged)
    Q_PROPERTY(QString activeCount READ activeCount NOTIFY jobsChanged)
    Q_PROPERTY(QString completedCount READ completedCount NOTIFY jobsChanged)
    Q_PROPERTY(QString totalCount READ totalCount NOTIFY jobsChanged)
    Q_PROPERTY(quillmere::TrainingVocabulary::JobStatusFilter selectedFilter READ selectedFilter WRITE setSelectedFilter
            NOTIFY selectedFilterChanged)
    Q_PROPERTY(QAbstractItemModel *filteredJobs READ filteredJobs CONSTANT)
    Q_PROPERTY(bool hasFilteredJobs READ hasFilteredJobs NOTIFY filteredJobsChanged)

public:
    using JobStatusFilter = TrainingVocabulary::JobStatusFilter;

    using Observable::Observable;

    const QList<FineTuneJob> &jobs() const { return m_jobs; }
    bool isLoading() const { return m_isLoading; }
    const std::optional<QString> &errorMessage() const { return m_errorMessage; }

    JobStatusFilter selectedFilter() const { return m_selectedFilter; }
    void setSelectedFilter(JobStatusFilter filter);
    QAbstractItemModel *filteredJobs() { return &m_filteredJobs; }
    bool hasFilteredJobs() const { return m_filteredJobs.rowCount() > 0; }

    // Each counts in all jobs, whatever the filter. Active are those exactly "running".
    QString activeCount() const;
    QString completedCount() const;
    QString totalCount() const;

    // The filter's name, for its pill.
    Q_INVOKABLE static QString filterTitle(quillmere::TrainingVocabulary::JobStatusFilter filter);

    // Loads anew, whatever runs already; the last load to finish stays.
    Q_INVOKABLE void loadJobs();
    // Signed out the job is marked in place; otherwise the service is asked, and the list loaded anew when it agreed.
    Q_INVOKABLE void cancelJob(const QString &jobId);

    QuillmereAPIClient &api = QuillmereAPIClient::shared();

signals:
    void jobsChanged();
    void isLoadingChanged();
    void errorMessageChanged();
    void selectedFilterChanged();
    void filteredJobsChanged();

private:
    QCoro::Task<> fetchJobs();
    QCoro::Task<> cancelAtService(QString jobId);
    void cancelInPlace(const QString &jobId);
    void loadSampleJobs();

    void setJobs(QList<FineTuneJob> jobs);
    void setIsLoading(bool isLoading);
    void setErrorMessage(const QString &message);
    void refilter();

    QList<FineTuneJob> m_jobs;
    bool m_isLoading = false;
    std::optional<QString> m_errorMessage;
    JobStatusFilter m_selectedFilter = JobStatusFilter::All;
    RecordListModel<TrainingJobRow> m_filteredJobs;
};

} // namespace quillmere
