#pragma once

// The plug-in framework's root object. BasePlugin owns the parameter manager and every parameter,
// the sample-rate constants and four parts it holds by value: the host parameter map
// (HostParameterMap), the user settings (UserSettings), the state chunk's frame and counters
// (StateChunk) and the preset slots with the default and current preset (PresetSlots). It runs the
// start-up sequence that PluginAudioProcessor drives, the audio entry (quality switch, denormal
// mode), and keeps the operations hosts, editors and products call, each delegating to its part;
// the hooks a product overrides stay here. MarrowgateEffect adds the DSP core and the block driver;
// Velmarin answers the product's constants.

#include "FolderRule.h"
#include "HostParameterMap.h"
#include "MidiControlMap.h"
#include "PluginEditor.h"
#include "PresetSlots.h"
#include "ProcessContext.h"
#include "SoftwareDesignation.h"
#include "StateChunk.h"
#include "UserSettings.h"
#include "content/ContentSource.h"
#include "content/Preset.h"
#include "content/PresetChangeDetector.h"
#include "content/PresetChangeNotifier.h"
#include "content/PresetHost.h"
#include "engine/SampleRateContext.h"
#include "parameters/EnumParameter.h"
#include "parameters/EventsMap.h"
#include "parameters/ParameterManager.h"

#include <atomic>

class PluginAudioProcessor;
class PluginEditor;

/** Framework root of one plug-in instance.
    Thread: constructed, initialised, destroyed and asked for state on the host's thread (usually
    the message thread); `processBlock` on the audio thread; `parameterChanged` on whichever thread
    writes a parameter; the host-map queries on any thread. */
class BasePlugin : public Parameter::Listener, public SoftwareDesignation
{
public:
    using PresetSlot = PresetSlots::PresetSlot;

    static constexpr int maxHostParameters = HostParameterMap::maxHostParameters;
    static constexpr int numPresetSlots = PresetSlots::numPresetSlots;
    /** Host sample rates the engine runs at; prepare takes any other rate as the nearest of these. */
    static constexpr double minimumSampleRate = 8000.0;
    static constexpr double maximumSampleRate = 768000.0;

    /** Takes ownership of the manager, reads "parameters.xml" from the product's resources into it
        and adds the internal parameters, then "events.xml" and the built-in events. The instance
        finds its folders by `folders`: the product's rule unless the maker (a test, a tool) names
        its own. */
    BasePlugin(ParameterManager* manager, PluginResources productResources, const FolderRule& folders = {});
    ~BasePlugin() override;

    // Parameter::Listener: the plug-in listens to every parameter.
    void parameterChanged(Parameter& parameter) override;
    void parameterChangeStarted(Parameter& parameter) override;
    void parameterChangeEnded(Parameter& parameter) override;

    // Hooks a product answers; the defaults are neutral.
    virtual int getLatency() { return 0; }
    virtual bool autoMapsHostParameters() { return false; }
    virtual bool isBusesLayoutSupported(const juce::AudioProcessor::BusesLayout& layout) const;
    virtual bool supportsPresets() = 0;
    /** The parameters that belong to a preset: indices 0 up to this count. */
    virtual int getParameterCount() { return 0; }
    virtual void storeToPreset(Preset& preset, int slot);
    /** Sets every parameter of the slot from the preset, and those it lacks from the default preset. */
    virtual void applyPreset(const Preset* preset, int slot, bool remember);
    virtual void setPresetName(const juce::String& name, int slot);
    virtual void afterPresetLoaded(int slot) { (void)slot; }
    virtual juce::String getPresetName(int slot);
    virtual juce::String getDefaultTagCategories() { return {}; }
    virtual const Preset* getDefaultPreset(int slot);
    virtual const Preset* getCurrentPreset(int slot);
    virtual std::unique_ptr<juce::XmlElement> createParametersStateXml();
    virtual void restoreParametersState(const juce::XmlElement& element);
    virtual void createCore() {}
    virtual void prepare(bool rateChanged, bool blockChanged) { (void)rateChanged, (void)blockChanged; }
    virtual void release() {}
    virtual void process(ProcessContext& context) { (void)context; }
    virtual bool wantsTransport() { return false; }
    virtual bool wantsStateDump() { return false; }
    /** The product's editor, made once at the end of start-up; null when the product has none. */
    virtual std::unique_ptr<PluginEditor> createEditor() { return nullptr; }
    virtual juce::String getCodeName() const { return "BasePlugin"; }
    virtual juce::String getCodeLetters() const { return "XX"; }
    virtual bool isPluginState(const juce::XmlElement& element);
    virtual void setState(const juce::XmlElement& element);
    virtual std::unique_ptr<juce::XmlElement> createState();
    virtual int getHostParameterCount() { return hostParameterCount; }
    virtual juce::String getHostParameterName(int hostIndex);
    virtual bool wantsDebugParameters() { return false; }
    /** The editor's events it does not handle itself come here; nothing in this product. */
    virtual void handleEvent(int eventId) { (void)eventId; }
    virtual juce::String getPresetFileExtension() { return {}; }
    virtual juce::String getPackageFileExtension() { return "." + getCodeLetters().toLowerCase() + "zip"; }
    /** 0 for a parameter that belongs to a preset, else -1. */
    virtual int getSlotOfParameter(int index);
    /** The folder of the user store's presets, or an empty file when presets are not supported. */
    virtual juce::File getUserPresetsFolder();

