#include "BasePlugin.h"

#include "FolderRule.h"
#include "InternalParameters.h"
#include "PluginAudioProcessor.h"
#include "content/PresetsContent.h"
#include "engine/NonFiniteGuard.h"
#include "io/SafeFile.h"
#include "io/XmlInput.h"
#include "parameters/BoolParameter.h"
#include "parameters/FloatParameter.h"
#include "parameters/IntParameter.h"
#include "parameters/PluginResources.h"
#include "parameters/StringParameter.h"
#include "parameters/ValueText.h"

#include <algorithm>
#include <cmath>

BasePlugin::BasePlugin(ParameterManager* manager, PluginResources productResources, const FolderRule& folders)
    : folderRule(folders), parameters(manager),
      hostMap(
          *manager, [this] { return getHostParameterCount(); },
          [this]
          {
              if (processor != nullptr)
                  processor->updateHostDisplay(juce::AudioProcessor::ChangeDetails().withParameterInfoChanged(true));
          }),
      settings(*manager), stateChunk(*manager), midiMap(*manager), resources(productResources), presetSlots(*manager)
{
    sampleRateContext.set(44100.0);

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
    parameters->addParameter(new StringParameter(InternalParameters::presetName, "Preset Name", "Init"));

    qualityParameter = dynamic_cast<EnumParameter*>(parameters->getParameter("Processing Quality"));
    if (qualityParameter == nullptr)
        return;

    // Added in this order on purpose: the two live settings first, then the user's defaults.
    const std::pair<int, const char*> clones[] = {
        {InternalParameters::realtimeQuality, "Real-time Processing Quality"},
        {InternalParameters::offlineQuality, "Offline Processing Quality"},
        {InternalParameters::defaultRealtimeQuality, "Default Real-time Processing Quality"},
        {InternalParameters::defaultOfflineQuality, "Default Offline Processing Quality"},
    };
    for (const auto& [index, name] : clones)
        parameters->addParameter(qualityParameter->clone(index, name));

    realtimeQualityParameter =
        dynamic_cast<EnumParameter*>(parameters->getParameter(InternalParameters::realtimeQuality));
    offlineQualityParameter =
        dynamic_cast<EnumParameter*>(parameters->getParameter(InternalParameters::offlineQuality));
}

void BasePlugin::addDebugParameters()
{
    for (int i = 0; i < InternalParameters::numDebugParameters; ++i)
    {
        auto* p = new FloatParameter(InternalParameters::firstDebugParameter + i, "Debug Parameter " + juce::String(i),
                                     0.0f, 1.0f, 0.0f);
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
    userDirectory = folderRule.userDirectory(code, pluginFile, getBranch());
    dataDirectory = folderRule.dataDirectory(code, pluginFile, getBranch());

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
            hostMap.placeSilently(hostParameterCount++, *p);
        }
    }

    if (wantsDebugParameters())
        addDebugParameters();

    parameters->addListenerToAll(this);

    readUserSettings();

    midiMap.setName(getCodeName());
    if (settings.midiMapDefault)
        midiMap.loadFromFile(settings.midiMapFile);

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

        presetSlots.setUp(0, InternalParameters::presetName, getParameterCount());
        storeToPreset(presetSlots.getDefaultPreset(), 0);
        storeToPreset(presetSlots.getCurrentPreset(), 0);
    }

    if (supportsPresets())
    {
        changeDetector = std::make_unique<PresetChangeDetector>(presetSlots.getSlot(0).ranges, *parameters);
        userPresets = std::make_unique<PresetsDirectoryContent<Preset>>("User", presetHost, 0, getUserPresetsFolder(),
                                                                        getPresetFileExtension());
    }

    parameters->captureDefaults();
    startEditor();

    presetSlots.setLoadingSlot(0);
    parameters->notifyAll();
    presetSlots.setLoadingSlot(-1);
    resetChangeDetector(0);

    if (wantsStateDump())
    {
        if (const auto dump = XmlInput::parse(getStateDumpFile()))
            setState(*dump);
    }
}

namespace
{
/** Runs `work` on the message thread: at once when this is it (or when no message thread exists
    yet, in which case this thread becomes it), else while holding the message thread's lock, as
    JUCE's own plug-in wrappers do for their editors when a host builds or destroys a plug-in on
    another thread. */
template <typename Work> void onMessageThread(Work&& work)
{
    auto* messages = juce::MessageManager::getInstanceWithoutCreating();
    if (messages == nullptr || messages->isThisTheMessageThread())
    {
        work();
        return;
    }
    const juce::MessageManagerLock lock;
    work();
}
} // namespace

