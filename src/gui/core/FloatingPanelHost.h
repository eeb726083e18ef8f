#pragma once

// Floating panels: small panels a control opens over the editor (a picker of tiles, the status
// bar's settings panels), closed by a click elsewhere. The editor is the host; controls reach it by
// walking up their parents, so that they need not know the editor's class.

#include <juce_gui_basics/juce_gui_basics.h>

/** Who hears that its floating panel closed, and through which click (null when closed by code). */
class FloatingComponentOwner
{
public:
    virtual ~FloatingComponentOwner() = default;
    virtual void floatingClosed(juce::Component* panel, juce::Component* clicked) = 0;
};

/** What the editor implements to show floating panels. Thread: message thread. */
class FloatingPanelHost
{
public:
    virtual ~FloatingPanelHost() = default;

    /** Shows the panel (closing any open one first) with its top left at `position`, given in the
        anchor's coordinates; the owner hears when it closes. */
    virtual void showFloating(juce::Component* panel, juce::Point<int> position, juce::Component* anchor,
                              FloatingComponentOwner* owner) = 0;
    /** Closes the panel if it is the open one. */
    virtual void hideFloating(juce::Component* panel, juce::Component* clicked) = 0;

    /** The nearest host among the component's parents (itself included), or null. */
    static FloatingPanelHost* findFor(juce::Component& component)
    {
        for (auto* c = &component; c != nullptr; c = c->getParentComponent())
            if (auto* host = dynamic_cast<FloatingPanelHost*>(c))
                return host;
        return nullptr;
    }
};
