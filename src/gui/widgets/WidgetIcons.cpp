#include "WidgetIcons.h"

namespace
{
// Every icon is drawn with the same stroke on a 16 x 16 view box, so they sit together.
// Only the shapes are listed here; `getSvg` wraps them.

constexpr const char* arrowDown = "<path d=\"M4 6.5 L8 10.5 L12 6.5\"/>";
constexpr const char* arrowUp = "<path d=\"M4 9.5 L8 5.5 L12 9.5\"/>";
constexpr const char* arrowLeft = "<path d=\"M9.5 4 L5.5 8 L9.5 12\"/>";
constexpr const char* arrowRight = "<path d=\"M6.5 4 L10.5 8 L6.5 12\"/>";
constexpr const char* tick = "<path d=\"M3.5 8.5 L6.5 11.5 L12.5 4.5\"/>";
constexpr const char* closeIcon = "<path d=\"M4.5 4.5 L11.5 11.5 M11.5 4.5 L4.5 11.5\"/>";
constexpr const char* magnifier = "<circle cx=\"7\" cy=\"7\" r=\"4\"/><path d=\"M10 10 L13.5 13.5\"/>";
constexpr const char* quality = "<path d=\"M3 12.5 L3 10 M6.3 12.5 L6.3 7.5 M9.7 12.5 L9.7 5 "
                                "M13 12.5 L13 2.5\"/>";
constexpr const char* factoryStore = "<path d=\"M2.5 13.5 L2.5 7 L6 9 L6 7 L9.5 9 L9.5 3 L13.5 3 "
                                     "L13.5 13.5 Z M5 11.5 L7 11.5 M9 11.5 L11 11.5\"/>";
constexpr const char* userStore = "<circle cx=\"8\" cy=\"5.5\" r=\"2.8\"/>"
                                  "<path d=\"M2.8 14 C3.5 10.5 5.5 9.3 8 9.3 C10.5 9.3 12.5 10.5 13.2 "
                                  "14\"/>";
constexpr const char* knob = "<circle cx=\"8\" cy=\"8\" r=\"5.5\"/><path d=\"M8 8 L11 4.5\"/>"
                             "<path d=\"M3.3 13.5 L2.3 14.5 M12.7 13.5 L13.7 14.5\"/>";
} // namespace

namespace WidgetIcons
{
const char* getShape(WidgetIcon icon);

juce::String getSvg(WidgetIcon icon)
{
    return juce::String("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 16 16\" width=\"16\" height=\"16\">"
                        "<g fill=\"none\" stroke=\"#000000\" stroke-width=\"1.6\" stroke-linecap=\"round\" "
                        "stroke-linejoin=\"round\">") +
           getShape(icon) + "</g></svg>";
}

const char* getShape(WidgetIcon icon)
{
    switch (icon)
    {
    case WidgetIcon::arrowDown:
        return arrowDown;
    case WidgetIcon::arrowUp:
        return arrowUp;
    case WidgetIcon::arrowLeft:
        return arrowLeft;
    case WidgetIcon::arrowRight:
        return arrowRight;
    case WidgetIcon::tick:
        return tick;
    case WidgetIcon::close:
        return closeIcon;
    case WidgetIcon::magnifier:
        return magnifier;
    case WidgetIcon::quality:
        return quality;
    case WidgetIcon::factoryStore:
        return factoryStore;
    case WidgetIcon::userStore:
        return userStore;
    case WidgetIcon::knob:
        return knob;
    }
    return arrowDown;
}

std::unique_ptr<juce::Drawable> create(WidgetIcon icon, juce::Colour colour)
{
    auto drawable = juce::Drawable::createFromSVG(*juce::parseXML(getSvg(icon)));
    if (drawable != nullptr)
        drawable->replaceColour(juce::Colours::black, colour);
    return drawable;
}
} // namespace WidgetIcons
