// Every file the product writes is written whole or not at all: with the process's file size limit
// set below the new document's size, so that the operating system refuses the rest of the write
// half-way, each writer reports failure, the previous file stays byte for byte, and no temporary
// file is left behind.
#include "TestSupport.h"
#include "content/PackageBuilder.h"
#include "content/Preset.h"
#include "content/PresetsContent.h"
#include "content/TestPackageKey.h"
#include "io/SafeFile.h"
#include "io/SafeFileBatch.h"
#include "plugin/BasePlugin.h"
#include "plugin/FolderRule.h"
#include "product/VelmarinProcessor.h"

#include <gtest/gtest.h>

#include <csignal>
#include <functional>
#include <thread>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <sys/resource.h>

namespace
{
/** Files may grow to `bytes` while it lives; writes past that fail (EFBIG) instead of raising
    SIGXFSZ. */
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        getrlimit(RLIMIT_FSIZE, &previous);
        previousHandler = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit = previous;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &previous);
        std::signal(SIGXFSZ, previousHandler);
    }

private:
    rlimit previous{};
    void (*previousHandler)(int) = nullptr;
};

class SafeWrite : public ::testing::Test
{
protected:
    FolderRule folders() const { return FolderRule::fixed(user, user.getChildFile("data")); }

    /** Writes `previous` to `file`, then runs `write` under a 16-byte limit: the write must fail and
        leave the folder exactly as it was. */
    void expectWholeOrNothing(const juce::File& file, const juce::String& previous, const std::function<bool()>& write)
    {
        SCOPED_TRACE(file.getFileName().toStdString());
        ASSERT_TRUE(file.getParentDirectory().createDirectory());
        ASSERT_TRUE(file.replaceWithText(previous));
        const auto before = listing(file.getParentDirectory());
        bool written = true;
        {
            const FileSizeLimit limit(16);
            written = write();
        }
        EXPECT_FALSE(written);
        EXPECT_EQ(file.loadFileAsString(), previous);
        EXPECT_EQ(listing(file.getParentDirectory()), before) << "no temporary file is left behind";
    }

    /** Every file in a folder, hidden ones included. */
    static juce::String listing(const juce::File& folder)
    {
        juce::StringArray names;
        for (const auto& f : folder.findChildFiles(juce::File::findFilesAndDirectories, false, "*"))
            names.add(f.getFileName());
        names.sort(true);
        return names.joinIntoString("|");
    }

    testsupport::TemporaryFolder temp{"safe-write-"};
    const juce::File& user = temp.folder;
};
} // namespace

TEST_F(SafeWrite, EveryWriterKeepsThePreviousFileWhenTheWriteFailsHalfWay)
{
    const juce::String previousPreset =
        R"(<Preset tags="Type:Jet"><Parameters><param name="FX Amount" value="0.2"/></Parameters></Preset>)";
    auto processor = std::make_unique<VelmarinProcessor>(folders());
    auto& plugin = processor->getPlugin();
    auto& manager = plugin.getParameterManager();
    const auto presets = plugin.getUserPresetsFolder();

    Preset preset;
    plugin.storeToPreset(preset, 0);
    const auto presetFile = presets.getChildFile("Jet.vmprs2");
    expectWholeOrNothing(presetFile, previousPreset, [&] { return preset.saveToFile(presetFile, manager); });
    expectWholeOrNothing(
        presetFile, previousPreset,
        [&] { return Preset::writeTagsToFile(presetFile, ContentTags::fromText("Type:Chorus;Modulation:Slow")); });

    const auto mapFile = user.getChildFile("Maps/Mine.vmccmap");
    plugin.getMidiMap().assign(manager.getParameter(juce::String("FX Amount")), 12);
    expectWholeOrNothing(mapFile, "<MidiControlMap/>", [&] { return plugin.getMidiMap().saveToFile(mapFile); });

    // An import that fails leaves no file and no item.
    const auto itemsBefore = plugin.getUserStore()->getItems().size();
    {
        juce::MemoryInputStream stream(previousPreset.toRawUTF8(), previousPreset.getNumBytesAsUTF8(), false);
        const FileSizeLimit limit(16);
        EXPECT_EQ(plugin.getUserStore()->importItem(stream, "Imported"), nullptr);
    }
    EXPECT_FALSE(presets.getChildFile("Imported.vmprs2").exists());
    EXPECT_EQ(plugin.getUserStore()->getItems().size(), itemsBefore);

    PackageBuilder builder(PackageDescription{});
    builder.addEntry("Jet.vmprs2", juce::MemoryBlock(previousPreset.toRawUTF8(), previousPreset.getNumBytesAsUTF8()));
    const auto package = user.getChildFile("data/Presets/Factory.q41pkg");
    expectWholeOrNothing(package, "an older package", [&] { return builder.write(package, testkey::privateKey); });

    // The settings file is written at teardown, where nothing can report the failure: the file the
    // previous instance wrote must survive it.
    const auto settings = user.getChildFile("Velmarin.ini");
    processor.reset();
    const auto previousSettings = settings.loadFileAsString();
    ASSERT_TRUE(previousSettings.contains("UserSettings"));
    processor = std::make_unique<VelmarinProcessor>(folders());
    processor->getPlugin()
        .getParameterManager()
        .getParameter(juce::String("Real-time Processing Quality"))
        ->setText("Ultra", true);
    {
        const FileSizeLimit limit(16);
        processor.reset();
    }
    EXPECT_EQ(settings.loadFileAsString(), previousSettings);

    // And with room to write, the same writers replace the file whole.
    ASSERT_TRUE(SafeFile::writeText(mapFile, "new"));
    EXPECT_EQ(mapFile.loadFileAsString(), "new");
    EXPECT_FALSE(SafeFile::writeText(user, "a folder is not a file"));
}

