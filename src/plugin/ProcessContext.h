#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

/** The record of one block, filled by the plug-in's process entry and passed to the effect.
    Thread: audio thread; lives for one block. */
struct ProcessContext
{
    juce::AudioBuffer<float>* buffer = nullptr;
    juce::MidiBuffer* midi = nullptr;
    int numInputChannels = 0;
    int numOutputChannels = 0;
    juce::AudioPlayHead* playHead = nullptr; // may be null
    bool bypassed = false;
};
