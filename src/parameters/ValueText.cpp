#include "ValueText.h"

#include "BoolParameter.h"
#include "EnumParameter.h"
#include "FloatParameter.h"
#include "NoteParameter.h"
#include "StringParameter.h"

#include <cmath>

namespace
{
bool isDigit(juce::juce_wchar c)
{
    return c >= '0' && c <= '9';
}

/** Length of the decimal number that starts at `start` (sign, digits, point, exponent), 0 if none. */
int numberLength(const juce::String& text, int start)
{
    const int length = text.length();
    int i = start;
    if (i < length && (text[i] == '+' || text[i] == '-'))
        ++i;
    int digits = 0;
    while (i < length && isDigit(text[i]))
        ++i, ++digits;
    if (i < length && text[i] == '.')
    {
        ++i;
        while (i < length && isDigit(text[i]))
            ++i, ++digits;
    }
    if (digits == 0)
        return 0;
    // An exponent only counts when digits follow it, so "2e" stays the number 2 and a word.
    if (i < length && (text[i] == 'e' || text[i] == 'E'))
    {
        int j = i + 1;
        if (j < length && (text[j] == '+' || text[j] == '-'))
            ++j;
        if (j < length && isDigit(text[j]))
        {
            while (j < length && isDigit(text[j]))
                ++j;
            i = j;
        }
    }
    return i - start;
}

/** A text as it compares with a display text: no spaces, lower case. */
juce::String comparable(const juce::String& text)
{
    return text.removeCharacters(" \t\r\n").toLowerCase();
}

bool inUnitRange(const std::optional<double>& v)
{
    return v && *v >= 0.0 && *v <= 1.0;
}

bool isBoolWord(const BoolParameter& parameter, const juce::String& text)
{
    for (const char* word : {"true", "1", "on", "yes", "false", "0", "off", "no"})
        if (text == word)
            return true;
    return dynamic_cast<const StateParameter*>(&parameter) != nullptr &&
           (text.equalsIgnoreCase("on") || text.equalsIgnoreCase("off"));
}
} // namespace

std::optional<double> ValueText::parseNumber(const juce::String& text)
{
    const auto t = text.trim();
    if (t.isEmpty() || numberLength(t, 0) != t.length())
        return std::nullopt;
    const double v = t.getDoubleValue();
    if (! std::isfinite(v))
        return std::nullopt;
    return v;
}

std::optional<double> ValueText::findNumber(const juce::String& text)
{
    const int length = text.length();
    for (int i = 0; i < length; ++i)
    {
        const bool signedStart = (text[i] == '+' || text[i] == '-');
        const int from = signedStart ? i + 1 : i;
        if (text.substring(from, from + 3).equalsIgnoreCase("inf"))
            return signedStart && text[i] == '-' ? -HUGE_VAL : HUGE_VAL;

        const int n = numberLength(text, i);
        if (n == 0)
            continue;
        double v = text.substring(i, i + n).getDoubleValue();
        // "1.2kHz" shows 1200 Hz; a "k" right after the number scales it.
        if (i + n < length && text[i + n] == 'k')
            v *= 1000.0;
        return v;
    }
    return std::nullopt;
}

bool ValueText::isReadable(const Parameter& parameter, const juce::String& text)
{
    const auto number = parseNumber(text);
    if (dynamic_cast<const StringParameter*>(&parameter) != nullptr)
        return true;
    if (auto* e = dynamic_cast<const EnumParameter*>(&parameter))
        return e->getItems().contains(text) || inUnitRange(number);
    if (dynamic_cast<const NoteParameter*>(&parameter) != nullptr)
        return NoteParameter::parseNoteName(text).has_value() || inUnitRange(number);
    if (auto* i = dynamic_cast<const IntParameter*>(&parameter))
        return number && *number >= i->getMinimum() && *number <= i->getMaximum();
    if (auto* b = dynamic_cast<const BoolParameter*>(&parameter))
        return isBoolWord(*b, text) || inUnitRange(number);
    if (auto* f = dynamic_cast<const FloatParameter*>(&parameter))
        return number && *number >= f->getMinimum() && *number <= f->getMaximum();
    return false;
}

juce::String ValueText::describeReadable(const Parameter& p)
{
    if (auto* e = dynamic_cast<const EnumParameter*>(&p))
        return "one of " + e->getItems().joinIntoString(", ") + ", or a normalized number from 0 to 1";
    if (dynamic_cast<const NoteParameter*>(&p) != nullptr)
        return "a note name such as C-5, or a normalized number from 0 to 1";
    if (auto* i = dynamic_cast<const IntParameter*>(&p))
        return "a number from " + juce::String(i->getMinimum()) + " to " + juce::String(i->getMaximum());
    if (auto* b = dynamic_cast<const BoolParameter*>(&p))
        return (dynamic_cast<const StateParameter*>(b) != nullptr ? juce::String("On or Off")
                                                                  : juce::String("true or false")) +
               ", or a number from 0 to 1";
    if (auto* f = dynamic_cast<const FloatParameter*>(&p))
        return "a number from " + juce::String(f->getMinimum()) + " to " + juce::String(f->getMaximum());
    return "any text";
}

float ValueText::normalizedForDisplayText(const juce::String& text, float current, int steps,
                                          const std::function<juce::String(float)>& displayAt)
{
    const auto wanted = comparable(text);
    if (wanted.isEmpty() || wanted == comparable(displayAt(current)))
        return current;

    const auto target = findNumber(text);
    if (steps >= 2)
    {
        const auto valueOf = [steps](int k) { return static_cast<float>(k) / static_cast<float>(steps - 1); };
        for (int k = 0; k < steps; ++k)
            if (comparable(displayAt(valueOf(k))) == wanted)
                return valueOf(k);
        if (target)
            for (int k = 0; k < steps; ++k)
                if (findNumber(displayAt(valueOf(k))) == target)
                    return valueOf(k);
        return current;
    }

    const auto numberAt = [&displayAt](float n) { return findNumber(displayAt(n)); };
    const auto low = numberAt(0.0f);
    const auto high = numberAt(1.0f);
    if (! target || ! low || ! high || *low == *high)
        return current;

    // Bisection for the first n whose display number reaches the target, on a display that may
    // rise or fall with n. Display numbers are rounded, so the search ends on the edge of the
    // rounding step that shows the target, and that value shows it again.
    const bool rising = *high > *low;
    const auto reached = [&](float n)
    {
        const auto v = numberAt(n);
        return v && (rising ? *v >= *target : *v <= *target);
    };
    if (reached(0.0f))
        return 0.0f;
    if (! reached(1.0f))
        return 1.0f;
    float lo = 0.0f, hi = 1.0f;
    for (int i = 0; i < 64; ++i)
    {
        const float mid = lo + (hi - lo) * 0.5f;
        if (mid <= lo || mid >= hi)
            break;
        (reached(mid) ? hi : lo) = mid;
    }
    const auto below = numberAt(lo);
    const auto above = numberAt(hi);
    if (below && above && std::abs(*below - *target) < std::abs(*above - *target))
        return lo;
    return hi;
}
