#pragma once

#include <QDir>
#include <QHash>
#include <QImage>

namespace quillmere::testing {

// The pictures that were found good, in a folder. Much of what a screen shows is the same in all its states: the first state of a
// screen is kept as a whole, and of each other one the part that differs from the state before it that is most like it.
class References {
public:
    explicit References(const QDir &folder) : m_folder(folder) { }

    // Tells of a picture that there is, in the order of the catalogue.
    void add(const QString &name, QSize size);

    // Null where there is none.
    QImage load(const QString &name) const;
    // Those before it in the catalogue first.
    bool store(const QString &name, const QImage &picture) const;

    // Files that are the reference of nothing.
    QStringList strays() const;

private:
    QString path(const QString &name) const { return m_folder.filePath(name + QStringLiteral(".png")); }

    QDir m_folder;
    QHash<QString, QStringList> m_before; // the states of each one's screen before it, by its name
    QHash<QString, QStringList> m_states; // the states of each screen, by screen and size
};

} // namespace quillmere::testing
