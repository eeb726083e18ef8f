#include "PackageKey.h"

int packageKeyBits(const juce::String& key)
{
    const auto modulusText = key.fromFirstOccurrenceOf(",", false, false).trim();
    if (modulusText.isEmpty() || ! modulusText.containsOnly("0123456789abcdefABCDEF"))
        return 0;
    juce::BigInteger modulus;
    modulus.parseString(modulusText, 16);
    return modulus.getHighestBit() + 1;
}
