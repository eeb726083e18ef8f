#include "ModulationMatrixComponent.h"

#include "gui/core/BaseGFXController.h"
#include "gui/core/SkinXml.h"
#include "gui/widgets/DefaultLookAndFeel.h"

namespace
{
using Palette = DefaultLookAndFeel::Colours;

/** The source, destination and amount columns of a row or the header, from the left. */
std::array<juce::Rectangle<int>, 3> columnsOf(juce::Rectangle<int> area)
{
    const int width = area.getWidth();
    auto source = area.removeFromLeft(width * 2 / 5);
    auto destination = area.removeFromLeft(width * 3 / 10);
    return {source, destination, area};
}
} // namespace

ModulationSlider::ModulationSlider()
{
    setSliderStyle(juce::Slider::LinearHorizontal);
    setTextBoxStyle(juce::Slider::NoTextBox, true, 0, 0);
    setRange(-1.0, 1.0);
    setValue(0.0, juce::dontSendNotification);
    setDoubleClickReturnValue(true, 0.0);
}

void ModulationSlider::paint(juce::Graphics& g)
{
    auto area = getLocalBounds().toFloat();
    const auto scale = area.removeFromBottom(juce::jmin(9.0f, area.getHeight() / 2.0f));
    const auto track = area.withSizeKeepingCentre(area.getWidth(), juce::jmin(6.0f, area.getHeight()));
    const float middle = float(getPositionOfValue(0.0));
    const float position = float(getPositionOfValue(getValue()));
    const float alpha = isEnabled() ? 1.0f : 0.5f;

    g.setColour(findColour(juce::Slider::backgroundColourId).withMultipliedAlpha(alpha));
    g.fillRoundedRectangle(track, 2.0f);
    g.setColour(findColour(juce::Slider::trackColourId).withMultipliedAlpha(alpha));
    g.fillRect(juce::Rectangle<float>(juce::jmin(middle, position), track.getY(), std::abs(position - middle),
                                      track.getHeight()));
    g.setColour(findColour(juce::Slider::thumbColourId).withMultipliedAlpha(alpha));
    g.fillRect(juce::Rectangle<float>(position - 1.0f, area.getY(), 2.0f, area.getHeight()));

    g.setColour(juce::Colour(Palette::textMuted).withMultipliedAlpha(alpha));
    g.setFont(juce::Font(scale.getHeight()));
    const std::pair<double, const char*> marks[] = {{-1.0, "-1.0"}, {-0.5, "-0.5"}, {0.5, "+0.5"}, {1.0, "+1.0"}};
    for (const auto& [value, text] : marks)
    {
        const float x = float(getPositionOfValue(value));
        auto label = juce::Rectangle<float>(24.0f, scale.getHeight()).withCentre({x, scale.getCentreY()});
        label = label.withX(juce::jlimit(0.0f, juce::jmax(0.0f, float(getWidth()) - label.getWidth()), label.getX()));
        g.drawText(text, label, juce::Justification::centred, false);
    }
}

ModulationMatrixComponent::Row::Row(ModulationMatrixComponent& owner) : table(owner)
{
    source.setName("controllerChoiceMenu");
    for (int i = 0; i < getSourceNames().size(); ++i)
        source.addItem(i + 1, getSourceNames()[i]);
    for (int i = 0; i < getDestinationNames().size(); ++i)
        destination.addItem(i + 1, getDestinationNames()[i]);
    source.onChange = [this] { sendSynchronousChangeMessage(); };
    destination.onChange = [this] { sendSynchronousChangeMessage(); };
    amount.onValueChange = [this] { sendSynchronousChangeMessage(); };
    for (auto* widget : std::initializer_list<juce::Component*>{&source, &destination, &amount})
    {
        addAndMakeVisible(widget);
        // A click on any of the row's widgets selects the row too.
        widget->addMouseListener(this, true);
    }
    addChangeListener(&table);
}

