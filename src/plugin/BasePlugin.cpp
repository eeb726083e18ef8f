#include "BasePlugin.h"

#include "parameters/BoolParameter.h"
#include "parameters/FloatParameter.h"
#include "parameters/IntParameter.h"
#include "parameters/PluginResources.h"
#include "parameters/StringParameter.h"
#include "parameters/ValueText.h"
#include "content/PresetsContent.h"
#include "io/XmlInput.h"
#include "io/SafeFile.h"
#include "engine/NonFiniteGuard.h"
#include "FolderRule.h"
#include "PluginAudioProcessor.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr int presetNameIndex = 100000;
constexpr int realtimeQualityIndex = 100001;
constexpr int defaultRealtimeQualityIndex = 100002;
constexpr int offlineQualityIndex = 100003;
constexpr int defaultOfflineQualityIndex = 100004;
constexpr int firstDebugParameter = 300000;
constexpr int numDebugParameters = 12;
} // namespace

BasePlugin::BasePlugin(ParameterManager* manager, PluginResources productResources)
    : parameters(manager),
      midiMap(*manager),
      resources(productResources)
{
    sampleRateContext.set(44100.0);
    hostParameters.insertMultiple(0, nullptr, maxHostParameters);
    for (auto& v : hostValues)
        v.store(0.0f);
    for (auto& g : hostWriteGuards)
        g.store(0);

    parameters->loadFromResource(resources, "parameters.xml");
    addInternalParameters();

    events.loadFromResource(resources, "events.xml");
    events.addBuiltInEvents();

    pluginFile = juce::File::getSpecialLocation(juce::File::currentApplicationFile);
}

BasePlugin::~BasePlugin()
{
    parameters->removeListenerFromAll(this);
}

void BasePlugin::addInternalParameters()
{
    parameters->addParameter(new StringParameter(presetNameIndex, "Preset Name", "Init"));

    qualityParameter = dynamic_cast<EnumParameter*>(parameters->getParameter("Processing Quality"));
    if (qualityParameter == nullptr)
        return;

    // Added in this order on purpose: the two live settings first, then the user's defaults.
    const std::pair<int, const char*> clones[] = {
        { realtimeQualityIndex, "Real-time Processing Quality" },
        { offlineQualityIndex, "Offline Processing Quality" },
        { defaultRealtimeQualityIndex, "Default Real-time Processing Quality" },
        { defaultOfflineQualityIndex, "Default Offline Processing Quality" },
    };
    for (const auto& [index, name] : clones)
        parameters->addParameter(qualityParameter->clone(index, name));

    realtimeQualityParameter = dynamic_cast<EnumParameter*>(parameters->getParameter(realtimeQualityIndex));
    offlineQualityParameter = dynamic_cast<EnumParameter*>(parameters->getParameter(offlineQualityIndex));
}

void BasePlugin::addDebugParameters()
{
    for (int i = 0; i < numDebugParameters; ++i)
    {
        auto* p = new FloatParameter(firstDebugParameter + i, "Debug Parameter " + juce::String(i), 0.0f, 1.0f, 0.0f);
        if (parameters->addParameter(p) == 1)
            p->addListener(this);
    }
    events.addDebugEvents();
}

juce::String BasePlugin::getPluginFormat() const
{
    if (processor == nullptr)
        return "Undefined";
    return juce::AudioProcessor::getWrapperTypeDescription(processor->wrapperType);
}

//==============================================================================
void BasePlugin::setUpDirectories()
{
    const auto code = getCodeName();
    userDirectory = FolderRule::userDirectory(code, pluginFile, getBranch());
    dataDirectory = FolderRule::dataDirectory(code, pluginFile, getBranch());

    // An entry that exists is never overwritten; a folder that cannot be created is not reported
    // here, whatever writes into it fails later.
    if (! directories.contains("AppData"))
        directories.set("AppData", dataDirectory);
    if (! directories.contains("UserData"))
    {
        directories.set("UserData", userDirectory);
        if (! userDirectory.isDirectory())
            userDirectory.createDirectory();
    }
    if (! directories.contains("UserStore"))
    {
        const auto store = userDirectory.getChildFile("UserStore");
        directories.set("UserStore", store);
        store.createDirectory();
    }
}

