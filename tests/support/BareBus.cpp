#include "support/BareBus.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace quillmere::testing {

BareBus::BareBus()
{
    QFile configuration(m_folder.filePath(u"bus.conf"_s));
    if (!configuration.open(QIODevice::WriteOnly)) {
        return;
    }
    configuration.write("<busconfig><type>session</type><listen>unix:dir=" + m_folder.path().toUtf8()
        + "</listen><policy context='default'><allow send_destination='*' eavesdrop='true'/><allow eavesdrop='true'/>"
          "<allow own='*'/></policy></busconfig>");
    configuration.close();
    m_daemon.start(
        u"dbus-daemon"_s, {u"--nofork"_s, u"--print-address"_s, u"--config-file="_s + configuration.fileName()});
    if (m_daemon.waitForReadyRead(30'000)) {
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    }
}

BareBus::~BareBus()
{
    dies();
}

void BareBus::dies()
{
    m_daemon.kill();
    m_daemon.waitForFinished();
}

} // namespace quillmere::testing
