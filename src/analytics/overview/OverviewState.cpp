#include "analytics/overview/OverviewState.h"

#include "analytics/AnalyticsDataManager.h"
#include "app/theme/Color.h"
#include "platform/Environment.h"

namespace quillmere {

OverviewState::OverviewState(QObject *parent) : QObject(parent), m_random(Environment::current().makeRandomSource())
{
    connect(&AnalyticsDataManager::shared(), &AnalyticsDataManager::changed, this, &OverviewState::draw);
    draw();
}

QString OverviewState::totalSamples()
{
    return QString::number(AnalyticsDataManager::shared().totalSamples());
}

QString OverviewState::avgLength()
{
    return QString::number(AnalyticsDataManager::shared().avgLength());
}

QList<ChartBar> OverviewState::labelFrequency()
{
    return {
        ChartBar::labelled(tr("Positive"), 4500, Color::blue()),
        ChartBar::labelled(tr("Negative"), 3200, Color::red()),
        ChartBar::labelled(tr("Neutral"), 2100, Color::gray()),
    };
}

QList<DatasetCheck> OverviewState::checks()
{
    return {
        {tr("Schema Validation"), CheckStatus::Pass},
        {tr("Alignment"), CheckStatus::Pass},
        {tr("Tokenizer Compatibility"), CheckStatus::Warning},
        {tr("Encoding"), CheckStatus::Pass},
        {tr("Language Detection"), CheckStatus::Pass},
    };
}

void OverviewState::draw()
{
    m_tokenDistribution.clear();
    for (int i = 0; i < 20; ++i) {
        m_tokenDistribution.append(ChartBar::at(i * 100, m_random->integer(100, 1000), Color::green()));
    }
    emit changed();
}

} // namespace quillmere
