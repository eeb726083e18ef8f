#include "MarrowgateEffectCore.h"

#include <cmath>

MarrowgateEffectCore::MarrowgateEffectCore()
{
    for (int i = 0; i < meterTableSize; ++i)
    {
        const double x = (i - 200) * 0.01;
        const double level = x == 0.0 ? -320.0 : 20.0 * std::log10(std::abs(x));
        const double position = level / 30.0 + 0.8;
        meterTable[static_cast<size_t>(i)] = position < 0.0 ? 0.0 : (position > 1.0 ? 1.0 : position);
    }
}
