// The user's preset folder and signed packages as stores: create, rename, delete, import, tags,
// loading into the plug-in, and packages refused for every kind of damage.
#include "TestPackageKey.h"
#include "TestSupport.h"
#include "content/PackageBuilder.h"
#include "content/PackageKey.h"
#include "content/PresetsContent.h"
#include "io/XmlInput.h"
#include "parameters/ParameterManager.h"
#include "plugin/BasePlugin.h"
#include "plugin/FolderRule.h"
#include "product/ProductPackageKey.h"
#include "product/VelmarinProcessor.h"

#include <gtest/gtest.h>

namespace
{
juce::String names(const ContentSource& store)
{
    juce::StringArray list;
    for (auto* item : store.getItems())
        list.add(item->name);
    list.sort(true);
    return list.joinIntoString(",");
}

class Stores : public ::testing::Test
{
protected:
    Stores()
    {
        processor = std::make_unique<VelmarinProcessor>(FolderRule::fixed(user, user.getChildFile("data")));
        store = plugin().getUserStore();
        store->attach(&registry);
    }
    ~Stores() override { processor.reset(); }

    BasePlugin& plugin() { return processor->getPlugin(); }
    ParameterManager& manager() { return plugin().getParameterManager(); }

    testsupport::TemporaryFolder temp{"stores-"};
    const juce::File& user = temp.folder;
    TagRegistry registry;
    std::unique_ptr<VelmarinProcessor> processor;
    ContentSource* store = nullptr;
};

/** The committed test key pair, as the package tests use it. */
const std::pair<juce::String, juce::String>& testKey()
{
    static const std::pair<juce::String, juce::String> key{testkey::publicKey, testkey::privateKey};
    return key;
}

juce::MemoryBlock bytesOf(const juce::String& text)
{
    return {text.toRawUTF8(), text.getNumBytesAsUTF8()};
}
} // namespace

TEST_F(Stores, UserFolderItemsAreCreatedRenamedTaggedAndDeleted)
{
    EXPECT_FALSE(store->isReadOnly());
    manager().setText(26, "0.8");
    auto* bass = store->addNew("Bass", ContentTags::fromText("Type:Flanger"));
    ASSERT_NE(bass, nullptr);
    EXPECT_EQ(store->addNew("BASS", {}), nullptr) << "names compare ignoring case";
    const auto file = user.getChildFile("UserStore/Presets/Bass.vmprs2");
    ASSERT_TRUE(file.existsAsFile());
    const auto root = juce::parseXML(file);
    EXPECT_EQ(root->getStringAttribute("version"), "1.0");
    EXPECT_EQ(root->getStringAttribute("tags"), "Type:Flanger");
    EXPECT_EQ(bass->tagIds, (juce::Array<int>{registry.idOf("Type", "Flanger")}));

    ASSERT_NE(store->addNew("Lead", {}), nullptr);
    EXPECT_FALSE(store->renameItem(bass, "Lead")) << "an existing name is refused";
    EXPECT_TRUE(store->renameItem(bass, "BASS")) << "a change of letter case only is allowed";
    EXPECT_EQ(names(*store), "BASS,Lead");
    EXPECT_TRUE(user.getChildFile("UserStore/Presets/BASS.vmprs2").existsAsFile());

    EXPECT_TRUE(store->setItemTags(bass, ContentTags::fromText("Type:Jet;Modulation:Slow")));
    EXPECT_EQ(store->readItemTags("BASS").toText(), "Type:Jet;Modulation:Slow");
    EXPECT_EQ(bass->tagIds, (juce::Array<int>{registry.idOf("Type", "Jet"), registry.idOf("Modulation", "Slow")}));

    EXPECT_EQ(store->uniqueName("Pad"), "Pad");
    store->addNew("Pad", {});
    store->addNew("Pad (1)", {});
    store->addNew("Pad (2)", {});
    EXPECT_EQ(store->uniqueName("pad"), "pad (3)");

    manager().setText(26, "0.1");
    EXPECT_TRUE(store->openItem("bass"));
    EXPECT_EQ(manager().getText(26), "0.8");
    EXPECT_EQ(manager().getText(100000), "BASS") << "the file's name is the preset's name";

    EXPECT_TRUE(store->remove(store->find("Lead")));
    EXPECT_FALSE(user.getChildFile("UserStore/Presets/Lead.vmprs2").exists());
    EXPECT_FALSE(store->openItem("Lead"));
    EXPECT_EQ(store->getAllTags().toText(), "Type:Jet;Modulation:Slow") << "the union follows the remaining items";

    // A rescan finds the files again; a broken one is an item without tags; a dotted name loses its tail.
    ASSERT_TRUE(user.getChildFile("UserStore/Presets/Broken.vmprs2").replaceWithText("<Preset"));
    EXPECT_EQ(store->getItemFile("A.B").getFileName(), "A.vmprs2");
    store->setEnabled(false);
    EXPECT_TRUE(store->getItems().isEmpty());
    store->setEnabled(true);
    EXPECT_EQ(names(*store), "BASS,Broken,Pad,Pad (1),Pad (2)");
    EXPECT_TRUE(store->find("Broken")->tags.isEmpty());
}

