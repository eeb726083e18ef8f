#include "BasePluginEditor.h"

#include "AboutWindow.h"
#include "gui/controls/GFXKnob.h"
#include "gui/controls/GFXSwitch.h"
#include "gui/controls/GFXToggleButton.h"
#include "gui/controls/TextInput.h"
#include "gui/core/ComponentSearch.h"
#include "gui/skin/SkinImage.h"
#include "gui/skin/SkinPackage.h"
#include "parameters/BoolParameter.h"
#include "parameters/IntParameter.h"
#include "parameters/StringParameter.h"
#include "plugin/BasePlugin.h"

BasePluginEditor::BasePluginEditor(BasePlugin& p, bool isSkinned)
    : plugin(p), skinned(isSkinned), q41Logo(SkinImage::decode(p.getResources().getData("Q41Logo.png"))),
      pluginLogo(SkinImage::decode(p.getResources().getData("PluginLogo.png")))
{
    addAndMakeVisible(statusBar);
    optionsWindow.setTitle("Default Settings");
    optionsWindow.setSize(560, 250);
    addChildComponent(optionsWindow);
    plugin.getParameterManager().addAsyncListenerToAll(this);
    setEditorSize(800, 600);

    // A development build says which one it is at the right of the status bar; a click hides it.
    if (const auto label = buildLabelText(plugin); label.isNotEmpty())
    {
        buildLabel.setText(label, juce::dontSendNotification);
        buildLabel.setColour(juce::Label::textColourId, juce::Colours::white);
        buildLabel.setJustificationType(juce::Justification::centredRight);
        buildLabel.fitToHeight(DefaultLookAndFeel::statusBarHeight);
        buildLabel.addMouseListener(this, false);
        addAndMakeVisible(buildLabel);
        buildLabel.toBack();
        resized();
    }
}

juce::String BasePluginEditor::buildLabelText(const SoftwareDesignation& designation)
{
    const auto branch = designation.getBranch();
    if (branch == "master")
        return {};
    const auto extra = designation.getReservedText();
    juce::StringArray parts{designation.getVersion(), designation.getFullVersion(),
                            branch.compare("release") >= 0 && extra.isNotEmpty() ? extra : branch,
                            designation.getBuildDate(), designation.getBuildIdentifier()};
    return parts.joinIntoString(" | ");
}

BasePluginEditor::~BasePluginEditor()
{
    stopTimer();
    cancelPendingUpdate();
    plugin.getParameterManager().removeAsyncListenerFromAll(this);
    if (floating != nullptr)
        hideFloating(floating.getComponent(), nullptr);
    if (mainPanel != nullptr)
        mainPanel->removeMouseListener(this);
    buildLabel.removeMouseListener(this);
    presetAlert.reset();
    aboutWindow.reset();
    genericControls.clear();
    mainPanel.reset();
}

void BasePluginEditor::initialise()
{
    if (const auto settings = plugin.readUserSettingsDocument())
        for (auto* child : settings->getChildIterator())
            if (isSettingsTag(*child))
            {
                applyUserSettings(*child);
                break;
            }
    if (skinned)
    {
        skinsDirectory = plugin.getDataDirectory().getChildFile("Skins");
        skinFileCount = SkinList::countPackages(skinsDirectory);
        skinList = std::make_unique<SkinList>(&plugin, SkinPackage::packageFile, skinsDirectory);
        chooseSkinAtStart();
    }
    if (mainPanel == nullptr && wantsGenericControls())
        createGenericControls();
}

