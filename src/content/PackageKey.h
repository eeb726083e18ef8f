#pragma once

#include <juce_core/juce_core.h>

/** The fewest bits a package key's modulus may have. Keys are refused below it when made,
    when signing a package, when the build compiles one in, and when the plug-in would trust one. */
constexpr int minimumPackageKeyBits = 2048;

/** The bit length of the modulus of a key text ("exponent,modulus" in hexadecimal, public or
    private); 0 for text that holds no key. Thread: any. */
int packageKeyBits(const juce::String& key);
