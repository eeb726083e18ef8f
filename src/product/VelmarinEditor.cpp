#include "VelmarinEditor.h"

#include "Velmarin.h"
#include "engine/VelmarinParameterIndex.h"
#include "gui/controls/GFXKnob.h"
#include "gui/controls/GFXSwitch.h"
#include "gui/core/ComponentSearch.h"

VelmarinEditor::VelmarinEditor(Velmarin& v) : MarrowgateEffectEditor(v), velmarin(v) {}

void VelmarinEditor::skinLoaded()
{
    MarrowgateEffectEditor::skinLoaded();
    auto& panel = *getMainPanel();
    freePanel = ComponentSearch::find<GFXPanel>(panel, "LFOFreePanel");
    syncPanel = ComponentSearch::find<GFXPanel>(panel, "LFOSyncPanel");
    delayOffsetRight = ComponentSearch::find<GFXKnob>(panel, "DelayOffsetRSKnob");
    lfoRateRight = ComponentSearch::find<GFXKnob>(panel, "LFORateRSKnob");
    lfoDepthRight = ComponentSearch::find<GFXKnob>(panel, "LFODepthRSKnob");
    feedbackRight = ComponentSearch::find<GFXKnob>(panel, "FeedbackRSKnob");
    noteRateRight = ComponentSearch::find<GFXSwitch>(panel, "LFONoteRateRSSwitch");
    delayOffsetLinked = ComponentSearch::find<GFXKnob>(panel, "DelayOffsetRSKnobLinked");
    lfoRateLinked = ComponentSearch::find<GFXKnob>(panel, "LFORateRSKnobLinked");
    lfoDepthLinked = ComponentSearch::find<GFXKnob>(panel, "LFODepthRSKnobLinked");
    feedbackLinked = ComponentSearch::find<GFXKnob>(panel, "FeedbackRSKnobLinked");
    noteRateLinked = ComponentSearch::find<GFXSwitch>(panel, "LFONoteRateRSSwitchLinked");

    // A new skin opens in the state of the parameters.
    auto& manager = plugin.getParameterManager();
    for (const int index :
         {VelmarinParameter::lfoSync, VelmarinParameter::delayOffsetLink, VelmarinParameter::lfoRateLink,
          VelmarinParameter::lfoDepthLink, VelmarinParameter::feedbackLink})
        if (auto* parameter = manager.getParameter(index))
            parameterChanged(*parameter);
}

void VelmarinEditor::showEither(juce::Component* whenOff, juce::Component* whenOn, bool on)
{
    if (whenOff != nullptr)
        whenOff->setVisible(! on);
    if (whenOn != nullptr)
        whenOn->setVisible(on);
}

void VelmarinEditor::parameterChanged(Parameter& parameter)
{
    MarrowgateEffectEditor::parameterChanged(parameter);
    if (getMainPanel() == nullptr)
        return;
    const bool on = parameter.getBool();
    switch (parameter.getIndex())
    {
    case VelmarinParameter::delayOffsetLink:
        showEither(delayOffsetRight, delayOffsetLinked, on);
        break;
    case VelmarinParameter::lfoRateLink:
        showEither(lfoRateRight, lfoRateLinked, on);
        showEither(noteRateRight, noteRateLinked, on);
        break;
    case VelmarinParameter::lfoDepthLink:
        showEither(lfoDepthRight, lfoDepthLinked, on);
        break;
    case VelmarinParameter::feedbackLink:
        showEither(feedbackRight, feedbackLinked, on);
        break;
    case VelmarinParameter::lfoSync:
        showEither(freePanel, syncPanel, parameter.getInt() != 0);
        break;
    default:
        break;
    }
}

void VelmarinEditor::timerTick(bool visible)
{
    MarrowgateEffectEditor::timerTick(visible);
    velmarin.refreshBbdFrequencyDisplay();
}
