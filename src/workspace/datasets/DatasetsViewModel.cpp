#include "workspace/datasets/DatasetsViewModel.h"

#include "identity/AuthManager.h"
#include "platform/Console.h"
#include "platform/Environment.h"
#include "platform/FileReader.h"
#include "platform/MainQueue.h"
#include "platform/Text.h"

#include <QPointer>
#include <QUuid>

#include <limits>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

constexpr std::chrono::milliseconds sampleDatasetsDelay{300};
const auto workspaceId = u"default"_s;

QList<DatasetInfo> sampleDatasets(const QDateTime &now)
{
    return {
        {u"1"_s, u"medical_qa_train.jsonl"_s, u"fine-tune"_s, 15'420'000, now.addSecs(-86'400)},
        {u"2"_s, u"medical_qa_val.jsonl"_s, u"validation"_s, 2'340'000, now.addSecs(-86'400)},
        {u"3"_s, u"code_samples.jsonl"_s, u"fine-tune"_s, 8'900'000, now.addSecs(-172'800)},
    };
}

// A sum beyond 64 bits stays at their end.
qint64 totalSize(const QList<DatasetInfo> &datasets)
{
    qint64 total = 0;
    for (const DatasetInfo &dataset : datasets) {
        if (__builtin_add_overflow(total, dataset.bytes, &total)) {
            return dataset.bytes > 0 ? std::numeric_limits<qint64>::max() : std::numeric_limits<qint64>::min();
        }
    }
    return total;
}

} // namespace

DatasetsViewModel::DatasetsViewModel(QObject *parent)
    : Observable(parent),
      m_datasets(&DatasetCells::of, [](const DatasetInfo &dataset) { return QStringList(dataset.filename); }),
      m_formattedTotalSize(text::byteCount(0))
{
}

DatasetsViewModel::~DatasetsViewModel()
{
    if (m_isPicking) {
        Environment::current().filePicker->cancel();
    }
}

QString DatasetsViewModel::fileCount() const
{
    return tr("%1 files").arg(datasets().size());
}

const QList<QString> &DatasetsViewModel::purposes()
{
    static const QList<QString> list{u"All"_s, u"fine-tune"_s, u"validation"_s, u"test"_s};
    return list;
}

QList<QString> DatasetsViewModel::purposeTitles()
{
    QList<QString> titles;
    for (const QString &purpose : purposes()) {
        titles.append(purposeTitle(purpose));
    }
    return titles;
}

template <typename Change> void DatasetsViewModel::changeDatasets(Change change)
{
    emit willChange(u"datasets"_s);
    change();
    m_formattedTotalSize = text::byteCount(totalSize(datasets()));
    emit datasetsChanged();
    emit filteredDatasetsChanged();
}

void DatasetsViewModel::setIsLoading(bool isLoading)
{
    publish(m_isLoading, isLoading, u"isLoading"_s, &DatasetsViewModel::isLoadingChanged);
}

void DatasetsViewModel::setErrorMessage(const QString &message)
{
    publish(m_errorMessage, message, u"errorMessage"_s, &DatasetsViewModel::errorMessageChanged);
}

void DatasetsViewModel::setSearchText(const QString &text)
{
    if (text == m_searchText) {
        return;
    }
    m_searchText = text;
    m_datasets.search(text);
    emit searchTextChanged();
    emit filteredDatasetsChanged();
}

void DatasetsViewModel::setSelectedPurpose(const std::optional<QString> &purpose)
{
    if (purpose == m_selectedPurpose) {
        return;
    }
    m_selectedPurpose = purpose;
    if (!purpose || *purpose == purposes().first()) {
        m_datasets.filter({});
    } else {
        m_datasets.filter([purpose = *purpose](const DatasetInfo &dataset) { return dataset.purpose == purpose; });
    }
    emit selectedPurposeChanged();
    emit filteredDatasetsChanged();
}

int DatasetsViewModel::purposeIndex() const
{
    return m_selectedPurpose ? int(purposes().indexOf(*m_selectedPurpose)) : 0;
}

void DatasetsViewModel::setPurposeIndex(int index)
{
    setSelectedPurpose(index > 0 ? std::optional(purposes().value(index)) : std::nullopt);
}

void DatasetsViewModel::loadDatasets()
{
    setIsLoading(true);
    if (AuthManager::shared().isAuthenticated()) {
        fetchDatasets();
    } else {
        loadSampleDatasets();
    }
}

QCoro::Task<> DatasetsViewModel::fetchDatasets()
{
    const QPointer<DatasetsViewModel> self(this);
    auto response = co_await api.listDatasets(workspaceId);
    if (!self) {
        co_return;
    }
    if (!response) {
        setErrorMessage(response.failure().localizedDescription());
        loadSampleDatasets();
        co_return;
    }
    changeDatasets([&] { m_datasets.setRecords(*std::move(response)); });
    setIsLoading(false);
}

void DatasetsViewModel::loadSampleDatasets()
{
    MainQueue::shared().asyncAfter(sampleDatasetsDelay, this, [this] {
        changeDatasets([this] { m_datasets.setRecords(sampleDatasets(Environment::current().clock->now())); });
        setIsLoading(false);
    });
}

void DatasetsViewModel::pickFile()
{
    if (!m_isPicking) {
        pickAndUpload();
    }
}

QCoro::Task<> DatasetsViewModel::pickAndUpload()
{
    const QPointer<DatasetsViewModel> self(this);
    const QPointer<AuthManager> auth(&AuthManager::shared());
    QuillmereAPIClient &client = api;

    m_isPicking = true;
    // JSON Lines have no type of their own here: where the desktop counts them among these, they can be picked.
    FileRequest request{
        tr("Choose a Dataset"), tr("JSON, plain text, CSV"), {u"application/json"_s, u"text/plain"_s, u"text/csv"_s}};
    const auto picked = co_await Environment::current().filePicker->pick(std::move(request));
    if (self) {
        m_isPicking = false;
        emit pickerClosed();
    }
    if (!picked) {
        print(u"File picker error: "_s + picked.failure().localizedDescription());
        co_return;
    }
    if (picked->isEmpty()) {
        co_return;
    }
    const QUrl file = picked->first();
    auto content = co_await readFile(file);
    if (!content) {
        if (self) {
            setErrorMessage(tr("Failed to read file: ") + content.failure().localizedDescription());
        }
        co_return;
    }
    if (self) {
        co_await uploadFile(*std::move(content), fileNameOf(file));
    } else if (auth && auth->isAuthenticated()) {
        // Nobody looks any more, but the file was picked to be uploaded.
        co_await client.uploadDataset(workspaceId, *std::move(content), fileNameOf(file));
    }
}

QCoro::Task<> DatasetsViewModel::uploadFile(QByteArray fileData, QString filename)
{
    const QPointer<DatasetsViewModel> self(this);
    const QString temporaryId = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    const DatasetInfo row{temporaryId, filename, u"fine-tune"_s, fileData.size(), Environment::current().clock->now()};
    changeDatasets([&] { m_datasets.prepend(row); });
    if (!AuthManager::shared().isAuthenticated()) {
        co_return;
    }
    auto uploaded = co_await api.uploadDataset(workspaceId, std::move(fileData), filename);
    if (!self) {
        co_return;
    }
    if (!uploaded) {
        setErrorMessage(uploaded.failure().localizedDescription());
        co_return;
    }
    // The list may be another one by now.
    const auto place = std::find_if(
        datasets().cbegin(), datasets().cend(), [&](const DatasetInfo &dataset) { return dataset.id == temporaryId; });
    if (place != datasets().cend()) {
        changeDatasets([&] { m_datasets.replace(place - datasets().cbegin(), *uploaded); });
    }
}

void DatasetsViewModel::removeDataset(const QString &id)
{
    changeDatasets([&] { m_datasets.removeIf([&](const DatasetInfo &dataset) { return dataset.id == id; }); });
}

} // namespace quillmere
