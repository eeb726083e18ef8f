#include "LfoOscillator.h"

#include <cmath>

void LfoOscillator::updateRate() noexcept
{
    // Cycles per quarter note times quarter notes per second.
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

void LfoOscillator::setFreeRate(double hz) noexcept
{
    if (freeRate == hz)
        return;
    freeRate = hz;
    updateRate();
}

void LfoOscillator::setTempoSynced(bool on) noexcept
{
    if (tempoSynced == on)
        return;
    tempoSynced = on;
    updateRate();
}

void LfoOscillator::setDotType(int type) noexcept
{
    if (clock.division.setDotType(type))
    {
        clock.division.refresh();
        clock.markDirty();
    }
    updateRate();
}

void LfoOscillator::setTempo(double bpm) noexcept
{
    clock.tempo = bpm;
    clock.markDirty();
    updateRate();
}

void LfoOscillator::setPosition(double ppq) noexcept
{
    if (clock.position != ppq)
    {
        clock.position = ppq;
        clock.markDirty();
    }
    // Re-lock to the host at each block while the transport plays; the phase offset stays on top.
    if (tempoSynced)
        phase = twoPi * clock.phaseInCycle();
}
