#pragma once

#include "platform/Observable.h"
#include "platform/RecordListModel.h"
#include "platform/RepeatingTimer.h"
#include "workspace/projects/Project.h"
#include "workspace/projects/ProjectRow.h"

#include <QtQml/qqmlregistration.h>

#include <optional>

namespace quillmere {

// The user's projects: three samples, built anew at each load, and before them what was created since. Nothing is kept and
// nothing reaches the service. The screen shows the projects that hold `searchText`, in order, and how long ago each was
// updated, which stays true while the view model lives. `errorMessage` belongs to every view model; here nothing sets it.
class ProjectsViewModel : public quillmere::Observable {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(bool isLoading READ isLoading NOTIFY isLoadingChanged)
    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY searchTextChanged)
    Q_PROPERTY(QAbstractItemModel *filteredProjects READ filteredProjects CONSTANT)
    Q_PROPERTY(bool hasFilteredProjects READ hasFilteredProjects NOTIFY filteredProjectsChanged)

public:
    explicit ProjectsViewModel(QObject *parent = nullptr);

    const QList<Project> &projects() const { return m_projects; }
    bool isLoading() const { return m_isLoading; }
    const std::optional<QString> &errorMessage() const { return m_errorMessage; }

    const QString &searchText() const { return m_searchText; }
    void setSearchText(const QString &text);
    // Those whose name or description holds the search text, whatever the case of either; an empty one is held by all.
    QAbstractItemModel *filteredProjects() { return &m_filteredProjects; }
    bool hasFilteredProjects() const { return m_filteredProjects.rowCount() > 0; }

    // In half a second the samples are all there is: what was created before is gone.
    Q_INVOKABLE void loadProjects();
    // Puts a new project before all others. Any name will do, and any description.
    Q_INVOKABLE void createProject(const QString &name, const QString &description);

signals:
    void projectsChanged();
    void isLoadingChanged();
    void searchTextChanged();
    void filteredProjectsChanged();

private:
    void setProjects(QList<Project> projects);
    void setIsLoading(bool isLoading);
    void refilter();
    void updateTexts();

    QList<Project> m_projects;
    bool m_isLoading = false;
    std::optional<QString> m_errorMessage;
    QString m_searchText;
    RecordListModel<ProjectRow> m_filteredProjects;
    Clock &m_clock;
    RepeatingTimer m_tick;
};

} // namespace quillmere
