#include "TestSkin.h"
#include "gui/skin/SkinList.h"

#include <gtest/gtest.h>

using testskin::Skin;

namespace
{
juce::StringArray namesOf(const SkinList& list)
{
    juce::StringArray names;
    for (const auto& row : list.getRows())
        names.add(row.name);
    return names;
}
} // namespace

TEST(SkinList, RowsAreSortedByWidthAndTheDefaultIsTheWidestThatFits)
{
    const testsupport::TemporaryFolder skins("skins");
    Skin::basic(1200, 800).pack(skins.get(), "Huge");
    Skin::basic(300, 200).pack(skins.get(), "Small");
    Skin::basic(800, 600).pack(skins.get(), "Big");
    auto bare = Skin::basic();
    bare.files.erase("Background.png");
    bare.files.erase("Thumbnail.png");
    bare.pack(skins.get(), "Bare");
    (skins / "Readme.txt").replaceWithText("not a skin");
    (skins / "Folder.q41skin").createDirectory();

    const SkinList list(nullptr, SkinPackage::packageFile, skins.get());
    EXPECT_EQ(namesOf(list), juce::StringArray({"Bare", "Small", "Big", "Huge"}));
    EXPECT_TRUE(list.getRows()[0].bounds.isEmpty()) << "a skin without images still has its row";
    EXPECT_FALSE(list.getRows()[0].thumbnail.isValid());
    EXPECT_EQ(list.getRows()[2].bounds, juce::Rectangle<int>(0, 0, 800, 600));
    EXPECT_EQ(list.getRows()[2].thumbnail.getWidth(), 200);
    EXPECT_EQ(list.indexOf("big"), 2);
    EXPECT_EQ(list.indexOf("Other"), -1);
    EXPECT_EQ(SkinList::countPackages(skins.get()), 4);

    EXPECT_EQ(list.defaultSkin(juce::Rectangle<int>(0, 0, 1920, 1080)), "Huge");
    EXPECT_EQ(list.defaultSkin(juce::Rectangle<int>(0, 0, 1024, 768)), "Big");
    EXPECT_EQ(list.defaultSkin(juce::Rectangle<int>(0, 0, 800, 599)), "Small") << "the height counts too";
    EXPECT_EQ(list.defaultSkin(juce::Rectangle<int>(0, 0, 100, 100)), "Bare") << "none fits: the narrowest";
    EXPECT_EQ(list.defaultSkin(std::nullopt), "Bare") << "no display: the narrowest";
}

TEST(SkinList, TheDefaultOfOneSkinOrNoneAndOfTheFolderKind)
{
    const testsupport::TemporaryFolder skins("skins");
    Skin::basic(3000, 2000).pack(skins.get(), "Wall");
    const SkinList one(nullptr, SkinPackage::packageFile, skins.get());
    EXPECT_EQ(one.defaultSkin(juce::Rectangle<int>(0, 0, 1280, 720)), "Wall") << "wider than every display";

    const SkinList missing(nullptr, SkinPackage::packageFile, skins / "Nowhere");
    EXPECT_TRUE(missing.getRows().empty());
    EXPECT_EQ(missing.defaultSkin(juce::Rectangle<int>(0, 0, 1280, 720)), "");
    EXPECT_EQ(SkinList::countPackages(skins / "Nowhere"), 0);

    Skin::basic(500, 400).writeFolder(skins.get(), "Dev");
    const SkinList folders(nullptr, SkinPackage::folder, skins.get());
    EXPECT_EQ(namesOf(folders), juce::StringArray({"Dev"}));
    EXPECT_EQ(folders.getRows()[0].bounds.getWidth(), 500);
}
