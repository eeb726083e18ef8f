// The command-line renderer end to end: options, errors that leave files alone, and renders.
#include "RenderJob.h"
#include "TestSupport.h"

#include <juce_audio_formats/juce_audio_formats.h>
#include <juce_audio_processors/juce_audio_processors.h>

#include "Spectrogram.h"
#include "content/ContentTags.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

#include <sys/stat.h>
#include <unistd.h>

namespace
{
juce::StringArray listOf(const std::vector<const char*>& args)
{
    juce::StringArray list;
    for (auto* a : args)
        list.add(a);
    return list;
}

ParseResult parse(const std::vector<const char*>& args)
{
    return parseRenderOptions(listOf(args));
}

struct Rendered
{
    int status = -1;
    juce::String error, output;
    juce::StringArray warnings;
};

Rendered render(const juce::StringArray& args)
{
    auto parsed = parseRenderOptions(args);
    EXPECT_TRUE(parsed.ok()) << parsed.error;
    RenderJob job(parsed.options);
    Rendered r;
    r.status = job.run();
    r.error = job.error();
    r.output = job.output();
    r.warnings = job.warnings();
    return r;
}

Rendered render(std::initializer_list<const char*> args)
{
    return render(listOf(args));
}

std::unique_ptr<juce::AudioFormatReader> openWav(const juce::File& file)
{
    juce::WavAudioFormat wav;
    return std::unique_ptr<juce::AudioFormatReader>(wav.createReaderFor(file.createInputStream().release(), true));
}

juce::AudioBuffer<float> readWav(const juce::File& file)
{
    auto reader = openWav(file);
    juce::AudioBuffer<float> buffer(static_cast<int>(reader->numChannels), static_cast<int>(reader->lengthInSamples));
    reader->read(&buffer, 0, buffer.getNumSamples(), 0, true, true);
    return buffer;
}

class RenderTool : public ::testing::Test
{
protected:
    juce::TemporaryFile outFile{".wav"};
    juce::String outPath() const { return outFile.getFile().getFullPathName(); }
};
} // namespace

TEST(RenderOptions, RefusesBadUsageWithOneClearLine)
{
    const std::vector<std::vector<const char*>> bad = {
        {"--block", "0"},      {"--block", "65537"},
        {"--block", "12x"},    {"--rate", "7999"},
        {"--rate", "768001"},  {"--layout", "2-1"},
        {"--quality", "best"}, {"--cc", "10:7"},
        {"--cc", "10:128:1"},  {"--cc", "-1:7:1"},
        {"--set", "NoEquals"}, {"--tempo", "0"},
        {"--frobnicate"},      {"--out"},
    };
    for (const auto& args : bad)
    {
        const auto result = parse(args);
        EXPECT_FALSE(result.ok()) << args[0];
        EXPECT_FALSE(result.error.containsChar('\n'));
    }
}

TEST(RenderOptions, ReadsRepeatableOptionsInOrder)
{
    const auto r = parse({"--set", "BBD Length=512", "--set", "Preamp=0.25", "--cc", "1000:7:127", "--block", "1",
                          "--tempo", "133", "--playing", "--layout", "1-2"});
    ASSERT_TRUE(r.ok()) << r.error;
    ASSERT_EQ(r.options.sets.size(), 2u);
    EXPECT_EQ(r.options.sets[0].first, "BBD Length");
    EXPECT_EQ(r.options.sets[1].second, "0.25");
    ASSERT_EQ(r.options.controllers.size(), 1u);
    EXPECT_EQ(r.options.controllers[0].sample, 1000);
    EXPECT_EQ(r.options.controllers[0].value, 127);
    EXPECT_EQ(r.options.blockSize, 1);
    EXPECT_EQ(*r.options.tempo, 133.0);
    EXPECT_TRUE(r.options.playing);
}

