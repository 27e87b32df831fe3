#include "analytics/dashboard/StudioAnalyticsTab.h"

#include <QCoreApplication>

#include <array>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

struct Tab {
    StudioAnalyticsTab::Case tab;
    const char *rawValue;
    const char *title;
    const char *view; // module and file below qrc:/qt/qml/Quillmere
};

// Two of them are called otherwise than what they show: the gauges are the telemetry tab, and the telemetry of the training
// run is the training tab.
constexpr std::array<Tab, StudioAnalyticsTab::count> tabs{{
    {StudioAnalyticsTab::Overview, "overview", QT_TRANSLATE_NOOP("StudioAnalyticsTab", "Overview"),
        "Analytics/OverviewView.qml"},
    {StudioAnalyticsTab::Training, "training", QT_TRANSLATE_NOOP("StudioAnalyticsTab", "Training"),
        "Analytics/TrainingTelemetryView.qml"},
    {StudioAnalyticsTab::Validation, "validation", QT_TRANSLATE_NOOP("StudioAnalyticsTab", "Validation"),
        "Analytics/ValidationView.qml"},
    {StudioAnalyticsTab::Deployment, "deployment", QT_TRANSLATE_NOOP("StudioAnalyticsTab", "Deployment"),
        "Tools/DeploymentView.qml"},
    {StudioAnalyticsTab::Monitoring, "monitoring", QT_TRANSLATE_NOOP("StudioAnalyticsTab", "Monitoring"),
        "Analytics/MonitoringView.qml"},
    {StudioAnalyticsTab::Telemetry, "telemetry", QT_TRANSLATE_NOOP("StudioAnalyticsTab", "Telemetry"),
        "Analytics/GaugeAnalyticsDashboardView.qml"},
}};

const Tab &find(int tab)
{
    return tabs.at(size_t(tab));
}

} // namespace

QList<int> StudioAnalyticsTab::allCases()
{
    QList<int> cases;
    for (const Tab &tab : tabs) {
        cases.append(tab.tab);
    }
    return cases;
}

QString StudioAnalyticsTab::rawValue(int tab)
{
    return QString::fromLatin1(find(tab).rawValue);
}

QString StudioAnalyticsTab::title(int tab)
{
    return QCoreApplication::translate("StudioAnalyticsTab", find(tab).title);
}

QUrl StudioAnalyticsTab::view(int tab)
{
    return QUrl(u"qrc:/qt/qml/Quillmere/"_s + QString::fromLatin1(find(tab).view));
}

} // namespace quillmere
