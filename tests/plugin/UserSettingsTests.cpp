// The folder rule and the per-user settings file: written at teardown, read at start-up, foreign
// or broken files ignored and replaced, the default qualities carried to new instances.
#include "TestSupport.h"
#include "parameters/ParameterManager.h"
#include "plugin/BasePlugin.h"
#include "plugin/FolderRule.h"
#include "product/VelmarinProcessor.h"

#include <gtest/gtest.h>

namespace
{
class UserSettingsFile : public ::testing::Test
{
protected:
    FolderRule folders() const { return FolderRule::fixed(user, data); }

    juce::File settingsFile() const { return user.getChildFile("Velmarin.ini"); }
    static juce::String text(VelmarinProcessor& p, int index)
    {
        return p.getPlugin().getParameterManager().getText(index);
    }

    testsupport::TemporaryFolder temp{"settings-"};
    const juce::File& user = temp.folder;
    juce::File data = user.getChildFile("shared");
};
} // namespace

TEST_F(UserSettingsFile, FirstStartMakesTheFoldersAndTeardownWritesTheFile)
{
    {
        VelmarinProcessor p(folders());
        auto& plugin = p.getPlugin();
        EXPECT_EQ(plugin.getDirectory("UserData"), user);
        EXPECT_EQ(plugin.getDirectory("AppData"), data);
        EXPECT_TRUE(plugin.getDirectory("UserStore").isDirectory());
        EXPECT_EQ(plugin.getUserPresetsFolder(), user.getChildFile("UserStore").getChildFile("Presets"));
        EXPECT_TRUE(plugin.getUserPresetsFolder().isDirectory());
        EXPECT_EQ(plugin.getDirectory("Elsewhere"), juce::File());
        EXPECT_FALSE(data.exists()) << "the shared folder is never created by an instance";
        EXPECT_FALSE(settingsFile().exists());
        EXPECT_FALSE(plugin.isMidiMapDefault());
        EXPECT_EQ(text(p, 100002), "Normal");
    }
    const auto root = juce::parseXML(settingsFile());
    ASSERT_NE(root, nullptr);
    EXPECT_TRUE(root->hasTagName("UserSettings"));
    EXPECT_EQ(root->getStringAttribute("application"), "Velmarin");
    juce::StringArray tags;
    for (auto* child : root->getChildIterator())
        tags.add(child->getTagName());
    EXPECT_EQ(tags.joinIntoString(" "), "Presets MidiControlMap HostParametersMap DefaultProcessingQuality Editor");
    EXPECT_NE(root->getChildByName("Presets")->getChildByName("Author"), nullptr);
    for (auto* map : {"MidiControlMap", "HostParametersMap"})
    {
        EXPECT_EQ(root->getChildByName(map)->getStringAttribute("default"), "no");
        EXPECT_FALSE(root->getChildByName(map)->hasAttribute("file"));
    }
    const auto* quality = root->getChildByName("DefaultProcessingQuality")->getChildByName("Preset");
    ASSERT_NE(quality, nullptr);
    EXPECT_EQ(quality->getChildByName("Parameters")->getNumChildElements(), 2);
}

