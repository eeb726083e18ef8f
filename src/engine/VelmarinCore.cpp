#include "VelmarinCore.h"

#include "parameters/Parameter.h"

#include "VelmarinParameterIndex.h"

#include <algorithm>
#include <cmath>
#include <type_traits>

namespace
{
constexpr double pi = LfoOscillator::pi;

/** The line's input sits on a bias, so that the clipper below acts asymmetrically on the signal. */
constexpr float lineBias = 0.15f;

/** The auto mix's output scale. */
constexpr float autoMixScale = 0.36367f;

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

/** Calls f with channel 0, and in stereo with channel 1, each a compile-time constant, so that the
    sample loop's per-channel steps are written once and still unrolled. */
template <bool stereo, typename F> inline void forEachChannel(F&& f)
{
    f(std::integral_constant<size_t, 0>{});
    if constexpr (stereo)
        f(std::integral_constant<size_t, 1>{});
}

struct QualityLevel
{
    int taps, offset; // taps are a multiple of 4: the tick loop works four at a time
};

constexpr std::array<QualityLevel, 4> qualityLevels{{
    {4, 6},   // "Draft"
    {8, 4},   // "Normal"
    {16, 0},  // "High"
    {32, -8}, // "Ultra"
}};
} // namespace

VelmarinCore::VelmarinCore()
    : sincTables{SincTable(4), SincTable(8), SincTable(16), SincTable(32)}, lines{BbdLine(stepTable),
                                                                                  BbdLine(stepTable)},
      inputLowPass(StereoBiquad::lowPass, 11816.0f, 11816.0f, 0.91971999f, 0.91971999f, 23632),
      lowCut(StereoBiquad::highPass, 51.0f, 101.0f, 0.16093200f, 0.16093200f, 202)
{
    fallbackContext.set(44100.0);
    buildStepTable(stepTable);
    // Until the quality parameter arrives: the shortest table, not yet centred.
    for (auto& line : lines)
        line.setQuality(sincTables[0].polyphase.get(), 4, 0);
    applySampleRate(rateContext());
    applyBbdLength();
}

const SampleRateContext& VelmarinCore::rateContext() noexcept
{
    const SampleRateContext& ctx = context != nullptr && context->sampleRate > 0.0 ? *context : fallbackContext;
    lfoLeft.setContext(&ctx);
    lfoRight.setContext(&ctx);
    return ctx;
}

float VelmarinCore::feedbackCompensation(float x)
{
    using namespace VelmarinLaw;
    return compensationPower * std::pow(x, 1.5f) - compensationSquare * x * x + unityCompensation;
}

double VelmarinCore::lfoRateForNormalized(float v)
{
    return static_cast<double>(VelmarinLaw::lfoRateBase * std::exp(VelmarinLaw::lfoRateExponent * v));
}

double VelmarinCore::voltageToFrequency(double voltage, int curve) noexcept
{
    switch (curve)
    {
    case 1:
        return 2778006.238290379 / (voltage + 3.1122172430134554) - 60493.38578282923;
    case 2:
        return 124090556.52786241 / (voltage + 62.61962227335039) - 1285206.6415424007;
    default:
        return 563517.1467566676 / (voltage + 0.1729133168329759) - 0.0;
    }
}

//==============================================================================
// Reset and rate-dependent state

void VelmarinCore::applySampleRate(const SampleRateContext& ctx)
{
    const double sr = ctx.sampleRate;
    const float srF = static_cast<float>(sr);

    // The fade's cosine runs from 0 to pi in 100 ms.
    gate.setTiming(1.0 - ctx.speedScaleF * 0.0004, 0.01 / ctx.samplesPerMs * pi);
    for (auto& meter : meters)
        meter.setSpeedScale(ctx.speedScale);
    controls.setSpeedScale(ctx.speedScaleF);

    // The LFO's one-pole smoother at 0.72 Hz: exp(-2 pi 0.72 / sr), rounded to float.
    lfoSmoothCoefficient = static_cast<double>(static_cast<float>(std::exp(-4.523893421169302 / sr)));

    for (auto& conditioner : conditioners)
        conditioner.setSampleRate(srF);
    for (auto& shelf : makeUp)
        shelf.setSampleRate(srF);

    doubleRateContext.set(sr * 2.0);
    inputLowPass.fillTables(doubleRateContext);
    lowCut.fillTables(doubleRateContext);

    for (auto& line : lines)
        line.prepare(sr);
}

