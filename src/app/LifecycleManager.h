#pragma once

#include <QCoroTask>

#include <QString>

namespace quillmere {

// Offers to copy the program to the user's applications folder and to go on from there, where it was started from somewhere
// else: an unpacked archive, the downloads folder. Nothing is remembered; who declines is asked again at the next launch.
//
// Programs travel as a bundle, a folder "NAME.app" with the program in its folder "bin". A program outside a bundle, one from
// a build tree or from a package, has no place that it should rather be at.
class LifecycleManager {
public:
    LifecycleManager() = delete;

    // Asks, once per launch, one second after the window first shows.
    static void checkLocation();

    // Copies the bundle over what is at the destination, starts the copy, and ends this program, whether the copy started or not.
    // Where copying fails an alert says why, and this program goes on.
    static QCoro::Task<> moveToApplications();

    // "Applications/Quillmere Studio.app" in the home folder.
    static QString destination();

private:
    static QCoro::Task<> offerToMove(QString bundlePath);
};

} // namespace quillmere
