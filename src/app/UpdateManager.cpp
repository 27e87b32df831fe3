#include "app/UpdateManager.h"

#include "platform/Environment.h"

namespace quillmere {

UpdateManager &UpdateManager::shared()
{
    return Environment::current().shared<UpdateManager>();
}

void UpdateManager::checkForUpdates()
{
}

} // namespace quillmere
