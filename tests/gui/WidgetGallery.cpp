// Paints every widget and dialog of the framework into PNG files, with no display:
//
//   widget_gallery OUTPUT_FOLDER
//
// The pictures in docs/gui/widgets are made with it; look at them after any change to the look.
#include "gui/widgets/AlertWindow.h"
#include "gui/widgets/CheckBox_V2.h"
#include "gui/widgets/ComboBoxButton.h"
#include "gui/widgets/ComboBoxEx.h"
#include "gui/widgets/DefaultLookAndFeel.h"
#include "gui/widgets/DefaultResourceCheckBox.h"
#include "gui/widgets/HardLabel.h"
#include "gui/widgets/InputTextWindow.h"
#include "gui/widgets/TextButtonWithIcon.h"
#include "gui/widgets/TextToggleButton.h"
#include "gui/widgets/ToolbarDrawableButton.h"
#include "gui/widgets/WidgetIcons.h"
#include "parameters/EnumParameter.h"

#include <cstdio>

namespace
{
/** The editor's stand-in: a dark panel with a few shapes, so the dialogs' covers show. */
class Stage : public juce::Component, public ModalComponent::Desktop
{
public:
    Stage(int width, int height) { setSize(width, height); }
    juce::Rectangle<int> getDesktopArea() const override { return getLocalBounds(); }
    void paint(juce::Graphics& g) override
    {
        g.fillAll(juce::Colour(0xff2c3036));
        g.setColour(juce::Colour(0xff3b4048));
        for (int i = 0; i < 6; ++i)
            g.fillEllipse(float(40 + i * 120), float(getHeight() / 2 - 45), 90.0f, 90.0f);
        g.setColour(juce::Colour(0xffe3a33b).withAlpha(0.8f));
        g.setFont(juce::Font(22.0f, juce::Font::bold));
        g.drawText("VELMARIN", 24, 14, 300, 30, juce::Justification::centredLeft);
    }
};

/** One icon at its component's size, in the text colour. */
struct IconView : juce::Component
{
    explicit IconView(WidgetIcon i) : icon(i) {}
    void paint(juce::Graphics& g) override
    {
        if (auto drawable = WidgetIcons::create(icon, juce::Colour(DefaultLookAndFeel::Colours::text)))
            drawable->drawWithin(g, getLocalBounds().toFloat(), juce::RectanglePlacement::centred, 1.0f);
    }
    WidgetIcon icon;
};

struct NoCaller : Q41::AlertWindow::Caller
{
    void alertClosed(Q41::AlertWindow&, int) override {}
};

bool save(juce::Component& component, const juce::File& file)
{
    const auto image = component.createComponentSnapshot(component.getLocalBounds(), true, 2.0f);
    file.deleteFile();
    juce::FileOutputStream out(file);
    const bool ok = out.openedOk() && juce::PNGImageFormat().writeImageToStream(image, out);
    std::printf("%s %s\n", ok ? "wrote" : "could not write", file.getFullPathName().toRawUTF8());
    return ok;
}

/** A labelled row of widgets on a plain window background. */
class Sheet : public juce::Component
{
public:
    Sheet() { setSize(640, 420); }
    void paint(juce::Graphics& g) override
    {
        g.fillAll(juce::Colour(DefaultLookAndFeel::Colours::window));
        g.setColour(juce::Colour(DefaultLookAndFeel::Colours::textMuted));
        g.setFont(juce::Font(12.0f));
        for (const auto& [y, text] : captions)
            g.drawText(text, 16, y, 140, 24, juce::Justification::centredLeft);
    }
    void caption(int y, const juce::String& text) { captions.push_back({y, text}); }
    template <typename T> T& add(std::unique_ptr<T> widget, juce::Rectangle<int> bounds)
    {
        widget->setBounds(bounds);
        addAndMakeVisible(*widget);
        auto& ref = *widget;
        owned.push_back(std::move(widget));
        return ref;
    }

private:
    std::vector<std::pair<int, juce::String>> captions;
    std::vector<std::unique_ptr<juce::Component>> owned;
};
} // namespace

