// A host parameter map document (.vmhpmap) read into a plug-in instance.
#include "FuzzSupport.h"

#include "io/XmlInput.h"
#include "plugin/BasePlugin.h"
#include "product/VelmarinProcessor.h"

namespace
{
juce::Array<Parameter*> hostListOf(BasePlugin& plugin)
{
    juce::Array<Parameter*> list;
    for (int h = 0; h < plugin.getHostParameterCount(); ++h)
        list.add(plugin.getHostParameter(h));
    return list;
}
} // namespace

int fuzzHostMap(const uint8_t* data, size_t size)
{
    auto& plugin = fuzz::sharedProcessor().getPlugin();

    // Every input starts from the instance's own list, the 28 preset parameters in order.
    static const auto defaultList = hostListOf(plugin);
    plugin.clearHostMap();
    for (int h = 0; h < defaultList.size(); ++h)
        plugin.setHostParameter(h, defaultList[h], false);

    const auto root = XmlInput::parse(fuzz::textOf(data, size));
    if (root == nullptr)
        return 0;
    plugin.readHostMapXml(*root);

    const auto list = hostListOf(plugin);
    if (! plugin.isHostMapFor(root.get()))
    {
        // A map of another product changes nothing.
        FUZZ_CHECK(list == defaultList);
        return 0;
    }

    // Each host number holds at most one automatable parameter, each parameter at most one place,
    // and the reverse lookup agrees.
    for (int h = 0; h < list.size(); ++h)
    {
        if (auto* p = list[h])
        {
            FUZZ_CHECK(p->isAutomatable());
            FUZZ_CHECK(list.indexOf(p) == h);
            FUZZ_CHECK(plugin.getHostIndex(p->getIndex()) == h);
        }
        // What a host asks of every place, placeholders included.
        FUZZ_CHECK(plugin.getParameterName(h).isNotEmpty());
        (void)plugin.getParameterText(h);
        (void)plugin.getParameterTextForValue(h, 0.25f);
        const float value = plugin.getParameterValueForText(h, plugin.getParameterText(h));
        FUZZ_CHECK(value >= 0.0f && value <= 1.0f);
        (void)plugin.getParameterDefaultValue(h);
    }
    return 0;
}
