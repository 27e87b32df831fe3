#pragma once

#include "platform/Observable.h"

#include <QCoroTask>

#include <QtQml/qqmlregistration.h>

namespace quillmere {

// What RootView shows first: the splash for 2.5 s, whatever else happens, and never again. At its end the session is checked: a
// stored token that is not empty counts as a session at once, and the user is fetched behind the screen that then shows.
class RootViewState : public quillmere::Observable {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(bool showSplash READ showSplash NOTIFY showSplashChanged)

public:
    static constexpr std::chrono::milliseconds splashTime{2500};
    // A keyring that is slower than this, since it asks for its password say, does not keep the splash on screen; its token
    // signs in when it comes, unless somebody has signed in or out meanwhile.
    static constexpr std::chrono::milliseconds storePatience{250};

    using Observable::Observable;

    bool showSplash() const { return m_showSplash; }

    // The view is on screen: the splash's time runs.
    Q_INVOKABLE void appear();

signals:
    void showSplashChanged();

private:
    QCoro::Task<> checkSession();
    void endSplash();

    bool m_showSplash = true;
};

} // namespace quillmere
