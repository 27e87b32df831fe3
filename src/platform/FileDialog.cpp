#include "platform/FileDialog.h"

#include "platform/Environment.h"
#include "platform/Text.h"

#include <QCoroFuture>

#include <QCollator>
#include <QCoreApplication>
#include <QDir>
#include <QJSEngine>
#include <QLocale>
#include <QMimeDatabase>
#include <QPointer>
#include <QtConcurrentRun>

#include <algorithm>
#include <cerrno>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

// Letters typed within this time of the last ones belong to the same name.
constexpr std::chrono::milliseconds sameName{1000};

// What was found under a path: a folder, a file, or why neither can be shown.
struct Found {
    QString folder;
    QList<FileEntry> entries;
    QString problem;
    QUrl file; // where the path leads to a file that can be picked
};

bool isOfType(const QFileInfo &file, const QList<QString> &mimeTypes)
{
    const QMimeType type = QMimeDatabase().mimeTypeForFile(file);
    return std::any_of(
        mimeTypes.cbegin(), mimeTypes.cend(), [&](const QString &mimeType) { return type.inherits(mimeType); });
}

QList<FileEntry> entriesOf(const QString &folder, const QList<QString> &mimeTypes)
{
    QList<FileEntry> entries;
    // Neither hidden files nor pipes, sockets and devices.
    const auto files = QDir(folder).entryInfoList(QDir::Dirs | QDir::Files | QDir::NoDotAndDotDot, QDir::Unsorted);
    for (const QFileInfo &file : files) {
        const QString changed = text::date(file.lastModified());
        if (file.isDir()) {
            entries.append({file.fileName(), true, {}, changed});
        } else if (file.isFile() && isOfType(file, mimeTypes)) {
            entries.append({file.fileName(), false, text::byteCount(file.size()), changed});
        }
    }
    // As people count: "part 9" before "part 10". The C locale does not; it counts as English.
    const QLocale locale;
    QCollator collator(locale.language() == QLocale::C ? QLocale(QLocale::English) : locale);
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::sort(entries.begin(), entries.end(), [&](const FileEntry &a, const FileEntry &b) {
        return a.isFolder != b.isFolder ? a.isFolder : collator.compare(a.id, b.id) < 0;
    });
    return entries;
}

Found find(const QString &path, const QList<QString> &mimeTypes)
{
    const QFileInfo file(path);
    if (file.isFile()) {
        if (isOfType(file, mimeTypes)) {
            return {{}, {}, {}, QUrl::fromLocalFile(file.absoluteFilePath())};
        }
        return {{}, {}, QCoreApplication::translate("FileDialog", "A file of this type cannot be chosen."), {}};
    }
    // Qt says only that it saw nothing, not why.
    if (::access(QFile::encodeName(path).constData(), R_OK | X_OK) < 0) {
        return {{}, {}, qt_error_string(errno), {}};
    }
    if (!file.isDir()) {
        return {{}, {}, QCoreApplication::translate("FileDialog", "This is no folder and no file."), {}};
    }
    return {QDir::cleanPath(path), entriesOf(path, mimeTypes), {}, {}};
}

// The folder that the dialog was left in, or the home folder where there was none or it has gone.
Found findFirst(const QString &left, const QList<QString> &mimeTypes)
{
    Found found = QFileInfo(left).isDir() ? find(left, mimeTypes) : Found();
    if (found.folder.isEmpty()) {
        found = find(QDir::homePath(), mimeTypes);
        found.folder = QDir::homePath();
    }
    return found;
}

} // namespace

FileDialog &FileDialog::shared()
{
    return Environment::current().shared<FileDialog>();
}

FileDialog *FileDialog::create(QQmlEngine *, QJSEngine *)
{
    QJSEngine::setObjectOwnership(&shared(), QJSEngine::CppOwnership);
    return &shared();
}

FileDialog::~FileDialog()
{
    end({});
}

QCoro::Task<Result<QList<QUrl>>> FileDialog::pick(FileRequest request)
{
    m_request = std::move(request);
    m_answer = std::make_unique<QPromise<QList<QUrl>>>();
    m_answer->start();
    const QFuture<QList<QUrl>> answer = m_answer->future();
    m_entries.setRecords({});
    m_problem.clear();
    emit changed();
    m_isListed = false;
    show(m_folder);
    const QList<QUrl> picked = co_await answer;
    co_return picked;
}

void FileDialog::open(int row)
{
    if (row < 0 || row >= m_entries.rowCount()) {
        return;
    }
    const FileEntry &entry = m_entries.records()[row];
    const QString path = QDir(m_folder).filePath(entry.id);
    if (entry.isFolder) {
        show(path);
    } else {
        end({QUrl::fromLocalFile(path)});
    }
}

void FileDialog::goUp()
{
    const QFileInfo folder(m_folder);
    show(folder.path(), folder.fileName());
}

void FileDialog::goTo(const QString &path)
{
    const bool isFromHome = path == u"~"_s || path.startsWith(u"~/"_s);
    show(isFromHome ? QDir::homePath() + path.mid(1) : QDir(m_folder).absoluteFilePath(path));
}

void FileDialog::close()
{
    end({});
}

int FileDialog::seek(const QString &letters)
{
    const auto now = Environment::current().clock->uptime();
    m_sought = now - m_soughtAt < sameName ? m_sought + letters : letters;
    m_soughtAt = now;
    return rowOf(m_sought);
}

int FileDialog::rowOf(const QString &beginning) const
{
    const auto &entries = m_entries.records();
    const QString wanted = text::searchable(beginning);
    const auto found = std::find_if(entries.cbegin(), entries.cend(),
        [&](const FileEntry &entry) { return text::searchable(entry.id).startsWith(wanted); });
    return found == entries.cend() ? -1 : int(found - entries.cbegin());
}

QCoro::Task<> FileDialog::show(QString path, QString cameFrom)
{
    const QPointer<FileDialog> self(this);
    const quint64 turn = ++m_turn;
    const QFuture<Found> finding = QtConcurrent::run(m_isListed ? find : findFirst, path, m_request.mimeTypes);
    const Found found = co_await finding;
    if (!self || !isUp() || turn != m_turn) {
        co_return;
    }
    if (!found.file.isEmpty()) {
        end({found.file});
        co_return;
    }
    m_problem = found.problem;
    if (found.folder.isEmpty()) {
        emit changed();
        co_return;
    }
    m_folder = found.folder;
    m_isListed = true;
    m_sought.clear();
    m_entries.setRecords(found.entries);
    emit changed();
    const auto from = std::find_if(found.entries.cbegin(), found.entries.cend(),
        [&](const FileEntry &entry) { return !cameFrom.isEmpty() && entry.id == cameFrom; });
    emit listed(from == found.entries.cend() ? 0 : int(from - found.entries.cbegin()));
}

void FileDialog::end(const QList<QUrl> &picked)
{
    if (!isUp()) {
        return;
    }
    const auto answer = std::move(m_answer);
    emit changed();
    answer->addResult(picked);
    answer->finish();
}

} // namespace quillmere
