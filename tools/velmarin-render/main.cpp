// velmarin-render: renders audio through the Velmarin plug-in from the command line.
#include "RenderJob.h"

#include <juce_events/juce_events.h>

#include <iostream>

int main(int argc, char* argv[])
{
    juce::StringArray args;
    for (int i = 1; i < argc; ++i)
        args.add(juce::String::fromUTF8(argv[i]));

    auto parsed = parseRenderOptions(args);
    if (! parsed.ok())
    {
        std::cerr << "velmarin-render: " << parsed.error << std::endl;
        return 2;
    }
    if (parsed.options.help)
    {
        std::cout << renderUsage();
        return 0;
    }
    if (! parsed.options.asksForOutput())
    {
        std::cerr << renderUsage();
        return 2;
    }

    // Parameters post their asynchronous updates to a message queue, as in a host.
    const juce::ScopedJuceInitialiser_GUI juce;
    RenderJob job(std::move(parsed.options));
    const int status = job.run();
    std::cout << job.output() << std::flush;
    for (const auto& warning : job.warnings())
        std::cerr << "velmarin-render: warning: " << warning << std::endl;
    if (status != 0)
        std::cerr << "velmarin-render: " << job.error() << std::endl;
    return status;
}
