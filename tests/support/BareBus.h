#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

namespace quillmere::testing {

// A session bus of one's own that starts nobody, whatever services the machine has.
class BareBus {
public:
    BareBus();
    ~BareBus();
    Q_DISABLE_COPY_MOVE(BareBus)

    // Empty where it could not be started.
    QString address() const { return m_address; }
    void dies();

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
};

} // namespace quillmere::testing
