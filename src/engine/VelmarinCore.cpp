#include "VelmarinCore.h"

#include "parameters/Parameter.h"

#include "TickRunner.h"

#include <emmintrin.h>

#include <algorithm>
#include <cmath>

namespace
{
constexpr double pi = 3.141592653589793;

/** The line's input clipper: soft above 0.8 and below -0.8, bounded to -1 .. 1. With the bias of
    0.15 around it, it starts at 0.65 upward and at -0.95 downward. */
inline float clipLineInput(float v) noexcept
{
    if (v > 0.8f)
    {
        const float w = (v - 0.8f) * 5.0f;
        const float t = 1.0f / (std::exp(w + w) + 1.0f);
        return (1.0f - 2.0f * t) * 0.2f + 0.8f;
    }
    if (v < -0.8f)
    {
        const float w2 = v * 5.0f;
        const float t = 1.0f / (std::exp(w2 + w2 + 8.0f) + 1.0f);
        return (1.0f - 2.0f * t) * 0.2f - 0.8f;
    }
    return v;
}

/** Writes a sample into a ring of `length` samples kept in three copies. */
template <size_t size>
inline void writeTriple(std::array<float, size>& ring, int index, int length, float value) noexcept
{
    ring[static_cast<size_t>(index)] = value;
    ring[static_cast<size_t>(index + length)] = value;
    ring[static_cast<size_t>(index + 2 * length)] = value;
}

struct QualityLevel
{
    int taps, offset; // taps are a multiple of 4: the tick loop works four at a time
};

constexpr std::array<QualityLevel, 4> qualityLevels { {
    { 4, 6 },    // "Draft"
    { 8, 4 },    // "Normal"
    { 16, 0 },   // "High"
    { 32, -8 },  // "Ultra"
} };
} // namespace

VelmarinCore::VelmarinCore()
    : sincTables { SincTable(4), SincTable(8), SincTable(16), SincTable(32) },
      inputLowPass(StereoBiquad::lowPass, 11816.0f, 11816.0f, 0.91971999f, 0.91971999f, 23632),
      lowCut(StereoBiquad::highPass, 51.0f, 101.0f, 0.16093200f, 0.16093200f, 202)
{
    fallbackContext.set(44100.0);
    buildStepTable(stepTable);
    currentTable = sincTables[0].polyphase.get();
    applySampleRate(rateContext());
    applyBbdLength();
}

const SampleRateContext& VelmarinCore::rateContext() noexcept
{
    const SampleRateContext& ctx = context != nullptr && context->sampleRate > 0.0 ? *context : fallbackContext;
    lfoLeft.context = lfoRight.context = &ctx;
    return ctx;
}

float VelmarinCore::feedbackCompensation(float x)
{
    return 3.0990567f * std::pow(x, 1.5f) - 2.2853994f * x * x + 1.3748739f;
}

double VelmarinCore::lfoRateForNormalized(float v)
{
    return static_cast<double>(0.025037454f * std::exp(7.3762617f * v));
}

double VelmarinCore::voltageToFrequency(double voltage, int curve) noexcept
{
    switch (curve)
    {
        case 1: return 2778006.238290379 / (voltage + 3.1122172430134554) - 60493.38578282923;
        case 2: return 124090556.52786241 / (voltage + 62.61962227335039) - 1285206.6415424007;
        default: return 563517.1467566676 / (voltage + 0.1729133168329759) - 0.0;
    }
}

//==============================================================================
// Reset and rate-dependent state