void BasePlugin::startEditor()
{
    if (editor != nullptr || editorGone)
        return;
    onMessageThread(
        [this]
        {
            editor = createEditor();
            if (editor == nullptr)
                return;
            editor->initialise();
            editor->afterInitialise();
            editor->startTicking();
        });
}

void BasePlugin::deleteEditor()
{
    editorGone = true;
    if (editor == nullptr)
        return;
    onMessageThread(
        [this]
        {
            editor->stopTicking();
            editor.reset();
        });
}

std::unique_ptr<juce::XmlElement> BasePlugin::readUserSettingsDocument()
{
    auto root = XmlInput::parse(getUserSettingsFile());
    return root != nullptr && isUserSettings(*root) ? std::move(root) : nullptr;
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
    return UserSettings::isSettingsFor(element, getCodeName());
}

void BasePlugin::setMidiMapDefault(bool useAsDefault, const juce::File& file)
{
    settings.midiMapDefault = useAsDefault;
    settings.midiMapFile = file;
}

void BasePlugin::readUserSettings()
{
    const auto root = XmlInput::parse(getUserSettingsFile());
    if (root != nullptr && isUserSettings(*root))
    {
        settings.read(*root);
        readExtraUserSettings(*root);
    }

    // Whether or not the file was read, a new instance starts with the user's default qualities.
    if (qualityParameter != nullptr)
    {
        parameters->copyValue(InternalParameters::realtimeQuality, InternalParameters::defaultRealtimeQuality);
        parameters->copyValue(InternalParameters::offlineQuality, InternalParameters::defaultOfflineQuality);
    }
    userSettingsRead();
}

void BasePlugin::writeUserSettings()
{
    const auto root = settings.createXml(getCodeName(), qualityParameter != nullptr);
    writeExtraUserSettings(*root);
    if (editor != nullptr)
        root->addChildElement(editor->createUserSettings().release());
    // The last instance to close wins; a failed write is not reported (the next teardown tries again).
    (void)SafeFile::writeXml(getUserSettingsFile(), *root);

    if (wantsStateDump())
        if (const auto state = createState())
            (void)SafeFile::writeXml(getStateDumpFile(), *state);
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
    else if (parameter.getIndex() == InternalParameters::realtimeQuality)
        applyQualitySetting();

    if (closing.load() || processor == nullptr)
        return;
    const int h = getHostIndex(parameter.getIndex());
    if (h >= 0 && ! hostMap.isHostWriting(h))
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
    if (! presetSlots.isSlot(slot))
        return;
    presetSlots.collect(preset, slot);
    preset.setName(getPresetName(slot));
}

juce::String BasePlugin::getPresetName(int slot)
{
    return presetSlots.getName(slot);
}

void BasePlugin::setPresetName(const juce::String& name, int slot)
{
    presetSlots.setName(name, slot);
}

const Preset* BasePlugin::getDefaultPreset(int)
{
    return &presetSlots.getDefaultPreset();
}

const Preset* BasePlugin::getCurrentPreset(int)
{
    return &presetSlots.getCurrentPreset();
}

void BasePlugin::applyPreset(const Preset* preset, int slot, bool remember)
{
    if (preset == nullptr || ! presetSlots.isSlot(slot))
        return;
    presetSlots.applyValues(*preset, getDefaultPreset(slot), slot);

    setPresetName(preset->getName(), slot);

    if (remember)
        storeToPreset(presetSlots.getCurrentPreset(), slot);

    if (auto* detector = getChangeDetector(slot))
        detector->reset(getCurrentPreset(slot));
    presetChangeNotifier.trigger();
}

bool BasePlugin::isPresetChanged()
{
    auto* detector = getChangeDetector(0);
    return detector != nullptr && detector->hasChanged();
}

bool BasePlugin::isInPresetRange(int index) const
{
    for (int slot = 0; slot < numPresetSlots; ++slot)
        if (presetSlots.getSlot(slot).ranges.contains(index))
            return true;
    return false;
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
    presetSlots.setLoadingSlot(slot);
    applyPreset(preset, slot, true);
    presetSlots.setLoadingSlot(-1);
    afterPresetLoaded(slot);
}

std::unique_ptr<juce::XmlElement> BasePlugin::createState()
{
    auto root = stateChunk.createDocument(getCodeName(), qualityParameter != nullptr);
    root->createNewChildElement("ParametersState")->addChildElement(createParametersStateXml().release());
    root->addChildElement(midiMap.createXml().release());
    if (editor != nullptr)
        root->addChildElement(editor->createStateXml().release());
    return root;
}

