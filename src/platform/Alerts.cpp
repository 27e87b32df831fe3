#include "platform/Alerts.h"

#include "platform/Environment.h"
#include "platform/MainQueue.h"

#include <QCoroFuture>

#include <QJSEngine>

namespace quillmere {

Alerts &Alerts::shared()
{
    return Environment::current().shared<Alerts>();
}

Alerts *Alerts::create(QQmlEngine *, QJSEngine *)
{
    QJSEngine::setObjectOwnership(&shared(), QJSEngine::CppOwnership);
    return &shared();
}

Alerts::~Alerts()
{
    for (const Alert &unanswered : m_alerts) {
        unanswered.answer->addResult(-1);
        unanswered.answer->finish();
    }
}

QCoro::Task<int> Alerts::present(QString title, QString text, QStringList buttons)
{
    auto promise = std::make_shared<QPromise<int>>();
    promise->start();
    const QFuture<int> answer = promise->future();
    m_alerts.push_back({title, text, buttons, promise});
    MainQueue::shared().hold();
    emit changed();
    co_return co_await answer;
}

void Alerts::answer(int button)
{
    if (!isUp() || button < 0 || button >= m_alerts.front().buttons.size()) {
        return;
    }
    const Alert answered = m_alerts.front();
    m_alerts.pop_front();
    MainQueue::shared().release();
    emit changed();
    answered.answer->addResult(button);
    answered.answer->finish();
}

} // namespace quillmere
