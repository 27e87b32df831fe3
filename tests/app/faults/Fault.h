#pragma once

#include "faults/Operation.h"
#include "support/TestEnvironment.h"
#include "support/TlsDoor.h"

#include <QTcpServer>
#include <QTcpSocket>

#include <functional>
#include <memory>

namespace quillmere::testing {

// One operation in a world of its own, with somebody signed in, and another origin beside it.
struct Scene {
    explicit Scene(const Operation &operation);
    Q_DISABLE_COPY_MOVE(Scene)

    StandIn::Route route() { return world.service.on(operation.route); }
    // From now on the operation asks there and not at the service itself.
    void asksAt(const QString &origin);

    const Operation &operation;
    TestEnvironment world;
    StandIn other;
    const QString token;
    int begun = 0;          // requests that the service has seen the head of
    int begunElsewhere = 0; // and the other origin
    bool asksElsewhere = false;

    // For the faults that need them.
    std::unique_ptr<Trust> trust;
    std::unique_ptr<TlsDoor> door;
    std::unique_ptr<QTcpServer> stranger; // who knows no HTTP
    int strangersCallers = 0;
    QTcpSocket deaf; // has a port for itself at which nobody listens
};

namespace ending {
// What the operation gives when all is well.
inline const QString theReply = QStringLiteral("(the reply)");
inline const QString timedOut = QStringLiteral("The request timed out.");
inline const QString tookTooLong = QStringLiteral("The reply took too long.");
inline const QString tooLarge = QStringLiteral("The reply is too large.");
} // namespace ending

// How each family ends.
struct Endings {
    QString get;
    QString post;
    QString upload;
    QString email;
    QString code;
    QString update;

    const QString &of(Family family) const;
};

// How many requests the service and the other origin get.
struct Requests {
    int here = 1;
    int elsewhere = 0;
};

// One way to go wrong.
struct Fault {
    QString name;
    std::function<void(Scene &)> arrange;
    Endings endings;

    enum class Wait {
        No,
        AMinute,          // without a byte of the reply
        AMinuteFromThere, // with some of it there
        TenMinutes,       // with a few bytes every fifty seconds
        AWhile,           // with a few bytes every fifty seconds, but not for that long
    };
    Wait wait = Wait::No;

    // Only a GET is redirected.
    Requests ofAGet = {};
    Requests ofOthers = {};

    bool signsOut = false; // an operation of the client that is not the upload
    bool isLarge = false;  // tens of megabytes, or as long as they are taken
};

const QList<Fault> &faults();

} // namespace quillmere::testing
