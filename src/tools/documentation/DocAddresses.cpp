#include "tools/documentation/DocAddresses.h"

#include "platform/Environment.h"

namespace quillmere {

QString DocAddresses::onlineDocs()
{
    return Environment::current().hosts.onlineDocs;
}

QString DocAddresses::sourcePage()
{
    return Environment::current().hosts.sourcePage;
}

QString DocAddresses::communityInvite()
{
    return Environment::current().hosts.communityInvite;
}

QString DocAddresses::apiEndpoint()
{
    return Environment::current().hosts.apiEndpoint;
}

} // namespace quillmere
