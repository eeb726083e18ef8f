#include "MixerController.h"

#include "gui/core/SkinContext.h"
#include "gui/core/SkinXml.h"
#include "plugin/BasePlugin.h"

void MixerController::Animation::setStrip(const juce::Image& image, int frameCount)
{
    strip = image.isValid() ? image : juce::Image();
    frames = strip.isValid() ? juce::jmax(0, frameCount) : 0;
    frame = 0;
    setSize(getFrameWidth(), getFrameHeight());
    repaint();
}

void MixerController::Animation::setValue(float value)
{
    const double position = std::floor(double(value) * double(frames - 1) + 0.5);
    // NaN fails both comparisons, and so keeps the frame too.
    if (frames < 1 || ! (position >= 0.0 && position <= double(frames - 1)))
        return;
    if (int(position) != frame)
    {
        frame = int(position);
        repaint();
    }
}

void MixerController::Animation::paint(juce::Graphics& g)
{
    const int frameHeight = getFrameHeight();
    if (frames < 1 || frameHeight <= 0 || strip.getWidth() <= 0)
        return;
    g.drawImage(strip, 0, 0, strip.getWidth(), frameHeight, 0, frame * frameHeight, strip.getWidth(), frameHeight);
}

MixerController::MasterSlider::MasterSlider(MixerController& owner) : GFXSwitch("masterSlider"), mixer(owner)
{
    setSliderStyle(juce::Slider::LinearVertical);
}

Parameter* MixerController::MasterSlider::getParameterAt(const juce::MouseEvent& event, juce::Component** hit)
{
    return mixer.getParameterAt(event.getEventRelativeTo(&mixer), hit);
}

void MixerController::MasterSlider::paint(juce::Graphics& g)
{
    // Only the level a press paints shows, as a line across the bars; the bars are the picture.
    const float y = float(getPositionOfValue(getValue()));
    g.setColour(juce::Colour(DefaultLookAndFeel::Colours::accent));
    g.fillRect(0.0f, y - 0.5f, float(getWidth()), 1.0f);
}

void MixerController::MasterSlider::mouseDown(const juce::MouseEvent& event)
{
    // The press sets the level to the pointer's height, then paints it.
    GFXSwitch::mouseDown(event);
    mixer.mouseDown(event.getEventRelativeTo(&mixer));
}

void MixerController::MasterSlider::mouseDrag(const juce::MouseEvent& event)
{
    // The level stays where the press put it while the drag carries it across the bars.
    mixer.mouseDrag(event.getEventRelativeTo(&mixer));
}

void MixerController::MasterSlider::mouseUp(const juce::MouseEvent& event)
{
    GFXSwitch::mouseUp(event);
    mixer.mouseUp(event.getEventRelativeTo(&mixer));
}

MixerController::MixerController(const juce::String& name) : juce::Component(name)
{
    addAndMakeVisible(masterSlider);
}

MixerController::~MixerController()
{
    endGesture();
    removeAllParameters();
}

void MixerController::loadFromSkin(const juce::XmlElement& element, SkinContext& skin)
{
    if (const auto file = element.getStringAttribute("background"); file.isNotEmpty())
        background = skin.getImage(file);

    juce::XmlElement master("Switch");
    master.setAttribute("style", "Vertical");
    master.setAttribute("thumb", SkinXml::integer(element, "thumb", 0));
    masterSlider.load(master, skin);
    masterSlider.setBounds(getLocalBounds());

    if (element.hasAttribute("readOnly"))
        setReadOnly(SkinXml::boolean(element, "readOnly", false));

    const int extent = BaseGFXController::maximumExtent;
    auto bounds = getBounds();
    if (auto* pos = SkinXml::child(element, "pos"))
        bounds.setPosition(juce::jlimit(-extent, extent, SkinXml::integer(*pos, "left", 0)),
                           juce::jlimit(-extent, extent, SkinXml::integer(*pos, "top", 0)));
    if (auto* size = SkinXml::child(element, "size"))
        bounds.setSize(juce::jlimit(0, extent, SkinXml::integer(*size, "width", 0)),
                       juce::jlimit(0, extent, SkinXml::integer(*size, "height", 0)));
    setBounds(bounds);

    if (auto* gfx = SkinXml::child(element, "gfx"))
        for (auto* image : SkinXml::children(*gfx, "image"))
        {
            const auto name = image->getStringAttribute("name");
            const auto strip = skin.getImage(image->getStringAttribute("strip"));
            const int frames = SkinXml::integer(*image, "frames", 1);
            if (name == "slider")
            {
                sliderStrip = strip;
                sliderFrames = frames;
                for (auto* bar : sliders)
                    bar->setStrip(sliderStrip, sliderFrames);
            }
            else if (name == "display")
            {
                displayStrip = strip;
                displayFrames = frames;
                for (auto* bar : displays)
                    bar->setStrip(displayStrip, displayFrames);
            }
        }

    if (element.hasAttribute("gaps"))
    {
        const auto gaps = juce::StringArray::fromTokens(element.getStringAttribute("gaps"), ";", {});
        // Held like every size a skin gives, so that no sum of gaps overflows.
        firstGap = juce::jlimit(-SkinXml::maximumExtent, SkinXml::maximumExtent, gaps[0].getIntValue());
        secondGap = juce::jlimit(-SkinXml::maximumExtent, SkinXml::maximumExtent, gaps[1].getIntValue());
    }

    if (auto* list = SkinXml::child(element, "parameters"); list != nullptr && skin.getPlugin() != nullptr)
        for (auto* param : SkinXml::children(*list, "param"))
            for (const auto& name : juce::StringArray::fromTokens(param->getStringAttribute("name"), ";", {}))
                addParameter(skin.getPlugin()->getParameterManager().getParameter(name));

    for (auto* p : parameters)
        updateFromParameter(*p);
    layOutBars();
}

