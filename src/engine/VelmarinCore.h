#pragma once

#include "BbdLine.h"
#include "InputConditioner.h"
#include "LfoOscillator.h"
#include "LinkedPair.h"
#include "MarrowgateEffectCore.h"
#include "PeakMeter.h"
#include "SilenceGate.h"
#include "SincTable.h"
#include "SmoothedControls.h"
#include "StereoBiquad.h"

#include <array>
#include <atomic>
#include <cstdint>

/** Velmarin's signal path: a bucket-brigade delay line that runs its own clock inside the host's
    samples, swept by two triangle LFOs, with preamp, M/S, crossfade, feedback through an
    asymmetric clipper, a low cut and two mix regimes around it (docs/ENGINE.md walks through it).

    The core is a composition of small parts, one or two of each (channel 0 is left or mid,
    channel 1 right or side): `SmoothedControls` (the continuous controls), two `LfoOscillator`s,
    a `SilenceGate`, two `InputConditioner`s and the input low-pass, two `BbdLine`s, the low cut,
    two `LowEndMakeUp` shelves and two `PeakMeter`s, plus the dry ring.

    `parameterChanged` turns each parameter into the engine quantities it drives; a run reads them
    once as the targets of its smoothers and then works sample by sample.
    Thread: as MarrowgateEffectCore: every call under the effect's core lock; the meters and
    `currentBbdFrequency` are atomics written once per run and read by the editor without it. */
class VelmarinCore : public MarrowgateEffectCore
{
public:
    VelmarinCore();

    void reset(bool sampleRateChanged) override;
    void parameterChanged(Parameter& parameter) override;
    void setTempo(double bpm) override;
    void setPosition(double ppq) override;
    void processStereo(const float* inLeft, const float* inRight, float* outLeft, float* outRight, int numSamples,
                       bool bypassed) override;
    void processMono(float* buffer, int numSamples, bool bypassed) override;

    /** The feedback compensation for a feedback amount x in 0..0.95, in single precision. */
    static float feedbackCompensation(float x);
    /** The free LFO rate in Hz for a normalized value, computed in float and widened. */
    static double lfoRateForNormalized(float v);
    /** The BBD clock in Hz that a control voltage (0.661..32.661 V) gives on a voltage curve
        (0 "Mistress", 1 "Linear", 2 "Concave"; any other value counts as "Mistress"), before the
        frequency range and the stage count scale it. */
    static double voltageToFrequency(double voltage, int curve) noexcept;

    /** Engine quantities as the parameters last set them: the targets of the smoothers and the
        switches that act at once. Public for the tests; only the core writes them. */
    struct Quantities
    {
        float preampDb = 0.0f;
        bool msMode = false;
        float crossfade = 0.0f;
        LinkedPair<float> offset;
        int noteCodeRight = 8;
        float rateRight = 0.0f;
        bool rateLinked = true;
        LinkedPair<float> depth;
        /** -0.95..0.95, with the compensation of the last amount that was not negative. */
        LinkedPair<float> feedback;
        float feedbackCompensationLeft = 0.0f, feedbackCompensationRight = 0.0f;
        int voltageCurve = 0;
        int bbdLengthIndex = 4;
        double frequencyRange = 4.0;
        int lowCutMode = 2;
        float gainLeft = 1.0f, gainRight = 1.0f;
        bool autoMixMode = true;
        float fxAmount = 0.5f;
        float outputVolume = 0.5f, outputGain = 1.0f;
    };

    const Quantities& getQuantities() const noexcept { return q; }
    const LfoOscillator& getLfo(int channel) const noexcept { return channel == 0 ? lfoLeft : lfoRight; }
    int getTapCount() const noexcept { return lines[0].getTaps(); }
    int getStageCount() const noexcept { return lines[0].getStages(); }
    const SilenceGate& getGate() const noexcept { return gate; }

    using TickLoop = ::TickLoop;
    /** The tick loop of the next runs; the product always runs `fast`. The choice is made once per
        run, not per sample. */
    void setTickLoop(TickLoop loop) noexcept { tickLoop = loop; }
    /** For the tests: false makes a stereo run take the full sample also while both gate channels
        are shut, instead of the shortcut that only keeps the modulation, the gate and the meters
        moving. The output is the same either way. */
    void setShutShortcut(bool on) noexcept { shutShortcut = on; }
    /** Ticks run since construction, both lines together: the unit of the engine's work. */
    std::uint64_t getTicksRun() const noexcept { return lines[0].getTicksRun() + lines[1].getTicksRun(); }

