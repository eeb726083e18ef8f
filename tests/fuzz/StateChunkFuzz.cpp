// The host's state chunk, through the processor's setStateInformation as a host delivers it.
#include "FuzzSupport.h"

#include "io/XmlInput.h"
#include "plugin/BasePlugin.h"
#include "product/VelmarinProcessor.h"

#include <climits>

namespace
{
juce::StringArray parameterTexts(const ParameterManager& manager)
{
    juce::StringArray texts;
    for (auto* p : manager.getParameters())
        texts.add(p->getText());
    return texts;
}

juce::Array<Parameter*> midiTable(const MidiControlMap& map)
{
    juce::Array<Parameter*> table;
    for (int c = 0; c < MidiControlMap::numControllers; ++c)
        table.add(map.getParameter(c));
    return table;
}
} // namespace

int fuzzStateChunk(const uint8_t* data, size_t size)
{
    auto& processor = fuzz::sharedProcessor();
    auto& plugin = processor.getPlugin();
    auto& manager = plugin.getParameterManager();

    // Every input starts from the same state: the instance's own, with one MIDI assignment so that
    // a chunk that wrongly drops the map shows.
    static const juce::MemoryBlock baseline = [&]
    {
        plugin.getMidiMap().assign(manager.getParameter("Output Volume"), 7);
        juce::MemoryBlock block;
        processor.getStateInformation(block);
        return block;
    }();
    processor.setStateInformation(baseline.getData(), static_cast<int>(baseline.getSize()));

    const auto textsBefore = parameterTexts(manager);
    const auto mapBefore = midiTable(plugin.getMidiMap());

    const int length = static_cast<int>(std::min<size_t>(size, INT_MAX));
    processor.setStateInformation(data, length);

    // The plug-in takes a chunk only when it holds a PluginState document of this product.
    const auto xml = length > 1 ? XmlInput::parseBinaryState(data, length) : nullptr;
    if (xml == nullptr || ! plugin.isPluginState(*xml))
    {
        FUZZ_CHECK(parameterTexts(manager) == textsBefore);
        FUZZ_CHECK(midiTable(plugin.getMidiMap()) == mapBefore);
        return 0;
    }

    // An accepted state, saved and loaded again at once, changes nothing: a project saved right
    // after it was opened reopens the same.
    const auto textsAfter = parameterTexts(manager);
    const auto mapAfter = midiTable(plugin.getMidiMap());
    juce::MemoryBlock again;
    processor.getStateInformation(again);
    processor.setStateInformation(again.getData(), static_cast<int>(again.getSize()));
    FUZZ_CHECK(parameterTexts(manager) == textsAfter);
    FUZZ_CHECK(midiTable(plugin.getMidiMap()) == mapAfter);
    return 0;
}
