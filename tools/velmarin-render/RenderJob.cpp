#include "RenderJob.h"

#include "DemoSignal.h"
#include "Spectrogram.h"

#include "io/SafeFile.h"
#include "io/SafeFileBatch.h"
#include "io/XmlInput.h"
#include "parameters/ValueText.h"
#include "plugin/BasePlugin.h"
#include "plugin/FactoryScan.h"
#include "plugin/FolderRule.h"
#include "product/Velmarin.h"
#include "product/VelmarinProcessor.h"

#include <juce_audio_formats/juce_audio_formats.h>

#include <algorithm>
#include <ctime>
#include <limits>

namespace
{
/** A host play head: a fixed tempo, a position that advances with the samples, a playing flag. */
class RenderPlayHead : public juce::AudioPlayHead
{
public:
    RenderPlayHead(double bpmIn, double ppqStartIn, bool playingIn, double rateIn)
        : bpm(bpmIn), ppqStart(ppqStartIn), playing(playingIn), rate(rateIn)
    {
    }

    void setSamplePosition(juce::int64 position) noexcept { samplePosition = position; }

    juce::Optional<PositionInfo> getPosition() const override
    {
        PositionInfo info;
        info.setBpm(bpm);
        info.setTimeInSamples(samplePosition);
        info.setTimeInSeconds(static_cast<double>(samplePosition) / rate);
        info.setPpqPosition(ppqStart + static_cast<double>(samplePosition) / rate * bpm / 60.0);
        info.setIsPlaying(playing);
        info.setTimeSignature(TimeSignature{});
        return info;
    }

private:
    double bpm, ppqStart;
    bool playing;
    double rate;
    juce::int64 samplePosition = 0;
};

double threadCpuSeconds()
{
    timespec ts{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &ts);
    return static_cast<double>(ts.tv_sec) + static_cast<double>(ts.tv_nsec) * 1.0e-9;
}

/** Why a file given as input cannot be read, or empty when it can be opened. */
juce::String whyUnreadable(const juce::File& file)
{
    if (file.isDirectory())
        return "is a folder, not a file";
    if (! file.exists())
        return "no such file";
    if (! juce::FileInputStream(file).openedOk())
        return "cannot be opened (no permission to read it?)";
    return {};
}

/** The input in host-sized blocks: a file read ahead in pieces, never further than its data
    reaches, or a signal already in memory. */
class InputFeed
{
public:
    explicit InputFeed(juce::AudioBuffer<float> signal)
        : buffer(std::move(signal)), channels(buffer.getNumChannels()), length(buffer.getNumSamples())
    {
    }

    InputFeed(std::unique_ptr<juce::AudioFormatReader> fileReader, juce::int64 frames)
        : reader(std::move(fileReader)), channels(static_cast<int>(reader->numChannels)), length(frames)
    {
        buffer.setSize(channels, pieceFrames);
    }

    int getNumChannels() const noexcept { return channels; }
    juce::int64 getLength() const noexcept { return length; }

    /** Copies `n` frames from `start` of the input's channel `source` to channel `destination` of
        `block`; frames past the end are left as they are. */
    void copyTo(juce::AudioBuffer<float>& block, int destination, int source, juce::int64 start, int n)
    {
        const int available = static_cast<int>(std::clamp<juce::int64>(length - start, 0, n));
        if (available <= 0)
            return;
        if (reader == nullptr)
        {
            block.copyFrom(destination, 0, buffer, source, static_cast<int>(start), available);
            return;
        }
        if (start < pieceStart || start + available > pieceStart + pieceFrames)
        {
            pieceStart = start;
            const int count = static_cast<int>(std::min<juce::int64>(pieceFrames, length - start));
            buffer.clear();
            reader->read(&buffer, 0, count, start, true, true);
        }
        block.copyFrom(destination, 0, buffer, source, static_cast<int>(start - pieceStart), available);
    }

