#include "PatternNumberDisplay.h"

#include "gui/core/SkinContext.h"
#include "gui/core/SkinXml.h"

namespace
{
constexpr int framesOf[4] = {12, 19, 13, 11};
constexpr int letters[12] = {0, 0, 1, 1, 2, 3, 3, 4, 4, 5, 5, 6};
} // namespace

PatternNumberDisplay::PatternNumberDisplay(const juce::String& name) : juce::Component(name)
{
    for (int i = 0; i < 4; ++i)
    {
        digits.push_back(std::make_unique<GFXAnimation>("digit" + juce::String(i + 1)));
        digits.back()->setInterceptsMouseClicks(false, false);
        digits.back()->setStrip({}, framesOf[i]);
        addAndMakeVisible(*digits.back());
    }
}

void PatternNumberDisplay::load(const juce::XmlElement& element, SkinContext& skin)
{
    GUIController::load(element, skin);
    notePatternMin = SkinXml::integer(element, "notePatternMin", 0);
    notePatternMax = SkinXml::integer(element, "notePatternMax", 127);
    numericPatternMin = SkinXml::integer(element, "numericPatternMin", 1);
    numericPatternMax = SkinXml::integer(element, "numericPatternMax", 16);
    bankAndSlotPatternMin = SkinXml::integer(element, "bankAndSlotPatternMin", 1);
    bankAndSlotPatternMax = SkinXml::integer(element, "bankAndSlotPatternMax", 96);
    slotMax = juce::jlimit(4, 16, SkinXml::integer(element, "slotMax", 12));

    if (auto* gfx = SkinXml::child(element, "gfx"))
    {
        const char* words[4] = {"firstDigit", "secondDigit", "thirdDigit", "fourthDigit"};
        for (int i = 0; i < 4; ++i)
            digits[size_t(i)]->setStrip(skin.getImage(gfx->getStringAttribute(words[i])), framesOf[i]);
    }
    setBounds(SkinXml::bounds(element, 100, 40));
    setValue(shownValue);
}

void PatternNumberDisplay::resized()
{
    const int cell = getWidth() / 4;
    for (int i = 0; i < 4; ++i)
        digits[size_t(i)]->setBounds(i * cell, 0, cell, getHeight());
}

void PatternNumberDisplay::updateFromParameter(Parameter& p)
{
    setValue(p.getInt());
}

void PatternNumberDisplay::setPatternMode(int mode)
{
    patternMode = juce::jlimit(0, 2, mode);
    setValue(shownValue);
}

void PatternNumberDisplay::setValue(int v)
{
    int frames[4] = {0, 0, 0, 0};
    if (patternMode == notePattern)
    {
        v = juce::jlimit(juce::jmin(notePatternMin, notePatternMax), juce::jmax(notePatternMin, notePatternMax), v);
        const int pitchClass = ((v % 12) + 12) % 12;
        const bool blackKey =
            pitchClass == 1 || pitchClass == 3 || pitchClass == 6 || pitchClass == 8 || pitchClass == 10;
        frames[0] = 11;
        frames[1] = 11 + letters[pitchClass];
        frames[2] = blackKey ? 11 : 12;
        frames[3] = v / 12 + 1;
    }
    else if (patternMode == numericPattern)
    {
        v = juce::jlimit(juce::jmin(numericPatternMin, numericPatternMax),
                         juce::jmax(numericPatternMin, numericPatternMax), v);
        frames[1] = v / 10 + 1;
        frames[2] = v % 10 + 1;
    }
    else
    {
        v = juce::jlimit(juce::jmin(bankAndSlotPatternMin, bankAndSlotPatternMax),
                         juce::jmax(bankAndSlotPatternMin, bankAndSlotPatternMax), v);
        const int slot = (v - 1) % slotMax + 1;
        frames[0] = (v - 1) / slotMax + 2;
        frames[1] = 18;
        frames[2] = slot / 10;
        frames[3] = slot % 10;
    }
    shownValue = v;
    for (int i = 0; i < 4; ++i)
        digits[size_t(i)]->showFrame(frames[i]);
}