TEST_F(SafeWrite, ALinkIsWrittenThroughAndStaysALink)
{
    const auto real = user.getChildFile("real/Velmarin.ini");
    ASSERT_TRUE(real.getParentDirectory().createDirectory());
    ASSERT_TRUE(real.replaceWithText("old"));
    const auto relativeLink = user.getChildFile("relative.ini");
    const auto chained = user.getChildFile("chained.ini");
    ASSERT_EQ(::symlink("real/Velmarin.ini", relativeLink.getFullPathName().toRawUTF8()), 0);
    ASSERT_EQ(::symlink(relativeLink.getFullPathName().toRawUTF8(), chained.getFullPathName().toRawUTF8()), 0);

    ASSERT_TRUE(SafeFile::writeText(chained, "through two links"));
    EXPECT_TRUE(chained.isSymbolicLink());
    EXPECT_TRUE(relativeLink.isSymbolicLink());
    EXPECT_EQ(real.loadFileAsString(), "through two links");
    EXPECT_EQ(listing(real.getParentDirectory()), "Velmarin.ini") << "no temporary file is left behind";

    // A link to a file not made yet makes that file.
    const auto dangling = user.getChildFile("dangling.ini");
    ASSERT_EQ(::symlink("real/new.ini", dangling.getFullPathName().toRawUTF8()), 0);
    ASSERT_TRUE(SafeFile::writeText(dangling, "new"));
    EXPECT_TRUE(dangling.isSymbolicLink());
    EXPECT_EQ(user.getChildFile("real/new.ini").loadFileAsString(), "new");
}

TEST_F(SafeWrite, AFifoIsWrittenInPlaceAndNeverReplaced)
{
    const auto fifo = user.getChildFile("pipe");
    ASSERT_EQ(::mkfifo(fifo.getFullPathName().toRawUTF8(), 0600), 0);
    std::string received;
    std::thread reader(
        [&]
        {
            const int fd = ::open(fifo.getFullPathName().toRawUTF8(), O_RDONLY);
            char buffer[256];
            for (ssize_t n; fd >= 0 && (n = ::read(fd, buffer, sizeof(buffer))) > 0;)
                received.append(buffer, static_cast<size_t>(n));
            ::close(fd);
        });
    const bool written = SafeFile::writeText(fifo, "down the pipe");
    reader.join();
    EXPECT_TRUE(written);
    EXPECT_EQ(received, "down the pipe");
    struct stat info = {};
    ASSERT_EQ(::lstat(fifo.getFullPathName().toRawUTF8(), &info), 0);
    EXPECT_TRUE(S_ISFIFO(info.st_mode));
    EXPECT_EQ(listing(user), "pipe");
}

TEST_F(SafeWrite, ADeviceNodeIsWrittenInPlaceAndNeverReplaced)
{
    const auto device = user.getChildFile("null");
    if (::mknod(device.getFullPathName().toRawUTF8(), S_IFCHR | 0666, makedev(1, 3)) != 0)
        GTEST_SKIP() << "mknod is not permitted here";
    const int probe = ::open(device.getFullPathName().toRawUTF8(), O_WRONLY);
    if (probe < 0)
        GTEST_SKIP() << "the device cannot be opened here";
    ::close(probe);

    EXPECT_TRUE(SafeFile::writeText(device, "into the void"));
    struct stat info = {};
    ASSERT_EQ(::lstat(device.getFullPathName().toRawUTF8(), &info), 0);
    EXPECT_TRUE(S_ISCHR(info.st_mode));
    EXPECT_EQ(info.st_rdev, makedev(1, 3));
    EXPECT_EQ(listing(user), "null");
}

TEST_F(SafeWrite, ABatchPutsNothingInPlaceUntilItCommits)
{
    const auto first = user.getChildFile("first.txt");
    const auto second = user.getChildFile("second.txt");
    ASSERT_TRUE(first.replaceWithText("old first"));
    {
        SafeFileBatch batch;
        ASSERT_TRUE(batch.add(first, juce::MemoryBlock("new first", 9)));
        EXPECT_FALSE(batch.add(user, juce::MemoryBlock("a folder", 8)));
        // The batch is abandoned, as a run that fails later abandons its outputs.
    }
    EXPECT_EQ(first.loadFileAsString(), "old first");
    EXPECT_EQ(listing(user), "first.txt");

    SafeFileBatch batch;
    ASSERT_TRUE(batch.add(first, juce::MemoryBlock("new first", 9)));
    ASSERT_TRUE(batch.add(second, juce::MemoryBlock("new second", 10)));
    EXPECT_FALSE(second.exists());
    ASSERT_TRUE(batch.commit());
    EXPECT_EQ(first.loadFileAsString(), "new first");
    EXPECT_EQ(second.loadFileAsString(), "new second");
    EXPECT_EQ(listing(user), "first.txt|second.txt");
}