TEST_F(RenderTool, WritesFloatWavAtTheInputRateWithTheLayoutsChannels)
{
    const auto r = render({"--rate", "48000", "--seconds", "0.5", "--layout", "1-2", "--block", "100", "--tail", "0.25",
                           "--out", outPath().toRawUTF8()});
    ASSERT_EQ(r.status, 0) << r.error;
    auto reader = openWav(outFile.getFile());
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(reader->sampleRate, 48000.0);
    EXPECT_EQ(reader->numChannels, 2u);
    EXPECT_EQ(reader->bitsPerSample, 32u);
    EXPECT_TRUE(reader->usesFloatingPointData);
    EXPECT_EQ(reader->lengthInSamples, 36000);
}

TEST_F(RenderTool, RendersAtTheLowestAndHighestHostRates)
{
    for (const char* rate : {"8000", "768000"})
    {
        const auto r =
            render({"--rate", rate, "--seconds", "0.1", "--quality", "Ultra", "--out", outPath().toRawUTF8()});
        ASSERT_EQ(r.status, 0) << r.error;
        EXPECT_EQ(openWav(outFile.getFile())->sampleRate, juce::String(rate).getDoubleValue());
        const auto audio = readWav(outFile.getFile());
        const float peak = audio.getMagnitude(0, audio.getNumSamples());
        EXPECT_TRUE(std::isfinite(peak)) << rate;
        EXPECT_LT(peak, 4.0f) << rate;
    }
}

TEST_F(RenderTool, RendersTheSameWhateverTheBlockSize)
{
    juce::TemporaryFile other(".wav");
    ASSERT_EQ(render({"--seconds", "0.3", "--block", "512", "--out", outPath().toRawUTF8()}).status, 0);
    ASSERT_EQ(
        render({"--seconds", "0.3", "--block", "37", "--out", other.getFile().getFullPathName().toRawUTF8()}).status,
        0);
    juce::MemoryBlock a, b;
    outFile.getFile().loadFileAsData(a);
    other.getFile().loadFileAsData(b);
    EXPECT_EQ(a, b);
}

TEST_F(RenderTool, UnknownParametersAndUnreadableSetsExitTwoAndLeaveTheOutputAlone)
{
    ASSERT_TRUE(outFile.getFile().replaceWithText("precious"));
    const auto unknown = render({"--set", "No Such Knob=1", "--out", outPath().toRawUTF8()});
    EXPECT_EQ(unknown.status, 2);
    EXPECT_TRUE(unknown.error.contains("No Such Knob"));

    // Texts a parameter's text form would read as something else than was meant.
    for (const char* set :
         {"BBD Length=17", "Feedback L/M=abc", "LFO Sync=On", "Preamp=nan", "Preamp=1.5", "Delay Offset Link=maybe"})
    {
        const auto refused = render({"--set", set, "--out", outPath().toRawUTF8()});
        EXPECT_EQ(refused.status, 2) << set;
        EXPECT_TRUE(refused.error.contains("is not a value of")) << set << ": " << refused.error;
        EXPECT_FALSE(refused.error.containsChar('\n'));
    }

    EXPECT_EQ(outFile.getFile().loadFileAsString(), "precious");
}

TEST_F(RenderTool, PrintsParametersAfterSetsAndQuality)
{
    const auto r = render({"--seconds", "0.05", "--set", "BBD Length=512", "--set", "Delay Offset Link=Off",
                           "--quality", "Ultra", "--print-params"});
    ASSERT_EQ(r.status, 0) << r.error;
    juce::StringArray lines;
    lines.addLines(r.output.trimEnd());
    ASSERT_EQ(lines.size(), 35);
    EXPECT_EQ(lines[20], "20\tBBD Length\t512\t512");
    EXPECT_EQ(lines[5], "5\tDelay Offset Link\tOff\tOff");
    EXPECT_TRUE(lines[29].startsWith("29\tProcessing Quality\tUltra"))
        << "the real-time quality reached the engine's selector at prepare";
    EXPECT_TRUE(lines[31].startsWith("100001\tReal-time Processing Quality\tUltra"));
    EXPECT_TRUE(lines[32].startsWith("100003\tOffline Processing Quality\tUltra"));
}

