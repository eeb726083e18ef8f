#include "Spectrogram.h"

#include "io/SafeFile.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr double floorDb = -100.0;
constexpr double lowestHz = 20.0;
constexpr int marginLeft = 70, marginRight = 110, marginTop = 40, marginBottom = 50;

int fftSizeFor(double sampleRate)
{
    // About 90 ms of signal per column: enough to resolve the comb's notches at low frequencies.
    int n = 1024;
    while (n < sampleRate * 0.09)
        n *= 2;
    return n;
}
} // namespace

void Spectrogram::fft(std::vector<double>& re, std::vector<double>& im)
{
    const size_t n = re.size();
    for (size_t i = 1, j = 0; i < n; ++i)
    {
        size_t bit = n >> 1;
        for (; (j & bit) != 0; bit >>= 1)
            j ^= bit;
        j ^= bit;
        if (i < j)
        {
            std::swap(re[i], re[j]);
            std::swap(im[i], im[j]);
        }
    }
    for (size_t length = 2; length <= n; length <<= 1)
    {
        const double angle = -2.0 * juce::MathConstants<double>::pi / static_cast<double>(length);
        for (size_t start = 0; start < n; start += length)
        {
            for (size_t k = 0; k < length / 2; ++k)
            {
                const double wr = std::cos(angle * static_cast<double>(k));
                const double wi = std::sin(angle * static_cast<double>(k));
                const size_t a = start + k, b = start + k + length / 2;
                const double xr = re[b] * wr - im[b] * wi;
                const double xi = re[b] * wi + im[b] * wr;
                re[b] = re[a] - xr;
                im[b] = im[a] - xi;
                re[a] += xr;
                im[a] += xi;
            }
        }
    }
}

juce::Colour Spectrogram::colourForDecibels(double dB)
{
    const auto t = static_cast<float>(std::clamp((dB - floorDb) / -floorDb, 0.0, 1.0));
    static const juce::Colour stops[] = {juce::Colour(0xff000000), juce::Colour(0xff1b0c5a), juce::Colour(0xff7a1c8c),
                                         juce::Colour(0xffd8413f), juce::Colour(0xfff9a825), juce::Colour(0xffffffe0)};
    const float position = t * 5.0f;
    const int i = std::min(static_cast<int>(position), 4);
    return stops[i].interpolatedWith(stops[i + 1], position - static_cast<float>(i));
}

