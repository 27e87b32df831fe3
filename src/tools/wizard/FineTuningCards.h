#pragma once

#include "tools/wizard/SimplifiedFineTuningState.h"

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// What the wizard's cards show of a choice. The texts are for the eye and are translated; what is compared is the vocabulary's.
class FineTuningCards : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    Q_INVOKABLE static QString datasetTitle(quillmere::FineTuningVocabulary::DatasetOption option);
    Q_INVOKABLE static QString datasetDescription(quillmere::FineTuningVocabulary::DatasetOption option);
    Q_INVOKABLE static QString datasetIcon(quillmere::FineTuningVocabulary::DatasetOption option);
    Q_INVOKABLE static QColor datasetColor(quillmere::FineTuningVocabulary::DatasetOption option);

    Q_INVOKABLE static QString modelName(quillmere::FineTuningVocabulary::BaseModel model);
    Q_INVOKABLE static QString modelDescription(quillmere::FineTuningVocabulary::BaseModel model);

    Q_INVOKABLE static QString goalTitle(quillmere::FineTuningVocabulary::TrainingGoal goal);
    Q_INVOKABLE static QString goalDescription(quillmere::FineTuningVocabulary::TrainingGoal goal);
    Q_INVOKABLE static QString goalIcon(quillmere::FineTuningVocabulary::TrainingGoal goal);
    Q_INVOKABLE static QColor goalColor(quillmere::FineTuningVocabulary::TrainingGoal goal);
};

} // namespace quillmere
