// Runs the tests with JUCE's message machinery set up, as it is inside a host.
#include <gtest/gtest.h>
#include <juce_events/juce_events.h>

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    const juce::ScopedJuceInitialiser_GUI juce;
    return RUN_ALL_TESTS();
}