    // User settings: one XML file per user, read at start-up and written at teardown.
    virtual juce::File getUserSettingsFile();
    virtual bool isUserSettings(const juce::XmlElement& element);
    virtual void readExtraUserSettings(const juce::XmlElement& element) { (void)element; }
    virtual void writeExtraUserSettings(juce::XmlElement& element) { (void)element; }
    virtual void userSettingsRead() {}

    // SoftwareDesignation answers shared by every product.
    juce::String getShortName() const override { return getCodeName(); }
    juce::String getLocation() const override { return pluginFile.getFullPathName(); }
    juce::String getPluginFormat() const override;
    juce::String getWordSize() const override { return sizeof(void*) == 8 ? "64bit" : "32bit"; }

    // Start-up and teardown, in the order PluginAudioProcessor calls them.
    void setProcessor(PluginAudioProcessor* owner) noexcept { processor = owner; }
    /** Maps the host parameters and registers the plug-in on every parameter. */
    void initialise();
    /** Sets up preset slot 0 with its default and current preset, captures the parameter defaults
        and tells every listener (the new core included) every value once. */
    void finishInitialisation();
    /** The processor's destructor, before it deletes the plug-in: writes the user settings, then
        raises the closing flag (no change is sent to the host after that). */
    void beginTeardown();

    /** Reads the settings file into the map fields and the default qualities, then copies the
        default qualities into the live ones. A missing, broken or foreign file is ignored. */
    void readUserSettings();
    /** Writes the settings file from the values of this moment; the write's result is ignored. */
    void writeUserSettings();

    // Folders: "AppData", "UserData", "UserStore" and, with presets, "UserPresets".
    juce::File getDirectory(const juce::String& key) const;
    const juce::File& getUserDirectory() const noexcept { return userDirectory; }
    const juce::File& getDataDirectory() const noexcept { return dataDirectory; }
    /** The files the product embeds in its module. */
    const PluginResources& getResources() const noexcept { return resources; }
    const juce::File& getPluginFile() const noexcept { return pluginFile; }

    // The map choices the settings file keeps between instances.
    bool isMidiMapDefault() const noexcept { return settings.midiMapDefault; }
    const juce::File& getMidiMapFile() const noexcept { return settings.midiMapFile; }
    /** Set from the MIDI options: use this file as the map of every new instance, or just remember it. */
    void setMidiMapDefault(bool useAsDefault, const juce::File& file);
    bool isHostParameterMapDefault() const noexcept { return settings.hostParameterMapDefault; }
    const juce::File& getHostParameterMapFile() const noexcept { return settings.hostParameterMapFile; }

    // Audio entry points.
    void prepareToPlay(double sampleRate, int maximumBlockSize);
    void releaseResources();
    /** Audio thread. Switches the quality when the offline flag changed (not when bypassed), sets
        flush-to-zero and denormals-are-zero for the block and calls `process`. */
    void processBlock(juce::AudioBuffer<float>& buffer, juce::MidiBuffer& midi, bool bypassed);

    /** Copies the offline or real-time quality into "Processing Quality". */
    void applyQualitySetting();