juce::File BasePlugin::getDirectory(const juce::String& key) const
{
    return directories.contains(key) ? directories[key] : juce::File();
}

juce::File BasePlugin::getUserPresetsFolder()
{
    return supportsPresets() ? getDirectory("UserPresets") : juce::File();
}

void BasePlugin::initialise()
{
    setUpDirectories();

    if (autoMapsHostParameters() && supportsPresets())
    {
        hostParameterCount = 0;
        const auto& all = parameters->getParameters();
        for (int i = 0; i < getParameterCount() && i < all.size(); ++i)
        {
            auto* p = all.getUnchecked(i);
            if (p == nullptr || ! p->isAutomatable())
                continue;
            const int h = hostParameterCount++;
            {
                const juce::ScopedLock lock(hostParametersLock);
                hostParameters.set(h, p);
            }
            const juce::ScopedLock lock(hostIndicesLock);
            hostIndices.set(p->getIndex(), h);
        }
    }

    if (wantsDebugParameters())
        addDebugParameters();

    parameters->addListenerToAll(this);

    readUserSettings();

    midiMap.setName(getCodeName());
    if (midiMapDefault)
        midiMap.loadFromFile(midiMapFile);

    loadHostMap();
}

void BasePlugin::finishInitialisation()
{
    if (supportsPresets())
    {
        if (! directories.contains("UserPresets"))
        {
            const auto folder = getDirectory("UserStore").getChildFile("Presets");
            directories.set("UserPresets", folder);
            folder.createDirectory();
        }

        auto& slot = presetSlots[0];
        slot.nameParameter = presetNameIndex;
        slot.ranges.clear();
        slot.ranges.addRange({ 0, getParameterCount() });
        storeToPreset(defaultPreset, 0);
        storeToPreset(currentPreset, 0);
    }

    if (supportsPresets())
    {
        changeDetector = std::make_unique<PresetChangeDetector>(presetSlots[0].ranges, *parameters);
        userPresets = std::make_unique<PresetsDirectoryContent<Preset>>("User", presetHost, 0, getUserPresetsFolder(),
                                                                         getPresetFileExtension());
    }

    parameters->captureDefaults();

    loadingSlot.store(0);
    parameters->notifyAll();
    loadingSlot.store(-1);
    resetChangeDetector(0);

    if (wantsStateDump())
    {
        if (const auto dump = XmlInput::parse(getStateDumpFile()))
            setState(*dump);
    }
}

void BasePlugin::beginTeardown()
{
    writeUserSettings();
    closing = true;
}

juce::File BasePlugin::getStateDumpFile() const
{
    return userDirectory.getChildFile(getCodeName() + ".dump");
}

//==============================================================================
juce::File BasePlugin::getUserSettingsFile()
{
    return userDirectory.getChildFile(getCodeName() + ".ini");
}

bool BasePlugin::isUserSettings(const juce::XmlElement& element)
{
    return element.getTagName().equalsIgnoreCase("UserSettings")
        && element.getStringAttribute("application").equalsIgnoreCase(getCodeName());
}

void BasePlugin::setMidiMapDefault(bool useAsDefault, const juce::File& file)
{
    midiMapDefault = useAsDefault;
    midiMapFile = file;
}

void BasePlugin::readQualities(const juce::XmlElement& presetElement, int firstIndex, int secondIndex)
{
    Preset qualities;
    qualities.readXml(&presetElement, *parameters, false);
    for (int i = 0; i < qualities.getNumValues(); ++i)
    {
        const auto& v = qualities.getValue(i);
        if (v.index == firstIndex || v.index == secondIndex)
            parameters->setText(v.index, v.value);
    }
}