TEST_F(Stores, ImportWritesANewFileAndRefusesTakenNames)
{
    store->addNew("Wide", {});
    const juce::String document =
        R"(<Preset tags="Spatialize:Wide"><Parameters><param name="FX Amount" value="0.2"/></Parameters></Preset>)";
    juce::MemoryInputStream first(bytesOf(document), true);
    EXPECT_EQ(store->importItem(first, "wide"), nullptr);

    juce::MemoryInputStream second(bytesOf(document), true);
    auto* item = store->importItem(second, "Imported");
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->tags.toText(), "Spatialize:Wide");
    EXPECT_EQ(user.getChildFile("UserStore/Presets/Imported.vmprs2").loadFileAsString(), document);

    ASSERT_TRUE(user.getChildFile("UserStore/Presets/Stray.vmprs2").replaceWithText(document));
    juce::MemoryInputStream third(bytesOf(document), true);
    EXPECT_EQ(store->importItem(third, "Stray"), nullptr) << "a file that exists is never overwritten";
}

TEST_F(Stores, NamesThatDifferOnlyInCaseStayApartOnACaseSensitiveFileSystem)
{
    const auto folder = user.getChildFile("UserStore/Presets");
    const auto preset = [](const char* value)
    {
        return juce::String(R"(<Preset><Parameters><param name="FX Amount" value=")") + value +
               R"("/></Parameters></Preset>)";
    };
    ASSERT_TRUE(folder.getChildFile("Bass.vmprs2").replaceWithText(preset("0.25")));
    if (folder.getChildFile("bass.vmprs2").existsAsFile())
        GTEST_SKIP() << "this file system ignores letter case";
    ASSERT_TRUE(folder.getChildFile("bass.vmprs2").replaceWithText(preset("0.75")));
    ASSERT_TRUE(folder.getChildFile("Pad.vmprs2").replaceWithText(preset("0.5")));
    store->setEnabled(false);
    store->setEnabled(true);
    ASSERT_EQ(store->getItems().size(), 3);
    EXPECT_EQ(store->find("bass")->name, "bass");
    EXPECT_EQ(store->find("Bass")->name, "Bass");

    // The exact name wins; letter case is ignored only when no exact name exists.
    ASSERT_TRUE(store->openItem("bass"));
    EXPECT_EQ(manager().getText(100000), "bass");
    ASSERT_TRUE(store->openItem("Bass"));
    EXPECT_EQ(manager().getText(100000), "Bass");
    ASSERT_TRUE(store->openItem("PAD"));
    EXPECT_EQ(manager().getText(100000), "Pad");

    // A change of case onto another file's name is refused and changes nothing.
    EXPECT_FALSE(store->renameItem(store->find("Bass"), "bass"));
    EXPECT_EQ(folder.getChildFile("Bass.vmprs2").loadFileAsString(), preset("0.25"));
    EXPECT_EQ(folder.getChildFile("bass.vmprs2").loadFileAsString(), preset("0.75"));
    EXPECT_EQ(store->find("Bass")->name, "Bass");
    EXPECT_TRUE(store->renameItem(store->find("Pad"), "PAD")) << "a change of case of the item's own file";
    EXPECT_TRUE(folder.getChildFile("PAD.vmprs2").existsAsFile());
}

