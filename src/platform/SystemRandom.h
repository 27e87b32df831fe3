#pragma once

#include "platform/RandomSource.h"

#include <QRandomGenerator>

namespace quillmere {

// Draws from a generator that starts from the system's own randomness, or from a seed where draws must repeat.
class SystemRandom : public RandomSource {
public:
    SystemRandom() : m_generator(QRandomGenerator::securelySeeded()) { }
    explicit SystemRandom(quint32 seed) : m_generator(seed) { }

    double uniform(double lowest, double highest) override;
    int integer(int lowest, int highest) override;

private:
    QRandomGenerator m_generator;
};

} // namespace quillmere
