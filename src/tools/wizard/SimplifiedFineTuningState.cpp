#include "tools/wizard/SimplifiedFineTuningState.h"

#include "platform/MainQueue.h"

#include <array>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace FineTuningVocabulary {

QString rawValue(DatasetOption option)
{
    return std::array{u"upload"_s, u"sample"_s, u"url"_s, u"database"_s}.at(size_t(option));
}

QString rawValue(BaseModel model)
{
    return std::array{u"gpt35Turbo"_s, u"gpt4"_s, u"claude3"_s, u"llama2"_s}.at(size_t(model));
}

QString rawValue(TrainingGoal goal)
{
    return std::array{u"General Purpose"_s, u"Chatbot"_s, u"Classification"_s, u"Code Generation"_s}.at(size_t(goal));
}

QString displayName(BaseModel model)
{
    return std::array{u"GPT-3.5 Turbo"_s, u"GPT-4"_s, u"Claude 3"_s, u"Llama 2"_s}.at(size_t(model));
}

} // namespace FineTuningVocabulary

namespace {

constexpr std::chrono::seconds startPause{2};

} // namespace

QList<QString> SimplifiedFineTuningState::steps()
{
    return {tr("Select Data"), tr("Choose Model"), tr("Configure"), tr("Start")};
}

void SimplifiedFineTuningState::setCurrentStep(int step)
{
    publish(m_currentStep, step, u"currentStep"_s, &SimplifiedFineTuningState::currentStepChanged);
    emit canProceedChanged();
}

void SimplifiedFineTuningState::setSelectedDataset(DatasetOption option)
{
    publish(m_selectedDataset, option, u"selectedDataset"_s, &SimplifiedFineTuningState::selectedDatasetChanged);
    emit canProceedChanged();
}

void SimplifiedFineTuningState::setSelectedModel(BaseModel model)
{
    publish(m_selectedModel, model, u"selectedModel"_s, &SimplifiedFineTuningState::selectedModelChanged);
}

void SimplifiedFineTuningState::setTrainingGoal(TrainingGoal goal)
{
    publish(m_trainingGoal, goal, u"trainingGoal"_s, &SimplifiedFineTuningState::trainingGoalChanged);
}

void SimplifiedFineTuningState::setDatasetURL(const QString &url)
{
    publish(m_datasetURL, url, u"datasetURL"_s, &SimplifiedFineTuningState::datasetURLChanged);
    emit canProceedChanged();
}

bool SimplifiedFineTuningState::canProceed() const
{
    switch (m_currentStep) {
    case 0:
        return m_selectedDataset != DatasetOption::Upload || !m_datasetURL.isEmpty();
    case 1:
    case 2:
        return true;
    default:
        return false;
    }
}

void SimplifiedFineTuningState::start()
{
    setIsProcessing(true);
    MainQueue::shared().asyncAfter(startPause, this, [this] {
        setIsProcessing(false);
        setShowSuccess(true);
    });
}

void SimplifiedFineTuningState::setIsProcessing(bool isProcessing)
{
    publish(m_isProcessing, isProcessing, u"isProcessing"_s, &SimplifiedFineTuningState::isProcessingChanged);
}

void SimplifiedFineTuningState::setShowSuccess(bool showSuccess)
{
    publish(m_showSuccess, showSuccess, u"showSuccess"_s, &SimplifiedFineTuningState::showSuccessChanged);
}

} // namespace quillmere
