#include "AboutWindow.h"

#include "gui/widgets/DefaultLookAndFeel.h"
#include "plugin/SoftwareDesignation.h"

AboutWindow::AboutWindow(const SoftwareDesignation& designation, juce::Image vendor, juce::Image product)
    : vendorLogo(std::move(vendor)), productLogo(std::move(product))
{
    setTitle("About " + designation.getShortName());
    lines.add(designation.getDescription());
    // The format is known once a host has loaded the plug-in through one of its wrappers.
    const auto format = designation.getPluginFormat();
    const bool formatKnown = format.isNotEmpty() && format != "Undefined";
    lines.add("Version " + designation.getFullVersion() + " (" + (formatKnown ? format + ", " : juce::String()) +
              designation.getWordSize() + ")");
    lines.add("Built " + designation.getBuildDate() + ", " + designation.getBuildIdentifier());
    lines.add(juce::String(juce::CharPointer_UTF8("\xc2\xa9 ")) + designation.getYear() + " Q41 Group");
    lines.add(designation.getWebAddress());
}

AboutWindow::Placement AboutWindow::place() const
{
    const auto area = getContentBounds();
    const int textHeight = lines.size() * lineHeight;
    const int gaps = gap * ((productLogo.isValid() ? 1 : 0) + (vendorLogo.isValid() ? 1 : 0));
    const int logosHeight = productLogo.getHeight() + vendorLogo.getHeight();
    // The logos give up height first: the text always keeps its lines.
    const float room = float(juce::jmax(0, area.getHeight() - textHeight - gaps));
    float scale = logosHeight > 0 ? juce::jmin(1.0f, room / float(logosHeight)) : 1.0f;
    for (const auto* logo : {&productLogo, &vendorLogo})
        if (logo->isValid())
            scale = juce::jmin(scale, float(area.getWidth()) / float(logo->getWidth()));

    auto sized = [scale](const juce::Image& image)
    {
        return image.isValid() ? juce::Rectangle<int>(juce::roundToInt(float(image.getWidth()) * scale),
                                                      juce::roundToInt(float(image.getHeight()) * scale))
                               : juce::Rectangle<int>();
    };
    Placement p;
    p.product = sized(productLogo);
    p.vendor = sized(vendorLogo);
    const int total = p.product.getHeight() + textHeight + p.vendor.getHeight() + gaps;
    int y = area.getY() + juce::jmax(0, (area.getHeight() - total) / 2);
    if (productLogo.isValid())
    {
        p.product.setPosition(area.getCentreX() - p.product.getWidth() / 2, y);
        y += p.product.getHeight() + gap;
    }
    p.text = {area.getX(), y, area.getWidth(), textHeight};
    y += textHeight + (vendorLogo.isValid() ? gap : 0);
    if (vendorLogo.isValid())
    {
        p.vendor.setPosition(area.getCentreX() - p.vendor.getWidth() / 2, y);
    }
    return p;
}

juce::Rectangle<int> AboutWindow::getProductLogoBounds() const
{
    return place().product;
}

juce::Rectangle<int> AboutWindow::getVendorLogoBounds() const
{
    return place().vendor;
}

void AboutWindow::paint(juce::Graphics& g)
{
    WindowComponent::paint(g);
    const auto p = place();
    g.setColour(juce::Colour(DefaultLookAndFeel::Colours::field));
    g.fillRoundedRectangle(getContentBounds().expanded(6).toFloat(), 4.0f);

    if (productLogo.isValid())
        g.drawImage(productLogo, p.product.toFloat(), juce::RectanglePlacement::stretchToFit);
    if (vendorLogo.isValid())
        g.drawImage(vendorLogo, p.vendor.toFloat(), juce::RectanglePlacement::stretchToFit);

    auto* methods = dynamic_cast<HardLabel::LookAndFeelMethods*>(&getLookAndFeel());
    g.setFont(methods != nullptr ? methods->getHardLabelFont(14.0f) : juce::Font(14.0f));
    for (int i = 0; i < lines.size(); ++i)
    {
        g.setColour(juce::Colour(i == 0 ? DefaultLookAndFeel::Colours::text : DefaultLookAndFeel::Colours::textMuted));
        g.drawText(lines[i], p.text.getX(), p.text.getY() + i * lineHeight, p.text.getWidth(), lineHeight,
                   juce::Justification::centred, true);
    }
}
