#include "DefaultLookAndFeel.h"

#include "WidgetResources.h"

namespace
{
juce::Typeface::Ptr makeTypeface(const char* data, int size)
{
    return juce::Typeface::createSystemTypefaceFor(data, size_t(size));
}

struct SharedDefault
{
    DefaultLookAndFeel lookAndFeel;
    int users = 0;
};

SharedDefault& sharedDefault()
{
    static SharedDefault shared;
    return shared;
}
} // namespace

juce::Typeface::Ptr DefaultLookAndFeel::getRegularTypeface()
{
    static const auto typeface = makeTypeface(WidgetResources::DejaVuSans_ttf, WidgetResources::DejaVuSans_ttfSize);
    return typeface;
}

juce::Typeface::Ptr DefaultLookAndFeel::getBoldTypeface()
{
    static const auto typeface =
        makeTypeface(WidgetResources::DejaVuSansBold_ttf, WidgetResources::DejaVuSansBold_ttfSize);
    return typeface;
}

DefaultLookAndFeel::Scope::Scope()
{
    auto& shared = sharedDefault();
    if (shared.users++ == 0)
    {
        juce::LookAndFeel::setDefaultLookAndFeel(&shared.lookAndFeel);
        // Fonts made before came from another look and feel.
        juce::Typeface::clearTypefaceCache();
    }
}

DefaultLookAndFeel::Scope::~Scope()
{
    auto& shared = sharedDefault();
    if (--shared.users == 0)
    {
        juce::LookAndFeel::setDefaultLookAndFeel(nullptr);
        juce::Typeface::clearTypefaceCache();
    }
}

DefaultLookAndFeel& DefaultLookAndFeel::Scope::get()
{
    return sharedDefault().lookAndFeel;
}

DefaultLookAndFeel::DefaultLookAndFeel()
    : juce::LookAndFeel_V4(juce::LookAndFeel_V4::ColourScheme(Colours::window, Colours::window, Colours::field,
                                                              Colours::outline, Colours::text, Colours::surface,
                                                              Colours::text, Colours::accent, Colours::onAccent))
{
    const juce::Colour window(Colours::window), surface(Colours::surface), field(Colours::field),
        outline(Colours::outline), text(Colours::text), muted(Colours::textMuted), accent(Colours::accent),
        onAccent(Colours::onAccent);

    setColour(juce::ResizableWindow::backgroundColourId, window);
    setColour(juce::TextButton::buttonColourId, surface);
    setColour(juce::TextButton::buttonOnColourId, accent);
    setColour(juce::TextButton::textColourOffId, text);
    setColour(juce::TextButton::textColourOnId, onAccent);
    setColour(juce::ToggleButton::textColourId, text);
    setColour(juce::ToggleButton::tickColourId, onAccent);
    setColour(juce::ToggleButton::tickDisabledColourId, muted);
    setColour(juce::Label::textColourId, text);
    setColour(juce::Label::backgroundColourId, juce::Colours::transparentBlack);
    setColour(juce::TextEditor::backgroundColourId, field);
    setColour(juce::TextEditor::textColourId, text);
    setColour(juce::TextEditor::highlightColourId, accent.withAlpha(0.35f));
    setColour(juce::TextEditor::highlightedTextColourId, text);
    setColour(juce::TextEditor::outlineColourId, outline);
    setColour(juce::TextEditor::focusedOutlineColourId, accent);
    setColour(juce::CaretComponent::caretColourId, accent);
    setColour(juce::ComboBox::backgroundColourId, field);
    setColour(juce::ComboBox::outlineColourId, outline);
    setColour(juce::ComboBox::textColourId, text);
    setColour(juce::ComboBox::arrowColourId, muted);
    setColour(juce::ComboBox::focusedOutlineColourId, accent);
    setColour(juce::PopupMenu::backgroundColourId, juce::Colour(Colours::titleBar));
    setColour(juce::PopupMenu::textColourId, text);
    setColour(juce::PopupMenu::highlightedBackgroundColourId, accent);
    setColour(juce::PopupMenu::highlightedTextColourId, onAccent);
    setColour(juce::Slider::trackColourId, accent);
    setColour(juce::Slider::backgroundColourId, field);
    setColour(juce::Slider::thumbColourId, text);
    setColour(juce::Slider::rotarySliderFillColourId, accent);
    setColour(juce::Slider::rotarySliderOutlineColourId, field);
    setColour(juce::ScrollBar::thumbColourId, outline);
    // JUCE's own file dialogs (the Standalone program's state files) in the same colours.
    setColour(juce::ListBox::backgroundColourId, field);
    setColour(juce::ListBox::textColourId, text);
    setColour(juce::DirectoryContentsDisplayComponent::textColourId, text);
    setColour(juce::DirectoryContentsDisplayComponent::highlightColourId, accent.withAlpha(0.35f));
    setColour(juce::DirectoryContentsDisplayComponent::highlightedTextColourId, text);
    setColour(juce::FileBrowserComponent::currentPathBoxBackgroundColourId, field);
    setColour(juce::FileBrowserComponent::currentPathBoxTextColourId, text);
    setColour(juce::FileBrowserComponent::currentPathBoxArrowColourId, muted);
    setColour(juce::FileBrowserComponent::filenameBoxBackgroundColourId, field);
    setColour(juce::FileBrowserComponent::filenameBoxTextColourId, text);
    setColour(juce::TooltipWindow::backgroundColourId, juce::Colour(Colours::titleBar));
    setColour(juce::TooltipWindow::textColourId, text);
    setColour(juce::TooltipWindow::outlineColourId, outline);
    setColour(statusBarBackgroundColourId, juce::Colour(Colours::titleBar));
    setColour(statusBarTextColourId, muted);
}

