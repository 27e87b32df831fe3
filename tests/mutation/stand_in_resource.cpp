// Preloaded into a test program, puts the resource in the file that QUILLMERE_MUTANT names in the place of the one compiled into
// it. QUILLMERE_MUTANT_URL is that of the QML file in it, which is then read from its source; so breaking it needs no build.
#include <QList>
#include <QResource>
#include <QString>
#include <QUrl>
#include <QtQml/qqmlprivate.h>

#include <dlfcn.h>

namespace {

using Lookup = QQmlPrivate::QmlUnitCacheLookupFunction;

// Of resources of one name that which is registered first is found, and a preloaded library starts before the program.
[[maybe_unused]] const bool isRegistered = QResource::registerResource(qEnvironmentVariable("QUILLMERE_MUTANT"));

QList<Lookup> &lookups()
{
    static QList<Lookup> lookups;
    return lookups;
}

const QQmlPrivate::CachedQmlUnit *lookUp(const QUrl &url)
{
    static const QUrl mutant(qEnvironmentVariable("QUILLMERE_MUTANT_URL"));
    for (const Lookup compiledIn : lookups()) {
        if (const auto *unit = url == mutant ? nullptr : compiledIn(url)) {
            return unit;
        }
    }
    return nullptr;
}

} // namespace

// The library's own, but compiled QML is looked for here.
int QQmlPrivate::qmlregister(RegistrationType type, void *data)
{
    using Register = int (*)(RegistrationType, void *);
    static const auto original =
        reinterpret_cast<Register>(dlsym(RTLD_NEXT, "_ZN11QQmlPrivate11qmlregisterENS_16RegistrationTypeEPv"));
    if (type != QmlUnitCacheHookRegistration) {
        return original(type, data);
    }
    lookups().append(static_cast<RegisterQmlUnitCacheHook *>(data)->lookupCachedQmlUnit);
    RegisterQmlUnitCacheHook hook{0, lookUp};
    return lookups().size() == 1 ? original(type, &hook) : 0;
}
