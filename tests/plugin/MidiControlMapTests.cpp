// MIDI controllers driving parameters: the learn cycle as the audio thread runs it, the map
// document with its refusal rules, and the map travelling in the state chunk and the settings.
#include "PrivateFolders.h"
#include "TestSupport.h"
#include "parameters/ParameterManager.h"
#include "plugin/BasePlugin.h"
#include "plugin/FolderRule.h"
#include "product/VelmarinProcessor.h"

#include <gtest/gtest.h>

namespace
{
class MidiMap : public ::testing::Test
{
protected:
    Parameter* parameter(const char* name)
    {
        return processor.getPlugin().getParameterManager().getParameter(juce::String(name));
    }
    void cc(int controller, int value)
    {
        map.handleController(juce::MidiMessage::controllerEvent(3, controller, value));
    }
    bool read(const juce::String& text) { return map.readXml(juce::parseXML(text).get()); }

    VelmarinProcessor processor{testsupport::privateFolders()};
    MidiControlMap& map = processor.getPlugin().getMidiMap();
    Parameter* volume = parameter("Output Volume");
    Parameter* amount = parameter("FX Amount");
    Parameter* preamp = parameter("Preamp");
};
} // namespace

TEST_F(MidiMap, LearningFollowsTheArrivingControllerAndGivesPassedOnesBack)
{
    map.assign(amount, 10);
    map.startLearning(volume);
    cc(10, 127);
    EXPECT_EQ(volume->getNormalized(), 1.0f) << "127 is exactly 1";
    EXPECT_EQ(map.getParameter(10), volume);
    cc(11, 0);
    EXPECT_EQ(volume->getNormalized(), 0.0f);
    EXPECT_EQ(map.getParameter(10), amount) << "a controller only passed through gets its parameter back";
    EXPECT_EQ(map.getController(volume), 11);

    // A second parameter during learning keeps the first backup; the first keeps what it learned.
    map.startLearning(preamp);
    cc(120, 64);
    EXPECT_EQ(map.getParameter(120), preamp) << "controllers from 120 up are ordinary here";
    EXPECT_EQ(map.getController(volume), 11);
    map.assign(amount, 30);
    map.cancelLearning();
    EXPECT_FALSE(map.isLearning());
    EXPECT_EQ(map.getParameter(10), amount) << "cancel restores the whole table, other changes included";
    EXPECT_EQ(map.getParameter(30), nullptr);
    EXPECT_EQ(map.getController(volume), -1);
    EXPECT_EQ(map.getController(preamp), -1);

    map.assign(volume, 5);
    map.startLearning(volume);
    cc(5, 127);
    EXPECT_EQ(map.getParameter(5), volume);
    EXPECT_EQ(map.getController(volume), 5) << "learning the controller it already has moves nothing";
    map.finishLearning();
    cc(5, 0);
    EXPECT_EQ(volume->getNormalized(), 0.0f);
    map.handleController(juce::MidiMessage::controllerEvent(1, 6, 1));
    EXPECT_EQ(map.getController(volume), 5) << "after finishing, other controllers leave it alone";
}

