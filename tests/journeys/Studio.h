#pragma once

#include "journeys/Screen.h"

#include <QProcess>

#include <memory>

// A running application under test and its user.
class Studio : public Screen {
public:
    Studio(const QString &program, const QStringList &arguments, const QProcessEnvironment &environment);
    ~Studio(); // kills what has not ended

    // Fills in the two steps of the login screen and sends them, with the code that an authenticator of this secret shows now.
    bool entersCredentials(const QString &address, const QString &base32Secret) const;

    void hears(const QByteArray &line) const; // on standard input
    bool says(const QByteArray &line);        // on standard output
    QByteArray said();
    bool isRunning() const;
    bool ends() const; // by itself, with status 0

private:
    explicit Studio(std::unique_ptr<QProcess> process);

    std::unique_ptr<QProcess> m_process;
    QByteArray m_said;
};
