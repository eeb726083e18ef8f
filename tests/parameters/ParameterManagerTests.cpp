// The definition grammar, the product's own table, the internal parameters and the events.
#include "PrivateFolders.h"
#include "parameters/BoolParameter.h"
#include "parameters/EnumParameter.h"
#include "parameters/EventsMap.h"
#include "parameters/FloatParameter.h"
#include "parameters/NoteParameter.h"
#include "parameters/ParameterManager.h"
#include "parameters/PluginResources.h"
#include "parameters/StringParameter.h"
#include "product/Velmarin.h"
#include "product/VelmarinParameterManager.h"

#include <gtest/gtest.h>

namespace
{
std::unique_ptr<juce::XmlElement> xml(const char* text)
{
    auto e = juce::parseXML(juce::String(text));
    EXPECT_NE(e, nullptr);
    return e;
}
} // namespace

TEST(ParameterManagerGrammar, ReadsEveryTypeWordWithItsInitialValue)
{
    ParameterManager m;
    m.readXml(*xml(R"(<pluginparameters application="Test">
        <param index="1" name="f" min="-2" max="2" value="1.5" auto="yes" unit=" dB" format="decimal.2"/>
        <param index="2" name="i" type="int" min="0" max="10" value="12"/>
        <param index="3" name="s" type="string" value="hello"/>
        <param index="4" name="b" type="bool" value="true"/>
        <param index="5" name="st" type="state" value="ON"/>
        <param index="6" name="l" type="logic" value="1"/>
        <param index="7" name="a" type="answer" value="yes"/>
        <param index="8" name="e" type="enum" enum="x;y;z" value="y" meta="1"/>
        <param index="9" name="n" type="note" value="C#5"/>
        <param index="10" name="n2" type="note" value="60"/>
        <param index="11" name="nv"/>
        <other index="12" name="skipped"/>
        <PARAM index="13" name="upper" type="int"/>
      </pluginparameters>)"));

    EXPECT_EQ(m.getApplicationName(), "Test");
    EXPECT_EQ(m.getNumParameters(), 12);
    auto* f = dynamic_cast<FloatParameter*>(m.getParameter(1));
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(f->getFloat(), 1.5f);
    EXPECT_TRUE(f->isAutomatable());
    EXPECT_EQ(f->getUnit(), " dB");
    EXPECT_EQ(f->getFormat(), 6);
    EXPECT_EQ(m.getParameter(2)->getInt(), 10);
    EXPECT_EQ(m.getText(3), "hello");
    EXPECT_TRUE(m.getBool(4));
    EXPECT_NE(dynamic_cast<StateParameter*>(m.getParameter(5)), nullptr);
    EXPECT_TRUE(m.getBool(5));
    EXPECT_TRUE(m.getBool(6));
    EXPECT_TRUE(m.getBool(7));
    EXPECT_EQ(m.getText(8), "y");
    EXPECT_TRUE(m.getParameter(8)->isMeta());
    EXPECT_EQ(m.getParameter(9)->getInt(), 61);
    EXPECT_EQ(m.getParameter(10)->getInt(), 0) << "a number is no note name";
    EXPECT_NE(dynamic_cast<FloatParameter*>(m.getParameter(11)), nullptr) << "no type means float";
    EXPECT_EQ(m.getParameter(11)->getFloat(), 0.0f);
    EXPECT_EQ(m.getParameter(12), nullptr);
    EXPECT_NE(m.getParameter(13), nullptr) << "the param tag ignores case";
}

TEST(ParameterManagerGrammar, DuplicatesAndIncompleteRowsLoseSilently)
{
    ParameterManager m;
    m.readXml(*xml(R"(<PluginParameters>
        <param index="1" name="first" value="0.25"/>
        <param index="1" name="second"/>
        <param index="2" name="first"/>
        <param name="noIndex"/>
        <param index="-1" name="minusOne"/>
        <param index="3"/>
        <param index="4" name=""/>
        <param index="5" name="fmt" format="decimal.4"/>
        <param index="6" name="noItems" type="enum"/>
      </PluginParameters>)"));
    EXPECT_EQ(m.getNumParameters(), 3);
    EXPECT_EQ(m.getName(1), "first");
    EXPECT_EQ(m.getParameter("second"), nullptr);
    EXPECT_EQ(m.getParameter(2), nullptr);
    EXPECT_EQ(m.getParameter("minusOne"), nullptr);
    EXPECT_EQ(m.getParameter(5)->getFormat(), 0);
    EXPECT_EQ(m.getText(6), "");
    EXPECT_EQ(m.getName(99), "");
    EXPECT_EQ(m.getText(99), "");
    EXPECT_FALSE(m.getBool(99));
}

TEST(ParameterManagerGrammar, AnotherRootLeavesTheManagerEmpty)
{
    ParameterManager m;
    m.readXml(*xml(R"(<PluginParameters><param index="1" name="a"/></PluginParameters>)"));
    ASSERT_EQ(m.getNumParameters(), 1);
    m.readXml(*xml(R"(<Parameters application="X"><param index="1" name="a"/></Parameters>)"));
    EXPECT_EQ(m.getNumParameters(), 0);
    EXPECT_EQ(m.getApplicationName(), "X");
}

TEST(ParameterManager, AddParameterRefusesTakenIndexOrName)
{
    ParameterManager m;
    auto* a = new BoolParameter(1, "a");
    EXPECT_EQ(m.addParameter(a), 1);
    EXPECT_EQ(m.addParameter(a), 0) << "the same pointer again";
    EXPECT_EQ(m.addParameter(new BoolParameter(1, "b")), 0);
    EXPECT_EQ(m.addParameter(new BoolParameter(2, "a")), 0);
    EXPECT_EQ(m.getNumParameters(), 1);
}

TEST(ParameterManager, CopyValueAndDefaults)
{
    ParameterManager m;
    m.addParameter(new FloatParameter(1, "a", 0.0f, 1.0f, 0.25f));
    m.addParameter(new FloatParameter(2, "b", 0.0f, 1.0f, 0.75f));
    m.captureDefaults();
    m.copyValue(1, 2);
    EXPECT_EQ(m.getParameter(1)->getFloat(), 0.75f);
    m.copyValue(1, 99);
    EXPECT_EQ(m.getParameter(1)->getFloat(), 0.75f);
    float d = -1.0f;
    EXPECT_TRUE(m.getDefaultValue(1, d));
    EXPECT_EQ(d, 0.25f);
    EXPECT_FALSE(m.getDefaultValue(99, d));
}

TEST(PluginResources, FindsEmbeddedFilesByNameAndType)
{
    const auto resources = Velmarin::getResources();
    EXPECT_TRUE(resources.getText("parameters.xml").contains("PluginParameters"));
    EXPECT_TRUE(resources.getData("events.xml").isEmpty());
    EXPECT_TRUE(resources.getData("parameters").isEmpty());
    EXPECT_TRUE(resources.getData("parameters.txt").isEmpty());
    EXPECT_TRUE(PluginResources().getText("parameters.xml").isEmpty()) << "no look-up, no resources";
}

TEST(ProductTable, RowsStandAtTheirIndicesTheHostsOnesFirstAndEveryFloatHasAFormatter)
{
    VelmarinParameterManager m;
    m.loadFromResource(Velmarin::getResources(), "parameters.xml");
    ASSERT_EQ(m.getNumParameters(), 30);
    for (int i = 0; i < 30; ++i)
    {
        auto* p = m.getParameters()[i];
        EXPECT_EQ(p->getIndex(), i);
        EXPECT_EQ(p->isAutomatable(), i < 28) << p->getName();
        EXPECT_EQ(p->getFormatter() != nullptr, dynamic_cast<FloatParameter*>(p) != nullptr) << p->getName();
    }

    Velmarin plugin{testsupport::privateFolders()};
    const auto& all = plugin.getParameterManager().getParameters();
    ASSERT_EQ(all.size(), 35);
    const int order[] = {100000, 100001, 100003, 100002, 100004};
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(all[30 + i]->getIndex(), order[i]);
    for (int i = 31; i < 35; ++i)
        EXPECT_EQ(dynamic_cast<EnumParameter*>(all[i])->getItemsText(),
                  dynamic_cast<EnumParameter*>(all[29])->getItemsText())
            << "the qualities are clones of Processing Quality";
    EXPECT_EQ(plugin.getQualityParameter(), plugin.getParameterManager().getParameter(29));
}

TEST(EventsMap, BuiltInEventsAndTheirRules)
{
    EventsMap events;
    events.addBuiltInEvents();
    EXPECT_EQ(events.getName(1000), "Options");
    EXPECT_EQ(events.getName(999), "");
    EXPECT_FALSE(events.add(2000, "Options"));
    EXPECT_EQ(events.getUid("Options"), 1000);
    EXPECT_FALSE(events.add(1000, "Other"));

    auto doc =
        xml(R"(<eventsmap><event uid="5" name="Five"/><EVENT uid="6" name="Six"/><x uid="7" name="x"/></eventsmap>)");
    events.readXml(*doc);
    EXPECT_EQ(events.size(), 2);
    EXPECT_EQ(events.getName(6), "Six");
    events.readXml(*xml("<Events><event uid=\"1\" name=\"a\"/></Events>"));
    EXPECT_EQ(events.size(), 0);
}