    /** Frames read from a file at a time; at least the largest host block. */
    static constexpr int pieceFrames = 65536;

private:
    std::unique_ptr<juce::AudioFormatReader> reader;
    juce::AudioBuffer<float> buffer;
    int channels;
    juce::int64 length;
    juce::int64 pieceStart = -1;
};

/** How many frames an uncompressed file holds: its header may declare more than the file has
    (a cut file, or a damaged one). Compressed formats are taken at their word; reading past their
    data gives silence. */
juce::int64 framesPresent(juce::AudioFormatReader& reader, juce::int64 fileSize)
{
    const auto format = reader.getFormatName();
    const auto bytesPerFrame =
        static_cast<juce::int64>(reader.numChannels) * static_cast<juce::int64>(reader.bitsPerSample) / 8;
    if (! (format.startsWith("WAV") || format.startsWith("AIFF")) || reader.input == nullptr || bytesPerFrame <= 0 ||
        reader.lengthInSamples <= 0)
        return reader.lengthInSamples;
    // Where the data begins: the stream stands one frame past it after the first frame is read.
    juce::AudioBuffer<float> frame(static_cast<int>(reader.numChannels), 1);
    reader.read(&frame, 0, 1, 0, true, true);
    const auto dataStart = std::max<juce::int64>(0, reader.input->getPosition() - bytesPerFrame);
    return std::clamp<juce::int64>((fileSize - dataStart) / bytesPerFrame, 0, reader.lengthInSamples);
}

/** The folders of the plug-in this job starts: the ones given, and a private temporary user folder
    when none was given, so that a run never rewrites a user's real settings. The temporary folder
    goes when the job ends. */
class JobFolders
{
public:
    JobFolders(const juce::File& userDir, const juce::File& dataDir)
    {
        auto user = userDir;
        if (user == juce::File())
        {
            temporaryUser = juce::File::getSpecialLocation(juce::File::tempDirectory)
                                .getNonexistentChildFile("velmarin-render-user", {}, false);
            temporaryUser.createDirectory();
            user = temporaryUser;
        }
        rule = FolderRule::fixed(user, dataDir);
    }

    ~JobFolders()
    {
        if (temporaryUser != juce::File())
            temporaryUser.deleteRecursively();
    }

    /** The job's folders: the given user folder or a temporary one, and the given data folder or
        the product's. */
    const FolderRule& getRule() const noexcept { return rule; }

private:
    juce::File temporaryUser;
    FolderRule rule;
};

/** The folder of factory packages for a --data-dir value: the folder itself when it holds
    packages, else its "Presets" (or "presets", as a build tree names it). Without a value, the
    plug-in's data folder's "Presets", and when that holds none and the tool runs from its build
    tree, the packages the build signed. */
juce::File packageFolderFor(const juce::File& dataDir, const juce::File& dataFolder)
{
    const auto holdsPackages = [](const juce::File& folder) {
        return folder.isDirectory() &&
               ! folder.findChildFiles(juce::File::findFiles, false, "*Factory*.q41pkg").isEmpty();
    };
    if (dataDir != juce::File())
    {
        for (const auto& folder : {dataDir, dataDir.getChildFile("Presets"), dataDir.getChildFile("presets")})
            if (holdsPackages(folder))
                return folder;
        return dataDir.getChildFile("Presets");
    }
    const auto installed = dataFolder.getChildFile("Presets");
#ifdef VELMARIN_BUILD_DIR
    const juce::File buildDir(VELMARIN_BUILD_DIR);
    const auto executable = juce::File::getSpecialLocation(juce::File::currentExecutableFile);
    if (! holdsPackages(installed) && executable.isAChildOf(buildDir) &&
        holdsPackages(buildDir.getChildFile("presets")))
        return buildDir.getChildFile("presets");
#endif
    return installed;
}

/** The file a --preset value names, or an empty file when it names none. */
juce::File presetFileFor(const juce::String& value)
{
    const auto file = juce::File::getCurrentWorkingDirectory().getChildFile(value);
    return file.existsAsFile() ? file : juce::File();
}
} // namespace

RenderJob::RenderJob(RenderOptions o) : options(std::move(o)) {}

int RenderJob::fail(const juce::String& message)
{
    errorText = message;
    return 2;
}