    // State chunk.
    void writeStateToBlock(juce::MemoryBlock& block);
    void readStateFromBlock(const void* data, int size);
    /** Sets a parameter back to the value its slot's current preset holds. */
    void revertParameter(int index);
    /** A preset load: applies the preset to the slot with `loadingSlot` set around it, makes it the
        slot's baseline and calls `afterPresetLoaded`. A null preset does nothing. */
    void loadPreset(const Preset* preset, int slot);
    void restoreDefaultPreset() { loadPreset(getDefaultPreset(0), 0); }
    void restoreCurrentPreset() { loadPreset(getCurrentPreset(0), 0); }
    /** The user's own store of presets ("User", on the "UserPresets" folder); null without presets. */
    ContentSource* getUserStore() noexcept { return userPresets.get(); }
    /** What this plug-in's preset stores reach it through. */
    PresetHost& getPresetHost() noexcept { return presetHost; }
    /** The public key its factory packages must be signed with ("exponent,modulus" in hexadecimal);
        empty (no package trusted) unless the product has one. */
    virtual juce::String getPackageKey() const { return {}; }
    /** Whether the parameters moved away from the loaded preset; false without a detector. */
    bool isPresetChanged();
    /** Takes the present values as the slot's unchanged state. */
    void resetChangeDetector(int slot);
    /** Whether a parameter index belongs to the preset of any slot. */
    bool isInPresetRange(int index) const;
    /** Tells the GUI, on the message thread, when the loaded preset turns changed or unchanged;
        the editor triggers it as parameters of a preset move. */
    PresetChangeNotifier& getPresetChangeNotifier() noexcept { return presetChangeNotifier; }
    virtual PresetChangeDetector* getChangeDetector(int slot)
    {
        (void)slot;
        return changeDetector.get();
    }

    // The host's numbered list of parameters.
    int getNumParameters() { return getHostParameterCount(); }
    juce::String getParameterName(int hostIndex);
    float getParameter(int hostIndex);
    juce::String getParameterText(int hostIndex);
    /** The display text the mapped parameter would show at a normalized value; the live parameter
        is not touched. */
    juce::String getParameterTextForValue(int hostIndex, float normalizedValue);
    /** The normalized value the mapped parameter would take from a text; the live one is not touched. */
    float getParameterValueForText(int hostIndex, const juce::String& text);
    float getParameterDefaultValue(int hostIndex);
    void setParameter(int hostIndex, float value);
    bool isParameterAutomatable(int hostIndex);
    bool isMetaParameter(int hostIndex);
    /** The parameter at a host index, or null for a placeholder. */
    Parameter* getHostParameter(int hostIndex);
    /** The host index of a parameter index, or -1. */
    int getHostIndex(int parameterIndex);
    void setHostParameter(int hostIndex, Parameter* parameter, bool tellHost);
    void clearHostParameter(int hostIndex);
    /** Empties the host map (every index a placeholder) and tells the change listeners. */
    void clearHostMap();
    /** A `HostParametersMap` document naming this plug-in (both ignoring case). */
    bool isHostMapFor(const juce::XmlElement* element);
    /** Replaces the host map from a document; a foreign document changes nothing. */
    void readHostMapXml(const juce::XmlElement& root);
    /** True in formats whose parameter list is fixed when the plug-in is built (LV2 writes it into
        its Turtle files): there the host list is always the default one and map files are refused. */
    bool hasFixedHostList() const;
    /** False when the file gives no document, or the host list is fixed; the map then stays as it was. */
    bool loadHostMapFile(const juce::File& file);
    /** The map file of the settings when it is the default (unless the host list is fixed), else the
        built-in "default" map resource when the product has one; otherwise the default map stands. */
    void loadHostMap();
    /** Told when the host map changes (message thread, asynchronously). */
    juce::ChangeBroadcaster& getHostMapChanges() noexcept { return hostMap.getChanges(); }

    MidiControlMap& getMidiMap() noexcept { return midiMap; }
    /** The file extension of MIDI control maps: "." + code letters in lower case + "ccmap". */
    juce::String getMidiMapFileExtension() const { return "." + getCodeLetters().toLowerCase() + "ccmap"; }

