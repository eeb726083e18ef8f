#pragma once

// What every fuzz body shares: the table of targets, the check macro, the private folders and the
// one plug-in instance that the bodies needing a whole plug-in work on. A body is an ordinary
// function, so the libFuzzer executables and the regression test replay the same code.

#include <juce_core/juce_core.h>

#include <cstddef>
#include <cstdint>

class VelmarinProcessor;

namespace fuzz
{
using Body = int (*)(const uint8_t* data, size_t size);

struct Target
{
    const char* name; // the folder name under corpus/ and regressions/, and the executable's suffix
    Body body;
};

/** Every fuzz target, in a fixed order. */
extern const Target targets[];
extern const int numTargets;

/** Called when a body's check fails. The default prints the check and aborts, which libFuzzer
    reports as a crash and keeps the input; the regression test installs one that records a test
    failure instead. */
using FailureHandler = void (*)(const char* check, const char* file, int line);
void setFailureHandler(FailureHandler handler);
void fail(const char* check, const char* file, int line);

/** Makes the private user and data folders in a temporary folder (removed at exit), once. */
void usePrivateFolders();

/** One plug-in instance for the whole process, made on first use in the private folders.
    It is never deleted: its teardown would write the settings file after the folder is gone. */
VelmarinProcessor& sharedProcessor();

/** The input as text, decoded as the plug-in decodes a file's bytes (XmlInput::decode). */
juce::String textOf(const uint8_t* data, size_t size);

/** A file in the private folders for bodies that must go through the file system. */
juce::File scratchFile(const juce::String& name);
} // namespace fuzz

#define FUZZ_CHECK(condition) ((condition) ? (void)0 : ::fuzz::fail(#condition, __FILE__, __LINE__))

// The bodies, one for each outside input.
int fuzzStateChunk(const uint8_t* data, size_t size);
int fuzzPreset(const uint8_t* data, size_t size);
int fuzzParameters(const uint8_t* data, size_t size);
int fuzzMidiMap(const uint8_t* data, size_t size);
int fuzzHostMap(const uint8_t* data, size_t size);
int fuzzSettings(const uint8_t* data, size_t size);
int fuzzPackage(const uint8_t* data, size_t size);
int fuzzTags(const uint8_t* data, size_t size);
int fuzzSkinPackage(const uint8_t* data, size_t size);
int fuzzSkinDocument(const uint8_t* data, size_t size);
