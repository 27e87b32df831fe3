#include "app/LifecycleManager.h"

namespace quillmere {

void LifecycleManager::checkLaunchLocation()
{
}

} // namespace quillmere