void VelmarinCore::reset(bool sampleRateChanged)
{
    const SampleRateContext& ctx = rateContext();
    if (sampleRateChanged)
    {
        applySampleRate(ctx);
        for (auto* lfo : {&lfoLeft, &lfoRight})
        {
            lfo->updateRate();
            lfo->stepRandom();
            lfo->setPhase(0.0);
        }
    }

    controls.settle();
    for (auto& meter : meters)
        meter.reset();

    lfoLeft.setWaveform(LfoOscillator::triangle);
    lfoRight.setWaveform(LfoOscillator::triangle);
    lfoSmoothedLeft = lfoSmoothedRight = 0.0;

    for (auto& conditioner : conditioners)
        conditioner.reset();
    for (auto& shelf : makeUp)
        shelf.reset();

    inputLowPass.type = StereoBiquad::lowPass;
    inputLowPass.clearState();
    lowCut.type = StereoBiquad::highPass;
    lowCut.clearState();

    inputRingIndex = 0;
    for (auto& line : lines)
        line.reset(stageCount());
    feedbackSample = {};
}

int VelmarinCore::stageCount() const noexcept
{
    return 16 << std::clamp(q.bbdLengthIndex, 0, 5);
}

void VelmarinCore::applyBbdLength()
{
    for (auto& line : lines)
        line.setStages(stageCount());
}

void VelmarinCore::applyQuality(int index)
{
    const auto level = static_cast<size_t>(index >= 0 && index < 4 ? index : 2);
    for (auto& line : lines)
        line.setQuality(sincTables[level].polyphase.get(), qualityLevels[level].taps, qualityLevels[level].offset);
}

//==============================================================================
// Parameter intake

void VelmarinCore::updateRightLfo()
{
    const int code = q.rateLinked ? lfoLeft.getNoteCode() : q.noteCodeRight;
    const double free = q.rateLinked ? lfoLeft.getFreeRate() : static_cast<double>(q.rateRight);

    if (lfoRight.getNoteCode() != code)
        lfoRight.setNoteCode(code);
    lfoRight.updateRate();
    lfoRight.setFreeRate(free);

    if (q.rateLinked)
    {
        lfoRight.setPhase(lfoLeft.getPhase());
        lfoSmoothedRight = lfoSmoothedLeft;
    }
}

void VelmarinCore::setLfoSync(bool on)
{
    lfoLeft.setTempoSynced(on);
    lfoRight.setTempoSynced(on);
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
    const int dotType = mode == 1 ? ClockDivision::triplet : mode == 2 ? ClockDivision::dotted : ClockDivision::plain;
    lfoLeft.setDotType(dotType);
    lfoRight.setDotType(dotType);
}

void VelmarinCore::applyPhaseShift(float v)
{
    lfoRight.setPhaseOffset(static_cast<double>(v) * pi);
    if (v == 0.0f)
    {
        // At no shift the channels run in step, down to their clocks.
        lfoRight.setPhase(lfoLeft.getPhase());
        lfoSmoothedRight = lfoSmoothedLeft;
        for (auto& line : lines)
            line.alignClock();
    }
}

void VelmarinCore::setFeedbackLeft(float x)
{
    q.feedback.setLeft(x);
    if (x >= 0.0f)
        q.feedbackCompensationLeft = feedbackCompensation(x);
    if (q.feedback.isLinked())
        q.feedbackCompensationRight = q.feedbackCompensationLeft;
}

void VelmarinCore::setFeedbackRight(float x)
{
    if (q.feedback.setRight(x) && x >= 0.0f)
        q.feedbackCompensationRight = feedbackCompensation(x);
}

void VelmarinCore::setFeedbackLinked(bool on)
{
    q.feedback.setLinked(on);
    if (q.feedback.right() >= 0.0f)
        q.feedbackCompensationRight = feedbackCompensation(q.feedback.right());
}

