#pragma once

// Turns the layout into one skin at one size: every image, the skin document that names them, the
// thumbnail, the fonts and their licence, and the package made of them by the skin packer.

#include "SkinArt.h"
#include "SkinLayout.h"

#include <juce_core/juce_core.h>

#include <map>
#include <optional>

namespace SkinBuilder
{
/** One row of the product's parameter definitions: names, items and defaults as the plug-in reads
    them, so the skin binds and labels exactly what the plug-in defines. */
struct ParameterRow
{
    juce::String name, type, value;
    juce::StringArray items;
    /** The default as a value in 0..1. */
    float defaultValue() const;
};

class ParameterTable
{
public:
    /** Reads parameters.xml; `valid()` is false when it is missing or malformed. */
    explicit ParameterTable(const juce::File& definitions);
    bool valid() const { return ! rows.empty(); }
    const ParameterRow& operator[](int index) const;

private:
    std::map<int, ParameterRow> rows;
    ParameterRow none;
};

/** Where one control of the layout lands in one skin. */
struct Placement
{
    const SkinLayout::Control* control;
    /** In the coordinates of the panel that holds it. */
    juce::Rectangle<int> bounds;
    /** In the main panel's coordinates. */
    juce::Rectangle<int> absolute;
    juce::String image;
    int frames = 1;
};

/** Every control of the layout placed in one skin. */
struct Geometry
{
    const SkinLayout::SkinSize* size;
    juce::Rectangle<int> lfoPanel;
    std::vector<Placement> placements;
};

Geometry place(const SkinLayout::SkinSize& size, const ParameterTable& parameters, const SkinArt::Fonts& fonts);

/** The files of one skin, by their names inside the skin. */
using Files = std::map<juce::String, juce::MemoryBlock>;

/** Draws and writes one skin. `fontFolder` holds the DejaVu files and their licence. */
Files build(const SkinLayout::SkinSize& size, const ParameterTable& parameters, const SkinArt::Fonts& fonts,
            const juce::File& fontFolder);

/** The skin's package, made by the skin packer from the files written into a scratch folder. */
std::optional<juce::MemoryBlock> package(const Files& files, const juce::String& skinName, juce::String& error);

juce::MemoryBlock png(const juce::Image& image);
} // namespace SkinBuilder
