#pragma once

#include "LfoOscillator.h"
#include "MarrowgateEffectCore.h"
#include "SilenceGate.h"
#include "SincTable.h"
#include "SmootherBank.h"
#include "StereoBiquad.h"

#include <array>
#include <atomic>
#include <cstdint>

/** Velmarin's signal path: a bucket-brigade delay line that runs its own clock inside the host's
    samples, swept by two triangle LFOs, with preamp, M/S, crossfade, feedback through an
    asymmetric clipper, a low cut and two mix regimes around it (docs/ENGINE.md walks through it).

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
    void processStereo(const float* inLeft, const float* inRight, float* outLeft, float* outRight,
                       int numSamples, bool bypassed) override;
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
        float offsetStoredLeft = 0.0f, offsetStoredRight = 0.0f;
        float offsetLeft = 0.0f, offsetRight = 0.0f;
        bool offsetLinked = true;
        int noteCodeRight = 8;
        float rateRight = 0.0f;
        bool rateLinked = true;
        float depthStoredLeft = 0.0f, depthStoredRight = 0.0f;
        float depthLeft = 0.0f, depthRight = 0.0f;
        bool depthLinked = true;
        float feedbackStoredLeft = 0.0f, feedbackStoredRight = 0.0f;
        float feedbackLeft = 0.0f, feedbackRight = 0.0f;
        float feedbackCompensationLeft = 0.0f, feedbackCompensationRight = 0.0f;
        bool feedbackLinked = true;
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
    int getTapCount() const noexcept { return tapCount; }
    int getStageCount() const noexcept { return stageCount; }
    const SilenceGate& getGate() const noexcept { return gate; }

    /** The tick loop in use. `fast` works four taps at a time and two or four ticks side by side; `plain`
        is the straightforward scalar loop of the same arithmetic (one running sum), kept for the
        benchmarks and the tests that hold the fast loop to it. Both give the same output within
        float rounding; the product always runs `fast`. */
    enum class TickLoop
    {
        fast,
        plain
    };
    void setTickLoop(TickLoop loop) noexcept { tickLoop = loop; }
    /** Ticks run since construction, both lines together: the unit of the engine's work. */
    std::uint64_t getTicksRun() const noexcept { return ticksRun; }

    /** Clock frequency of the left (or mid) line in the last run's last running sample; 0 when the
        run was bypassed or the gate was shut throughout. */
    std::atomic<float> currentBbdFrequency { 0.0f };

private:
    // The input and dry rings keep their samples in three copies, so that no read needs a wrap. Up
    // to about 365 kHz a ring holds 128 samples; above, the interpolator's read reaches further
    // back than that and the ring holds 256 (enough for 768 kHz, the highest rate there is).
    static constexpr int shortRingLength = 128;
    static constexpr int longRingLength = 256;
    static constexpr int inputRingSize = 3 * longRingLength;
    static constexpr int lineSize = 3072;
    static constexpr int outputRingSize = 200;  // 64 samples in two copies and 8 more

    const SampleRateContext& rateContext() noexcept;
    void updateRightLfo();
    void setLfoSync(bool on);
    void applySyncMode(int mode);
    void applyPhaseShift(float v);
    void applyBbdLength();
    void applyQuality(int index);
    void applySampleRate(const SampleRateContext& ctx);

    void beginRun(bool bypassed);
    void stepSmoothers() noexcept;
    double clockFrequency(double voltage) const noexcept;
    void condition(int channel, float& x) noexcept;
    void runTicks(int channel, double tickStep, int ringBase, int o) noexcept;
    template <int taps, int group>
    void runTicksFast(int channel, double tickStep, int ringBase, int o) noexcept;
    void runTicksPlain(int channel, double tickStep, int ringBase, int o) noexcept;
    float rawWet(int channel, int o) noexcept;
    float mix(int channel, float wet, float dry) const noexcept;
    void meter(int channel, float output) noexcept;
    void advanceRings() noexcept;
    void endRun(float frequency, bool mono) noexcept;

    template <bool stereo>
    void stepLfos() noexcept;
    /** Runs stereo samples from n on while both gate channels are shut; returns the first sample
        whose input opens the gate, or numSamples. */
    int runShut(const float* inLeft, const float* inRight, float* outLeft, float* outRight, int n,
                int numSamples) noexcept;
    template <bool stereo>
    void run(const float* inLeft, const float* inRight, float* outLeft, float* outRight, int numSamples);
    template <bool stereo>
    void runBypassed(const float* inLeft, const float* inRight, float* outLeft, float* outRight, int numSamples);

    Quantities q;
    SampleRateContext fallbackContext;  // 44100 Hz, until the plug-in hands over its own
    SampleRateContext doubleRateContext;

    // Modulation.
    LfoOscillator lfoLeft, lfoRight;
    double lfoSmoothedLeft = 0.0, lfoSmoothedRight = 0.0;
    double lfoSmoothCoefficient = 0.0;

    // Smoothing and gate.
    SmootherBank bank1, bank2, bank3, bank4;
    SilenceGate gate;

    // The line and its rings (one row per channel: left or mid, right or side).
    std::array<std::array<float, inputRingSize>, 2> inputRing {};
    std::array<std::array<float, inputRingSize>, 2> dryRing {};
    int inputRingIndex = 0;
    int ringLength = shortRingLength;  // samples in each copy, set with the rate
    std::array<std::array<double, lineSize>, 2> line {};
    std::array<int, 2> lineIndex {};
    int stageCount = 256;
    double stageScale = 0.5;
    std::array<double, 2> tickPhase {};
    std::array<std::array<float, outputRingSize>, 2> stepRing {};
    std::array<std::array<float, outputRingSize>, 2> levelRing {};
    int outputRingIndex = 0;
    std::array<double, 2> lastOutput {};
    std::array<double, 2> lastDelta {};
    StepTable stepTable {};
    std::array<SincTable, 4> sincTables;
    const float* currentTable = nullptr;
    int tapCount = 4, tapOffset = 0;
    int readDelayWhole = 1;
    double readDelayFraction = 1.0;

    // Filters and conditioning.
    StereoBiquad inputLowPass;
    StereoBiquad lowCut;
    std::array<float, 2> inputHighPassState {}, inputPrevious {};
    std::array<float, 2> inputShelfState {}, outputShelfState {};
    float inputHighPassCoefficient = 0.0f, inputHighPassGain = 0.0f;
    float inputShelfCoefficient = 0.0f, outputShelfCoefficient = 0.0f;
    std::array<float, 2> feedbackSample {};

    // Meters.
    std::array<double, 2> peakState {}, peakLast {};
    double peakDecay = 0.9999;

    TickLoop tickLoop = TickLoop::fast;
    std::uint64_t ticksRun = 0;
};
