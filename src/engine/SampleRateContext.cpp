#include "SampleRateContext.h"

#include <cmath>

bool SampleRateContext::set(double sr)
{
    if (sr == sampleRate)
        return false;

    const double q = 44100.0 / sr;
    const double r = sr * 2.2675736961451248e-05;
    const double s = 2.0 * (1.0 - std::pow(0.5, q));
    const double u = s * 0.00010257588085804681 / (1.0 - std::exp(-0.00010258114212350273 / r));

    sampleRate = sr;
    sampleRateF = static_cast<float>(sr);
    samplePeriod = 1.0 / sr;
    samplePeriodF = static_cast<float>(1.0 / sr);
    halfSamplePeriod = 1.0 / (2.0 * sr);
    rateRatio = r;
    rateRatioF = static_cast<float>(r);
    speedScale = s;
    speedScaleF = static_cast<float>(s);
    inverseRatio = q;
    expandScale = std::pow(2.0, q) - 1.0;
    expandScaleRounded = static_cast<double>(static_cast<float>(expandScale));
    decayScale = u;
    decayScaleF = static_cast<float>(u);
    inverseDecayScale = 1.0 / u;
    inverseDecayScaleF = static_cast<float>(1.0 / u);
    speedScaleCubed = s * s * s;
    speedScaleCubedF = static_cast<float>(speedScaleCubed);
    nyquist = sr / 2.0;
    nyquistF = static_cast<float>(nyquist);
    smoothStep = 0.002 * s;
    smoothStepF = static_cast<float>(smoothStep);
    smoothStepFast = static_cast<float>(0.005 * s);
    slowDecay = 1.0 - 0.0001 * s;
    slowDecayF = static_cast<float>(slowDecay);
    smoothStepSlow = static_cast<float>(0.0005 * s);
    samplesPerMsF = static_cast<float>(sr * 0.001);
    samplesPerMs = sr * 0.001;
    smoothStepAlt = 0.002 * s;
    smoothStepAltF = static_cast<float>(smoothStepAlt);

    if (sr == 44100.0)
        rateClass = 0;
    else if (sr == 48000.0)
        rateClass = 1;
    else if (sr == 88200.0)
        rateClass = 2;
    else if (sr == 96000.0)
        rateClass = 3;
    else if (sr == 192000.0)
        rateClass = 4;
    return true;
}
