#pragma once

#include <QStringList>
#include <QTemporaryFile>

namespace quillmere::testing {

// Takes this process's standard output while it lives.
class CapturedOutput {
public:
    CapturedOutput();
    ~CapturedOutput();
    Q_DISABLE_COPY_MOVE(CapturedOutput)

    // The lines written since it was made.
    QStringList lines();

private:
    QTemporaryFile m_file;
    int m_before;
};

} // namespace quillmere::testing
