#pragma once

// The list of stores a browser shows: the factory packages of the installation's data folder, then
// the user's own store. The editor and the render tool both build their lists here.

#include "ContentSource.h"

class BasePlugin;

/** Makes one "Factory" store for each "*Factory*.q41pkg" file in the data folder's "Presets"
    (in the file system's order), owned by `packages`, and lists them in `stores` followed by the
    plug-in's user store. Every store joins the registry and loads its items. Message thread. */
void scanContentStores(BasePlugin& plugin, TagRegistry& registry, juce::OwnedArray<ContentSource>& packages,
                       juce::Array<ContentSource*>& stores);