TEST_F(UserSettingsFile, DefaultQualitiesAndMapChoicesReachTheNextInstance)
{
    {
        VelmarinProcessor first(folders());
        first.getPlugin().getParameterManager().setText(100002, "High");
        first.getPlugin().getParameterManager().setText(100004, "Ultra");
        first.getPlugin().setMidiMapDefault(true, user.getChildFile("mine.vmccmap"));
    }
    {
        VelmarinProcessor second(folders());
        EXPECT_EQ(text(second, 100001), "High");
        EXPECT_EQ(text(second, 100003), "Ultra");
        EXPECT_EQ(text(second, 29), "High") << "a new instance starts in the user's real-time quality";
        EXPECT_TRUE(second.getPlugin().isMidiMapDefault());
        EXPECT_EQ(second.getPlugin().getMidiMapFile(), user.getChildFile("mine.vmccmap"));
    }

    ASSERT_TRUE(settingsFile().replaceWithText(R"(<usersettings application="VELMARIN">
        <MidiControlMap default="no" file="/first.vmccmap"/>
        <midicontrolmap default="YES" file="/maps/later.vmccmap"/>
        <HostParametersMap default="true" file="/maps/host.xml"/>
      </usersettings>)"));
    VelmarinProcessor third(folders());
    EXPECT_TRUE(third.getPlugin().isMidiMapDefault()) << "tags and names ignore case; the later element wins";
    EXPECT_EQ(third.getPlugin().getMidiMapFile().getFullPathName(), "/maps/later.vmccmap");
    EXPECT_FALSE(third.getPlugin().isHostParameterMapDefault()) << "only \"yes\" means yes";
    EXPECT_EQ(third.getPlugin().getHostParameterMapFile().getFullPathName(), "/maps/host.xml");
    EXPECT_EQ(text(third, 100002), "Normal") << "no DefaultProcessingQuality: the defaults stay";
}

TEST_F(UserSettingsFile, ForeignOrBrokenFilesAreIgnoredAndReplaced)
{
    for (auto content : {R"(<UserSettings application="Other"><MidiControlMap default="yes" file="/x.vmccmap"/>
                               <DefaultProcessingQuality><Preset><Parameters><param name="Default Real-time Processing Quality" value="Draft"/></Parameters></Preset></DefaultProcessingQuality></UserSettings>)",
                         "<UserSettings application=\"Velmarin\"><MidiControlMap", "\x01\x02 not xml"})
    {
        ASSERT_TRUE(settingsFile().replaceWithText(content));
        {
            VelmarinProcessor p(folders());
            EXPECT_FALSE(p.getPlugin().isMidiMapDefault());
            EXPECT_EQ(text(p, 100001), "Normal");
        }
        const auto root = juce::parseXML(settingsFile());
        ASSERT_NE(root, nullptr);
        EXPECT_EQ(root->getStringAttribute("application"), "Velmarin");
    }
}

TEST(FolderRuleTest, DevelopmentBuildsUseFoldersBesideThePluginWhenTheyExist)
{
    const testsupport::TemporaryFolder temp("rule");
    const auto& dir = temp.folder;
    const auto pluginFile = dir.getChildFile("Probe.so");
    dir.getChildFile("Probe_user").createDirectory();

    const FolderRule rule;
    EXPECT_EQ(rule.userDirectory("Probe", pluginFile, "dev"), dir.getChildFile("Probe_user"));
    EXPECT_TRUE(rule.userDirectory("Probe", pluginFile, "MASTER").getFullPathName().endsWith("/Q41 Group/Probe"));
    EXPECT_TRUE(rule.dataDirectory("Probe", pluginFile, "dev").getFullPathName().endsWith("/Q41 Group/Probe"))
        << "no Probe_data folder exists";

    // Folders a maker names win over the rule; one it leaves empty follows the rule.
    const auto chosen = dir.getChildFile("chosen");
    const auto given = FolderRule::fixed(chosen, {});
    EXPECT_EQ(given.userDirectory("Probe", pluginFile, "dev"), chosen);
    EXPECT_EQ(given.dataDirectory("Probe", pluginFile, "dev"), rule.dataDirectory("Probe", pluginFile, "dev"));
}

// The scripts that run the real binaries (pluginval, the LV2 description step) give them private
// folders through HOME alone: the product's rule must find the user folder there.
TEST(FolderRuleTest, TheProductsRuleFindsTheUserFolderUnderHome)
{
    const juce::File home(juce::String::fromUTF8(std::getenv("HOME")));
    VelmarinProcessor p;
    EXPECT_EQ(p.getPlugin().getDirectory("UserData"), home.getChildFile(".config/Q41 Group/Velmarin"));
    EXPECT_TRUE(p.getPlugin().getUserSettingsFile().isAChildOf(home));
}