int main(int argc, char* argv[])
{
    if (argc != 2)
    {
        std::fprintf(stderr, "usage: widget_gallery OUTPUT_FOLDER\n");
        return 2;
    }
    const juce::ScopedJuceInitialiser_GUI juce;
    const DefaultLookAndFeel::Scope look;
    const juce::File folder = juce::File::getCurrentWorkingDirectory().getChildFile(argv[1]);
    folder.createDirectory();
    bool ok = true;
    const auto white = juce::Colours::black; // icons are drawn in black and painted by the widgets

    EnumParameter quality(0, "Processing Quality");
    quality.setItems("Draft;Normal;High;Ultra");
    quality.setInt(2, false);

    {
        Sheet sheet;
        int y = 16;
        sheet.caption(y, "Text buttons");
        sheet.add(std::make_unique<juce::TextButton>("Store"), {160, y, 80, 24});
        sheet.add(std::make_unique<TextButtonWithIcon>("Search", WidgetIcons::create(WidgetIcon::magnifier, white)),
                  {248, y, 100, 24});
        auto& disabled = sheet.add(std::make_unique<juce::TextButton>("Disabled"), {356, y, 90, 24});
        disabled.setEnabled(false);
        y += 40;
        sheet.caption(y, "Toggles");
        sheet.add(std::make_unique<TextToggleButton>("MIDI"), {160, y, 70, 24});
        auto& on = sheet.add(std::make_unique<TextToggleButton>("GUI"), {238, y, 70, 24});
        on.setToggleState(true, juce::dontSendNotification);
        sheet.add(
            std::make_unique<ToolbarDrawableButton>("Factory", WidgetIcons::create(WidgetIcon::factoryStore, white)),
            {324, y, 26, 24});
        auto& user = sheet.add(
            std::make_unique<ToolbarDrawableButton>("User", WidgetIcons::create(WidgetIcon::userStore, white)),
            {354, y, 26, 24});
        user.setToggleState(true, juce::dontSendNotification);
        y += 40;
        sheet.caption(y, "Check boxes");
        sheet.add(std::make_unique<CheckBox_V2>("Show warning"), {160, y, 140, 22});
        auto& ticked = sheet.add(std::make_unique<CheckBox_V2>("Bypass"), {308, y, 100, 22});
        ticked.setToggleState(true, juce::dontSendNotification);
        auto& greyed = sheet.add(std::make_unique<CheckBox_V2>("Unavailable"), {416, y, 120, 22});
        greyed.setEnabled(false);
        y += 40;
        sheet.caption(y, "Combo boxes");
        auto& combo = sheet.add(std::make_unique<ComboBoxButton>(), {160, y, 150, 24});
        combo.setParameter(&quality);
        auto& browserCombo = sheet.add(std::make_unique<ComboBoxEx>(), {320, y, 150, 22});
        browserCombo.addItem(1, "All presets");
        browserCombo.setSelectedId(1);
        y += 40;
        sheet.caption(y, "Paths");
        sheet.add(std::make_unique<PathComponent>("*.vmccmap"), {160, y, 460, 24});
        y += 36;
        auto& resource =
            sheet.add(std::make_unique<DefaultResourceCheckBox>("Default map", "*.vmccmap"), {160, y, 460, 24});
        resource.setPath("/home/user/.config/Q41 Group/Velmarin/Keys.vmccmap");
        y += 40;
        sheet.caption(y, "Text");
        auto& editor = sheet.add(std::make_unique<juce::TextEditor>(), {160, y, 220, 24});
        editor.setText("Jet Stream");
        auto& label = sheet.add(std::make_unique<HardLabel>("label", "HardLabel, 24 px"), {392, y, 220, 24});
        label.fitToHeight(24);
        y += 40;
        sheet.caption(y, "Sliders");
        auto& linear = sheet.add(
            std::make_unique<juce::Slider>(juce::Slider::LinearHorizontal, juce::Slider::NoTextBox), {160, y, 220, 24});
        linear.setValue(0.35 * 10.0);
        auto& rotary = sheet.add(
            std::make_unique<juce::Slider>(juce::Slider::RotaryHorizontalVerticalDrag, juce::Slider::NoTextBox),
            {400, y - 12, 56, 56});
        rotary.setValue(6.5);
        y += 56;
        sheet.caption(y, "Icons");
        int x = 160;
        for (int i = 0; i <= int(WidgetIcon::knob); ++i, x += 30)
            sheet.add(std::make_unique<IconView>(WidgetIcon(i)), {x, y + 2, 20, 20});
        ok &= save(sheet, folder.getChildFile("widgets.png"));
    }

    {
        Stage stage(760, 400);
        NoCaller caller;
        static constexpr int codes[] = {Q41::AlertWindow::yes, Q41::AlertWindow::no, Q41::AlertWindow::cancel, -1};
        auto* alert = Q41::AlertWindow::showAlert(&caller, "Preset changed",
                                                  "\"Jet Stream\" was changed. Store it before loading another preset?",
                                                  codes, Q41::AlertWindow::cancel, Q41::AlertWindow::yes, &stage);
        alert->setIcon(
            WidgetIcons::create(WidgetIcon::quality, juce::Colour(DefaultLookAndFeel::Colours::accent)).release());
        ok &= save(stage, folder.getChildFile("alert.png"));
    }

    {
        Stage stage(760, 400);
        NoCaller caller;
        Q41::InputTextWindow input(&caller, "Rename", "Please enter new name", "Jet Stream");
        stage.addChildComponent(input);
        input.show();
        ok &= save(stage, folder.getChildFile("input.png"));
    }

    {
        Stage stage(760, 400);
        ComboBoxButton combo;
        combo.setBounds(300, 120, 160, 24);
        stage.addAndMakeVisible(combo);
        combo.setParameter(&quality);
        combo.showMenu();
        combo.getMenu().getWindow()->getList().setHighlighted(3);
        ok &= save(stage, folder.getChildFile("menu.png"));
    }

    {
        Stage stage(760, 400);
        WindowComponent window;
        window.setTitle("About Velmarin");
        window.setIcon(
            WidgetIcons::create(WidgetIcon::knob, juce::Colour(DefaultLookAndFeel::Colours::accent)).release());
        window.setContentSize(360, 140);
        stage.addChildComponent(window);
        window.show();
        ok &= save(stage, folder.getChildFile("window.png"));
    }
    return ok ? 0 : 1;
}
