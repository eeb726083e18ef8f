#pragma once

#include <juce_core/juce_core.h>

#include <optional>
#include <vector>

/** One MIDI Control Change at an absolute sample position of the input (channel 1). */
struct ControllerEvent
{
    juce::int64 sample = 0;
    int controller = 0;
    int value = 0;
};

/** Everything a render run was asked to do, as parsed from the command line. */
struct RenderOptions
{
    juce::File inputFile;
    juce::File outputFile;
    double rate = 44100.0;
    double seconds = 4.0;
    juce::String layout; // "2-2", "1-2", "1-1"; empty picks by the input's channel count
    int blockSize = 512;
    std::vector<std::pair<juce::String, juce::String>> sets; // parameter name, text
    juce::String preset;
    juce::String quality;
    bool offline = false;
    bool bypass = false;
    std::optional<double> tempo;
    double ppqStart = 0.0;
    bool playing = false;
    std::vector<ControllerEvent> controllers;
    juce::File midiMapFile;
    double tailSeconds = 0.0;
    juce::File stateIn;
    juce::File stateOut;
    /** A PNG picture of the output's spectrum over time. */
    juce::File spectrogram;
    juce::File savePreset;
    bool printParams = false;
    bool listPresets = false;
    bool bench = false;
    juce::File userDir;
    juce::File dataDir;
    bool help = false;

    /** Whether the run is asked to produce anything: a file, or text on standard output. */
    bool asksForOutput() const
    {
        return outputFile != juce::File() || printParams || listPresets || bench || stateOut != juce::File() ||
               savePreset != juce::File() || spectrogram != juce::File();
    }
};

/** The outcome of parsing: options, or the one line that explains what is wrong. */
struct ParseResult
{
    RenderOptions options;
    juce::String error;
    bool ok() const { return error.isEmpty(); }
};

/** Parses the arguments after the program name. */
ParseResult parseRenderOptions(const juce::StringArray& args);

/** The usage text of --help. */
juce::String renderUsage();
