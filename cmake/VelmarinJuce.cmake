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

add_library(velmarin_juce STATIC)
target_link_libraries(velmarin_juce
  PRIVATE
    juce::juce_audio_utils
    juce::juce_cryptography
  PUBLIC
    velmarin_juce_settings
    PkgConfig::VELMARIN_CODECS
    PkgConfig::VELMARIN_IMAGE_CODECS)

# Consumers compile against the same module headers and definitions that built the library.
target_compile_definitions(velmarin_juce INTERFACE
  $<TARGET_PROPERTY:velmarin_juce,COMPILE_DEFINITIONS>)
target_include_directories(velmarin_juce SYSTEM INTERFACE
  $<TARGET_PROPERTY:velmarin_juce,INCLUDE_DIRECTORIES>)
target_compile_features(velmarin_juce PUBLIC cxx_std_20)
set_target_properties(velmarin_juce PROPERTIES LINKER_LANGUAGE CXX)

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
  target_compile_options(velmarin_juce PRIVATE -fsanitize=thread -fno-omit-frame-pointer -g)
  target_compile_options(velmarin_code_options INTERFACE -fsanitize=thread -fno-omit-frame-pointer -g)
  target_link_options(velmarin_juce_settings INTERFACE -fsanitize=thread)
endif()

# A fuzzing build (clang only) adds libFuzzer's coverage instrumentation to JUCE and to the
# project's code, on top of the sanitizers. Only the fuzz executables link libFuzzer itself
# (-fsanitize=fuzzer); everything else, unit tests included, still links and runs as usual: the
# sanitizer runtime supplies the coverage hooks.
if(VELMARIN_FUZZ)
  target_compile_options(velmarin_juce PRIVATE -fsanitize=fuzzer-no-link)
  target_compile_options(velmarin_code_options INTERFACE -fsanitize=fuzzer-no-link)
  target_link_options(velmarin_code_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
