#include "workspace/settings/AboutLinks.h"

#include "platform/Environment.h"

using namespace Qt::StringLiterals;

namespace quillmere {

QString AboutLinks::documentation()
{
    return Environment::current().hosts.webSite + u"/docs"_s;
}

QString AboutLinks::privacyPolicy()
{
    return Environment::current().hosts.webSite + u"/privacy"_s;
}

QString AboutLinks::termsOfService()
{
    return Environment::current().hosts.webSite + u"/terms"_s;
}

QString AboutLinks::contactSupport()
{
    return u"mailto:"_s + Environment::current().hosts.supportAddress;
}

} // namespace quillmere