void BasePluginEditor::createGenericControls()
{
    // Every parameter of the plug-in's range in rows, in index order: one control of 50 by 80 per
    // parameter, 64 pixels apart, rows 120 apart from (5, 30).
    constexpr int width = 50, height = 80, columnPitch = 64, rowPitch = 120, left = 5, top = 30;
    const int perRow = juce::jmax(1, (getWidth() - 10) / columnPitch);
    int column = 0, row = 0;
    auto& manager = plugin.getParameterManager();
    for (int index = 0; index < plugin.getParameterCount(); ++index)
    {
        auto* parameter = manager.getParameter(index);
        if (parameter == nullptr)
            continue;
        std::unique_ptr<GUIController> control;
        if (dynamic_cast<BoolParameter*>(parameter) != nullptr)
            control = std::make_unique<GFXToggleButton>(parameter->getName());
        else if (dynamic_cast<IntParameter*>(parameter) != nullptr) // choices and notes too
            control = std::make_unique<GFXSwitch>(parameter->getName());
        else
            control = std::make_unique<GFXKnob>(parameter->getName());
        auto* component = dynamic_cast<juce::Component*>(control.get());
        if (column >= perRow)
        {
            column = 0;
            ++row;
        }
        component->setBounds(left + column * columnPitch, top + row * rowPitch, width, height);
        control->connectParameter(parameter);
        control->addListener(this);
        addAndMakeVisible(component);
        genericControls.push_back(std::move(control));

        column += isColumnBreakAfter(index) ? 2 : 1;
        if (isRowBreakAfter(index))
        {
            column = 0;
            ++row;
        }
    }
}

void BasePluginEditor::chooseSkinAtStart()
{
    const auto preferred = preferredSkin.get();
    // The display is asked only when there is a choice to make.
    if ((preferred.isEmpty() || ! getSkinFile(preferred).existsAsFile()) && ! skinList->getRows().empty())
        preferredSkin.set(skinList->defaultSkin(firstDisplay ? firstDisplay() : std::nullopt));
    else if (preferred.isNotEmpty() && ! getSkinFile(preferred).existsAsFile())
        preferredSkin.set({});
    if (preferredSkin.get().isEmpty())
    {
        statusBar.setLastingMessage("Plugin skins not found in directory: '" + skinsDirectory.getFullPathName() +
                                    "'. Please reinstall to repair.");
        return;
    }
    requestSkin(preferredSkin.get());
}

// --- size --------------------------------------------------------------------------------------

void BasePluginEditor::setEditorSize(int width, int height)
{
    panelHeight = height;
    const int total = height + (statusBarVisible() ? DefaultLookAndFeel::statusBarHeight : 0);
    setSize(width, total);
    resized();
    if (auto* wrapper = getParentComponent())
        wrapper->setSize(width, total);
}

void BasePluginEditor::resized()
{
    statusBar.setVisible(statusBarVisible());
    if (statusBarVisible())
    {
        const int labelWidth = buildLabel.isVisible() ? buildLabel.getTextWidth() : 0;
        statusBar.setBounds(0, panelHeight, getWidth() - labelWidth, DefaultLookAndFeel::statusBarHeight);
        buildLabel.setBounds(getWidth() - labelWidth, panelHeight, labelWidth, DefaultLookAndFeel::statusBarHeight);
    }
    repaint();
}

void BasePluginEditor::paint(juce::Graphics& g)
{
    g.fillAll(juce::Colour(DefaultLookAndFeel::Colours::window));
}

// --- skins -------------------------------------------------------------------------------------

juce::File BasePluginEditor::getSkinFile(const juce::String& name) const
{
    return skinsDirectory.getChildFile(name).withFileExtension(SkinPackage::fileExtension);
}

void BasePluginEditor::requestSkin(const juce::String& name)
{
    if (name.equalsIgnoreCase(currentSkin.get()))
        return;
    pendingSkin.set(name);
    skinRequested = true;
    // Hiding panels and the message happen on the message thread, in the update: a host may ask
    // from its own thread while it restores a state.
    triggerAsyncUpdate();
}

