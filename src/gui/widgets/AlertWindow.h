#pragma once

#include "HardLabel.h"
#include "WindowComponent.h"

#include <vector>

namespace Q41
{
/** A message with a row of buttons, shown over the editor. It never blocks: the button pressed
    goes to its caller, by code. Alerts made by `showAlert` delete themselves once the caller heard
    the result, and go with the editor if it is deleted first. Thread: message thread. */
class AlertWindow : public WindowComponent, public juce::AsyncUpdater, private juce::ComponentListener
{
public:
    /** Who hears which button closed the alert. */
    class Caller
    {
    public:
        virtual ~Caller() = default;
        virtual void alertClosed(AlertWindow& window, int result) = 0;
    };

    /** Tab and Shift-Tab move in a ring over the buttons; nothing else takes the focus. */
    class FocusTraverser : public juce::KeyboardFocusTraverser
    {
    public:
        explicit FocusTraverser(AlertWindow& window) : owner(window) {}
        juce::Component* getNextComponent(juce::Component* current) override;
        juce::Component* getPreviousComponent(juce::Component* current) override;
        juce::Component* getDefaultComponent(juce::Component* parent) override;
        std::vector<juce::Component*> getAllComponents(juce::Component* parent) override;

    private:
        AlertWindow& owner;
    };

    /** The button codes, with their texts from `getButtonText`. */
    enum ButtonCode
    {
        cancel = 0,
        no = 1,
        yes = 2,
        ok = 3,
        overwrite = 4,
        saveAs = 5,
        discard = 6,
        replace = 7,
        skip = 8,
        replaceAll = 9,
        skipAll = 10,
        rename = 11
    };
    /** "Cancel" to "Rename"; empty for any other code. */
    static juce::String getButtonText(int code);

    static constexpr int buttonHeight = 22;
    static constexpr int buttonGap = 6;

    AlertWindow(Caller* caller, const juce::String& title, const juce::String& message);
    ~AlertWindow() override;

    /** Appends a button. `escape`: Escape presses it; `returnKey`: Return presses it (in the input
        window). */
    void addButton(int code, bool escape, bool returnKey);

    /** Makes an alert on the heap with buttons for `codes` (ended by a negative value), adds it to
        `parent` (or, when null, to the root of the caller if the caller is a component), shows it
        and focuses it. The alert deletes itself after it told its caller. */
    static AlertWindow* showAlert(Caller* caller, const juce::String& title, const juce::String& message,
                                  const int* codes, int escapeCode, int returnCode, juce::Component* parent);

    /** Sizes the window from the message and the buttons. */
    virtual void layoutContents();
    /** The button at that index was pressed: hides the window and tells the caller its code. */
    virtual void buttonPressed(int index);

    int getNumButtons() const noexcept { return int(buttons.size()); }
    juce::TextButton* getButton(int index) const;
    int getButtonCode(int index) const;
    HardLabel& getMessageLabel() noexcept { return messageLabel; }

    void resized() override;
    bool keyPressed(const juce::KeyPress& key) override;
    std::unique_ptr<juce::ComponentTraverser> createKeyboardFocusTraverser() override;
    void handleAsyncUpdate() override;

protected:
    /** The height the content needs below the message (the input window adds its text line). */
    virtual int getExtraContentHeight() const { return 0; }
    /** Lays out what stands between the message and the buttons. */
    virtual void layoutExtraContent(juce::Rectangle<int>) {}
    juce::TextButton* escapeButton = nullptr;
    juce::TextButton* returnButton = nullptr;
    juce::Rectangle<int> messageArea;

private:
    void componentBeingDeleted(juce::Component& component) override;
    void deleteWhenClosed(juce::Component* rootToFollow);

    Caller* caller;
    HardLabel messageLabel;
    juce::Component buttonRow;
    std::vector<std::unique_ptr<juce::TextButton>> buttons;
    std::vector<int> codes;
    bool ownsItself = false;
    juce::Component::SafePointer<juce::Component> followedRoot;
};
} // namespace Q41