TEST_F(RenderTool, DrawsASpectrogramOfTheOutput)
{
    juce::TemporaryFile picture(".png");
    const auto path = picture.getFile().getFullPathName();
    const auto r = render({"--seconds", "0.3", "--spectrogram", path.toRawUTF8()});
    ASSERT_EQ(r.status, 0) << r.error;
    const auto image = juce::ImageFileFormat::loadFrom(picture.getFile());
    ASSERT_TRUE(image.isValid());
    EXPECT_EQ(image.getWidth(), 70 + Spectrogram::plotWidth + 110);
    // The demo's energy shows somewhere in the plot, above the colour of -100 dB.
    bool lit = false;
    for (int y = 40; y < 40 + Spectrogram::plotHeight && ! lit; y += 7)
        for (int x = 70; x < 70 + Spectrogram::plotWidth && ! lit; x += 7)
            lit = image.getPixelAt(x, y).getBrightness() > 0.5f;
    EXPECT_TRUE(lit);
}

TEST_F(RenderTool, PrintsTheClockFrequencyReachedAtTheEndOfTheRender)
{
    const auto settled =
        render({"--seconds", "0.5", "--set", "Delay Offset L/M=0", "--set", "LFO Depth L/M=0", "--print-params"});
    ASSERT_EQ(settled.status, 0) << settled.error;
    EXPECT_TRUE(settled.output.contains("28\tCurrent BBD Frequency\t1.35M\t")) << settled.output;

    const auto bypassed = render({"--seconds", "0.1", "--bypass", "--print-params"});
    ASSERT_EQ(bypassed.status, 0) << bypassed.error;
    EXPECT_TRUE(bypassed.output.contains("28\tCurrent BBD Frequency\t\t")) << "a bypassed run reads out no clock";
}

TEST_F(RenderTool, StateWrittenByOneRunRestoresInTheNext)
{
    juce::TemporaryFile state(".bin");
    const auto statePath = state.getFile().getFullPathName();
    ASSERT_EQ(render({"--seconds", "0", "--set", "Feedback L/M=0.8", "--set", "Low Cut=Off", "--state-out",
                      statePath.toRawUTF8()})
                  .status,
              0);
    const auto r = render({"--seconds", "0", "--state-in", statePath.toRawUTF8(), "--print-params"});
    ASSERT_EQ(r.status, 0) << r.error;
    EXPECT_TRUE(r.output.contains("14\tFeedback L/M\t0.8\t"));
    EXPECT_TRUE(r.output.contains("22\tLow Cut\tOff\t"));
}

TEST_F(RenderTool, BenchReportsTheRealtimeFactor)
{
    const auto r = render({"--seconds", "0.2", "--bench"});
    ASSERT_EQ(r.status, 0);
    EXPECT_TRUE(r.output.startsWith("audio_seconds=0.200000 cpu_seconds="));
    EXPECT_TRUE(r.output.contains("realtime_factor="));
}

