#include "Clock.h"

#include <cmath>

double ClockDivision::noteRateForCode(int code) noexcept
{
    if (code < 0 || code > 12)
        return 0.0;
    return std::ldexp(0.00390625, code); // 1/256 doubled per code, exact in binary
}

double ClockDivision::multiplierForDotType(int type) noexcept
{
    switch (type)
    {
    case 0:
        return 1.0;
    case 1:
        return 0.6666666666666666;
    case 2:
        return 1.5;
    default:
        return 0.0;
    }
}

void ClockDivision::setNoteCode(int code) noexcept
{
    noteCode = code;
    noteRate = noteRateForCode(code);
}

bool ClockDivision::setDotType(int type) noexcept
{
    if (type == dotType)
        return false;
    dotType = type;
    multiplier = multiplierForDotType(type);
    return true;
}

void ClockDivision::refresh() noexcept
{
    const juce::ScopedWriteLock lock(rateLock);
    effectiveRate = noteRate * multiplier;
}

double ClockDivision::readEffectiveRate() const noexcept
{
    const juce::ScopedReadLock lock(rateLock);
    return effectiveRate;
}

double Clock::phaseInCycle() const noexcept
{
    const double x = division.readEffectiveRate() * position;
    return x - std::floor(x);
}

bool Clock::isInFirstHalf() const noexcept
{
    const double x = division.readEffectiveRate() * position;
    const double c = std::ceil(x);
    return c - x > x - (c - 1.0);
}