void VelmarinCore::parameterChanged(Parameter& p)
{
    using namespace VelmarinLaw;
    const auto feedbackAmount = [&p] { return p.getNormalized() * feedbackSpan - feedbackLimit; };
    const auto noteValue = [&p]
    {
        const int value = p.getInt();
        return value >= 0 && value <= highestNoteRateValue ? value : -1;
    };

    rateContext();
    switch (p.getIndex())
    {
    case VelmarinParameter::preamp:
        q.preampDb = p.getNormalized() * preampRangeDb;
        break;
    case VelmarinParameter::msMode:
        q.msMode = p.getBool();
        break;
    case VelmarinParameter::channelsCrossfade:
        q.crossfade = p.getNormalized();
        break;
    case VelmarinParameter::delayOffsetLeft:
        q.offset.setLeft(p.getNormalized());
        break;
    case VelmarinParameter::delayOffsetRight:
        q.offset.setRight(p.getNormalized());
        break;
    case VelmarinParameter::delayOffsetLink:
        q.offset.setLinked(p.getBool());
        break;
    case VelmarinParameter::lfoRateLeft:
        lfoLeft.setFreeRate(lfoRateForNormalized(p.getNormalized()));
        updateRightLfo();
        break;
    case VelmarinParameter::lfoRateRight:
        q.rateRight = static_cast<float>(lfoRateForNormalized(p.getNormalized()));
        updateRightLfo();
        break;
    case VelmarinParameter::lfoNoteRateLeft:
        if (const int value = noteValue(); value >= 0)
        {
            lfoLeft.setNoteCode(value + 1);
            updateRightLfo();
        }
        break;
    case VelmarinParameter::lfoNoteRateRight:
        if (const int value = noteValue(); value >= 0)
        {
            q.noteCodeRight = value + 1;
            updateRightLfo();
        }
        break;
    case VelmarinParameter::lfoRateLink:
        q.rateLinked = p.getBool();
        updateRightLfo();
        break;
    case VelmarinParameter::lfoDepthLeft:
        q.depth.setLeft(p.getNormalized());
        break;
    case VelmarinParameter::lfoDepthRight:
        q.depth.setRight(p.getNormalized());
        break;
    case VelmarinParameter::lfoDepthLink:
        q.depth.setLinked(p.getBool());
        break;
    case VelmarinParameter::feedbackLeft:
        setFeedbackLeft(feedbackAmount());
        break;
    case VelmarinParameter::feedbackRight:
        setFeedbackRight(feedbackAmount());
        break;
    case VelmarinParameter::feedbackLink:
        setFeedbackLinked(p.getBool());
        break;
    case VelmarinParameter::lfoSync:
        applySyncMode(p.getInt());
        break;
    case VelmarinParameter::lfoPhaseShift:
        applyPhaseShift(p.getNormalized());
        break;
    case VelmarinParameter::lfoVoltageCurve:
        q.voltageCurve = p.getInt();
        break;
    case VelmarinParameter::bbdLength:
        q.bbdLengthIndex = p.getInt();
        applyBbdLength();
        break;
    case VelmarinParameter::bbdFrequencyRange:
        q.frequencyRange = static_cast<double>(p.getNormalized()) * frequencyRangeSpan + 1.0;
        break;
    case VelmarinParameter::lowCut:
        q.lowCutMode = p.getInt();
        break;
    case VelmarinParameter::gainLeft:
        q.gainLeft = p.getNormalized();
        break;
    case VelmarinParameter::gainRight:
        q.gainRight = p.getNormalized();
        break;
    case VelmarinParameter::autoMixMode:
        q.autoMixMode = p.getBool();
        break;
    case VelmarinParameter::fxAmount:
        q.fxAmount = p.getNormalized();
        break;
    case VelmarinParameter::outputVolume:
        q.outputVolume = p.getNormalized();
        q.outputGain = q.outputVolume * q.outputVolume * outputGainScale;
        break;
    case VelmarinParameter::processingQuality:
        applyQuality(p.getInt());
        break;
    default:
        break; // the frequency read-out, and anything else: nothing to store
    }
}

void VelmarinCore::setTempo(double bpm)
{
    if (lfoLeft.getTempo() == bpm)
        return;
    rateContext();
    lfoLeft.setTempo(bpm);
    lfoRight.setTempo(bpm);
}

