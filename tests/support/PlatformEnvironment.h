#pragma once

#include "platform/Environment.h"
#include "standin/StandIn.h"
#include "support/FakeClock.h"
#include "support/FakeFilePicker.h"
#include "support/MemorySecretStore.h"
#include "support/Waiting.h"

#include <QList>
#include <QString>
#include <QTest>
#include <QUrl>

namespace quillmere::testing {

// Records what would have been opened, and opens nothing.
class RecordingUrlOpener : public UrlOpener {
public:
    bool open(const QUrl &url) override
    {
        opened.append(url);
        return opens;
    }

    QList<QUrl> opened;
    bool opens = true;
};

// The world of one test: a stand-in service on a free port that the program's hosts point at, a clock that stands still, an
// empty secret store, no animations. Requests that the stand-in does not know fail the test at its end.
class PlatformEnvironment {
public:
    PlatformEnvironment();
    ~PlatformEnvironment();
    Q_DISABLE_COPY_MOVE(PlatformEnvironment)

    StandIn service;
    Environment environment;

    FakeClock &clock;
    MemorySecretStore &secrets;
    RecordingUrlOpener &urlOpener;
    FakeFilePicker &filePicker;

    // Set by a test that asks for what the service does not have.
    bool expectsUnknownRequests = false;
};

// Runs the event loop until all that was posted has run, however much it posts in turn.
void settle();

} // namespace quillmere::testing
