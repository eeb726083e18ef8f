// The libFuzzer entry of one target. CMake builds this file once per target with FUZZ_BODY naming
// the target's body.
#include "FuzzSupport.h"

#include <juce_events/juce_events.h>

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    // The message manager exists, as inside a host; its queue is never run, so asynchronous
    // notifications stay pending and cost nothing.
    juce::initialiseJuce_GUI();
    fuzz::usePrivateFolders();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    return FUZZ_BODY(data, size);
}
