#include "LfoOscillator.h"

#include <cmath>

namespace
{
constexpr double pi = 3.141592653589793;
constexpr double twoPi = 6.283185307179586;
} // namespace

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

void LfoOscillator::next(float& out) noexcept
{
    wavePhase = phase + phaseOffset;
    if (wavePhase > twoPi)
    {
        if (oneShot)
        {
            phase -= phaseStep;
            wavePhase = phase + phaseOffset;
        }
        else
        {
            phase -= twoPi;
        }
    }
    if (wavePhase > twoPi)
        wavePhase -= twoPi;
    if (! (wavePhase >= 0.0))
        wavePhase += twoPi;

    const double w = wavePhase;
    const auto triangleAt = [](double x) {
        return static_cast<float>(x < pi ? x * 0.6366197723675814 - 1.0 : (4.71238898038469 - x) * 0.6366197723675814);
    };

    switch (waveform)
    {
        case triangle: out = triangleAt(w); break;
        case sine: out = static_cast<float>(std::sin(w - 0.7853981633974483)); break;
        case square: out = static_cast<float>(pi > w ? 1.0 : -1.0); break;
        case sawDown: out = static_cast<float>((twoPi - w) * 0.3183098861837907 - 1.0); break;
        case sawUp: out = static_cast<float>(w * 0.3183098861837907 - 1.0); break;
        case randomSteps:
            gateBefore = gateNow;
            gateNow = pi > w;
            if (gateNow && ! gateBefore)
                stepRandom();
            out = randomValue;
            break;
        case curvedTriangle:
        {
            const float h = triangleAt(w) * 0.5f;
            out = 1.0f - 2.0f * std::pow(0.5f - h, curvePower);
            break;
        }
        default: break;
    }

    if (inverted)
        out = -out;
    phase += phaseStep;
}