void BasePluginEditor::handleAsyncUpdate()
{
    if (skinRequested.exchange(false))
    {
        // The wrapper may have put the skin asked for on screen already, as it opened.
        const auto pending = pendingSkin.get();
        if (pending.isEmpty() || pending.equalsIgnoreCase(currentSkin.get()))
            return;
        optionsWindow.hide();
        if (mainPanel != nullptr)
            mainPanel->setVisible(false);
        statusBar.setLastingMessage(loadingMessage);
        repaint();
        // One more hop, so that the message paints before the load blocks the message thread.
        triggerAsyncUpdate();
        return;
    }
    settlePendingSkin();
}

void BasePluginEditor::settlePendingSkin()
{
    const auto pending = pendingSkin.get();
    if (pending.isNotEmpty() && ! pending.equalsIgnoreCase(currentSkin.get()))
        loadSkin(pending);
}

bool BasePluginEditor::loadSkin(const juce::String& name)
{
    SkinPackage package(&plugin, SkinPackage::packageFile, name, skinsDirectory);
    auto panelComponent = package.createMainPanel();
    auto* panel = dynamic_cast<GFXPanel*>(panelComponent.get());
    if (panel == nullptr)
        return false; // the old panel and name stay, as does the message
    panelComponent.release();

    if (floating != nullptr)
        hideFloating(floating.getComponent(), nullptr);
    if (mainPanel != nullptr)
    {
        mainPanel->removeMouseListener(this);
        removeChildComponent(mainPanel.get());
    }
    midiActivity = nullptr;
    mainPanel.reset(panel);
    addChildComponent(*mainPanel);
    mainPanel->toBack();
    setEditorSize(mainPanel->getWidth(), mainPanel->getHeight());
    static_cast<GUIController*>(mainPanel.get())->addListener(this);
    mainPanel->addMouseListener(this, true);
    currentSkin.set(name);
    skinLoaded();
    mainPanel->setVisible(true);
    statusBar.clearMessage();
    optionsWindow.setSize(560, int(float(panelHeight) * 0.8f));
    return true;
}

void BasePluginEditor::skinLoaded()
{
    midiActivity = ComponentSearch::find<GFXAnimation>(*mainPanel, "MIDIActivity");
    if (auto* name = ComponentSearch::find<TextInput>(*mainPanel, "PresetNameDisplay"))
        name->addMouseListener(this, false);
}

// --- settings and state ------------------------------------------------------------------------

std::unique_ptr<juce::XmlElement> BasePluginEditor::createUserSettings()
{
    auto element = std::make_unique<juce::XmlElement>(getSettingsTag());
    element->setAttribute("presetChangeWarning", presetChangeWarning);
    if (skinned)
        element->createNewChildElement("Skin")->setAttribute("name", preferredSkin.get());
    return element;
}

void BasePluginEditor::applyUserSettings(const juce::XmlElement& element)
{
    presetChangeWarning = element.getBoolAttribute("presetChangeWarning", presetChangeWarning);
    if (auto* skin = element.getChildByName("Skin"))
        preferredSkin.set(skin->getStringAttribute("name"));
}

std::unique_ptr<juce::XmlElement> BasePluginEditor::createStateXml()
{
    auto element = std::make_unique<juce::XmlElement>(getSettingsTag());
    if (skinned)
        element->createNewChildElement("Skin")->setAttribute("name", currentSkin.get());
    return element;
}

void BasePluginEditor::applyStateXml(const juce::XmlElement& element)
{
    if (auto* skin = element.getChildByName("Skin"))
        if (const auto name = skin->getStringAttribute("name"); name.isNotEmpty())
            requestSkin(name);
}

// --- parameters, controls, status bar ------------------------------------------------------------

void BasePluginEditor::parameterChanged(Parameter& parameter)
{
    // A move of a preset's parameter (or of the quality, which a preset remembers with the session)
    // may turn the loaded preset changed or back; the plug-in's check answers once per burst.
    constexpr int realtimeQualityIndex = 100001, offlineQualityIndex = 100003;
    const int index = parameter.getIndex();
    if (plugin.getParameterManager().isParameterProtected(index))
        return;
    if (plugin.isInPresetRange(index) || index == realtimeQualityIndex || index == offlineQualityIndex)
        plugin.getPresetChangeNotifier().trigger();
}