TEST_F(RenderTool, SavedPresetLoadsInTheNextRunAndSettingsStayInTheChosenFolder)
{
    const testsupport::TemporaryFolder temp("render-user");
    const auto& user = temp.folder;
    const auto preset = user.getChildFile("Wide.vmprs2");
    const auto presetPath = preset.getFullPathName();
    auto r = render({"--seconds", "0", "--set", "Channels Crossfade=0.3", "--set", "Preset Name=Wide", "--save-preset",
                     presetPath.toRawUTF8(), "--user-dir", user.getFullPathName().toRawUTF8()});
    ASSERT_EQ(r.status, 0) << r.error;
    EXPECT_TRUE(user.getChildFile("Velmarin.ini").existsAsFile()) << "teardown writes the settings into --user-dir";
    const auto saved = juce::parseXML(preset);
    ASSERT_NE(saved, nullptr);
    EXPECT_EQ(saved->getStringAttribute("version"), "1.0");
    EXPECT_EQ(saved->getChildByName("Parameters")->getNumChildElements(), 28);

    r = render({"--seconds", "0", "--set", "Feedback L/M=0.8", "--preset", presetPath.toRawUTF8(), "--print-params"});
    ASSERT_EQ(r.status, 0) << r.error;
    EXPECT_TRUE(r.output.contains("2\tChannels Crossfade\t0.3\t"));
    EXPECT_TRUE(r.output.contains("14\tFeedback L/M\t0.8\t")) << "--set comes after the preset";
    EXPECT_TRUE(r.output.contains("100000\tPreset Name\tWide\t")) << "a preset takes its file's name";

    const auto notPreset = user.getChildFile("Other.vmprs2");
    ASSERT_TRUE(notPreset.replaceWithText("<Patch/>"));
    const auto notPresetPath = notPreset.getFullPathName();
    for (auto* bad : {"No Such Preset", notPresetPath.toRawUTF8()})
    {
        r = render({"--seconds", "0", "--preset", bad, "--out", outPath().toRawUTF8()});
        EXPECT_EQ(r.status, 2);
        EXPECT_FALSE(r.error.containsChar('\n'));
        EXPECT_EQ(outFile.getFile().getSize(), 0) << "no output after a bad preset";
    }
}

TEST_F(RenderTool, MappedControllerActsFromItsSampleOnAtAnyBlockSizeAndTheMapIsSaved)
{
    juce::TemporaryFile map(".vmccmap");
    ASSERT_TRUE(map.getFile().replaceWithText(
        R"(<MidiControlMap name="Velmarin"><assign CC="7" param="Output Volume"/></MidiControlMap>)"));
    const auto mapPath = map.getFile().getFullPathName();

    ASSERT_EQ(render({"--seconds", "0.1", "--out", outPath().toRawUTF8()}).status, 0);
    const auto plain = readWav(outFile.getFile());

    juce::TemporaryFile state(".bin");
    for (auto* block : {"64", "1000", "1001", "4096"})
    {
        juce::TemporaryFile moved(".wav");
        const auto r = render({"--seconds", "0.1", "--block", block, "--midi-map", mapPath.toRawUTF8(), "--cc",
                               "1000:7:0", "--out", moved.getFile().getFullPathName().toRawUTF8(), "--state-out",
                               state.getFile().getFullPathName().toRawUTF8()});
        ASSERT_EQ(r.status, 0) << r.error;
        const auto result = readWav(moved.getFile());
        int firstDifference = -1;
        for (int i = 0; i < result.getNumSamples() && firstDifference < 0; ++i)
            if (result.getSample(0, i) != plain.getSample(0, i) || result.getSample(1, i) != plain.getSample(1, i))
                firstDifference = i;
        EXPECT_EQ(firstDifference, 1000) << "block " << block;
    }

    juce::MemoryBlock chunk;
    state.getFile().loadFileAsData(chunk);
    const auto xml = juce::AudioProcessor::getXmlFromBinary(chunk.getData(), static_cast<int>(chunk.getSize()));
    ASSERT_NE(xml, nullptr);
    const auto* saved = xml->getChildByName("MidiControlMap");
    ASSERT_NE(saved, nullptr);
    EXPECT_EQ(saved->getChildElement(0)->getStringAttribute("param"), "Output Volume");

    juce::TemporaryFile foreign(".vmccmap");
    ASSERT_TRUE(foreign.getFile().replaceWithText(R"(<MidiControlMap name="Other"/>)"));
    const auto bad = render({"--seconds", "0", "--midi-map", foreign.getFile().getFullPathName().toRawUTF8()});
    EXPECT_EQ(bad.status, 2);
    EXPECT_TRUE(bad.error.contains("MIDI map"));
}

