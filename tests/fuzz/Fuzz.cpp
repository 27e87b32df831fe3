#include "Fuzz.h"

#include <cstdio>
#include <cstdlib>

namespace quillmere::fuzz {

void reportBroken(const char *condition, const char *file, int line)
{
    std::fprintf(stderr, "%s:%d: this does not hold: %s\n", file, line, condition);
    std::abort();
}

} // namespace quillmere::fuzz
