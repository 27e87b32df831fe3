#include "workspace/models/ModelsViewModel.h"

#include "platform/MainQueue.h"

#include <QPointer>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

constexpr std::chrono::milliseconds downloadTime{2000};
// Of what a failure says. A reply may bring a megabyte, which takes the screen minutes to break into lines.
constexpr qsizetype mostShownOfFailure = 2'000;

// Where a model is looked for.
QStringList textsOf(const ModelInfo &model)
{
    return {model.name, model.description.value_or(QString())};
}

const char *nameOf(ModelsVocabulary::ModelFilter filter)
{
    switch (filter) {
    case ModelsVocabulary::ModelFilter::All:
        return QT_TRANSLATE_NOOP("quillmere::ModelsViewModel", "All");
    case ModelsVocabulary::ModelFilter::Supported:
        return QT_TRANSLATE_NOOP("quillmere::ModelsViewModel", "Fine-tunable");
    case ModelsVocabulary::ModelFilter::Downloaded:
        return QT_TRANSLATE_NOOP("quillmere::ModelsViewModel", "Downloaded");
    }
    Q_UNREACHABLE();
}

} // namespace

QString ModelsVocabulary::rawValue(ModelFilter filter)
{
    return QString::fromLatin1(nameOf(filter));
}

ModelsViewModel::ModelsViewModel(QObject *parent)
    : Observable(parent), m_filteredModels([this](const ModelInfo &model) { return rowOf(model); }, textsOf)
{
}

ModelRow ModelsViewModel::rowOf(const ModelInfo &model) const
{
    return ModelRow::of(model, m_downloadedModels.contains(model.id), m_downloadingModels.contains(model.id));
}

QString ModelsViewModel::filterTitle(ModelFilter filter)
{
    return tr(nameOf(filter));
}

QString ModelsViewModel::failureText() const
{
    return m_errorMessage.value_or(QString()).left(mostShownOfFailure);
}

QString ModelsViewModel::downloadedText() const
{
    return tr("%1 downloaded").arg(m_downloadedModels.size());
}

void ModelsViewModel::setModels(QList<ModelInfo> models)
{
    publish(m_models, std::move(models), u"models"_s, &ModelsViewModel::modelsChanged);
    m_filteredModels.setRecords(m_models);
    emit filteredModelsChanged();
}

// Whatever a mark changes of the models of that id.
void ModelsViewModel::refresh(const QString &modelId)
{
    for (qsizetype place = 0; place < m_models.size(); ++place) {
        if (m_models[place].id == modelId) {
            m_filteredModels.refresh(place);
        }
    }
    emit filteredModelsChanged();
}

void ModelsViewModel::setIsDownloading(const QString &modelId, bool isDownloading)
{
    QSet<QString> ids = m_downloadingModels;
    if (isDownloading) {
        ids.insert(modelId);
    } else {
        ids.remove(modelId);
    }
    publish(m_downloadingModels, std::move(ids), u"downloadingModels"_s, &ModelsViewModel::downloadingModelsChanged);
    refresh(modelId);
}

void ModelsViewModel::addDownloaded(const QString &modelId)
{
    QSet<QString> ids = m_downloadedModels;
    ids.insert(modelId);
    publish(m_downloadedModels, std::move(ids), u"downloadedModels"_s, &ModelsViewModel::downloadedModelsChanged);
    refresh(modelId);
}

void ModelsViewModel::setIsLoading(bool isLoading)
{
    publish(m_isLoading, isLoading, u"isLoading"_s, &ModelsViewModel::isLoadingChanged);
}

void ModelsViewModel::setErrorMessage(const std::optional<QString> &message)
{
    publish(m_errorMessage, message, u"errorMessage"_s, &ModelsViewModel::errorMessageChanged);
}

void ModelsViewModel::setSearchText(const QString &text)
{
    if (text == m_searchText) {
        return;
    }
    m_searchText = text;
    m_filteredModels.search(text);
    emit filteredModelsChanged();
    emit searchTextChanged();
}

void ModelsViewModel::setSelectedFilter(ModelFilter filter)
{
    if (filter == m_selectedFilter) {
        return;
    }
    m_selectedFilter = filter;
    switch (filter) {
    case ModelFilter::All:
        m_filteredModels.filter({});
        break;
    case ModelFilter::Supported:
        m_filteredModels.filter([](const ModelInfo &model) { return model.supportsFinetuning.value_or(false); });
        break;
    case ModelFilter::Downloaded:
        m_filteredModels.filter([this](const ModelInfo &model) { return m_downloadedModels.contains(model.id); });
        break;
    }
    emit filteredModelsChanged();
    emit selectedFilterChanged();
}

void ModelsViewModel::loadModels()
{
    setIsLoading(true);
    setErrorMessage({});
    fetchModels();
}

QCoro::Task<> ModelsViewModel::fetchModels()
{
    const QPointer<ModelsViewModel> self(this);
    auto response = co_await api.listModels();
    if (!self) {
        co_return;
    }
    if (response) {
        setModels(std::move(response->data));
    } else {
        setErrorMessage(response.failure().localizedDescription());
        setModels({});
    }
    setIsLoading(false);
}

void ModelsViewModel::downloadModel(const QString &modelId)
{
    if (m_downloadingModels.contains(modelId) || m_downloadedModels.contains(modelId)) {
        return;
    }
    setIsDownloading(modelId, true);
    fetchDownload(modelId);
}

QCoro::Task<> ModelsViewModel::fetchDownload(QString modelId)
{
    const QPointer<ModelsViewModel> self(this);
    const auto download = co_await api.getModelDownload(modelId);
    if (!self) {
        co_return;
    }
    if (!download) {
        setIsDownloading(modelId, false);
        setErrorMessage(download.failure().localizedDescription());
        co_return;
    }
    MainQueue::shared().asyncAfter(downloadTime, this, [this, modelId] {
        setIsDownloading(modelId, false);
        addDownloaded(modelId);
    });
}

} // namespace quillmere
