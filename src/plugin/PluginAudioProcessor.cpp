#include "PluginAudioProcessor.h"

#include "BasePlugin.h"
#include "HostParameter.h"

PluginAudioProcessor::PluginAudioProcessor(std::unique_ptr<BasePlugin> productPlugin)
    : juce::AudioProcessor(BusesProperties()
                               .withInput("Input", juce::AudioChannelSet::stereo(), true)
                               .withOutput("Output", juce::AudioChannelSet::stereo(), true)),
      plugin(std::move(productPlugin))
{
    plugin->setProcessor(this);
    plugin->initialise();
    plugin->createCore();
    plugin->finishInitialisation();

    for (int h = 0; h < plugin->getHostParameterCount(); ++h)
        addParameter(new HostParameter(*plugin, h));

    // The last step of start-up: the latency the plug-in reports goes to the host.
    setLatencySamples(plugin->getLatency());
    plugin->getHostMapChanges().addChangeListener(this);
}

PluginAudioProcessor::~PluginAudioProcessor()
{
    plugin->getHostMapChanges().removeChangeListener(this);
    // Settings first, while everything is still alive; then the editor; then the plug-in with its
    // manager and parameters.
    plugin->beginTeardown();
    plugin->deleteEditor();
    plugin.reset();
}

const juce::String PluginAudioProcessor::getName() const
{
    return plugin->getShortName();
}

void PluginAudioProcessor::prepareToPlay(double sampleRate, int maximumExpectedSamplesPerBlock)
{
    plugin->prepareToPlay(sampleRate, maximumExpectedSamplesPerBlock);
}

void PluginAudioProcessor::releaseResources()
{
    plugin->releaseResources();
}

void PluginAudioProcessor::processBlock(juce::AudioBuffer<float>& buffer, juce::MidiBuffer& midi)
{
    plugin->processBlock(buffer, midi, false);
}

void PluginAudioProcessor::processBlockBypassed(juce::AudioBuffer<float>& buffer, juce::MidiBuffer& midi)
{
    plugin->processBlock(buffer, midi, true);
}

bool PluginAudioProcessor::isBusesLayoutSupported(const BusesLayout& layouts) const
{
    return plugin->isBusesLayoutSupported(layouts);
}

namespace
{
/** The component the host's window holds: a thin frame around the plug-in's one editor, which
    lives as long as the plug-in. It takes the editor's size and follows it (a skin switch resizes
    the host's window), and on closing hands the editor back undeleted. */
class EditorWrapper : public juce::AudioProcessorEditor, private juce::ComponentListener
{
public:
    EditorWrapper(juce::AudioProcessor& processor, PluginEditor& e) : juce::AudioProcessorEditor(processor), editor(e)
    {
        editor.settlePendingSkin();
        auto& component = editor.getComponent();
        addAndMakeVisible(component);
        component.setTopLeftPosition(0, 0);
        setSize(juce::jmax(1, component.getWidth()), juce::jmax(1, component.getHeight()));
        component.addComponentListener(this);
    }

    ~EditorWrapper() override
    {
        auto& component = editor.getComponent();
        component.removeComponentListener(this);
        removeChildComponent(&component);
    }

private:
    void componentMovedOrResized(juce::Component& component, bool, bool wasResized) override
    {
        if (wasResized)
            setSize(juce::jmax(1, component.getWidth()), juce::jmax(1, component.getHeight()));
    }

    PluginEditor& editor;
};
} // namespace

juce::AudioProcessorEditor* PluginAudioProcessor::createEditor()
{
    if (auto* editor = plugin->getEditor(); editor != nullptr && ! plugin->isEditorGone())
        return new EditorWrapper(*this, *editor);
    // A product without an editor of its own: the host gets a generic list of the host parameters.
    return new juce::GenericAudioProcessorEditor(*this);
}

void PluginAudioProcessor::getStateInformation(juce::MemoryBlock& destData)
{
    plugin->writeStateToBlock(destData);
}

void PluginAudioProcessor::setStateInformation(const void* data, int sizeInBytes)
{
    plugin->readStateFromBlock(data, sizeInBytes);
}

void PluginAudioProcessor::changeListenerCallback(juce::ChangeBroadcaster*)
{
    updateHostDisplay(ChangeDetails().withParameterInfoChanged(true));
}

HostParameter* PluginAudioProcessor::getHostParameterObject(int hostIndex) const
{
    const auto& list = getParameters();
    return hostIndex >= 0 && hostIndex < list.size() ? dynamic_cast<HostParameter*>(list.getUnchecked(hostIndex))
                                                     : nullptr;
}

void PluginAudioProcessor::sendParameterValueToHost(int hostIndex, float normalizedValue)
{
    if (auto* p = getHostParameterObject(hostIndex))
        p->sendValueChangedMessageToListeners(normalizedValue);
}

void PluginAudioProcessor::sendGestureToHost(int hostIndex, bool starting)
{
    if (auto* p = getHostParameterObject(hostIndex))
    {
        if (starting)
            p->beginChangeGesture();
        else
            p->endChangeGesture();
    }
}
