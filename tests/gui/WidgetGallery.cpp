// Paints every widget and dialog of the framework into PNG files, with no display:
//
//   widget_gallery OUTPUT_FOLDER
//
// The pictures in docs/gui/widgets are made with it; look at them after any change to the look.
#include "gui/controls/GFXDisplay.h"
#include "gui/controls/GFXKnob.h"
#include "gui/controls/ImageComboBox.h"
#include "gui/controls/NoteDisplay.h"
#include "gui/controls/NumericDisplay.h"
#include "gui/controls/TextInput.h"
#include "gui/core/FloatingPanelHost.h"
#include "gui/core/SkinContext.h"
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
#include "parameters/IntParameter.h"

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

/** Strips of text cells drawn with the compiled-in font: a stand-in for a skin's bitmap art. */
juce::Image textStrip(const juce::StringArray& cells, int width, int height, bool withCaretBank = false)
{
    const int banks = withCaretBank ? 2 : 1;
    juce::Image image(juce::Image::ARGB, width, height * cells.size() * banks, true);
    juce::Graphics g(image);
    g.setFont(juce::Font(float(height) * 0.85f, juce::Font::bold));
    for (int bank = 0; bank < banks; ++bank)
        for (int i = 0; i < cells.size(); ++i)
        {
            const juce::Rectangle<int> cell(0, (bank * cells.size() + i) * height, width, height);
            if (bank == 1)
            {
                g.setColour(juce::Colour(DefaultLookAndFeel::Colours::accent));
                g.fillRect(cell);
            }
            g.setColour(bank == 1 ? juce::Colour(DefaultLookAndFeel::Colours::onAccent) : juce::Colour(0xff7fe0c0));
            g.drawText(cells[i], cell, juce::Justification::centred, false);
        }
    return image;
}

/** The gallery's skin: strips made by `textStrip`, found by name. */
class GallerySkin : public SkinContext
{
public:
    BasePlugin* getPlugin() const override { return nullptr; }
    juce::Image getImage(const juce::String& fileName) override { return images[fileName]; }
    juce::Font getFont(const juce::String&, int) override { return juce::Font(14.0f); }
    std::map<juce::String, juce::Image> images;
};

/** A panel that hosts floating pickers, as the editor does. */
class FloatingStage : public juce::Component, public FloatingPanelHost
{
public:
    void showFloating(juce::Component* panel, juce::Point<int> position, juce::Component* anchor,
                      FloatingComponentOwner*) override
    {
        addAndMakeVisible(panel);
        panel->setTopLeftPosition(getLocalPoint(anchor, position));
    }
    void hideFloating(juce::Component* panel, juce::Component*) override { removeChildComponent(panel); }
    void paint(juce::Graphics& g) override
    {
        g.fillAll(juce::Colour(0xff15171a));
        g.setColour(juce::Colour(DefaultLookAndFeel::Colours::textMuted));
        g.setFont(juce::Font(12.0f));
        for (const auto& [area, text] : captions)
            g.drawText(text, area, juce::Justification::centredLeft);
    }
    std::vector<std::pair<juce::Rectangle<int>, juce::String>> captions;
};