bool BasePlugin::isPluginState(const juce::XmlElement& element)
{
    return StateChunk::isStateFor(element, getCodeName());
}

void BasePlugin::setState(const juce::XmlElement& element)
{
    if (! isPluginState(element))
        return;

    stateChunk.readQualities(element);

    if (auto* state = element.getChildByName("ParametersState"))
        if (auto* presetXml = state->getChildByName("Preset"))
            restoreParametersState(*presetXml);

    // A project brings its own MIDI map; a chunk without one leaves the map as it was.
    if (auto* map = element.getChildByName("MidiControlMap"))
        midiMap.readXml(map);

    if (editor != nullptr)
        for (auto* child : element.getChildIterator())
            if (editor->isSettingsTag(*child))
            {
                editor->applyStateXml(*child);
                break;
            }
}

void BasePlugin::writeStateToBlock(juce::MemoryBlock& block)
{
    const auto state = createState();
    stateChunk.writeToBlock(state.get(), block);
}

void BasePlugin::readStateFromBlock(const void* data, int size)
{
    if (auto xml = StateChunk::readFromBlock(data, size))
        setState(*xml);
    stateChunk.countWrite();
}

//==============================================================================
juce::String BasePlugin::getHostParameterName(int hostIndex)
{
    auto* p = getHostParameter(hostIndex);
    return p != nullptr ? p->getName() : juce::String();
}

Parameter* BasePlugin::getHostParameter(int hostIndex)
{
    return hostMap.getParameter(hostIndex);
}

int BasePlugin::getHostIndex(int parameterIndex)
{
    return hostMap.getHostIndex(parameterIndex);
}

juce::String BasePlugin::getParameterName(int hostIndex)
{
    if (! hostMap.isValid(hostIndex))
        return {};
    if (getHostParameter(hostIndex) != nullptr)
        return getHostParameterName(hostIndex);
    return "Parameter " + juce::String(hostIndex + 1);
}

float BasePlugin::getParameter(int hostIndex)
{
    return hostMap.getValue(hostIndex);
}

juce::String BasePlugin::getParameterText(int hostIndex)
{
    return hostMap.getText(hostIndex);
}

juce::String BasePlugin::getParameterTextForValue(int hostIndex, float normalizedValue)
{
    return hostMap.getTextForValue(hostIndex, normalizedValue);
}

float BasePlugin::getParameterValueForText(int hostIndex, const juce::String& text)
{
    return hostMap.getValueForText(hostIndex, text);
}

float BasePlugin::getParameterDefaultValue(int hostIndex)
{
    return hostMap.getDefaultValue(hostIndex);
}

void BasePlugin::setParameter(int hostIndex, float value)
{
    hostMap.setValue(hostIndex, value);
}

bool BasePlugin::isParameterAutomatable(int hostIndex)
{
    return hostMap.isValid(hostIndex);
}

bool BasePlugin::isMetaParameter(int hostIndex)
{
    return hostMap.isMeta(hostIndex);
}

void BasePlugin::clearHostParameter(int hostIndex)
{
    hostMap.clear(hostIndex);
}

void BasePlugin::setHostParameter(int hostIndex, Parameter* p, bool tellHost)
{
    hostMap.place(hostIndex, p, tellHost);
}

void BasePlugin::clearHostMap()
{
    hostMap.clearAll();
}

bool BasePlugin::isHostMapFor(const juce::XmlElement* element)
{
    return element != nullptr && element->getTagName().equalsIgnoreCase("HostParametersMap") &&
           element->getStringAttribute("name").equalsIgnoreCase(getCodeName());
}

void BasePlugin::readHostMapXml(const juce::XmlElement& root)
{
    if (isHostMapFor(&root))
        hostMap.readAssignments(root);
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
    if (settings.hostParameterMapDefault && ! hasFixedHostList())
    {
        loadHostMapFile(settings.hostParameterMapFile);
        return;
    }
    const auto text = resources.getText("default." + getCodeLetters().toLowerCase() + "hpmap");
    if (const auto root = juce::parseXML(text))
        readHostMapXml(*root);
}

bool BasePlugin::resetParameterToDefault(int index)
{
    auto* parameter = parameters->getParameter(index);
    float value = 0.0f;
    if (parameter == nullptr || ! parameters->getDefaultValue(index, value))
        return false;
    parameter->setNormalized(value, true);
    return true;
}
