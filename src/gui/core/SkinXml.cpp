#include "SkinXml.h"

namespace SkinXml
{
const juce::XmlElement* child(const juce::XmlElement& element, const juce::String& name)
{
    for (auto* c = element.getFirstChildElement(); c != nullptr; c = c->getNextElement())
        if (c->getTagName().equalsIgnoreCase(name))
            return c;
    return nullptr;
}

juce::Array<const juce::XmlElement*> children(const juce::XmlElement& element, const juce::String& name)
{
    juce::Array<const juce::XmlElement*> found;
    for (auto* c = element.getFirstChildElement(); c != nullptr; c = c->getNextElement())
        if (c->getTagName().equalsIgnoreCase(name))
            found.add(c);
    return found;
}

int integer(const juce::XmlElement& element, const juce::String& attribute, int defaultValue)
{
    return element.hasAttribute(attribute) ? element.getStringAttribute(attribute).getIntValue() : defaultValue;
}

juce::Colour colour(const juce::String& text)
{
    return juce::Colour(uint32_t(text.trim().getHexValue64() & 0xffffffff));
}

bool boolean(const juce::XmlElement& element, const juce::String& attribute, bool defaultValue)
{
    if (! element.hasAttribute(attribute))
        return defaultValue;
    const auto text = element.getStringAttribute(attribute).trim();
    return text.equalsIgnoreCase("true") || text.equalsIgnoreCase("yes") || text == "1";
}
juce::Point<int> size(const juce::XmlElement& element, int defaultWidth, int defaultHeight)
{
    auto* sizeElement = child(element, "size");
    if (sizeElement == nullptr)
        return {defaultWidth, defaultHeight};
    return {juce::jlimit(0, maximumExtent, integer(*sizeElement, "width", 0)),
            juce::jlimit(0, maximumExtent, integer(*sizeElement, "height", 0))};
}

juce::Point<int> position(const juce::XmlElement& element)
{
    auto* pos = child(element, "pos");
    if (pos == nullptr)
        return {};
    return {juce::jlimit(-maximumExtent, maximumExtent, integer(*pos, "left", 0)),
            juce::jlimit(-maximumExtent, maximumExtent, integer(*pos, "top", 0))};
}

juce::Rectangle<int> bounds(const juce::XmlElement& element, int defaultWidth, int defaultHeight)
{
    const auto extent = size(element, defaultWidth, defaultHeight);
    return {position(element), position(element) + extent};
}
} // namespace SkinXml
