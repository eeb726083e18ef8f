#pragma once

#include "gui/core/FloatingPanelHost.h"
#include "gui/core/ParameterController.h"
#include "gui/core/SkinWidget.h"

/** A choice shown as one frame of a filmstrip (the frame of the item chosen) that opens a picker of
    tiles, one per item, as a floating panel of the editor. Only item parameters are taken: bound
    to anything else the control is inert, and a click opens a picker with no tiles. Thread:
    message thread. */
class ImageComboBox : public juce::Component,
                      public ParameterController,
                      public FloatingComponentOwner,
                      public SkinWidget
{
public:
    /** The grid of tiles: each draws its frame of the strip, with the item's text under it when
        the skin wants values shown; a click chooses it and closes the picker. */
    class Picker : public juce::Component
    {
    public:
        Picker(ImageComboBox& owner, Parameter* parameter);
        int getNumTiles() const noexcept { return tileCount; }
        juce::Rectangle<int> getTileBounds(int index) const;
        int getTileAt(juce::Point<int> position) const;
        void paint(juce::Graphics& g) override;
        void mouseMove(const juce::MouseEvent& event) override;
        void mouseUp(const juce::MouseEvent& event) override;

    private:
        ImageComboBox& owner;
        Parameter* parameter;
        juce::StringArray items;
        int tileCount = 0;
        int columns = 1;
        int lastEntered = -1;
    };

    explicit ImageComboBox(const juce::String& name);
    ~ImageComboBox() override;

    void loadFromSkin(const juce::XmlElement& element, SkinContext& skin) override;

    bool acceptsParameter(Parameter& parameter) override;
    void parameterUpdated(Parameter& parameter) override;
    void floatingClosed(juce::Component* panel, juce::Component* clicked) override;

    /** Opens a fresh picker through the editor's floating panels. */
    void openPicker();
    Picker* getPicker() const noexcept { return picker.get(); }
    int getIndex() const noexcept { return index; }
    /** Where the picker's top left goes, in this control's coordinates. */
    juce::Point<int> pickerPosition() const;

    void paint(juce::Graphics& g) override;
    void mouseDown(const juce::MouseEvent& event) override;

private:
    friend class Picker;
    void choose(int tile);

    juce::Image strip;
    int frameWidth = 0, frameHeight = 0, frames = 1;
    std::unique_ptr<Picker> picker;
    int index = 0;
    int alignment = 0;
    int alignTile = 0;
    int tilesInRow = 0;
    bool showValues = true;
    int xOfs = 0, yOfs = 0;
};
