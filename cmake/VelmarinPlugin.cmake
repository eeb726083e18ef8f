# The VST3, LV2 and Standalone plug-in: the product library behind JUCE's format clients.

if(VELMARIN_BUILD_PLUGIN)
  # Identity that hosts store in their projects: never change the codes, the URI or the bundle id.
  set(VELMARIN_LV2_URI "https://q41group.com/plugins/velmarin")

  # After the build JUCE loads the LV2 plug-in once to write its description. That instance starts
  # and tears down like any other, so the step runs through a wrapper that gives it a private HOME
  # in the build tree: a build never writes into a user's real settings folder.
  if(NOT TARGET juce_lv2_helper AND TARGET juce::juce_lv2_helper)
    get_target_property(velmarin_lv2_helper juce::juce_lv2_helper IMPORTED_LOCATION_NONE)
    if(NOT velmarin_lv2_helper)
      get_target_property(velmarin_lv2_helper juce::juce_lv2_helper LOCATION)
    endif()
    set(VELMARIN_LV2_HELPER_FOLDERS "${CMAKE_BINARY_DIR}/plugin/lv2-helper-folders")
    configure_file(${PROJECT_SOURCE_DIR}/cmake/lv2-helper.sh.in ${CMAKE_BINARY_DIR}/plugin/lv2-helper.sh
      FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE
      @ONLY)
    add_executable(juce_lv2_helper IMPORTED GLOBAL)
    set_target_properties(juce_lv2_helper PROPERTIES IMPORTED_LOCATION ${CMAKE_BINARY_DIR}/plugin/lv2-helper.sh)
  endif()

  juce_add_plugin(Velmarin
    PRODUCT_NAME "Velmarin"
    COMPANY_NAME "Q41 Group Audio Software"
    COMPANY_WEBSITE "https://q41group.com"
    COMPANY_EMAIL "support@q41group.com"
    BUNDLE_ID "com.q41group.velmarin"
    VERSION ${PROJECT_VERSION}
    DESCRIPTION "Analog BBD Stereo Flanger"
    PLUGIN_MANUFACTURER_CODE Qfga
    PLUGIN_CODE Vlmr
    FORMATS VST3 LV2 Standalone
    IS_SYNTH FALSE
    NEEDS_MIDI_INPUT TRUE
    NEEDS_MIDI_OUTPUT FALSE
    IS_MIDI_EFFECT FALSE
    EDITOR_WANTS_KEYBOARD_FOCUS FALSE
    VST3_CATEGORIES Fx Modulation
    LV2URI "${VELMARIN_LV2_URI}"
    COPY_PLUGIN_AFTER_BUILD FALSE)

  target_sources(Velmarin PRIVATE ${PROJECT_SOURCE_DIR}/src/product/PluginEntry.cpp)
  # Debian's JUCE fixes the LV2 URI before reading LV2URI, so the definition is set here directly.
  target_compile_definitions(Velmarin PUBLIC
    "JucePlugin_LV2URI=\"${VELMARIN_LV2_URI}\""
    JUCE_VST3_CAN_REPLACE_VST2=0)
  target_link_libraries(Velmarin PRIVATE velmarin_product velmarin_code_options)
endif()
