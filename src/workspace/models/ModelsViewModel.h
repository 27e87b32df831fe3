#pragma once

#include "platform/FilteredListModel.h"
#include "platform/Observable.h"
#include "service/QuillmereAPIClient.h"
#include "workspace/models/ModelRow.h"

#include <QCoroTask>

#include <QSet>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace quillmere {

// The vocabulary of ModelsView.
namespace ModelsVocabulary {
Q_NAMESPACE
QML_NAMED_ELEMENT(ModelsVocabulary)

enum class ModelFilter { All, Supported, Downloaded };
Q_ENUM_NS(ModelFilter)

// "All", "Fine-tunable", "Downloaded": what the filter is called, whatever the user's language.
QString rawValue(ModelFilter filter);

} // namespace ModelsVocabulary

// The service's catalog of base models, which needs no sign-in: loaded, searched, filtered and marked as downloaded. A
// download, which does, fetches the model's download record and nothing else, and ends in a mark that lives as long as the
// view model. While `errorMessage` is set, after a failed load or a failed download, the screen shows nothing but that;
// the next load clears it. The record's addresses reach no screen.
class ModelsViewModel : public quillmere::Observable {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(bool isLoading READ isLoading NOTIFY isLoadingChanged)
    Q_PROPERTY(bool hasFailed READ hasFailed NOTIFY errorMessageChanged)
    Q_PROPERTY(QString failureText READ failureText NOTIFY errorMessageChanged)
    Q_PROPERTY(bool hasDownloadedModels READ hasDownloadedModels NOTIFY downloadedModelsChanged)
    Q_PROPERTY(QString downloadedText READ downloadedText NOTIFY downloadedModelsChanged)
    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY searchTextChanged)
    Q_PROPERTY(quillmere::ModelsVocabulary::ModelFilter selectedFilter READ selectedFilter WRITE setSelectedFilter
            NOTIFY selectedFilterChanged)
    Q_PROPERTY(QAbstractItemModel *filteredModels READ filteredModels CONSTANT)
    Q_PROPERTY(bool hasFilteredModels READ hasFilteredModels NOTIFY filteredModelsChanged)

public:
    using ModelFilter = ModelsVocabulary::ModelFilter;

    explicit ModelsViewModel(QObject *parent = nullptr);

    const QList<ModelInfo> &models() const { return m_models; }
    const QSet<QString> &downloadedModels() const { return m_downloadedModels; }
    const QSet<QString> &downloadingModels() const { return m_downloadingModels; }
    bool isLoading() const { return m_isLoading; }
    const std::optional<QString> &errorMessage() const { return m_errorMessage; }

    bool hasFailed() const { return m_errorMessage.has_value(); }
    // The beginning of `errorMessage`, more than a screen holds.
    QString failureText() const;
    bool hasDownloadedModels() const { return !m_downloadedModels.isEmpty(); }
    // "3 downloaded", whatever the list shows of them.
    QString downloadedText() const;

    const QString &searchText() const { return m_searchText; }
    void setSearchText(const QString &text);
    ModelFilter selectedFilter() const { return m_selectedFilter; }
    void setSelectedFilter(ModelFilter filter);
    // Those whose name or description holds the search text, whatever the case of either, and that pass the filter.
    QAbstractItemModel *filteredModels() { return &m_filteredModels; }
    bool hasFilteredModels() const { return m_filteredModels.rowCount() > 0; }

    // The filter's name, for its pill.
    Q_INVOKABLE static QString filterTitle(quillmere::ModelsVocabulary::ModelFilter filter);

    // Loads anew, whatever runs already; the last load to finish stays.
    Q_INVOKABLE void loadModels();
    // Nothing for an id that is downloaded or being downloaded already.
    Q_INVOKABLE void downloadModel(const QString &modelId);

    QuillmereAPIClient &api = QuillmereAPIClient::shared();

signals:
    // What is shown has followed already when the search text or the filter is said to have changed.
    void modelsChanged();
    void downloadedModelsChanged();
    void downloadingModelsChanged();
    void isLoadingChanged();
    void errorMessageChanged();
    void searchTextChanged();
    void selectedFilterChanged();
    void filteredModelsChanged();

private:
    QCoro::Task<> fetchModels();
    QCoro::Task<> fetchDownload(QString modelId);

    void setModels(QList<ModelInfo> models);
    void setIsDownloading(const QString &modelId, bool isDownloading);
    void addDownloaded(const QString &modelId);
    void setIsLoading(bool isLoading);
    void setErrorMessage(const std::optional<QString> &message);
    ModelRow rowOf(const ModelInfo &model) const;
    void refresh(const QString &modelId);

    QList<ModelInfo> m_models;
    QSet<QString> m_downloadedModels;
    QSet<QString> m_downloadingModels;
    bool m_isLoading = false;
    std::optional<QString> m_errorMessage;
    QString m_searchText;
    ModelFilter m_selectedFilter = ModelFilter::All;
    FilteredListModel<ModelInfo, ModelRow> m_filteredModels;
};

} // namespace quillmere
