#include "TestSkin.h"
#include "gui/skin/SkinImage.h"
#include "gui/skin/SkinPackage.h"

#include <gtest/gtest.h>
#include <juce_cryptography/juce_cryptography.h>

using testskin::Skin;

namespace
{
juce::MemoryBlock packageWithDigest(const juce::String& name, const juce::MemoryBlock& archive,
                                    const juce::String& digest)
{
    return ZipArchive::write({{name + ".md5", testskin::text(digest), 9}, {name + ".skin", archive, 0}});
}

juce::String md5Of(const juce::MemoryBlock& bytes)
{
    return juce::MD5(bytes.getData(), bytes.getSize()).toHexString();
}

/** Whether a package in memory loads: its document has the editor's root and a main panel. */
bool loads(const juce::MemoryBlock& package, const juce::String& name = "Big")
{
    SkinPackage skin(nullptr, SkinPackage::packageInMemory, name, {}, package.getData(), package.getSize());
    const auto root = skin.readDocument();
    return root != nullptr && SkinPackage::findMainPanel(*root) != nullptr;
}
} // namespace

TEST(SkinPackage, APackedSkinGivesItsDocumentImagesAndNothingElse)
{
    const testsupport::TemporaryFolder skins("skins");
    Skin::basic(640, 480).pack(skins.get(), "Big");

    SkinPackage skin(nullptr, SkinPackage::packageFile, "Big", skins.get());
    const auto root = skin.readDocument();
    ASSERT_NE(root, nullptr);
    EXPECT_NE(SkinPackage::findMainPanel(*root), nullptr);
    EXPECT_EQ(skin.getOpenResult(), SkinPackage::OpenResult::open);
    EXPECT_EQ(skin.getImage("Background.png").getBounds(), juce::Rectangle<int>(0, 0, 640, 480));
    EXPECT_FALSE(skin.getImage("Missing.png").isValid());
    EXPECT_FALSE(skin.getImage("background.png").isValid()) << "entry names are matched exactly";
    EXPECT_FALSE(skin.getImage("skin.xml").isValid()) << "a document is no image";

    SkinPackage absent(nullptr, SkinPackage::packageFile, "Small", skins.get());
    EXPECT_EQ(absent.readDocument(), nullptr);
    EXPECT_FALSE(absent.getImage("Background.png").isValid());
}

TEST(SkinPackage, TheDigestIsComparedIgnoringCaseAndNeverTrimmed)
{
    const auto archive = Skin::basic().archive();
    const auto digest = md5Of(archive);

    EXPECT_TRUE(loads(packageWithDigest("Big", archive, digest)));
    EXPECT_TRUE(loads(packageWithDigest("Big", archive, digest.toUpperCase())));
    EXPECT_FALSE(loads(packageWithDigest("Big", archive, digest + "\n")));
    EXPECT_FALSE(loads(packageWithDigest("Big", archive, " " + digest)));
    EXPECT_FALSE(loads(packageWithDigest("Big", archive, md5Of(testskin::text("another archive")))));

    // A damaged archive byte is caught even where ZIP reading would not notice it.
    auto damaged = archive;
    damaged[damaged.getSize() - 1] ^= 1;
    const auto package = packageWithDigest("Big", damaged, digest);
    SkinPackage skin(nullptr, SkinPackage::packageInMemory, "Big", {}, package.getData(), package.getSize());
    EXPECT_FALSE(skin.getImage("Background.png").isValid());
    EXPECT_EQ(skin.getOpenResult(), SkinPackage::OpenResult::digestMismatch);
}

TEST(SkinPackage, BrokenPackagesGiveNoSkinAndNoCrash)
{
    const auto good = Skin::basic().package("Big");
    auto withDocument = [](const juce::String& document)
    {
        auto skin = Skin::basic();
        skin.files["skin.xml"] = testskin::text(document);
        return skin.package("Big");
    };
    auto without = [](const juce::String& file)
    {
        auto skin = Skin::basic();
        skin.files.erase(file);
        return skin.package("Big");
    };
    const auto archive = Skin::basic().archive();

    const std::vector<std::pair<const char*, juce::MemoryBlock>> cases{
        {"not a ZIP", testskin::text("just some text, no archive")},
        {"empty", {}},
        {"truncated", juce::MemoryBlock(good.getData(), good.getSize() / 2)},
        {"no digest", ZipArchive::write({{"Big.skin", archive, 0}})},
        {"no inner archive", ZipArchive::write({{"Big.md5", testskin::text(md5Of(archive)), 9}})},
        {"entries of another name", Skin::basic().package("Small")},
        {"inner archive not a ZIP", packageWithDigest("Big", testskin::text("x"), md5Of(testskin::text("x")))},
        {"no skin.xml", without("skin.xml")},
        {"broken XML", withDocument("<PluginEditor><Panel name=\"MainPanel\">")},
        {"another root", withDocument("<Editor><Panel name=\"MainPanel\"/></Editor>")},
        {"no main panel", withDocument("<PluginEditor><Panel name=\"Other\"/></PluginEditor>")},
        {"nested too deep",
         withDocument("<PluginEditor>" + juce::String::repeatedString("<a>", 100000) + "</PluginEditor>")},
    };
    for (const auto& [what, package] : cases)
    {
        EXPECT_FALSE(loads(package)) << what;
        SkinPackage skin(nullptr, SkinPackage::packageInMemory, "Big", {}, package.getData(), package.getSize());
        EXPECT_EQ(skin.createMainPanel(), nullptr) << what;
    }
    EXPECT_TRUE(loads(withDocument("<plugineditor><Panel name=\"other\"/><panel name=\"mainpanel\"/></plugineditor>")))
        << "element names and the panel's name ignore case";
}