TEST_F(Stores, HiddenFilesAreNoItemsAndNamesNeverLeaveTheFolder)
{
    const auto folder = user.getChildFile("UserStore/Presets");
    const juce::String document = R"(<Preset><Parameters/></Preset>)";
    ASSERT_TRUE(folder.getChildFile(".Hidden.vmprs2").replaceWithText(document));
    ASSERT_TRUE(folder.getChildFile(".Kept.vmprs2.tmp.vmprs2").replaceWithText(document));
    ASSERT_TRUE(folder.getChildFile("Shown.vmprs2").replaceWithText(document));
    store->setEnabled(false);
    store->setEnabled(true);
    EXPECT_EQ(names(*store), "Shown");

    const auto outside = user.getChildFile("UserStore/x.vmprs2");
    ASSERT_TRUE(outside.replaceWithText(document));
    for (const char* name : {"../x", "a/b", ".", "..", ".Hidden", ""})
    {
        SCOPED_TRACE(name);
        EXPECT_EQ(store->addNew(name, {}), nullptr);
        juce::MemoryInputStream stream(bytesOf(document), true);
        EXPECT_EQ(store->importItem(stream, name), nullptr);
        EXPECT_FALSE(store->renameItem(store->find("Shown"), name));
        EXPECT_FALSE(store->deleteStoredItem(name));
        EXPECT_FALSE(store->writeItemTags(name, ContentTags::fromText("Type:Jet")));
    }
    EXPECT_EQ(outside.loadFileAsString(), document);
    EXPECT_FALSE(user.getChildFile("UserStore/Presets/a").exists());
    EXPECT_EQ(names(*store), "Shown");
    EXPECT_EQ(folder.findChildFiles(juce::File::findFilesAndDirectories, false, "*").size(), 3);
}

TEST_F(Stores, AnImportLargerThanAnyDocumentIsRefused)
{
    juce::MemoryBlock huge(XmlInput::maximumDocumentBytes + 1, true);
    juce::MemoryInputStream stream(huge, false);
    EXPECT_EQ(store->importItem(stream, "Huge"), nullptr);
    EXPECT_FALSE(user.getChildFile("UserStore/Presets/Huge.vmprs2").exists());
}