void VelmarinCore::applySampleRate(const SampleRateContext& ctx)
{
    const double sr = ctx.sampleRate;
    const float srF = static_cast<float>(sr);

    gate.decay = 1.0 - ctx.speedScaleF * 0.0004;
    gate.fadeStep = 0.01 / ctx.samplesPerMs * 3.141592653589793;
    peakDecay = 1.0 - ctx.speedScale * 0.0001;
    for (auto* bank : { &bank1, &bank2, &bank3, &bank4 })
        bank->coefficient = SmootherBank::baseCoefficient * ctx.speedScaleF;

    lfoSmoothCoefficient = static_cast<double>(static_cast<float>(std::exp(-4.523893421169302 / sr)));

    inputHighPassCoefficient = std::exp(-447.36279f / srF);
    inputHighPassGain = (inputHighPassCoefficient + 1.0f) * 0.5f;
    inputShelfCoefficient = std::exp(-367.00085f / srF);
    outputShelfCoefficient = std::exp(-120.69999f / srF);

    doubleRateContext.set(sr * 2.0);
    inputLowPass.fillTables(doubleRateContext);
    lowCut.fillTables(doubleRateContext);

    // The read delay grows with the rate so that the interpolator's read stays clear of the newest
    // input: sr / 3150 - 14 samples, split into a whole part and a fraction.
    const double z = sr * 0.00031746031746031746 - 14.0;
    const auto w = static_cast<int>(z);
    readDelayWhole = w + 1;
    readDelayFraction = 1.0 - (z - w);

    // A tick's first tap lies readDelayWhole + 17 - tapOffset samples behind the newest input, and
    // "Ultra" (tapOffset -8) reaches deepest. The short ring serves every rate it can, so that its
    // reads (those of the widest rows past the newest sample included) stay exactly as they are;
    // the long one takes the rates beyond. The plug-in hands over no rate above 768 kHz, where the
    // deepest tap lies 255 samples back; the bound below only keeps a wilder caller in memory.
    const int deepestTap = readDelayWhole + 17 + 8;
    ringLength = deepestTap < shortRingLength ? shortRingLength : longRingLength;
    readDelayWhole = std::min(readDelayWhole, longRingLength - 1 - 17 - 8);
}

void VelmarinCore::reset(bool sampleRateChanged)
{
    const SampleRateContext& ctx = rateContext();
    if (sampleRateChanged)
    {
        applySampleRate(ctx);
        for (auto* lfo : { &lfoLeft, &lfoRight })
        {
            lfo->updateRate();
            lfo->stepRandom();
            lfo->phase = 0.0;
        }
    }

    for (auto* bank : { &bank1, &bank2, &bank3, &bank4 })
        bank->settle();

    peakState = {};
    peakLast = {};

    lfoLeft.waveform = lfoRight.waveform = LfoOscillator::triangle;
    lfoSmoothedLeft = lfoSmoothedRight = 0.0;

    inputHighPassState = {};
    inputPrevious = {};
    inputShelfState = {};
    outputShelfState = {};

    inputLowPass.type = StereoBiquad::lowPass;
    inputLowPass.clearState();
    lowCut.type = StereoBiquad::highPass;
    lowCut.clearState();

    inputRingIndex = 0;
    applyBbdLength(); // clears the input rings, the lines, their indices and the tick phases

    lastDelta = {};
    lastOutput = {};
    feedbackSample = {};
}

void VelmarinCore::applyBbdLength()
{
    stageCount = 16 << std::clamp(q.bbdLengthIndex, 0, 5);
    stageScale = stageCount * 0.001953125;
    for (auto& ring : inputRing)
        ring.fill(0.0f);
    for (auto& stages : line)
        stages.fill(0.0);
    tickPhase = {};
    lineIndex = {};
}

void VelmarinCore::applyQuality(int index)
{
    const int level = index >= 0 && index < 4 ? index : 2;
    tapCount = qualityLevels[static_cast<size_t>(level)].taps;
    tapOffset = qualityLevels[static_cast<size_t>(level)].offset;
    currentTable = sincTables[static_cast<size_t>(level)].polyphase.get();
}

//==============================================================================
// Parameter intake

