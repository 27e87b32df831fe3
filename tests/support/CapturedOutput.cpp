#include "support/CapturedOutput.h"

#include <cstdio>
#include <unistd.h>

namespace quillmere::testing {

CapturedOutput::CapturedOutput()
{
    std::fflush(stdout);
    m_file.open();
    m_before = dup(STDOUT_FILENO);
    dup2(m_file.handle(), STDOUT_FILENO);
}

CapturedOutput::~CapturedOutput()
{
    std::fflush(stdout);
    dup2(m_before, STDOUT_FILENO);
    close(m_before);
}

QStringList CapturedOutput::lines()
{
    std::fflush(stdout);
    QFile file(m_file.fileName());
    file.open(QIODevice::ReadOnly);
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

} // namespace quillmere::testing