TEST_F(Stores, SignedPackagesListTheirPresetsAndDamagedOnesNothing)
{
    const auto& [publicKey, privateKey] = testKey();
    PackageDescription description;
    description.author = "Factory Team";
    PackageBuilder builder(description);
    builder.addEntry(
        "Jet.vmprs2",
        bytesOf(
            R"(<Preset tags="Type:Jet"><Parameters><param name="LFO Rate L/M" value="0.05"/></Parameters></Preset>)"));
    builder.addEntry("notes.txt", bytesOf("not a preset"));
    builder.addEntry("Own.vmprs2", bytesOf(R"(<Preset author="Ann"><Parameters/></Preset>)"));
    const auto good = user.getChildFile("Good Factory.q41pkg");
    ASSERT_TRUE(builder.write(good, privateKey));

    PresetsPackageContent<Preset> package("Factory", plugin().getPresetHost(), 0, good, ".vmprs2", publicKey);
    package.attach(&registry);
    EXPECT_EQ(names(package), "Jet,Own") << "the description and foreign entries are not items";
    EXPECT_TRUE(package.isReadOnly());
    EXPECT_FALSE(package.remove(package.find("Jet")));
    EXPECT_FALSE(package.renameItem(package.find("Jet"), "Jet 2"));
    EXPECT_EQ(package.getAllTags().toText(), "Type:Jet");

    std::unique_ptr<Preset> jet = package.readPreset("Jet", true);
    ASSERT_NE(jet, nullptr);
    EXPECT_EQ(jet->getNumValues(), 1) << "a package preset is always read whole";
    package.completePreset(*jet);
    EXPECT_EQ(jet->getAuthor(), "Factory Team");
    auto own = package.readPreset("Own", false);
    package.completePreset(*own);
    EXPECT_EQ(own->getAuthor(), "Ann");
    EXPECT_EQ(package.readPreset("__desc__", false), nullptr);
    EXPECT_TRUE(package.openItem("Jet"));
    EXPECT_EQ(manager().getText(6), "0.05");

    // Damaged packages: each must give an empty store, quietly.
    juce::MemoryBlock bytes;
    good.loadFileAsData(bytes);
    const auto content = builder.buildContent();
    auto outerWith = [](const juce::StringArray& entries, const juce::Array<juce::MemoryBlock>& data)
    {
        juce::ZipFile::Builder zip;
        for (int i = 0; i < entries.size(); ++i)
            zip.addEntry(new juce::MemoryInputStream(data.getReference(i), true), 0, entries[i], juce::Time());
        juce::MemoryBlock out;
        juce::MemoryOutputStream stream(out, false);
        zip.writeToStream(stream, nullptr);
        stream.flush();
        return out;
    };
    juce::String otherPublic, otherPrivate;
    PackageBuilder::createKeyPair(512, otherPublic, otherPrivate);
    juce::MemoryBlock noise(bytes.getSize());
    juce::Random(3).fillBitsRandomly(noise.getData(), noise.getSize());
    const std::vector<std::pair<const char*, juce::MemoryBlock>> damaged = {
        {"truncated", juce::MemoryBlock(bytes.getData(), bytes.getSize() / 2)},
        {"random", noise},
        {"no hash", outerWith({"content"}, {content})},
        {"wrong hash", outerWith({"hash", "content"}, {bytesOf("1234abcd"), content})},
        {"text hash", outerWith({"hash", "content"}, {bytesOf("not hex at all"), content})},
        {"other key", outerWith({"hash", "content"}, {bytesOf(PackageBuilder::sign(content, otherPrivate)), content})},
        {"empty", juce::MemoryBlock()},
    };
    for (const auto& [what, data] : damaged)
    {
        const auto file = user.getChildFile(juce::String(what) + " Factory.q41pkg");
        ASSERT_TRUE(file.replaceWithData(data.getData(), data.getSize()));
        PresetsPackageContent<Preset> broken("Factory", plugin().getPresetHost(), 0, file, ".vmprs2", publicKey);
        broken.attach(&registry);
        EXPECT_TRUE(broken.getItems().isEmpty()) << what;
        EXPECT_FALSE(broken.getPackage().isValid()) << what;
        EXPECT_FALSE(broken.openItem("Jet")) << what;
    }
    PresetsPackageContent<Preset> missing("Factory", plugin().getPresetHost(), 0, user.getChildFile("none.q41pkg"),
                                          ".vmprs2", publicKey);
    EXPECT_FALSE(missing.getPackage().isValid());
}

TEST_F(Stores, KeysBelowTheFloorSignNoPackageAndAreNeverTrusted)
{
    EXPECT_EQ(packageKeyBits(testkey::publicKey), 2048);
    EXPECT_EQ(packageKeyBits(testkey::privateKey), 2048);
    EXPECT_EQ(packageKeyBits("10001,not hex"), 0);
    EXPECT_GE(packageKeyBits(getProductPackageKey()), minimumPackageKeyBits) << "the build compiled in a weak key";

    juce::String smallPublic, smallPrivate;
    PackageBuilder::createKeyPair(512, smallPublic, smallPrivate);
    EXPECT_EQ(packageKeyBits(smallPrivate), 512);
    PackageBuilder builder(PackageDescription{"Velmarin", "Presets", "Factory", "Test", 1, "Q41", "Q41"});
    builder.addEntry("Jet.vmprs2", bytesOf(R"(<Preset><Parameters/></Preset>)"));
    const auto weak = user.getChildFile("Weak Factory.q41pkg");
    EXPECT_FALSE(builder.write(weak, smallPrivate));
    EXPECT_FALSE(weak.exists());

    const auto strong = user.getChildFile("Strong Factory.q41pkg");
    ASSERT_TRUE(builder.write(strong, testkey::privateKey));
    EXPECT_TRUE(PackageFile(strong, testkey::publicKey).isValid());
    EXPECT_FALSE(PackageFile(strong, smallPublic).isValid());
}