TEST(SkinPackage, TheArchivesAreOpenedOnceForAllTheGettersOfOneLoad)
{
    const testsupport::TemporaryFolder skins("skins");
    const auto file = Skin::basic(300, 200).pack(skins.get(), "Big");

    SkinPackage skin(nullptr, SkinPackage::packageFile, "Big", skins.get());
    ASSERT_TRUE(skin.getImage("Background.png").isValid());
    // Another skin put in the file's place after the first getter is never read by this load.
    Skin::basic(900, 700).pack(skins.get(), "Big");
    EXPECT_EQ(skin.getImage("Background.png").getWidth(), 300);
    EXPECT_NE(skin.readDocument(), nullptr);

    SkinPackage nextLoad(nullptr, SkinPackage::packageFile, "Big", skins.get());
    EXPECT_EQ(nextLoad.getImage("Background.png").getWidth(), 900) << "nothing is shared between loads";
}

TEST(SkinPackage, FontsAreKeptApartByNameAndStyleAndMadeFromTheSkinsFiles)
{
    auto skin = Skin::basic();
    skin.files["skin.xml"] = testskin::text(R"(<PluginEditor>
  <Fonts>
    <font typeface="Label" style="plain" file="fonts/Sans.ttf"/>
    <font typeface="Label" style="bold" file="fonts/SansBold.ttf"/>
    <font typeface="Broken" file="Broken.ttf"/>
    <font typeface="Absent" style="Bold" file="Absent.ttf"/>
  </Fonts>
  <Fonts><font typeface="Second list" file="fonts/Sans.ttf"/></Fonts>
  <Panel name="MainPanel"/>
</PluginEditor>)");
    skin.files["fonts/Sans.ttf"] = testskin::fontFile("DejaVuSans.ttf");
    skin.files["fonts/SansBold.ttf"] = testskin::fontFile("DejaVuSans-Bold.ttf");
    skin.files["Broken.ttf"] = testskin::text("no font at all");
    if (skin.files["fonts/Sans.ttf"].isEmpty() || skin.files["fonts/SansBold.ttf"].isEmpty())
        GTEST_SKIP() << "the DejaVu fonts are not installed (scripts/setup.sh installs them)";

    const testsupport::TemporaryFolder skins("skins");
    for (const int kind : {int(SkinPackage::folder), int(SkinPackage::packageFile)})
    {
        if (kind == SkinPackage::folder)
            skin.writeFolder(skins.get(), "Big");
        else
            skin.pack(skins.get(), "Big");
        SkinPackage package(nullptr, kind, "Big", skins.get());
        EXPECT_EQ(package.getFont("Label", 0).getTypefaceName(), juce::Font().getTypefaceName())
            << "no font before the document was read";
        ASSERT_NE(package.readDocument(), nullptr);
        ASSERT_EQ(package.getFonts().size(), 4) << "only the first font list counts";
        EXPECT_EQ(package.getFonts()[3].style, 0) << "style words are exact: \"Bold\" is plain";

        const auto plain = package.getFont("Label", 0);
        const auto bold = package.getFont("Label", 1);
        EXPECT_EQ(plain.getTypefacePtr()->getName(), "DejaVu Sans");
        EXPECT_EQ(bold.getTypefacePtr()->getStyle(), "Bold");
        EXPECT_EQ(package.getFont("Label", 0).getTypefacePtr(), plain.getTypefacePtr()) << "made once";

        const auto fallback = juce::Font().getTypefaceName();
        EXPECT_EQ(package.getFont("Broken", 0).getTypefaceName(), fallback);
        EXPECT_EQ(package.getFont("Absent", 0).getTypefaceName(), fallback);
        EXPECT_EQ(package.getFont("label", 0).getTypefaceName(), fallback) << "names are exact";
        EXPECT_EQ(package.getFont("Broken", 1).getTypefaceName(), fallback) << "no entry of that style";
    }
}