void BasePluginEditor::showParameterInStatusBar(Parameter& parameter)
{
    const auto text = parameter.getDisplayText();
    if (text.isEmpty())
        return;
    const auto name = parameter.getName();
    // "@" means the name says all.
    statusBar.showMessage(text == "@" ? name : name + ": " + text, 6);
}

void BasePluginEditor::controllerValueChanged(GUIController& controller)
{
    // While the parameter info panel is open, the status bar stays quiet.
    if (parameterInfo == nullptr)
        if (auto* parameter = controller.getParameter())
            showParameterInStatusBar(*parameter);
}

namespace
{
constexpr int optionsEvent = 1000, aboutEvent = 1001, nextPresetEvent = 1002, previousPresetEvent = 1003,
              browsePresetsEvent = 1004, savePresetEvent = 1005, restoreDefaultPresetEvent = 1011,
              restoreCurrentPresetEvent = 1012;

bool isPresetEvent(int eventId)
{
    return (eventId >= nextPresetEvent && eventId <= savePresetEvent) || eventId == restoreDefaultPresetEvent ||
           eventId == restoreCurrentPresetEvent;
}
} // namespace

void BasePluginEditor::handlePresetEvent(int eventId)
{
    if (! plugin.supportsPresets())
        return;
    switch (eventId)
    {
    case nextPresetEvent:
    case previousPresetEvent:
        if (plugin.isPresetChanged() && presetChangeWarning)
        {
            presetStepAsked = eventId;
            if (presetAlert == nullptr)
            {
                presetAlert = std::make_unique<PresetChangedAlert>(this);
                addChildComponent(*presetAlert);
            }
            presetAlert->getCheckBox().setToggleState(false, juce::sendNotification);
            presetAlert->show();
            presetAlert->triggerAsyncUpdate(); // the focus goes to "Yes" once it shows
            return;
        }
        // The step itself selects the next or previous item of the browser's list, which loads it;
        // the browser is not built in this editor yet, so there is nothing to step through.
        return;
    case browsePresetsEvent:
    case savePresetEvent:
        return; // the browser's
    case restoreDefaultPresetEvent:
        plugin.restoreDefaultPreset();
        return;
    case restoreCurrentPresetEvent:
        plugin.restoreCurrentPreset();
        return;
    default:
        return;
    }
}

void BasePluginEditor::alertClosed(Q41::AlertWindow& window, int result)
{
    if (&window != presetAlert.get())
        return;
    if (result == Q41::AlertWindow::yes)
    {
        handlePresetEvent(savePresetEvent);
    }
    else if (result == Q41::AlertWindow::no)
    {
        // "No" steps anyway: the changes become the baseline, so the step now goes through.
        presetChangeWarning = ! presetAlert->isDontShowTicked();
        plugin.resetChangeDetector(0);
        handlePresetEvent(presetStepAsked);
    }
}

void BasePluginEditor::controllerEvent(GUIController& controller, int eventId)
{
    if (isPresetEvent(eventId))
    {
        handlePresetEvent(eventId);
    }
    else if (eventId == optionsEvent)
    {
        optionsWindow.show();
        statusBar.clearMessage();
    }
    else if (eventId == aboutEvent)
    {
        showAbout();
        statusBar.clearMessage();
    }
    else
    {
        plugin.handleEvent(eventId);
    }
    if (parameterInfo == nullptr)
        if (auto* parameter = controller.getParameter())
            showParameterInStatusBar(*parameter);
}

bool BasePluginEditor::isInsideMainPanel(const juce::Component* component) const
{
    return mainPanel != nullptr && component != nullptr &&
           (component == mainPanel.get() || mainPanel->isParentOf(component));
}

