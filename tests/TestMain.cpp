// Runs the tests with JUCE's message machinery set up, as it is inside a host. Tests that look at
// files give each instance folders of their own; every other instance follows the product's folder
// rule, whose user folder JUCE finds under HOME on Linux. So the run gives itself a private HOME,
// and no test reads or rewrites a user's real settings.
#include <gtest/gtest.h>
#include <juce_events/juce_events.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace
{
/** HOME points at a fresh temporary folder while this lives; the previous value (or its absence)
    comes back, and the folder goes, when it ends. */
class PrivateHome
{
public:
    PrivateHome()
    {
        if (const char* previousHome = std::getenv("HOME"))
            previous = previousHome;
        folder.createDirectory();
        setenv("HOME", folder.getFullPathName().toRawUTF8(), 1);
    }
    ~PrivateHome()
    {
        if (previous)
            setenv("HOME", previous->c_str(), 1);
        else
            unsetenv("HOME");
        folder.deleteRecursively();
    }

    PrivateHome(const PrivateHome&) = delete;
    PrivateHome& operator=(const PrivateHome&) = delete;

private:
    std::optional<std::string> previous;
    juce::File folder = juce::File::getSpecialLocation(juce::File::tempDirectory)
                            .getNonexistentChildFile("velmarin-tests-home-" + juce::Uuid().toDashedString(), {}, false);
};
} // namespace

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    const PrivateHome home;
    const juce::ScopedJuceInitialiser_GUI juce;
    return RUN_ALL_TESTS();
}
