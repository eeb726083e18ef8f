// Knowing whether the user moved away from the loaded preset, across preset loads and threads.
#include "PrivateFolders.h"
#include "parameters/ParameterManager.h"
#include "plugin/BasePlugin.h"
#include "product/VelmarinProcessor.h"

#include <gtest/gtest.h>

#include <thread>

TEST(PresetChanges, MovingAKnobAndBackLeavesThePresetUnchangedAndLoadsResetTheBaseline)
{
    VelmarinProcessor processor{testsupport::privateFolders()};
    auto& plugin = processor.getPlugin();
    auto& manager = plugin.getParameterManager();
    EXPECT_FALSE(plugin.isPresetChanged());

    manager.setText(14, "0.7");
    manager.setText(20, "512");
    EXPECT_TRUE(plugin.isPresetChanged());
    manager.setText(14, "0.5");
    manager.setText(20, "256");
    EXPECT_FALSE(plugin.isPresetChanged()) << "back to the exact values";

    manager.setText(29, "Ultra");
    manager.setText(100000, "Renamed");
    EXPECT_FALSE(plugin.isPresetChanged()) << "only the preset's own parameters count";

    Preset partial;
    partial.setName("Partial");
    partial.addValue(PresetValue{26, "0.9"});
    partial.addValue(PresetValue{100001, "Draft"});
    manager.setText(0, "0.4");
    plugin.loadPreset(&partial, 0);
    EXPECT_EQ(manager.getText(26), "0.9");
    EXPECT_EQ(manager.getText(0), "0") << "what the preset lacks goes to its default";
    EXPECT_EQ(manager.getText(100001), "Normal") << "indices outside the slot are ignored";
    EXPECT_EQ(manager.getText(100000), "Partial");
    EXPECT_FALSE(plugin.isPresetChanged());

    manager.setText(26, "0.5");
    EXPECT_TRUE(plugin.isPresetChanged());
    plugin.restoreCurrentPreset();
    EXPECT_EQ(manager.getText(26), "0.9");
    EXPECT_FALSE(plugin.isPresetChanged());
    plugin.restoreDefaultPreset();
    EXPECT_EQ(manager.getText(100000), "Init");
    EXPECT_EQ(manager.getText(26), "0.5");
}

TEST(PresetChanges, TheCountStaysRightWithOneWriterPerParameterOnSeveralThreads)
{
    VelmarinProcessor processor{testsupport::privateFolders()};
    auto& plugin = processor.getPlugin();
    auto& manager = plugin.getParameterManager();
    auto writer = [&manager](int index, float away, float home)
    {
        auto* p = manager.getParameter(index);
        for (int i = 0; i < 2000; ++i)
        {
            p->setNormalized(away, true);
            p->setNormalized(home, true);
        }
        p->setNormalized(away, true);
    };
    const float home3 = manager.getParameter(3)->getNormalized();
    const float home23 = manager.getParameter(23)->getNormalized();
    std::thread audio(writer, 3, 0.9f, home3);
    writer(23, 0.1f, home23);
    audio.join();
    EXPECT_EQ(plugin.getChangeDetector(0)->getChangedCount(), 2);
    manager.getParameter(3)->setNormalized(home3, true);
    manager.getParameter(23)->setNormalized(home23, true);
    EXPECT_FALSE(plugin.isPresetChanged());
}
