#include "journeys/Studio.h"

#include "journeys/Desktop.h"
#include "standin/StandIn.h"

#include <QDateTime>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<QProcess> started(const QString &program, const QStringList &arguments, QProcessEnvironment environment)
{
    environment.insert(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s, u"1"_s);
    auto process = std::make_unique<QProcess>();
    process->setProcessEnvironment(environment);
    process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process->start(program, arguments);
    process->waitForStarted();
    return process;
}

} // namespace

Studio::Studio(const QString &program, const QStringList &arguments, const QProcessEnvironment &environment)
    : Studio(started(program, arguments, environment))
{
}

Studio::Studio(std::unique_ptr<QProcess> process) : Screen(process->processId()), m_process(std::move(process))
{
}

Studio::~Studio()
{
    if (isRunning()) {
        m_process->kill();
        m_process->waitForFinished();
    }
}

bool Studio::entersCredentials(const QString &address, const QString &base32Secret) const
{
    return focuses(u"Email"_s) && desktop::type(address) && desktop::press(u"Return"_s)
        && focuses(u"Authenticator Code"_s)
        && desktop::type(StandIn::totp(base32Secret, QDateTime::currentDateTimeUtc())) && desktop::press(u"Return"_s);
}

void Studio::hears(const QByteArray &line) const
{
    m_process->write(line + '\n');
}

bool Studio::says(const QByteArray &line)
{
    return QTest::qWaitFor([&] { return said().split('\n').contains(line); }, 20'000);
}

QByteArray Studio::said()
{
    m_said += m_process->readAllStandardOutput();
    return m_said;
}

bool Studio::isRunning() const
{
    return m_process->state() != QProcess::NotRunning;
}

bool Studio::ends() const
{
    return QTest::qWaitFor([this] { return !isRunning(); }, 20'000) && m_process->exitStatus() == QProcess::NormalExit
        && m_process->exitCode() == 0;
}
