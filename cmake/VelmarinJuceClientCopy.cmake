# Helpers for the corrected copies of JUCE 7.0.5's plug-in clients (VelmarinVst3Wrapper.cmake,
# VelmarinLv2Client.cmake). A copy is made at configure time from the installed module; when the
# code a correction expects is not found (another JUCE version), configuration stops rather than
# building an unchecked client.

# Replaces `before` with `after` in the variable named `text_var`; stops configuration when
# `before` is not there. `what` names the file in the message.
function(velmarin_correct_or_stop text_var before after what)
  string(FIND "${${text_var}}" "${before}" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "${what} is not the one the correction in ${CMAKE_CURRENT_LIST_FILE} was written for")
  endif()
  string(REPLACE "${before}" "${after}" corrected "${${text_var}}")
  set(${text_var} "${corrected}" PARENT_SCOPE)
endfunction()

# Writes `text` as `dir/file_name` with a unity source beside it, and makes the plug-in's target
# for `format` (VST3, LV2) compile that instead of the module's own client. `original` is the file
# the copy was made from: a change to it reconfigures.
function(velmarin_use_client_copy format dir file_name text original)
  file(CONFIGURE OUTPUT "${dir}/${file_name}" CONTENT "${text}" @ONLY)
  file(CONFIGURE OUTPUT "${dir}/juce_audio_plugin_client_${format}.cpp"
       CONTENT "#include \"${file_name}\"\n" @ONLY)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${original}")

  # The plug-in's format target compiles the sources of this interface library: swap the client.
  get_target_property(sources juce_audio_plugin_client_${format} INTERFACE_SOURCES)
  list(TRANSFORM sources REPLACE ".*/juce_audio_plugin_client_${format}\\.cpp$"
       "${dir}/juce_audio_plugin_client_${format}.cpp")
  set_target_properties(juce_audio_plugin_client_${format} PROPERTIES INTERFACE_SOURCES "${sources}")
endfunction()
