// The guard in front of JUCE's XML parser: it must let every well-formed document without a
// document type through and keep from the parser what would crash or hang it.
#include "io/XmlInput.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
juce::String nested(int depth, const char* inner = "")
{
    std::string text;
    for (int i = 0; i < depth; ++i)
        text += "<a>";
    text += inner;
    for (int i = 0; i < depth; ++i)
        text += "</a>";
    return juce::String(text);
}

int depthOf(const juce::XmlElement& element)
{
    int depth = 1;
    for (const auto* child = element.getFirstChildElement(); child != nullptr; child = child->getFirstChildElement())
        if (child->isTextElement())
            break;
        else
            ++depth;
    return depth;
}
} // namespace

TEST(XmlInput, NestingUpToTheBoundIsReadAndDeeperIsRefusedBeforeTheParserRecurses)
{
    const auto deepest = XmlInput::parse(nested(XmlInput::maximumDepth));
    ASSERT_NE(deepest, nullptr);
    EXPECT_EQ(depthOf(*deepest), XmlInput::maximumDepth);
    EXPECT_EQ(XmlInput::parse(nested(XmlInput::maximumDepth + 1)), nullptr);
    // Deep enough to overflow the stack inside JUCE's parser; also with empty elements inside and
    // as a header-only read.
    EXPECT_EQ(XmlInput::parse(nested(50000)), nullptr);
    EXPECT_EQ(XmlInput::parse(nested(50000, "<b/><c x='1'/>"), true), nullptr);
    // Empty elements and closed siblings do not add depth.
    std::string siblings = "<r>";
    for (int i = 0; i < 1000; ++i)
        siblings += "<a><b/></a>";
    EXPECT_NE(XmlInput::parse(juce::String(siblings + "</r>")), nullptr);
}

TEST(XmlInput, CommentsAndCdataMayHoldAnyText)
{
    const auto preset = XmlInput::parse(juce::String(
        R"(<?xml version="1.0"?><!-- Bass & Drums <? --><Preset author="A &amp; B"><!-- Rock & Roll &nope; <?x -->)"
        R"(<Parameters><![CDATA[ <?pi & <!DOCTYPE x> ]]><param name="Preamp" value="0.5"/></Parameters></Preset>)"));
    ASSERT_NE(preset, nullptr);
    EXPECT_EQ(preset->getStringAttribute("author"), "A & B");
    const auto* parameters = preset->getChildByName("Parameters");
    ASSERT_NE(parameters, nullptr);
    EXPECT_EQ(parameters->getFirstChildElement()->getText(), " <?pi & <!DOCTYPE x> ");
    EXPECT_NE(parameters->getChildByName("param"), nullptr);
}

TEST(XmlInput, ProcessingInstructionsInsideTheRootAreDroppedAndTheRestIsRead)
{
    // JUCE's parser would never return from the first of these.
    const auto root = XmlInput::parse(juce::String("<r>x<?pi?>y<?pi data?> <b v='1'/><?pi?></r><?after?>"));
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->getAllSubText(), "xy ");
    EXPECT_NE(root->getChildByName("b"), nullptr);
}

TEST(XmlInput, DocumentTypesBrokenReferencesAndStrayMarkupAreRefused)
{
    for (const char* text :
         {"<!DOCTYPE r [<!ENTITY e \"<r/>\">]><r>&e;</r>", "<!DOCTYPE r><r/>", "<r>&e;</r>", "<r v=\"&#x;\"/>",
          "<r>&#xD800;</r>", "<r>&#x110000;</r>", "<r>&#65</r>", "<r v='<'/>", "text<r/>", "&amp;<r/>",
          "<![CDATA[x]]><r/>", "<r><!ELEMENT r></r>", "<r><a v= x&#0xp/><b&#x"})
        EXPECT_EQ(XmlInput::parse(juce::String(text)), nullptr) << text;
    for (const char* text : {"<r>&AMP;&#65;&#x10FFFF;</r>", "  <r/>  trailing text is never read", "<r></r>"})
        EXPECT_NE(XmlInput::parse(juce::String(text)), nullptr) << text;
}
