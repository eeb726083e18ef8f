#include "SincTable.h"

#include <cmath>
#include <vector>

SincTable::SincTable(int tapCount)
    : taps(tapCount), raw(new float[static_cast<size_t>(tapCount) * 1024]()),
      polyphase(new float[static_cast<size_t>(tapCount) * 1024]())
{
    const int n = taps * 1024;
    const int centre = (n - 2) / 2;

    // The sinc at a 1024-fold rate; the last entry stays 0.
    for (int i = 0; i <= n - 2; ++i)
    {
        const double x = i - centre;
        raw[i] = x == 0.0 ? 1.0f
                          : static_cast<float>(std::sin(x * 0.0030679615757712823) * (0.3183098861837907 / x) * 1024.0);
    }

    // Four-term Blackman-Harris window over the whole array, rounded to float before it applies.
    for (int i = 0; i < n; ++i)
    {
        const double u = static_cast<double>(i) / static_cast<double>(n - 1);
        const double window = 0.35875 - 0.48829 * std::cos(6.283185307179586 * u) +
                              0.14128 * std::cos(12.566370614359172 * u) - 0.01168 * std::cos(18.84955592153876 * u);
        raw[i] = raw[i] * static_cast<float>(window);
    }

    for (int p = 0; p < 1024; ++p)
        for (int k = 0; k < taps; ++k)
            polyphase[p * taps + (taps - 1 - k)] = raw[k * 1024 + p];
}

void buildStepTable(StepTable& table)
{
    std::vector<double> t(4096, 0.0);

    for (int i = 0; i <= 4094; ++i)
    {
        const double x = i - 2047;
        t[static_cast<size_t>(i)] =
            x == 0.0 ? 1.0 : std::sin(x * 0.006135923151542565) * (0.3183098861837907 / x) * 512.0;
    }

    // Nuttall window.
    for (int i = 0; i < 4096; ++i)
    {
        const double u = i * 0.0002442002442002442;
        t[static_cast<size_t>(i)] *= 0.355768 - 0.487396 * std::cos(6.283185307179586 * u) +
                                     0.144232 * std::cos(12.566370614359172 * u) -
                                     0.012604 * std::cos(18.84955592153876 * u);
    }

    // Integrate: the array rises from about -1 to about 0.
    double sum = 0.0;
    for (auto& value : t)
    {
        sum += value;
        value = sum * 0.001953125 - 1.0;
    }

    for (int r = 0; r < 512; ++r)
        for (int k = 0; k < 8; ++k)
            table[static_cast<size_t>(r)][static_cast<size_t>(k)] =
                static_cast<float>(-t[static_cast<size_t>((7 - k) * 512 + r)]);
}
