#pragma once

#include "gui/widgets/WindowComponent.h"

class SoftwareDesignation;

/** The about window: the product's logo, the lines that identify this build (description,
    version with format and word size, build date and identifier, copyright, web address) and the
    vendor's logo, centred on a dark plate. Logos that do not fit are scaled down, never up; a
    missing logo leaves its place to the text. Thread: message thread. */
class AboutWindow : public WindowComponent
{
public:
    AboutWindow(const SoftwareDesignation& designation, juce::Image vendorLogo, juce::Image productLogo);

    /** The text lines under the product's logo, top to bottom. */
    const juce::StringArray& getLines() const noexcept { return lines; }
    /** Where the two logos are drawn now, in the window's coordinates; empty for a missing one. */
    juce::Rectangle<int> getProductLogoBounds() const;
    juce::Rectangle<int> getVendorLogoBounds() const;

    void paint(juce::Graphics& g) override;

private:
    struct Placement
    {
        juce::Rectangle<int> product, text, vendor;
    };
    Placement place() const;

    static constexpr int lineHeight = 18;
    static constexpr int gap = 12;

    juce::Image vendorLogo, productLogo;
    juce::StringArray lines;
};
