#pragma once

// The words a skin may use for a control, and what each builds: the one table the panel builder
// reads and the skin tool's linter checks skins against.

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>
#include <memory>

class GUIController;
class SkinContext;

/** Thread: any for the table; the makers on the message thread. */
namespace ControlWords
{
/** A new control for a word (compared ignoring case) with that component name, or null for a word
    the builder does not know. */
std::unique_ptr<juce::Component> make(const juce::String& word, const juce::String& componentName, SkinContext& skin);
/** Whether the builder knows the word (ignoring case). */
bool isKnown(const juce::String& word);
/** Every word, as skins write them. */
juce::StringArray all();
} // namespace ControlWords
