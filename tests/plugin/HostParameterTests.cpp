// The 28 parameters the host sees, and how values travel between host and plug-in.
#include "PrivateFolders.h"
#include "TestSupport.h"
#include "parameters/ParameterManager.h"
#include "plugin/BasePlugin.h"
#include "plugin/FolderRule.h"
#include "product/VelmarinProcessor.h"

#include <gtest/gtest.h>

namespace
{
struct HostLog : juce::AudioProcessorListener
{
    std::vector<std::pair<int, float>> values;
    std::vector<std::pair<int, bool>> gestures;
    void audioProcessorParameterChanged(juce::AudioProcessor*, int index, float value) override
    {
        values.emplace_back(index, value);
    }
    void audioProcessorChanged(juce::AudioProcessor*, const ChangeDetails&) override {}
    void audioProcessorParameterChangeGestureBegin(juce::AudioProcessor*, int index) override
    {
        gestures.emplace_back(index, true);
    }
    void audioProcessorParameterChangeGestureEnd(juce::AudioProcessor*, int index) override
    {
        gestures.emplace_back(index, false);
    }
};

class HostParameters : public ::testing::Test
{
protected:
    void SetUp() override { processor.addListener(&host); }
    void TearDown() override { processor.removeListener(&host); }
    juce::AudioProcessorParameter& hostParameter(int h) { return *processor.getParameters()[h]; }
    Parameter& parameter(int index) { return *processor.getPlugin().getParameterManager().getParameter(index); }

    VelmarinProcessor processor{testsupport::privateFolders()};
    HostLog host;
};
} // namespace

TEST_F(HostParameters, HostIndexIIsParameterIWithItsNameDefaultAndFlags)
{
    ASSERT_EQ(processor.getParameters().size(), 28);
    auto& plugin = processor.getPlugin();
    for (int h = 0; h < 28; ++h)
    {
        EXPECT_EQ(hostParameter(h).getName(100), parameter(h).getName());
        EXPECT_TRUE(hostParameter(h).isAutomatable());
        EXPECT_FALSE(hostParameter(h).isMetaParameter());
        EXPECT_FLOAT_EQ(hostParameter(h).getDefaultValue(), parameter(h).getNormalized());
        // JUCE's format wrappers take an id only from this class; any other parameter is numbered.
        auto* withId = dynamic_cast<juce::AudioProcessorParameterWithID*>(&hostParameter(h));
        ASSERT_NE(withId, nullptr);
        EXPECT_EQ(withId->paramID, "hostParam" + juce::String(h + 1));
    }
    EXPECT_EQ(plugin.getParameterName(28), "");
    EXPECT_EQ(hostParameter(20).getNumSteps(), 6) << "a choice has a step per item";
    EXPECT_TRUE(hostParameter(1).isBoolean());
    EXPECT_FALSE(hostParameter(0).isDiscrete());
}

TEST_F(HostParameters, HostWriteReachesTheParameterWithoutEcho)
{
    hostParameter(26).setValueNotifyingHost(0.75f);
    EXPECT_EQ(parameter(26).getNormalized(), 0.75f);
    EXPECT_EQ(host.values.size(), 1u) << "only the host's own notification, no echo from the plug-in";

    hostParameter(20).setValue(1.0f);
    EXPECT_EQ(parameter(20).getText(), "512");
    EXPECT_EQ(host.values.size(), 1u);
}

TEST_F(HostParameters, ChangesFromInsideReachTheHostWithGestures)
{
    parameter(14).beginChange();
    parameter(14).setNormalized(0.2f, true);
    parameter(14).endChange();
    ASSERT_EQ(host.values.size(), 1u);
    EXPECT_EQ(host.values[0], (std::pair<int, float>{14, 0.2f}));
    EXPECT_EQ(host.gestures, (std::vector<std::pair<int, bool>>{{14, true}, {14, false}}));
    EXPECT_FLOAT_EQ(hostParameter(14).getValue(), 0.2f);

    parameter(29).setText("High", true);
    parameter(100001).setText("Draft", true);
    EXPECT_EQ(host.values.size(), 1u) << "parameters without a host index stay inside";
}

