#pragma once

#include "GFXSwitch.h"
#include "gui/core/ParameterController.h"
#include "gui/core/SkinWidget.h"

class SkinContext;

/** A row of level bars, one per parameter, painted with the mouse: a press sets the bar under the
    pointer to the master slider's value and a drag carries that value across the bars it passes.
    Each bar is a slider picture with a display picture under it, each the frame of its parameter's
    value taken from a strip of the skin; a value whose frame falls outside the strip leaves the
    bar's frame as it was. The master slider is an invisible vertical slider over the whole control:
    a press sets it to the pointer's height, and it answers the editor's "which parameter is here"
    with the bar under the pointer.

    Painting: Shift and the right button are the editor's, and do nothing here. Alt takes the value
    of the pressed bar's own parameter instead of the master's, so that it can be carried to others.
    Every bar the pointer enters is one gesture on its parameter, ended when the pointer moves on or
    the button is released; a drag that skips bars between two events paints those too. A read-only
    mixer hides the master slider and lets every mouse event through to what lies below it.

    Layout. Without gaps (both 0), the bars stand evenly from the left edge to the right edge: bar i
    at i x (frame width + (control width - bars x frame width) / (bars - 1)). With gaps, each bar
    follows a space of first gap / (bars + 1), and every second bar is followed by an extra second
    gap / (bars / 2 - 1), so that the bars stand in pairs.

    Numbers a skin sets never divide by zero:
    - a single bar stands at 0 (even layout: bars - 1 is 0);
    - with 2 or 3 bars the pair gap is the whole second gap (bars / 2 - 1 counts as at least 1);
    - a strip of fewer than 1 frame, or without an image, draws nothing, and its bars keep frame 0;
    - a control of width 0 (or with no bars) has no bar under the pointer: a press paints nothing.

    Thread: message thread. */
class MixerController : public juce::Component, public ParameterController, public SkinWidget
{
public:
    /** One picture of a bar: frame n of a strip of frames stacked from top to bottom. */
    class Animation : public juce::Component
    {
    public:
        /** Shows the frame of a value 0..1, or keeps the frame when that lies outside the strip. */
        void setValue(float value);
        void setStrip(const juce::Image& image, int frameCount);
        int getFrame() const noexcept { return frame; }
        int getFrameCount() const noexcept { return frames; }
        int getFrameWidth() const noexcept { return frames > 0 ? strip.getWidth() : 0; }
        int getFrameHeight() const noexcept { return frames > 0 ? strip.getHeight() / frames : 0; }

        void paint(juce::Graphics& g) override;

    private:
        juce::Image strip;
        int frames = 0;
        int frame = 0;
    };

    /** The slider whose value a press paints; it stands over the whole mixer and hands its mouse
        events on to it. */
    class MasterSlider : public GFXSwitch
    {
    public:
        explicit MasterSlider(MixerController& owner);

        Parameter* getParameterAt(const juce::MouseEvent& event, juce::Component** hit) override;
        void paint(juce::Graphics& g) override;
        void mouseDown(const juce::MouseEvent& event) override;
        void mouseDrag(const juce::MouseEvent& event) override;
        void mouseUp(const juce::MouseEvent& event) override;

    private:
        MixerController& mixer;
    };

    explicit MixerController(const juce::String& name);
    ~MixerController() override;

    /** The mixer's words, in this order: `background`, `thumb`, `readOnly`, `pos`, `size`, `gfx`
        (`image` children named "slider" or "display" with `strip` and `frames`), `gaps` ("first;
        second") and `parameters` (`param` children whose `name` holds one or more names separated
        by ";"; each name found in the plug-in's parameters joins the mixer). */
    void loadFromSkin(const juce::XmlElement& element, SkinContext& skin) override;

    /** Shows a parameter's value on its bar, without writing anything. */
    void updateFromParameter(Parameter& parameter);
    /** The parameter of the bar under a point of the mixer (null for none); `hit` becomes the
        bar's slider picture. */
    Parameter* getParameterAt(const juce::MouseEvent& event, juce::Component** hit);
    /** The bar under an x of the mixer: x x bars / width, held to the bars; -1 when there is none. */
    int getBarAt(int x) const;

    void setReadOnly(bool shouldBeReadOnly);
    bool isReadOnly() const noexcept { return readOnly; }
    /** Whether the bars stand in pairs (a gap is set) rather than evenly. */
    bool usesGaps() const noexcept { return firstGap != 0 || secondGap != 0; }
    int getFirstGap() const noexcept { return firstGap; }
    int getSecondGap() const noexcept { return secondGap; }
    int getBarCount() const noexcept { return barCount; }
    Animation& getSliderBar(int bar) { return *sliders[bar]; }
    Animation& getDisplayBar(int bar) { return *displays[bar]; }
    MasterSlider& getMasterSlider() noexcept { return masterSlider; }
    int getSelected() const noexcept { return selected; }
    bool isPainting() const noexcept { return painting; }

    void parameterAdded(Parameter& parameter) override;
    void parameterUpdated(Parameter& parameter) override { updateFromParameter(parameter); }

    void paint(juce::Graphics& g) override;
    void resized() override;
    void mouseDown(const juce::MouseEvent& event) override;
    void mouseDrag(const juce::MouseEvent& event) override;
    void mouseUp(const juce::MouseEvent& event) override;

private:
    /** Places the bars by the even or the pair rule. */
    void layOutBars();
    /** Writes the paint value to a bar's parameter as a gesture of its own. */
    void paintBar(int bar);
    void endGesture();
    static bool belongsToEditor(const juce::MouseEvent& event);

    MasterSlider masterSlider{*this};
    juce::Image background;
    juce::Image sliderStrip;
    int sliderFrames = 0;
    juce::Image displayStrip;
    int displayFrames = 0;
    int firstGap = 0;
    int secondGap = 0;
    int barCount = 0;
    juce::OwnedArray<Animation> sliders;
    juce::OwnedArray<Animation> displays;
    int selected = -1;
    bool painting = false;
    float paintValue = 0.0f;
    bool readOnly = false;
    /** The parameter whose gesture is open while painting; not owned. */
    Parameter* gestureParameter = nullptr;

    JUCE_DECLARE_NON_COPYABLE(MixerController)
};
