#include "platform/SystemRandom.h"

namespace quillmere {

double SystemRandom::uniform(double lowest, double highest)
{
    // 53 bits fill a double's mantissa; dividing by the largest makes the upper end as likely as any other value.
    constexpr quint64 largest = (quint64(1) << 53) - 1;
    const double share = double(m_generator.generate64() >> 11) / double(largest);
    return lowest + share * (highest - lowest);
}

int SystemRandom::integer(int lowest, int highest)
{
    return int(m_generator.bounded(qint64(lowest), qint64(highest) + 1));
}

} // namespace quillmere
