#pragma once

#include "gui/core/BaseGFXController.h"

/** A rocker switch drawn from three frames (less, rest, more). A press on the "more" half (the top
    half of a vertical rocker, the right half of a horizontal one) fires "onMoreClick" (with Ctrl,
    "onMoreClickWithCtrl"), elsewhere "onLessClick" ("onLessClickWithCtrl"); exactly half way counts
    as "less". It returns to rest when released. Thread: message thread. */
class GFXRocker : public BaseGFXController, public juce::Component
{
public:
    enum Orientation
    {
        vertical = 0,
        horizontal = 1
    };

    explicit GFXRocker(const juce::String& name);

    void load(const juce::XmlElement& element, SkinContext& skin) override;
    void bindAction(const juce::String& type, int eventId, const juce::String& eventName) override;

    void mouseDown(const juce::MouseEvent& event) override;
    void mouseDrag(const juce::MouseEvent& event) override;
    void mouseUp(const juce::MouseEvent& event) override;
    void paint(juce::Graphics& g) override;

    int getShownFrame() const { return insideDrag ? 1 : frame; }

private:
    int orientation = vertical;
    int lessEventId = -1, moreEventId = -1, lessCtrlEventId = -1, moreCtrlEventId = -1;
    int frame = 1;
    bool insideDrag = false;
};
