#pragma once

// A Velmarin instance in folders of its own, for tests whose controls bind to real parameters and
// events.

#include "TestSupport.h"
#include "gui/widgets/DefaultLookAndFeel.h"
#include "plugin/BasePlugin.h"
#include "product/VelmarinProcessor.h"

#include <gtest/gtest.h>

namespace guitest
{
/** Counts what a parameter tells a listener: writes and gestures. */
struct ParameterCounter : Parameter::Listener
{
    void parameterChanged(Parameter&) override { ++writes; }
    void parameterChangeStarted(Parameter&) override { ++started; }
    void parameterChangeEnded(Parameter&) override { ++ended; }
    int writes = 0, started = 0, ended = 0;
};

class VelmarinFixture : public ::testing::Test
{
protected:
    BasePlugin& plugin() { return processor.getPlugin(); }
    Parameter& parameter(const juce::String& name) { return *plugin().getParameterManager().getParameter(name); }

    /** Counts the synchronous writes (what the host hears) and the gestures of a parameter. */
    ParameterCounter& count(const juce::String& name)
    {
        auto& p = parameter(name);
        counters.push_back(std::make_unique<std::pair<Parameter*, ParameterCounter>>(&p, ParameterCounter{}));
        p.addListener(&counters.back()->second);
        return counters.back()->second;
    }

    ~VelmarinFixture() override
    {
        for (auto& c : counters)
            c->first->removeListener(&c->second);
    }

    testsupport::TemporaryFolder folder{"gui"};
    VelmarinProcessor processor{FolderRule::fixed(folder / "user", folder / "data")};
    DefaultLookAndFeel::Scope look;
    std::vector<std::unique_ptr<std::pair<Parameter*, ParameterCounter>>> counters;
};
} // namespace guitest