TEST_F(RenderTool, FactoryLibraryListsTaggedPresetsThatAllLoadAndSound)
{
    const juce::File package(VELMARIN_FACTORY_PACKAGE);
    ASSERT_TRUE(package.existsAsFile()) << "the build signs the factory package";
    const testsupport::TemporaryFolder temp("library");
    const auto& folders = temp.folder;
    const auto data = folders.getChildFile("data");
    const auto user = folders.getChildFile("user");
    ASSERT_TRUE(data.getChildFile("Presets").createDirectory());
    ASSERT_TRUE(package.copyFileTo(data.getChildFile("Presets/Velmarin Factory.q41pkg")));
    ASSERT_TRUE(user.getChildFile("UserStore/Presets").createDirectory());
    ASSERT_TRUE(
        user.getChildFile("UserStore/Presets/Mine.vmprs2").replaceWithText(R"(<Preset><Parameters/></Preset>)"));
    const auto dataPath = data.getFullPathName();
    const auto userPath = user.getFullPathName();

    const auto listed = render(
        {"--seconds", "0", "--list-presets", "--user-dir", userPath.toRawUTF8(), "--data-dir", dataPath.toRawUTF8()});
    ASSERT_EQ(listed.status, 0) << listed.error;
    juce::StringArray factory;
    ContentTags allTags;
    for (const auto& line : juce::StringArray::fromLines(listed.output.trim()))
    {
        const auto fields = juce::StringArray::fromTokens(line, "\t", {});
        if (fields[0] == "Factory")
        {
            factory.add(fields[1]);
            allTags.merge(ContentTags::fromText(fields[2]));
        }
    }
    EXPECT_GE(factory.size(), 40);
    EXPECT_TRUE(listed.output.endsWith("User\tMine\t\n")) << "the user store comes last";
    for (auto* category : {"Type", "Modulation", "Spatialize"})
    {
        bool found = false;
        for (int p = 0; p < allTags.getNumCategories(); ++p)
            found = found || (allTags.getCategoryName(p) == category && allTags.getTags(p).size() >= 2);
        EXPECT_TRUE(found) << category;
    }

    for (const auto& name : factory)
    {
        juce::TemporaryFile wav(".wav");
        const auto r = render({"--seconds", "1", "--preset", name.toLowerCase().toRawUTF8(), "--tempo", "120",
                               "--playing", "--data-dir", dataPath.toRawUTF8(), "--out",
                               wav.getFile().getFullPathName().toRawUTF8(), "--print-params"});
        ASSERT_EQ(r.status, 0) << name << ": " << r.error;
        EXPECT_TRUE(r.output.contains("100000\tPreset Name\t" + name + "\t")) << name;
        const auto out = readWav(wav.getFile());
        float peak = 0.0f;
        bool finite = true;
        for (int ch = 0; ch < out.getNumChannels(); ++ch)
            for (int i = 0; i < out.getNumSamples(); ++i)
            {
                finite = finite && std::isfinite(out.getSample(ch, i));
                peak = std::max(peak, std::abs(out.getSample(ch, i)));
            }
        EXPECT_TRUE(finite) << name;
        EXPECT_GT(out.getRMSLevel(0, 0, out.getNumSamples()), 0.003f) << name << " is nearly silent";
        EXPECT_LT(peak, 2.0f) << name << " runs away";
    }

    const auto unknown = render({"--seconds", "0", "--preset", "No Such Sound", "--data-dir", dataPath.toRawUTF8()});
    EXPECT_EQ(unknown.status, 2);
}

TEST(RenderOptions, EveryOutputOptionCountsAsAskingForOutput)
{
    EXPECT_FALSE(parse({"--in", "x.wav", "--set", "Preamp=0.5"}).options.asksForOutput());
    for (const auto& args : std::vector<std::vector<const char*>>{{"--out", "o.wav"},
                                                                  {"--print-params"},
                                                                  {"--list-presets"},
                                                                  {"--bench"},
                                                                  {"--state-out", "s"},
                                                                  {"--save-preset", "p"},
                                                                  {"--spectrogram", "s.png"}})
        EXPECT_TRUE(parse(args).options.asksForOutput()) << args[0];
}

