#include "FuzzSupport.h"

#include "io/XmlInput.h"
#include "product/VelmarinProcessor.h"

#include <cstdio>
#include <cstdlib>

namespace fuzz
{
const Target targets[] = {
    {"state_chunk", fuzzStateChunk},   {"preset", fuzzPreset},
    {"parameters", fuzzParameters},    {"midi_map", fuzzMidiMap},
    {"host_map", fuzzHostMap},         {"settings", fuzzSettings},
    {"package", fuzzPackage},          {"tags", fuzzTags},
    {"skin_package", fuzzSkinPackage}, {"skin_document", fuzzSkinDocument},
};
const int numTargets = static_cast<int>(std::size(targets));

namespace
{
void abortOnFailure(const char* check, const char* file, int line)
{
    std::fprintf(stderr, "%s:%d: check failed: %s\n", file, line, check);
    std::abort();
}

FailureHandler failureHandler = abortOnFailure;
juce::File privateRoot;

void removePrivateRoot()
{
    privateRoot.deleteRecursively();
}
} // namespace

void setFailureHandler(FailureHandler handler)
{
    failureHandler = handler != nullptr ? handler : abortOnFailure;
}

void fail(const char* check, const char* file, int line)
{
    failureHandler(check, file, line);
}

void usePrivateFolders()
{
    if (privateRoot != juce::File())
        return;
    // Memory-backed when the system has it: the plug-in syncs every file it writes, which on a disk
    // would hold the file-writing targets to a few dozen runs a second.
    const juce::File shared("/dev/shm");
    const auto base = shared.isDirectory() && shared.hasWriteAccess()
                          ? shared
                          : juce::File::getSpecialLocation(juce::File::tempDirectory);
    privateRoot = base.getNonexistentChildFile("velmarin-fuzz-" + juce::Uuid().toDashedString(), {}, false);
    privateRoot.getChildFile("user").createDirectory();
    privateRoot.getChildFile("data").createDirectory();
    std::atexit(removePrivateRoot);
}

VelmarinProcessor& sharedProcessor()
{
    static auto* const processor = []
    {
        usePrivateFolders();
        return new VelmarinProcessor(
            FolderRule::fixed(privateRoot.getChildFile("user"), privateRoot.getChildFile("data")));
    }();
    return *processor;
}

juce::String textOf(const uint8_t* data, size_t size)
{
    return XmlInput::decode(data, size);
}

juce::File scratchFile(const juce::String& name)
{
    usePrivateFolders();
    const auto folder = privateRoot.getChildFile("user").getChildFile("fuzz-scratch");
    folder.createDirectory();
    return folder.getChildFile(name);
}
} // namespace fuzz