void VelmarinCore::updateRightLfo()
{
    const int code = q.rateLinked ? lfoLeft.clock.division.noteCode : q.noteCodeRight;
    const double free = q.rateLinked ? lfoLeft.freeRate : static_cast<double>(q.rateRight);

    if (lfoRight.clock.division.noteCode != code)
        lfoRight.setNoteCode(code);
    lfoRight.updateRate();
    if (lfoRight.freeRate != free)
    {
        lfoRight.freeRate = free;
        lfoRight.updateRate();
    }

    if (q.rateLinked)
    {
        lfoRight.phase = lfoLeft.phase;
        lfoSmoothedRight = lfoSmoothedLeft;
    }
}

void VelmarinCore::setLfoSync(bool on)
{
    for (auto* lfo : { &lfoLeft, &lfoRight })
    {
        if (lfo->tempoSynced != on)
        {
            lfo->tempoSynced = on;
            lfo->updateRate();
        }
    }
}

void VelmarinCore::applySyncMode(int mode)
{
    // 0 "Off", 1 "Triplet", 2 "Dotted", 3 "Full".
    if (mode == 0)
    {
        setLfoSync(false);
        return;
    }
    if (mode < 0 || mode > 3)
        return;

    setLfoSync(true);
    const int dotType = mode == 1 ? 2 : mode == 2 ? 1 : 0;
    for (auto* lfo : { &lfoLeft, &lfoRight })
    {
        if (lfo->clock.division.setDotType(dotType))
        {
            lfo->clock.division.refresh();
            lfo->clock.markDirty();
        }
        lfo->updateRate();
    }
}

void VelmarinCore::applyPhaseShift(float v)
{
    lfoRight.phaseOffset = static_cast<double>(v) * 3.141592653589793;
    if (v == 0.0f)
    {
        // At no shift the channels run in step, down to their clocks.
        lfoRight.phase = lfoLeft.phase;
        lfoSmoothedRight = lfoSmoothedLeft;
        tickPhase = {};
    }
}

void VelmarinCore::parameterChanged(Parameter& p)
{
    rateContext();
    switch (p.getIndex())
    {
        case 0: q.preampDb = p.getNormalized() * 24.0f; break;
        case 1: q.msMode = p.getBool(); break;
        case 2: q.crossfade = p.getNormalized(); break;
        case 3:
            q.offsetStoredLeft = q.offsetLeft = p.getNormalized();
            if (q.offsetLinked)
                q.offsetRight = q.offsetStoredLeft;
            break;
        case 4:
            q.offsetStoredRight = p.getNormalized();
            if (! q.offsetLinked)
                q.offsetRight = q.offsetStoredRight;
            break;
        case 5:
            q.offsetLinked = p.getBool();
            q.offsetRight = q.offsetLinked ? q.offsetStoredLeft : q.offsetStoredRight;
            break;
        case 6:
        {
            const double rate = lfoRateForNormalized(p.getNormalized());
            if (lfoLeft.freeRate != rate)
            {
                lfoLeft.freeRate = rate;
                lfoLeft.updateRate();
            }
            updateRightLfo();
            break;
        }
        case 7:
            q.rateRight = static_cast<float>(lfoRateForNormalized(p.getNormalized()));
            updateRightLfo();
            break;
        case 8:
        {
            const int value = p.getInt();
            if (value < 0 || value > 10)
                break;
            lfoLeft.setNoteCode(value + 1);
            updateRightLfo();
            break;
        }
        case 9:
        {
            const int value = p.getInt();
            if (value < 0 || value > 10)
                break;
            q.noteCodeRight = value + 1;
            updateRightLfo();
            break;
        }
        case 10:
            q.rateLinked = p.getBool();
            updateRightLfo();
            break;
        case 11:
            q.depthStoredLeft = q.depthLeft = p.getNormalized();
            if (q.depthLinked)
                q.depthRight = q.depthStoredLeft;
            break;
        case 12:
            q.depthStoredRight = p.getNormalized();
            if (! q.depthLinked)
                q.depthRight = q.depthStoredRight;
            break;
        case 13:
            q.depthLinked = p.getBool();
            q.depthRight = q.depthLinked ? q.depthStoredLeft : q.depthStoredRight;
            break;
        case 14:
        {
            const float x = p.getNormalized() * 1.9f - 0.95f;
            q.feedbackStoredLeft = q.feedbackLeft = x;
            if (x >= 0.0f)
                q.feedbackCompensationLeft = feedbackCompensation(x);
            if (q.feedbackLinked)
            {
                q.feedbackRight = x;
                q.feedbackCompensationRight = q.feedbackCompensationLeft;
            }
            break;
        }
        case 15:
        {
            const float x = p.getNormalized() * 1.9f - 0.95f;
            q.feedbackStoredRight = x;
            if (! q.feedbackLinked)
            {
                q.feedbackRight = x;
                if (x >= 0.0f)
                    q.feedbackCompensationRight = feedbackCompensation(x);
            }
            break;
        }
        case 16:
            q.feedbackLinked = p.getBool();
            q.feedbackRight = q.feedbackLinked ? q.feedbackStoredLeft : q.feedbackStoredRight;
            if (q.feedbackRight >= 0.0f)
                q.feedbackCompensationRight = feedbackCompensation(q.feedbackRight);
            break;
        case 17: applySyncMode(p.getInt()); break;
        case 18: applyPhaseShift(p.getNormalized()); break;
        case 19: q.voltageCurve = p.getInt(); break;
        case 20:
            q.bbdLengthIndex = p.getInt();
            applyBbdLength();
            break;
        case 21: q.frequencyRange = static_cast<double>(p.getNormalized()) * 5.0 + 1.0; break;
        case 22: q.lowCutMode = p.getInt(); break;
        case 23: q.gainLeft = p.getNormalized(); break;
        case 24: q.gainRight = p.getNormalized(); break;
        case 25: q.autoMixMode = p.getBool(); break;
        case 26: q.fxAmount = p.getNormalized(); break;
        case 27:
            q.outputVolume = p.getNormalized();
            q.outputGain = q.outputVolume * q.outputVolume * 4.0f;
            break;
        case 29: applyQuality(p.getInt()); break;
        default: break; // 28, the frequency read-out, and anything else: nothing to store
    }
}