TEST_F(RenderTool, UnreadableStateMapAndInputFilesExitTwoWithOneLineSayingWhy)
{
    ASSERT_TRUE(outFile.getFile().replaceWithText("precious"));
    const testsupport::TemporaryFolder temp("bad-files");
    const auto& folder = temp.folder;
    const auto preset = folder.getChildFile("p.vmprs2");
    ASSERT_TRUE(preset.replaceWithText(R"(<Preset><Parameters/></Preset>)"));
    juce::TemporaryFile good(".bin");
    ASSERT_EQ(render({"--seconds", "0", "--state-out", good.getFile().getFullPathName().toRawUTF8()}).status, 0);
    juce::MemoryBlock chunk;
    ASSERT_TRUE(good.getFile().loadFileAsData(chunk));
    juce::Random random(16);
    juce::MemoryBlock noise(600);
    random.fillBitsRandomly(noise.getData(), noise.getSize());
    juce::MemoryBlock wrongRoot;
    juce::AudioProcessor::copyXmlToBinary(juce::XmlElement("Other"), wrongRoot);

    const std::vector<std::pair<const char*, juce::MemoryBlock>> states = {
        {"empty", {}},
        {"random", noise},
        {"truncated", juce::MemoryBlock(chunk.getData(), chunk.getSize() / 2)},
        {"wrong-root", wrongRoot},
        {"preset",
         juce::MemoryBlock(preset.loadFileAsString().toRawUTF8(), preset.loadFileAsString().getNumBytesAsUTF8())}};
    for (const auto& [name, bytes] : states)
    {
        const auto file = folder.getChildFile(name);
        ASSERT_TRUE(bytes.isEmpty() ? file.create().wasOk() : file.replaceWithData(bytes.getData(), bytes.getSize()));
        const auto r = render({"--state-in", file.getFullPathName(), "--out", outPath()});
        EXPECT_EQ(r.status, 2) << name;
        EXPECT_TRUE(r.error.endsWith("not a Velmarin state chunk")) << r.error;
    }

    const auto expectError = [&](const juce::StringArray& args, const char* why)
    {
        const auto r = render(args);
        EXPECT_EQ(r.status, 2) << args.joinIntoString(" ");
        EXPECT_TRUE(r.error.endsWith(why)) << r.error;
        EXPECT_FALSE(r.error.containsChar('\n'));
    };
    expectError({"--in", folder.getFullPathName(), "--out", outPath()}, "is a folder, not a file");
    expectError({"--in", "/nonexistent/in.wav", "--out", outPath()}, "no such file");
    expectError({"--in", preset.getFullPathName(), "--out", outPath()}, "not a WAV, AIFF or FLAC file");
    expectError({"--midi-map", "/nonexistent/map.vmccmap", "--out", outPath()}, "no such file");
    expectError({"--midi-map", preset.getFullPathName(), "--out", outPath()}, "not a Velmarin MIDI control map");
    expectError({"--state-in", folder.getFullPathName(), "--out", outPath()}, "is a folder, not a file");
    ::chmod(preset.getFullPathName().toRawUTF8(), 0);
    if (! juce::FileInputStream(preset).openedOk()) // an administrator reads it anyway
        expectError({"--in", preset.getFullPathName(), "--out", outPath()},
                    "cannot be opened (no permission to read it?)");
    EXPECT_EQ(outFile.getFile().loadFileAsString(), "precious");
}

