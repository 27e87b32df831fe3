#include "controls/Format.h"

#include "platform/Text.h"

namespace quillmere {

QString Format::real(const QString &format, double value)
{
    return text::format(format, value);
}

QString Format::whole(const QString &format, qint64 value)
{
    return text::format(format, value);
}

} // namespace quillmere