ModulationMatrixComponent::Row::~Row()
{
    for (auto* widget : std::initializer_list<juce::Component*>{&source, &destination, &amount})
        widget->removeMouseListener(this);
    removeChangeListener(&table);
}

void ModulationMatrixComponent::Row::show(const RowData& data)
{
    source.setSelectedId(data.source + 1);
    destination.setSelectedId(data.destination + 1);
    amount.setValue(data.amount, juce::dontSendNotification);
}

ModulationMatrixComponent::RowData ModulationMatrixComponent::Row::read() const
{
    return {juce::jmax(0, source.getSelectedId() - 1), juce::jmax(0, destination.getSelectedId() - 1),
            amount.getValue()};
}

void ModulationMatrixComponent::Row::setSelected(bool shouldBeSelected)
{
    if (selected != shouldBeSelected)
    {
        selected = shouldBeSelected;
        repaint();
    }
}

void ModulationMatrixComponent::Row::paint(juce::Graphics& g)
{
    g.fillAll(juce::Colour(selected ? Palette::surfaceHover : Palette::window));
    g.setColour(juce::Colour(selected ? Palette::accent : Palette::outline));
    g.fillRect(getLocalBounds().removeFromBottom(1));
}

void ModulationMatrixComponent::Row::resized()
{
    const auto columns = columnsOf(getLocalBounds().reduced(2, 2));
    source.setBounds(columns[0].withTrimmedRight(2));
    destination.setBounds(columns[1].withTrimmedRight(2));
    amount.setBounds(columns[2]);
}

void ModulationMatrixComponent::Row::mouseDown(const juce::MouseEvent&)
{
    table.selectRow(table.rowComponents.indexOf(this));
}

const juce::StringArray& ModulationMatrixComponent::getSourceNames()
{
    static const juce::StringArray names{"Modulation",       "Expression", "Pitch Bend", "Velocity", "Pitch",
                                         "Channel Pressure", "Sustain",    "Arpe Gate",  "Arpe Tie"};
    return names;
}

const juce::StringArray& ModulationMatrixComponent::getDestinationNames()
{
    static const juce::StringArray names{"None"};
    return names;
}

ModulationMatrixComponent::ModulationMatrixComponent(const juce::String& name) : juce::Component(name)
{
    viewport.setViewedComponent(&rowList, false);
    viewport.setScrollBarsShown(true, false);
    addAndMakeVisible(viewport);
    for (auto* button : {&addButton, &deleteButton, &moveUpButton, &moveDownButton})
    {
        button->addListener(this);
        addAndMakeVisible(button);
    }
    setSize(400, 200);
    updateButtons();
}

ModulationMatrixComponent::~ModulationMatrixComponent()
{
    for (auto* button : {&addButton, &deleteButton, &moveUpButton, &moveDownButton})
        button->removeListener(this);
    rowComponents.clear();
}

void ModulationMatrixComponent::load(const juce::XmlElement& element, SkinContext& skin)
{
    GUIController::load(element, skin);
    const int extent = BaseGFXController::maximumExtent;
    juce::Rectangle<int> bounds(0, 0, 400, 200);
    if (auto* size = SkinXml::child(element, "size"))
        bounds.setSize(juce::jlimit(0, extent, SkinXml::integer(*size, "width", 0)),
                       juce::jlimit(0, extent, SkinXml::integer(*size, "height", 0)));
    if (auto* pos = SkinXml::child(element, "pos"))
        bounds.setPosition(juce::jlimit(-extent, extent, SkinXml::integer(*pos, "left", 0)),
                           juce::jlimit(-extent, extent, SkinXml::integer(*pos, "top", 0)));
    setBounds(bounds);
}