TEST(SkinPackage, AFolderSkinReadsOnlyItsOwnFiles)
{
    const testsupport::TemporaryFolder skins("skins");
    Skin::basic(320, 240).writeFolder(skins.get(), "Dev");
    (skins / "Outside.png").replaceWithData(testskin::png(8, 8).getData(), testskin::png(8, 8).getSize());

    SkinPackage skin(nullptr, SkinPackage::folder, "Dev", skins.get());
    EXPECT_NE(skin.readDocument(), nullptr);
    EXPECT_EQ(skin.getImage("Background.png").getWidth(), 320);
    EXPECT_FALSE(skin.getImage("../Outside.png").isValid());

    SkinPackage fromResources(nullptr, SkinPackage::resources, "Dev", skins.get());
    EXPECT_EQ(fromResources.readDocument(), nullptr) << "no plug-in, no resources";
}

TEST(SkinImage, ImagesAreRefusedBeforeDecodingWhenTheirHeaderDeclaresTooMuch)
{
    auto pngWithSize = [](uint32_t width, uint32_t height)
    {
        auto bytes = testskin::png(4, 4);
        auto* p = static_cast<uint8_t*>(bytes.getData());
        for (int i = 0; i < 4; ++i)
        {
            p[16 + i] = uint8_t(width >> (24 - 8 * i));
            p[20 + i] = uint8_t(height >> (24 - 8 * i));
        }
        return bytes;
    };
    EXPECT_TRUE(SkinImage::decode(testskin::png(64, 32)).isValid());
    EXPECT_FALSE(SkinImage::decode(pngWithSize(100000, 100000)).isValid());
    EXPECT_FALSE(SkinImage::decode(pngWithSize(16384, 16384)).isValid()) << "each side allowed, not the pixels";
    EXPECT_FALSE(SkinImage::decode(pngWithSize(0, 10)).isValid());
    EXPECT_FALSE(SkinImage::decode(juce::MemoryBlock(testskin::png(64, 32).getData(), 20)).isValid());
    EXPECT_FALSE(SkinImage::decode(testskin::text("BM not a format the skins use")).isValid());

    // The three formats' headers are read where their decoders read them.
    juce::Image image(juce::Image::RGB, 123, 45, true);
    juce::PNGImageFormat pngFormat;
    juce::JPEGImageFormat jpegFormat;
    for (juce::ImageFileFormat* format : std::vector<juce::ImageFileFormat*>{&pngFormat, &jpegFormat})
    {
        juce::MemoryBlock bytes;
        {
            juce::MemoryOutputStream out(bytes, false);
            format->writeImageToStream(image, out);
        }
        const auto size = SkinImage::declaredSize(bytes.getData(), bytes.getSize());
        ASSERT_TRUE(size.has_value()) << format->getFormatName();
        EXPECT_EQ(*size, juce::Point<int>(123, 45)) << format->getFormatName();
        EXPECT_EQ(SkinImage::decode(bytes).getBounds(), image.getBounds());
    }
    // Damaged data behind a good header: the decoders' own error paths, which JUCE's readers on the
    // system libraries get wrong (a PNG error jumped into a gone stack frame).
    for (juce::ImageFileFormat* format : std::vector<juce::ImageFileFormat*>{&pngFormat, &jpegFormat})
    {
        juce::Image noisy(juce::Image::RGB, 64, 64, true);
        juce::Random random(7);
        for (int y = 0; y < 64; ++y)
            for (int x = 0; x < 64; ++x)
                noisy.setPixelAt(x, y, juce::Colour(uint32_t(random.nextInt())));
        juce::MemoryBlock bytes;
        {
            juce::MemoryOutputStream out(bytes, false);
            format->writeImageToStream(noisy, out);
        }
        for (size_t at = 40; at < bytes.getSize(); at += 97)
        {
            auto damaged = bytes;
            damaged[at] = char(damaged[at] ^ 0x5a);
            const auto decoded = SkinImage::decode(damaged);
            EXPECT_TRUE(! decoded.isValid() || decoded.getBounds() == noisy.getBounds()) << format->getFormatName();
        }
        if (format == &pngFormat)
        {
            EXPECT_FALSE(SkinImage::decode(juce::MemoryBlock(bytes.getData(), bytes.getSize() / 2)).isValid());
        }
    }

    const uint8_t gif[] = {'G', 'I', 'F', '8', '9', 'a', 0x10, 0x27, 0x20, 0x4e};
    EXPECT_EQ(SkinImage::declaredSize(gif, sizeof(gif)), juce::Point<int>(10000, 20000));
}
