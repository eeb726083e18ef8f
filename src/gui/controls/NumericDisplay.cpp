#include "NumericDisplay.h"

#include "gui/core/SkinContext.h"
#include "gui/core/SkinXml.h"

void NumericDisplayDigit::show(int newDigit, bool newBlank)
{
    if (newDigit == digit && newBlank == blank)
        return;
    digit = newDigit;
    blank = newBlank;
    repaint();
}

void NumericDisplayDigit::paint(juce::Graphics& g)
{
    if (blank || (isBlinking() && ! getBlinkPhase()))
        return;
    const int frameHeight = image.getHeight() / 10;
    if (image.isValid() && frameHeight > 0)
    {
        g.drawImage(image, 0, 0, getWidth(), getHeight(), 0, digit * frameHeight, image.getWidth(), frameHeight);
        return;
    }
    // Without an image: the digit as text, so a half-finished skin still reads.
    g.setColour(juce::Colours::black);
    g.setFont(juce::Font(float(getHeight()) * 0.8f));
    g.drawText(juce::String(digit), getLocalBounds(), juce::Justification::centred, false);
}

void NumericDisplaySign::show(bool negative)
{
    if (negative != minus)
    {
        minus = negative;
        repaint();
    }
}

void NumericDisplaySign::paint(juce::Graphics& g)
{
    const int frameHeight = image.getHeight() / 2;
    if (image.isValid() && frameHeight > 0)
    {
        g.drawImage(image, 0, 0, getWidth(), getHeight(), 0, minus ? frameHeight : 0, image.getWidth(), frameHeight);
        return;
    }
    if (minus)
    {
        g.setColour(juce::Colours::black);
        g.fillRect(getLocalBounds().withSizeKeepingCentre(getWidth() * 2 / 3, juce::jmax(1, getHeight() / 10)));
    }
}

NumericDisplay::NumericDisplay(const juce::String& name) : juce::Component(name)
{
    configure(1, 1.0);
}

void NumericDisplay::configure(int count, double firstDigitOrder)
{
    digitsCount = juce::jlimit(1, 10, count);
    // The exponent of the first digit: an exact power of ten counts as itself.
    const double order = firstDigitOrder > 0.0 && std::isfinite(firstDigitOrder) ? firstDigitOrder : 1.0;
    firstDigitExponent = int(std::floor(std::log10(order) + 1.0e-9));
    firstDigitExponent = juce::jlimit(-30, 30, firstDigitExponent);
    firstDigitValue = std::pow(10.0, firstDigitExponent);
    highest = (std::pow(10.0, digitsCount) - 1.0) * std::pow(10.0, firstDigitExponent - digitsCount + 1);
    lowest = -highest;

    digits.clear();
    for (int i = 0; i < digitsCount; ++i)
    {
        digits.push_back(std::make_unique<NumericDisplayDigit>());
        digits.back()->setInterceptsMouseClicks(false, false);
        addAndMakeVisible(*digits.back());
    }
}

void NumericDisplay::load(const juce::XmlElement& element, SkinContext& skin)
{
    GUIController::load(element, skin);
    configure(SkinXml::integer(element, "digitsNum", 1), element.getDoubleAttribute("firstDigitOrder", 1.0));
    minValue = juce::jlimit(lowest, highest, element.getDoubleAttribute("minValue", 0.0));
    maxValue = juce::jlimit(lowest, highest, element.getDoubleAttribute("maxValue", 0.0));
    continuous = element.getStringAttribute("control").equalsIgnoreCase("continous");

    const auto strip = [&](const char* holder)
    {
        if (auto* h = SkinXml::child(element, holder))
            if (auto* gfx = SkinXml::child(*h, "gfx"))
                return skin.getImage(gfx->getStringAttribute("resource"));
        return juce::Image();
    };
    sign.reset();
    if (minValue < 0.0)
    {
        sign = std::make_unique<NumericDisplaySign>();
        sign->setInterceptsMouseClicks(false, false);
        sign->setImage(strip("sign"));
        addAndMakeVisible(*sign);
    }
    const auto digitImage = strip("digits");
    for (auto& digit : digits)
        digit->setImage(digitImage);

    const int cells = digitsCount + (sign != nullptr ? 1 : 0);
    const auto area = SkinXml::bounds(element, 10 * cells, 16);
    digitWidth = area.getWidth() / cells;
    digitHeight = digitImage.isValid() ? digitImage.getHeight() / 10 : area.getHeight();
    setBounds(area);
    setValue(value, false);
}

void NumericDisplay::resized()
{
    int x = 0;
    if (sign != nullptr)
    {
        sign->setBounds(0, 0, digitWidth, getHeight());
        x = digitWidth;
    }
    for (auto& digit : digits)
    {
        digit->setBounds(x, 0, digitWidth, getHeight());
        x += digitWidth;
    }
}

void NumericDisplay::paint(juce::Graphics&) {}

void NumericDisplay::updateFromParameter(Parameter& p)
{
    setValue(p.getFloat(), false);
}

void NumericDisplay::setValue(double newValue, bool fromUser)
{
    if (! std::isfinite(newValue))
        newValue = minValue;
    newValue = newValue < minValue ? minValue : juce::jmin(newValue, maxValue);
    if (newValue != value)
    {
        value = newValue;
        if (fromUser && parameter != nullptr && ! suspended)
        {
            parameter->setFloat(float(value), true);
            notifyValueChanged();
        }
    }

    // The value in units of the last digit, rounded half away from zero for positive values.
    const int scaleExponent = digitsCount - firstDigitExponent - 1;
    const double scaled = std::abs(value) * std::pow(10.0, scaleExponent) + (value >= 0.0 ? 0.5 : -0.5);
    double rest = std::trunc(juce::jlimit(0.0, 1.0e10, scaled));
    bool allZeroSoFar = true;
    for (int i = 0; i < digitsCount; ++i)
    {
        const double weight = std::pow(10.0, digitsCount - 1 - i);
        const int digit = juce::jlimit(0, 9, int(std::trunc(rest / weight)));
        rest -= double(digit) * weight;
        const bool blank = digit == 0 && allZeroSoFar && i <= digitsCount - scaleExponent - 2;
        allZeroSoFar = allZeroSoFar && digit == 0;
        digits[size_t(i)]->show(digit, blank);
    }
    if (sign != nullptr)
        sign->show(value < 0.0);
}

void NumericDisplay::mouseDown(const juce::MouseEvent& event)
{
    if (! editable || ! isEnabled())
        return;
    dragging = true;
    beginUserGesture();
    valueAtDown = value;
    // The digit under the pointer, counted over the whole width as the display always has.
    const int width = juce::jmax(1, getWidth());
    const int position = continuous ? 1 : juce::jlimit(0, digitsCount - 1, event.x * digitsCount / width);
    dragStep = std::pow(10.0, firstDigitExponent - position);
}

void NumericDisplay::mouseDrag(const juce::MouseEvent& event)
{
    if (! dragging)
        return;
    const int travel = juce::roundToInt(event.position.y - event.mouseDownPosition.y);
    const int steps = int(std::trunc(double(travel) / -10.0));
    setValue(double(steps) * dragStep + valueAtDown, true);
}

void NumericDisplay::mouseUp(const juce::MouseEvent&)
{
    if (! dragging)
        return;
    dragging = false;
    endUserGesture();
}