void VelmarinCore::setTempo(double bpm)
{
    if (lfoLeft.clock.tempo == bpm)
        return;
    rateContext();
    for (auto* lfo : { &lfoLeft, &lfoRight })
    {
        lfo->clock.tempo = bpm;
        lfo->clock.markDirty();
        lfo->updateRate();
    }
}

void VelmarinCore::setPosition(double ppq)
{
    for (auto* lfo : { &lfoLeft, &lfoRight })
    {
        if (lfo->clock.position != ppq)
        {
            lfo->clock.position = ppq;
            lfo->clock.markDirty();
        }
        // Re-lock to the host at each block while the transport plays; the phase offset stays on top.
        if (lfo->tempoSynced)
            lfo->phase = 6.283185307179586 * lfo->clock.phaseInCycle();
    }
}

//==============================================================================
// The run

void VelmarinCore::beginRun(bool bypassed)
{
    const float preampExponent = q.preampDb * 0.05f;
    bank1.target = { static_cast<float>(std::pow(10.0, static_cast<double>(preampExponent))), q.crossfade,
                     q.offsetLeft, q.offsetRight };
    bank2.target = { q.depthLeft, q.depthRight, q.gainLeft, q.gainRight };
    bank3.target = { static_cast<float>(q.frequencyRange), q.feedbackLeft, q.feedbackRight, q.fxAmount };
    bank4.target = { q.feedbackCompensationLeft, q.feedbackCompensationRight, q.outputGain, 0.0f };

    if (bypassed)
        return;
    inputLowPass.setCoefficients(1.0f, 1.0f);
    if (q.lowCutMode == 1 || q.lowCutMode == 2)
    {
        const float m = q.lowCutMode == 1 ? 0.0f : 1.0f;
        lowCut.setCoefficients(m, m);
    }
}

void VelmarinCore::stepSmoothers() noexcept
{
    bank1.step();
    bank2.step();
    bank3.step();
    bank4.step();
}

