#pragma once

/** The product's parameters by index, as the parameter definitions number them, and the laws by
    which the engine turns a parameter's value into an engine quantity. The engine switches on these
    indices; the layers above may use them too (they cannot be included from here). The display's
    text laws are a separate set that rounds differently on purpose.
    Thread: constants only; any thread. */
namespace VelmarinParameter
{
enum Index : int
{
    preamp = 0,
    msMode = 1,
    channelsCrossfade = 2,
    delayOffsetLeft = 3,
    delayOffsetRight = 4,
    delayOffsetLink = 5,
    lfoRateLeft = 6,
    lfoRateRight = 7,
    lfoNoteRateLeft = 8,
    lfoNoteRateRight = 9,
    lfoRateLink = 10,
    lfoDepthLeft = 11,
    lfoDepthRight = 12,
    lfoDepthLink = 13,
    feedbackLeft = 14,
    feedbackRight = 15,
    feedbackLink = 16,
    lfoSync = 17,
    lfoPhaseShift = 18,
    lfoVoltageCurve = 19,
    bbdLength = 20,
    bbdFrequencyRange = 21,
    lowCut = 22,
    gainLeft = 23,
    gainRight = 24,
    autoMixMode = 25,
    fxAmount = 26,
    outputVolume = 27,
    currentBbdFrequency = 28,
    processingQuality = 29,
    count = 30
};
} // namespace VelmarinParameter

/** The engine's unit laws: from a normalized value v in 0..1 to an engine quantity. */
namespace VelmarinLaw
{
/** "Preamp": v * preampRangeDb decibels; the run turns them into a gain, 10^(dB * dbToExponent). */
constexpr float preampRangeDb = 24.0f;
constexpr float dbToExponent = 0.05f;

/** "Feedback": x = v * feedbackSpan - feedbackLimit, so -0.95..0.95. */
constexpr float feedbackSpan = 1.9f;
constexpr float feedbackLimit = 0.95f;

/** Feedback compensation for x in 0..0.95: c(x) = a * x^1.5 - b * x * x + unityCompensation. */
constexpr float compensationPower = 3.0990567f;
constexpr float compensationSquare = 2.2853994f;
/** The compensation at no feedback; also the wet gain of the auto mix at negative feedback. */
constexpr float unityCompensation = 1.3748739f;

/** Free LFO rate: lfoRateBase * exp(lfoRateExponent * v) Hz, from 0.025 to about 40 Hz. */
constexpr float lfoRateBase = 0.025037454f;
constexpr float lfoRateExponent = 7.3762617f;

/** "BBD Frequency Range": v * frequencyRangeSpan + 1, so 1 to 6. */
constexpr double frequencyRangeSpan = 5.0;

/** "Output Volume": gain = v * v * outputGainScale, so 0.5 is unity and the top +12 dB. */
constexpr float outputGainScale = 4.0f;

/** Control voltage: (offset + depth * lfo) * voltageSpan + lowestVoltage, so 0.661 to 32.661 V.
    The lowest voltage is the float 0.661 widened to double. */
constexpr double voltageSpan = 16.0;
constexpr double lowestVoltage = 0.6610000133514404;

/** The note rate parameters' values 0..10 are note codes 1..11. */
constexpr int highestNoteRateValue = 10;
} // namespace VelmarinLaw