int RenderJob::run()
{
    // The input, before the plug-in starts: bad input must not cost a start-up.
    std::unique_ptr<InputFeed> input;
    double rate = options.rate;
    const auto tooLong =
        "render is too long: input and tail may hold at most " + juce::String(maximumFrames) + " frames";
    if (options.inputFile != juce::File())
    {
        const auto path = options.inputFile.getFullPathName();
        if (const auto why = whyUnreadable(options.inputFile); why.isNotEmpty())
            return fail("cannot read input file " + path + ": " + why);
        juce::AudioFormatManager formats;
        formats.registerBasicFormats();
        std::unique_ptr<juce::AudioFormatReader> reader(formats.createReaderFor(options.inputFile));
        if (reader == nullptr)
            return fail("cannot read input file " + path + ": not a WAV, AIFF or FLAC file");
        if (reader->numChannels < 1 || reader->numChannels > 2)
            return fail("input file has " + juce::String(reader->numChannels) + " channels; 1 or 2 are supported");
        if (reader->sampleRate < BasePlugin::minimumSampleRate || reader->sampleRate > BasePlugin::maximumSampleRate)
            return fail("input file's rate " + juce::String(reader->sampleRate) + " Hz is outside 8000..768000");
        const auto present = framesPresent(*reader, options.inputFile.getSize());
        if (present < reader->lengthInSamples)
            warningLines.add("input file " + path + " is cut short: its header declares " +
                             juce::String(reader->lengthInSamples) + " frames, it holds " + juce::String(present));
        if (present > maximumFrames)
            return fail(tooLong);
        rate = reader->sampleRate;
        input = std::make_unique<InputFeed>(std::move(reader), present);
    }
    else
    {
        if (std::llround(options.seconds * rate) + std::llround(options.tailSeconds * rate) > maximumFrames)
            return fail(tooLong);
        input = std::make_unique<InputFeed>(makeDemoSignal(rate, options.seconds));
    }

    const juce::String layout =
        options.layout.isNotEmpty() ? options.layout : (input->getNumChannels() == 2 ? "2-2" : "1-1");
    const int numIns = layout == "2-2" ? 2 : 1;
    const int numOuts = layout == "1-1" ? 1 : 2;

    const juce::int64 inputLength = input->getLength();
    const juce::int64 tailLength = static_cast<juce::int64>(std::llround(options.tailSeconds * rate));
    const juce::int64 total = inputLength + tailLength;
    if (total > maximumFrames)
        return fail(tooLong);

    juce::MemoryBlock stateIn;
    if (options.stateIn != juce::File())
    {
        const auto path = options.stateIn.getFullPathName();
        if (const auto why = whyUnreadable(options.stateIn); why.isNotEmpty())
            return fail("cannot read state file " + path + ": " + why);
        juce::FileInputStream stream(options.stateIn);
        if (! XmlInput::readAtMost(stream, XmlInput::maximumDocumentBytes, stateIn))
            return fail("cannot read state file " + path + ": larger than any state chunk");
    }

    // A --preset that names an existing file must be a preset document; any other value is looked
    // up by name in the content stores once the plug-in runs.
    const auto presetFile = options.preset.isNotEmpty() ? presetFileFor(options.preset) : juce::File();
    if (presetFile != juce::File())
    {
        const auto root = XmlInput::parse(presetFile, true);
        if (root == nullptr || ! root->getTagName().equalsIgnoreCase("Preset"))
            return fail("cannot read preset file " + presetFile.getFullPathName() + ": not a preset document");
    }

    // 1. Start the plug-in exactly as a host would, in the chosen folders.
    const JobFolders folders(options.userDir, options.dataDir);
    VelmarinProcessor processor(folders.getRule());
    auto& plugin = processor.getPlugin();
    auto& manager = plugin.getParameterManager();

    // 2. State: only a chunk this plug-in would take.
    if (options.stateIn != juce::File())
    {
        const auto xml = XmlInput::parseBinaryState(stateIn.getData(), static_cast<int>(stateIn.getSize()));
        if (xml == nullptr || ! plugin.isPluginState(*xml))
            return fail("cannot read state file " + options.stateIn.getFullPathName() + ": not a Velmarin state chunk");
        processor.setStateInformation(stateIn.getData(), static_cast<int>(stateIn.getSize()));
    }

    // 3. The MIDI control map.
    if (options.midiMapFile != juce::File())
    {
        const auto path = options.midiMapFile.getFullPathName();
        if (const auto why = whyUnreadable(options.midiMapFile); why.isNotEmpty())
            return fail("cannot read MIDI map file " + path + ": " + why);
        if (! plugin.getMidiMap().loadFromFile(options.midiMapFile))
            return fail("cannot read MIDI map file " + path + ": not a Velmarin MIDI control map");
    }

    // The content stores, as the browser lists them: factory packages first, then the user store.
    TagRegistry registry;
    juce::OwnedArray<ContentSource> packages;
    juce::Array<ContentSource*> stores;
    if (options.listPresets || (options.preset.isNotEmpty() && presetFile == juce::File()))
        scanContentStores(plugin, registry, packages, stores,
                          packageFolderFor(options.dataDir, plugin.getDirectory("AppData")));

    // 4. The preset, as a preset load of slot 0 does: a file, or else a stored item of that name.
    if (presetFile != juce::File())
    {
        Preset preset;
        preset.loadFromFile(presetFile, manager, false);
        plugin.loadPreset(&preset, 0);
    }
    else if (options.preset.isNotEmpty())
    {
        ContentItem* item = nullptr;
        for (auto* store : stores)
            if (item == nullptr)
                item = store->find(options.preset);
        if (item == nullptr)
            return fail("no preset file or stored preset named '" + options.preset + "'");
        if (! item->source->openItem(item->name))
            return fail("cannot read the stored preset '" + item->name + "' of the store " + item->source->getName());
    }

    // 5. Parameters by name, through their text forms.
    for (const auto& [name, text] : options.sets)
    {
        auto* p = manager.getParameter(name);
        if (p == nullptr)
            return fail("unknown parameter name '" + name + "'");
        if (! ValueText::isReadable(*p, text))
            return fail("'" + text + "' is not a value of " + name + " (" + ValueText::describeReadable(*p) + ")");
        p->setText(text, true);
    }

    // 6. Both quality settings.
    if (options.quality.isNotEmpty())
    {
        for (auto* name : {"Real-time Processing Quality", "Offline Processing Quality"})
            if (auto* p = manager.getParameter(juce::String(name)))
                p->setText(options.quality, true);
    }

    // 7. Layout and prepare.
    juce::AudioProcessor::BusesLayout busesLayout;
    busesLayout.inputBuses.add(numIns == 2 ? juce::AudioChannelSet::stereo() : juce::AudioChannelSet::mono());
    busesLayout.outputBuses.add(numOuts == 2 ? juce::AudioChannelSet::stereo() : juce::AudioChannelSet::mono());
    if (! processor.setBusesLayout(busesLayout))
        return fail("the plug-in refused the layout " + layout);
    processor.setNonRealtime(options.offline);
    processor.setRateAndBufferSizeDetails(rate, options.blockSize);
    processor.prepareToPlay(rate, options.blockSize);

    std::unique_ptr<RenderPlayHead> playHead;
    if (options.tempo)
    {
        playHead = std::make_unique<RenderPlayHead>(*options.tempo, options.ppqStart, options.playing, rate);
        processor.setPlayHead(playHead.get());
    }

    // 8 and 9. The input, then the tail of silence, in host-sized blocks.
    juce::AudioBuffer<float> result(numOuts, static_cast<int>(total));
    juce::AudioBuffer<float> block(2, options.blockSize);
    juce::MidiBuffer midi;
    double cpuSeconds = 0.0;

    for (juce::int64 start = 0; start < total; start += options.blockSize)
    {
        const int n = static_cast<int>(std::min<juce::int64>(options.blockSize, total - start));
        block.setSize(std::max(numIns, numOuts), n, false, false, true);
        block.clear();
        for (int ch = 0; ch < numIns; ++ch)
        {
            // A stereo file into a mono input uses its left channel.
            input->copyTo(block, ch, std::min(ch, input->getNumChannels() - 1), start, n);
        }

        midi.clear();
        for (const auto& cc : options.controllers)
            if (cc.sample >= start && cc.sample < start + n)
                midi.addEvent(juce::MidiMessage::controllerEvent(1, cc.controller, cc.value),
                              static_cast<int>(cc.sample - start));

        if (playHead)
            playHead->setSamplePosition(start);

        const double before = threadCpuSeconds();
        if (options.bypass)
            processor.processBlockBypassed(block, midi);
        else
            processor.processBlock(block, midi);
        cpuSeconds += threadCpuSeconds() - before;

        for (int ch = 0; ch < numOuts; ++ch)
            result.copyFrom(ch, static_cast<int>(start), block, ch, 0, n);
    }
    // The frequency read-out is taken while prepared, as the editor's periodic update does.
    if (options.printParams)
        if (auto* velmarin = dynamic_cast<Velmarin*>(&processor.getPlugin()))
            velmarin->refreshBbdFrequencyDisplay();
    processor.releaseResources();
    processor.setPlayHead(nullptr);

    // 10. State, preset, parameter listing, output files. Every file is made in memory first and
    // staged; they are put in place together, so a failing one leaves every target as it was.
    SafeFileBatch files;
    if (options.stateOut != juce::File())
    {
        juce::MemoryBlock state;
        processor.getStateInformation(state);
        if (! files.add(options.stateOut, state))
            return fail("cannot write state file " + options.stateOut.getFullPathName());
    }

    if (options.savePreset != juce::File())
    {
        Preset preset;
        plugin.storeToPreset(preset, 0);
        preset.setVersion("1.0");
        const auto xml = preset.createXml(manager, false);
        if (xml == nullptr || ! files.add(options.savePreset, SafeFile::xmlDocument(*xml)))
            return fail("cannot write preset file " + options.savePreset.getFullPathName());
    }

    if (options.listPresets)
        for (auto* store : stores)
            for (auto* item : store->getItems())
                outputText << store->getName() << "\t" << item->name << "\t" << item->tags.toText() << "\n";

    if (options.printParams)
    {
        for (auto* p : manager.getParameters())
            outputText << p->getIndex() << "\t" << p->getName() << "\t" << p->getText() << "\t" << p->getDisplayText()
                       << "\n";
    }

    if (options.bench)
    {
        const double audioSeconds = static_cast<double>(total) / rate;
        const double factor = cpuSeconds > 0.0 ? audioSeconds / cpuSeconds : 0.0;
        outputText << "audio_seconds=" << juce::String(audioSeconds, 6)
                   << " cpu_seconds=" << juce::String(cpuSeconds, 6) << " realtime_factor=" << juce::String(factor, 2)
                   << "\n";
    }

    if (options.outputFile != juce::File())
    {
        // Made in memory, then written whole, so a failed write leaves an existing file as it was.
        juce::MemoryBlock wavData;
        {
            auto stream = std::make_unique<juce::MemoryOutputStream>(wavData, false);
            juce::WavAudioFormat wav;
            std::unique_ptr<juce::AudioFormatWriter> writer(
                wav.createWriterFor(stream.get(), rate, static_cast<unsigned int>(numOuts), 32, {}, 0));
            if (writer == nullptr)
                return fail("cannot write output file " + options.outputFile.getFullPathName());
            stream.release(); // the writer owns the stream now
            if (! writer->writeFromAudioSampleBuffer(result, 0, result.getNumSamples()))
                return fail("cannot write output file " + options.outputFile.getFullPathName());
        }
        if (! files.add(options.outputFile, wavData))
            return fail("cannot write output file " + options.outputFile.getFullPathName());
    }

    if (options.spectrogram != juce::File())
    {
        const auto title =
            "Velmarin output, " + juce::String(rate, 0) + " Hz" +
            (options.outputFile != juce::File() ? " (" + options.outputFile.getFileName() + ")" : juce::String());
        juce::MemoryBlock png;
        if (! Spectrogram::encodePng(Spectrogram::render(result, rate, title), png) ||
            ! files.add(options.spectrogram, png))
            return fail("cannot write spectrogram file " + options.spectrogram.getFullPathName());
    }
    if (! files.commit())
        return fail("cannot put the output files in place");
    return 0;
}
