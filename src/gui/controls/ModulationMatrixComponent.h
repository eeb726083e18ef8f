#pragma once

#include "gui/core/GUIController.h"
#include "gui/widgets/ComboBoxEx.h"

/** A bipolar amount from -1 to 1, drawn as a bar that fills from the middle, over a scale marked
    "-1.0", "-0.5", "+0.5" and "+1.0". A double click returns it to 0. Thread: message thread. */
class ModulationSlider : public juce::Slider
{
public:
    ModulationSlider();
    void paint(juce::Graphics& g) override;
};

/** A table of modulation rows, each a source, a destination and an amount, with the buttons "Add
    Row", "Delete Row", "Move Up" and "Move Down" acting on the selected row (a click anywhere on a
    row selects it). The rows scroll when there are more than fit.

    The table keeps its rows as its own data: this effect has no modulation targets, so the only
    destination offered is "None", and nothing reads the rows. The control is in the skin grammar
    so that a skin naming it still loads.

    Thread: message thread. */
class ModulationMatrixComponent : public GUIController,
                                  public juce::Component,
                                  public juce::Button::Listener,
                                  public juce::ChangeListener
{
public:
    /** One row's data: indices into the source and destination names, and the amount -1..1. */
    struct RowData
    {
        int source = 0;
        int destination = 0;
        double amount = 0.0;
        bool operator==(const RowData& other) const
        {
            return source == other.source && destination == other.destination && amount == other.amount;
        }
    };

    /** The widgets of one row; it tells the table when the user changed one of them. */
    class Row : public juce::Component, public juce::ChangeBroadcaster
    {
    public:
        explicit Row(ModulationMatrixComponent& owner);
        ~Row() override;
        void show(const RowData& data);
        RowData read() const;
        void setSelected(bool shouldBeSelected);

        void paint(juce::Graphics& g) override;
        void resized() override;
        void mouseDown(const juce::MouseEvent& event) override;

        ComboBoxEx source;
        ComboBoxEx destination;
        ModulationSlider amount;

    private:
        ModulationMatrixComponent& table;
        bool selected = false;
    };

    static const juce::StringArray& getSourceNames();
    static const juce::StringArray& getDestinationNames();

    explicit ModulationMatrixComponent(const juce::String& name);
    ~ModulationMatrixComponent() override;

    /** The controller's words, then `size` (400 by 200 when absent) and `pos`. */
    void load(const juce::XmlElement& element, SkinContext& skin) override;

    int getRowCount() const noexcept { return rows.size(); }
    const RowData& getRowData(int row) const { return rows.getReference(row); }
    Row* getRow(int row) const { return rowComponents[row]; }
    /** Selects a row (-1: none); the buttons that need a selection follow. */
    void selectRow(int row);
    int getSelectedRow() const noexcept { return selectedRow; }

    juce::TextButton& getAddButton() noexcept { return addButton; }
    juce::TextButton& getDeleteButton() noexcept { return deleteButton; }
    juce::TextButton& getMoveUpButton() noexcept { return moveUpButton; }
    juce::TextButton& getMoveDownButton() noexcept { return moveDownButton; }

    void buttonClicked(juce::Button* button) override;
    void changeListenerCallback(juce::ChangeBroadcaster* source) override;
    void paint(juce::Graphics& g) override;
    void resized() override;

    static constexpr int headerHeight = 20;
    static constexpr int rowHeight = 24;
    static constexpr int buttonBarHeight = 28;

private:
    /** Makes the row widgets show the data, one widget row per data row. */
    void rebuildRows();
    void updateButtons();
    juce::Rectangle<int> getTableArea() const;

    juce::Array<RowData> rows;
    juce::OwnedArray<Row> rowComponents;
    int selectedRow = -1;
    juce::Viewport viewport;
    juce::Component rowList;
    juce::TextButton addButton{"Add Row"};
    juce::TextButton deleteButton{"Delete Row"};
    juce::TextButton moveUpButton{"Move Up"};
    juce::TextButton moveDownButton{"Move Down"};
};
