#pragma once

#include "app/Quillmere_StudioApp.h"
#include "app/SidebarItem.h"
#include "support/TestEnvironment.h"
#include "support/Window.h"

#include <QImage>

namespace quillmere::testing {

// Where a state of the catalogue is set up: a world of its own, the program in it, and what a user does to bring the state about.
// Each step waits until it has had its effect; one that cannot be done ends the process with a word about it.
class Stage {
public:
    explicit Stage(QSize size);
    ~Stage();

    TestEnvironment world;
    QByteArray user; // whom the service tells of
    void hasUser(const QByteArray &json);

    // The program, from its start: at the splash, past it without a session, and past it in the session of ada@example.org.
    void opens();
    void opensSignedOut();
    void opensSignedIn(SidebarItem::Case destination = SidebarItem::Dashboard);
    void goesTo(SidebarItem::Case destination);
    // A QML file of the tests in a window of its own.
    void opensPage(const QUrl &page, const QVariantMap &properties = {});

    void pass(std::chrono::milliseconds time) { world.clock.advance(time), settle(); }
    // Waits for a text, and for one to be gone.
    void see(const QString &text);
    void seeGone(const QString &text);
    void waitFor(const std::function<bool()> &condition, const QString &what);

    // By the name that assistive programs know, or by the text that it reads.
    QQuickItem *item(const QString &name);
    // By its QML type, from top to bottom.
    QQuickItem *nth(const QString &type, int index = 0);
    void click(const QString &name) { click(item(name)); }
    void click(const QQuickItem *item);
    void hover(const QString &name) { hover(item(name)); }
    void hover(const QQuickItem *item);
    // Into what has the keyboard, or into that field.
    void type(const QString &text);
    void type(const QString &field, const QString &text);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}, int times = 1);
    void wheel(const QQuickItem *over, int notchesDown);

    QQuickWindow &window() const { return *m_quickWindow; }
    Window &look() const { return *m_window; }

    // What the window shows as soon as nothing changes any more.
    QImage picture();

private:
    void shows(QQuickWindow *window);

    QSize m_size;
    QPoint m_pointer;
    std::unique_ptr<Quillmere_StudioApp> m_studio;
    std::unique_ptr<QQuickView> m_page;
    QQuickWindow *m_quickWindow = nullptr;
    std::unique_ptr<Window> m_window;
};

} // namespace quillmere::testing
