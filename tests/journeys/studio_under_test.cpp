// The application as it is shipped, but for the service it talks to: its origin comes from the environment, so that each
// journey has a service of its own on a free port.
#include "app/Quillmere_StudioApp.h"
#include "platform/Environment.h"

int main(int argc, char *argv[])
{
    using namespace quillmere;
    return Quillmere_StudioApp::run(argc, argv, [] {
        auto environment = Environment::real();
        const QString service = qEnvironmentVariable("QUILLMERE_SERVICE");
        environment->hosts.apiEndpoint = service;
        environment->hosts.loginHost = service;
        environment->hosts.downloadHost = service;
        return environment;
    });
}
