#pragma once

#include "PopupMenuEx.h"
#include "gui/core/ParameterController.h"

/** A text with an arrow that opens a menu of choices. Given an item or integer parameter it lists
    the parameter's choices, shows its value, writes a pick to it with notification and follows
    its changes without writing back. Without a parameter the caller adds the items and hears picks
    through `onChange`. Thread: message thread. */
class ComboBoxButton : public juce::Component,
                       public PopupMenuEx::Listener,
                       public juce::Button::Listener,
                       public ParameterController
{
public:
    ComboBoxButton();
    ~ComboBoxButton() override;

    /** Binds the button to an item or integer parameter (or to none). */
    void setParameter(Parameter* parameter);
    Parameter* getBoundParameter() const { return parameters.isEmpty() ? nullptr : parameters.getFirst(); }

    /** Items for use without a parameter; ids must not be 0. */
    void addItem(int id, const juce::String& text);
    void clearItems();
    void setSelectedId(int id, juce::NotificationType notification = juce::dontSendNotification);
    int getSelectedId() const noexcept { return selectedId; }
    juce::String getText() const;

    /** Called after the user picked an item. */
    std::function<void()> onChange;

    PopupMenuEx& getMenu() noexcept { return menu; }
    void showMenu();

    bool acceptsParameter(Parameter& parameter) override;
    void parameterAdded(Parameter& parameter) override;
    void parameterUpdated(Parameter& parameter) override;
    void popupMenuClosed(PopupMenuEx& menu, int itemId) override;
    void buttonClicked(juce::Button*) override { showMenu(); }

    void paint(juce::Graphics& g) override;
    void resized() override;

protected:
    /** Draws the closed box; the item combo box of the browser draws itself otherwise. */
    virtual void paintBox(juce::Graphics& g, bool highlighted);

    /** An invisible button over the whole box: it takes the focus, the keys and the clicks. */
    struct ClickArea : juce::Button
    {
        ClickArea() : juce::Button({}) {}
        void paintButton(juce::Graphics&, bool, bool) override {}
        void buttonStateChanged() override
        {
            if (auto* parent = getParentComponent())
                parent->repaint();
        }
    };

    PopupMenuEx menu;
    ClickArea clickArea;
    juce::StringArray texts;
    juce::Array<int> ids;
    int selectedId = 0;
    /** The parameter value of item id 1 (the lowest integer value; 0 for items). */
    int valueOffset = 0;
};
