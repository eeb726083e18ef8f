#include "RenderOptions.h"

#include "plugin/BasePlugin.h"

#include <cmath>

namespace
{
bool parseNumber(const juce::String& text, double& value)
{
    const auto t = text.trim();
    if (t.isEmpty() || ! t.containsOnly("0123456789.-+eE"))
        return false;
    value = t.getDoubleValue();
    return std::isfinite(value);
}

bool parseInteger(const juce::String& text, juce::int64& value)
{
    const auto t = text.trim();
    if (t.isEmpty() || ! t.containsOnly("0123456789-+") || t.length() > 18)
        return false;
    value = t.getLargeIntValue();
    return true;
}
} // namespace

juce::String renderUsage()
{
    return "Usage: velmarin-render [--in FILE] [--out FILE] [options]\n"
           "Renders audio through the Velmarin plug-in, as a host would.\n"
           "\n"
           "  --in FILE              input audio (WAV, AIFF or FLAC, 1 or 2 channels, 8000..768000 Hz);\n"
           "                         without it a built-in stereo demo phrase is used\n"
           "  --out FILE             output: 32-bit float WAV at the input's rate\n"
           "  --rate HZ              rate of the demo signal, 8000..768000 (default 44100)\n"
           "  --seconds S            length of the demo signal (default 4)\n"
           "  --layout L             2-2, 1-2 or 1-1 (default 2-2 for stereo input, 1-1 for mono)\n"
           "  --block N              host block size, 1..65536 (default 512)\n"
           "  --set \"NAME=TEXT\"      set a parameter by its exact name through its text (repeatable)\n"
           "  --preset FILE|NAME     load a .vmprs2 preset or a stored preset by name\n"
           "  --quality NAME         Draft, Normal, High or Ultra for both quality settings\n"
           "  --offline              render with the host's non-real-time flag set\n"
           "  --bypass               process through the bypassed entry point\n"
           "  --tempo BPM            give a play head with this tempo\n"
           "  --ppq-start Q          play head position at the first sample, in quarter notes\n"
           "  --playing              the play head reports a playing transport\n"
           "  --cc \"SAMPLE:CC:VALUE\" a MIDI Control Change (channel 1) at a sample (repeatable)\n"
           "  --midi-map FILE        load a .vmccmap MIDI map\n"
           "  --tail S               seconds of silence processed after the input\n"
           "  --state-in FILE        host state chunk to load before rendering\n"
           "  --state-out FILE       write the host state chunk after rendering\n"
           "  --save-preset FILE     write the current values as a .vmprs2 preset\n"
           "  --print-params         print index, name, text and display text of every parameter\n"
           "  --list-presets         print the items of every content store\n"
           "  --bench                print audio_seconds, cpu_seconds and realtime_factor\n"
           "  --spectrogram FILE     draw the output's spectrum over time into a PNG file\n"
           "  --user-dir DIR         user folder (default: a private temporary folder)\n"
           "  --data-dir DIR         data folder\n"
           "  --help                 this text\n"
           "\n"
           "At least one of --out, --print-params, --list-presets, --bench, --state-out, --save-preset\n"
           "and --spectrogram is needed. Limits: input and tail together at most 67108864 frames\n"
           "(25 minutes at 44100 Hz, 5.8 minutes at 192000 Hz), held in memory; --seconds and --tail\n"
           "at most 3600; an input file is read only as far as it holds data (a warning tells when its\n"
           "header declares more); preset, state and map files at most 16 MB.\n"
           "Files are written only when every output could be made: all of them or none. A file is\n"
           "replaced whole; a link is written through; a device or FIFO is written in place, last.\n"
           "Exit status: 0 on success, 2 on bad usage, bad input or a failed write (one line on\n"
           "standard error).\n";
}

