#pragma once

namespace quillmere {

// A stream of random draws. Every consumer has its own.
class RandomSource {
public:
    virtual ~RandomSource() = default;

    // Uniform over the closed interval.
    virtual double uniform(double lowest, double highest) = 0;
    // Uniform over the whole numbers of the closed interval.
    virtual int integer(int lowest, int highest) = 0;
};

} // namespace quillmere
