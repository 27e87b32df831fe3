#pragma once

#include <QString>

namespace quillmere {

// Writes one line to standard output, at once. This is the program's only log.
void print(const QString &line);

} // namespace quillmere
