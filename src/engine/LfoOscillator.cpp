#include "LfoOscillator.h"

#include <cmath>

void LfoOscillator::updateRate() noexcept
{
    if (tempoSynced)
        rate = clock.division.readEffectiveRate() * clock.tempo * 0.016666666666666666;
    else
        rate = freeRate;
    phaseStep = context->samplePeriod * rate * twoPi;
}

void LfoOscillator::setNoteCode(int code) noexcept
{
    clock.division.setNoteCode(code);
    clock.division.refresh();
    clock.markDirty();
    updateRate();
}

void LfoOscillator::stepRandom() noexcept
{
    randomA ^= randomB;
    randomValue = static_cast<float>(static_cast<std::int32_t>(randomB)) * 4.656613e-10f;
    randomB = randomA + randomB;
}
