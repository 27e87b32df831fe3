#pragma once

#include "support/FakeClock.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <functional>
#include <memory>

namespace quillmere::testing {

// Everything that the program asks of a service, each as its caller sees it: the service client's operations, the two calls of
// the sign-in, and the update check.

// How a call can end beside the words that it has for the user.
namespace ending {
inline const QString unreadable = QStringLiteral("(a reply that cannot be read)");
inline const QString brokenOff = QStringLiteral("(a transport failure)");
inline const QString nothing = QStringLiteral("(nothing)");
// The sign-in's words for what it has no words of its own for.
QString unexpected(const QString &ending);
// With this handed over.
QString gave(const QString &gist);
} // namespace ending

// One call on its way.
class Call {
public:
    virtual ~Call() = default;
    virtual bool hasEnded() const = 0;
    virtual QString ending() const = 0;
};

enum class Family {
    Get,  // an operation of the client that asks with GET
    Post, // one that asks with POST
    Upload,
    Email, // the first call of the sign-in
    Code,  // the second
    Update,
};

// What a field of a reply has to be.
enum class Form { Text, Whole, Flag, Date, Map, Anything, ListOfRecords, Record, Page, NewerVersion };

struct ReplyField {
    QByteArray path; // keys and places, "data/1/id"
    Form form;
    bool required = false;
};

struct Operation {
    QByteArray name;
    Family family;
    QByteArray route; // as the stand-in names it
    bool sendsToken;
    QByteArray reply;         // what the service answers when all is well
    QString gist;             // what the caller then gets
    QList<ReplyField> fields; // every field of that reply
    std::function<std::unique_ptr<Call>(const FakeClock &clock)> start;
};

const QList<Operation> &operations();

} // namespace quillmere::testing
