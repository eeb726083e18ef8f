// The preset document: metadata written only where it was set, parameters by name, the old layout,
// header-only reading, and tags rewritten in place.
#include "TestSupport.h"
#include "content/ContentTags.h"
#include "content/Preset.h"
#include "parameters/ParameterManager.h"

#include <gtest/gtest.h>

namespace
{
class PresetFile : public ::testing::Test
{
protected:
    PresetFile()
    {
        manager.readXml(*juce::parseXML(juce::String(R"(<PluginParameters application="Test">
            <param index="0" name="Depth" value="0.5"/>
            <param index="1" name="Rate" min="0" max="10" value="1"/>
            <param index="2" name="Mode" type="enum" enum="A;B;C" value="B"/>
            <param index="7" name="Mix" value="0.25"/>
          </PluginParameters>)")));
    }

    juce::File write(const juce::String& fileName, const juce::String& text)
    {
        const auto file = folder.getChildFile(fileName);
        EXPECT_TRUE(file.replaceWithText(text));
        return file;
    }

    static juce::String valuesOf(const Preset& p)
    {
        juce::StringArray list;
        for (int i = 0; i < p.getNumValues(); ++i)
            list.add(juce::String(p.getValue(i).index) + "=" + p.getValue(i).value);
        return list.joinIntoString(" ");
    }

    ParameterManager manager;
    testsupport::TemporaryFolder temp{"presets-"};
    const juce::File& folder = temp.folder;
};
} // namespace

TEST_F(PresetFile, MetadataSurvivesAndOnlyWhatWasSetIsWritten)
{
    Preset p;
    p.setAuthor("Ann");
    p.setCategory("Lead");
    p.setVersion("1.0");
    p.setName("ignored in files");
    p.setRating(5);
    p.setTags(ContentTags::fromText("Type:Flanger;Modulation:Slow"));
    p.addValue(manager.getParameter(7));
    p.addValue(manager.getParameter(1));
    const auto file = folder.getChildFile("Sweep.vmprs2");
    ASSERT_TRUE(p.saveToFile(file, manager));

    const auto root = juce::parseXML(file);
    ASSERT_NE(root, nullptr);
    EXPECT_FALSE(root->hasAttribute("name"));
    EXPECT_FALSE(root->hasAttribute("id"));
    EXPECT_FALSE(root->hasAttribute("application"));
    EXPECT_EQ(root->getStringAttribute("tags"), "Type:Flanger;Modulation:Slow");
    EXPECT_EQ(root->getChildByName("Parameters")->getChildElement(0)->getStringAttribute("name"), "Mix");

    Preset back;
    back.loadFromFile(file, manager, false);
    EXPECT_EQ(back.getName(), "Sweep");
    EXPECT_EQ(back.getAuthor(), "Ann");
    EXPECT_EQ(back.getCategory(), "Lead");
    EXPECT_EQ(back.getVersion(), "1.0");
    EXPECT_EQ(back.getRating(), 5);
    EXPECT_TRUE(back.isRatingSet());
    EXPECT_EQ(back.getTags(), p.getTags());
    EXPECT_EQ(valuesOf(back), "7=0.25 1=1") << "document order is kept";

    Preset bare;
    bare.addValue(manager.getParameter(0));
    const auto bareFile = folder.getChildFile("Bare.vmprs2");
    ASSERT_TRUE(bare.saveToFile(bareFile, manager));
    const auto bareRoot = juce::parseXML(bareFile);
    EXPECT_EQ(bareRoot->getNumAttributes(), 0) << "no rating and no tags when never set, although it reports 3";
    EXPECT_EQ(bare.getRating(), 3);
}

TEST_F(PresetFile, RatingOutsideOneToFiveIsIgnoredAndNotWrittenBack)
{
    for (auto rating : {"0", "6", "many"})
    {
        const auto file =
            write("R.vmprs2", juce::String(R"(<Preset rating=")") + rating + R"("><Parameters/></Preset>)");
        Preset p;
        p.loadFromFile(file, manager, false);
        EXPECT_EQ(p.getRating(), 3) << rating;
        EXPECT_FALSE(p.isRatingSet()) << rating;
        EXPECT_FALSE(p.createXml(manager, true)->hasAttribute("rating")) << rating;
    }
}

TEST_F(PresetFile, ReadsParametersByNameInEitherLayout)
{
    Preset p;
    p.loadFromFile(write("Mixed.vmprs2", R"(<PRESET name="Inner">
        <param name="Depth" value="0.9"/>
        <Parameters><param name="Mode" value="C"/><param name="Gone" value="1"/><other name="Rate" value="4"/></Parameters>
        <ExtraData><blob/></ExtraData>
      </PRESET>)"),
                   manager, false);
    EXPECT_EQ(p.getName(), "Mixed") << "the file name wins over the name attribute";
    EXPECT_EQ(valuesOf(p), "2=C 1=4")
        << "direct params are ignored beside Parameters; unknown names dropped; any tag inside";

    const auto rewritten = folder.getChildFile("Rewritten.vmprs2");
    ASSERT_TRUE(p.saveToFile(rewritten, manager));
    EXPECT_EQ(juce::parseXML(rewritten)->getChildByName("ExtraData"), nullptr);

    Preset old;
    old.loadFromFile(
        write(
            "Old.vmprs2",
            R"(<Preset><param name="Depth" value="0.1"/><skip name="Rate" value="3"/><param name="Mix" value="1"/></Preset>)"),
        manager, false);
    EXPECT_EQ(valuesOf(old), "0=0.1 7=1");
}

TEST_F(PresetFile, HeaderOnlyAndBrokenFilesReadNoParameters)
{
    const auto good =
        write("Good.vmprs2",
              R"(<Preset author="Bo" rating="4"><Parameters><param name="Depth" value="0.9"/></Parameters></Preset>)");
    Preset header;
    header.loadFromFile(good, manager, true);
    EXPECT_EQ(header.getAuthor(), "Bo");
    EXPECT_EQ(header.getRating(), 4);
    EXPECT_EQ(header.getNumValues(), 0);

    Preset wrongRoot;
    wrongRoot.setAuthor("kept");
    wrongRoot.loadFromFile(
        write("Wrong.vmprs2", R"(<Patch><Parameters><param name="Depth" value="1"/></Parameters></Patch>)"), manager,
        false);
    EXPECT_EQ(wrongRoot.getNumValues(), 0);
    EXPECT_EQ(wrongRoot.getName(), "Wrong");
    EXPECT_EQ(wrongRoot.getAuthor(), "kept");

    Preset broken;
    broken.addValue(manager.getParameter(0));
    broken.loadFromFile(write("Broken.vmprs2", "<Preset><Param"), manager, false);
    EXPECT_EQ(broken.getNumValues(), 1) << "a file that gives no element leaves the preset as it was";
    EXPECT_EQ(broken.getName(), "Broken");

    juce::MemoryBlock bytes;
    ASSERT_TRUE(good.loadFileAsData(bytes));
    juce::MemoryInputStream stream(bytes, false);
    const Preset packaged(stream, manager, false, "From Package");
    EXPECT_EQ(packaged.getName(), "From Package");
    EXPECT_EQ(valuesOf(packaged), "0=0.9");
}

TEST_F(PresetFile, LiveParametersAreCollectedInIndexOrder)
{
    ParameterManager::Ranges ranges;
    ranges.addRange({7, 8});
    ranges.addRange({0, 3});
    Preset p;
    p.collectParameters(manager, ranges);
    EXPECT_EQ(valuesOf(p), "0=0.5 1=1 2=B 7=0.25");
}

TEST_F(PresetFile, WriteTagsRewritesOneAttributeAndKeepsEverythingElse)
{
    const auto file = write(
        "Tagged.vmprs2",
        R"(<Preset author="Cy" vendorFlag="x"><Parameters><param name="Depth" value="0.3"/></Parameters><Unknown a="1"/></Preset>)");
    ASSERT_TRUE(Preset::writeTagsToFile(file, ContentTags::fromText("Type:Flanger")));
    auto root = juce::parseXML(file);
    EXPECT_EQ(root->getStringAttribute("tags"), "Type:Flanger");
    EXPECT_EQ(root->getStringAttribute("vendorFlag"), "x");
    EXPECT_NE(root->getChildByName("Unknown"), nullptr);

    ASSERT_TRUE(Preset::writeTagsToFile(file, {}));
    root = juce::parseXML(file);
    EXPECT_TRUE(root->hasAttribute("tags")) << "an emptied tag set is still written";
    EXPECT_EQ(root->getStringAttribute("tags"), "");

    EXPECT_FALSE(Preset::writeTagsToFile(folder, {}));
    EXPECT_FALSE(Preset::writeTagsToFile(folder.getChildFile("missing.vmprs2"), {}));
    EXPECT_FALSE(Preset::writeTagsToFile(write("Foreign.xml", "<Patch/>"), {}));
    EXPECT_EQ(folder.getChildFile("Foreign.xml").loadFileAsString(), "<Patch/>");
}