    /** Clock frequency of the left (or mid) line in the last run's last running sample; 0 when the
        run was bypassed or the gate was shut throughout. */
    std::atomic<float> currentBbdFrequency{0.0f};

private:
    const SampleRateContext& rateContext() noexcept;
    void updateRightLfo();
    void setLfoSync(bool on);
    void applySyncMode(int mode);
    void applyPhaseShift(float v);
    /** 16 << "BBD Length", 16..512. */
    int stageCount() const noexcept;
    void applyBbdLength();
    void applyQuality(int index);
    void applySampleRate(const SampleRateContext& ctx);
    void setFeedbackLeft(float x);
    void setFeedbackRight(float x);
    void setFeedbackLinked(bool on);

    void beginRun(bool bypassed);
    double controlVoltage(int channel) const noexcept;
    double clockFrequency(double voltage) const noexcept;
    template <bool stereo> void stepLfos() noexcept;
    // The steps of one running sample, in their order; channel 0 only in mono.
    using Pair = std::array<float, 2>;
    using TickSteps = std::array<double, 2>;
    template <bool stereo> void armGate(const Pair& in) noexcept;
    template <bool stereo> TickSteps clock(double sampleRate, float& frequency) const noexcept;
    template <bool stereo> void conditionInput(Pair& x) noexcept;
    template <bool stereo> void writeDry(const Pair& x) noexcept;
    template <bool stereo> Pair drive(const Pair& x) const noexcept;
    template <bool stereo, TickLoop loop> Pair runLines(const Pair& lineInput, const TickSteps& tickStep) noexcept;
    template <bool stereo> Pair cutLow(Pair wet) noexcept;
    template <bool stereo> Pair tapWet(const Pair& cut) noexcept;
    template <bool stereo> Pair mixOutput(Pair w) const noexcept;
    template <bool stereo> void fadeAndMeter(Pair out, float* outLeft, float* outRight, int n) noexcept;
    float mix(int channel, float wet, float dry) const noexcept;
    void advanceRings() noexcept;
    void endRun(float frequency, bool mono) noexcept;

    /** Runs stereo samples from n on while both gate channels are shut; returns the first sample
        whose input opens the gate, or numSamples. */
    int runShut(const float* inLeft, const float* inRight, float* outLeft, float* outRight, int n,
                int numSamples) noexcept;
    template <bool stereo, TickLoop loop, bool shortcut>
    void run(const float* inLeft, const float* inRight, float* outLeft, float* outRight, int numSamples);
    template <bool stereo>
    void runWith(const float* inLeft, const float* inRight, float* outLeft, float* outRight, int numSamples);
    template <bool stereo>
    void runBypassed(const float* inLeft, const float* inRight, float* outLeft, float* outRight, int numSamples);

    Quantities q;
    SampleRateContext fallbackContext; // 44100 Hz, until the plug-in hands over its own
    SampleRateContext doubleRateContext;

    // Modulation.
    LfoOscillator lfoLeft, lfoRight;
    double lfoSmoothedLeft = 0.0, lfoSmoothedRight = 0.0;
    double lfoSmoothCoefficient = 0.0;

    // Smoothing and gate.
    SmoothedControls controls;
    SilenceGate gate;

    // The lines, their tables and the dry ring, which shares the lines' input ring index.
    StepTable stepTable{};
    std::array<SincTable, 4> sincTables;
    std::array<BbdLine, 2> lines;
    std::array<TripleRing, 2> dryRing{};
    int inputRingIndex = 0;
    int outputRingIndex = 0;

    // Filters and conditioning.
    std::array<InputConditioner, 2> conditioners{};
    StereoBiquad inputLowPass;
    StereoBiquad lowCut;
    std::array<LowEndMakeUp, 2> makeUp{};
    std::array<float, 2> feedbackSample{};

    std::array<PeakMeter, 2> meters{};

    TickLoop tickLoop = TickLoop::fast;
    bool shutShortcut = true;
};
