#pragma once

// The parameter info panel: the small floating panel that a right click on a control opens. It
// names the parameter, shows its value, and holds the MIDI CC section, where the user learns,
// clears and confirms the controller that drives the parameter through the plug-in's
// MidiControlMap. The editor creates, places and deletes it; the panel only asks to close.

#include "gui/core/ParameterController.h"
#include "gui/widgets/HardLabel.h"
#include "gui/widgets/TextButtonWithIcon.h"
#include "plugin/MidiControlMap.h"

/** One parameter's panel, 128 pixels wide.

    Rows: a knob icon and the parameter's name; the value row, shown only when the caller says so
    (the editor asks `ParameterManager::isParameterVisible`, true unless a product hides a value),
    which follows the parameter's display text; the "MIDI CC" section with a toggle that opens it.
    The open section holds the assignment bar and two buttons:
    - "Learn" marks the parameter for learning on the map; while it learns, the bar is highlighted
      and refreshed from the map every 50 ms, so a controller that arrives shows at once.
    - "Clear" takes the parameter's controller away and remembers it.
    Both swap the buttons for "OK", which keeps what changed and asks the listener to close the
    panel, and "Cancel", which puts back what was there (the map's own backup after learning, the
    remembered controller after clearing) and leaves the panel open.

    The panel never closes or deletes itself; its listener does. Thread: message thread. */
class ParameterInfo : public juce::Component,
                      public ParameterController,
                      public juce::Button::Listener,
                      public juce::Timer
{
public:
    static constexpr int panelWidth = 128;
    /** Closed section, no value row: the name row and the section's title row. */
    static constexpr int collapsedHeight = 83;
    /** The value row moves the section down by this much and makes the panel that much taller. */
    static constexpr int valueRowHeight = 26;
    /** Where the section starts without the value row. */
    static constexpr int sectionTop = 32;
    /** The section's own height; opening it adds this and `sectionOpenMargin` to the panel, the
        room of the assignment bar and the buttons under the title. */
    static constexpr int sectionHeight = 32;
    static constexpr int sectionOpenMargin = 20;
    static constexpr int refreshMilliseconds = 50;

    struct Colours
    {
        static constexpr juce::uint32 background = 0xffcccccc;
        static constexpr juce::uint32 darkLine = 0xff5d5d5d;
        static constexpr juce::uint32 lightLine = 0xffa4a4a4;
        static constexpr juce::uint32 text = 0xff1c1d20;
        static constexpr juce::uint32 bar = 0xffe4e4e4;
    };

    /** Who hears the panel: the editor. */
    class Listener
    {
    public:
        virtual ~Listener() = default;
        /** The user opened or closed the MIDI section; the panel has its new size. */
        virtual void sizeChanged(ParameterInfo& info) = 0;
        /** "OK" was pressed: close the panel. Called from the button's click, so the panel must not
            be deleted before the click returns. */
        virtual void closeRequested(ParameterInfo& info) = 0;
    };

    /** The rounded bar of the MIDI section: "# --" and "unassigned" with no controller, otherwise
        "#" and the controller number on both sides. */
    class MidiCCComponent : public juce::Component
    {
    public:
        MidiCCComponent();

        /** The controller shown, 0 to 127, or -1 for none. */
        void setController(int controller);
        int getController() const noexcept { return controller; }
        /** The left and right texts as drawn. */
        juce::String getNumberText() const;
        juce::String getAssignmentText() const;
        /** Drawn in the accent colour while a learn is in progress. */
        void setHighlighted(bool shouldHighlight);
        bool isHighlighted() const noexcept { return highlighted; }

        void paint(juce::Graphics& g) override;

    private:
        int controller = -1;
        bool highlighted = false;
    };

    /** A panel on `parameter`, learning through `map`, closed, with the value row when `showValue`.
        The parameter, the map and the listener must outlive the panel. */
    ParameterInfo(Parameter& parameter, MidiControlMap& map, bool showValue, Listener& listener);
    ~ParameterInfo() override;

    Parameter& getParameter() const noexcept { return parameter; }
    bool isValueShown() const noexcept { return valueShown; }

    /** The panel's height for a layout. */
    static int heightFor(bool showValue, bool expanded);

    /** Opens or closes the MIDI section and resizes the panel; the listener hears `sizeChanged`
        only with a notification. */
    void setExpanded(bool shouldExpand, juce::NotificationType notification);
    bool isExpanded() const noexcept { return expanded; }
    /** True from "Learn" or "Clear" until "OK" or "Cancel". */
    bool isChanging() const noexcept { return changing; }
    bool isLearning() const noexcept { return learning; }

    const HardLabel& getNameLabel() const noexcept { return nameLabel; }
    const HardLabel& getValueLabel() const noexcept { return valueLabel; }
    const MidiCCComponent& getMidiCC() const noexcept { return midiCC; }
    juce::Button& getExpandButton() noexcept { return expandButton; }
    juce::Button& getLearnButton() noexcept { return learnButton; }
    juce::Button& getClearButton() noexcept { return clearButton; }
    juce::Button& getOkButton() noexcept { return okButton; }
    juce::Button& getCancelButton() noexcept { return cancelButton; }

    void parameterUpdated(Parameter& changed) override;
    void buttonClicked(juce::Button* button) override;
    /** While learning: shows what the map now holds for the parameter. */
    void timerCallback() override;
    void paint(juce::Graphics& g) override;
    void resized() override;

private:
    int getSectionTop() const noexcept { return sectionTop + (valueShown ? valueRowHeight : 0); }
    void refresh();
    void showButtons();
    void stopLearning();
    void learn();
    void clear();
    void confirm();
    void cancel();

    Parameter& parameter;
    MidiControlMap& map;
    Listener& listener;
    const bool valueShown;
    bool expanded = false;
    bool changing = false;
    bool learning = false;
    /** The controller that "Clear" took away, for "Cancel"; -1 for none. */
    int clearedController = -1;

    std::unique_ptr<juce::Drawable> icon;
    HardLabel nameLabel, valueLabel, sectionTitle{{}, "MIDI CC"};
    TextButtonWithIcon expandButton{{}};
    MidiCCComponent midiCC;
    TextButtonWithIcon learnButton{"Learn"}, clearButton{"Clear"}, okButton{"OK"}, cancelButton{"Cancel"};

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR(ParameterInfo)
};
