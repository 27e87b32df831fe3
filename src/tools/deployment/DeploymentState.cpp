#include "tools/deployment/DeploymentState.h"

#include "platform/MainQueue.h"

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

constexpr std::chrono::seconds answerPause{1};

} // namespace

DeploymentState::DeploymentState(QObject *parent)
    : Observable(parent), m_selectedModel(u"v1.2.0"_s), m_prompt(tr("Explain quantum computing in simple terms."))
{
}

void DeploymentState::setSelectedModel(const QString &version)
{
    publish(m_selectedModel, version, u"selectedModel"_s, &DeploymentState::selectedModelChanged);
}

void DeploymentState::setPrompt(const QString &prompt)
{
    publish(m_prompt, prompt, u"prompt"_s, &DeploymentState::promptChanged);
}

void DeploymentState::run()
{
    setIsGenerating(true);
    MainQueue::shared().asyncAfter(answerPause, this, [this] {
        setOutput(tr("Quantum computing uses quantum bits or qubits..."));
        setIsGenerating(false);
    });
}

void DeploymentState::setOutput(const QString &output)
{
    publish(m_output, output, u"output"_s, &DeploymentState::outputChanged);
}

void DeploymentState::setIsGenerating(bool isGenerating)
{
    publish(m_isGenerating, isGenerating, u"isGenerating"_s, &DeploymentState::isGeneratingChanged);
}

} // namespace quillmere
