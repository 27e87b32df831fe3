#pragma once

#include "controls/RestingCaret.h"

#include <QObject>
#include <QQmlApplicationEngine>

#include <functional>
#include <memory>

class QQuickWindow;

namespace quillmere {

class Environment;

// The program: one window with RootView in it, the two chores that follow its first appearance, and the URLs that the desktop
// hands over. It needs a QGuiApplication and the current Environment.
class Quillmere_StudioApp : public QObject {
    Q_OBJECT

public:
    Quillmere_StudioApp();
    ~Quillmere_StudioApp() override;

    // The whole life of a process: hands its URL to the one that runs already and ends, or becomes the one itself.
    static int run(int &argc, char *argv[], const std::function<std::unique_ptr<Environment>()> &makeEnvironment);

    // Opens the window; to be called once. False, with the reason on standard error, when its screens cannot be loaded.
    bool open();
    QQuickWindow *window() const;

    // What another start of the program says: a URL of the program's scheme ends a sign-in that waits in the browser, or is
    // printed where none waits; any other text only brings the window to the front.
    void receive(const QString &message);

private:
    // What the first frame does not show.
    void goOn();

    RestingCaret m_caret;
    QQmlApplicationEngine m_engine;
};

} // namespace quillmere
