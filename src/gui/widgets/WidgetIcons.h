#pragma once

// The icons of the framework's own windows and widgets: small SVG drawings in one line style
// (1.6-pixel round strokes on a 16-pixel grid), coloured when they are made.

#include <juce_gui_basics/juce_gui_basics.h>

#include <memory>

enum class WidgetIcon
{
    arrowDown,
    arrowUp,
    arrowLeft,
    arrowRight,
    tick,
    close,
    magnifier,
    quality,
    factoryStore,
    userStore,
    knob
};

/** Thread: message thread. */
namespace WidgetIcons
{
/** The SVG text of an icon, drawn in black on a transparent 16 by 16 grid. */
juce::String getSvg(WidgetIcon icon);
/** A new drawable of the icon in that colour. */
std::unique_ptr<juce::Drawable> create(WidgetIcon icon, juce::Colour colour);
} // namespace WidgetIcons
