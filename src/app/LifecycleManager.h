#pragma once

namespace quillmere {

// Looks where the program was started from, once per launch, one second after its window first shows.
class LifecycleManager {
public:
    // A program that runs outside a bundle has no place that it should rather be at, so there is nothing to offer.
    static void checkLaunchLocation();
};

} // namespace quillmere
