# A corrected copy of JUCE 7.0.5's LV2 client for the LV2 plug-in.
#
# The client writes the maintainer's e-mail address into the bundle's Turtle description as a bare
# IRI, <support@...>, which an RDF reader resolves against the bundle's own location (a file inside
# the bundle). An e-mail address is written as a mailto: IRI; the correction adds the scheme.
#
# The copy is made at configure time from the installed module. When the expected code is not
# found (another JUCE version), configuration stops rather than building an unchecked client.

set(_velmarin_lv2_client "${JUCE_MODULES_DIR}/juce_audio_plugin_client")
set(_velmarin_lv2_patched "${CMAKE_BINARY_DIR}/juce-lv2-client")

file(READ "${_velmarin_lv2_client}/LV2/juce_LV2_Client.cpp" _velmarin_lv2_source)

set(_velmarin_lv2_before [=["\t\tfoaf:mbox <" JucePlugin_ManufacturerEmail "> ;\n"]=])
set(_velmarin_lv2_after [=["\t\tfoaf:mbox <mailto:" JucePlugin_ManufacturerEmail "> ;\n"]=])

string(FIND "${_velmarin_lv2_source}" "${_velmarin_lv2_before}" _velmarin_lv2_at)
if(_velmarin_lv2_at EQUAL -1)
  message(FATAL_ERROR "The LV2 client in ${_velmarin_lv2_client} is not the one the correction in "
                      "cmake/VelmarinLv2Client.cmake was written for")
endif()
string(REPLACE "${_velmarin_lv2_before}" "${_velmarin_lv2_after}" _velmarin_lv2_source "${_velmarin_lv2_source}")

file(CONFIGURE OUTPUT "${_velmarin_lv2_patched}/juce_LV2_Client.cpp" CONTENT "${_velmarin_lv2_source}" @ONLY)
file(CONFIGURE OUTPUT "${_velmarin_lv2_patched}/juce_audio_plugin_client_LV2.cpp"
     CONTENT "#include \"juce_LV2_Client.cpp\"\n" @ONLY)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
             "${_velmarin_lv2_client}/LV2/juce_LV2_Client.cpp")

# The plug-in's LV2 target compiles the sources of this interface library: swap the client.
get_target_property(_velmarin_lv2_sources juce_audio_plugin_client_LV2 INTERFACE_SOURCES)
list(TRANSFORM _velmarin_lv2_sources REPLACE ".*/juce_audio_plugin_client_LV2\\.cpp$"
     "${_velmarin_lv2_patched}/juce_audio_plugin_client_LV2.cpp")
set_target_properties(juce_audio_plugin_client_LV2 PROPERTIES INTERFACE_SOURCES "${_velmarin_lv2_sources}")
