#include "standin/World.h"

#include <QCryptographicHash>
#include <QFile>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QUuid>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace standin {

namespace {

constexpr int PercentPerStep = 2;
constexpr int RunningAtOnce = 2;

QByteArray resource(const QString &name)
{
    QFile file(u":/standin/data/"_s + name);
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

QString wireDate(const QDateTime &time)
{
    return time.toUTC().toString(u"yyyy-MM-ddTHH:mm:ss'Z'"_s);
}

// The data files write dates as "now-SECONDS".
QByteArray withDates(const QByteArray &json, const QDateTime &now)
{
    static const QRegularExpression Relative(u"\"now-(\\d+)\""_s);
    QString text = QString::fromUtf8(json);
    for (QRegularExpressionMatch match = Relative.match(text); match.hasMatch(); match = Relative.match(text)) {
        text.replace(match.capturedStart(), match.capturedLength(),
            u'"' + wireDate(now.addSecs(-match.captured(1).toLongLong())) + u'"');
    }
    return text.toUtf8();
}

QByteArray compact(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

Reply list(const JsonList &items)
{
    return Reply::json(200, "{\"data\":" + items.text() + '}');
}

// Four decimals, as a trainer prints them.
double rounded(double value)
{
    return std::round(value * 10000) / 10000;
}

} // namespace

JsonList::JsonList(const QByteArray &text) : m_text(text), m_items(QJsonDocument::fromJson(text).array())
{
}

void JsonList::replace(qsizetype index, const QJsonObject &item)
{
    m_items.replace(index, item);
    write();
}

void JsonList::append(const QJsonObject &item)
{
    m_items.append(item);
    write();
}

qsizetype JsonList::indexOf(const QString &id) const
{
    const auto found = std::find_if(
        m_items.begin(), m_items.end(), [&](const QJsonValue &item) { return item[u"id"_s].toString() == id; });
    return found == m_items.end() ? -1 : found - m_items.begin();
}

void JsonList::write()
{
    m_text = QJsonDocument(m_items).toJson(QJsonDocument::Compact);
}

World::World(Clock now) : m_now(std::move(now)), m_models(resource(u"models.json"_s))
{
}

void World::setJobs(const QByteArray &jsonArray)
{
    m_firstJobs = JsonList(jsonArray);
    m_jobs.clear();
}

void World::setFiles(const QByteArray &jsonArray)
{
    m_firstFiles = JsonList(jsonArray);
    m_files.clear();
}

Reply World::models() const
{
    return list(m_models);
}

Reply World::modelDownload(const QString &id) const
{
    const qsizetype index = m_models.indexOf(id);
    if (index < 0) {
        return Reply::detail(404, u"No model "_s + id);
    }
    const QJsonObject model = m_models.items()[index].toObject();
    QJsonObject download{
        {u"download_url"_s, u"https://downloads.quillmere.example/models/"_s + id + u".safetensors"_s},
        {u"expires_at"_s, wireDate(m_now().addSecs(3600))},
        {u"size_bytes"_s, model[u"size_bytes"_s].toInteger(2 * model[u"parameters"_s].toInteger())},
    };
    // A model whose files are not measured yet has no checksum either.
    if (model[u"size_bytes"_s].isDouble()) {
        download[u"checksum"_s] = u"sha256:"_s
            + QString::fromLatin1(QCryptographicHash::hash(id.toUtf8(), QCryptographicHash::Sha256).toHex());
    }
    return Reply::json(200, compact(download));
}

Reply World::jobs(const QString &account)
{
    return list(jobsOf(account));
}

Reply World::cancelJob(const QString &account, const QString &id)
{
    JsonList &jobs = jobsOf(account);
    const qsizetype index = jobs.indexOf(id);
    if (index < 0) {
        return Reply::detail(404, u"No job "_s + id);
    }
    QJsonObject job = jobs.items()[index].toObject();
    const QString status = job.value(u"status"_s).toString();
    if (status == u"completed" || status == u"failed" || status == u"cancelled") {
        return Reply::detail(409, u"Job "_s + id + u" is already "_s + status);
    }
    endJob(job, u"cancelled"_s);
    jobs.replace(index, job);
    return Reply::json(200, compact(job));
}

Reply World::files(const QString &account, const QByteArray &workspace)
{
    return list(filesOf(account, workspace));
}

Reply World::addFile(const QString &account, const StandIn::Upload &upload)
{
    const QJsonObject file{
        {u"id"_s, u"file-%1"_s.arg(++m_fileCount, 6, 10, QChar(u'0'))},
        {u"filename"_s, upload.filename},
        {u"purpose"_s, u"fine-tune"_s},
        {u"bytes"_s, upload.bytes},
        {u"created_at"_s, now()},
    };
    filesOf(account, upload.workspace).append(file);
    return Reply::json(201, compact(file));
}

Reply World::user(const QString &account) const
{
    if (!m_user.isEmpty()) {
        return Reply::json(200, m_user);
    }
    QString name = account.section(u'@', 0, 0).replace(u'.', u' ');
    for (qsizetype i = 0; i < name.size(); ++i) {
        if (i == 0 || name[i - 1] == u' ') {
            name[i] = name[i].toUpper();
        }
    }
    return Reply::json(200,
        compact({
            {u"id"_s, QUuid::createUuidV5(QUuid(), account).toString(QUuid::WithoutBraces)},
            {u"email"_s, account},
            {u"name"_s, name},
            {u"avatar_url"_s, QJsonValue::Null},
        }));
}

bool World::changeJob(const QString &id, const std::function<void(QJsonObject &)> &change)
{
    bool found = false;
    const auto changeIn = [&](JsonList &jobs) {
        const qsizetype index = jobs.indexOf(id);
        if (index < 0) {
            return;
        }
        QJsonObject job = jobs.items()[index].toObject();
        change(job);
        jobs.replace(index, job);
        found = true;
    };
    changeIn(firstJobs());
    for (JsonList &jobs : m_jobs) {
        changeIn(jobs);
    }
    return found;
}

void World::advanceJob(QJsonObject &job, int percent) const
{
    if (job.value(u"status"_s) != u"running"_s) {
        job[u"status"_s] = u"running"_s;
        job[u"started_at"_s] = now();
    }
    job[u"progress"_s] = percent;
    if (job.value(u"metrics"_s).isObject()) {
        QJsonObject metrics = job.value(u"metrics"_s).toObject();
        const int epochs = job.value(u"config"_s)[u"epochs"_s].toInt(3);
        metrics[u"epoch"_s] = rounded(epochs * percent / 100.0);
        metrics[u"loss"_s] = rounded(0.2 + 1.6 * std::exp(-percent / 30.0));
        job[u"metrics"_s] = metrics;
    }
}

void World::endJob(QJsonObject &job, const QString &status) const
{
    job[u"status"_s] = status;
    job[u"completed_at"_s] = now();
}

void World::step()
{
    stepJobs(firstJobs());
    for (JsonList &jobs : m_jobs) {
        stepJobs(jobs);
    }
}

QString World::now() const
{
    return wireDate(m_now());
}

JsonList &World::firstJobs()
{
    if (!m_firstJobs) {
        m_firstJobs.emplace(withDates(resource(u"jobs.json"_s), m_now()));
    }
    return *m_firstJobs;
}

JsonList &World::firstFiles()
{
    if (!m_firstFiles) {
        m_firstFiles.emplace(withDates(resource(u"files.json"_s), m_now()));
    }
    return *m_firstFiles;
}

JsonList &World::jobsOf(const QString &account)
{
    if (!m_jobs.contains(account)) {
        m_jobs.insert(account, firstJobs());
    }
    return m_jobs[account];
}

JsonList &World::filesOf(const QString &account, const QByteArray &workspace)
{
    const QString key = account + u'/' + QString::fromUtf8(workspace);
    if (!m_files.contains(key)) {
        m_files.insert(key, workspace == "default" ? firstFiles() : JsonList());
    }
    return m_files[key];
}

void World::stepJobs(JsonList &jobs) const
{
    int running = 0;
    for (qsizetype i = 0; i < jobs.items().size(); ++i) {
        QJsonObject job = jobs.items()[i].toObject();
        if (job.value(u"status"_s) != u"running"_s) {
            continue;
        }
        advanceJob(job, int(std::min<qint64>(100, job.value(u"progress"_s).toInteger() + PercentPerStep)));
        if (job.value(u"progress"_s).toInteger() == 100) {
            endJob(job, u"completed"_s);
        } else
            ++running;
        jobs.replace(i, job);
    }
    for (qsizetype i = 0; i < jobs.items().size() && running < RunningAtOnce; ++i) {
        QJsonObject job = jobs.items()[i].toObject();
        if (job.value(u"status"_s) != u"pending"_s) {
            continue;
        }
        advanceJob(job, 0);
        jobs.replace(i, job);
        ++running;
    }
}

} // namespace standin