juce::Typeface::Ptr DefaultLookAndFeel::getTypefaceForFont(const juce::Font& font)
{
    const bool bold = font.isBold() || font.getTypefaceStyle().containsIgnoreCase("bold");
    auto typeface = bold ? getBoldTypeface() : getRegularTypeface();
    return typeface != nullptr ? typeface : juce::LookAndFeel_V4::getTypefaceForFont(font);
}

juce::Font DefaultLookAndFeel::getStatusBarFont() const
{
    return juce::Font(12.0f);
}

void DefaultLookAndFeel::drawWindowComponent(juce::Graphics& g, WindowComponent& window)
{
    const auto bounds = window.getLocalBounds().toFloat();
    g.setColour(juce::Colour(Colours::window));
    g.fillRoundedRectangle(bounds, 4.0f);

    if (window.isTitleBarShown())
    {
        const auto bar = window.getTitleBarBounds();
        juce::Path barPath;
        barPath.addRoundedRectangle(float(bar.getX()), float(bar.getY()), float(bar.getWidth()), float(bar.getHeight()),
                                    3.0f, 3.0f, true, true, false, false);
        g.setColour(juce::Colour(Colours::titleBar));
        g.fillPath(barPath);
        g.setColour(juce::Colour(Colours::accent));
        g.fillRect(bar.getX(), bar.getBottom() - 1, bar.getWidth(), 1);

        const int textX = window.getTitleTextX();
        if (auto* icon = window.getIcon())
        {
            const int side = juce::roundToInt(float(bar.getHeight()) * 0.6f);
            icon->drawWithin(g,
                             juce::Rectangle<int>(bar.getX(), bar.getY(), bar.getHeight(), bar.getHeight())
                                 .withSizeKeepingCentre(side, side)
                                 .toFloat(),
                             juce::RectanglePlacement::centred, 1.0f);
        }
        g.setColour(juce::Colour(Colours::text));
        g.setFont(window.getTitleFont());
        g.drawText(window.getTitle(), textX, bar.getY(), window.getCloseButton().getX() - textX - 4, bar.getHeight(),
                   juce::Justification::centredLeft, true);
    }

    g.setColour(juce::Colour(Colours::outline));
    g.drawRoundedRectangle(bounds.reduced(0.5f), 4.0f, 1.0f);
}

juce::Font DefaultLookAndFeel::getWindowTitleFont()
{
    return juce::Font(14.0f, juce::Font::bold);
}

juce::Font DefaultLookAndFeel::getHardLabelFont(float height)
{
    return juce::Font(height);
}

void DefaultLookAndFeel::drawButtonBackground(juce::Graphics& g, juce::Button& button, const juce::Colour& background,
                                              bool highlighted, bool down)
{
    const auto bounds = button.getLocalBounds().toFloat().reduced(0.5f);
    const bool on = button.getToggleState();
    auto fill = on ? button.findColour(juce::TextButton::buttonOnColourId) : background;
    if (! on && highlighted)
        fill = juce::Colour(Colours::surfaceHover);
    if (down)
        fill = fill.darker(0.25f);
    if (! button.isEnabled())
        fill = fill.withMultipliedAlpha(0.5f);
    g.setColour(fill);
    g.fillRoundedRectangle(bounds, 3.0f);

    const bool focused = button.hasKeyboardFocus(false);
    g.setColour(focused ? juce::Colour(Colours::accent) : juce::Colour(Colours::outline).withAlpha(on ? 0.0f : 1.0f));
    g.drawRoundedRectangle(bounds, 3.0f, focused ? 1.5f : 1.0f);
}

juce::Font DefaultLookAndFeel::getTextButtonFont(juce::TextButton&, int buttonHeight)
{
    return juce::Font(juce::jmin(14.0f, float(buttonHeight) * 0.62f));
}

int DefaultLookAndFeel::getTextButtonWidthToFitText(juce::TextButton& button, int buttonHeight)
{
    const auto font = getTextButtonFont(button, buttonHeight);
    return juce::jmax(64, int(std::ceil(font.getStringWidthFloat(button.getButtonText()))) + 2 * buttonHeight / 2 + 12);
}

