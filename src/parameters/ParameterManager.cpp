#include "ParameterManager.h"

#include "BoolParameter.h"
#include "EnumParameter.h"
#include "FloatParameter.h"
#include "IntParameter.h"
#include "NoteParameter.h"
#include "PluginResources.h"
#include "StringParameter.h"

#include "io/XmlInput.h"

namespace
{
constexpr int lookupSlots = 10000;

const char* const formatWords[] = {
    "integer",       "decimal_nosign.1", "decimal_nosign.2", "decimal",       "decimal.1",
    "decimal.2",     "decimal.3",        "decimal.1-inf",    "decimalKilo.1", "decimalKilo.2",
    "decimalOrKilo", "decimalOrKilo.1",  "decimalOrKilo.2",  "crossfade",
};
} // namespace

ParameterManager::ParameterManager()
{
    parametersByIndex.remapTable(lookupSlots);
    parametersByName.remapTable(lookupSlots);
}

ParameterManager::~ParameterManager()
{
    clear();
}

juce::String ParameterManager::format(const Parameter& parameter)
{
    return parameter.getText() + parameter.getUnit();
}

bool ParameterManager::isParameterProtected(int)
{
    return false;
}

bool ParameterManager::isParameterVisible(int)
{
    return true;
}

FloatParameter* ParameterManager::createFloatParameter(int index, const juce::String& name, float minimum,
                                                       float maximum, float value)
{
    return new FloatParameter(index, name, minimum, maximum, value);
}

ParameterFormatter* ParameterManager::getFormatter(int)
{
    return nullptr;
}

int ParameterManager::formatCodeForWord(const juce::String& word)
{
    for (int i = 0; i < static_cast<int>(std::size(formatWords)); ++i)
        if (word == formatWords[i])
            return i + 1;
    return 0;
}

void ParameterManager::loadFromResource(const PluginResources& resources, const juce::String& resourceName)
{
    const auto text = resources.getText(resourceName);
    if (auto root = XmlInput::parse(text))
    {
        readXml(*root);
        return;
    }
    clear();
}

void ParameterManager::readXml(const juce::XmlElement& root)
{
    clear();
    applicationName = root.getStringAttribute("application");
    if (! root.getTagName().equalsIgnoreCase("PluginParameters"))
        return;

    for (auto* row : root.getChildIterator())
    {
        if (! row->getTagName().equalsIgnoreCase("param"))
            continue;
        if (auto* p = createRow(*row))
            addParameter(p);
    }
}

Parameter* ParameterManager::createRow(const juce::XmlElement& row)
{
    if (! row.hasAttribute("index"))
        return nullptr;
    const int index = row.getIntAttribute("index");
    const auto name = row.getStringAttribute("name");
    // -1 is the index of a parameter that has none, so it counts as absent.
    if (index == -1 || name.isEmpty())
        return nullptr;

    const auto type = row.getStringAttribute("type", "float");
    const auto value = row.getStringAttribute("value");

    Parameter* p = nullptr;
    if (type == "float")
    {
        p = createFloatParameter(index, name, static_cast<float>(row.getDoubleAttribute("min", 0.0)),
                                 static_cast<float>(row.getDoubleAttribute("max", 1.0)),
                                 static_cast<float>(value.getDoubleValue()));
    }
    else if (type == "int")
    {
        auto* ip = new IntParameter(index, name, row.getIntAttribute("min", 0), row.getIntAttribute("max", 1), 0);
        ip->setInt(value.getIntValue(), true);
        p = ip;
    }
    else if (type == "string")
    {
        p = new StringParameter(index, name, value);
    }
    else if (type == "bool" || type == "state" || type == "logic" || type == "answer")
    {
        Parameter* bp = nullptr;
        if (type == "bool")
            bp = new BoolParameter(index, name);
        else if (type == "state")
            bp = new StateParameter(index, name);
        else if (type == "logic")
            bp = new LogicParameter(index, name);
        else
            bp = new AnswerParameter(index, name);
        bp->setText(value, true);
        p = bp;
    }
    else if (type == "enum")
    {
        auto* ep = new EnumParameter(index, name);
        ep->setItems(row.getStringAttribute("enum"));
        ep->setText(value, true);
        p = ep;
    }
    else if (type == "note")
    {
        p = new NoteParameter(index, name, NoteParameter::parseNoteName(value).value_or(0));
    }
    else
    {
        // A type word outside the grammar is a fault of the product's own definition file; such a
        // row defines nothing, so lookups of it give null like any other missing parameter.
        jassertfalse;
        return nullptr;
    }

    p->setAutomatable(row.getBoolAttribute("auto", false));
    p->setMeta(row.getBoolAttribute("meta", false));
    p->setUnit(row.getStringAttribute("unit"));
    if (row.hasAttribute("format"))
        p->setFormat(formatCodeForWord(row.getStringAttribute("format")));
    p->setFormatter(getFormatter(index));
    return p;
}