void BasePlugin::readUserSettings()
{
    const auto root = XmlInput::parse(getUserSettingsFile());
    if (root != nullptr && isUserSettings(*root))
    {
        for (auto* child : root->getChildIterator())
        {
            const bool midi = child->getTagName().equalsIgnoreCase("MidiControlMap");
            const bool host = child->getTagName().equalsIgnoreCase("HostParametersMap");
            if (! midi && ! host)
                continue;
            const bool useAsDefault = child->getStringAttribute("default").equalsIgnoreCase("yes");
            const auto path = child->getStringAttribute("file");
            // A relative or empty path names no document: the map's load then finds nothing.
            const auto file = juce::File::isAbsolutePath(path) ? juce::File(path) : juce::File();
            (midi ? midiMapDefault : hostParameterMapDefault) = useAsDefault;
            (midi ? midiMapFile : hostParameterMapFile) = file;
        }

        if (auto* quality = root->getChildByName("DefaultProcessingQuality"))
            if (auto* presetXml = quality->getChildByName("Preset"))
                readQualities(*presetXml, defaultRealtimeQualityIndex, defaultOfflineQualityIndex);

        readExtraUserSettings(*root);
    }

    // Whether or not the file was read, a new instance starts with the user's default qualities.
    if (qualityParameter != nullptr)
    {
        parameters->copyValue(realtimeQualityIndex, defaultRealtimeQualityIndex);
        parameters->copyValue(offlineQualityIndex, defaultOfflineQualityIndex);
    }
    userSettingsRead();
}

void BasePlugin::writeUserSettings()
{
    juce::XmlElement root("UserSettings");
    root.setAttribute("application", getCodeName());
    root.createNewChildElement("Presets")->createNewChildElement("Author");

    const auto addMap = [&root](const char* tag, bool useAsDefault, const juce::File& file) {
        auto* map = root.createNewChildElement(tag);
        map->setAttribute("default", useAsDefault ? "yes" : "no");
        if (file != juce::File())
            map->setAttribute("file", file.getFullPathName());
    };
    addMap("MidiControlMap", midiMapDefault, midiMapFile);
    addMap("HostParametersMap", hostParameterMapDefault, hostParameterMapFile);

    if (qualityParameter != nullptr)
    {
        Preset qualities;
        qualities.addValue(parameters->getParameter(defaultRealtimeQualityIndex));
        qualities.addValue(parameters->getParameter(defaultOfflineQualityIndex));
        root.createNewChildElement("DefaultProcessingQuality")->addChildElement(qualities.createXml(*parameters, true).release());
    }

    writeExtraUserSettings(root);
    // The last instance to close wins; a failed write is not reported (the next teardown tries again).
    (void) SafeFile::writeXml(getUserSettingsFile(), root);

    if (wantsStateDump())
        if (const auto state = createState())
            (void) SafeFile::writeXml(getStateDumpFile(), *state);
}

void BasePlugin::updateLatency()
{
    if (processor == nullptr)
        return;
    const int latency = getLatency();
    if (latency != processor->getLatencySamples())
        processor->setLatencySamples(latency);
}

//==============================================================================
void BasePlugin::parameterChanged(Parameter& parameter)
{
    if (&parameter == qualityParameter)
        updateLatency();
    else if (parameter.getIndex() == realtimeQualityIndex)
        applyQualitySetting();

    if (closing.load() || processor == nullptr)
        return;
    const int h = getHostIndex(parameter.getIndex());
    if (h >= 0 && hostWriteGuards[static_cast<size_t>(h)].load() == 0)
        processor->sendParameterValueToHost(h, parameter.getNormalized());
}

void BasePlugin::parameterChangeStarted(Parameter& parameter)
{
    if (closing.load() || processor == nullptr)
        return;
    const int h = getHostIndex(parameter.getIndex());
    if (h >= 0)
        processor->sendGestureToHost(h, true);
}

void BasePlugin::parameterChangeEnded(Parameter& parameter)
{
    if (closing.load() || processor == nullptr)
        return;
    const int h = getHostIndex(parameter.getIndex());
    if (h >= 0)
        processor->sendGestureToHost(h, false);
}

void BasePlugin::applyQualitySetting()
{
    if (qualityParameter == nullptr)
        return;
    auto* source = nonRealtime.load() == 1 ? offlineQualityParameter : realtimeQualityParameter;
    if (source != nullptr)
        qualityParameter->copyFrom(*source, true);
}

bool BasePlugin::isBusesLayoutSupported(const juce::AudioProcessor::BusesLayout&) const
{
    return true;
}

