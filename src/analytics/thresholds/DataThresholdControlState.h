#pragma once

#include "platform/Observable.h"

#include <QtQml/qqmlregistration.h>

namespace quillmere {

// How a dataset should be filtered: what the controls of the thresholds panel hold, for one visit to it. Nothing else reads these
// values; nothing is filtered, kept or sent.
class DataThresholdControlState : public quillmere::Observable {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(double minTokens READ minTokens WRITE setMinTokens NOTIFY minTokensChanged)
    Q_PROPERTY(double maxTokens READ maxTokens WRITE setMaxTokens NOTIFY maxTokensChanged)
    // Whole numbers of a width that QML has.
    Q_PROPERTY(double datasetLimit READ datasetLimit NOTIFY datasetLimitChanged)
    Q_PROPERTY(double datasetLimitStep READ datasetLimitStep CONSTANT)
    Q_PROPERTY(double minLabelFreq READ minLabelFreq CONSTANT)
    Q_PROPERTY(
        double maxLabelImbalance READ maxLabelImbalance WRITE setMaxLabelImbalance NOTIFY maxLabelImbalanceChanged)
    Q_PROPERTY(
        double duplicateThreshold READ duplicateThreshold WRITE setDuplicateThreshold NOTIFY duplicateThresholdChanged)
    Q_PROPERTY(double qualityScoreMin READ qualityScoreMin WRITE setQualityScoreMin NOTIFY qualityScoreMinChanged)
    Q_PROPERTY(bool removeOutliers READ removeOutliers WRITE setRemoveOutliers NOTIFY removeOutliersChanged)
    Q_PROPERTY(bool normalizeText READ normalizeText WRITE setNormalizeText NOTIFY normalizeTextChanged)
    Q_PROPERTY(bool applyStopwords READ applyStopwords WRITE setApplyStopwords NOTIFY applyStopwordsChanged)
    Q_PROPERTY(
        int truncationStrategy READ truncationStrategy WRITE setTruncationStrategy NOTIFY truncationStrategyChanged)

public:
    using Observable::Observable;

    double minTokens() const { return m_minTokens; }
    void setMinTokens(double value);
    double maxTokens() const { return m_maxTokens; }
    void setMaxTokens(double value);

    // In rows. It has no bounds: enough steps down go below zero.
    qint64 datasetLimit() const { return m_datasetLimit; }
    static qint64 datasetLimitStep() { return 1000; }
    // By one step up (1) or down (-1).
    Q_INVOKABLE void stepDatasetLimit(int direction);

    // No control shows it.
    double minLabelFreq() const { return m_minLabelFreq; }
    double maxLabelImbalance() const { return m_maxLabelImbalance; }
    void setMaxLabelImbalance(double value);
    double duplicateThreshold() const { return m_duplicateThreshold; } // in per cent
    void setDuplicateThreshold(double value);
    double qualityScoreMin() const { return m_qualityScoreMin; }
    void setQualityScoreMin(double value);

    bool removeOutliers() const { return m_removeOutliers; }
    void setRemoveOutliers(bool value);
    bool normalizeText() const { return m_normalizeText; }
    void setNormalizeText(bool value);
    bool applyStopwords() const { return m_applyStopwords; }
    void setApplyStopwords(bool value);

    // Where a long text is cut: 0 at its start, 1 in its middle, 2 at its end.
    qint64 truncationStrategy() const { return m_truncationStrategy; }
    void setTruncationStrategy(qint64 value);

signals:
    void minTokensChanged();
    void maxTokensChanged();
    void datasetLimitChanged();
    void maxLabelImbalanceChanged();
    void duplicateThresholdChanged();
    void qualityScoreMinChanged();
    void removeOutliersChanged();
    void normalizeTextChanged();
    void applyStopwordsChanged();
    void truncationStrategyChanged();

private:
    double m_minTokens = 10.0;
    double m_maxTokens = 2048.0;
    qint64 m_datasetLimit = 100000;
    const double m_minLabelFreq = 0.5;
    double m_maxLabelImbalance = 3.0;
    double m_duplicateThreshold = 5.0;
    double m_qualityScoreMin = 0.75;
    bool m_removeOutliers = true;
    bool m_normalizeText = false;
    bool m_applyStopwords = false;
    qint64 m_truncationStrategy = 0;
};

} // namespace quillmere
