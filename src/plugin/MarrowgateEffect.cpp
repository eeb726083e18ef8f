#include "MarrowgateEffect.h"

MarrowgateEffect::~MarrowgateEffect()
{
    const juce::ScopedLock lock(coreLock);
    core.reset();
}

std::unique_ptr<MarrowgateEffectCore> MarrowgateEffect::createEffectCore()
{
    return std::make_unique<MarrowgateEffectCore>();
}

void MarrowgateEffect::createCore()
{
    auto fresh = createEffectCore();
    if (fresh != nullptr)
    {
        fresh->context = &sampleRateContext;
        fresh->plugin = this;
    }
    std::unique_ptr<MarrowgateEffectCore> old;
    {
        const juce::ScopedLock lock(coreLock);
        old = std::move(core);
        core = std::move(fresh);
    }
}

void MarrowgateEffect::parameterChanged(Parameter& parameter)
{
    if (core != nullptr)
    {
        const juce::ScopedLock lock(coreLock);
        core->parameterChanged(parameter);
    }
    BasePlugin::parameterChanged(parameter);
}

bool MarrowgateEffect::isBusesLayoutSupported(const juce::AudioProcessor::BusesLayout& layout) const
{
    const int ins = layout.getMainInputChannels();
    const int outs = layout.getMainOutputChannels();
    return (ins == 1 && outs == 2) || (ins == 2 && outs == 2) || (ins == 1 && outs == 1);
}

void MarrowgateEffect::prepare(bool rateChanged, bool)
{
    if (core != nullptr)
    {
        const juce::ScopedLock lock(coreLock);
        core->reset(rateChanged);
    }
    midiQueue.clear();
}

void MarrowgateEffect::process(ProcessContext& context)
{
    auto& buffer = *context.buffer;
    const int numSamples = buffer.getNumSamples();

    // Transport: tempo always, position while playing.
    if (wantsTransport() && context.playHead != nullptr)
    {
        if (const auto position = context.playHead->getPosition())
        {
            const auto bpm = position->getBpm();
            if (bpm.hasValue())
                hostTempo.store(static_cast<float>(*bpm));
            if (core != nullptr)
            {
                const juce::ScopedLock lock(coreLock);
                if (bpm.hasValue())
                    core->setTempo(*bpm);
                if (position->getIsPlaying())
                    if (const auto ppq = position->getPpqPosition())
                        core->setPosition(*ppq);
            }
        }
    }

    stereoInput = context.numInputChannels == 2;
    stereoOutput = context.numOutputChannels == 2;

    // Outputs without an input get a defined signal: mono in, stereo out hands a silent channel 1.
    for (int ch = context.numInputChannels; ch < context.numOutputChannels && ch < buffer.getNumChannels(); ++ch)
        buffer.clear(ch, 0, numSamples);

    const int numChannels = buffer.getNumChannels();
    channel0 = numChannels > 0 ? buffer.getWritePointer(0) : nullptr;
    channel1 = (stereoInput || stereoOutput) && numChannels > 1 ? buffer.getWritePointer(1) : nullptr;
    samplesHandedOver = 0;

    midiQueue.append(*context.midi);

    // The samples up to each event's position run as one stretch; the events at a position apply
    // before that sample. An event the block has already passed, or one beyond its end, waits for a
    // later block.
    pendingSamples = 0;
    int p = 0;
    while (p < numSamples)
    {
        int position = 0;
        if (! midiQueue.peek(position) || position < p || position >= numSamples)
        {
            pendingSamples += numSamples - p;
            break;
        }
        pendingSamples += position - p;
        p = position;
        flushRun(context.bypassed);
        while (midiQueue.peek(position) && position == p)
        {
            // Decided from the raw bytes: making a juce::MidiMessage of a long event (SysEx) would
            // allocate on the audio thread. A Control Change of three bytes fits a message inline.
            const auto& event = midiQueue.current();
            const bool controller = event.numBytes == 3 && (event.data[0] & 0xf0) == 0xb0;
            if (controller)
                handleController(juce::MidiMessage(event.data[0], event.data[1], event.data[2], event.samplePosition));
            midiQueue.consume();
        }
        ++pendingSamples;
        ++p;
    }
    flushRun(context.bypassed);

    midiQueue.carryOver(numSamples);
}

void MarrowgateEffect::flushRun(bool bypassed)
{
    const int n = pendingSamples;
    if (n == 0)
        return;
    if (channel0 == nullptr || ((stereoInput || stereoOutput) && channel1 == nullptr))
    {
        pendingSamples = 0;
        return;
    }

    if (core != nullptr)
    {
        const juce::ScopedLock lock(coreLock);
        if (! stereoOutput)
            core->processMono(channel0, n, bypassed);
        else if (stereoInput)
            core->processStereo(channel0, channel1, channel0, channel1, n, bypassed);
        else
            core->processStereo(channel0, channel0, channel0, channel1, n, bypassed);
    }

    channel0 += n;
    if (stereoInput || stereoOutput)
        channel1 += n;
    samplesHandedOver += n;
    pendingSamples = 0;
}