//==============================================================================
void BasePlugin::prepareToPlay(double sampleRate, int newMaximumBlockSize)
{
    const int oldBlockSize = maximumBlockSize;
    maximumBlockSize = newMaximumBlockSize;

    // The engine is built for host rates from 8 kHz to 768 kHz; a host that asks for another rate
    // (or for none that is a number) gets the nearest of those, never an engine outside its range.
    const double engineRate =
        std::isfinite(sampleRate) ? std::clamp(sampleRate, minimumSampleRate, maximumSampleRate) : 44100.0;
    bool rateChanged = sampleRateContext.set(engineRate);
    if (! everPrepared)
        rateChanged = true;
    everPrepared = true;

    nonRealtime.store(processor != nullptr && processor->isNonRealtime() ? 1 : 0);
    prepared.store(1);

    if (qualityParameter != nullptr)
        applyQualitySetting();
    updateLatency();

    prepare(rateChanged, oldBlockSize != newMaximumBlockSize);
}

void BasePlugin::releaseResources()
{
    prepared.store(0);
    release();
}

void BasePlugin::processBlock(juce::AudioBuffer<float>& buffer, juce::MidiBuffer& midi, bool bypassed)
{
    if (! bypassed)
    {
        const int offline = processor != nullptr && processor->isNonRealtime() ? 1 : 0;
        if (nonRealtime.exchange(offline) != offline && qualityParameter != nullptr)
            applyQualitySetting();
    }

    ProcessContext context;
    context.buffer = &buffer;
    context.midi = &midi;
    context.numInputChannels = processor != nullptr ? processor->getTotalNumInputChannels() : buffer.getNumChannels();
    context.numOutputChannels = processor != nullptr ? processor->getTotalNumOutputChannels() : buffer.getNumChannels();
    context.playHead = processor != nullptr ? processor->getPlayHead() : nullptr;
    context.bypassed = bypassed;

    for (int ch = 0; ch < context.numInputChannels && ch < buffer.getNumChannels(); ++ch)
        guardInput(buffer.getWritePointer(ch), buffer.getNumSamples());

    // Flush-to-zero and denormals-are-zero for exactly the length of the block: the whole denormal
    // policy of the signal path.
    const juce::ScopedNoDenormals noDenormals;
    process(context);
}

//==============================================================================
int BasePlugin::getSlotOfParameter(int index)
{
    return supportsPresets() && index >= 0 && index < getParameterCount() ? 0 : -1;
}

void BasePlugin::storeToPreset(Preset& preset, int slot)
{
    if (slot < 0 || slot >= numPresetSlots)
        return;
    preset.collectParameters(*parameters, presetSlots[static_cast<size_t>(slot)].ranges);
    preset.setName(getPresetName(slot));
}

juce::String BasePlugin::getPresetName(int slot)
{
    if (slot < 0 || slot >= numPresetSlots)
        return {};
    return parameters->getText(presetSlots[static_cast<size_t>(slot)].nameParameter);
}

void BasePlugin::setPresetName(const juce::String& name, int slot)
{
    if (slot < 0 || slot >= numPresetSlots)
        return;
    parameters->setText(presetSlots[static_cast<size_t>(slot)].nameParameter, name);
}

const Preset* BasePlugin::getDefaultPreset(int)
{
    return &defaultPreset;
}

const Preset* BasePlugin::getCurrentPreset(int)
{
    return &currentPreset;
}

void BasePlugin::applyPreset(const Preset* preset, int slot, bool remember)
{
    if (preset == nullptr || slot < 0 || slot >= numPresetSlots)
        return;
    const auto& ranges = presetSlots[static_cast<size_t>(slot)].ranges;

    // What the preset lacks goes to the default, so no parameter keeps an old value.
    if (const auto* defaults = getDefaultPreset(slot))
    {
        auto missing = defaults->getIndices();
        const auto& held = preset->getIndices();
        for (int r = 0; r < held.getNumRanges(); ++r)
            missing.removeRange(held.getRange(r));

        for (int r = missing.getNumRanges(); --r >= 0;)
        {
            const auto range = missing.getRange(r);
            for (int index = range.getStart(); index < range.getEnd(); ++index)
            {
                juce::String text;
                if (ranges.contains(index) && defaults->findValue(index, text))
                    parameters->setText(index, text);
            }
        }
    }

    for (int i = 0; i < preset->getNumValues(); ++i)
    {
        const auto& v = preset->getValue(i);
        if (ranges.contains(v.index) && ! parameters->isParameterProtected(v.index))
            parameters->setText(v.index, v.value);
    }

    setPresetName(preset->getName(), slot);

    if (remember)
        storeToPreset(currentPreset, slot);

    if (auto* detector = getChangeDetector(slot))
        detector->reset(getCurrentPreset(slot));
}

