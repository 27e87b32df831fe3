#include "app/SidebarItem.h"

#include <QCoreApplication>

#include <array>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

enum class Group { Main, System, None };

struct Destination {
    SidebarItem::Case item;
    const char *rawValue;
    const char *title;
    const char *icon;
    Group group;
    const char *view; // module and file below qrc:/qt/qml/Quillmere
};

constexpr std::array<Destination, SidebarItem::count> destinations{{
    {SidebarItem::Dashboard, "dashboard", QT_TRANSLATE_NOOP("SidebarItem", "Dashboard"), "house", Group::Main,
        "Analytics/MonitoringView.qml"},
    {SidebarItem::Projects, "projects", QT_TRANSLATE_NOOP("SidebarItem", "Projects"), "square.stack.3d.up", Group::Main,
        "Workspace/ProjectsView.qml"},
    {SidebarItem::Datasets, "datasets", QT_TRANSLATE_NOOP("SidebarItem", "Datasets"), "cylinder.split.1x2", Group::Main,
        "Workspace/DatasetsView.qml"},
    {SidebarItem::Models, "models", QT_TRANSLATE_NOOP("SidebarItem", "Models"), "cpu", Group::Main,
        "Workspace/ModelsView.qml"},
    {SidebarItem::Training, "training", QT_TRANSLATE_NOOP("SidebarItem", "Training"), "terminal", Group::Main,
        "Workspace/TrainingView.qml"},
    {SidebarItem::Analytics, "analytics", QT_TRANSLATE_NOOP("SidebarItem", "Analytics"), "chart.xyaxis.line",
        Group::Main, "Analytics/AnalyticsDashboard.qml"},
    {SidebarItem::Settings, "settings", QT_TRANSLATE_NOOP("SidebarItem", "Settings"), "gearshape", Group::System,
        "Workspace/SettingsView.qml"},
    {SidebarItem::Documentation, "documentation", QT_TRANSLATE_NOOP("SidebarItem", "Documentation"), "book",
        Group::None, "Tools/DocumentationView.qml"},
    {SidebarItem::FineTune, "fineTune", QT_TRANSLATE_NOOP("SidebarItem", "Fine-Tune"), "bolt", Group::None,
        "Tools/SimplifiedFineTuningView.qml"},
    {SidebarItem::Chat, "chat", QT_TRANSLATE_NOOP("SidebarItem", "Chat"), "bubble.left", Group::None,
        "Tools/ChatView.qml"},
    {SidebarItem::Deployment, "deployment", QT_TRANSLATE_NOOP("SidebarItem", "Deployment"), "paperplane", Group::None,
        "Tools/DeploymentView.qml"},
    {SidebarItem::Agents, "agents", QT_TRANSLATE_NOOP("SidebarItem", "Agents"), "brain", Group::None,
        "Tools/AgentsView.qml"},
    {SidebarItem::Profile, "profile", QT_TRANSLATE_NOOP("SidebarItem", "Profile"), "person", Group::None,
        "Identity/UserProfileView.qml"},
}};

const Destination *find(int item)
{
    return item >= 0 && item < SidebarItem::count ? &destinations[size_t(item)] : nullptr;
}

QList<int> itemsOf(Group group)
{
    QList<int> items;
    for (const Destination &destination : destinations) {
        if (destination.group == group) {
            items.append(destination.item);
        }
    }
    return items;
}

} // namespace

QString SidebarItem::rawValue(int item)
{
    const Destination *destination = find(item);
    return destination ? QString::fromLatin1(destination->rawValue) : QString();
}

QString SidebarItem::title(int item)
{
    const Destination *destination = find(item);
    return destination ? QCoreApplication::translate("SidebarItem", destination->title) : QString();
}

QString SidebarItem::icon(int item)
{
    const Destination *destination = find(item);
    return destination ? QString::fromLatin1(destination->icon) : QString();
}

QUrl SidebarItem::view(int item)
{
    const Destination *destination = find(item == None ? Dashboard : item);
    return destination ? QUrl(u"qrc:/qt/qml/Quillmere/"_s + QString::fromLatin1(destination->view)) : QUrl();
}

QList<int> SidebarItem::mainGroup()
{
    return itemsOf(Group::Main);
}

QList<int> SidebarItem::systemGroup()
{
    return itemsOf(Group::System);
}

} // namespace quillmere
