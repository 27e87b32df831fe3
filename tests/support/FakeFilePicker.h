#pragma once

#include "platform/FilePicker.h"

#include <QPromise>

#include <memory>

namespace quillmere::testing {

// Notes what is to be picked, and picks what the test says.
class FakeFilePicker : public FilePicker {
public:
    ~FakeFilePicker() override;

    QCoro::Task<Result<QList<QUrl>>> pick(FileRequest request) override;
    void cancel() override;

    bool isUp() const { return bool(m_answer); }
    void answers(Result<QList<QUrl>> answer);
    void picks(const QString &path) { answers(QList<QUrl>{QUrl::fromLocalFile(path)}); }

    QList<FileRequest> requests;
    int cancels = 0;

private:
    std::unique_ptr<QPromise<Result<QList<QUrl>>>> m_answer;
};

} // namespace quillmere::testing
