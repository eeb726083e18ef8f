#include "DemoSignal.h"

#include <cmath>
#include <vector>

namespace
{
/** A small linear congruential generator: the same sequence everywhere, unlike std::rand. */
class NoiseSource
{
public:
    explicit NoiseSource(juce::uint32 seed) : state(seed) {}
    float next()
    {
        state = state * 1664525u + 1013904223u;
        return static_cast<float>(state >> 8) * (2.0f / 16777216.0f) - 1.0f;
    }

private:
    juce::uint32 state;
};

/** One plucked string (Karplus-Strong): a noise burst circulating in a damped delay line. */
class PluckedString
{
public:
    PluckedString(double sampleRate, double frequency)
        : line(static_cast<size_t>(std::max(2.0, std::round(sampleRate / frequency))), 0.0f)
    {
    }

    void pluck(NoiseSource& noise, float level)
    {
        for (auto& s : line)
            s = noise.next() * level;
    }

    float next()
    {
        const float out = line[position];
        const size_t following = position + 1 == line.size() ? 0 : position + 1;
        line[position] = 0.996f * 0.5f * (out + line[following]);
        position = following;
        return out;
    }

private:
    std::vector<float> line;
    size_t position = 0;
};
} // namespace

juce::AudioBuffer<float> makeDemoSignal(double sampleRate, double seconds)
{
    const int numSamples = static_cast<int>(std::llround(sampleRate * seconds));
    juce::AudioBuffer<float> out(2, std::max(0, numSamples));
    out.clear();

    // E minor seventh voicing across six strings: E2 B2 D3 G3 B3 E4.
    const double frequencies[] = {82.41, 123.47, 146.83, 196.00, 246.94, 329.63};
    const float pans[] = {0.35f, 0.42f, 0.48f, 0.54f, 0.6f, 0.66f}; // share of the right channel
    std::vector<PluckedString> strings;
    for (double f : frequencies)
        strings.emplace_back(sampleRate, f);

    NoiseSource noise(0x5eed1234u);
    const int strumPeriod = static_cast<int>(sampleRate * 1.0); // a strum every second
    const int stringGap = static_cast<int>(sampleRate * 0.012); // 12 ms between strings
    const int hatPeriod = static_cast<int>(sampleRate * 0.25);  // eighth notes at 120 bpm
    const float hatDecay = static_cast<float>(std::exp(-1.0 / (0.03 * sampleRate)));
    float hatEnvelope = 0.0f;
    float hatPrevious = 0.0f;

    auto* left = out.getWritePointer(0);
    auto* right = out.getWritePointer(1);
    for (int i = 0; i < numSamples; ++i)
    {
        const int inStrum = i % std::max(1, strumPeriod);
        const bool downStroke = (i / std::max(1, strumPeriod)) % 2 == 0;
        for (int s = 0; s < 6; ++s)
        {
            const int order = downStroke ? s : 5 - s;
            if (inStrum == order * stringGap)
                strings[static_cast<size_t>(s)].pluck(noise, downStroke ? 0.5f : 0.35f);
        }

        if (i % std::max(1, hatPeriod) == 0)
            hatEnvelope = (i / std::max(1, hatPeriod)) % 2 == 0 ? 0.12f : 0.07f;
        const float white = noise.next();
        const float hat = (white - hatPrevious) * hatEnvelope; // first difference: bright noise
        hatPrevious = white;
        hatEnvelope *= hatDecay;

        float l = 0.0f, r = 0.0f;
        for (int s = 0; s < 6; ++s)
        {
            const float v = strings[static_cast<size_t>(s)].next();
            l += v * (1.0f - pans[s]);
            r += v * pans[s];
        }
        left[i] = 0.5f * l + 0.6f * hat;
        right[i] = 0.5f * r + 0.4f * hat;
    }
    return out;
}