std::unique_ptr<juce::XmlElement> element(const juce::String& text)
{
    return juce::parseXML(text);
}

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
    {
        // The displays, as a skin with bitmap art shows them, at a few values.
        GallerySkin skin;
        juce::StringArray ascii;
        for (int c = 32; c < 127; ++c)
            ascii.add(juce::String::charToString(juce::juce_wchar(c)));
        skin.images["Glyphs.png"] = textStrip(ascii, 11, 16, true);
        skin.images["Digits.png"] = textStrip({"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"}, 14, 22);
        skin.images["Sign.png"] = textStrip({"", "-"}, 14, 22);
        skin.images["Notes.png"] = textStrip({"C", "D", "E", "F", "G", "A", "B", "", ""}, 14, 22);
        skin.images["Tones.png"] = textStrip({"", "#", "b"}, 16, 22);
        juce::StringArray octaves;
        for (int o = -1; o <= 11; ++o)
            octaves.add(juce::String(o));
        skin.images["Octaves.png"] = textStrip(octaves, 22, 22);
        skin.images["Lengths.png"] = textStrip({"16", "32", "64", "128", "256", "512"}, 44, 24);

        FloatingStage stage;
        stage.setSize(640, 300);
        std::vector<std::unique_ptr<IntParameter>> notes;
        EnumParameter length(1, "BBD Length");
        length.setItems("16;32;64;128;256;512");
        length.setInt(4, false);
        std::vector<std::unique_ptr<juce::Component>> owned;
        const auto place = [&](std::unique_ptr<juce::Component> c, const juce::String& caption)
        {
            stage.captions.push_back({c->getBounds().withY(c->getY() - 18).withHeight(16).withWidth(200), caption});
            stage.addAndMakeVisible(*c);
            owned.push_back(std::move(c));
            return owned.back().get();
        };

        int x = 20;
        for (const double value : {7.0, -42.5, 123.4})
        {
            auto display = std::make_unique<NumericDisplay>("Number");
            display->load(
                *element("<NumericDisplay digitsNum=\"4\" firstDigitOrder=\"100\" minValue=\"-999\" "
                         "maxValue=\"999\"><sign><gfx resource=\"Sign.png\"/></sign><digits><gfx "
                         "resource=\"Digits.png\"/></digits><size width=\"70\" height=\"22\"/></NumericDisplay>"),
                skin);
            display->setTopLeftPosition(x, 36);
            display->setValue(value, false);
            place(std::move(display), "NumericDisplay " + juce::String(value));
            x += 160;
        }
        x = 20;
        for (const int note : {60, 61, 127})
        {
            auto display = std::make_unique<NoteDisplay>("Note");
            display->load(*element("<NoteDisplay><gfx><notes resource=\"Notes.png\"/><tones resource=\"Tones.png\"/>"
                                   "<octaves resource=\"Octaves.png\"/></gfx></NoteDisplay>"),
                          skin);
            display->setTopLeftPosition(x, 100);
            notes.push_back(std::make_unique<IntParameter>(0, "Note", 0, 127, note));
            display->connectParameter(notes.back().get());
            place(std::move(display), "NoteDisplay " + juce::String(note));
            x += 160;
        }
        auto text = std::make_unique<GFXDisplay>("Text");
        text->load(*element("<Display backgroundColour=\"ff0c0e10\"><gfx resource=\"Glyphs.png\" fontHeight=\"16\" "
                            "firstASCII=\" \"/><size width=\"176\" height=\"22\"/></Display>"),
                   skin);
        text->setTopLeftPosition(20, 164);
        text->setText("1.351 MHz");
        place(std::move(text), "Display (bitmap font)");

        auto input = std::make_unique<TextInput>("Name");
        input->load(*element("<TextInput name=\"\" defaultText=\"(preset name)\" textColour=\"ffe8e6e1\" "
                             "backgroundColour=\"ff17191c\" outlineColour=\"ff4a5059\"><size width=\"160\" "
                             "height=\"22\"/></TextInput>"),
                    skin);
        input->setTopLeftPosition(240, 164);
        place(std::move(input), "TextInput, empty");

        auto channel = std::make_unique<GFXMidiChannelDisplay>("Channel");
        channel->setBounds(440, 164, 50, 22);
        place(std::move(channel), "MidiChannelDisplay");

        auto lengths = std::make_unique<ImageComboBox>("Lengths");
        lengths->loadFromSkin(*element("<ImageComboBox><gfx resource=\"Lengths.png\" framesNum=\"6\"/>"
                                       "<picker tilesInRow=\"3\" values=\"off\"/></ImageComboBox>"),
                              skin);
        lengths->setTopLeftPosition(330, 240);
        lengths->addParameter(&length);
        auto* combo = dynamic_cast<ImageComboBox*>(place(std::move(lengths), ""));
        stage.captions.push_back({{20, 240, 260, 24}, "ImageComboBox with its picker open"});
        combo->openPicker();
        ok &= save(stage, folder.getChildFile("displays.png"));
    }
    return ok ? 0 : 1;
}
