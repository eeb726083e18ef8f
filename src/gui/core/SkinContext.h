#pragma once

// What a control sees of the skin it is loaded from: the plug-in it controls, and the images and
// fonts the skin names. The skin package implements it; the controls, which stand in a lower layer
// than the package, load through it.

#include <juce_graphics/juce_graphics.h>

class BasePlugin;

/** The context argument of every control's load. Lives only while one skin loads: a control keeps
    the images it fetched (reference-counted), never the context. Thread: message thread. */
class SkinContext
{
public:
    virtual ~SkinContext() = default;

    /** The plug-in whose parameters and events the controls reach; null when there is none. */
    virtual BasePlugin* getPlugin() const = 0;
    /** The image of that file of the skin, decoded anew on each call, or the null image. */
    virtual juce::Image getImage(const juce::String& fileName) = 0;
    /** The skin's font of that name and style (0 plain, 1 bold), or a default-made font. */
    virtual juce::Font getFont(const juce::String& typefaceName, int style) = 0;
};
