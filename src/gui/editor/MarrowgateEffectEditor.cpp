#include "MarrowgateEffectEditor.h"

#include "gui/core/ComponentSearch.h"
#include "plugin/MarrowgateEffect.h"

MarrowgateEffectEditor::MarrowgateEffectEditor(MarrowgateEffect& e) : BasePluginEditor(e, true), effect(e) {}

void MarrowgateEffectEditor::skinLoaded()
{
    BasePluginEditor::skinLoaded();
    meters[0] = ComponentSearch::find<GFXAnimation>(*getMainPanel(), "LeftVUMeter");
    meters[1] = ComponentSearch::find<GFXAnimation>(*getMainPanel(), "RightVUMeter");
}

void MarrowgateEffectEditor::timerTick(bool visible)
{
    BasePluginEditor::timerTick(visible);
    auto* core = effect.getCore();
    if (effect.isPrepared() && core != nullptr)
    {
        shown[0] = core->peakLeft.load(std::memory_order_relaxed);
        shown[1] = core->peakRight.load(std::memory_order_relaxed);
    }
    else
    {
        for (auto& level : shown)
            level = level > decayFloor ? level * decay : 0.0f;
    }
    for (int channel = 0; channel < 2; ++channel)
        if (meters[channel] != nullptr)
            meters[channel]->setValue(shown[channel]);
}

juce::Rectangle<int> MarrowgateEffectEditor::getFloatingWindowSize()
{
    return {juce::jmax(getWidth() - 60, 780), juce::jmax(getPanelHeight() - 60, 250)};
}