bool BasePluginEditor::resetParameter(const juce::MouseEvent& event, bool force)
{
    auto* controller = dynamic_cast<GUIController*>(event.originalComponent);
    if (controller == nullptr || (! force && ! controller->resetsOnDoubleClick()))
        return false;
    auto* parameter = controller->getParameterAt(event, nullptr);
    if (parameter == nullptr || ! plugin.resetParameterToDefault(parameter->getIndex()))
        return false;
    parameterWasReset(parameter->getIndex());
    if (parameterInfo == nullptr)
        showParameterInStatusBar(*parameter);
    return true;
}

void BasePluginEditor::mouseDown(const juce::MouseEvent& event)
{
    if (event.eventComponent == &buildLabel)
    {
        buildLabel.setVisible(false);
        resized();
        return;
    }
    if (! isInsideMainPanel(event.originalComponent))
        return;
    const auto& mods = event.mods;
    const bool leftAlone = mods.isLeftButtonDown() && ! mods.isRightButtonDown() && ! mods.isMiddleButtonDown();
    if (leftAlone && mods.isShiftDown())
        resetParameter(event, true);
    else if (mods.isRightButtonDown())
        showParameterInfoFor(event);
}

void BasePluginEditor::showParameterInfoFor(const juce::MouseEvent& event)
{
    auto* component = event.originalComponent;
    juce::Component* hit = nullptr;
    Parameter* parameter = nullptr;
    if (auto* controller = dynamic_cast<GUIController*>(component))
        parameter = controller->getParameterAt(event, &hit);
    else if (auto* widget = dynamic_cast<ParameterController*>(component))
        parameter = widget->getParameters().getFirst();
    if (parameter == nullptr || dynamic_cast<StringParameter*>(parameter) != nullptr)
        return;
    if (parameterInfo != nullptr && &parameterInfo->getParameter() == parameter)
    {
        // Kept as it is. The floating-panel hider hears this press after the editor does and would
        // take it for a press outside the panel: it waits for the release instead.
        hider.armed = false;
        return;
    }
    showParameterInfo(*parameter, hit != nullptr ? hit : component);
}

void BasePluginEditor::mouseDoubleClick(const juce::MouseEvent& event)
{
    if (isInsideMainPanel(event.originalComponent) && event.mods.isLeftButtonDown())
        resetParameter(event, false);
}

// --- floating panels and dialogs -------------------------------------------------------------------

void BasePluginEditor::showFloating(juce::Component* panel, juce::Point<int> position, juce::Component* anchor,
                                    FloatingComponentOwner* owner)
{
    if (panel == nullptr)
        return;
    if (floating != nullptr)
        hideFloating(floating.getComponent(), nullptr);
    addAndMakeVisible(panel);
    panel->toFront(false);
    panel->setTopLeftPosition(anchor != nullptr ? getLocalPoint(anchor, position) : position);
    floating = panel;
    floatingOwner = owner;
    hider.armed = false;
    addMouseListener(&hider, true);
}

void BasePluginEditor::hideFloating(juce::Component* panel, juce::Component* clicked)
{
    if (panel == nullptr || panel != floating.getComponent())
        return;
    panel->setVisible(false);
    removeChildComponent(panel);
    floating = nullptr;
    removeMouseListener(&hider);
    auto* owner = std::exchange(floatingOwner, nullptr);
    if (owner != nullptr)
        owner->floatingClosed(panel, clicked);
}

void BasePluginEditor::floatingClosed(juce::Component* panel, juce::Component*)
{
    if (parameterInfo == nullptr || panel != parameterInfo.get())
        return;
    plugin.getMidiMap().cancelLearning();
    // The panel may be closing from its own "OK" click, so it is not deleted here: it waits in
    // `closedInfo` until the message loop gets back to the editor, or goes with the editor.
    closedInfo = std::move(parameterInfo);
    juce::MessageManager::callAsync(
        [editor = juce::Component::SafePointer<BasePluginEditor>(this)]
        {
            if (editor != nullptr)
                editor->closedInfo.reset();
        });
}

