#include "FactoryScan.h"

#include "BasePlugin.h"
#include "content/PackageKey.h"
#include "content/PresetsContent.h"

void scanContentStores(BasePlugin& plugin, TagRegistry& registry, juce::OwnedArray<ContentSource>& packages,
                       juce::Array<ContentSource*>& stores, const juce::File& packageFolder)
{
    const auto folder =
        packageFolder != juce::File() ? packageFolder : plugin.getDirectory("AppData").getChildFile("Presets");
    // A key below the floor could be forged: its packages are never trusted.
    const auto key = plugin.getPackageKey();
    if (folder.isDirectory() && packageKeyBits(key) >= minimumPackageKeyBits)
    {
        for (const auto& entry :
             juce::RangedDirectoryIterator(folder, false, "*Factory*.q41pkg", juce::File::findFiles))
        {
            if (entry.getFile().getFileName().startsWithChar('.'))
                continue; // hidden, such as a package being written
            auto* store = packages.add(new PresetsPackageContent<Preset>(
                "Factory", plugin.getPresetHost(), 0, entry.getFile(), plugin.getPresetFileExtension(), key));
            store->attach(&registry);
            stores.add(store);
        }
    }
    if (auto* user = plugin.getUserStore())
    {
        user->attach(&registry);
        stores.add(user);
    }
}
