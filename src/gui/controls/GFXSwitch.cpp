#include "GFXSwitch.h"

#include "gui/core/SkinXml.h"

GFXSwitch::GFXSwitch(const juce::String& name) : GFXKnob(name)
{
    setRange(0.0, 1.0, 0.001);
    setLookAndFeel(&lf);
}

GFXSwitch::~GFXSwitch()
{
    setLookAndFeel(nullptr);
}

void GFXSwitch::load(const juce::XmlElement& element, SkinContext& skin)
{
    const auto style = element.getStringAttribute("style");
    if (style.equalsIgnoreCase("Horizontal"))
        switchStyle = horizontal;
    else if (style.equalsIgnoreCase("Vertical"))
        switchStyle = vertical;
    else if (style.equalsIgnoreCase("Rotary"))
        switchStyle = rotary;
    thumb = SkinXml::integer(element, "thumb", 10);
    setSliderStyle(switchStyle == horizontal ? juce::Slider::LinearHorizontal
                   : switchStyle == vertical ? juce::Slider::LinearVertical
                                             : juce::Slider::RotaryVerticalDrag);
    GFXKnob::load(element, skin);
    if (switchStyle != rotary)
        paramReset = SkinXml::boolean(element, "paramReset", false);
}

int GFXSwitch::getCurrentFrame() const
{
    // isEnabled is false when the switch or any of its parents is disabled.
    return isEnabled() ? frameOf(getValue(), frames) : 0;
}
