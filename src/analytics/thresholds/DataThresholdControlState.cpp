#include "analytics/thresholds/DataThresholdControlState.h"

using namespace Qt::StringLiterals;

namespace quillmere {

void DataThresholdControlState::stepDatasetLimit(int direction)
{
    publish(m_datasetLimit, m_datasetLimit + direction * datasetLimitStep(), u"datasetLimit"_s,
        &DataThresholdControlState::datasetLimitChanged);
}

void DataThresholdControlState::setMinTokens(double value)
{
    publish(m_minTokens, value, u"minTokens"_s, &DataThresholdControlState::minTokensChanged);
}

void DataThresholdControlState::setMaxTokens(double value)
{
    publish(m_maxTokens, value, u"maxTokens"_s, &DataThresholdControlState::maxTokensChanged);
}

void DataThresholdControlState::setMaxLabelImbalance(double value)
{
    publish(m_maxLabelImbalance, value, u"maxLabelImbalance"_s, &DataThresholdControlState::maxLabelImbalanceChanged);
}

void DataThresholdControlState::setDuplicateThreshold(double value)
{
    publish(
        m_duplicateThreshold, value, u"duplicateThreshold"_s, &DataThresholdControlState::duplicateThresholdChanged);
}

void DataThresholdControlState::setQualityScoreMin(double value)
{
    publish(m_qualityScoreMin, value, u"qualityScoreMin"_s, &DataThresholdControlState::qualityScoreMinChanged);
}

void DataThresholdControlState::setRemoveOutliers(bool value)
{
    publish(m_removeOutliers, value, u"removeOutliers"_s, &DataThresholdControlState::removeOutliersChanged);
}

void DataThresholdControlState::setNormalizeText(bool value)
{
    publish(m_normalizeText, value, u"normalizeText"_s, &DataThresholdControlState::normalizeTextChanged);
}

void DataThresholdControlState::setApplyStopwords(bool value)
{
    publish(m_applyStopwords, value, u"applyStopwords"_s, &DataThresholdControlState::applyStopwordsChanged);
}

void DataThresholdControlState::setTruncationStrategy(qint64 value)
{
    publish(
        m_truncationStrategy, value, u"truncationStrategy"_s, &DataThresholdControlState::truncationStrategyChanged);
}

} // namespace quillmere
