// What LV2 hosts read of the plug-in: the Turtle description the build writes into the bundle.
// Each host parameter must have its own URI, or a host's writes land on the wrong parameter.
#include "PrivateFolders.h"
#include "product/VelmarinProcessor.h"

#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <string>

namespace
{
std::string readBundleFile(const char* name)
{
    return juce::File(VELMARIN_LV2_BUNDLE).getChildFile(name).loadFileAsString().toStdString();
}
} // namespace

TEST(Lv2Description, EveryHostParameterHasItsOwnUriAndTheDefaultListsLabelAndTheAddressIsAnIri)
{
    const auto ttl = readBundleFile("dsp.ttl");
    ASSERT_FALSE(ttl.empty()) << "no dsp.ttl in " << VELMARIN_LV2_BUNDLE;

    const std::regex parameter(R"re((\S+)\s+a lv2:Parameter\s*;\s*rdfs:label "([^"]*)")re");
    std::vector<std::pair<std::string, std::string>> found;
    for (auto it = std::sregex_iterator(ttl.begin(), ttl.end(), parameter); it != std::sregex_iterator(); ++it)
        found.emplace_back((*it)[1].str(), (*it)[2].str());

    VelmarinProcessor processor{testsupport::privateFolders()};
    ASSERT_EQ(found.size(), 28u);
    std::set<std::string> uris;
    for (size_t i = 0; i < found.size(); ++i)
    {
        uris.insert(found[i].first);
        EXPECT_EQ(found[i].first, "plug:hostParam" + std::to_string(i + 1));
        EXPECT_EQ(found[i].second, processor.getParameters()[static_cast<int>(i)]->getName(100).toStdString());
    }
    EXPECT_EQ(uris.size(), 28u);
    EXPECT_NE(ttl.find("@prefix plug:  <" VELMARIN_LV2_URI ":>"), std::string::npos);
    EXPECT_NE(ttl.find("foaf:mbox <mailto:support@q41group.com>"), std::string::npos) << "the address is a mailto IRI";
}
