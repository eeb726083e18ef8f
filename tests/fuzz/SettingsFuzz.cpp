// The settings file (Velmarin.ini in the user folder), read as an instance reads it at start-up.
#include "FuzzSupport.h"

#include "plugin/BasePlugin.h"
#include "product/VelmarinProcessor.h"

namespace
{
struct Settings
{
    bool midiDefault, hostDefault;
    juce::File midiFile, hostFile;
    juce::String realtime, offline;

    bool operator==(const Settings& o) const
    {
        return midiDefault == o.midiDefault && hostDefault == o.hostDefault && midiFile == o.midiFile &&
               hostFile == o.hostFile && realtime == o.realtime && offline == o.offline;
    }
};

Settings settingsOf(BasePlugin& plugin)
{
    const auto& m = plugin.getParameterManager();
    return {plugin.isMidiMapDefault(),
            plugin.isHostParameterMapDefault(),
            plugin.getMidiMapFile(),
            plugin.getHostParameterMapFile(),
            m.getParameter("Default Real-time Processing Quality")->getText(),
            m.getParameter("Default Offline Processing Quality")->getText()};
}

bool namesNoFileOrAnAbsoluteOne(const juce::File& file)
{
    return file == juce::File() || juce::File::isAbsolutePath(file.getFullPathName());
}
} // namespace

int fuzzSettings(const uint8_t* data, size_t size)
{
    auto& plugin = fuzz::sharedProcessor().getPlugin();
    const auto& manager = plugin.getParameterManager();
    const auto file = plugin.getUserSettingsFile();

    // Every input starts from the settings of a fresh installation.
    static const juce::String baseline = R"(<UserSettings application="Velmarin">
        <MidiControlMap default="no"/><HostParametersMap default="no"/>
        <DefaultProcessingQuality><Preset><Parameters>
          <param name="Default Real-time Processing Quality" value="Normal"/>
          <param name="Default Offline Processing Quality" value="High"/>
        </Parameters></Preset></DefaultProcessingQuality></UserSettings>)";
    FUZZ_CHECK(file.replaceWithText(baseline));
    plugin.readUserSettings();

    FUZZ_CHECK(file.replaceWithData(data, size));
    plugin.readUserSettings();

    // Whatever the file held, the live qualities are the default ones, and a map file is an
    // absolute path or none.
    FUZZ_CHECK(manager.getParameter("Real-time Processing Quality")->getText() ==
               manager.getParameter("Default Real-time Processing Quality")->getText());
    FUZZ_CHECK(manager.getParameter("Offline Processing Quality")->getText() ==
               manager.getParameter("Default Offline Processing Quality")->getText());
    FUZZ_CHECK(namesNoFileOrAnAbsoluteOne(plugin.getMidiMapFile()));
    FUZZ_CHECK(namesNoFileOrAnAbsoluteOne(plugin.getHostParameterMapFile()));

    // The file the teardown writes gives the next instance the same settings.
    const auto read = settingsOf(plugin);
    plugin.writeUserSettings();
    plugin.readUserSettings();
    FUZZ_CHECK(settingsOf(plugin) == read);
    return 0;
}