double VelmarinCore::clockFrequency(double voltage) const noexcept
{
    return voltageToFrequency(voltage, q.voltageCurve) * static_cast<double>(bank3.current[0]) * stageScale;
}

void VelmarinCore::condition(int channel, float& x) noexcept
{
    // A first-order high-pass at 71.2 Hz, then a low shelf made from a one-pole low-pass at 58.41 Hz.
    const auto c = static_cast<size_t>(channel);
    float& h = inputHighPassState[c];
    h = (x - inputPrevious[c]) * inputHighPassGain + inputHighPassCoefficient * h;
    inputPrevious[c] = x;
    float& z = inputShelfState[c];
    z = h - (h - z) * inputShelfCoefficient;
    x = h + z * 0.9639f;
}

void VelmarinCore::runTicks(int channel, double tickStep, int ringBase, int o) noexcept
{
    if (tickLoop == TickLoop::plain)
    {
        runTicksPlain(channel, tickStep, ringBase, o);
        return;
    }

    // Short rows leave little to overlap: two ticks side by side are enough. Long rows take four,
    // so that four chains of adds hide each other's latency.
    switch (tapCount)
    {
        case 4: runTicksFast<4, 2>(channel, tickStep, ringBase, o); break;
        case 8: runTicksFast<8, 2>(channel, tickStep, ringBase, o); break;
        case 16: runTicksFast<16, 8>(channel, tickStep, ringBase, o); break;
        default: runTicksFast<32, 8>(channel, tickStep, ringBase, o); break;
    }
}

template <int taps, int group>
void VelmarinCore::runTicksFast(int channel, double tickStep, int ringBase, int o) noexcept
{
    const auto c = static_cast<size_t>(channel);
    float* steps = stepRing[c].data();
    TickRunner<taps> runner { currentTable,
                              inputRing[c].data() + tapOffset - readDelayWhole - 17 + ringBase,
                              readDelayFraction,
                              stepTable,
                              line[c].data(),
                              stageCount,
                              lineIndex[c],
                              lastOutput[c],
                              lastDelta[c],
                              _mm_loadu_ps(steps + o + 64),
                              _mm_loadu_ps(steps + o + 68) };

    // The phases of the next ticks come from the same running sum the ticks advance by, so a
    // group's ticks sit exactly where ticks run one by one would.
    double phases[group];
    double phase = tickPhase[c];
    while (phase < 1.0)
    {
        phases[0] = phase;
        int n = 1;
        phase += tickStep;
        while (n < group && phase < 1.0)
        {
            phases[n++] = phase;
            phase += tickStep;
        }

        runner.template runUpTo<group>(n, phases);
    }

    _mm_storeu_ps(steps + o + 64, runner.stepLow);
    _mm_storeu_ps(steps + o + 68, runner.stepHigh);
    _mm_storeu_ps(steps + o, runner.stepLow);
    _mm_storeu_ps(steps + o + 4, runner.stepHigh);
    tickPhase[c] = phase;
    lineIndex[c] = runner.index;
    lastOutput[c] = runner.last;
    lastDelta[c] = runner.delta;
    ticksRun += runner.ticks;
}

void VelmarinCore::runTicksPlain(int channel, double tickStep, int ringBase, int o) noexcept
{
    const auto c = static_cast<size_t>(channel);
    const float* ring = inputRing[c].data();
    double* stages = line[c].data();
    float* steps = stepRing[c].data();
    double phase = tickPhase[c];
    int index = lineIndex[c];
    const int firstTap = tapOffset - readDelayWhole - 17 + ringBase;

    while (phase < 1.0)
    {
        const double t = phase + readDelayFraction;
        const auto whole = static_cast<int>(t);
        const float* row = currentTable + static_cast<int>((t - whole) * 1024.0) * tapCount;
        const float* taps = ring + firstTap + whole;
        float v = 0.0f;
        for (int k = 0; k < tapCount; ++k)
            v += row[k] * taps[k];

        stages[index] = static_cast<double>(v);
        if (++index == stageCount)
            index = 0;
        const double u = stages[index];
        const double delta = u - lastOutput[c];
        lastOutput[c] = u;
        lastDelta[c] = delta;

        const auto& step = stepTable[static_cast<size_t>(static_cast<int>(phase * 512.0))];
        const auto jump = static_cast<float>(delta);
        for (int k = 0; k < 8; ++k)
        {
            const float sum = steps[o + 64 + k] + jump * step[static_cast<size_t>(k)];
            steps[o + 64 + k] = sum;
            steps[o + k] = sum;
        }
        phase += tickStep;
        ++ticksRun;
    }

    tickPhase[c] = phase;
    lineIndex[c] = index;
}

