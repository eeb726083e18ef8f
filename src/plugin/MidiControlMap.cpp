#include "MidiControlMap.h"

#include "io/SafeFile.h"
#include "io/XmlInput.h"
#include "parameters/ParameterManager.h"

MidiControlMap::MidiControlMap(ParameterManager& manager) : parameters(manager)
{
    for (auto& entry : table)
        entry.store(nullptr);
}

void MidiControlMap::handleController(const juce::MidiMessage& message)
{
    activity.store(1);
    const auto* data = message.getRawData();
    if (message.getRawDataSize() < 3)
        return;
    const int controller = data[1];
    if (controller >= numControllers)
        return;

    // Learning: the arriving controller takes the learned parameter over. A controller that was
    // only passed through gets its old parameter back when the next one arrives.
    auto* p = learnParameter.load();
    if (p != learnedParameter)
    {
        learnedParameter = p;
        learnedController = getController(p);
        displaced = nullptr;
    }
    if (learnedParameter != nullptr && learnedController != controller)
    {
        if (learnedController != -1)
            table[static_cast<size_t>(learnedController)].store(displaced);
        displaced = table[static_cast<size_t>(controller)].exchange(learnedParameter);
        learnedController = controller;
    }

    auto* target = table[static_cast<size_t>(controller)].load();
    if (target == nullptr)
        return;
    target->setNormalized(static_cast<float>(data[2]) * 0.007874016f, true);
    for (int i = listeners.size(); --i >= 0;)
        listeners.getUnchecked(i)->controllerMoved(*this, *target);
}

void MidiControlMap::clearEntriesOf(const Parameter* parameter, int except)
{
    for (int c = 0; c < numControllers; ++c)
        if (c != except && table[static_cast<size_t>(c)].load() == parameter)
            table[static_cast<size_t>(c)].store(nullptr);
}

void MidiControlMap::assign(Parameter* parameter, int controller)
{
    if (parameter == nullptr || controller < -1 || controller >= numControllers)
        return;
    if (controller >= 0 && getController(parameter) == controller)
        return;
    clearEntriesOf(parameter, -1);
    if (controller >= 0)
        table[static_cast<size_t>(controller)].store(parameter);
}

int MidiControlMap::getController(const Parameter* parameter) const
{
    if (parameter == nullptr)
        return -1;
    for (int c = 0; c < numControllers; ++c)
        if (table[static_cast<size_t>(c)].load() == parameter)
            return c;
    return -1;
}

Parameter* MidiControlMap::getParameter(int controller) const
{
    return controller >= 0 && controller < numControllers ? table[static_cast<size_t>(controller)].load() : nullptr;
}

void MidiControlMap::startLearning(Parameter* parameter)
{
    if (learnParameter.load() == nullptr)
        for (int c = 0; c < numControllers; ++c)
            backup[static_cast<size_t>(c)] = table[static_cast<size_t>(c)].load();
    learnParameter.exchange(parameter);
}

void MidiControlMap::cancelLearning()
{
    if (learnParameter.exchange(nullptr) == nullptr)
        return;
    for (int c = 0; c < numControllers; ++c)
        table[static_cast<size_t>(c)].store(backup[static_cast<size_t>(c)]);
}

void MidiControlMap::finishLearning()
{
    learnParameter.store(nullptr);
}

bool MidiControlMap::readXml(const juce::XmlElement* element)
{
    if (element == nullptr)
        return false;
    if (! element->getTagName().equalsIgnoreCase("MidiControlMap") &&
        ! element->getTagName().equalsIgnoreCase("MidiCCMap"))
        return false;
    if (name.isNotEmpty() && ! element->getStringAttribute("name").equalsIgnoreCase(name) &&
        ! element->getStringAttribute("application").equalsIgnoreCase(name))
        return false;

    for (auto& entry : table)
        entry.store(nullptr);

    for (auto* child : element->getChildIterator())
    {
        if (! child->getTagName().equalsIgnoreCase("assign"))
            continue;
        auto* p = parameters.getParameter(child->getStringAttribute("param"));
        const auto controller = static_cast<unsigned int>(child->getIntAttribute("CC", 0));
        if (p == nullptr || ! p->isAutomatable() || controller >= static_cast<unsigned int>(numControllers))
            continue;
        clearEntriesOf(p, static_cast<int>(controller));
        table[controller].store(p);
    }
    return true;
}

std::unique_ptr<juce::XmlElement> MidiControlMap::createXml() const
{
    auto root = std::make_unique<juce::XmlElement>("MidiControlMap");
    root->setAttribute("name", name);
    for (int c = 0; c < numControllers; ++c)
    {
        if (auto* p = table[static_cast<size_t>(c)].load())
        {
            auto* assignment = root->createNewChildElement("assign");
            assignment->setAttribute("CC", c);
            assignment->setAttribute("param", p->getName());
        }
    }
    return root;
}

bool MidiControlMap::loadFromFile(const juce::File& file)
{
    if (! file.existsAsFile())
        return false;
    const auto root = XmlInput::parse(file);
    return root != nullptr && readXml(root.get());
}

bool MidiControlMap::saveToFile(const juce::File& file) const
{
    return SafeFile::writeXml(file, *createXml());
}