TEST_F(RenderTool, AnInputCutShortIsReadAsFarAsItHoldsDataWithAWarning)
{
    // A WAV file of about 1 KB whose header declares 4 GB of samples.
    ASSERT_EQ(render({"--seconds", "0.01", "--rate", "8000", "--out", outPath()}).status, 0);
    juce::MemoryBlock wav;
    ASSERT_TRUE(outFile.getFile().loadFileAsData(wav));
    const auto frames = openWav(outFile.getFile())->lengthInSamples;
    auto* bytes = static_cast<uint8_t*>(wav.getData());
    const std::string tag = "data";
    const auto found = std::search(bytes, bytes + wav.getSize(), tag.begin(), tag.end());
    ASSERT_NE(found, bytes + wav.getSize());
    const juce::uint32 declared = 0xfffffff0u;
    std::memcpy(found + 4, &declared, 4); // little-endian machine
    juce::TemporaryFile cut(".wav");
    ASSERT_TRUE(cut.getFile().replaceWithData(wav.getData(), wav.getSize()));

    juce::TemporaryFile out(".wav");
    const auto r = render({"--in", cut.getFile().getFullPathName(), "--out", out.getFile().getFullPathName()});
    ASSERT_EQ(r.status, 0) << r.error;
    ASSERT_EQ(r.warnings.size(), 1);
    EXPECT_TRUE(r.warnings[0].contains("cut short")) << r.warnings[0];
    EXPECT_EQ(openWav(out.getFile())->lengthInSamples, frames);

    // Lengths beyond what a run holds are refused before anything is made.
    const auto tooLong = render({"--rate", "192000", "--seconds", "3600", "--out", outPath()});
    EXPECT_EQ(tooLong.status, 2);
    EXPECT_TRUE(tooLong.error.startsWith("render is too long"));
    EXPECT_EQ(render({"--rate", "192000", "--seconds", "300", "--tail", "300", "--out", outPath()}).status, 2);
}

TEST_F(RenderTool, OutputsArePutInPlaceAllOrNothing)
{
    ASSERT_TRUE(outFile.getFile().replaceWithText("precious"));
    juce::TemporaryFile state(".bin");
    ASSERT_TRUE(state.getFile().replaceWithText("old state"));
    const auto r = render({"--seconds", "0.05", "--out", outPath(), "--state-out", state.getFile().getFullPathName(),
                           "--spectrogram", "/nonexistent/folder/picture.png"});
    EXPECT_EQ(r.status, 2);
    EXPECT_TRUE(r.error.contains("spectrogram"));
    EXPECT_EQ(outFile.getFile().loadFileAsString(), "precious");
    EXPECT_EQ(state.getFile().loadFileAsString(), "old state");

    // A device is written in place, after the regular files, and stays what it was.
    ASSERT_EQ(
        render({"--seconds", "0.05", "--out", "/dev/null", "--state-out", state.getFile().getFullPathName()}).status,
        0);
    struct stat info = {};
    ASSERT_EQ(::lstat("/dev/null", &info), 0);
    EXPECT_TRUE(S_ISCHR(info.st_mode));
    EXPECT_NE(state.getFile().loadFileAsString(), "old state");
}

TEST_F(RenderTool, FindsTheFactoryPackageTheBuildSignedFromTheBuildTree)
{
    const juce::File package(VELMARIN_FACTORY_PACKAGE);
    ASSERT_TRUE(package.existsAsFile());
    const auto countFactory = [](const Rendered& r)
    {
        int count = 0;
        for (const auto& line : juce::StringArray::fromLines(r.output))
            count += line.startsWith("Factory\t") ? 1 : 0;
        return count;
    };
    // The test runs from the build tree with an empty private data folder.
    const auto plain = render({"--list-presets"});
    ASSERT_EQ(plain.status, 0) << plain.error;
    EXPECT_GE(countFactory(plain), 40);
    for (const auto& folder : {package.getParentDirectory(), package.getParentDirectory().getParentDirectory()})
        EXPECT_EQ(countFactory(render({"--list-presets", "--data-dir", folder.getFullPathName()})), countFactory(plain))
            << folder.getFullPathName();
    const auto jet = render({"--seconds", "0", "--preset", "Jet Stream", "--print-params"});
    EXPECT_EQ(jet.status, 0) << jet.error;
}
