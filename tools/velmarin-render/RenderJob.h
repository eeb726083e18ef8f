#pragma once

#include "RenderOptions.h"

/** One run of the command-line renderer: starts the real plug-in as a host would, feeds it the
    input (or the demo phrase) in host-sized blocks with MIDI and a play head, and writes what was
    asked for. Message thread of the tool's process. */
class RenderJob
{
public:
    explicit RenderJob(RenderOptions options);

    /** Runs the job. Returns 0 on success; 2 with `error()` set on bad usage or bad input, in which
        case no output file is written. `output()` gets what the job prints on standard output. */
    int run();

    const juce::String& error() const noexcept { return errorText; }
    const juce::String& output() const noexcept { return outputText; }
    /** Lines for standard error about what the run worked around (a cut input file). */
    const juce::StringArray& warnings() const noexcept { return warningLines; }

    /** The most frames a run renders, input and tail together: the output is held in memory. */
    static constexpr juce::int64 maximumFrames = juce::int64{1} << 26;

private:
    int fail(const juce::String& message);

    RenderOptions options;
    juce::String errorText;
    juce::String outputText;
    juce::StringArray warningLines;
};
