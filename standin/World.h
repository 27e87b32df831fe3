#pragma once

#include "standin/Http.h"
#include "standin/StandIn.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>

#include <functional>
#include <optional>

namespace standin {

// A JSON array that is sent letter for letter as it was given, until something changes it.
class JsonList {
public:
    JsonList() = default;
    explicit JsonList(const QByteArray &text);

    const QByteArray &text() const { return m_text; }
    const QJsonArray &items() const { return m_items; }
    void replace(qsizetype index, const QJsonObject &item);
    void append(const QJsonObject &item);
    // -1 when there is none.
    qsizetype indexOf(const QString &id) const;

private:
    void write();

    QByteArray m_text = "[]";
    QJsonArray m_items;
};

// What the service knows beside its accounts: the catalog, and each account's jobs and files.
class World {
public:
    using Clock = std::function<QDateTime()>;

    explicit World(Clock now);

    void setModels(const QByteArray &jsonArray) { m_models = JsonList(jsonArray); }
    void setJobs(const QByteArray &jsonArray);
    void setFiles(const QByteArray &jsonArray);
    void setUser(const QByteArray &jsonObject) { m_user = jsonObject; }

    Reply models() const;
    Reply modelDownload(const QString &id) const;
    Reply jobs(const QString &account);
    Reply cancelJob(const QString &account, const QString &id);
    Reply files(const QString &account, const QByteArray &workspace);
    Reply addFile(const QString &account, const StandIn::Upload &upload);
    Reply user(const QString &account) const;

    // Applies a change to the job of that id wherever an account has it, and to the job that new accounts will get.
    bool changeJob(const QString &id, const std::function<void(QJsonObject &)> &change);
    void advanceJob(QJsonObject &job, int percent) const;
    void endJob(QJsonObject &job, const QString &status) const;
    // One step of the time that passes by itself.
    void step();

private:
    QString now() const;
    // What an account starts with. The built-in lists are made at first use, with dates relative to that moment.
    JsonList &firstJobs();
    JsonList &firstFiles();
    JsonList &jobsOf(const QString &account);
    JsonList &filesOf(const QString &account, const QByteArray &workspace);
    void stepJobs(JsonList &jobs) const;

    Clock m_now;
    JsonList m_models;
    std::optional<JsonList> m_firstJobs;
    std::optional<JsonList> m_firstFiles;
    QByteArray m_user;
    QHash<QString, JsonList> m_jobs;  //< by account
    QHash<QString, JsonList> m_files; //< by account and workspace
    int m_fileCount = 0;
};

} // namespace standin
