// A factory package (.q41pkg): the outer ZIP archive, the signature, the inner archive with its
// description, and the preset documents inside, read as a content store reads them.
//
// The first byte chooses what the rest is. Even: a whole package file, checked with the unit tests'
// 2048-bit key (the seeds are signed with it). Odd: only the inner archive, which the body signs
// with a small key of this file and wraps itself, so that the fuzzer reaches everything behind the
// signature check quickly. Neither key is ever the build's package key.
#include "FuzzSupport.h"

#include "../content/TestPackageKey.h"

#include "content/PackageBuilder.h"
#include "content/PackageFile.h"
#include "content/PresetsContent.h"
#include "plugin/BasePlugin.h"
#include "product/VelmarinProcessor.h"

namespace
{
// A 272-bit key made for the fuzz corpus only: it signs nothing that ships, and it is small so that
// signing each input stays quick (the MD5 it signs has 128 bits).
constexpr const char* testPublicKey = "10001,aa96e0b61a14ee1bbfdc0515cca37704caf267bc3fe303e898aae48014511d08316d";
constexpr const char* testPrivateKey = "48b94794fa6b7fd2dea90a95ef86a47faadeb2433f00c5b5934db8ad14252283e3b5,"
                                       "aa96e0b61a14ee1bbfdc0515cca37704caf267bc3fe303e898aae48014511d08316d";

/** Presets opened per input: enough to reach every reading path, few enough to stay quick. */
constexpr int maximumOpened = 4;
} // namespace

int fuzzPackage(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    const bool wrapped = (data[0] & 1) != 0;
    const juce::MemoryBlock rest(data + 1, size - 1);

    static const auto file = fuzz::scratchFile("Fuzz Factory.q41pkg");
    const auto signature = wrapped ? PackageBuilder::sign(rest, testPrivateKey) : juce::String();
    const auto bytes = wrapped ? PackageBuilder::wrap(rest, signature) : rest;
    FUZZ_CHECK(file.replaceWithData(bytes.getData(), bytes.getSize()));

    auto& plugin = fuzz::sharedProcessor().getPlugin();
    PresetsPackageContent<Preset> store("Factory", plugin.getPresetHost(), 0, file, ".vmprs2",
                                        wrapped ? testPublicKey : testkey::publicKey);
    const auto& package = store.getPackage();

    if (wrapped)
    {
        // Correctly signed content is accepted whatever it holds, and the signature covers every
        // byte of it.
        FUZZ_CHECK(package.isValid());
        if (! rest.isEmpty())
        {
            auto altered = rest;
            altered[altered.getSize() / 2] ^= 1;
            FUZZ_CHECK(! PackageFile::signatureMatches(signature, altered, testPublicKey));
        }
    }
    if (! package.isValid())
        FUZZ_CHECK(package.getNumEntries() == 0);

    TagRegistry registry;
    store.attach(&registry);
    for (int i = 0; i < store.getItems().size() && i < maximumOpened; ++i)
        (void)store.openItem(store.getItems()[i]->name);
    for (int i = 0; i < package.getNumEntries(); ++i)
        FUZZ_CHECK(package.indexOf(package.getEntryName(i)) >= 0);
    return 0;
}