// --- the parameter info panel ----------------------------------------------------------------------

void BasePluginEditor::showParameterInfo(Parameter& parameter, juce::Component* anchor)
{
    auto& map = plugin.getMidiMap();
    map.cancelLearning();
    auto info = std::make_unique<ParameterInfo>(
        parameter, map, plugin.getParameterManager().isParameterVisible(parameter.getIndex()), *this);
    info->setExpanded(infoExpanded, juce::dontSendNotification);
    // Closes any open floating panel first, an earlier parameter info among them.
    showFloating(info.get(), {}, nullptr, this);
    parameterInfo = std::move(info);
    infoAnchor = anchor;
    placeParameterInfo();
    statusBar.clearMessage();
}

void BasePluginEditor::sizeChanged(ParameterInfo& info)
{
    if (&info == parameterInfo.get())
        placeParameterInfo();
}

void BasePluginEditor::closeRequested(ParameterInfo& info)
{
    if (&info == parameterInfo.get())
        hideFloating(&info, nullptr);
}

void BasePluginEditor::placeParameterInfo()
{
    if (parameterInfo == nullptr)
        return;
    auto& info = *parameterInfo;
    infoExpanded = info.isExpanded();
    // Beside the control: right of it if the panel fits in the editor, else left of it; a quarter of
    // the control's height above its centre, raised to stay above the status bar. The panel never
    // starts above or left of the editor.
    auto* anchor = infoAnchor.getComponent();
    const auto area = anchor != nullptr ? getLocalArea(anchor, anchor->getLocalBounds())
                                        : juce::Rectangle<int>(getWidth() / 2, panelHeight / 2, 0, 0);
    const auto centre = area.getCentre();
    int x = centre.x + area.getWidth() / 2;
    if (x + info.getWidth() > getWidth())
        x = centre.x - info.getWidth() - area.getWidth() / 2;
    const int y = juce::jmin(centre.y - area.getHeight() / 4, panelHeight - info.getHeight());
    info.setTopLeftPosition(juce::jmax(0, x), juce::jmax(0, y));
}

void BasePluginEditor::FloatingComponentHider::mouseDown(const juce::MouseEvent& event)
{
    auto* panel = editor.getFloating();
    if (! armed || panel == nullptr)
        return;
    auto* clicked = event.originalComponent;
    if (clicked != panel && ! panel->isParentOf(clicked))
        editor.hideFloating(panel, clicked);
}

juce::Rectangle<int> BasePluginEditor::getFloatingWindowSize()
{
    return {int(float(getWidth()) * 0.8f), int(float(panelHeight) * 0.8f)};
}

std::unique_ptr<WindowComponent> BasePluginEditor::createAboutWindow()
{
    auto window = std::make_unique<AboutWindow>(plugin, q41Logo, pluginLogo);
    // The floating size, held to the editor: a narrow skin would otherwise cut off its frame.
    const auto size = getFloatingWindowSize();
    window->setSize(juce::jmin(size.getWidth(), getWidth() - 20), juce::jmin(size.getHeight(), panelHeight - 20));
    return window;
}

void BasePluginEditor::showAbout()
{
    if (aboutWindow == nullptr)
    {
        aboutWindow = createAboutWindow();
        addChildComponent(*aboutWindow);
    }
    aboutWindow->show();
}

// --- timer -----------------------------------------------------------------------------------------

void BasePluginEditor::visibilityChanged()
{
    timerTick(isVisible());
}

void BasePluginEditor::timerTick(bool visible)
{
    if (visible && midiActivity != nullptr && plugin.getMidiActivity().exchange(0) == 1)
        midiActivity->light(1, 175);
}
