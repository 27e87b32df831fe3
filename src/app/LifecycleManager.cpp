#include "app/LifecycleManager.h"

#include "platform/Alerts.h"
#include "platform/Environment.h"
#include "platform/FolderCopy.h"

#include <QCoroFuture>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QtConcurrentRun>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(LifecycleManager)
};

// The bundle around a program; empty where there is none.
QString bundlePathOf(const QString &program)
{
    const QDir folder = QFileInfo(program).dir();
    const QString bundle = QFileInfo(folder.path()).path();
    return folder.dirName() == u"bin" && bundle.endsWith(u".app") ? bundle : QString();
}

QString applicationsFolder()
{
    return QDir::homePath() + u"/Applications/"_s;
}

bool isInstalled(const QString &bundlePath)
{
    const std::array folders{u"/Applications/"_s, u"/opt/"_s, u"/usr/"_s, applicationsFolder()};
    return std::any_of(
        folders.begin(), folders.end(), [&](const QString &folder) { return bundlePath.startsWith(folder); });
}

} // namespace

void LifecycleManager::checkLocation()
{
    const QString bundlePath = bundlePathOf(Environment::current().program);
    if (!bundlePath.isEmpty() && !isInstalled(bundlePath)) {
        offerToMove(bundlePath);
    }
}

QCoro::Task<> LifecycleManager::offerToMove(QString bundlePath)
{
    const QString text =
        Texts::tr("Quillmere Studio currently running from %1.\n\nTo ensure the best experience and allow you "
                  "to delete the installer, would you like to move the app to the Applications folder?")
            .arg(bundlePath);
    const QStringList buttons{Texts::tr("Move to Applications"), Texts::tr("Do Not Move")};
    const int button = co_await Alerts::shared().present(Texts::tr("Move to Applications?"), text, buttons);
    if (button == 0) {
        co_await moveToApplications();
    }
}

QCoro::Task<> LifecycleManager::moveToApplications()
{
    const QString program = Environment::current().program;
    const auto copied = co_await QtConcurrent::run(replaceFolder, bundlePathOf(program), destination());
    if (!copied) {
        const QStringList buttons{Texts::tr("OK")};
        co_await Alerts::shared().present(
            Texts::tr("Could not move to Applications"), copied.failure().localizedDescription(), buttons);
        co_return;
    }
    Environment::current().relaunch(*copied + u"/bin/"_s + QFileInfo(program).fileName());
    // Not through the main queue, which the offer of an update may be holding.
    Environment::current().terminate();
}

QString LifecycleManager::destination()
{
    return applicationsFolder() + u"Quillmere Studio.app"_s;
}

} // namespace quillmere
