# A corrected copy of JUCE 7.0.5's VST3 client wrapper for the VST3 plug-in.
#
# The wrapper's edit controller keeps its own copy of every parameter value. A host write to the
# controller while the transport is stopped goes on to the plug-in only when it differs from that
# copy. Values that arrive with the audio stream reach the plug-in but leave the copy as it was, so
# a later write of the old copied value is dropped and the plug-in keeps the value from the audio
# stream. A host that sends its pending writes to the controller before it saves the state (JUCE's
# own hosting code does) then saves a state without the value it shows. The correction forwards a
# write equal to the copy as well; the wrapper's own check against the plug-in's current value
# keeps it from doing anything when nothing changed.

include(${CMAKE_CURRENT_LIST_DIR}/VelmarinJuceClientCopy.cmake)

set(_velmarin_client "${JUCE_MODULES_DIR}/juce_audio_plugin_client")
set(_velmarin_patched "${CMAKE_BINARY_DIR}/juce-vst3-client")

file(READ "${_velmarin_client}/VST3/juce_VST3_Wrapper.cpp" _velmarin_wrapper)

set(_velmarin_before [=[
                if (! owner.vst3IsPlaying)
                    setValueAndNotifyIfChanged (param, (float) v);

                changed();
                return true;
            }

            return false;]=])
set(_velmarin_after [=[
                if (! owner.vst3IsPlaying)
                    setValueAndNotifyIfChanged (param, (float) v);

                changed();
                return true;
            }

            // Same as the controller's copy, yet the plug-in may hold another value that came
            // with the audio stream: the host's write still has to reach it.
            if (! owner.vst3IsPlaying)
                setValueAndNotifyIfChanged (param, (float) v);

            return false;]=])

velmarin_correct_or_stop(_velmarin_wrapper "${_velmarin_before}" "${_velmarin_after}"
                         "The VST3 wrapper in ${_velmarin_client}")
# The copy lives elsewhere: its includes of the module's own helpers must name the module's folder.
string(REPLACE "#include \"../utility/" "#include \"${_velmarin_client}/utility/"
       _velmarin_wrapper "${_velmarin_wrapper}")

velmarin_use_client_copy(VST3 "${_velmarin_patched}" juce_VST3_Wrapper.cpp "${_velmarin_wrapper}"
                         "${_velmarin_client}/VST3/juce_VST3_Wrapper.cpp")
