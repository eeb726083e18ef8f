#pragma once

#include <juce_audio_basics/juce_audio_basics.h>
#include <juce_graphics/juce_graphics.h>

/** A picture of a signal's spectrum over time: short-time Fourier magnitudes of the channels'
    average, on a logarithmic frequency axis from 20 Hz to 20 kHz (or the Nyquist frequency), with
    a colour scale from -100 to 0 dBFS, labelled time and frequency axes and a colour bar.
    Used by the render tool's --spectrogram option to show a sweep at a glance. */
class Spectrogram
{
public:
    static constexpr int plotWidth = 960;
    static constexpr int plotHeight = 480;

    /** Draws the picture; `title` is printed above the plot. */
    static juce::Image render(const juce::AudioBuffer<float>& audio, double sampleRate, const juce::String& title);

    /** The picture as PNG bytes; false when it cannot be encoded. */
    static bool encodePng(const juce::Image& image, juce::MemoryBlock& png);

    /** In-place radix-2 FFT of n = re.size() points (a power of two). */
    static void fft(std::vector<double>& re, std::vector<double>& im);

    /** The colour for a level from -100 (black) through blue, red and yellow to 0 dB (white). */
    static juce::Colour colourForDecibels(double dB);
};