TEST_F(HostParameters, TextsOfOtherValuesLeaveTheLiveParameterAlone)
{
    const float before = parameter(19).getNormalized();
    EXPECT_EQ(hostParameter(19).getText(1.0f, 100), "Concave");
    EXPECT_EQ(hostParameter(27).getText(1.0f, 100), "+12.0dB");
    EXPECT_EQ(hostParameter(26).getText(0.25f, 100), "Inactive") << "the auto mix mode has taken over";
    EXPECT_EQ(hostParameter(19).getCurrentValueAsText(), "Mistress");
    EXPECT_FLOAT_EQ(hostParameter(19).getValueForText("Concave"), 1.0f);
    EXPECT_EQ(parameter(19).getNormalized(), before);
    EXPECT_TRUE(host.values.empty());
}

TEST_F(HostParameters, TypedTextsAreReadAsTheDisplayShowsThem)
{
    const auto read = [this](int h, const char* text) { return hostParameter(h).getValueForText(text); };
    // Display texts read back (every one, below); here what people type instead.
    EXPECT_EQ(hostParameter(0).getText(read(0, "6 dB"), 100), "+6.0dB");
    EXPECT_EQ(hostParameter(0).getText(read(0, "6"), 100), "+6.0dB");
    EXPECT_EQ(hostParameter(0).getText(read(0, "99 dB"), 100), "+24.0dB") << "beyond the range: the nearest end";
    EXPECT_EQ(read(27, "-inf"), 0.0f);
    EXPECT_EQ(read(17, "dotted"), 2.0f / 3.0f) << "items ignore case";
    EXPECT_EQ(read(5, "Off"), 0.0f);
    EXPECT_EQ(read(5, "ON"), 1.0f);

    // Text that reads as nothing keeps the value where it is, never 0 or 1.
    parameter(0).setNormalized(0.375f, false);
    for (const char* unreadable : {"", "abc", "Inactive", "nan"})
        EXPECT_EQ(read(0, unreadable), 0.375f) << unreadable;
    EXPECT_EQ(read(20, "17"), parameter(20).getNormalized()) << "17 is no length";
    EXPECT_EQ(read(26, "0.3"), parameter(26).getNormalized()) << "\"Inactive\" shows no number to read";
    EXPECT_TRUE(host.values.empty());
}

TEST_F(HostParameters, EveryDisplayTextReadsBackToItself)
{
    // Links and the auto mix mode off, so that no parameter shows "Inactive".
    for (int index : {5, 10, 13, 16, 25})
        parameter(index).setBool(false, false);
    for (int h = 0; h < 28; ++h)
    {
        for (int i = 0; i < 200; ++i)
        {
            const float value = static_cast<float>(i) / 199.0f;
            const auto text = hostParameter(h).getText(value, 100);
            const float read = hostParameter(h).getValueForText(text);
            ASSERT_EQ(hostParameter(h).getText(read, 100), text) << parameter(h).getName() << " at " << value;
        }
    }
}

TEST_F(HostParameters, PlaceholderKeepsTheHostsValueAndShowsEightDecimals)
{
    auto& plugin = processor.getPlugin();
    plugin.clearHostParameter(27);
    EXPECT_EQ(plugin.getParameterName(27), "Parameter 28");
    hostParameter(27).setValue(0.125f);
    EXPECT_EQ(hostParameter(27).getValue(), 0.125f);
    EXPECT_EQ(plugin.getParameterText(27), "0.12500000");
    EXPECT_EQ(hostParameter(27).getDefaultValue(), 0.0f);
    EXPECT_EQ(parameter(27).getNormalized(), 0.5f) << "the parameter itself is untouched";

    plugin.setHostParameter(27, &parameter(27), false);
    EXPECT_EQ(plugin.getParameterName(27), "Output Volume");
    plugin.setHostParameter(0, &parameter(27), false);
    EXPECT_EQ(plugin.getParameterName(0), "Output Volume");
    EXPECT_EQ(plugin.getParameterName(27), "Parameter 28") << "a parameter holds one host place at a time";
    plugin.setHostParameter(5, &parameter(29), false);
    EXPECT_EQ(plugin.getParameterName(5), "Delay Offset Link") << "a parameter that is not automatable gets no place";
}

