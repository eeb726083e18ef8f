#include "ControlWords.h"

#include "GFXPanel.h"
#include "gui/controls/GFXAnimation.h"
#include "gui/controls/GFXButton.h"
#include "gui/controls/GFXDisplay.h"
#include "gui/controls/GFXKnob.h"
#include "gui/controls/GFXMultiStateButton.h"
#include "gui/controls/GFXRocker.h"
#include "gui/controls/GFXSwitch.h"
#include "gui/controls/GFXToggleButton.h"
#include "gui/controls/ImageComboBox.h"
#include "gui/controls/ImageMidiKeyboard.h"
#include "gui/controls/MixerController.h"
#include "gui/controls/ModulationMatrixComponent.h"
#include "gui/controls/NoteDisplay.h"
#include "gui/controls/NumericDisplay.h"
#include "gui/controls/PatternNumberDisplay.h"
#include "gui/controls/TextInput.h"
#include "gui/core/SkinContext.h"
#include "plugin/BasePlugin.h"

namespace
{
using Maker = std::function<std::unique_ptr<juce::Component>(const juce::String&, SkinContext&)>;

template <typename Control> Maker maker()
{
    return [](const juce::String& name, SkinContext&) { return std::make_unique<Control>(name); };
}

struct Word
{
    const char* word;
    Maker make;
};

const std::vector<Word>& table()
{
    static const std::vector<Word> words{
        {"Knob", maker<GFXKnob>()},
        {"Switch", maker<GFXSwitch>()},
        {"Animation", maker<GFXAnimation>()},
        {"Button", maker<GFXButton>()},
        {"ToggleButton", maker<GFXToggleButton>()},
        {"MultiStateButton", maker<GFXMultiStateButton>()},
        {"Rocker", maker<GFXRocker>()},
        {"Panel", maker<GFXPanel>()},
        {"PitchBender", maker<PitchBender>()},
        {"ModWheel", maker<ModWheel>()},
        {"MidiChannelDisplay", maker<GFXMidiChannelDisplay>()},
        {"Display", maker<GFXDisplay>()},
        {"DisplayFloat", maker<GFXDisplayFloat>()},
        {"NumericDisplay", maker<NumericDisplay>()},
        {"NoteDisplay", maker<NoteDisplay>()},
        {"PatternNumberDisplay", maker<PatternNumberDisplay>()},
        {"TextInput", maker<TextInput>()},
        {"ImageComboBox", maker<ImageComboBox>()},
        {"Mixer", maker<MixerController>()},
        {"ModulationMatrix", maker<ModulationMatrixComponent>()},
        {"MidiKeyboard",
         [](const juce::String& name, SkinContext& skin) -> std::unique_ptr<juce::Component>
         {
             // The keyboard plays into the plug-in's keyboard state; a skin loaded without a plug-in
             // (the linter, tests) plays into one of its own that nothing reads.
             static juce::MidiKeyboardState unheard;
             auto* plugin = skin.getPlugin();
             return std::make_unique<ImageMidiKeyboard>(name, plugin != nullptr ? plugin->getKeyboardState() : unheard);
         }},
    };
    return words;
}

const Word* find(const juce::String& word)
{
    for (const auto& entry : table())
        if (word.equalsIgnoreCase(entry.word))
            return &entry;
    return nullptr;
}
} // namespace

namespace ControlWords
{
std::unique_ptr<juce::Component> make(const juce::String& word, const juce::String& componentName, SkinContext& skin)
{
    const auto* entry = find(word);
    return entry != nullptr ? entry->make(componentName, skin) : nullptr;
}

bool isKnown(const juce::String& word)
{
    return find(word) != nullptr;
}

juce::StringArray all()
{
    juce::StringArray words;
    for (const auto& entry : table())
        words.add(entry.word);
    return words;
}
} // namespace ControlWords