void VelmarinCore::setPosition(double ppq)
{
    lfoLeft.setPosition(ppq);
    lfoRight.setPosition(ppq);
}

//==============================================================================
// The steps of a sample

void VelmarinCore::beginRun(bool bypassed)
{
    const float preampExponent = q.preampDb * VelmarinLaw::dbToExponent;
    controls.setTargets({static_cast<float>(std::pow(10.0, static_cast<double>(preampExponent))), q.crossfade,
                         q.offset.left(), q.offset.right(), q.depth.left(), q.depth.right(), q.gainLeft, q.gainRight,
                         static_cast<float>(q.frequencyRange), q.feedback.left(), q.feedback.right(), q.fxAmount,
                         q.feedbackCompensationLeft, q.feedbackCompensationRight, q.outputGain});

    if (bypassed)
        return;
    inputLowPass.setCoefficients(1.0f, 1.0f);
    if (q.lowCutMode == 1 || q.lowCutMode == 2)
    {
        const float m = q.lowCutMode == 1 ? 0.0f : 1.0f;
        lowCut.setCoefficients(m, m);
    }
}

template <bool stereo> inline void VelmarinCore::stepLfos() noexcept
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

inline double VelmarinCore::controlVoltage(int channel) const noexcept
{
    const double lfo = channel == 0 ? lfoSmoothedLeft : lfoSmoothedRight;
    return (controls.offset(channel) + controls.depth(channel) * lfo) * VelmarinLaw::voltageSpan +
           VelmarinLaw::lowestVoltage;
}

inline double VelmarinCore::clockFrequency(double voltage) const noexcept
{
    return voltageToFrequency(voltage, q.voltageCurve) * static_cast<double>(controls.frequencyRange()) *
           lines[0].getStageScale();
}

template <bool stereo> inline void VelmarinCore::armGate(const Pair& in) noexcept
{
    gate.arm(0, in[0]);
    if constexpr (stereo)
        gate.arm(1, in[1]);
}

template <bool stereo>
inline VelmarinCore::TickSteps VelmarinCore::clock(double sampleRate, float& frequency) const noexcept
{
    // The distance between two ticks, in host samples, per channel; the left clock is the read-out.
    const double frequencyLeft = clockFrequency(controlVoltage(0));
    frequency = static_cast<float>(frequencyLeft);
    return {sampleRate / frequencyLeft, stereo ? sampleRate / clockFrequency(controlVoltage(1)) : 0.0};
}

template <bool stereo> inline void VelmarinCore::conditionInput(Pair& x) noexcept
{
    x[0] = conditioners[0].process(x[0]);
    if constexpr (stereo)
        x[1] = conditioners[1].process(x[1]);
    // Two passes through one state: the second stands for the second sample of the filter's
    // double rate.
    inputLowPass.process(x[0], x[1]);
    inputLowPass.process(x[0], x[1]);
    if constexpr (! stereo)
        x[1] = 0.0f;
}

template <bool stereo> inline void VelmarinCore::writeDry(const Pair& x) noexcept
{
    const int length = lines[0].getRingLength();
    dryRing[0].write(inputRingIndex, length, x[0]);
    if constexpr (stereo)
        dryRing[1].write(inputRingIndex, length, x[1]);
}

template <bool stereo> inline VelmarinCore::Pair VelmarinCore::drive(const Pair& x) const noexcept
{
    // Preamp, M/S, crossfade, feedback, and the clipper around the bias.
    const float g = controls.preampGain();
    float a = x[0] * g;
    if constexpr (stereo)
    {
        float b = x[1] * g;
        if (q.msMode)
        {
            const float mid = (a + b) * 0.5f;
            const float side = (a - b) * 0.5f;
            a = mid;
            b = side;
        }
        const float c = controls.crossfade();
        const float left = a + (b - a) * c + feedbackSample[0] * controls.feedback(0) + lineBias;
        const float right = b + (a - b) * c + feedbackSample[1] * controls.feedback(1) + lineBias;
        return {clipLineInput(left) - lineBias, clipLineInput(right) - lineBias};
    }
    else
    {
        return {clipLineInput(a + feedbackSample[0] * controls.feedback(0) + lineBias) - lineBias, 0.0f};
    }
}