void ParameterManager::clear()
{
    const juce::ScopedWriteLock write(lock);
    parametersByIndex.clear();
    parametersByName.clear();
    parameters.clear(true);
}

int ParameterManager::addParameter(Parameter* p)
{
    if (p == nullptr)
        return 0;
    const juce::ScopedWriteLock write(lock);
    if (parameters.contains(p))
        return 0;
    if (parametersByIndex[p->getIndex()] != nullptr || parametersByName.contains(p->getName()))
    {
        delete p;
        return 0;
    }
    parameters.add(p);
    parametersByIndex.set(p->getIndex(), p);
    parametersByName.set(p->getName(), p);
    return 1;
}

Parameter* ParameterManager::getParameter(int index) const
{
    const juce::ScopedReadLock read(lock);
    return parametersByIndex[index];
}

Parameter* ParameterManager::getParameter(const juce::String& name) const
{
    const juce::ScopedReadLock read(lock);
    return parametersByName[name];
}

bool ParameterManager::getBool(int index) const
{
    auto* p = getParameter(index);
    return p != nullptr && p->getBool();
}

juce::String ParameterManager::getText(int index) const
{
    auto* p = getParameter(index);
    return p != nullptr ? p->getText() : juce::String();
}

void ParameterManager::setText(int index, const juce::String& text)
{
    if (auto* p = getParameter(index))
        p->setText(text, true);
}

juce::String ParameterManager::getName(int index) const
{
    auto* p = getParameter(index);
    return p != nullptr ? p->getName() : juce::String();
}

void ParameterManager::copyValue(int destination, int source)
{
    auto* to = getParameter(destination);
    auto* from = getParameter(source);
    if (to != nullptr && from != nullptr)
        to->copyFrom(*from, true);
}

void ParameterManager::addListenerToAll(Parameter::Listener* listener)
{
    const juce::ScopedReadLock read(lock);
    for (auto* p : parameters)
        p->addListener(listener);
}

void ParameterManager::addAsyncListenerToAll(Parameter::Listener* listener)
{
    const juce::ScopedReadLock read(lock);
    for (auto* p : parameters)
        p->addAsyncListener(listener);
}

void ParameterManager::removeListenerFromAll(Parameter::Listener* listener)
{
    const juce::ScopedReadLock read(lock);
    for (auto* p : parameters)
        p->removeListener(listener);
}

void ParameterManager::removeAsyncListenerFromAll(Parameter::Listener* listener)
{
    const juce::ScopedReadLock read(lock);
    for (auto* p : parameters)
        p->removeAsyncListener(listener);
}

void ParameterManager::addListener(int index, Parameter::Listener* listener)
{
    if (auto* p = getParameter(index))
        p->addListener(listener);
}

void ParameterManager::addAsyncListener(int index, Parameter::Listener* listener)
{
    if (auto* p = getParameter(index))
        p->addAsyncListener(listener);
}

void ParameterManager::notifyAll()
{
    const juce::ScopedReadLock read(lock);
    for (auto* p : parameters)
        p->notifyListeners();
}

void ParameterManager::captureDefaults()
{
    const juce::ScopedReadLock read(lock);
    for (auto* p : parameters)
        defaultValues.set(p->getIndex(), p->getNormalized());
}

bool ParameterManager::getDefaultValue(int index, float& value) const
{
    const juce::ScopedReadLock read(lock);
    if (! defaultValues.contains(index))
        return false;
    value = defaultValues[index];
    return true;
}