bool BasePlugin::isPresetChanged()
{
    auto* detector = getChangeDetector(0);
    return detector != nullptr && detector->hasChanged();
}

void BasePlugin::resetChangeDetector(int slot)
{
    if (auto* detector = getChangeDetector(slot))
        detector->reset(getCurrentPreset(slot));
}

void BasePlugin::revertParameter(int index)
{
    const int slot = getSlotOfParameter(index);
    if (slot < 0)
        return;
    juce::String text;
    if (const auto* current = getCurrentPreset(slot); current != nullptr && current->findValue(index, text))
        parameters->setText(index, text);
}

//==============================================================================
std::unique_ptr<juce::XmlElement> BasePlugin::createParametersStateXml()
{
    Preset preset;
    storeToPreset(preset, 0);
    return preset.createXml(*parameters, true);
}

void BasePlugin::restoreParametersState(const juce::XmlElement& element)
{
    Preset preset;
    preset.readXml(&element, *parameters, false);
    loadPreset(&preset, 0);
}

void BasePlugin::loadPreset(const Preset* preset, int slot)
{
    if (preset == nullptr)
        return;
    // Applying the current preset itself is safe: the baseline is rewritten only after every
    // value has been set.
    loadingSlot.store(slot);
    applyPreset(preset, slot, true);
    loadingSlot.store(-1);
    afterPresetLoaded(slot);
}

std::unique_ptr<juce::XmlElement> BasePlugin::createState()
{
    auto root = std::make_unique<juce::XmlElement>("PluginState");
    root->setAttribute("application", getCodeName());

    if (qualityParameter != nullptr)
    {
        Preset qualities;
        qualities.addValue(parameters->getParameter(realtimeQualityIndex));
        qualities.addValue(parameters->getParameter(offlineQualityIndex));
        root->createNewChildElement("ProcessingQuality")->addChildElement(qualities.createXml(*parameters, true).release());
    }

    root->createNewChildElement("ParametersState")->addChildElement(createParametersStateXml().release());
    root->addChildElement(midiMap.createXml().release());
    return root;
}

bool BasePlugin::isPluginState(const juce::XmlElement& element)
{
    return element.getTagName().equalsIgnoreCase("PluginState")
        && element.getStringAttribute("application").equalsIgnoreCase(getCodeName());
}

void BasePlugin::setState(const juce::XmlElement& element)
{
    if (! isPluginState(element))
        return;

    if (auto* quality = element.getChildByName("ProcessingQuality"))
        if (auto* presetXml = quality->getChildByName("Preset"))
            readQualities(*presetXml, realtimeQualityIndex, offlineQualityIndex);

    if (auto* state = element.getChildByName("ParametersState"))
        if (auto* presetXml = state->getChildByName("Preset"))
            restoreParametersState(*presetXml);

    // A project brings its own MIDI map; a chunk without one leaves the map as it was.
    if (auto* map = element.getChildByName("MidiControlMap"))
        midiMap.readXml(map);
}

void BasePlugin::writeStateToBlock(juce::MemoryBlock& block)
{
    // The formats this build ships (VST3, LV2, Standalone) always receive the full XML state, even
    // before any state was given to the instance (the single zero byte for that case belongs to a
    // format this build does not ship). The one-byte block stands only for a state that
    // copyXmlToBinary could not serialise; it is never parsed when it comes back.
    block.reset();
    if (auto state = createState())
        juce::AudioProcessor::copyXmlToBinary(*state, block);
    if (block.isEmpty())
        block.setSize(1, true);
    ++stateReadCount;
}

void BasePlugin::readStateFromBlock(const void* data, int size)
{
    if (data != nullptr && size > 1)
        if (auto xml = XmlInput::parseBinaryState(data, size))
            setState(*xml);
    ++stateWriteCount;
}

//==============================================================================
juce::String BasePlugin::getHostParameterName(int hostIndex)
{
    auto* p = getHostParameter(hostIndex);
    return p != nullptr ? p->getName() : juce::String();
}

Parameter* BasePlugin::getHostParameter(int hostIndex)
{
    if (hostIndex < 0 || hostIndex >= maxHostParameters)
        return nullptr;
    const juce::ScopedLock lock(hostParametersLock);
    return hostParameters[hostIndex];
}

