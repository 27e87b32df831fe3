#pragma once

#include <QByteArray>
#include <QFile>
#include <QList>

namespace quillmere::testing {

// Whether memory can be measured: a sanitizer keeps what was freed, and so counts it.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool memoryIsMeasurable = false;
#else
constexpr bool memoryIsMeasurable = true;
#endif

// The most memory that this process had resident while the object lives, beyond what it had at first; in bytes.
class PeakMemory {
public:
    PeakMemory()
    {
        QFile peak(QStringLiteral("/proc/self/clear_refs"));
        peak.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
        peak.write("5"); // proc(5): the peak is the present size again
        m_before = status("VmRSS:");
    }

    qint64 growth() const { return status("VmHWM:") - m_before; }

private:
    static qint64 status(const QByteArray &name)
    {
        QFile file(QStringLiteral("/proc/self/status"));
        file.open(QIODevice::ReadOnly);
        for (const QByteArray &line : file.readAll().split('\n')) {
            if (line.startsWith(name)) {
                return line.mid(name.size()).trimmed().split(' ').first().toLongLong() * 1024;
            }
        }
        return -1;
    }

    qint64 m_before;
};

} // namespace quillmere::testing
