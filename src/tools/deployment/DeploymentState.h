#pragma once

#include "platform/Observable.h"

#include <QString>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// The vocabulary of DeploymentView.
namespace DeploymentVocabulary {
Q_NAMESPACE
QML_NAMED_ELEMENT(DeploymentVocabulary)

enum class ModelStatus { Active, Ready, Archived };
Q_ENUM_NS(ModelStatus)

} // namespace DeploymentVocabulary

// One visit to the deployment panel: which version is highlighted, and the inference playground. The screen writes the selection and
// the prompt and runs; an answer comes a second after the run and is the same one for every prompt and version. Nothing is
// deployed, no service is reached, and nothing here can fail.
class DeploymentState : public quillmere::Observable {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QString selectedModel READ selectedModel WRITE setSelectedModel NOTIFY selectedModelChanged)
    Q_PROPERTY(QString prompt READ prompt WRITE setPrompt NOTIFY promptChanged)
    Q_PROPERTY(QString output READ output NOTIFY outputChanged)
    Q_PROPERTY(bool isGenerating READ isGenerating NOTIFY isGeneratingChanged)

public:
    explicit DeploymentState(QObject *parent = nullptr);

    // A version of the registry.
    QString selectedModel() const { return m_selectedModel; }
    void setSelectedModel(const QString &version);

    QString prompt() const { return m_prompt; }
    void setPrompt(const QString &prompt);

    // Empty before the first answer.
    QString output() const { return m_output; }
    bool isGenerating() const { return m_isGenerating; }

    // Generating at once; after one second the answer, and no longer generating. An earlier answer stands until then.
    Q_INVOKABLE void run();

signals:
    void selectedModelChanged();
    void promptChanged();
    void outputChanged();
    void isGeneratingChanged();

private:
    void setOutput(const QString &output);
    void setIsGenerating(bool isGenerating);

    QString m_selectedModel;
    QString m_prompt;
    QString m_output;
    bool m_isGenerating = false;
};

} // namespace quillmere