TEST_F(MidiMap, DocumentsOfOtherProductsOrWithBadAssignmentsAreRefusedPieceByPiece)
{
    map.assign(volume, 7);
    EXPECT_FALSE(read(R"(<MidiControlMap name="Other"><assign CC="1" param="Preamp"/></MidiControlMap>)"));
    EXPECT_FALSE(read(R"(<Map name="Velmarin"/>)"));
    EXPECT_FALSE(map.readXml(nullptr));
    EXPECT_EQ(map.getParameter(7), volume) << "a refused document changes nothing";

    EXPECT_TRUE(read(R"(<midiccmap name="x" application="VELMARIN">
        <assign CC="1" param="Preamp"/><assign CC="2" param="Preamp"/>
        <ASSIGN CC="3" param="FX Amount"/><assign CC="3" param="Output Volume"/>
        <assign CC="128" param="LFO Sync"/><assign CC="-1" param="LFO Sync"/>
        <assign CC="9" param="Processing Quality"/><assign CC="9" param="No Such Knob"/>
        <assign param="BBD Length"/>
      </midiccmap>)"));
    EXPECT_EQ(map.getController(preamp), 2) << "the later assignment of a parameter wins";
    EXPECT_EQ(map.getParameter(3), volume) << "the later parameter holds a shared controller";
    EXPECT_EQ(map.getController(amount), -1);
    EXPECT_EQ(map.getController(parameter("LFO Sync")), -1) << "controllers out of range are skipped";
    EXPECT_EQ(map.getParameter(9), nullptr) << "unknown and non-automatable parameters are skipped";
    EXPECT_EQ(map.getController(parameter("BBD Length")), 0) << "a missing CC is 0";
    EXPECT_EQ(map.getParameter(7), nullptr) << "reading starts from an empty table";

    const testsupport::TemporaryFolder temp("map");
    const auto& folder = temp.folder;
    const auto file = folder.getChildFile("Mine.vmccmap");
    ASSERT_TRUE(map.saveToFile(file));
    const auto written = juce::parseXML(file);
    EXPECT_EQ(written->getStringAttribute("name"), "Velmarin");
    EXPECT_EQ(written->getChildElement(0)->getStringAttribute("param"), "BBD Length") << "by rising controller number";
    map.assign(preamp, -1);
    EXPECT_EQ(map.getController(preamp), -1);
    ASSERT_TRUE(map.loadFromFile(file));
    EXPECT_EQ(map.getController(preamp), 2);
    EXPECT_FALSE(map.loadFromFile(file.getSiblingFile("missing.vmccmap")));

    EXPECT_TRUE(read(R"(<MidiControlMap name="Velmarin"/>)"));
    EXPECT_EQ(map.getController(preamp), -1) << "a map without assignments clears";
}

TEST_F(MidiMap, TheMapTravelsInTheStateChunk)
{
    map.assign(volume, 7);
    juce::MemoryBlock withMap;
    processor.getStateInformation(withMap);

    VelmarinProcessor other{testsupport::privateFolders()};
    auto& otherMap = other.getPlugin().getMidiMap();
    otherMap.assign(other.getPlugin().getParameterManager().getParameter(0), 1);
    other.setStateInformation(withMap.getData(), static_cast<int>(withMap.getSize()));
    EXPECT_EQ(otherMap.getParameter(7)->getName(), "Output Volume");
    EXPECT_EQ(otherMap.getParameter(1), nullptr) << "the project's map replaces the instance's";

    juce::MemoryBlock withoutMap;
    juce::AudioProcessor::copyXmlToBinary(*juce::parseXML(juce::String(R"(<PluginState application="Velmarin"/>)")),
                                          withoutMap);
    other.setStateInformation(withoutMap.getData(), static_cast<int>(withoutMap.getSize()));
    EXPECT_NE(otherMap.getParameter(7), nullptr) << "a chunk without a map leaves the map as it was";
}

TEST(MidiMapSettings, TheDefaultMapOfTheSettingsLoadsAtStartUp)
{
    const testsupport::TemporaryFolder temp("midi-settings");
    const auto& user = temp.folder;
    const auto mapFile = user.getChildFile("live.vmccmap");
    ASSERT_TRUE(mapFile.replaceWithText(
        R"(<MidiControlMap name="Velmarin"><assign CC="21" param="LFO Rate L/M"/></MidiControlMap>)"));

    for (auto [flag, expectLoaded] : {std::pair{"yes", true}, std::pair{"no", false}})
    {
        ASSERT_TRUE(
            user.getChildFile("Velmarin.ini")
                .replaceWithText(juce::String(R"(<UserSettings application="Velmarin"><MidiControlMap default=")") +
                                 flag + "\" file=\"" + mapFile.getFullPathName() + R"("/></UserSettings>)"));
        VelmarinProcessor p(FolderRule::fixed(user, {}));
        EXPECT_EQ(p.getPlugin().getMidiMap().getParameter(21) != nullptr, expectLoaded) << flag;
        EXPECT_EQ(p.getPlugin().getMidiMapFile(), mapFile) << "the file is remembered either way";
    }
}