juce::Image Spectrogram::render(const juce::AudioBuffer<float>& audio, double sampleRate, const juce::String& title)
{
    const int width = marginLeft + plotWidth + marginRight;
    const int height = marginTop + plotHeight + marginBottom;
    juce::Image image(juce::Image::RGB, width, height, true);
    juce::Graphics g(image);
    g.fillAll(juce::Colour(0xff202024));

    const int length = audio.getNumSamples();
    const int channels = std::max(1, audio.getNumChannels());
    const int n = fftSizeFor(sampleRate);
    const double topHz = std::min(20000.0, sampleRate * 0.5);
    const double logSpan = std::log(topHz / lowestHz);

    // Columns of the plot map to frames centred on evenly spaced times.
    std::vector<double> window(static_cast<size_t>(n));
    double windowSum = 0.0;
    for (int i = 0; i < n; ++i)
    {
        window[static_cast<size_t>(i)] = 0.5 - 0.5 * std::cos(2.0 * juce::MathConstants<double>::pi * i / n);
        windowSum += window[static_cast<size_t>(i)];
    }

    std::vector<double> re(static_cast<size_t>(n)), im(static_cast<size_t>(n)), magnitudeDb(static_cast<size_t>(n / 2));
    for (int x = 0; x < plotWidth && length > 0; ++x)
    {
        const int centre = static_cast<int>((static_cast<double>(x) + 0.5) / plotWidth * length);
        for (int i = 0; i < n; ++i)
        {
            const int s = centre - n / 2 + i;
            double value = 0.0;
            if (s >= 0 && s < length)
                for (int ch = 0; ch < audio.getNumChannels(); ++ch)
                    value += audio.getSample(ch, s);
            re[static_cast<size_t>(i)] = value / channels * window[static_cast<size_t>(i)];
            im[static_cast<size_t>(i)] = 0.0;
        }
        fft(re, im);
        for (int k = 0; k < n / 2; ++k)
        {
            const double magnitude =
                std::hypot(re[static_cast<size_t>(k)], im[static_cast<size_t>(k)]) * 2.0 / windowSum;
            magnitudeDb[static_cast<size_t>(k)] = 20.0 * std::log10(magnitude + 1e-12);
        }

        for (int y = 0; y < plotHeight; ++y)
        {
            // Each pixel row spans a band of frequencies: show the strongest bin in it.
            const double upper = lowestHz * std::exp(logSpan * (plotHeight - y) / plotHeight);
            const double lower = lowestHz * std::exp(logSpan * (plotHeight - y - 1) / plotHeight);
            int first = static_cast<int>(std::floor(lower * n / sampleRate));
            int last = static_cast<int>(std::ceil(upper * n / sampleRate));
            first = std::clamp(first, 1, n / 2 - 1);
            last = std::clamp(last, first, n / 2 - 1);
            double level = floorDb;
            for (int k = first; k <= last; ++k)
                level = std::max(level, magnitudeDb[static_cast<size_t>(k)]);
            image.setPixelAt(marginLeft + x, marginTop + y, colourForDecibels(level));
        }
    }

    // Axes, ticks and labels.
    const juce::Colour ink(0xffd8d8d8);
    g.setColour(ink);
    g.drawRect(marginLeft - 1, marginTop - 1, plotWidth + 2, plotHeight + 2);
    g.setFont(13.0f);
    for (double hz : {20.0, 50.0, 100.0, 200.0, 500.0, 1000.0, 2000.0, 5000.0, 10000.0, 20000.0})
    {
        if (hz > topHz)
            break;
        const int y =
            marginTop + plotHeight - static_cast<int>(std::lround(std::log(hz / lowestHz) / logSpan * plotHeight));
        g.drawHorizontalLine(y, static_cast<float>(marginLeft - 6), static_cast<float>(marginLeft));
        const juce::String text =
            hz >= 1000.0 ? juce::String(hz / 1000.0, 0) + "k" : juce::String(static_cast<int>(hz));
        g.drawText(text, 0, y - 8, marginLeft - 10, 16, juce::Justification::centredRight);
    }
    const double seconds = sampleRate > 0.0 ? length / sampleRate : 0.0;
    double tickStep = 0.1;
    for (double candidate : {0.1, 0.2, 0.5, 1.0, 2.0, 5.0, 10.0, 20.0, 30.0, 60.0, 120.0, 300.0})
    {
        tickStep = candidate;
        if (seconds / candidate <= 12.0)
            break;
    }
    for (double t = 0.0; seconds > 0.0 && t <= seconds + 1e-9; t += tickStep)
    {
        const int x = marginLeft + static_cast<int>(std::lround(t / seconds * plotWidth));
        g.drawVerticalLine(x, static_cast<float>(marginTop + plotHeight),
                           static_cast<float>(marginTop + plotHeight + 6));
        g.drawText(juce::String(t, tickStep < 1.0 ? 1 : 0), x - 30, marginTop + plotHeight + 8, 60, 16,
                   juce::Justification::centred);
    }
    g.drawText("Time (s)", marginLeft, height - 22, plotWidth, 18, juce::Justification::centred);
    g.addTransform(
        juce::AffineTransform::rotation(-juce::MathConstants<float>::halfPi, 14.0f, marginTop + plotHeight * 0.5f));
    g.drawText("Frequency (Hz)", -60 + 14, static_cast<int>(marginTop + plotHeight * 0.5f) - 9, 120, 18,
               juce::Justification::centred);
    g.addTransform(
        juce::AffineTransform::rotation(juce::MathConstants<float>::halfPi, 14.0f, marginTop + plotHeight * 0.5f));
    g.setFont(15.0f);
    g.drawText(title, marginLeft, 10, plotWidth, 22, juce::Justification::centredLeft);

    // Colour bar.
    const int barX = marginLeft + plotWidth + 20;
    for (int y = 0; y < plotHeight; ++y)
    {
        g.setColour(colourForDecibels(floorDb * y / (plotHeight - 1)));
        g.drawHorizontalLine(marginTop + y, static_cast<float>(barX), static_cast<float>(barX + 16));
    }
    g.setColour(ink);
    g.setFont(13.0f);
    for (int dB = 0; dB >= -100; dB -= 20)
    {
        const int y = marginTop + static_cast<int>(std::lround(dB / floorDb * (plotHeight - 1)));
        g.drawText(juce::String(dB) + " dB", barX + 20, y - 8, 70, 16, juce::Justification::centredLeft);
    }
    return image;
}

bool Spectrogram::encodePng(const juce::Image& image, juce::MemoryBlock& png)
{
    juce::MemoryOutputStream stream(png, false);
    return juce::PNGImageFormat().writeImageToStream(image, stream);
}