void DefaultLookAndFeel::drawTickBox(juce::Graphics& g, juce::Component& component, float x, float y, float w, float h,
                                     bool ticked, bool enabled, bool highlighted, bool down)
{
    juce::ignoreUnused(component, down);
    const juce::Rectangle<float> box(x, y, w, h);
    g.setColour(ticked ? juce::Colour(Colours::accent) : juce::Colour(Colours::surface));
    g.fillRoundedRectangle(box, 3.0f);
    g.setColour(highlighted ? juce::Colour(Colours::accent) : juce::Colour(Colours::outline));
    g.drawRoundedRectangle(box.reduced(0.5f), 3.0f, 1.0f);
    if (ticked)
    {
        juce::Path tick;
        tick.startNewSubPath(box.getX() + w * 0.22f, box.getY() + h * 0.53f);
        tick.lineTo(box.getX() + w * 0.42f, box.getY() + h * 0.72f);
        tick.lineTo(box.getX() + w * 0.78f, box.getY() + h * 0.28f);
        g.setColour(juce::Colour(Colours::onAccent).withMultipliedAlpha(enabled ? 1.0f : 0.5f));
        g.strokePath(tick, juce::PathStrokeType(1.6f, juce::PathStrokeType::curved, juce::PathStrokeType::rounded));
    }
}

void DefaultLookAndFeel::fillTextEditorBackground(juce::Graphics& g, int width, int height, juce::TextEditor& editor)
{
    g.setColour(editor.findColour(juce::TextEditor::backgroundColourId));
    g.fillRoundedRectangle(juce::Rectangle<int>(width, height).toFloat(), 3.0f);
}

void DefaultLookAndFeel::drawTextEditorOutline(juce::Graphics& g, int width, int height, juce::TextEditor& editor)
{
    const bool focused = editor.hasKeyboardFocus(true) && ! editor.isReadOnly();
    g.setColour(
        editor.findColour(focused ? juce::TextEditor::focusedOutlineColourId : juce::TextEditor::outlineColourId));
    g.drawRoundedRectangle(juce::Rectangle<int>(width, height).toFloat().reduced(0.5f), 3.0f, focused ? 1.5f : 1.0f);
}

void DefaultLookAndFeel::drawLinearSlider(juce::Graphics& g, int x, int y, int width, int height, float sliderPos,
                                          float minSliderPos, float maxSliderPos, juce::Slider::SliderStyle style,
                                          juce::Slider& slider)
{
    if (style != juce::Slider::LinearHorizontal && style != juce::Slider::LinearVertical)
    {
        juce::LookAndFeel_V4::drawLinearSlider(g, x, y, width, height, sliderPos, minSliderPos, maxSliderPos, style,
                                               slider);
        return;
    }
    const bool horizontal = style == juce::Slider::LinearHorizontal;
    const float track = 4.0f;
    const auto area = juce::Rectangle<int>(x, y, width, height).toFloat();
    const auto start = horizontal ? juce::Point<float>(area.getX(), area.getCentreY())
                                  : juce::Point<float>(area.getCentreX(), area.getBottom());
    const auto end = horizontal ? juce::Point<float>(area.getRight(), area.getCentreY())
                                : juce::Point<float>(area.getCentreX(), area.getY());
    const auto thumb = horizontal ? juce::Point<float>(sliderPos, area.getCentreY())
                                  : juce::Point<float>(area.getCentreX(), sliderPos);

    g.setColour(slider.findColour(juce::Slider::backgroundColourId));
    g.drawLine({start, end}, track);
    g.setColour(slider.findColour(juce::Slider::trackColourId).withMultipliedAlpha(slider.isEnabled() ? 1.0f : 0.5f));
    g.drawLine({start, thumb}, track);
    const float radius = 6.0f;
    g.setColour(slider.findColour(juce::Slider::thumbColourId));
    g.fillEllipse(juce::Rectangle<float>(radius * 2.0f, radius * 2.0f).withCentre(thumb));
}

void DefaultLookAndFeel::drawRotarySlider(juce::Graphics& g, int x, int y, int width, int height, float sliderPos,
                                          float startAngle, float endAngle, juce::Slider& slider)
{
    const auto area = juce::Rectangle<int>(x, y, width, height).toFloat().reduced(4.0f);
    const float radius = juce::jmin(area.getWidth(), area.getHeight()) / 2.0f;
    const auto centre = area.getCentre();
    const float angle = startAngle + sliderPos * (endAngle - startAngle);
    const float line = juce::jmax(2.0f, radius * 0.14f);

    juce::Path arc;
    arc.addCentredArc(centre.x, centre.y, radius - line, radius - line, 0.0f, startAngle, endAngle, true);
    g.setColour(slider.findColour(juce::Slider::rotarySliderOutlineColourId));
    g.strokePath(arc, juce::PathStrokeType(line, juce::PathStrokeType::curved, juce::PathStrokeType::rounded));
    juce::Path value;
    value.addCentredArc(centre.x, centre.y, radius - line, radius - line, 0.0f, startAngle, angle, true);
    g.setColour(slider.findColour(juce::Slider::rotarySliderFillColourId));
    g.strokePath(value, juce::PathStrokeType(line, juce::PathStrokeType::curved, juce::PathStrokeType::rounded));

    const auto tip = centre.getPointOnCircumference(radius - line * 2.5f, angle);
    g.setColour(slider.findColour(juce::Slider::thumbColourId));
    g.drawLine({centre.getPointOnCircumference(radius * 0.2f, angle), tip}, line);
}