float VelmarinCore::rawWet(int channel, int o) noexcept
{
    const auto c = static_cast<size_t>(channel);
    tickPhase[c] -= 1.0;
    const auto level = static_cast<float>(lastOutput[c]);
    levelRing[c][static_cast<size_t>(o + 64)] = level;
    levelRing[c][static_cast<size_t>(o)] = level;
    // The steps still in progress plus the level reached eight samples ago.
    return stepRing[c][static_cast<size_t>(o + 64)] + levelRing[c][static_cast<size_t>(o + 56)];
}

float VelmarinCore::mix(int channel, float wet, float dry) const noexcept
{
    if (! q.autoMixMode)
        return (wet - dry) * bank3.current[3] + dry;

    const float feedback = bank3.current[static_cast<size_t>(1 + channel)];
    if (feedback >= 0.0f)
        return (wet * bank4.current[static_cast<size_t>(channel)] + dry) * 0.36367f;

    const float t = feedback + 1.0f;
    const float fade = (t * t) * (t * t);
    return (dry * fade + wet * 1.3748739f) * 0.36367f;
}

void VelmarinCore::meter(int channel, float output) noexcept
{
    const auto c = static_cast<size_t>(channel);
    const float position = output * 100.0f + 200.0f;
    const int k = position >= 0.0f ? std::min(static_cast<int>(std::min(position, 399.0f)), 399) : 0;
    peakLast[c] = meterTable[static_cast<size_t>(k)];
    if (peakLast[c] > peakState[c])
        peakState[c] = peakLast[c];
    peakState[c] *= peakDecay;
}

void VelmarinCore::advanceRings() noexcept
{
    inputRingIndex = (inputRingIndex + 1) & (ringLength - 1);
    outputRingIndex = (outputRingIndex + 1) & 63;
}

void VelmarinCore::endRun(float frequency, bool mono) noexcept
{
    const auto left = static_cast<float>(std::clamp(peakState[0], 0.0, 1.0));
    peakLeft.store(left);
    peakRight.store(mono ? left : static_cast<float>(std::clamp(peakState[1], 0.0, 1.0)));
    currentBbdFrequency.store(frequency);
}

template <bool stereo>
void VelmarinCore::stepLfos() noexcept
{
    float lfoOut = 0.0f;
    lfoLeft.next(lfoOut);
    float x = (lfoOut + 1.0f) * 0.5f;
    lfoSmoothedLeft = x - (x - lfoSmoothedLeft) * lfoSmoothCoefficient;
    if constexpr (stereo)
    {
        lfoRight.next(lfoOut);
        x = (lfoOut + 1.0f) * 0.5f;
        lfoSmoothedRight = x - (x - lfoSmoothedRight) * lfoSmoothCoefficient;
    }
}

int VelmarinCore::runShut(const float* inLeft, const float* inRight, float* outLeft, float* outRight, int n,
                          int numSamples) noexcept
{
    // With both channels shut, a sample does only what keeps the modulation, the gate and the meters
    // moving as a running sample would: the line, the filters and the mix stand still and the output
    // is silence. Smoothers that have come to rest stay where they are, so they are not stepped.
    const bool smoothersAtRest = bank1.isAtRest() && bank2.isAtRest() && bank3.isAtRest() && bank4.isAtRest();
    for (; n < numSamples; ++n)
    {
        if (std::abs(inLeft[n]) > SilenceGate::armThreshold || std::abs(inRight[n]) > SilenceGate::armThreshold)
            break;
        if (! smoothersAtRest)
            stepSmoothers();
        stepLfos<true>();
        gate.idle(0);
        gate.idle(1);
        outLeft[n] = 0.0f;
        outRight[n] = 0.0f;
        meter(0, 0.0f);
        meter(1, 0.0f);
        advanceRings();
    }
    return n;
}