int BasePlugin::getHostIndex(int parameterIndex)
{
    const juce::ScopedLock lock(hostIndicesLock);
    return hostIndices.contains(parameterIndex) ? hostIndices[parameterIndex] : -1;
}

juce::String BasePlugin::getParameterName(int hostIndex)
{
    if (hostIndex < 0 || hostIndex >= getHostParameterCount())
        return {};
    if (getHostParameter(hostIndex) != nullptr)
        return getHostParameterName(hostIndex);
    return "Parameter " + juce::String(hostIndex + 1);
}

float BasePlugin::getParameter(int hostIndex)
{
    if (hostIndex < 0 || hostIndex >= getHostParameterCount())
        return 0.0f;
    if (auto* p = getHostParameter(hostIndex))
        return p->getNormalized();
    return hostValues[static_cast<size_t>(hostIndex)].load();
}

juce::String BasePlugin::getParameterText(int hostIndex)
{
    if (hostIndex < 0 || hostIndex >= getHostParameterCount())
        return {};
    if (auto* p = getHostParameter(hostIndex))
        return p->getDisplayText();
    return juce::String(static_cast<double>(hostValues[static_cast<size_t>(hostIndex)].load()), 8);
}

namespace
{
// A detached copy of a parameter whose value and cached normalized value both match the original,
// so that reading texts at other values never touches the live parameter or its listeners.
std::unique_ptr<Parameter> makeScratchCopy(const Parameter& original)
{
    std::unique_ptr<Parameter> scratch(original.clone(original.getIndex(), original.getName()));
    scratch->setUnit(original.getUnit());
    const float n = original.getNormalized();
    // A fresh float clone caches normalized 0: moving it away first makes the next write store both.
    scratch->setNormalized(n < 0.5f ? 1.0f : 0.0f, false);
    scratch->copyFrom(original, false);
    return scratch;
}
} // namespace

juce::String BasePlugin::getParameterTextForValue(int hostIndex, float normalizedValue)
{
    if (hostIndex < 0 || hostIndex >= getHostParameterCount())
        return {};
    auto* p = getHostParameter(hostIndex);
    if (p == nullptr)
        return juce::String(static_cast<double>(normalizedValue), 8);
    auto scratch = makeScratchCopy(*p);
    scratch->setNormalized(normalizedValue, false);
    return scratch->getDisplayText();
}

float BasePlugin::getParameterValueForText(int hostIndex, const juce::String& text)
{
    if (hostIndex < 0 || hostIndex >= getHostParameterCount())
        return 0.0f;
    auto* p = getHostParameter(hostIndex);
    if (p == nullptr)
    {
        const auto number = ValueText::parseNumber(text);
        return number ? juce::jlimit(0.0f, 1.0f, static_cast<float>(*number)) : getParameter(hostIndex);
    }
    // The host shows display texts, so a typed text is read as one: "+6.0dB", "6 dB", "On", an item.
    auto scratch = makeScratchCopy(*p);
    int steps = 0;
    if (dynamic_cast<BoolParameter*>(p) != nullptr)
        steps = 2;
    else if (auto* ip = dynamic_cast<IntParameter*>(p))
        steps = ip->getMaximum() - ip->getMinimum() + 1;
    return ValueText::normalizedForDisplayText(text, p->getNormalized(), steps,
                                               [&scratch](float n)
                                               {
                                                   scratch->setNormalized(n, false);
                                                   return scratch->getDisplayText();
                                               });
}

float BasePlugin::getParameterDefaultValue(int hostIndex)
{
    if (hostIndex < 0 || hostIndex >= getHostParameterCount())
        return 0.0f;
    auto* p = getHostParameter(hostIndex);
    float value = 0.0f;
    if (p == nullptr || ! parameters->getDefaultValue(p->getIndex(), value))
        return 0.0f;
    return value;
}

void BasePlugin::setParameter(int hostIndex, float value)
{
    if (hostIndex < 0 || hostIndex >= getHostParameterCount())
        return;
    const auto h = static_cast<size_t>(hostIndex);
    hostValues[h].store(value);
    if (auto* p = getHostParameter(hostIndex))
    {
        hostWriteGuards[h].store(1);
        p->setNormalized(value, true);
        hostWriteGuards[h].store(0);
    }
}

