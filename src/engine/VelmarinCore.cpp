#include "VelmarinCore.h"

#include "../parameters/Parameter.h"

#include <cmath>
#include <cstring>

namespace
{
constexpr double pi = 3.14159265358979323846;
} // namespace

VelmarinCore::VelmarinCore() = default;

float VelmarinCore::feedbackCompensation(float x)
{
    return 3.0990567f * std::pow(x, 1.5f) - 2.2853994f * x * x + 1.3748739f;
}

double VelmarinCore::lfoRateForNormalized(float v)
{
    return static_cast<double>(0.025037454f * std::exp(7.3762617f * v));
}

void VelmarinCore::reset(bool)
{
    peakLeft.store(0.0f);
    peakRight.store(0.0f);
}

void VelmarinCore::updateRightLfo()
{
    // The right LFO follows the left one while the rates are linked.
}

void VelmarinCore::parameterChanged(Parameter& p)
{
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
            q.rateLeft = lfoRateForNormalized(p.getNormalized());
            updateRightLfo();
            break;
        case 7:
            q.rateRight = lfoRateForNormalized(p.getNormalized());
            updateRightLfo();
            break;
        case 8:
        case 9:
        {
            const int value = p.getInt();
            if (value < 0 || value > 10)
                break;
            (p.getIndex() == 8 ? q.noteCodeLeft : q.noteCodeRight) = value + 1;
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
        case 17: q.syncMode = p.getInt(); break;
        case 18: q.phaseShift = static_cast<double>(p.getNormalized()) * pi; break;
        case 19: q.voltageCurve = p.getInt(); break;
        case 20: q.bbdLengthIndex = p.getInt(); break;
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
        case 29: q.quality = p.getInt(); break;
        default: break; // 28, the frequency read-out, and anything else: nothing to store
    }
}

void VelmarinCore::setTempo(double bpm)
{
    q.tempo = bpm;
}

void VelmarinCore::setPosition(double)
{
}

void VelmarinCore::processStereo(const float* inLeft, const float* inRight, float* outLeft, float* outRight,
                                 int numSamples, bool)
{
    // Until the signal path lands, a run passes its input through unchanged. Reading both inputs
    // before writing keeps this right when the outputs are the inputs, or both inputs are one channel.
    for (int i = 0; i < numSamples; ++i)
    {
        const float left = inLeft[i];
        const float right = inRight[i];
        outLeft[i] = left;
        outRight[i] = right;
    }
}

void VelmarinCore::processMono(float*, int, bool)
{
}