void MixerController::parameterAdded(Parameter&)
{
    auto* slider = sliders.add(new Animation());
    auto* display = displays.add(new Animation());
    slider->setStrip(sliderStrip, sliderFrames);
    display->setStrip(displayStrip, displayFrames);
    for (auto* bar : {slider, display})
    {
        bar->setInterceptsMouseClicks(false, false);
        // Below the master slider, which takes the mouse over the whole mixer.
        addAndMakeVisible(bar, getIndexOfChildComponent(&masterSlider));
    }
    barCount = parameters.size();
    layOutBars();
}

void MixerController::updateFromParameter(Parameter& parameter)
{
    const int bar = parameters.indexOf(&parameter);
    if (bar < 0 || bar >= sliders.size())
        return;
    sliders[bar]->setValue(parameter.getNormalized());
    displays[bar]->setValue(parameter.getNormalized());
}

int MixerController::getBarAt(int x) const
{
    if (barCount <= 0 || getWidth() <= 0)
        return -1;
    return juce::jlimit(0, barCount - 1, int(juce::int64(x) * barCount / getWidth()));
}

Parameter* MixerController::getParameterAt(const juce::MouseEvent& event, juce::Component** hit)
{
    const int bar = getBarAt(event.x);
    if (bar < 0)
        return nullptr;
    if (hit != nullptr)
        *hit = sliders[bar];
    return parameters[bar];
}

void MixerController::setReadOnly(bool shouldBeReadOnly)
{
    readOnly = shouldBeReadOnly;
    masterSlider.setVisible(! readOnly);
    setInterceptsMouseClicks(! readOnly, ! readOnly);
}

void MixerController::layOutBars()
{
    int barWidth = sliderFrames > 0 ? sliderStrip.getWidth() : 0;
    if (barWidth == 0 && displayFrames > 0)
        barWidth = displayStrip.getWidth();
    // The pair gap is spread over bars / 2 - 1 pair boundaries; with fewer than 4 bars there is at
    // most one, and it takes the whole gap.
    const int pairGap = secondGap / juce::jmax(1, barCount / 2 - 1);
    const int evenStep = barCount > 1 ? barWidth + (getWidth() - barCount * barWidth) / (barCount - 1) : 0;

    int x = 0;
    for (int i = 0; i < sliders.size(); ++i)
    {
        if (usesGaps())
            x += firstGap / (barCount + 1);
        else
            x = i * evenStep;
        sliders[i]->setTopLeftPosition(x, 0);
        displays[i]->setTopLeftPosition(x, sliders[i]->getHeight());
        if (usesGaps())
            x += barWidth + (i % 2 == 1 ? pairGap : 0);
    }
}

void MixerController::resized()
{
    masterSlider.setBounds(getLocalBounds());
    layOutBars();
}

void MixerController::paint(juce::Graphics& g)
{
    if (background.isValid())
        g.drawImageAt(background, 0, 0);
}

bool MixerController::belongsToEditor(const juce::MouseEvent& event)
{
    return event.mods.isShiftDown() || event.mods.isRightButtonDown();
}

void MixerController::mouseDown(const juce::MouseEvent& event)
{
    if (readOnly || belongsToEditor(event))
        return;
    const int bar = getBarAt(event.x);
    if (bar < 0)
        return;
    painting = true;
    paintValue = event.mods.isAltDown() ? parameters[bar]->getNormalized() : float(masterSlider.getValue());
    paintBar(bar);
}

void MixerController::mouseDrag(const juce::MouseEvent& event)
{
    if (readOnly || ! painting || belongsToEditor(event))
        return;
    const int bar = getBarAt(event.x);
    if (bar < 0 || bar == selected)
        return;
    // Every bar the pointer crossed since the last event, in the order it crossed them.
    const int step = bar > selected ? 1 : -1;
    for (int b = selected + step; b != bar + step; b += step)
        paintBar(b);
}

void MixerController::mouseUp(const juce::MouseEvent&)
{
    // Only a plain press opens a gesture, so whatever keys the release carries, it closes it.
    endGesture();
    painting = false;
    selected = -1;
}

void MixerController::paintBar(int bar)
{
    selected = bar;
    auto* parameter = parameters[bar];
    if (parameter != gestureParameter)
    {
        endGesture();
        parameter->beginChange();
        gestureParameter = parameter;
    }
    parameter->setNormalized(paintValue, true);
}

void MixerController::endGesture()
{
    if (gestureParameter != nullptr)
        gestureParameter->endChange();
    gestureParameter = nullptr;
}
