#include "Preset.h"

#include "io/SafeFile.h"
#include "io/XmlInput.h"
#include "parameters/Parameter.h"
#include "parameters/ParameterManager.h"

Preset::Preset(juce::InputStream& stream, const ParameterManager& manager, bool headerOnly,
               const juce::String& presetName)
{
    const auto root = XmlInput::parse(stream, headerOnly);
    readXml(root.get(), manager, headerOnly);
    name = presetName;
}

Preset::Preset(const Preset& other)
{
    *this = other;
}

Preset& Preset::operator=(const Preset& other)
{
    if (this == &other)
        return *this;
    clearValues();
    for (auto* v : other.values)
        addValue(*v);
    name = other.name;
    author = other.author;
    id = other.id;
    application = other.application;
    category = other.category;
    rating = other.rating;
    ratingSet = other.ratingSet;
    version = other.version;
    tags = other.tags;
    return *this;
}

void Preset::setRating(int newRating)
{
    if (newRating < 1 || newRating > 5)
        return;
    rating = newRating;
    ratingSet = true;
}

void Preset::addValue(const Parameter* parameter)
{
    if (parameter != nullptr)
        addValue(PresetValue{parameter->getIndex(), parameter->getText()});
}

void Preset::addValue(const PresetValue& value)
{
    values.add(new PresetValue(value));
    indices.addRange({value.index, value.index + 1});
}

void Preset::clearValues()
{
    values.clear();
    indices.clear();
}

void Preset::sortValues()
{
    Comparator comparator;
    values.sort(comparator, true);
}

bool Preset::findValue(int index, juce::String& text) const
{
    for (int i = values.size(); --i >= 0;)
    {
        if (values.getUnchecked(i)->index == index)
        {
            text = values.getUnchecked(i)->value;
            return true;
        }
    }
    return false;
}

void Preset::readXml(const juce::XmlElement* element, const ParameterManager& manager, bool headerOnly)
{
    clearValues();
    if (element == nullptr || ! element->getTagName().equalsIgnoreCase("Preset"))
        return;

    name = element->getStringAttribute("name");
    application = element->getStringAttribute("application");
    category = element->getStringAttribute("category");
    version = element->getStringAttribute("version");
    author = element->getStringAttribute("author");
    id = element->getStringAttribute("id");
    tags = ContentTags::fromText(element->getStringAttribute("tags"));
    if (element->hasAttribute("rating"))
        setRating(element->getIntAttribute("rating"));

    if (headerOnly)
        return;

    auto readParam = [&](const juce::XmlElement& child)
    {
        auto* p = manager.getParameter(child.getStringAttribute("name"));
        if (p == nullptr || p->getIndex() == -1)
            return;
        addValue(PresetValue{p->getIndex(), child.getStringAttribute("value")});
    };

    if (auto* list = element->getChildByName("Parameters"))
    {
        for (auto* child : list->getChildIterator())
            readParam(*child);
    }
    else
    {
        for (auto* child : element->getChildWithTagNameIterator("param"))
            readParam(*child);
    }

    if (auto* extra = element->getChildByName("ExtraData"))
        readExtraData(*extra);
}

std::unique_ptr<juce::XmlElement> Preset::createXml(const ParameterManager& manager, bool includeName) const
{
    auto root = std::make_unique<juce::XmlElement>("Preset");
    if (includeName && name.isNotEmpty())
        root->setAttribute("name", name);
    if (application.isNotEmpty())
        root->setAttribute("application", application);
    if (category.isNotEmpty())
        root->setAttribute("category", category);
    if (version.isNotEmpty())
        root->setAttribute("version", version);
    if (author.isNotEmpty())
        root->setAttribute("author", author);
    if (id.isNotEmpty())
        root->setAttribute("id", id);
    if (ratingSet)
        root->setAttribute("rating", rating);
    if (! tags.isEmpty())
        root->setAttribute("tags", tags.toText());

    auto* list = root->createNewChildElement("Parameters");
    for (auto* v : values)
    {
        const auto parameterName = manager.getName(v->index);
        if (parameterName.isEmpty())
            continue;
        auto* param = list->createNewChildElement("param");
        param->setAttribute("name", parameterName);
        param->setAttribute("value", v->value);
    }

    auto extra = std::make_unique<juce::XmlElement>("ExtraData");
    writeExtraData(*extra);
    if (extra->getNumChildElements() > 0)
        root->addChildElement(extra.release());
    return root;
}

void Preset::loadFromFile(const juce::File& file, const ParameterManager& manager, bool headerOnly)
{
    if (const auto root = XmlInput::parse(file, headerOnly))
        readXml(root.get(), manager, headerOnly);
    name = file.getFileNameWithoutExtension();
}

bool Preset::saveToFile(const juce::File& file, const ParameterManager& manager) const
{
    const auto root = createXml(manager, false);
    if (root == nullptr)
        return false;
    // A failed write leaves an existing preset as it was.
    return SafeFile::writeXml(file, *root);
}

bool Preset::writeTagsToFile(const juce::File& file, const ContentTags& newTags)
{
    if (file == juce::File() || ! file.existsAsFile())
        return false;
    const auto root = XmlInput::parse(file);
    if (root == nullptr || ! root->getTagName().equalsIgnoreCase("Preset"))
        return false;
    root->setAttribute("tags", newTags.toText());
    return SafeFile::writeXml(file, *root);
}

void Preset::collectParameters(const ParameterManager& manager, const juce::SparseSet<int>& ranges)
{
    clearValues();
    for (int r = 0; r < ranges.getNumRanges(); ++r)
    {
        const auto range = ranges.getRange(r);
        for (int index = range.getStart(); index < range.getEnd(); ++index)
            if (auto* p = manager.getParameter(index))
                addValue(p);
    }
    sortValues();
}
