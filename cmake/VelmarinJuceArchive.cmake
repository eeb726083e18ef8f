# velmarin_juce_archive(NAME COMPILED_MODULES...): a static library that compiles the sources of the
# named JUCE modules only, with the definitions and include folders of every module. The sources of
# the other modules are marked as headers in the calling folder, so this archive skips them.
function(velmarin_juce_archive name)
  set(compiled ${ARGN})
  add_library(${name} STATIC)
  foreach(module IN LISTS VELMARIN_JUCE_ALL_MODULES)
    target_link_libraries(${name} PRIVATE juce::${module})
    if(NOT module IN_LIST compiled)
      get_target_property(sources juce::${module} INTERFACE_SOURCES)
      set_source_files_properties(${sources} PROPERTIES HEADER_FILE_ONLY TRUE)
    endif()
  endforeach()
  target_link_libraries(${name} PUBLIC velmarin_juce_settings PkgConfig::VELMARIN_CODECS PkgConfig::VELMARIN_IMAGE_CODECS)
  # Consumers compile against the same module headers and definitions that built the archive.
  target_compile_definitions(${name} INTERFACE $<TARGET_PROPERTY:${name},COMPILE_DEFINITIONS>)
  target_include_directories(${name} SYSTEM INTERFACE $<TARGET_PROPERTY:${name},INCLUDE_DIRECTORIES>)
  target_compile_features(${name} PUBLIC cxx_std_20)
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
endfunction()
