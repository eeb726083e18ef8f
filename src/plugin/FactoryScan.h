#pragma once

// The list of stores a browser shows: the factory packages of the installation's data folder, then
// the user's own store. The editor and the render tool both build their lists here.

#include "content/ContentSource.h"

class BasePlugin;

/** Makes one "Factory" store for each "*Factory*.q41pkg" file in `packageFolder` (in the file
    system's order; hidden files skipped), owned by `packages`, and lists them in `stores` followed
    by the plug-in's user store. No package is trusted when the plug-in's package key has fewer than
    minimumPackageKeyBits bits. Every store joins the registry and loads its items. An empty
    `packageFolder` means the data folder's "Presets". Message thread. */
void scanContentStores(BasePlugin& plugin, TagRegistry& registry, juce::OwnedArray<ContentSource>& packages,
                       juce::Array<ContentSource*>& stores, const juce::File& packageFolder = {});
