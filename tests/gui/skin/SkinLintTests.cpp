#include "TestSkin.h"
#include "gui/skin/SkinLint.h"
#include "gui/skin/SkinPackage.h"
#include "gui/skin/SkinPacker.h"

#include <gtest/gtest.h>

using testskin::Skin;

TEST(SkinPacker, TheSameFolderAlwaysGivesTheSameBytes)
{
    const testsupport::TemporaryFolder work("pack");
    auto skin = Skin::basic();
    skin.files["images/Knob.png"] = testskin::png(40, 400);
    skin.files[".hidden"] = testskin::text("left out");
    const auto folder = skin.writeFolder(work.get(), "Big");

    juce::String error;
    const auto first = SkinPacker::pack(folder, "Big", error);
    folder.getChildFile("Background.png")
        .setLastModificationTime(juce::Time::getCurrentTime() + juce::RelativeTime::hours(30));
    const auto second = SkinPacker::pack(folder, "Big", error);
    ASSERT_TRUE(first && second);
    EXPECT_EQ(*first, *second);

    SkinPackage package(nullptr, SkinPackage::packageInMemory, "Big", {}, first->getData(), first->getSize());
    EXPECT_TRUE(package.getImage("images/Knob.png").isValid()) << "sub-folders keep their path";
    juce::MemoryBlock hidden;
    EXPECT_FALSE(package.readSkinFile(".hidden", 100, hidden));
    EXPECT_TRUE(SkinLint::check("Big", *first).isEmpty()) << SkinLint::check("Big", *first).joinIntoString("\n");

    EXPECT_FALSE(SkinPacker::pack(work / "Nowhere", "Big", error));
    EXPECT_TRUE(error.contains("not a folder"));
    (work / "Empty").createDirectory();
    EXPECT_FALSE(SkinPacker::pack(work / "Empty", "Big", error));
}

TEST(SkinLint, EachPlantedFaultIsReportedOnItsOwnLine)
{
    const auto lint = [](const Skin& skin) { return SkinLint::check("Big", skin.package("Big")); };

    auto skin = Skin::basic();
    skin.files["Knob.png"] = testskin::png(40, 300);
    skin.files["Sans.ttf"] = testskin::text("font bytes");
    skin.files["skin.xml"] = testskin::text(R"(<PluginEditor>
  <Fonts>
    <font typeface="Label" file="Sans.ttf"/>
    <font typeface="Title" file="Missing.ttf"/>
  </Fonts>
  <Panel name="MainPanel" background="Background.png">
    <Knob><gfx resource="Knob.png" framesNum="7"/></Knob>
    <Knob><gfx resource="Knob.png" framesNum="3"/></Knob>
    <Knob><gfx resource="Knob.png" framesNum="3"/></Knob>
    <Switch><gfx resource="Absent.png" framesNum="2"/></Switch>
    <Mixer><gfx><image name="slider" strip="Knob.png" frames="0"/></gfx></Mixer>
    <Display><gfx resource="skin.xml"/></Display>
  </Panel>
</PluginEditor>)");
    const auto problems = lint(skin);
    EXPECT_EQ(problems.size(), 5) << problems.joinIntoString("\n");
    EXPECT_TRUE(problems.contains("<font file=\"Missing.ttf\">: the skin has no file Missing.ttf"));
    EXPECT_TRUE(problems.contains("Knob.png: height 300 is not divided by 7 frames"));
    EXPECT_TRUE(problems.contains("<gfx resource=\"Absent.png\">: the skin has no file Absent.png"));
    EXPECT_TRUE(problems.contains("<image strip=\"Knob.png\">: 0 frames (read as 1)"));
    EXPECT_TRUE(problems.contains("skin.xml: not a PNG, JPEG or GIF image within 16384 pixels a side"));

    const auto only = [&](const Skin& s)
    {
        const auto found = lint(s);
        return found.size() == 1 ? found[0]
                                 : "(" + juce::String(found.size()) + " lines) " + found.joinIntoString(" | ");
    };
    auto noPanel = Skin::basic();
    noPanel.files["skin.xml"] = testskin::text("<PluginEditor><Panel name=\"Other\"/></PluginEditor>");
    EXPECT_EQ(only(noPanel), "skin.xml: no <Panel name=\"MainPanel\">");
    auto otherRoot = Skin::basic();
    otherRoot.files["skin.xml"] = testskin::text("<Skin/>");
    EXPECT_EQ(only(otherRoot), "skin.xml: the root element is <Skin>, not <PluginEditor>");
    auto broken = Skin::basic();
    broken.files["skin.xml"] = testskin::text("<PluginEditor>");
    EXPECT_EQ(only(broken), "skin.xml is not a well-formed document");
    auto noDocument = Skin::basic();
    noDocument.files.erase("skin.xml");
    EXPECT_EQ(only(noDocument), "the skin has no skin.xml");

    const auto archive = Skin::basic().archive();
    const auto wrongDigest = ZipArchive::write({{"Big.md5", testskin::text("0123"), 9}, {"Big.skin", archive, 0}});
    EXPECT_EQ(SkinLint::check("Big", wrongDigest), juce::StringArray("the digest in Big.md5 does not match Big.skin"));
    EXPECT_EQ(SkinLint::check("Small", Skin::basic().package("Big")),
              juce::StringArray("the package has no entry Small.md5"));
    EXPECT_EQ(SkinLint::check("Big", testskin::text("text")),
              juce::StringArray("not a skin package (no readable ZIP archive)"));
}
