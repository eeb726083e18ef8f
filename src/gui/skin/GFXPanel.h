#pragma once

// A panel of a skin: a background (an image, or a colour) holding the controls its `controls`
// element declares, nested panels included. Loading a panel builds the whole tree of live controls
// below it; the panel owns them.

#include "gui/core/BaseGFXController.h"

/** Thread: message thread. */
class GFXPanel : public BaseGFXController, public juce::Component
{
public:
    explicit GFXPanel(const juce::String& componentName);
    ~GFXPanel() override;

    /** The panel's own words (`bkgCol`, the background `gfx`, `size`, `pos`), then each control of
        `controls` in document order (later ones above earlier ones), each moved by the element's
        `ofsX` and `ofsY`. Words the builder does not know are skipped. */
    void load(const juce::XmlElement& element, SkinContext& skin) override;
    /** Keeps the listener and hands it to every control of the tree. */
    void addListener(Listener* listener) override;

    juce::Colour getBackgroundColour() const noexcept { return background; }
    void paint(juce::Graphics& g) override;

private:
    juce::Colour background = juce::Colours::transparentBlack;
};
