#pragma once

#include <juce_audio_basics/juce_audio_basics.h>

/** The built-in demo phrase: a strummed six-string chord (plucked strings, alternating down and up
    strokes) with a light noise hat, in stereo. Deterministic: the same rate and length give the
    same samples on every run and machine. */
juce::AudioBuffer<float> makeDemoSignal(double sampleRate, double seconds);
