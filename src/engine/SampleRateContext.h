#pragma once

/** Plain record of the values derived from the sample rate, set at prepare and read by the core.
    Coefficients tuned at 44100 Hz are scaled by speedScale = 2 * (1 - 0.5^(44100 / sr)), which
    is exactly 1 at 44100. Thread: written at prepare on the host's thread, read by the core. */
struct SampleRateContext
{
    double sampleRate = -1.0;
    float sampleRateF = 0.0f;
    double samplePeriod = 0.0;
    float samplePeriodF = 0.0f;
    double halfSamplePeriod = 0.0;
    double rateRatio = 0.0;
    float rateRatioF = 0.0f;
    double speedScale = 0.0;
    float speedScaleF = 0.0f;
    double inverseRatio = 0.0;
    double expandScale = 0.0;
    double expandScaleRounded = 0.0;
    double decayScale = 0.0;
    float decayScaleF = 0.0f;
    double inverseDecayScale = 0.0;
    float inverseDecayScaleF = 0.0f;
    double speedScaleCubed = 0.0;
    float speedScaleCubedF = 0.0f;
    double nyquist = 0.0;
    float nyquistF = 0.0f;
    double smoothStep = 0.0;
    float smoothStepF = 0.0f;
    float smoothStepFast = 0.0f;
    double slowDecay = 0.0;
    float slowDecayF = 0.0f;
    float smoothStepSlow = 0.0f;
    float samplesPerMsF = 0.0f;
    double samplesPerMs = 0.0;
    double smoothStepAlt = 0.0;
    float smoothStepAltF = 0.0f;
    /** 0 at 44100, 1 at 48000, 2 at 88200, 3 at 96000, 4 at 192000; kept at any other rate. */
    int rateClass = 0;

    /** Derives every field from a rate. True when the rate differs from the stored one; false, with
        nothing changed, when it is equal. */
    bool set(double newSampleRate);
};
