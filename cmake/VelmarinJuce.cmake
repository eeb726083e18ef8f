# The one JUCE configuration of the project.
#
# velmarin_juce is a static library that compiles the JUCE modules once, with every setting below.
# Each layer library, test, tool and the plug-in links it, so no two targets ever see different
# JUCE settings and JUCE is compiled once per build tree, not once per target.

# Debian's JUCE strips its bundled FLAC and Ogg Vorbis sources; the system libraries stand in.
pkg_check_modules(VELMARIN_CODECS REQUIRED IMPORTED_TARGET flac vorbis vorbisenc vorbisfile ogg)
# Debian's JUCE also decodes PNG and JPEG through the system libraries.
pkg_check_modules(VELMARIN_IMAGE_CODECS REQUIRED IMPORTED_TARGET libpng libjpeg)

add_library(velmarin_juce_settings INTERFACE)
target_compile_definitions(velmarin_juce_settings INTERFACE
  JUCE_WEB_BROWSER=0
  JUCE_USE_CURL=0
  JUCE_DISPLAY_SPLASH_SCREEN=0
  JUCE_MODAL_LOOPS_PERMITTED=0
  JUCE_STRICT_REFCOUNTEDPOINTER=1
  JUCE_USE_XRANDR=1
  JUCE_JACK=0
  JUCE_ALSA=1
  JUCE_PLUGINHOST_VST3=0
  JUCE_PLUGINHOST_LV2=0
  JUCE_PLUGINHOST_LADSPA=0
  JUCE_SILENCE_XCODE_15_LINKER_WARNING=1)

# JUCE in two archives, each module compiled once, both with every module's definitions:
#   velmarin_juce_core  juce_core, juce_events, juce_data_structures, juce_audio_basics: what the
#                       lower layers (io, parameters, engine) may use
#   velmarin_juce       every other module (graphics, GUI, audio formats, devices, processors,
#                       plug-in hosting types, cryptography), on top of the first
# Both archives link every module target, so they compile with the same settings; in the folder of
# each archive the other archive's module sources are marked as headers, so neither compiles them.
set(VELMARIN_JUCE_CORE_MODULES juce_core juce_events juce_data_structures juce_audio_basics)
set(VELMARIN_JUCE_ALL_MODULES ${VELMARIN_JUCE_CORE_MODULES} juce_graphics juce_gui_basics juce_gui_extra
    juce_audio_formats juce_audio_devices juce_audio_processors juce_audio_utils juce_cryptography)
add_subdirectory(${CMAKE_CURRENT_LIST_DIR}/juce-core ${CMAKE_BINARY_DIR}/juce-core)
add_subdirectory(${CMAKE_CURRENT_LIST_DIR}/juce-rest ${CMAKE_BINARY_DIR}/juce-rest)

# Options for the project's own code: warnings (JUCE's headers come in as system headers) and, in a
# sanitizer build, AddressSanitizer and UndefinedBehaviorSanitizer. JUCE itself stays uninstrumented
# and compiled exactly as in the plain build, so both builds share it through ccache.
add_library(velmarin_code_options INTERFACE)
target_compile_options(velmarin_code_options INTERFACE -Wall -Wextra)
if(VELMARIN_SANITIZE)
  target_compile_options(velmarin_code_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer -g)
  target_link_options(velmarin_code_options INTERFACE -fsanitize=address,undefined)
endif()

# ThreadSanitizer must see every access, so unlike the build above it instruments JUCE as well.
if(VELMARIN_TSAN)
  if(VELMARIN_SANITIZE)
    message(FATAL_ERROR "VELMARIN_TSAN and VELMARIN_SANITIZE cannot be combined")
  endif()
  target_compile_options(velmarin_juce_core PRIVATE -fsanitize=thread -fno-omit-frame-pointer -g)
  target_compile_options(velmarin_juce PRIVATE -fsanitize=thread -fno-omit-frame-pointer -g)
  target_compile_options(velmarin_code_options INTERFACE -fsanitize=thread -fno-omit-frame-pointer -g)
  target_link_options(velmarin_juce_settings INTERFACE -fsanitize=thread)
endif()

# A fuzzing build (clang only) adds libFuzzer's coverage instrumentation to JUCE and to the
# project's code, on top of the sanitizers. Only the fuzz executables link libFuzzer itself
# (-fsanitize=fuzzer); everything else, unit tests included, still links and runs as usual: the
# sanitizer runtime supplies the coverage hooks.
if(VELMARIN_FUZZ)
  target_compile_options(velmarin_juce_core PRIVATE -fsanitize=fuzzer-no-link)
  target_compile_options(velmarin_juce PRIVATE -fsanitize=fuzzer-no-link)
  target_compile_options(velmarin_code_options INTERFACE -fsanitize=fuzzer-no-link)
  target_link_options(velmarin_code_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