ParseResult parseRenderOptions(const juce::StringArray& args)
{
    ParseResult result;
    auto& o = result.options;

    for (int i = 0; i < args.size(); ++i)
    {
        const auto& arg = args[i];
        auto fail = [&](const juce::String& message)
        {
            result.error = message;
            return result;
        };
        auto needValue = [&]() -> std::optional<juce::String>
        {
            if (i + 1 >= args.size())
                return std::nullopt;
            return args[++i];
        };

        if (arg == "--help" || arg == "-h")
        {
            o.help = true;
            continue;
        }
        if (arg == "--offline")
        {
            o.offline = true;
            continue;
        }
        if (arg == "--bypass")
        {
            o.bypass = true;
            continue;
        }
        if (arg == "--playing")
        {
            o.playing = true;
            continue;
        }
        if (arg == "--print-params")
        {
            o.printParams = true;
            continue;
        }
        if (arg == "--list-presets")
        {
            o.listPresets = true;
            continue;
        }
        if (arg == "--bench")
        {
            o.bench = true;
            continue;
        }

        const bool takesValue = arg == "--in" || arg == "--out" || arg == "--rate" || arg == "--seconds" ||
                                arg == "--layout" || arg == "--block" || arg == "--set" || arg == "--preset" ||
                                arg == "--quality" || arg == "--tempo" || arg == "--ppq-start" || arg == "--cc" ||
                                arg == "--midi-map" || arg == "--tail" || arg == "--state-in" || arg == "--state-out" ||
                                arg == "--save-preset" || arg == "--user-dir" || arg == "--data-dir" ||
                                arg == "--spectrogram";
        if (! takesValue)
            return fail("unknown option '" + arg + "' (see --help)");

        const auto value = needValue();
        if (! value)
            return fail("option " + arg + " needs a value");
        const auto& v = *value;
        auto file = [&v]() { return juce::File::getCurrentWorkingDirectory().getChildFile(v); };

        if (arg == "--in")
            o.inputFile = file();
        else if (arg == "--out")
            o.outputFile = file();
        else if (arg == "--midi-map")
            o.midiMapFile = file();
        else if (arg == "--state-in")
            o.stateIn = file();
        else if (arg == "--state-out")
            o.stateOut = file();
        else if (arg == "--save-preset")
            o.savePreset = file();
        else if (arg == "--user-dir")
            o.userDir = file();
        else if (arg == "--data-dir")
            o.dataDir = file();
        else if (arg == "--spectrogram")
            o.spectrogram = file();
        else if (arg == "--preset")
            o.preset = v;
        else if (arg == "--rate")
        {
            if (! parseNumber(v, o.rate) || o.rate < BasePlugin::minimumSampleRate ||
                o.rate > BasePlugin::maximumSampleRate)
                return fail("--rate must be a number from 8000 to 768000, not '" + v + "'");
        }
        else if (arg == "--seconds")
        {
            if (! parseNumber(v, o.seconds) || o.seconds < 0.0 || o.seconds > 3600.0)
                return fail("--seconds must be a number from 0 to 3600, not '" + v + "'");
        }
        else if (arg == "--tail")
        {
            if (! parseNumber(v, o.tailSeconds) || o.tailSeconds < 0.0 || o.tailSeconds > 3600.0)
                return fail("--tail must be a number from 0 to 3600, not '" + v + "'");
        }
        else if (arg == "--tempo")
        {
            double bpm = 0.0;
            if (! parseNumber(v, bpm) || bpm <= 0.0 || bpm > 1000.0)
                return fail("--tempo must be a number above 0 and up to 1000, not '" + v + "'");
            o.tempo = bpm;
        }
        else if (arg == "--ppq-start")
        {
            if (! parseNumber(v, o.ppqStart))
                return fail("--ppq-start must be a number, not '" + v + "'");
        }
        else if (arg == "--block")
        {
            juce::int64 n = 0;
            if (! parseInteger(v, n) || n < 1 || n > 65536)
                return fail("--block must be a whole number from 1 to 65536, not '" + v + "'");
            o.blockSize = static_cast<int>(n);
        }
        else if (arg == "--layout")
        {
            if (v != "2-2" && v != "1-2" && v != "1-1")
                return fail("--layout must be 2-2, 1-2 or 1-1, not '" + v + "'");
            o.layout = v;
        }
        else if (arg == "--set")
        {
            const int eq = v.indexOfChar('=');
            if (eq <= 0)
                return fail("--set needs \"NAME=TEXT\", not '" + v + "'");
            o.sets.emplace_back(v.substring(0, eq), v.substring(eq + 1));
        }
        else if (arg == "--quality")
        {
            if (v != "Draft" && v != "Normal" && v != "High" && v != "Ultra")
                return fail("--quality must be Draft, Normal, High or Ultra, not '" + v + "'");
            o.quality = v;
        }
        else if (arg == "--cc")
        {
            juce::StringArray parts;
            parts.addTokens(v, ":", "");
            juce::int64 sample = 0, cc = 0, val = 0;
            if (parts.size() != 3 || ! parseInteger(parts[0], sample) || ! parseInteger(parts[1], cc) ||
                ! parseInteger(parts[2], val) || sample < 0 || cc < 0 || cc > 127 || val < 0 || val > 127)
                return fail("--cc needs \"SAMPLE:CC:VALUE\" with CC and VALUE from 0 to 127, not '" + v + "'");
            o.controllers.push_back({sample, static_cast<int>(cc), static_cast<int>(val)});
        }
    }
    return result;
}
