#include "app/Quillmere_StudioApp.h"
#include "platform/Environment.h"

int main(int argc, char *argv[])
{
    return quillmere::Quillmere_StudioApp::run(argc, argv, [] { return quillmere::Environment::real(); });
}
