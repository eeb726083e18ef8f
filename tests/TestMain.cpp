// Runs the tests with JUCE's message machinery set up, as it is inside a host. Every plug-in
// instance a test creates keeps its user and data folders in a private temporary folder (through
// the folder rule's environment seam), so no test reads or rewrites a user's real settings.
#include <gtest/gtest.h>
#include <juce_events/juce_events.h>

#include <cstdlib>

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    const juce::ScopedJuceInitialiser_GUI juce;

    const auto folders = juce::File::getSpecialLocation(juce::File::tempDirectory)
                             .getNonexistentChildFile("velmarin-tests", {}, false);
    folders.getChildFile("user").createDirectory();
    folders.getChildFile("data").createDirectory();
    setenv("VELMARIN_USER_DIR", folders.getChildFile("user").getFullPathName().toRawUTF8(), 1);
    setenv("VELMARIN_DATA_DIR", folders.getChildFile("data").getFullPathName().toRawUTF8(), 1);

    const int result = RUN_ALL_TESTS();
    folders.deleteRecursively();
    return result;
}
