#pragma once

// The engine trusts its input: a NaN or an infinity that reached its feedback loop or its filters'
// state would circulate there for good and silence the track until the plug-in is reloaded, and so
// would a finite sample so large that the input filters overflow on it (3e38 does). So the block
// entry replaces every sample that is not finite with 0 and holds every other within
// +-inputSampleLimit (+96 dB above full scale) before the engine sees the block. Samples within the
// limit pass bit for bit, so the output for any audio a host really sends is exactly what it would
// be without the guard, and the output stays finite for every input.

#include <algorithm>
#include <cstdint>
#include <cstring>

/** The largest input magnitude the engine is handed: 65536, +96 dB above full scale. */
inline constexpr float inputSampleLimit = 65536.0f;

/** Replaces NaN and infinities with 0 and clamps the rest into +-inputSampleLimit, in place. One
    branch-free pass that the compiler vectorises: a float is not finite exactly when all its
    exponent bits are set. Audio thread. */
inline void guardInput(float* samples, int numSamples) noexcept
{
    for (int i = 0; i < numSamples; ++i)
    {
        std::uint32_t bits;
        std::memcpy(&bits, samples + i, sizeof bits);
        const std::uint32_t keep = (bits & 0x7f800000u) == 0x7f800000u ? 0u : 0xffffffffu;
        bits &= keep;
        float x;
        std::memcpy(&x, &bits, sizeof bits);
        samples[i] = std::clamp(x, -inputSampleLimit, inputSampleLimit);
    }
}
