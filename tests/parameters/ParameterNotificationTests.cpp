// The store-and-notify step: who hears of a change, when, and in which order.
#include "parameters/BoolParameter.h"
#include "parameters/FloatParameter.h"
#include "parameters/ParameterFormatter.h"
#include "parameters/StringParameter.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{
struct Recorder : Parameter::Listener
{
    std::vector<std::string> log;
    std::string tag;
    explicit Recorder(std::string t = "r") : tag(std::move(t)) {}
    void parameterChanged(Parameter&) override { log.push_back(tag + ":changed"); }
    void parameterChangeStarted(Parameter&) override { log.push_back(tag + ":started"); }
    void parameterChangeEnded(Parameter&) override { log.push_back(tag + ":ended"); }
};
} // namespace

TEST(ParameterNotification, OnlyRealChangesWithNotifyReachListeners)
{
    FloatParameter p(0, "f", 0.0f, 1.0f, 0.5f);
    Recorder r;
    p.addListener(&r);

    p.setFloat(0.5f, true);
    EXPECT_TRUE(r.log.empty()) << "writing the current value again is silent";
    p.setFloat(0.7f, false);
    EXPECT_TRUE(r.log.empty());
    EXPECT_FLOAT_EQ(p.getFloat(), 0.7f);
    p.setFloat(0.7f, true);
    EXPECT_TRUE(r.log.empty()) << "a later write of the same value stays silent";
    p.setFloat(0.1f, true);
    EXPECT_EQ(r.log.size(), 1u);

    StringParameter s(1, "s", "a");
    s.addListener(&r);
    s.setText("a", true);
    EXPECT_EQ(r.log.size(), 1u);
    s.setText("b", true);
    EXPECT_EQ(r.log.size(), 2u);
}

TEST(ParameterNotification, ListenersAreWalkedFromLastToFirstAndStandOnce)
{
    BoolParameter p(0, "b");
    std::vector<std::string> order;
    struct Named : Parameter::Listener
    {
        std::vector<std::string>& order;
        std::string name;
        Named(std::vector<std::string>& o, std::string n) : order(o), name(std::move(n)) {}
        void parameterChanged(Parameter&) override { order.push_back(name); }
    } a(order, "a"), b(order, "b"), c(order, "c");
    p.addListener(&a);
    p.addListener(&b);
    p.addListener(&b);
    p.addListener(&c);
    p.setBool(true, true);
    EXPECT_EQ(order, (std::vector<std::string>{"c", "b", "a"}));
}

TEST(ParameterNotification, ListenerMayRemoveItselfAndOthersDuringTheWalk)
{
    BoolParameter p(0, "b");
    int calls = 0;
    struct Remover : Parameter::Listener
    {
        BoolParameter& p;
        std::vector<Parameter::Listener*> victims;
        int& calls;
        Remover(BoolParameter& param, int& c) : p(param), calls(c) {}
        void parameterChanged(Parameter&) override
        {
            ++calls;
            for (auto* v : victims)
                p.removeListener(v);
        }
    };
    Remover first(p, calls), second(p, calls), third(p, calls);
    p.addListener(&first);
    p.addListener(&second);
    p.addListener(&third);
    // The last entry is called first and removes all three: the walk must end without touching freed slots.
    third.victims = {&first, &second, &third};
    p.setBool(true, true);
    EXPECT_EQ(calls, 1);

    p.addListener(&first);
    p.addListener(&second);
    second.victims = {&second};
    first.victims = {};
    p.setBool(false, true);
    EXPECT_EQ(calls, 3) << "second removes itself, the walk goes on to first";
}

TEST(ParameterNotification, AsyncListenersHearManyWritesOnceOnTheMessageThread)
{
    FloatParameter p(0, "f", 0.0f, 1.0f, 0.0f);
    Recorder sync("sync"), async("async");
    p.addListener(&sync);
    p.addAsyncListener(&async);
    for (int i = 1; i <= 5; ++i)
        p.setFloat(0.1f * static_cast<float>(i), true);
    EXPECT_EQ(sync.log.size(), 5u);
    EXPECT_TRUE(async.log.empty());
    p.handleUpdateNowIfNeeded(); // what the message thread does with the posted update
    EXPECT_EQ(async.log, (std::vector<std::string>{"async:changed"}));
}

TEST(ParameterNotification, GesturesAreToldOncePerOpeningAndNeverToAsyncListeners)
{
    FloatParameter p(0, "f", 0.0f, 1.0f, 0.0f);
    Recorder sync("sync"), async("async");
    p.addListener(&sync);
    p.addAsyncListener(&async);
    p.endChange();
    p.beginChange();
    p.beginChange();
    EXPECT_TRUE(p.isChangeActive());
    p.endChange();
    p.endChange();
    p.handleUpdateNowIfNeeded(); // what the message thread does with the posted update
    EXPECT_EQ(sync.log, (std::vector<std::string>{"sync:started", "sync:ended"}));
    EXPECT_TRUE(async.log.empty());
}

TEST(ParameterNotification, DisplayTextUsesTheFormatterWhenThereIsOne)
{
    struct Fixed : ParameterFormatter
    {
        juce::String format(const Parameter& p) override { return "[" + p.getText() + "]"; }
    } formatter;
    FloatParameter p(0, "f", 0.0f, 1.0f, 0.5f);
    p.setUnit(" dB");
    EXPECT_EQ(p.getDisplayText(), "0.5 dB");
    p.setFormatter(&formatter);
    EXPECT_EQ(p.getDisplayText(), "[0.5]");
}