template <bool stereo>
void VelmarinCore::run(const float* inLeft, const float* inRight, float* outLeft, float* outRight, int numSamples)
{
    const double sampleRate = rateContext().sampleRate;
    float frequency = 0.0f;

    for (int n = 0; n < numSamples; ++n)
    {
        if constexpr (stereo)
        {
            if (gate.isShut())
            {
                n = runShut(inLeft, inRight, outLeft, outRight, n, numSamples);
                if (n == numSamples)
                    break;
            }
        }

        // Both inputs are read before any output is written: the outputs may be the inputs.
        float left = inLeft[n];
        float right = stereo ? inRight[n] : 0.0f;
        float outL = 0.0f, outR = 0.0f;

        gate.arm(0, left);
        if constexpr (stereo)
            gate.arm(1, right);

        stepSmoothers();
        stepLfos<stereo>();

        const double voltageLeft = (bank1.current[2] + bank2.current[0] * lfoSmoothedLeft) * 16.0 + 0.6610000133514404;
        const double voltageRight = (bank1.current[3] + bank2.current[1] * lfoSmoothedRight) * 16.0 + 0.6610000133514404;

        if (! gate.isShut())
        {
            // The distance between two ticks, in host samples, per channel.
            const double frequencyLeft = clockFrequency(voltageLeft);
            frequency = static_cast<float>(frequencyLeft);
            const double stepLeft = sampleRate / frequencyLeft;
            const double stepRight = stereo ? sampleRate / clockFrequency(voltageRight) : 0.0;

            if (q.autoMixMode)
            {
                condition(0, left);
                if constexpr (stereo)
                    condition(1, right);
                // Two passes through one state: the second stands for the second sample of the
                // filter's double rate.
                inputLowPass.process(left, right);
                inputLowPass.process(left, right);
                if constexpr (! stereo)
                    right = 0.0f;
            }

            const int ri = inputRingIndex;
            const int o = outputRingIndex;
            const auto ou = static_cast<size_t>(o);
            writeTriple(dryRing[0], ri, ringLength, left);
            if constexpr (stereo)
                writeTriple(dryRing[1], ri, ringLength, right);

            // Drive: preamp, M/S, crossfade, feedback, clipper around a bias of 0.15.
            const float g = bank1.current[0];
            float a = left * g;
            float p, pRight = 0.0f;
            if constexpr (stereo)
            {
                float b = right * g;
                if (q.msMode)
                {
                    const float mid = (a + b) * 0.5f;
                    const float side = (a - b) * 0.5f;
                    a = mid;
                    b = side;
                }
                const float c = bank1.current[1];
                p = a + (b - a) * c + feedbackSample[0] * bank3.current[1] + 0.15f;
                pRight = b + (a - b) * c + feedbackSample[1] * bank3.current[2] + 0.15f;
                pRight = clipLineInput(pRight) - 0.15f;
            }
            else
            {
                p = a + feedbackSample[0] * bank3.current[1] + 0.15f;
            }
            p = clipLineInput(p) - 0.15f;

            writeTriple(inputRing[0], ri, ringLength, p);
            if constexpr (stereo)
                writeTriple(inputRing[1], ri, ringLength, pRight);

            // The line.
            stepRing[0][ou + 72] = 0.0f;
            stepRing[0][ou + 8] = 0.0f;
            if constexpr (stereo)
            {
                stepRing[1][ou + 72] = 0.0f;
                stepRing[1][ou + 8] = 0.0f;
            }
            runTicks(0, stepLeft, ri + ringLength, o);
            if constexpr (stereo)
                runTicks(1, stepRight, ri + ringLength, o);
            float wetLeft = rawWet(0, o);
            float wetRight = stereo ? rawWet(1, o) : 0.0f;

            // Low cut; the mono run carries the right lane's last input over.
            if (q.lowCutMode != 0)
            {
                if constexpr (! stereo)
                    wetRight = lowCut.lastInput(1);
                lowCut.process(wetLeft, wetRight);
            }

            stepRing[0][ou] = stepRing[0][ou + 64] = wetLeft;
            feedbackSample[0] = wetLeft;
            float wL = stepRing[0][ou + 62];
            float wR = 0.0f;
            if constexpr (stereo)
            {
                stepRing[1][ou] = stepRing[1][ou + 64] = wetRight;
                feedbackSample[1] = wetRight;
                wR = stepRing[1][ou + 62];
            }

            if (q.autoMixMode)
            {
                if (q.lowCutMode == 2)
                {
                    // Make up the low end the low cut took away.
                    outputShelfState[0] = wL - (wL - outputShelfState[0]) * outputShelfCoefficient;
                    wL += outputShelfState[0] * 20.0f;
                    if constexpr (stereo)
                    {
                        outputShelfState[1] = wR - (wR - outputShelfState[1]) * outputShelfCoefficient;
                        wR += outputShelfState[1] * 20.0f;
                    }
                }
            }
            else
            {
                wL *= bank2.current[2];
                wR *= bank2.current[3];
            }

            if constexpr (stereo)
            {
                if (q.msMode)
                {
                    const float l = wL + wR;
                    const float r = wL - wR;
                    wL = l;
                    wR = r;
                }
            }

            const auto dryIndex = static_cast<size_t>(ri + ringLength - 1);
            outL = mix(0, wL, dryRing[0][dryIndex]) * bank4.current[2];
            if constexpr (stereo)
                outR = mix(1, wR, dryRing[1][dryIndex]) * bank4.current[2];
        }

        outL = gate.fade(0, outL);
        outLeft[n] = outL;
        meter(0, outL);
        if constexpr (stereo)
        {
            outR = gate.fade(1, outR);
            outRight[n] = outR;
            meter(1, outR);
        }

        advanceRings();
    }

    endRun(frequency, ! stereo);
}

