#pragma once

#include "MarrowgateEffectCore.h"

/** Velmarin's signal path. `parameterChanged` turns each parameter into the engine quantities it
    drives (links, stored left/right pairs, feedback compensation); the run works on those.
    Thread: as MarrowgateEffectCore (all calls under the effect's core lock). */
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

    /** Engine quantities, as the parameters last set them. Public for the tests and the editor's
        read-outs; only the core writes them. */
    struct Quantities
    {
        float preampDb = 0.0f;
        bool msMode = false;
        float crossfade = 0.0f;
        float offsetStoredLeft = 0.0f, offsetStoredRight = 0.0f;
        float offsetLeft = 0.0f, offsetRight = 0.0f;
        bool offsetLinked = true;
        double rateLeft = 0.0, rateRight = 0.0;
        int noteCodeLeft = 8, noteCodeRight = 8;
        bool rateLinked = true;
        float depthStoredLeft = 0.0f, depthStoredRight = 0.0f;
        float depthLeft = 0.0f, depthRight = 0.0f;
        bool depthLinked = true;
        float feedbackStoredLeft = 0.0f, feedbackStoredRight = 0.0f;
        float feedbackLeft = 0.0f, feedbackRight = 0.0f;
        float feedbackCompensationLeft = 0.0f, feedbackCompensationRight = 0.0f;
        bool feedbackLinked = true;
        int syncMode = 0;
        double phaseShift = 0.0;
        int voltageCurve = 0;
        int bbdLengthIndex = 4;
        double frequencyRange = 4.0;
        int lowCutMode = 2;
        float gainLeft = 1.0f, gainRight = 1.0f;
        bool autoMixMode = true;
        float fxAmount = 0.5f;
        float outputVolume = 0.5f, outputGain = 1.0f;
        int quality = 1;
        double tempo = 120.0;
    };

    const Quantities& getQuantities() const noexcept { return q; }

private:
    void updateRightLfo();

    Quantities q;
};
