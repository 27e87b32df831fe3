#pragma once

namespace quillmere {

// Asks whether there is a newer version, three seconds after the window first shows.
class UpdateManager {
public:
    static UpdateManager &shared();

    // There is no version to compare with yet: nothing is asked.
    void checkForUpdates();
};

} // namespace quillmere
