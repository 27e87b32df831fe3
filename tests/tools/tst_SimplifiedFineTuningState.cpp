#include "tools/wizard/SimplifiedFineTuningState.h"

#include "platform/MainQueue.h"
#include "support/PlatformEnvironment.h"
#include "tools/wizard/FineTuningCards.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmere {

using namespace FineTuningVocabulary;
using testing::PlatformEnvironment;

class tst_SimplifiedFineTuningState : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<PlatformEnvironment> m_world;
    std::unique_ptr<SimplifiedFineTuningState> m_state;

    void advanceTo(int step)
    {
        while (m_state->currentStep() < step) {
            m_state->proceed();
        }
    }

private slots:
    void init()
    {
        m_world = std::make_unique<PlatformEnvironment>();
        m_state = std::make_unique<SimplifiedFineTuningState>();
    }
    void cleanup()
    {
        m_state.reset();
        m_world.reset();
    }

    void opensOnTheFirstStepWithUploadChosenAndNoWayOn()
    {
        QCOMPARE(m_state->currentStep(), 0);
        QCOMPARE(m_state->selectedDataset(), DatasetOption::Upload);
        QCOMPARE(m_state->selectedModel(), BaseModel::Gpt35Turbo);
        QCOMPARE(m_state->trainingGoal(), TrainingGoal::General);
        QVERIFY(m_state->datasetURL().isEmpty());
        QVERIFY(!m_state->isProcessing());
        QVERIFY(!m_state->showSuccess());
        QVERIFY(!m_state->canProceed());
    }

    void callsItsFourStepsByName()
    {
        QCOMPARE(m_state->steps(), QStringList({u"Select Data"_s, u"Choose Model"_s, u"Configure"_s, u"Start"_s}));
    }

    void knowsTheRawValuesOfItsVocabulary()
    {
        QCOMPARE(rawValue(DatasetOption::Upload), u"upload"_s);
        QCOMPARE(rawValue(DatasetOption::Sample), u"sample"_s);
        QCOMPARE(rawValue(DatasetOption::Url), u"url"_s);
        QCOMPARE(rawValue(DatasetOption::Database), u"database"_s);
        QCOMPARE(rawValue(BaseModel::Gpt35Turbo), u"gpt35Turbo"_s);
        QCOMPARE(rawValue(BaseModel::Gpt4), u"gpt4"_s);
        QCOMPARE(rawValue(BaseModel::Claude3), u"claude3"_s);
        QCOMPARE(rawValue(BaseModel::Llama2), u"llama2"_s);
        QCOMPARE(rawValue(TrainingGoal::General), u"General Purpose"_s);
        QCOMPARE(rawValue(TrainingGoal::Chatbot), u"Chatbot"_s);
        QCOMPARE(rawValue(TrainingGoal::Classification), u"Classification"_s);
        QCOMPARE(rawValue(TrainingGoal::CodeGeneration), u"Code Generation"_s);
        QCOMPARE(displayName(BaseModel::Gpt35Turbo), u"GPT-3.5 Turbo"_s);
        QCOMPARE(displayName(BaseModel::Gpt4), u"GPT-4"_s);
        QCOMPARE(displayName(BaseModel::Claude3), u"Claude 3"_s);
        QCOMPARE(displayName(BaseModel::Llama2), u"Llama 2"_s);
    }

    void showsOnTheCardsWhatTheVocabularySays()
    {
        QCOMPARE(FineTuningCards::datasetTitle(DatasetOption::Sample), u"Sample Dataset"_s);
        for (const auto model : {BaseModel::Gpt35Turbo, BaseModel::Gpt4, BaseModel::Claude3, BaseModel::Llama2}) {
            QCOMPARE(FineTuningCards::modelName(model), displayName(model));
        }
        for (const auto goal : {TrainingGoal::General, TrainingGoal::Chatbot, TrainingGoal::Classification,
                 TrainingGoal::CodeGeneration}) {
            QCOMPARE(FineTuningCards::goalTitle(goal), rawValue(goal));
        }
    }

    void opensContinueByTheSourceAtTheFirstStep_data()
    {
        QTest::addColumn<DatasetOption>("option");
        QTest::addColumn<QString>("url");
        QTest::addColumn<bool>("open");
        QTest::newRow("a file, of which there is none") << DatasetOption::Upload << QString() << false;
        QTest::newRow("a file with an address") << DatasetOption::Upload << u"file:///data.csv"_s << true;
        QTest::newRow("samples") << DatasetOption::Sample << QString() << true;
        QTest::newRow("a link without an address") << DatasetOption::Url << QString() << true;
        QTest::newRow("a database without a connection") << DatasetOption::Database << QString() << true;
    }

    void opensContinueByTheSourceAtTheFirstStep()
    {
        QFETCH(DatasetOption, option);
        QFETCH(QString, url);
        m_state->setDatasetURL(url);
        m_state->setSelectedDataset(option);
        QTEST(m_state->canProceed(), "open");
    }

    void closesContinueAgainWithUpload()
    {
        QSignalSpy told(m_state.get(), &SimplifiedFineTuningState::canProceedChanged);
        m_state->setSelectedDataset(DatasetOption::Sample);
        QVERIFY(m_state->canProceed());
        QCOMPARE(told.count(), 1);
        m_state->setSelectedDataset(DatasetOption::Upload);
        QVERIFY(!m_state->canProceed());
        QCOMPARE(told.count(), 2);
    }

    void opensContinueAtTheMiddleStepsOnly()
    {
        m_state->setSelectedDataset(DatasetOption::Sample);
        m_state->back();
        QCOMPARE(m_state->currentStep(), -1);
        QVERIFY(!m_state->canProceed());
        advanceTo(1);
        QVERIFY(m_state->canProceed());
        m_state->proceed();
        QVERIFY(m_state->canProceed());
        m_state->proceed();
        QCOMPARE(m_state->currentStep(), 3);
        QVERIFY(!m_state->canProceed());
    }

    // Only the first step asks for the source.
    void continuesFromTheMiddleStepsWhateverTheSource()
    {
        advanceTo(1);
        QCOMPARE(m_state->selectedDataset(), DatasetOption::Upload);
        QVERIFY(m_state->canProceed());
    }

    void keepsItsChoicesBackAndForth()
    {
        m_state->setSelectedDataset(DatasetOption::Database);
        m_state->setSelectedModel(BaseModel::Llama2);
        m_state->setTrainingGoal(TrainingGoal::CodeGeneration);
        advanceTo(3);
        m_state->back();
        m_state->back();
        m_state->back();
        QCOMPARE(m_state->currentStep(), 0);
        QCOMPARE(m_state->selectedDataset(), DatasetOption::Database);
        QCOMPARE(m_state->selectedModel(), BaseModel::Llama2);
        QCOMPARE(m_state->trainingGoal(), TrainingGoal::CodeGeneration);
    }

    void succeedsTwoSecondsAfterTheStart()
    {
        advanceTo(3);
        m_state->start();
        QVERIFY(m_state->isProcessing());
        QVERIFY(!m_state->showSuccess());
        m_world->clock.advance(1999ms);
        QVERIFY(m_state->isProcessing());
        QVERIFY(!m_state->showSuccess());
        m_world->clock.advance(1ms);
        QVERIFY(!m_state->isProcessing());
        QVERIFY(m_state->showSuccess());
    }

    void isIdleBeforeItTellsOfTheSuccess()
    {
        QStringList written;
        connect(m_state.get(), &SimplifiedFineTuningState::willChange, this,
            [&](const QString &field) { written.append(field); });
        m_state->start();
        QCOMPARE(written, QStringList({u"isProcessing"_s}));
        connect(m_state.get(), &SimplifiedFineTuningState::showSuccessChanged, this,
            [&] { QVERIFY(!m_state->isProcessing()); });
        m_world->clock.advance(2s);
        QCOMPARE(written, QStringList({u"isProcessing"_s, u"isProcessing"_s, u"showSuccess"_s}));
    }

    void succeedsOnTheStepThatTheUserWentBackTo()
    {
        advanceTo(3);
        m_state->start();
        m_world->clock.advance(1s);
        m_state->back();
        QVERIFY(m_state->isProcessing());
        m_world->clock.advance(1s);
        QCOMPARE(m_state->currentStep(), 2);
        QVERIFY(m_state->showSuccess());
        m_state->setShowSuccess(false);
        m_state->proceed();
        QVERIFY(!m_state->isProcessing());
        QVERIFY(!m_state->showSuccess());
    }

    void resetsNothingAfterTheSuccessAndStartsAgain()
    {
        m_state->setSelectedDataset(DatasetOption::Url);
        m_state->setSelectedModel(BaseModel::Claude3);
        m_state->setTrainingGoal(TrainingGoal::Chatbot);
        advanceTo(3);
        for (int round = 0; round < 2; ++round) {
            m_state->start();
            m_world->clock.advance(2s);
            QVERIFY(m_state->showSuccess());
            m_state->setShowSuccess(false);
            QCOMPARE(m_state->currentStep(), 3);
            QCOMPARE(m_state->selectedDataset(), DatasetOption::Url);
            QCOMPARE(m_state->selectedModel(), BaseModel::Claude3);
            QCOMPARE(m_state->trainingGoal(), TrainingGoal::Chatbot);
            QVERIFY(!m_state->isProcessing());
        }
    }

    void waitsWithTheSuccessWhileAnAlertIsUp()
    {
        m_state->start();
        MainQueue::shared().hold();
        m_world->clock.advance(3s);
        QVERIFY(m_state->isProcessing());
        MainQueue::shared().release();
        testing::settle();
        QVERIFY(!m_state->isProcessing());
        QVERIFY(m_state->showSuccess());
    }

    void takesItsPauseWithItWhenItGoes()
    {
        m_state->start();
        m_state.reset();
        m_world->clock.advance(2s);
        QCOMPARE(m_world->clock.scheduledCount(), 0);
    }

    void asksNoServiceForAnything()
    {
        m_state->setSelectedDataset(DatasetOption::Url);
        advanceTo(3);
        m_state->start();
        m_world->clock.advance(2s);
        testing::settle();
        QVERIFY(m_world->service.requests().isEmpty());
    }
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_SimplifiedFineTuningState)
#include "tst_SimplifiedFineTuningState.moc"
