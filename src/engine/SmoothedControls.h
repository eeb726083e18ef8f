#pragma once

#include "SmootherBank.h"

/** The continuous controls of the signal path, each gliding towards the value its parameter last
    set, by name. They live in four `SmootherBank`s of four entries, stepped together once per
    sample:

        bank 1: preamp gain, crossfade, offset left, offset right
        bank 2: depth left, depth right, gain left, gain right
        bank 3: frequency range, feedback left, feedback right, FX amount
        bank 4: compensation left, compensation right, output gain, (unused)

    Channel 0 is left or mid, channel 1 right or side.
    Thread: audio thread, under the effect's core lock. */
class SmoothedControls
{
public:
    /** The values the controls glide towards. */
    struct Targets
    {
        float preampGain, crossfade, offsetLeft, offsetRight;
        float depthLeft, depthRight, gainLeft, gainRight;
        float frequencyRange, feedbackLeft, feedbackRight, fxAmount;
        float compensationLeft, compensationRight, outputGain;
    };

    /** The glide per sample for a rate's speed scale (1 at 44100 Hz). */
    void setSpeedScale(float speedScale) noexcept
    {
        for (auto* bank : {&bank1, &bank2, &bank3, &bank4})
            bank->setCoefficient(SmootherBank::baseCoefficient * speedScale);
    }

    void setTargets(const Targets& t) noexcept
    {
        bank1.setTargets({t.preampGain, t.crossfade, t.offsetLeft, t.offsetRight});
        bank2.setTargets({t.depthLeft, t.depthRight, t.gainLeft, t.gainRight});
        bank3.setTargets({t.frequencyRange, t.feedbackLeft, t.feedbackRight, t.fxAmount});
        bank4.setTargets({t.compensationLeft, t.compensationRight, t.outputGain, 0.0f});
    }

    void step() noexcept
    {
        bank1.step();
        bank2.step();
        bank3.step();
        bank4.step();
    }

    /** True when a step would change nothing. */
    bool isAtRest() const noexcept
    {
        return bank1.isAtRest() && bank2.isAtRest() && bank3.isAtRest() && bank4.isAtRest();
    }

    /** Jumps every control to its target. */
    void settle() noexcept
    {
        for (auto* bank : {&bank1, &bank2, &bank3, &bank4})
            bank->settle();
    }

    float preampGain() const noexcept { return bank1.value(0); }
    float crossfade() const noexcept { return bank1.value(1); }
    float offset(int channel) const noexcept { return bank1.value(2 + entry(channel)); }
    float depth(int channel) const noexcept { return bank2.value(entry(channel)); }
    float gain(int channel) const noexcept { return bank2.value(2 + entry(channel)); }
    float frequencyRange() const noexcept { return bank3.value(0); }
    float feedback(int channel) const noexcept { return bank3.value(1 + entry(channel)); }
    float fxAmount() const noexcept { return bank3.value(3); }
    float compensation(int channel) const noexcept { return bank4.value(entry(channel)); }
    float outputGain() const noexcept { return bank4.value(2); }

private:
    static size_t entry(int channel) noexcept { return static_cast<size_t>(channel); }

    SmootherBank bank1, bank2, bank3, bank4;
};
