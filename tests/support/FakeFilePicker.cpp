#include "support/FakeFilePicker.h"

#include <QCoroFuture>

namespace quillmere::testing {

FakeFilePicker::~FakeFilePicker()
{
    answers(QList<QUrl>());
}

QCoro::Task<Result<QList<QUrl>>> FakeFilePicker::pick(FileRequest request)
{
    requests.append(request);
    m_answer = std::make_unique<QPromise<Result<QList<QUrl>>>>();
    m_answer->start();
    const QFuture<Result<QList<QUrl>>> answer = m_answer->future();
    co_return co_await answer;
}

void FakeFilePicker::cancel()
{
    ++cancels;
    answers(QList<QUrl>());
}

void FakeFilePicker::answers(Result<QList<QUrl>> answer)
{
    if (const auto waiting = std::move(m_answer)) {
        waiting->addResult(std::move(answer));
        waiting->finish();
    }
}

} // namespace quillmere::testing
