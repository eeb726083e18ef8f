#pragma once

#include <juce_core/juce_core.h>

/** The public RSA key that the product's factory packages must be signed with ("exponent,modulus"
    in hexadecimal). The build generates its definition from the package key file, so the plug-in
    accepts exactly the packages that build signed. */
juce::String getProductPackageKey();
