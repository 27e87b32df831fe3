#include "platform/BrowserSession.h"

#include "platform/Environment.h"
#include "platform/Pasteboard.h"
#include "platform/Urls.h"

#include <QCoroFuture>

#include <QJSEngine>

#include <utility>

namespace quillmere {

BrowserSession &BrowserSession::shared()
{
    return Environment::current().shared<BrowserSession>();
}

BrowserSession *BrowserSession::create(QQmlEngine *, QJSEngine *)
{
    QJSEngine::setObjectOwnership(&shared(), QJSEngine::CppOwnership);
    return &shared();
}

BrowserSession::~BrowserSession()
{
    cancel();
}

QCoro::Task<BrowserOutcome> BrowserSession::authenticate(QUrl url, QString callbackScheme)
{
    cancel();
    m_url = url;
    m_scheme = callbackScheme;
    m_waiting = std::make_shared<QPromise<BrowserOutcome>>();
    m_waiting->start();
    const QFuture<BrowserOutcome> end = m_waiting->future();
    emit waitingChanged();
    openAgain();
    co_return co_await end;
}

bool BrowserSession::deliver(const QString &text)
{
    const auto url = parseUrl(text);
    if (!isWaiting() || !url || url->scheme() != m_scheme) {
        return false;
    }
    finish({BrowserOutcome::Kind::Callback, *url, {}});
    return true;
}

void BrowserSession::cancel()
{
    if (isWaiting()) {
        finish({BrowserOutcome::Kind::Canceled, {}, {}});
    }
}

void BrowserSession::openAgain()
{
    if (!isWaiting()) {
        return;
    }
    const bool opened = Environment::current().urlOpener->open(m_url);
    if (std::exchange(m_opened, opened) != opened) {
        emit openedChanged();
    }
}

void BrowserSession::copyLink()
{
    if (isWaiting()) {
        Pasteboard::setString(m_url.toString(QUrl::FullyEncoded));
    }
}

void BrowserSession::finish(const BrowserOutcome &outcome)
{
    const auto ending = std::exchange(m_waiting, nullptr);
    emit waitingChanged();
    ending->addResult(outcome);
    ending->finish();
}

} // namespace quillmere