    ParameterManager& getParameterManager() noexcept { return *parameters; }
    const ParameterManager& getParameterManager() const noexcept { return *parameters; }
    /** The editor, alive from the end of start-up to teardown; null without one. */
    PluginEditor* getEditor() const noexcept { return editor.get(); }
    /** Deletes the editor (its tick stopped first) on the message thread; the second step of
        teardown, after `beginTeardown`. Afterwards no editor is made or handed out. */
    void deleteEditor();
    bool isEditorGone() const noexcept { return editorGone; }
    /** The settings file's document, or null when it is missing or not this product's. */
    std::unique_ptr<juce::XmlElement> readUserSettingsDocument();

private:
    /** Makes the editor at the end of start-up, on the message thread, and starts its tick. */
    void startEditor();

public:
    /** Sets a parameter to the value it had when start-up ended, with notification. False when the
        index names no parameter or none was captured. */
    bool resetParameterToDefault(int index);
    const SampleRateContext& getSampleRateContext() const noexcept { return sampleRateContext; }
    const EventsMap& getEvents() const noexcept { return events; }
    const PresetSlot& getPresetSlot(int slot) const { return presetSlots.getSlot(slot); }
    EnumParameter* getQualityParameter() const noexcept { return qualityParameter; }
    PluginAudioProcessor* getProcessor() const noexcept { return processor; }

    int getStateReadCount() const noexcept { return stateChunk.getStateReadCount(); }
    int getStateWriteCount() const noexcept { return stateChunk.getStateWriteCount(); }
    bool isPrepared() const noexcept { return prepared.load() == 1; }
    bool isNonRealtime() const noexcept { return nonRealtime.load() == 1; }
    int getLoadingSlot() const noexcept { return presetSlots.getLoadingSlot(); }
    /** The editor's MIDI lamp: it exchanges this with 0 on its timer. Nothing in this product sets
        it, so the lamp stays dark. Any thread. */
    std::atomic<int>& getMidiActivity() noexcept { return midiActivity; }
    /** The on-screen keyboard's notes; nothing in this effect reads it. */
    juce::MidiKeyboardState& getKeyboardState() noexcept { return keyboardState; }

protected:
    SampleRateContext sampleRateContext;
    std::atomic<int> prepared{0};

private:
    void addInternalParameters();
    void addDebugParameters();
    void updateLatency();
    void setUpDirectories();
    juce::File getStateDumpFile() const;

    std::atomic<int> nonRealtime{0};
    juce::File pluginFile;
    FolderRule folderRule;
    juce::File userDirectory;
    juce::File dataDirectory;
    juce::HashMap<juce::String, juce::File> directories{101};
    std::unique_ptr<ParameterManager> parameters;

    /** The adapter the stores hold: forwards their three questions to this plug-in. */
    class StoreAdapter : public PresetHost
    {
    public:
        explicit StoreAdapter(BasePlugin& owner) : plugin(owner) {}
        ParameterManager& getParameterManager() override { return plugin.getParameterManager(); }
        void loadPreset(const Preset* preset, int slot) override { plugin.loadPreset(preset, slot); }
        void storeToPreset(Preset& preset, int slot) override { plugin.storeToPreset(preset, slot); }

    private:
        BasePlugin& plugin;
    };
    StoreAdapter presetHost{*this};

    /** The host list's length when the product does not answer its own: 128, then the number of
        parameters the default map places. */
    int hostParameterCount = 128;
    HostParameterMap hostMap;
    UserSettings settings;
    StateChunk stateChunk;
    MidiControlMap midiMap;
    std::atomic<int> midiActivity{0};
    std::unique_ptr<PluginEditor> editor;
    std::atomic<bool> editorGone{false};
    juce::MidiKeyboardState keyboardState;

    EventsMap events;
    PluginResources resources;
    PresetSlots presetSlots;
    EnumParameter* qualityParameter = nullptr;
    EnumParameter* realtimeQualityParameter = nullptr;
    EnumParameter* offlineQualityParameter = nullptr;
    PluginAudioProcessor* processor = nullptr;

    int maximumBlockSize = 0;
    bool everPrepared = false;
    std::atomic<bool> closing{false};
    // Declared last: they hold parameters and the plug-in, so they go first.
    std::unique_ptr<ContentSource> userPresets;
    std::unique_ptr<PresetChangeDetector> changeDetector;
    PresetChangeNotifier presetChangeNotifier{[this] { return isPresetChanged(); }};

    JUCE_DECLARE_NON_COPYABLE(BasePlugin)
};
