#pragma once

// The framework's own menu. It opens as a child of the editor, never as a desktop window, so a host
// cannot cut it off or hide it behind its own windows, and nothing blocks while it is open: the
// listeners hear the chosen item (0 when the menu was dismissed) when it closes.

#include <juce_gui_basics/juce_gui_basics.h>

#include <vector>

/** Thread: message thread. */
class PopupMenuEx
{
public:
    class Listener
    {
    public:
        virtual ~Listener() = default;
        /** The menu closed with that item chosen, or 0 when it was dismissed. */
        virtual void popupMenuClosed(PopupMenuEx& menu, int itemId) = 0;
    };

    struct Item
    {
        int id = 0;
        juce::String text;
        bool enabled = true;
        bool ticked = false;
        bool separator = false;
    };

    /** The list of items, painted and clicked. */
    class PopupMenuComponent : public juce::Component
    {
    public:
        explicit PopupMenuComponent(PopupMenuEx& menu);
        void paint(juce::Graphics& g) override;
        void mouseMove(const juce::MouseEvent& event) override;
        void mouseExit(const juce::MouseEvent& event) override;
        void mouseUp(const juce::MouseEvent& event) override;
        bool keyPressed(const juce::KeyPress& key) override;

        /** The index of the item at a y in this component, or -1 (also for separators). */
        int getItemIndexAt(int y) const;
        juce::Rectangle<int> getItemArea(int index) const;
        int getHighlighted() const noexcept { return highlighted; }
        void setHighlighted(int index);

    private:
        void moveHighlight(int step);
        PopupMenuEx& menu;
        int highlighted = -1;
    };

    /** What stands in the editor while the menu is open: a transparent layer over the whole editor
        (a press outside the list dismisses the menu) holding the list. A 100 ms timer follows the
        mouse over the items. */
    class Window : public juce::Component, private juce::Timer
    {
    public:
        explicit Window(PopupMenuEx& menu);
        ~Window() override;
        void mouseDown(const juce::MouseEvent& event) override;
        void resized() override {}
        PopupMenuComponent& getList() noexcept { return list; }

    private:
        void timerCallback() override;
        PopupMenuEx& menu;
        PopupMenuComponent list;
    };

    static constexpr int itemHeight = 22;
    static constexpr int separatorHeight = 7;

    PopupMenuEx() = default;
    ~PopupMenuEx();

    void addItem(int id, const juce::String& text, bool enabled = true, bool ticked = false);
    void addSeparator();
    void clear();
    const std::vector<Item>& getItems() const noexcept { return items; }

    void addListener(Listener* listener) { listeners.addIfNotAlreadyThere(listener); }
    void removeListener(Listener* listener) { listeners.removeAllInstancesOf(listener); }

    /** Opens the menu under `anchor` (above it when there is no room below), inside the editor the
        anchor stands in, at least as wide as the anchor. */
    void show(juce::Component& anchor);
    /** Closes the menu with that item (0: dismissed) and tells the listeners. */
    void close(int itemId);
    bool isOpen() const;
    /** The open window, or null. */
    Window* getWindow() const noexcept { return window.get(); }

private:
    int getListHeight() const;
    int getListWidth(const juce::Font& font) const;

    std::vector<Item> items;
    juce::Array<Listener*> listeners;
    std::unique_ptr<Window> window;
};
