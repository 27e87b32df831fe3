#pragma once

#include <QString>

namespace quillmere {

// The hosts and addresses that the program talks to or shows. They are set when the project is configured
// (the cache entries QUILLMERE_*) and cannot be changed in a built program; only tests pass others.
struct Hosts {
    QString apiEndpoint;     // scheme and host of the service, without "/v1" and without a slash at the end
    QString loginHost;       // scheme and host of the sign-in requests
    QString downloadHost;    // scheme and host of the update check
    QString signUpHost;      // shown to somebody without an account
    QString webSite;         // scheme and host of the maker's site
    QString supportAddress;  // a mail address
    QString onlineDocs;      // a URL
    QString sourcePage;      // a URL
    QString communityInvite; // a URL

    static Hosts builtIn();
};

} // namespace quillmere
