#include "tools/deployment/DeploymentState.h"

#include "platform/MainQueue.h"
#include "support/PlatformEnvironment.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmere {

using testing::PlatformEnvironment;

namespace {

const auto answer = u"Quantum computing uses quantum bits or qubits..."_s;

} // namespace

class tst_DeploymentState : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<PlatformEnvironment> m_world;
    std::unique_ptr<DeploymentState> m_state;

private slots:
    void init()
    {
        m_world = std::make_unique<PlatformEnvironment>();
        m_state = std::make_unique<DeploymentState>();
    }
    void cleanup()
    {
        m_state.reset();
        m_world.reset();
    }

    void startsOnTheNewestVersionWithAPromptAndNoOutput()
    {
        QCOMPARE(m_state->selectedModel(), u"v1.2.0"_s);
        QCOMPARE(m_state->prompt(), u"Explain quantum computing in simple terms."_s);
        QCOMPARE(m_state->output(), QString());
        QVERIFY(!m_state->isGenerating());
        QCOMPARE(m_world->clock.scheduledCount(), 0);
    }

    void answersOneSecondAfterTheRun()
    {
        m_state->run();
        QVERIFY(m_state->isGenerating());
        m_world->clock.advance(999ms);
        QVERIFY(m_state->isGenerating());
        QCOMPARE(m_state->output(), QString());
        m_world->clock.advance(1ms);
        QVERIFY(!m_state->isGenerating());
        QCOMPARE(m_state->output(), answer);
    }

    void endsItsAnswerInThreeDots()
    {
        m_state->run();
        m_world->clock.advance(1s);
        QVERIFY(m_state->output().endsWith(u"qubits..."_s));
        QVERIFY(!m_state->output().contains(QChar(0x2026)));
    }

    void hasTheAnswerBeforeItIsIdleAgain()
    {
        m_state->run();
        connect(m_state.get(), &DeploymentState::isGeneratingChanged, this,
            [this] { QCOMPARE(m_state->output(), answer); });
        QSignalSpy told(m_state.get(), &DeploymentState::isGeneratingChanged);
        m_world->clock.advance(1s);
        QCOMPARE(told.count(), 1);
    }

    void keepsTheEarlierAnswerDuringASecondRun()
    {
        m_state->run();
        m_world->clock.advance(1s);
        QSignalSpy told(m_state.get(), &DeploymentState::outputChanged);
        m_state->run();
        QVERIFY(m_state->isGenerating());
        QCOMPARE(m_state->output(), answer);
        m_world->clock.advance(1s);
        QVERIFY(!m_state->isGenerating());
        QCOMPARE(m_state->output(), answer);
        QCOMPARE(told.count(), 0);
    }

    void answersTheSameToEveryPromptAndVersion_data()
    {
        QTest::addColumn<QString>("prompt");
        QTest::addColumn<QString>("version");
        QTest::newRow("an empty prompt") << QString() << u"v1.2.0"_s;
        QTest::newRow("another prompt") << u"<b>What</b> is 2 + 2?\n"_s << u"v1.2.0"_s;
        QTest::newRow("an archived version") << u"Hello"_s << u"v1.0.0"_s;
    }
    void answersTheSameToEveryPromptAndVersion()
    {
        QFETCH(QString, prompt);
        QFETCH(QString, version);
        m_state->setPrompt(prompt);
        m_state->setSelectedModel(version);
        QCOMPARE(m_state->output(), QString());
        m_state->run();
        m_world->clock.advance(1s);
        QCOMPARE(m_state->output(), answer);
        QCOMPARE(m_state->prompt(), prompt);
        QCOMPARE(m_state->selectedModel(), version);
    }

    void waitsWithTheAnswerWhileAnAlertIsUp()
    {
        m_state->run();
        MainQueue::shared().hold();
        m_world->clock.advance(3s);
        QVERIFY(m_state->isGenerating());
        MainQueue::shared().release();
        testing::settle();
        QVERIFY(!m_state->isGenerating());
        QCOMPARE(m_state->output(), answer);
    }

    void takesItsRunWithItWhenItGoes()
    {
        m_state->run();
        m_state.reset();
        m_world->clock.advance(1s);
        QCOMPARE(m_world->clock.scheduledCount(), 0);
    }

    void asksNoServiceForAnything()
    {
        m_state->setSelectedModel(u"v1.1.5"_s);
        m_state->run();
        m_world->clock.advance(1s);
        testing::settle();
        QVERIFY(m_world->service.requests().isEmpty());
    }
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_DeploymentState)
#include "tst_DeploymentState.moc"
