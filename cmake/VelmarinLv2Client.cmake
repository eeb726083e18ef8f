# A corrected copy of JUCE 7.0.5's LV2 client for the LV2 plug-in.
#
# The client writes the maintainer's e-mail address into the bundle's Turtle description as a bare
# IRI, <support@...>, which an RDF reader resolves against the bundle's own location (a file inside
# the bundle). An e-mail address is written as a mailto: IRI; the correction adds the scheme.

include(${CMAKE_CURRENT_LIST_DIR}/VelmarinJuceClientCopy.cmake)

set(_velmarin_lv2_client "${JUCE_MODULES_DIR}/juce_audio_plugin_client")
set(_velmarin_lv2_patched "${CMAKE_BINARY_DIR}/juce-lv2-client")

file(READ "${_velmarin_lv2_client}/LV2/juce_LV2_Client.cpp" _velmarin_lv2_source)

set(_velmarin_lv2_before [=["\t\tfoaf:mbox <" JucePlugin_ManufacturerEmail "> ;\n"]=])
set(_velmarin_lv2_after [=["\t\tfoaf:mbox <mailto:" JucePlugin_ManufacturerEmail "> ;\n"]=])

velmarin_correct_or_stop(_velmarin_lv2_source "${_velmarin_lv2_before}" "${_velmarin_lv2_after}"
                         "The LV2 client in ${_velmarin_lv2_client}")
velmarin_use_client_copy(LV2 "${_velmarin_lv2_patched}" juce_LV2_Client.cpp "${_velmarin_lv2_source}"
                         "${_velmarin_lv2_client}/LV2/juce_LV2_Client.cpp")
