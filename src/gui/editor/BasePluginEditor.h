#pragma once

// The editor: one component the plug-in makes at start-up and keeps for its whole life; the host's
// window only wraps it. It shows the skin's main panel above a status bar, loads and switches
// skins, hosts the dialogs and floating panels, and decides what a mouse gesture on a control means
// beyond the control's own handling (Shift-click and double-click reset a parameter, a right click
// opens the parameter info panel).

#include "ParameterInfo.h"
#include "PresetChangedAlert.h"
#include "SkinName.h"
#include "StatusBar.h"
#include "gui/controls/GFXAnimation.h"
#include "gui/core/FloatingPanelHost.h"
#include "gui/core/GUIController.h"
#include "gui/skin/GFXPanel.h"
#include "gui/skin/SkinList.h"
#include "gui/widgets/DefaultLookAndFeel.h"
#include "gui/widgets/HardLabel.h"
#include "gui/widgets/WindowComponent.h"
#include "plugin/PluginEditor.h"

#include <functional>
#include <optional>

class BasePlugin;
class SoftwareDesignation;

/** Thread: message thread, except `requestSkin`, which any thread may call (a host restoring state
    does so on its own thread): it only stores the name and triggers the asynchronous update. */
class BasePluginEditor : public juce::Component,
                         public juce::AsyncUpdater,
                         public Parameter::Listener,
                         public GUIController::Listener,
                         public juce::Timer,
                         public FloatingPanelHost,
                         public FloatingComponentOwner,
                         public ParameterInfo::Listener,
                         public ModalComponent::Desktop,
                         public Q41::AlertWindow::Caller,
                         public PluginEditor
{
public:
    static constexpr int tickMilliseconds = 25;
    static constexpr const char* loadingMessage = "Loading skin...";

    BasePluginEditor(BasePlugin& plugin, bool skinned);
    ~BasePluginEditor() override;

    /** The second stage of construction: settings, skins. */
    void initialise() override;
    juce::Component& getComponent() override { return *this; }
    void startTicking() override { startTimer(tickMilliseconds); }
    void stopTicking() override { stopTimer(); }

    // Size.
    /** The only way to change the size: the panel's height, plus the status bar below it. */
    void setEditorSize(int width, int height);
    int getPanelHeight() const noexcept { return panelHeight; }

    // Skins.
    /** Asks for a skin; returns at once. Any thread. */
    void requestSkin(const juce::String& name);
    /** Loads a skin now; false (with the old panel and name kept) when it gives no panel. */
    bool loadSkin(const juce::String& name);
    /** Loads the skin asked for if it differs from the one shown (the wrapper calls this as it opens). */
    void settlePendingSkin() override;
    juce::File getSkinFile(const juce::String& name) const;
    juce::String getPreferredSkin() const { return preferredSkin.get(); }
    void setPreferredSkin(const juce::String& name) { preferredSkin.set(name); }
    juce::String getCurrentSkin() const { return currentSkin.get(); }
    juce::String getPendingSkin() const { return pendingSkin.get(); }
    const juce::File& getSkinsDirectory() const noexcept { return skinsDirectory; }
    /** The skin list of the skins folder, made by `initialise`; null before. */
    const SkinList* getSkinList() const noexcept { return skinList.get(); }
    /** Where the first display's bounds come from when the default skin is chosen; tests set it. */
    std::function<std::optional<juce::Rectangle<int>>()> firstDisplay = SkinList::firstDisplayBounds;
    GFXPanel* getMainPanel() const noexcept { return mainPanel.get(); }

    // Status bar and parameters.
    StatusBar& getStatusBar() noexcept { return statusBar; }
    void showParameterInStatusBar(Parameter& parameter);
    /** Resets the parameter under a mouse event to its default: always with `force`, else only for a
        control that resets on a double click. True when a parameter was reset. */
    bool resetParameter(const juce::MouseEvent& event, bool force);

    // Floating panels and dialogs.
    void showFloating(juce::Component* panel, juce::Point<int> position, juce::Component* anchor,
                      FloatingComponentOwner* owner) override;
    void hideFloating(juce::Component* panel, juce::Component* clicked) override;
    juce::Component* getFloating() const noexcept { return floating.getComponent(); }
    /** What closes the open floating panel on a press outside it: a mouse listener of the whole
        editor while a panel is open. */
    juce::MouseListener& getFloatingHider() noexcept { return hider; }
    juce::Rectangle<int> getDesktopArea() const override { return getLocalBounds(); }
    WindowComponent& getOptionsWindow() noexcept { return optionsWindow; }
    /** The about window, once shown; null before. */
    WindowComponent* getAboutWindow() const noexcept { return aboutWindow.get(); }

    /** The text at the right of the status bar that tells a development build apart: the version
        texts, the branch (or the designation's extra text on a release branch that has one), the
        build date and the revision, joined by " | ". Empty for a "master" build, which shows none. */
    static juce::String buildLabelText(const SoftwareDesignation& designation);
    const HardLabel& getBuildLabel() const noexcept { return buildLabel; }
    /** The controls of the generic layout (an editor without a skin that asks for them). */
    const std::vector<std::unique_ptr<GUIController>>& getGenericControls() const noexcept { return genericControls; }

    // The editor's elements in the settings file and the state chunk.
    virtual juce::String getSettingsTag() { return "Editor"; }
    bool isSettingsTag(const juce::XmlElement& element) override { return element.hasTagName(getSettingsTag()); }
    std::unique_ptr<juce::XmlElement> createUserSettings() override;
    void applyUserSettings(const juce::XmlElement& element) override;
    std::unique_ptr<juce::XmlElement> createStateXml() override;
    void applyStateXml(const juce::XmlElement& element) override;
    bool getPresetChangeWarning() const noexcept { return presetChangeWarning; }

    // Presets.
    /** The preset events a skin raises: next and previous (1002, 1003; with a changed preset and
        the warning on, `PresetChangedAlert` asks first), browse and save (1004, 1005; the
        browser's), restore default and restore current (1011, 1012). Nothing without presets. */
    void handlePresetEvent(int eventId);
    /** The warning before a step to another preset, once it was shown; null before. */
    PresetChangedAlert* getPresetChangedAlert() const noexcept { return presetAlert.get(); }
    void alertClosed(Q41::AlertWindow& window, int result) override;

    // Listeners.
    void parameterChanged(Parameter& parameter) override;
    void controllerValueChanged(GUIController& controller) override;
    void controllerEvent(GUIController& controller, int eventId) override;

    // The parameter info panel.
    /** Opens the parameter info panel on a parameter beside the control it came from (closing any
        floating panel and cancelling any learn first), and clears the status bar. */
    void showParameterInfo(Parameter& parameter, juce::Component* anchor);
    /** The open parameter info panel, or null. */
    ParameterInfo* getParameterInfo() const noexcept { return parameterInfo.get(); }
    void sizeChanged(ParameterInfo& info) override;
    void closeRequested(ParameterInfo& info) override;
    /** The editor owns the parameter info panel: however it closes, it is deleted and any learn on
        the MIDI map is cancelled. */
    void floatingClosed(juce::Component* panel, juce::Component* clicked) override;

    void mouseDown(const juce::MouseEvent& event) override;
    void mouseDoubleClick(const juce::MouseEvent& event) override;
    void resized() override;
    void paint(juce::Graphics& g) override;
    void visibilityChanged() override;

protected:
    /** 40 times a second for the editor's life; `visible` while a window shows it. */
    virtual void timerTick(bool visible);
    virtual bool statusBarVisible() { return true; }
    /** A skin was loaded: look up the well-known controls. */
    virtual void skinLoaded();
    virtual void parameterWasReset(int index) { (void)index; }
    virtual std::unique_ptr<WindowComponent> createAboutWindow();
    virtual juce::Rectangle<int> getFloatingWindowSize();
    /** The generic layout, for an editor without a skin panel: whether it is wanted, and where a
        column is left free or a new row starts after the control of a parameter index. */
    virtual bool wantsGenericControls() { return false; }
    virtual bool isColumnBreakAfter(int index)
    {
        (void)index;
        return false;
    }
    virtual bool isRowBreakAfter(int index)
    {
        (void)index;
        return false;
    }

    BasePlugin& plugin;
    GFXAnimation* midiActivity = nullptr;

private:
    class FloatingComponentHider : public juce::MouseListener
    {
    public:
        explicit FloatingComponentHider(BasePluginEditor& e) : editor(e) {}
        void mouseUp(const juce::MouseEvent&) override { armed = true; }
        void mouseDown(const juce::MouseEvent& event) override;
        bool armed = false;

    private:
        BasePluginEditor& editor;
    };

    void placeParameterInfo();
    void showParameterInfoFor(const juce::MouseEvent& event);
    void handleAsyncUpdate() override;
    void timerCallback() override { timerTick(isVisible()); }
    void chooseSkinAtStart();
    bool isInsideMainPanel(const juce::Component* component) const;
    void showAbout();
    void createGenericControls();

    const bool skinned;
    juce::Image q41Logo, pluginLogo;
    DefaultLookAndFeel::Scope look;
    HardLabel buildLabel;
    FloatingComponentHider hider{*this};
    StatusBar statusBar;
    WindowComponent optionsWindow;
    std::unique_ptr<WindowComponent> aboutWindow;
    std::unique_ptr<PresetChangedAlert> presetAlert;
    int presetStepAsked = 0;
    std::unique_ptr<GFXPanel> mainPanel;
    int panelHeight = 0;
    std::vector<std::unique_ptr<GUIController>> genericControls;
    juce::Component::SafePointer<juce::Component> floating;
    FloatingComponentOwner* floatingOwner = nullptr;
    std::unique_ptr<ParameterInfo> parameterInfo;
    /** A closed panel waits here until the message loop deletes it: it may be closing from its own
        button's click. */
    std::unique_ptr<ParameterInfo> closedInfo;
    juce::Component::SafePointer<juce::Component> infoAnchor;
    /** Whether the panel's MIDI section was open, kept from one opening to the next. */
    bool infoExpanded = false;
    juce::File skinsDirectory;
    std::unique_ptr<SkinList> skinList;
    int skinFileCount = 0;
    SkinName preferredSkin, currentSkin, pendingSkin;
    std::atomic<bool> skinRequested{false};
    bool presetChangeWarning = true;
};
