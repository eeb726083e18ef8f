// A MIDI control map document (.vmccmap, and the map element of a state chunk).
#include "FuzzSupport.h"

#include "io/XmlInput.h"
#include "plugin/MidiControlMap.h"
#include "product/Velmarin.h"
#include "product/VelmarinParameterManager.h"

namespace
{
juce::Array<Parameter*> tableOf(const MidiControlMap& map)
{
    juce::Array<Parameter*> table;
    for (int c = 0; c < MidiControlMap::numControllers; ++c)
        table.add(map.getParameter(c));
    return table;
}
} // namespace

int fuzzMidiMap(const uint8_t* data, size_t size)
{
    static auto* const manager = []
    {
        auto* m = new VelmarinParameterManager();
        m->loadFromResource(Velmarin::getResources(), "parameters.xml");
        return m;
    }();
    static auto* const map = []
    {
        auto* m = new MidiControlMap(*manager);
        m->setName("Velmarin");
        return m;
    }();
    static const auto baseline = juce::parseXML(R"(<MidiControlMap name="Velmarin">
        <assign CC="7" param="Output Volume"/><assign CC="21" param="LFO Rate L/M"/></MidiControlMap>)");

    FUZZ_CHECK(map->readXml(baseline.get()));
    const auto before = tableOf(*map);

    const auto root = XmlInput::parse(fuzz::textOf(data, size));
    if (! map->readXml(root.get()))
    {
        // A refused document leaves the map as it was.
        FUZZ_CHECK(tableOf(*map) == before);
        return 0;
    }

    // Each controller drives at most one automatable parameter and each parameter has at most one
    // controller.
    const auto table = tableOf(*map);
    for (int c = 0; c < table.size(); ++c)
    {
        if (auto* p = table[c])
        {
            FUZZ_CHECK(p->isAutomatable());
            FUZZ_CHECK(table.indexOf(p) == c);
            FUZZ_CHECK(map->getController(p) == c);
        }
    }

    // The map written out reads back as the same map.
    const auto written = map->createXml();
    const auto reread = juce::parseXML(written->toString());
    FUZZ_CHECK(map->readXml(reread.get()));
    FUZZ_CHECK(tableOf(*map) == table);
    return 0;
}
