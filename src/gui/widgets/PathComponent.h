#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** A file path shown as a line of text ("[...]" while none is set) with a "Browse" button at its
    right that opens a file chooser with the wildcard given at construction. Thread: message thread. */
class PathComponent : public juce::Component, public juce::Button::Listener
{
public:
    class Listener
    {
    public:
        virtual ~Listener() = default;
        virtual void pathChanged(PathComponent& component) = 0;
    };

    static constexpr int gap = 6;

    explicit PathComponent(const juce::String& wildcard);
    ~PathComponent() override;

    void setPath(const juce::String& path, juce::NotificationType notification = juce::sendNotificationSync);
    const juce::String& getPath() const noexcept { return path; }
    /** What the line shows. */
    juce::String getShownText() const { return path.isEmpty() ? juce::String("[...]") : path; }

    void addListener(Listener* listener) { listeners.addIfNotAlreadyThere(listener); }
    void removeListener(Listener* listener) { listeners.removeAllInstancesOf(listener); }

    juce::TextButton& getBrowseButton() noexcept { return browse; }

    void paint(juce::Graphics& g) override;
    void resized() override;
    void buttonClicked(juce::Button* button) override;
    void enablementChanged() override { repaint(); }

private:
    juce::String path;
    juce::String wildcard;
    juce::TextButton browse{"Browse"};
    std::unique_ptr<juce::FileChooser> chooser;
    juce::Array<Listener*> listeners;
};
