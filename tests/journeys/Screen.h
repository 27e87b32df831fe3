#pragma once

#include <QDBusConnection>
#include <QRect>
#include <QString>

#include <functional>
#include <optional>

// What one program has on the screen, and its user. Seen as assistive programs see it, through AT-SPI 2 on the accessibility bus
// that the session bus knows of; used with the keyboard and the pointer of the X session. Whatever waits gives up with false after
// twenty seconds; the test's event loop, and with it a stand-in in the test, runs on meanwhile.
class Screen {
public:
    explicit Screen(qint64 processId);
    ~Screen();
    Q_DISABLE_COPY_MOVE(Screen)

    qint64 processId() const { return m_processId; }

    // An element of this name shows, a text or a control.
    bool isShowing(const QString &name) const;
    bool shows(const QString &name) const;
    bool shows(const QString &name, const QString &instead) const; // and no longer the other
    // The element of this name takes the keys.
    bool focuses(const QString &name) const;
    // Goes there with the Tab key.
    bool tabsTo(const QString &name) const;
    bool clicks(const QString &name) const;

    // As an assistive program does it, without keyboard and pointer: the element of this name does what it says it can, "Press" say.
    bool does(const QString &action, const QString &name) const;
    // Brings the keys to the field of this name and has them typed there.
    bool writes(const QString &text, const QString &name) const;

    // All texts that the program tells assistive programs, of what shows and of what does not.
    QStringList readsAloud() const;

private:
    struct Element {
        QString path; // tells it apart from the program's other elements
        QString name;
        bool active = false; // it, or something around it, is what the window manager gives the keys to
        bool focused = false;
        bool editable = false;
        QRect place; // in pixels of the screen
    };
    using Test = std::function<bool(const Element &)>;

    std::optional<Element> named(const QString &name) const;
    std::optional<Element> focused() const;
    // The first element on the screen that the test is true of. Parts come before the whole that they belong to: with its part a
    // whole has the focus, too.
    std::optional<Element> find(const Test &isIt) const;
    std::optional<Element> findIn(const QString &service, const QString &path, bool isActive, const Test &isIt) const;
    void readAloud(const QString &service, const QString &path, QStringList &texts) const;
    // Waits for such an element that can do it, and has it done.
    bool does(const QString &action, const Test &isIt) const;
    // Where in the list of what an element can do an action stands; -1: it cannot.
    int placeOfAction(const Element &element, const QString &action) const;
    // The program's name on the accessibility bus; empty while it is not there.
    QString service() const;

    qint64 m_processId;
    QDBusConnection m_bus;
};
