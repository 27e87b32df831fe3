#pragma once

#include "support/PlatformEnvironment.h"

namespace quillmere::testing {

// The world of one test, in which somebody may be signed in.
class TestEnvironment : public PlatformEnvironment {
public:
    // A token that the service takes, stored as after a sign-in.
    QString isSignedIn(const QString &email = QStringLiteral("ada@example.org"));
};

} // namespace quillmere::testing
