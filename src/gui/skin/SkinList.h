#pragma once

// The skins a user can choose from: every package in the skins folder, with its thumbnail and the
// size of its background, narrowest first, and the rule that picks the skin a new editor opens with
// when the user has chosen none: the widest that fits on the first display, else the narrowest.

#include "SkinPackage.h"

#include <optional>
#include <vector>

/** One row of the skin list. */
struct SkinInfo
{
    juce::String name;
    /** The bounds of the skin's "Background.png"; empty when it has none. */
    juce::Rectangle<int> bounds;
    /** The skin's "Thumbnail.png", or the null image. */
    juce::Image thumbnail;
};

/** Thread: message thread (decodes images). */
class SkinList
{
public:
    /** Lists the skins of a folder: for the folder kind its sub-folders, for every other kind its
        package files. A missing folder gives an empty list. Each skin is opened once for its
        thumbnail and background; a skin whose images are missing still gets its row. */
    SkinList(BasePlugin* plugin, int sourceKind, const juce::File& directory);

    /** The number of package files in a folder (not recursing). */
    static int countPackages(const juce::File& directory);

    /** The rows, sorted by the width of their background, narrowest first. */
    const std::vector<SkinInfo>& getRows() const noexcept { return rows; }
    /** The row of that name, ignoring case, or -1. */
    int indexOf(const juce::String& skinName) const;

    /** The skin a new editor opens with when the user chose none, given the bounds of the first
        display (none without a display): the widest skin whose background the display contains,
        else the narrowest. Empty for an empty list. */
    juce::String defaultSkin(std::optional<juce::Rectangle<int>> firstDisplay) const;

    /** The bounds of the desktop's first display, or nothing without one. The editor asks this; tests,
        tools and anything without a screen never do. */
    static std::optional<juce::Rectangle<int>> firstDisplayBounds();

private:
    std::vector<SkinInfo> rows;
};
