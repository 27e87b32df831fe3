#pragma once

#include "platform/FilePicker.h"
#include "platform/RecordListModel.h"

#include <QObject>
#include <QPromise>
#include <QtQml/qqmlregistration.h>

#include <chrono>
#include <memory>

class QJSEngine;
class QQmlEngine;

namespace quillmere {

// A folder or a file as the dialog lists it.
struct FileEntry {
    QString id; // its name
    bool isFolder = false;
    QString size;    // of a file
    QString changed; // the day

    static constexpr auto fields()
    {
        return std::tuple{Field{"id", &FileEntry::id}, Field{"isFolder", &FileEntry::isFolder},
            Field{"size", &FileEntry::size}, Field{"changed", &FileEntry::changed}};
    }
};

// The dialog within the window in which one file is picked, for where the desktop has none: the folder it shows, with its folders
// first and then its files of the types asked for. Folders are looked into on a worker. The first time it shows the home folder,
// later the one where it was left, if that can still be shown.
class FileDialog : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(bool isUp READ isUp NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString typesName READ typesName NOTIFY changed)
    Q_PROPERTY(QString folder READ folder NOTIFY changed)
    // Why what was asked for last can neither be shown nor picked. The dialog stays in its folder then.
    Q_PROPERTY(QString problem READ problem NOTIFY changed)
    Q_PROPERTY(QAbstractItemModel *entries READ entries CONSTANT)

public:
    static FileDialog &shared();
    static FileDialog *create(QQmlEngine *, QJSEngine *);

    // Whoever waits gets no file.
    ~FileDialog() override;

    // Opens the dialog, which must not be up; see FilePicker.
    QCoro::Task<Result<QList<QUrl>>> pick(FileRequest request);

    bool isUp() const { return bool(m_answer); }
    QString title() const { return m_request.title; }
    QString typesName() const { return m_request.typesName; }
    QString folder() const { return m_folder; }
    QString problem() const { return m_problem; }
    QAbstractItemModel *entries() { return &m_entries; }

    // Goes into the folder of that row, or picks its file. A row that is not there changes nothing.
    Q_INVOKABLE void open(int row);
    Q_INVOKABLE void goUp();
    // Goes into a folder or picks a file by its path, which may begin with ~ or in the folder shown.
    Q_INVOKABLE void goTo(const QString &path);
    // Closes the dialog; nothing is picked.
    Q_INVOKABLE void close();
    // The row of the first entry whose name begins with these letters, whatever the case; -1 where there is none. Letters that
    // follow others soon go on with the same name.
    Q_INVOKABLE int seek(const QString &letters);

signals:
    void changed();
    // Another folder is on display, and that row is the one to begin at.
    void listed(int row);

private:
    friend class Environment;
    // Hidden, or QML would make an object of its own instead of asking create().
    FileDialog() = default;

    QCoro::Task<> show(QString path, QString cameFrom = {});
    void end(const QList<QUrl> &picked);
    int rowOf(const QString &beginning) const;

    FileRequest m_request;
    QString m_folder;
    bool m_isListed = false; // since the dialog is up
    QString m_problem;
    RecordListModel<FileEntry> m_entries;
    QString m_sought; // in this folder
    std::chrono::milliseconds m_soughtAt{0};
    std::unique_ptr<QPromise<QList<QUrl>>> m_answer; // while the dialog is up
    quint64 m_turn = 0;                              // of the last folder asked for
};

} // namespace quillmere
