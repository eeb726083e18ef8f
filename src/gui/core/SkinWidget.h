#pragma once

#include <juce_core/juce_core.h>

class SkinContext;

/** A control of a skin that is no `GUIController` (it binds several parameters, or only items):
    the panel hands it its element to read. Thread: message thread. */
class SkinWidget
{
public:
    virtual ~SkinWidget() = default;
    /** Reads the control's words from its element; parameters are looked up by name in the
        skin's plug-in. */
    virtual void loadFromSkin(const juce::XmlElement& element, SkinContext& skin) = 0;
};
