#pragma once

#include "analytics/overview/CheckStatus.h"
#include "charts/ChartBar.h"
#include "platform/RandomSource.h"

#include <QList>
#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace quillmere {

// Something about the dataset that is said to have been checked.
struct DatasetCheck {
    Q_GADGET
    QML_VALUE_TYPE(datasetCheck)

    Q_PROPERTY(QString label MEMBER label)
    Q_PROPERTY(int status MEMBER status)

public:
    QString label;
    int status = CheckStatus::Pass; // a CheckStatus::Case

    bool operator==(const DatasetCheck &) const = default;
};

// What the overview tab shows beside texts of the data manager: its whole numbers in digits, and the charts. The token distribution
// is made up: it is drawn anew whenever the figures of the run change, though none of these is in it. The labels never change.
class OverviewState : public QObject {
    Q_OBJECT
    QML_ELEMENT

    // Without separators.
    Q_PROPERTY(QString totalSamples READ totalSamples NOTIFY changed)
    Q_PROPERTY(QString avgLength READ avgLength NOTIFY changed)
    Q_PROPERTY(QList<quillmere::ChartBar> tokenDistribution READ tokenDistribution NOTIFY changed)
    Q_PROPERTY(QList<quillmere::ChartBar> labelFrequency READ labelFrequency CONSTANT)
    Q_PROPERTY(QList<quillmere::DatasetCheck> checks READ checks CONSTANT)

public:
    explicit OverviewState(QObject *parent = nullptr);

    static QString totalSamples();
    static QString avgLength();
    // Twenty counts from 100 to 1000, at lengths a hundred apart from 0 up.
    const QList<ChartBar> &tokenDistribution() const { return m_tokenDistribution; }
    // Three labels.
    static QList<ChartBar> labelFrequency();
    // Five, as they stand: none is made.
    static QList<DatasetCheck> checks();

signals:
    void changed();

private:
    void draw();

    const std::unique_ptr<RandomSource> m_random;
    QList<ChartBar> m_tokenDistribution;
};

} // namespace quillmere
