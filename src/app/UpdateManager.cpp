#include "app/UpdateManager.h"

#include "platform/Alerts.h"
#include "platform/Environment.h"
#include "platform/Http.h"
#include "platform/MainQueue.h"
#include "platform/Urls.h"
#include "service/Json.h"

#include <QCoreApplication>
#include <QPointer>

#include <algorithm>
#include <charconv>
#include <vector>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

// What the download host answers, as far as it is looked at.
struct VersionReply {
    QString version;
    QString webDownloadUrl;

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"version", &VersionReply::version}, Field{"web_download_url", &VersionReply::webDownloadUrl}};
    }
};

QString runningVersion()
{
    const QString version = QCoreApplication::applicationVersion();
    return version.isEmpty() ? u"0.0.0"_s : version;
}

std::vector<qint64> componentsOf(const QString &version)
{
    std::vector<qint64> components;
    const QByteArrayList pieces = version.toUtf8().split('.');
    for (const QByteArray &piece : pieces) {
        // A plus sign is the one part of a whole number that from_chars does not take.
        const bool hasPlus = piece.startsWith('+') && !piece.startsWith("+-");
        const char *const end = piece.constData() + piece.size();
        qint64 component = 0;
        const auto read = std::from_chars(piece.constData() + (hasPlus ? 1 : 0), end, component);
        if (read.ec == std::errc() && read.ptr == end) {
            components.push_back(component);
        }
    }
    return components;
}

} // namespace

UpdateManager &UpdateManager::shared()
{
    return Environment::current().shared<UpdateManager>();
}

UpdateManager::UpdateManager()
    : versionCheckURL(Environment::current().hosts.downloadHost + u"/api/downloads/version"_s)
{
}

void UpdateManager::checkForUpdates()
{
    if (const auto url = parseWebUrl(versionCheckURL)) {
        askForVersion(*url);
    }
}

QCoro::Task<> UpdateManager::askForVersion(QUrl url)
{
    const QPointer<UpdateManager> self(this);
    HttpRequest request{"GET", std::move(url), {}, {}};
    const auto response = co_await HttpSession::shared().send(std::move(request));
    if (!self || !response) {
        co_return;
    }
    // The status is not looked at: a fitting body counts, whatever came with it.
    const auto reply = decode<VersionReply>(response->body, KeyCoding::Plain);
    if (!reply || !isVersion(reply->version, runningVersion())) {
        co_return;
    }
    MainQueue::shared().async(this, [this, reply = *reply] {
        publish(m_latestVersion, reply.version, u"latestVersion"_s, &UpdateManager::latestVersionChanged);
        publish(m_downloadURL, reply.webDownloadUrl, u"downloadURL"_s, &UpdateManager::downloadURLChanged);
        publish(m_updateAvailable, true, u"updateAvailable"_s, &UpdateManager::updateAvailableChanged);
        offerDownload();
    });
}

QCoro::Task<> UpdateManager::offerDownload()
{
    const QString page = *m_downloadURL;
    const QString text =
        tr("Quillmere Studio %1 is available. Would you like to download it now?").arg(*m_latestVersion);
    const QStringList buttons{tr("Download"), tr("Later")};
    const int button = co_await Alerts::shared().present(tr("Update Available"), text, buttons);
    const auto url = parseWebUrl(page);
    if (button == 0 && url) {
        Environment::current().urlOpener->open(*url);
    }
}

bool UpdateManager::isVersion(const QString &version, const QString &newerThan)
{
    std::vector<qint64> candidate = componentsOf(version);
    std::vector<qint64> present = componentsOf(newerThan);
    const std::size_t longer = std::max(candidate.size(), present.size());
    candidate.resize(longer);
    present.resize(longer);
    return candidate > present;
}

} // namespace quillmere
