// Replays every committed corpus file and every kept crash of every fuzz target through the
// target's body, in any build: an input that once crashed or broke a check stays fixed.
#include "FuzzSupport.h"

#include <gtest/gtest.h>

namespace fuzz
{
void PrintTo(const Target& target, std::ostream* out)
{
    *out << target.name;
}
} // namespace fuzz

namespace
{
void recordFailure(const char* check, const char* file, int line)
{
    ADD_FAILURE_AT(file, line) << "check failed: " << check;
}

juce::Array<juce::File> inputsOf(const juce::String& target)
{
    juce::Array<juce::File> inputs;
    const juce::File root(VELMARIN_FUZZ_DIR);
    for (const auto* folder : {"corpus", "regressions"})
        for (const auto& entry : juce::RangedDirectoryIterator(root.getChildFile(folder).getChildFile(target), false,
                                                               "*", juce::File::findFiles))
            if (! entry.getFile().getFileName().startsWithChar('.'))
                inputs.add(entry.getFile());
    inputs.sort();
    return inputs;
}

class FuzzRegression : public ::testing::TestWithParam<fuzz::Target>
{
};

TEST_P(FuzzRegression, everyCommittedInputPassesTheTargetsChecks)
{
    fuzz::setFailureHandler(recordFailure);
    const auto inputs = inputsOf(GetParam().name);
    // A target without seeds would pass here without testing anything.
    ASSERT_FALSE(inputs.isEmpty()) << "no corpus for " << GetParam().name;
    for (const auto& input : inputs)
    {
        SCOPED_TRACE(input.getFullPathName().toStdString());
        juce::MemoryBlock bytes;
        ASSERT_TRUE(input.loadFileAsData(bytes));
        EXPECT_EQ(GetParam().body(static_cast<const uint8_t*>(bytes.getData()), bytes.getSize()), 0);
    }
    fuzz::setFailureHandler(nullptr);
}

INSTANTIATE_TEST_SUITE_P(Targets, FuzzRegression, ::testing::ValuesIn(fuzz::targets, fuzz::targets + fuzz::numTargets),
                         [](const auto& info) { return std::string(info.param.name); });
} // namespace
