#include "workspace/projects/ProjectsViewModel.h"

#include "platform/Environment.h"
#include "platform/MainQueue.h"
#include "platform/Text.h"

#include <QUuid>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

constexpr std::chrono::milliseconds sampleProjectsDelay{500};
// The finest step of a relative date. The texts are looked at this often instead of at their next change, since the wall clock may
// be set, or stand still while the machine sleeps.
constexpr std::chrono::milliseconds tickInterval{1000};

QList<Project> sampleProjects(const QDateTime &now)
{
    return {
        {
            .id = u"1"_s,
            .name = ProjectsViewModel::tr("Medical LLM"),
            .description = ProjectsViewModel::tr("Fine-tuning Llama for medical Q&A"),
            .modelCount = 2,
            .datasetCount = 5,
            .lastUpdated = now.addSecs(-3'600),
            .status = Project::ProjectStatus::training,
        },
        {
            .id = u"2"_s,
            .name = ProjectsViewModel::tr("Code Assistant"),
            .description = ProjectsViewModel::tr("Custom coding assistant with LoRA"),
            .modelCount = 1,
            .datasetCount = 3,
            .lastUpdated = now.addSecs(-86'400),
            .status = Project::ProjectStatus::active,
        },
        {
            .id = u"3"_s,
            .name = ProjectsViewModel::tr("Customer Support Bot"),
            .description = ProjectsViewModel::tr("Support ticket classification and response"),
            .modelCount = 1,
            .datasetCount = 2,
            .lastUpdated = now.addSecs(-172'800),
            .status = Project::ProjectStatus::archived,
        },
    };
}

bool holds(const Project &project, const QString &text)
{
    return text::localizedCaseInsensitiveContains(project.name, text)
        || text::localizedCaseInsensitiveContains(project.description, text);
}

} // namespace

ProjectsViewModel::ProjectsViewModel(QObject *parent)
    : Observable(parent), m_clock(*Environment::current().clock), m_tick(tickInterval, [this] { updateTexts(); })
{
}

void ProjectsViewModel::setProjects(QList<Project> projects)
{
    publish(m_projects, std::move(projects), u"projects"_s, &ProjectsViewModel::projectsChanged);
    refilter();
}

void ProjectsViewModel::setIsLoading(bool isLoading)
{
    publish(m_isLoading, isLoading, u"isLoading"_s, &ProjectsViewModel::isLoadingChanged);
}

void ProjectsViewModel::setSearchText(const QString &text)
{
    if (text == m_searchText) {
        return;
    }
    m_searchText = text;
    refilter();
    emit searchTextChanged();
}

void ProjectsViewModel::refilter()
{
    const QDateTime now = m_clock.now();
    QList<ProjectRow> rows;
    for (const Project &project : std::as_const(m_projects)) {
        if (m_searchText.isEmpty() || holds(project, m_searchText)) {
            rows.append(ProjectRow::of(project, now));
        }
    }
    m_filteredProjects.setRecords(std::move(rows));
    emit filteredProjectsChanged();
}

void ProjectsViewModel::updateTexts()
{
    const QDateTime now = m_clock.now();
    QList<ProjectRow> rows = m_filteredProjects.records();
    bool changed = false;
    for (ProjectRow &row : rows) {
        changed = row.updateText(now) || changed;
    }
    if (changed) {
        m_filteredProjects.setRecords(std::move(rows));
    }
}

void ProjectsViewModel::loadProjects()
{
    setIsLoading(true);
    MainQueue::shared().asyncAfter(sampleProjectsDelay, this, [this] {
        setProjects(sampleProjects(m_clock.now()));
        setIsLoading(false);
    });
}

void ProjectsViewModel::createProject(const QString &name, const QString &description)
{
    QList<Project> projects = m_projects;
    projects.prepend({
        .id = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper(),
        .name = name,
        .description = description,
        .modelCount = 0,
        .datasetCount = 0,
        .lastUpdated = m_clock.now(),
        .status = Project::ProjectStatus::active,
    });
    setProjects(std::move(projects));
}

} // namespace quillmere
