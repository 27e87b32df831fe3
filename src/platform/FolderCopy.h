#pragma once

#include "platform/Result.h"

#include <QString>

namespace quillmere {

// Puts a copy of a folder where `destination` says, in place of whatever is there. The copy has the folder's files, links, empty
// folders and access rights. It is made beside the destination first and then exchanged with it in one step (renameat2, Linux
// 3.15), or in two where the file system cannot do that, so that whatever stops it in the middle, a kill or a full disk,
// leaves what was there. What a stopped copy left beside the destination is cleared away by the next one.
//
// Blocks; any thread. Gives the destination, or fails with kind File and the system's reason: the source cannot be read whole
// or holds what is neither file, folder nor link, the destination cannot be written, another process is copying there too.
Result<QString> replaceFolder(const QString &source, const QString &destination);

} // namespace quillmere
