#pragma once

#include "platform/FilteredListModel.h"
#include "platform/Observable.h"
#include "service/QuillmereAPIClient.h"
#include "workspace/datasets/DatasetCells.h"

#include <QCoroTask>

#include <QtQml/qqmlregistration.h>

#include <optional>

namespace quillmere {

// The training files of the workspace "default": loaded from the service, or three samples where nobody is signed in or the
// service fails; searched and filtered; uploaded, and taken off the list. An upload is in the list before the service has
// answered, and stays there when it fails. The screen shows the list in the order received; it never shows `errorMessage`, which
// keeps the text of the last failure.
class DatasetsViewModel : public quillmere::Observable {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(bool isLoading READ isLoading NOTIFY isLoadingChanged)
    Q_PROPERTY(bool hasDatasets READ hasDatasets NOTIFY datasetsChanged)
    Q_PROPERTY(QString fileCount READ fileCount NOTIFY datasetsChanged)
    Q_PROPERTY(QString formattedTotalSize READ formattedTotalSize NOTIFY datasetsChanged)
    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY searchTextChanged)
    Q_PROPERTY(QList<QString> purposeTitles READ purposeTitles CONSTANT)
    Q_PROPERTY(int purposeIndex READ purposeIndex WRITE setPurposeIndex NOTIFY selectedPurposeChanged)
    Q_PROPERTY(QAbstractItemModel *filteredDatasets READ filteredDatasets CONSTANT)
    Q_PROPERTY(bool hasFilteredDatasets READ hasFilteredDatasets NOTIFY filteredDatasetsChanged)

public:
    explicit DatasetsViewModel(QObject *parent = nullptr);
    // A file dialog that is up goes with the screen.
    ~DatasetsViewModel() override;

    const QList<DatasetInfo> &datasets() const { return m_datasets.records(); }
    bool isLoading() const { return m_isLoading; }
    const std::optional<QString> &errorMessage() const { return m_errorMessage; }

    // All datasets count, whatever the search and the filter let through.
    bool hasDatasets() const { return !datasets().isEmpty(); }
    QString fileCount() const; // "3 files"
    QString formattedTotalSize() const { return m_formattedTotalSize; }

    QString searchText() const { return m_searchText; }
    void setSearchText(const QString &text);

    // What can be filtered by: "All", which stands for no purpose, then the purposes themselves.
    static const QList<QString> &purposes();
    static QList<QString> purposeTitles();
    // Purposes are compared letter for letter.
    const std::optional<QString> &selectedPurpose() const { return m_selectedPurpose; }
    void setSelectedPurpose(const std::optional<QString> &purpose);
    // Its place in purposes(); -1 for one that is not among them.
    int purposeIndex() const;
    void setPurposeIndex(int index);

    QAbstractItemModel *filteredDatasets() { return &m_datasets; }
    bool hasFilteredDatasets() const { return m_datasets.rowCount() > 0; }

    // Loads anew, whatever runs already; the last load to finish stays.
    Q_INVOKABLE void loadDatasets();
    // Lets the user pick a file and uploads it; pickerClosed() follows in any case.
    Q_INVOKABLE void pickFile();
    QCoro::Task<> uploadFile(QByteArray fileData, QString filename);
    // Takes every dataset with that id off the list, until the next load; the service hears nothing.
    Q_INVOKABLE void removeDataset(const QString &id);

    QuillmereAPIClient &api = QuillmereAPIClient::shared();

signals:
    void datasetsChanged();
    void isLoadingChanged();
    void errorMessageChanged();
    void searchTextChanged();
    void selectedPurposeChanged();
    void filteredDatasetsChanged();
    void pickerClosed();

private:
    QCoro::Task<> fetchDatasets();
    QCoro::Task<> pickAndUpload();
    void loadSampleDatasets();

    // Every change of the list is one of these, which announces it before and after.
    template <typename Change> void changeDatasets(Change change);
    void setIsLoading(bool isLoading);
    void setErrorMessage(const QString &message);

    FilteredListModel<DatasetInfo, DatasetCells> m_datasets;
    QString m_formattedTotalSize;
    bool m_isLoading = false;
    bool m_isPicking = false;
    std::optional<QString> m_errorMessage;
    QString m_searchText;
    std::optional<QString> m_selectedPurpose;
};

} // namespace quillmere