template <bool stereo, TickLoop loop>
inline VelmarinCore::Pair VelmarinCore::runLines(const Pair& lineInput, const TickSteps& tickStep) noexcept
{
    Pair wet{0.0f, 0.0f};
    forEachChannel<stereo>(
        [&](auto c)
        {
            lines[c].push(inputRingIndex, lineInput[c]);
            lines[c].template tick<loop>(tickStep[c], inputRingIndex, outputRingIndex);
            wet[c] = lines[c].read(outputRingIndex);
        });
    return wet;
}

template <bool stereo> inline VelmarinCore::Pair VelmarinCore::cutLow(Pair wet) noexcept
{
    // The mono run carries the right lane's last input over.
    if (q.lowCutMode != 0)
    {
        if constexpr (! stereo)
            wet[1] = lowCut.lastInput(1);
        lowCut.process(wet[0], wet[1]);
    }
    return wet;
}

template <bool stereo> inline VelmarinCore::Pair VelmarinCore::tapWet(const Pair& cut) noexcept
{
    // The low cut's output is the feedback at once; the mix hears it two samples later, after the
    // make-up shelf (auto mix) or the wet gains (plain mixer).
    Pair w{0.0f, 0.0f};
    forEachChannel<stereo>(
        [&](auto c)
        {
            lines[c].storeWet(outputRingIndex, cut[c]);
            feedbackSample[c] = cut[c];
            w[c] = lines[c].wetTap(outputRingIndex);
            if (q.autoMixMode)
            {
                if (q.lowCutMode == 2)
                    w[c] = makeUp[c].process(w[c]);
            }
            else
            {
                w[c] *= controls.gain(static_cast<int>(c));
            }
        });
    return w;
}

template <bool stereo> inline VelmarinCore::Pair VelmarinCore::mixOutput(Pair w) const noexcept
{
    if constexpr (stereo)
    {
        if (q.msMode)
            w = {w[0] + w[1], w[0] - w[1]};
    }

    // The dry signal is the previous sample.
    const int dryIndex = inputRingIndex + lines[0].getRingLength() - 1;
    Pair out{0.0f, 0.0f};
    forEachChannel<stereo>(
        [&](auto c) { out[c] = mix(static_cast<int>(c), w[c], dryRing[c].read(dryIndex)) * controls.outputGain(); });
    return out;
}

template <bool stereo> inline void VelmarinCore::fadeAndMeter(Pair out, float* outLeft, float* outRight, int n) noexcept
{
    out[0] = gate.fade(0, out[0]);
    outLeft[n] = out[0];
    meters[0].take(out[0], meterTable);
    if constexpr (stereo)
    {
        out[1] = gate.fade(1, out[1]);
        outRight[n] = out[1];
        meters[1].take(out[1], meterTable);
    }
}

inline float VelmarinCore::mix(int channel, float wet, float dry) const noexcept
{
    if (! q.autoMixMode)
        return (wet - dry) * controls.fxAmount() + dry;

    const float feedback = controls.feedback(channel);
    if (feedback >= 0.0f)
        return (wet * controls.compensation(channel) + dry) * autoMixScale;

    // Negative feedback fades the dry part.
    const float t = feedback + 1.0f;
    const float fade = (t * t) * (t * t);
    return (dry * fade + wet * VelmarinLaw::unityCompensation) * autoMixScale;
}

inline void VelmarinCore::advanceRings() noexcept
{
    inputRingIndex = (inputRingIndex + 1) & (lines[0].getRingLength() - 1);
    outputRingIndex = (outputRingIndex + 1) & 63;
}

void VelmarinCore::endRun(float frequency, bool mono) noexcept
{
    const float left = meters[0].level();
    peakLeft.store(left);
    peakRight.store(mono ? left : meters[1].level());
    currentBbdFrequency.store(frequency);
}

//==============================================================================
// The run