bool BasePlugin::isParameterAutomatable(int hostIndex)
{
    return hostIndex >= 0 && hostIndex < getHostParameterCount();
}

bool BasePlugin::isMetaParameter(int hostIndex)
{
    if (hostIndex < 0 || hostIndex >= getHostParameterCount())
        return false;
    auto* p = getHostParameter(hostIndex);
    return p != nullptr && p->isMeta();
}

void BasePlugin::clearHostParameter(int hostIndex)
{
    if (hostIndex < 0 || hostIndex >= getHostParameterCount())
        return;
    Parameter* p = nullptr;
    {
        const juce::ScopedLock lock(hostParametersLock);
        p = hostParameters[hostIndex];
        if (p == nullptr)
            return;
        hostParameters.set(hostIndex, nullptr);
    }
    {
        const juce::ScopedLock lock(hostIndicesLock);
        hostIndices.remove(p->getIndex());
    }
    hostMapChanges.sendChangeMessage();
}

void BasePlugin::setHostParameter(int hostIndex, Parameter* p, bool tellHost)
{
    if (p == nullptr)
    {
        clearHostParameter(hostIndex);
        return;
    }
    const int oldIndex = getHostIndex(p->getIndex());
    if (oldIndex >= 0 && oldIndex != hostIndex)
        clearHostParameter(oldIndex);
    if (! p->isAutomatable() || hostIndex < 0 || hostIndex >= getHostParameterCount())
        return;

    Parameter* displaced = nullptr;
    {
        const juce::ScopedLock lock(hostParametersLock);
        displaced = hostParameters[hostIndex];
        if (displaced == p)
            return;
        hostParameters.set(hostIndex, p);
    }
    {
        const juce::ScopedLock lock(hostIndicesLock);
        if (displaced != nullptr)
            hostIndices.remove(displaced->getIndex());
        hostIndices.set(p->getIndex(), hostIndex);
    }
    if (tellHost)
    {
        if (processor != nullptr)
            processor->updateHostDisplay(juce::AudioProcessor::ChangeDetails().withParameterInfoChanged(true));
        hostMapChanges.sendChangeMessage();
    }
}

void BasePlugin::clearHostMap()
{
    {
        const juce::ScopedLock lock(hostParametersLock);
        hostParameters.clearQuick();
        hostParameters.insertMultiple(0, nullptr, maxHostParameters);
    }
    {
        const juce::ScopedLock lock(hostIndicesLock);
        hostIndices.clear();
    }
    hostMapChanges.sendChangeMessage();
}

bool BasePlugin::isHostMapFor(const juce::XmlElement* element)
{
    return element != nullptr && element->getTagName().equalsIgnoreCase("HostParametersMap")
        && element->getStringAttribute("name").equalsIgnoreCase(getCodeName());
}

void BasePlugin::readHostMapXml(const juce::XmlElement& root)
{
    if (! isHostMapFor(&root))
        return;
    clearHostMap();
    for (auto* child : root.getChildIterator())
    {
        if (! child->getTagName().equalsIgnoreCase("assign"))
            continue;
        // Host numbers count from 1: a missing or zero number is -1 and lands nowhere.
        const int hostIndex = child->getIntAttribute("hostParam", 0) - 1;
        setHostParameter(hostIndex, parameters->getParameter(child->getStringAttribute("pluginParam")), true);
    }
    hostMapChanges.sendChangeMessage();
}

bool BasePlugin::hasFixedHostList() const
{
    return processor != nullptr && processor->wrapperType == juce::AudioProcessor::wrapperType_LV2;
}

bool BasePlugin::loadHostMapFile(const juce::File& file)
{
    if (hasFixedHostList() || ! file.existsAsFile())
        return false;
    const auto root = XmlInput::parse(file);
    if (root == nullptr)
        return false;
    readHostMapXml(*root);
    return true;
}

void BasePlugin::loadHostMap()
{
    if (hostParameterMapDefault && ! hasFixedHostList())
    {
        loadHostMapFile(hostParameterMapFile);
        return;
    }
    const auto text = resources.getText("default." + getCodeLetters().toLowerCase() + "hpmap");
    if (const auto root = juce::parseXML(text))
        readHostMapXml(*root);
}