template <bool stereo>
void VelmarinCore::runBypassed(const float* inLeft, const float* inRight, float* outLeft, float* outRight,
                               int numSamples)
{
    // A one-sample delay through the dry ring keeps the reported latency true; everything else stands.
    for (int n = 0; n < numSamples; ++n)
    {
        const float left = inLeft[n];
        const float right = stereo ? inRight[n] : 0.0f;
        stepSmoothers();

        const auto dryIndex = static_cast<size_t>(inputRingIndex + ringLength - 1);
        writeTriple(dryRing[0], inputRingIndex, ringLength, left);
        outLeft[n] = dryRing[0][dryIndex];
        meter(0, 0.0f);
        if constexpr (stereo)
        {
            writeTriple(dryRing[1], inputRingIndex, ringLength, right);
            outRight[n] = dryRing[1][dryIndex];
            meter(1, 0.0f);
        }
        advanceRings();
    }
    endRun(0.0f, ! stereo);
}

void VelmarinCore::processStereo(const float* inLeft, const float* inRight, float* outLeft, float* outRight,
                                 int numSamples, bool bypassed)
{
    beginRun(bypassed);
    if (bypassed)
        runBypassed<true>(inLeft, inRight, outLeft, outRight, numSamples);
    else
        run<true>(inLeft, inRight, outLeft, outRight, numSamples);
}

void VelmarinCore::processMono(float* buffer, int numSamples, bool bypassed)
{
    beginRun(bypassed);
    if (bypassed)
        runBypassed<false>(buffer, nullptr, buffer, nullptr, numSamples);
    else
        run<false>(buffer, nullptr, buffer, nullptr, numSamples);
}
