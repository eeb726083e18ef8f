#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** Finding a control by its component name, as the editor finds its well-known controls: a
    component's own children first, in order, and only then each child's subtree; names compared
    exactly; the first match wins. Thread: message thread. */
namespace ComponentSearch
{
juce::Component* findByName(juce::Component& root, const juce::String& name);

/** The first component of that name, if it is of class T; null otherwise. */
template <typename T> T* find(juce::Component& root, const juce::String& name)
{
    return dynamic_cast<T*>(findByName(root, name));
}
} // namespace ComponentSearch