void ModulationMatrixComponent::selectRow(int row)
{
    selectedRow = juce::isPositiveAndBelow(row, rows.size()) ? row : -1;
    for (int i = 0; i < rowComponents.size(); ++i)
        rowComponents[i]->setSelected(i == selectedRow);
    // The selected row scrolls into view.
    if (auto* selected = rowComponents[selectedRow])
    {
        if (selected->getY() < viewport.getViewPositionY())
            viewport.setViewPosition(0, selected->getY());
        else if (selected->getBottom() > viewport.getViewPositionY() + viewport.getViewHeight())
            viewport.setViewPosition(0, selected->getBottom() - viewport.getViewHeight());
    }
    updateButtons();
}

void ModulationMatrixComponent::buttonClicked(juce::Button* button)
{
    const int row = selectedRow;
    if (button == &addButton)
    {
        rows.add({});
        rebuildRows();
        selectRow(rows.size() - 1);
    }
    else if (button == &deleteButton && row >= 0)
    {
        rows.remove(row);
        rebuildRows();
        selectRow(juce::jmin(row, rows.size() - 1));
    }
    else if (button == &moveUpButton && row > 0)
    {
        rows.swap(row, row - 1);
        rebuildRows();
        selectRow(row - 1);
    }
    else if (button == &moveDownButton && row >= 0 && row < rows.size() - 1)
    {
        rows.swap(row, row + 1);
        rebuildRows();
        selectRow(row + 1);
    }
}

void ModulationMatrixComponent::changeListenerCallback(juce::ChangeBroadcaster* source)
{
    const int row = rowComponents.indexOf(dynamic_cast<Row*>(source));
    if (row >= 0 && row < rows.size())
        rows.set(row, rowComponents[row]->read());
}

void ModulationMatrixComponent::rebuildRows()
{
    while (rowComponents.size() > rows.size())
        rowComponents.removeLast();
    while (rowComponents.size() < rows.size())
        rowList.addAndMakeVisible(rowComponents.add(new Row(*this)));
    for (int i = 0; i < rows.size(); ++i)
        rowComponents[i]->show(rows.getReference(i));
    resized();
}

void ModulationMatrixComponent::updateButtons()
{
    deleteButton.setEnabled(selectedRow >= 0);
    moveUpButton.setEnabled(selectedRow > 0);
    moveDownButton.setEnabled(selectedRow >= 0 && selectedRow < rows.size() - 1);
}

juce::Rectangle<int> ModulationMatrixComponent::getTableArea() const
{
    return getLocalBounds().withTrimmedTop(headerHeight).withTrimmedBottom(buttonBarHeight);
}

void ModulationMatrixComponent::resized()
{
    viewport.setBounds(getTableArea());
    const int rowWidth = viewport.getMaximumVisibleWidth();
    rowList.setSize(rowWidth, rows.size() * rowHeight);
    for (int i = 0; i < rowComponents.size(); ++i)
        rowComponents[i]->setBounds(0, i * rowHeight, rowWidth, rowHeight);

    auto buttons = getLocalBounds().removeFromBottom(buttonBarHeight).reduced(2, 3);
    const int buttonWidth = buttons.getWidth() / 4;
    for (auto* button : {&addButton, &deleteButton, &moveUpButton, &moveDownButton})
        button->setBounds(buttons.removeFromLeft(buttonWidth).reduced(2, 0));
}

void ModulationMatrixComponent::paint(juce::Graphics& g)
{
    g.fillAll(juce::Colour(Palette::window));
    const auto header = getLocalBounds().removeFromTop(headerHeight);
    g.setColour(juce::Colour(Palette::titleBar));
    g.fillRect(header);
    g.setColour(juce::Colour(Palette::textMuted));
    g.setFont(juce::Font(12.0f));
    const auto columns = columnsOf(header.reduced(8, 0));
    const char* titles[] = {"Source", "Destination", "Amount"};
    for (size_t i = 0; i < columns.size(); ++i)
        g.drawText(titles[i], columns[i], juce::Justification::centredLeft, true);
    g.setColour(juce::Colour(Palette::outline));
    g.drawRect(getLocalBounds());
}