TEST_F(HostParameters, MapDocumentsMoveParametersAndFollowTheFailureRules)
{
    auto& plugin = processor.getPlugin();
    struct Counter : juce::ChangeListener
    {
        int calls = 0;
        void changeListenerCallback(juce::ChangeBroadcaster*) override { ++calls; }
    } changes;
    plugin.getHostMapChanges().addChangeListener(&changes);

    plugin.readHostMapXml(*juce::parseXML(juce::String(
        R"(<HostParametersMap name="Other"><assign hostParam="1" pluginParam="Output Volume"/></HostParametersMap>)")));
    EXPECT_EQ(plugin.getParameterName(0), "Preamp") << "a foreign map changes nothing";

    plugin.readHostMapXml(*juce::parseXML(juce::String(R"(<hostparametersmap name="VELMARIN">
        <assign hostParam="1" pluginParam="Output Volume"/>
        <ASSIGN hostParam="2" pluginParam="Preamp"/>
        <assign hostParam="3" pluginParam="Preamp"/>
        <assign hostParam="4" pluginParam="Processing Quality"/>
        <assign hostParam="5" pluginParam="No Such Knob"/>
        <assign hostParam="0" pluginParam="FX Amount"/>
        <assign pluginParam="Gain L/M"/>
        <assign hostParam="29" pluginParam="Gain R/S"/>
      </hostparametersmap>)")));
    EXPECT_EQ(plugin.getParameterName(0), "Output Volume");
    EXPECT_EQ(plugin.getParameterName(1), "Parameter 2") << "Preamp moved on to host parameter 3";
    EXPECT_EQ(plugin.getParameterName(2), "Preamp");
    EXPECT_EQ(plugin.getParameterName(3), "Parameter 4") << "not automatable: no place";
    EXPECT_EQ(plugin.getParameterName(27), "Parameter 28") << "the map starts empty";
    EXPECT_EQ(plugin.getHostIndex(26), -1);
    EXPECT_EQ(plugin.getParameterDefaultValue(0), 0.5f) << "defaults follow the parameter";
    EXPECT_EQ(hostParameter(0).getName(100), "Output Volume") << "the host's objects ask through the map";

    parameter(27).setNormalized(0.25f, true);
    ASSERT_FALSE(host.values.empty());
    EXPECT_EQ(host.values.back(), (std::pair<int, float>{0, 0.25f}))
        << "a change from inside goes to its new host index";

    plugin.getHostMapChanges().dispatchPendingMessages();
    EXPECT_GE(changes.calls, 1);
    plugin.getHostMapChanges().removeChangeListener(&changes);
}

TEST(HostParameterMapSettings, TheSettingsMapFileReplacesTheDefaultMapAtStartUp)
{
    const testsupport::TemporaryFolder temp("host-settings");
    const auto& user = temp.folder;
    const auto mapFile = user.getChildFile("mine.vmhpmap");
    ASSERT_TRUE(mapFile.replaceWithText(
        R"(<HostParametersMap name="Velmarin"><assign hostParam="28" pluginParam="Preamp"/></HostParametersMap>)"));
    ASSERT_TRUE(user.getChildFile("Velmarin.ini")
                    .replaceWithText(R"(<UserSettings application="Velmarin"><HostParametersMap default="yes" file=")" +
                                     mapFile.getFullPathName() + R"("/></UserSettings>)"));
    {
        VelmarinProcessor p(FolderRule::fixed(user, {}));
        EXPECT_EQ(p.getParameters()[27]->getName(100), "Preamp");
        EXPECT_EQ(p.getParameters()[0]->getName(100), "Parameter 1");
    }
    // An LV2 bundle's parameter list is written at build time: there the default list stands.
    juce::AudioProcessor::setTypeOfNextNewPlugin(juce::AudioProcessor::wrapperType_LV2);
    {
        VelmarinProcessor lv2(FolderRule::fixed(user, {}));
        EXPECT_EQ(lv2.getParameters()[27]->getName(100), "Output Volume");
        EXPECT_EQ(lv2.getParameters()[0]->getName(100), "Preamp");
        EXPECT_FALSE(lv2.getPlugin().loadHostMapFile(mapFile));
        EXPECT_EQ(lv2.getParameters()[27]->getName(100), "Output Volume");
    }
    juce::AudioProcessor::setTypeOfNextNewPlugin(juce::AudioProcessor::wrapperType_Undefined);
}
