#pragma once

#include "platform/Observable.h"

#include <QList>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// The vocabulary of the fine-tune wizard.
namespace FineTuningVocabulary {
Q_NAMESPACE
QML_NAMED_ELEMENT(FineTuningVocabulary)

enum class DatasetOption { Upload, Sample, Url, Database };
Q_ENUM_NS(DatasetOption)

enum class BaseModel { Gpt35Turbo, Gpt4, Claude3, Llama2 };
Q_ENUM_NS(BaseModel)

enum class TrainingGoal { General, Chatbot, Classification, CodeGeneration };
Q_ENUM_NS(TrainingGoal)

// "upload", "sample", "url", "database".
QString rawValue(DatasetOption option);
// "gpt35Turbo", "gpt4", "claude3", "llama2": never shown.
QString rawValue(BaseModel model);
// "General Purpose", "Chatbot", "Classification", "Code Generation".
QString rawValue(TrainingGoal goal);

// "GPT-3.5 Turbo", "GPT-4", "Claude 3", "Llama 2".
QString displayName(BaseModel model);

} // namespace FineTuningVocabulary

// The choices of one visit to the fine-tune wizard, and where it stands. The screen moves back and forth between the steps, writes
// the three choices, and starts; a start is a pause of two seconds and then a success, whatever was chosen: it reaches no service,
// keeps nothing and cannot fail. Going back does not end the pause. Success resets nothing.
class SimplifiedFineTuningState : public quillmere::Observable {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QList<QString> steps READ steps CONSTANT)
    Q_PROPERTY(int currentStep READ currentStep NOTIFY currentStepChanged)
    Q_PROPERTY(quillmere::FineTuningVocabulary::DatasetOption selectedDataset READ selectedDataset WRITE
            setSelectedDataset NOTIFY selectedDatasetChanged)
    Q_PROPERTY(quillmere::FineTuningVocabulary::BaseModel selectedModel READ selectedModel WRITE setSelectedModel NOTIFY
            selectedModelChanged)
    Q_PROPERTY(quillmere::FineTuningVocabulary::TrainingGoal trainingGoal READ trainingGoal WRITE setTrainingGoal NOTIFY
            trainingGoalChanged)
    Q_PROPERTY(QString datasetURL READ datasetURL NOTIFY datasetURLChanged)
    Q_PROPERTY(bool canProceed READ canProceed NOTIFY canProceedChanged)
    Q_PROPERTY(bool isProcessing READ isProcessing NOTIFY isProcessingChanged)
    Q_PROPERTY(bool showSuccess READ showSuccess WRITE setShowSuccess NOTIFY showSuccessChanged)

public:
    using DatasetOption = FineTuningVocabulary::DatasetOption;
    using BaseModel = FineTuningVocabulary::BaseModel;
    using TrainingGoal = FineTuningVocabulary::TrainingGoal;

    using Observable::Observable;

    // What the step indicator calls the four steps; `currentStep` is an index into them.
    static QList<QString> steps();
    int currentStep() const { return m_currentStep; }

    DatasetOption selectedDataset() const { return m_selectedDataset; }
    void setSelectedDataset(DatasetOption option);
    BaseModel selectedModel() const { return m_selectedModel; }
    void setSelectedModel(BaseModel model);
    TrainingGoal trainingGoal() const { return m_trainingGoal; }
    void setTrainingGoal(TrainingGoal goal);

    // Nothing in the wizard writes it, so that with `Upload` chosen there is no way on.
    QString datasetURL() const { return m_datasetURL; }
    void setDatasetURL(const QString &url);

    // Whether Continue is open: on the first step with any source but an `Upload` without a URL, always on the second and
    // third, never elsewhere.
    bool canProceed() const;

    bool isProcessing() const { return m_isProcessing; }
    bool showSuccess() const { return m_showSuccess; }
    void setShowSuccess(bool showSuccess);

    Q_INVOKABLE void back() { setCurrentStep(m_currentStep - 1); }
    Q_INVOKABLE void proceed() { setCurrentStep(m_currentStep + 1); }
    // Processing at once; success, and no longer processing, after two seconds.
    Q_INVOKABLE void start();

signals:
    void currentStepChanged();
    void selectedDatasetChanged();
    void selectedModelChanged();
    void trainingGoalChanged();
    void datasetURLChanged();
    void canProceedChanged();
    void isProcessingChanged();
    void showSuccessChanged();

private:
    void setCurrentStep(int step);
    void setIsProcessing(bool isProcessing);

    int m_currentStep = 0;
    DatasetOption m_selectedDataset = DatasetOption::Upload;
    BaseModel m_selectedModel = BaseModel::Gpt35Turbo;
    TrainingGoal m_trainingGoal = TrainingGoal::General;
    QString m_datasetURL;
    bool m_isProcessing = false;
    bool m_showSuccess = false;
};

} // namespace quillmere
