#include "SkinLayout.h"

#include "engine/VelmarinParameterIndex.h"

namespace SkinLayout
{
namespace
{
using P = VelmarinParameter::Index;

Layout makeVelmarin()
{
    Layout l;
    l.width = 1000.0f;
    l.height = 480.0f;
    l.headerHeight = 56.0f;
    l.leftRow = 164.0f;
    l.linkRow = 272.0f;
    l.rightRow = 380.0f;
    // Down to the caption under the synced R/S selector.
    l.lfoPanel = {364.0f, 96.0f, 80.0f, 370.0f};
    l.channelTagX = 122.0f;

    // The signal path from left to right, the LFO between the delay and the feedback it modulates.
    l.sections = {{"INPUT", {8.0f, 64.0f, 88.0f, 408.0f}},
                  {"BBD / DELAY", {104.0f, 64.0f, 244.0f, 408.0f}},
                  {"LFO", {356.0f, 64.0f, 324.0f, 408.0f}},
                  {"FEEDBACK", {688.0f, 64.0f, 88.0f, 408.0f}},
                  {"OUTPUT", {784.0f, 64.0f, 208.0f, 408.0f}}};

    const float header = l.headerHeight / 2.0f;
    const auto at = [](float x, float y) { return juce::Point<float>(x, y); };
    auto& c = l.controls;

    // Header: the wordmark opens the about window; the preset row; the clock; the options.
    c.push_back(
        {Kind::logo, "AboutButton", -1, "About", at(124, header), {}, Look::normal, Holder::main, Anchor::centre, 196});
    c.push_back({Kind::button, "PreviousPresetButton", -1, "Select Previous Preset", at(288, header), "<", Look::normal,
                 Holder::main, Anchor::centre, 26});
    c.push_back({Kind::presetName,
                 "PresetNameDisplay",
                 -1,
                 {},
                 at(404, header),
                 {},
                 Look::normal,
                 Holder::main,
                 Anchor::centre,
                 196});
    c.push_back({Kind::button, "NextPresetButton", -1, "Select Next Preset", at(520, header), ">", Look::normal,
                 Holder::main, Anchor::centre, 26});
    c.push_back({Kind::button, "BrowsePresetsButton", -1, "Browse Presets", at(586, header), "BROWSE", Look::normal,
                 Holder::main, Anchor::centre, 72});
    c.push_back({Kind::button, "SavePresetButton", -1, "Save Preset", at(656, header), "SAVE", Look::normal,
                 Holder::main, Anchor::centre, 60});
    c.push_back({Kind::clock, "BBDClockDisplay", P::currentBbdFrequency, {}, at(826, header), "BBD CLOCK"});
    c.push_back({Kind::button, "OptionsButton", -1, "Options", at(942, header), "OPTIONS", Look::normal, Holder::main,
                 Anchor::centre, 76});

    // Input.
    c.push_back({Kind::knob, "PreampKnob", P::preamp, {}, at(52, l.leftRow), "PREAMP"});
    c.push_back({Kind::toggle, "MSModeButton", P::msMode, {}, at(52, l.linkRow), "M/S"});
    c.push_back({Kind::knob, "CrossfadeKnob", P::channelsCrossfade, {}, at(52, l.rightRow), "CROSSFADE"});

    // BBD / delay.
    c.push_back({Kind::knob, "DelayOffsetLMKnob", P::delayOffsetLeft, {}, at(172, l.leftRow), "OFFSET"});
    c.push_back({Kind::toggle, "DelayOffsetLinkButton", P::delayOffsetLink, {}, at(172, l.linkRow), "LINK"});
    c.push_back({Kind::knob, "DelayOffsetRSKnob", P::delayOffsetRight, {}, at(172, l.rightRow), "OFFSET"});
    c.push_back(
        {Kind::knob, "DelayOffsetRSKnobLinked", P::delayOffsetLeft, {}, at(172, l.rightRow), "OFFSET", Look::linked});
    c.push_back({Kind::knob, "BBDRangeKnob", P::bbdFrequencyRange, {}, at(248, l.leftRow), "RANGE"});
    // Low cut under the gap between the range knob and the length selector, so that the lower row
    // spans the section as the upper one does.
    c.push_back({Kind::selector, "LowCutSwitch", P::lowCut, {}, at(283, l.rightRow), "LOW CUT"});
    c.push_back({Kind::selector,
                 "BBDLengthSwitch",
                 P::bbdLength,
                 {},
                 at(318, l.leftRow),
                 "LENGTH",
                 Look::normal,
                 Holder::main,
                 Anchor::topOfRow});

    // LFO: the rate panels, free (knobs) and synced (note values), each with its own link button.
    for (auto holder : {Holder::lfoFree, Holder::lfoSync})
        c.push_back(
            {Kind::toggle, "LFORateLinkButton", P::lfoRateLink, {}, at(404, l.linkRow), "LINK", Look::normal, holder});
    c.push_back(
        {Kind::knob, "LFORateLMKnob", P::lfoRateLeft, {}, at(404, l.leftRow), "RATE", Look::normal, Holder::lfoFree});
    c.push_back(
        {Kind::knob, "LFORateRSKnob", P::lfoRateRight, {}, at(404, l.rightRow), "RATE", Look::normal, Holder::lfoFree});
    c.push_back({Kind::knob,
                 "LFORateRSKnobLinked",
                 P::lfoRateLeft,
                 {},
                 at(404, l.rightRow),
                 "RATE",
                 Look::linked,
                 Holder::lfoFree});
    c.push_back({Kind::selector,
                 "LFONoteRateLMSwitch",
                 P::lfoNoteRateLeft,
                 {},
                 at(404, l.leftRow),
                 {},
                 Look::normal,
                 Holder::lfoSync,
                 Anchor::aboveLinkRow});
    c.push_back({Kind::selector,
                 "LFONoteRateRSSwitch",
                 P::lfoNoteRateRight,
                 {},
                 at(404, l.rightRow),
                 "NOTE RATE",
                 Look::normal,
                 Holder::lfoSync,
                 Anchor::belowLinkRow});
    c.push_back({Kind::selector,
                 "LFONoteRateRSSwitchLinked",
                 P::lfoNoteRateLeft,
                 {},
                 at(404, l.rightRow),
                 "NOTE RATE",
                 Look::linked,
                 Holder::lfoSync,
                 Anchor::belowLinkRow});
    c.push_back({Kind::knob, "LFODepthLMKnob", P::lfoDepthLeft, {}, at(486, l.leftRow), "DEPTH"});
    c.push_back({Kind::toggle, "LFODepthLinkButton", P::lfoDepthLink, {}, at(486, l.linkRow), "LINK"});
    c.push_back({Kind::knob, "LFODepthRSKnob", P::lfoDepthRight, {}, at(486, l.rightRow), "DEPTH"});
    c.push_back({Kind::knob, "LFODepthRSKnobLinked", P::lfoDepthLeft, {}, at(486, l.rightRow), "DEPTH", Look::linked});
    c.push_back({Kind::selector,
                 "LFOSyncSwitch",
                 P::lfoSync,
                 {},
                 at(601, l.leftRow),
                 "SYNC",
                 Look::normal,
                 Holder::main,
                 Anchor::topOfRow});
    c.push_back({Kind::selector,
                 "LFOCurveSwitch",
                 P::lfoVoltageCurve,
                 {},
                 at(601, l.leftRow),
                 "CURVE",
                 Look::normal,
                 Holder::main,
                 Anchor::belowPrevious});
    c.push_back({Kind::knob, "LFOPhaseKnob", P::lfoPhaseShift, {}, at(601, l.rightRow), "PHASE"});

    // Feedback.
    c.push_back({Kind::knob, "FeedbackLMKnob", P::feedbackLeft, {}, at(732, l.leftRow), "FEEDBACK"});
    c.push_back({Kind::toggle, "FeedbackLinkButton", P::feedbackLink, {}, at(732, l.linkRow), "LINK"});
    c.push_back({Kind::knob, "FeedbackRSKnob", P::feedbackRight, {}, at(732, l.rightRow), "FEEDBACK"});
    c.push_back(
        {Kind::knob, "FeedbackRSKnobLinked", P::feedbackLeft, {}, at(732, l.rightRow), "FEEDBACK", Look::linked});

    // Output.
    c.push_back({Kind::knob, "GainLMKnob", P::gainLeft, {}, at(826, l.leftRow), "GAIN"});
    c.push_back({Kind::knob, "GainRSKnob", P::gainRight, {}, at(826, l.rightRow), "GAIN"});
    c.push_back({Kind::knob, "FXAmountKnob", P::fxAmount, {}, at(896, l.leftRow), "FX AMOUNT"});
    c.push_back({Kind::toggle, "AutoMixButton", P::autoMixMode, {}, at(896, l.linkRow), "AUTO"});
    c.push_back({Kind::knob, "OutputVolumeKnob", P::outputVolume, {}, at(896, l.rightRow), "VOLUME"});
    c.push_back({Kind::meter, "LeftVUMeter", -1, {}, at(946, l.linkRow), "L"});
    c.push_back({Kind::meter, "RightVUMeter", -1, {}, at(962, l.linkRow), "R"});

    l.wires = {{172.0f, Holder::main}, {404.0f, Holder::lfoFree}, {486.0f, Holder::main}, {732.0f, Holder::main}};
    return l;
}
} // namespace

const Layout& velmarin()
{
    static const Layout layout = makeVelmarin();
    return layout;
}

int SkinSize::size(float bigPixels, int minimum) const
{
    return juce::jmax(minimum, juce::roundToInt(bigPixels * scale));
}

float SkinSize::text(float bigPixels) const
{
    return juce::jmax(9.0f, std::round(bigPixels * scale));
}

int SkinSize::x(float bigX) const
{
    return juce::roundToInt(bigX * scaleX);
}

int SkinSize::y(float bigY) const
{
    return juce::roundToInt(bigY * scaleY);
}

const SkinSize& bigSkin()
{
    static const SkinSize size{"Big", 1000, 480, 1.0f, 1.0f, 1.0f};
    return size;
}

const SkinSize& smallSkin()
{
    // Narrow enough for a 1366 x 768 screen with the preset drawer open below the panel.
    static const SkinSize size{"Small", 760, 340, 0.76f, 340.0f / 480.0f, 0.72f};
    return size;
}
} // namespace SkinLayout
