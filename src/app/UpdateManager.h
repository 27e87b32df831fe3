#pragma once

#include "platform/Observable.h"

#include <QCoroTask>

#include <optional>

namespace quillmere {

// Asks the download host, once per launch, which version is current, and offers to open the download page where it is a newer one
// than runs. It downloads nothing, remembers nothing, and keeps silent about every failure. No screen shows its fields.
class UpdateManager : public quillmere::Observable {
    Q_OBJECT

public:
    static UpdateManager &shared();

    bool updateAvailable() const { return m_updateAvailable; }
    const std::optional<QString> &latestVersion() const { return m_latestVersion; }
    const std::optional<QString> &downloadURL() const { return m_downloadURL; }

    // Starts asking, and returns at once.
    void checkForUpdates();

    // Compares by whole numbers between the dots, from the left, missing ones counting as 0. What is no whole number of 64 bits
    // is left out: "1.2-beta.3" counts as 1.3. An equal version is not newer.
    static bool isVersion(const QString &version, const QString &newerThan);

    const QString versionCheckURL; // the download host's /api/downloads/version

signals:
    void updateAvailableChanged();
    void latestVersionChanged();
    void downloadURLChanged();

private:
    friend class Environment;
    UpdateManager();

    QCoro::Task<> askForVersion(QUrl url);
    QCoro::Task<> offerDownload();

    bool m_updateAvailable = false;
    std::optional<QString> m_latestVersion;
    std::optional<QString> m_downloadURL;
};

} // namespace quillmere