int VelmarinCore::runShut(const float* inLeft, const float* inRight, float* outLeft, float* outRight, int n,
                          int numSamples) noexcept
{
    // With both channels shut, a sample does only what keeps the modulation, the gate and the meters
    // moving as a running sample would: the line, the filters and the mix stand still and the output
    // is silence. Smoothers that have come to rest stay where they are, so they are not stepped.
    const bool smoothersAtRest = controls.isAtRest();
    for (; n < numSamples; ++n)
    {
        if (std::abs(inLeft[n]) > SilenceGate::armThreshold || std::abs(inRight[n]) > SilenceGate::armThreshold)
            break;
        if (! smoothersAtRest)
            controls.step();
        stepLfos<true>();
        gate.idle(0);
        gate.idle(1);
        outLeft[n] = 0.0f;
        outRight[n] = 0.0f;
        meters[0].take(0.0f, meterTable);
        meters[1].take(0.0f, meterTable);
        advanceRings();
    }
    return n;
}

template <bool stereo, TickLoop loop, bool shortcut>
void VelmarinCore::run(const float* inLeft, const float* inRight, float* outLeft, float* outRight, int numSamples)
{
    const double sampleRate = rateContext().sampleRate;
    float frequency = 0.0f;

    for (int n = 0; n < numSamples; ++n)
    {
        if constexpr (stereo && shortcut)
        {
            if (gate.isShut())
            {
                n = runShut(inLeft, inRight, outLeft, outRight, n, numSamples);
                if (n == numSamples)
                    break;
            }
        }

        // Both inputs are read before any output is written: the outputs may be the inputs.
        Pair in{inLeft[n], stereo ? inRight[n] : 0.0f};
        Pair out{0.0f, 0.0f};

        armGate<stereo>(in);
        controls.step();
        stepLfos<stereo>();

        if (! gate.isShut())
        {
            const TickSteps tickStep = clock<stereo>(sampleRate, frequency);
            if (q.autoMixMode)
                conditionInput<stereo>(in);
            writeDry<stereo>(in);
            const Pair wet = runLines<stereo, loop>(drive<stereo>(in), tickStep);
            out = mixOutput<stereo>(tapWet<stereo>(cutLow<stereo>(wet)));
        }

        fadeAndMeter<stereo>(out, outLeft, outRight, n);
        advanceRings();
    }

    endRun(frequency, ! stereo);
}

template <bool stereo>
void VelmarinCore::runWith(const float* inLeft, const float* inRight, float* outLeft, float* outRight, int numSamples)
{
    // The choice of loop is made here, once per run, so that the shipped sample path has no branch
    // for it. The shortcut for a shut gate only exists in stereo: a mono run never shuts.
    if (tickLoop == TickLoop::plain)
        run<stereo, TickLoop::plain, true>(inLeft, inRight, outLeft, outRight, numSamples);
    else if (stereo && ! shutShortcut)
        run<stereo, TickLoop::fast, false>(inLeft, inRight, outLeft, outRight, numSamples);
    else
        run<stereo, TickLoop::fast, true>(inLeft, inRight, outLeft, outRight, numSamples);
}

template <bool stereo>
void VelmarinCore::runBypassed(const float* inLeft, const float* inRight, float* outLeft, float* outRight,
                               int numSamples)
{
    // A one-sample delay through the dry ring keeps the reported latency true; everything else stands.
    constexpr int channels = stereo ? 2 : 1;
    const int ringLength = lines[0].getRingLength();
    for (int n = 0; n < numSamples; ++n)
    {
        const float in[2] = {inLeft[n], stereo ? inRight[n] : 0.0f};
        controls.step();

        const int dryIndex = inputRingIndex + ringLength - 1;
        for (int c = 0; c < channels; ++c)
        {
            auto& ring = dryRing[static_cast<size_t>(c)];
            ring.write(inputRingIndex, ringLength, in[c]);
            (c == 0 ? outLeft : outRight)[n] = ring.read(dryIndex);
            meters[static_cast<size_t>(c)].take(0.0f, meterTable);
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
        runWith<true>(inLeft, inRight, outLeft, outRight, numSamples);
}

void VelmarinCore::processMono(float* buffer, int numSamples, bool bypassed)
{
    beginRun(bypassed);
    if (bypassed)
        runBypassed<false>(buffer, nullptr, buffer, nullptr, numSamples);
    else
        runWith<false>(buffer, nullptr, buffer, nullptr, numSamples);
}
