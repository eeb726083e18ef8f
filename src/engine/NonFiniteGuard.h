#pragma once

// The engine trusts its input: a NaN or an infinity that reached its feedback loop or its filters'
// state would circulate there for good and silence the track until the plug-in is reloaded. So the
// block entry replaces every sample that is not finite with 0 before the engine sees the block.
// Finite samples, however large, pass bit for bit (the clipper bounds what enters the line), so the
// output for finite input is exactly what it would be without the guard.

#include <cstdint>
#include <cstring>

/** Replaces NaN and infinities with 0 in place. One branch-free pass that the compiler vectorises:
    a float is not finite exactly when all its exponent bits are set. Audio thread. */
inline void replaceNonFinite(float* samples, int numSamples) noexcept
{
    for (int i = 0; i < numSamples; ++i)
    {
        std::uint32_t bits;
        std::memcpy(&bits, samples + i, sizeof bits);
        const std::uint32_t keep = (bits & 0x7f800000u) == 0x7f800000u ? 0u : 0xffffffffu;
        bits &= keep;
        std::memcpy(samples + i, &bits, sizeof bits);
    }
}
