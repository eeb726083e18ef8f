#include "ImageComboBox.h"

#include "gui/core/SkinContext.h"
#include "gui/core/SkinXml.h"
#include "parameters/EnumParameter.h"
#include "plugin/BasePlugin.h"

namespace
{
constexpr int valueTextHeight = 14;
} // namespace

ImageComboBox::ImageComboBox(const juce::String& name) : juce::Component(name) {}

ImageComboBox::~ImageComboBox()
{
    if (picker != nullptr)
        if (auto* host = FloatingPanelHost::findFor(*this))
            host->hideFloating(picker.get(), nullptr);
}

void ImageComboBox::loadFromSkin(const juce::XmlElement& element, SkinContext& skin)
{
    const auto position = SkinXml::position(element);
    auto [width, height] = SkinXml::size(element, 0, 0);
    if (auto* gfx = SkinXml::child(element, "gfx"))
    {
        frames = juce::jmax(1, SkinXml::integer(*gfx, "framesNum", 1));
        strip = skin.getImage(gfx->getStringAttribute("resource"));
        if (strip.isValid())
        {
            frameWidth = width = strip.getWidth();
            frameHeight = height = strip.getHeight() / frames;
        }
    }
    if (auto* pickerElement = SkinXml::child(element, "picker"))
    {
        tilesInRow = SkinXml::integer(*pickerElement, "tilesInRow", 0);
        const auto justify = pickerElement->getStringAttribute("justification");
        alignment = justify == "tileAligned" ? 1 : 0;
        alignTile = SkinXml::integer(*pickerElement, "tile", 0);
        xOfs = SkinXml::integer(*pickerElement, "xOfs", 0);
        yOfs = SkinXml::integer(*pickerElement, "yOfs", 0);
        const auto values = pickerElement->getStringAttribute("values", "on");
        showValues = values.isEmpty() || values == "on" || values == "1";
    }
    if (auto* paramElement = SkinXml::child(element, "param"); paramElement != nullptr && skin.getPlugin() != nullptr)
        addParameter(skin.getPlugin()->getParameterManager().getParameter(paramElement->getStringAttribute("name")));
    setBounds(position.x, position.y, width, height);
}

bool ImageComboBox::acceptsParameter(Parameter& p)
{
    return dynamic_cast<EnumParameter*>(&p) != nullptr;
}

void ImageComboBox::parameterUpdated(Parameter& p)
{
    index = p.getInt();
    repaint();
}

void ImageComboBox::paint(juce::Graphics& g)
{
    if (strip.isValid() && frameHeight > 0)
    {
        const int frame = juce::jlimit(0, frames - 1, index);
        g.drawImage(strip, 0, 0, frameWidth, frameHeight, 0, frame * frameHeight, frameWidth, frameHeight);
        return;
    }
    g.fillAll(juce::Colour::greyLevel(0.7f));
    g.setColour(juce::Colours::black);
    g.drawRect(getLocalBounds());
    if (! parameters.isEmpty())
        g.drawText(parameters.getFirst()->getText(), getLocalBounds(), juce::Justification::centred, true);
}

void ImageComboBox::mouseDown(const juce::MouseEvent& event)
{
    if (event.mods.isLeftButtonDown() && ! event.mods.isShiftDown())
        openPicker();
}

juce::Point<int> ImageComboBox::pickerPosition() const
{
    if (picker == nullptr)
        return {};
    if (alignment == 1)
    {
        const auto tile = picker->getTileBounds(juce::jlimit(0, juce::jmax(0, picker->getNumTiles() - 1), alignTile));
        return juce::Point<int>(-tile.getX() + xOfs, -tile.getY() + yOfs);
    }
    return juce::Point<int>(getWidth() / 2 - picker->getWidth() / 2 + xOfs,
                            getHeight() / 2 - picker->getHeight() / 2 + yOfs);
}

void ImageComboBox::openPicker()
{
    auto* host = FloatingPanelHost::findFor(*this);
    if (host == nullptr)
        return;
    if (picker != nullptr)
        host->hideFloating(picker.get(), nullptr);
    picker = std::make_unique<Picker>(*this, parameters.isEmpty() ? nullptr : parameters.getFirst());
    host->showFloating(picker.get(), pickerPosition(), this, this);
}

void ImageComboBox::choose(int tile)
{
    if (! parameters.isEmpty())
    {
        auto* items = dynamic_cast<EnumParameter*>(parameters.getFirst());
        const int highest = items != nullptr ? juce::jmax(0, items->getItems().size() - 1) : 0;
        parameters.getFirst()->setInt(juce::jlimit(0, highest, tile), true);
    }
    if (auto* host = FloatingPanelHost::findFor(*this))
        host->hideFloating(picker.get(), picker.get());
}

void ImageComboBox::floatingClosed(juce::Component* panel, juce::Component*)
{
    // The picker may still be inside its own click: it is hidden now and replaced at the next open.
    if (panel != nullptr && panel == picker.get())
        picker->setVisible(false);
}

ImageComboBox::Picker::Picker(ImageComboBox& o, Parameter* p) : owner(o), parameter(p)
{
    if (auto* enumeration = dynamic_cast<EnumParameter*>(p))
        items = enumeration->getItems();
    tileCount = items.size();
    columns = owner.tilesInRow > 0 ? owner.tilesInRow : juce::jmax(1, tileCount);
    const int rows = tileCount > 0 ? (tileCount + columns - 1) / columns : 0;
    const int tileWidth = juce::jmax(owner.frameWidth, 24);
    const int tileHeight = juce::jmax(owner.frameHeight, 16) + (owner.showValues ? valueTextHeight : 0);
    setSize(juce::jmax(1, juce::jmin(tileCount, columns)) * tileWidth + 4, juce::jmax(1, rows) * tileHeight + 4);
}

juce::Rectangle<int> ImageComboBox::Picker::getTileBounds(int tile) const
{
    const int tileWidth = juce::jmax(owner.frameWidth, 24);
    const int tileHeight = juce::jmax(owner.frameHeight, 16) + (owner.showValues ? valueTextHeight : 0);
    return {2 + (tile % columns) * tileWidth, 2 + (tile / columns) * tileHeight, tileWidth, tileHeight};
}

int ImageComboBox::Picker::getTileAt(juce::Point<int> position) const
{
    for (int tile = 0; tile < tileCount; ++tile)
        if (getTileBounds(tile).contains(position))
            return tile;
    return -1;
}

void ImageComboBox::Picker::paint(juce::Graphics& g)
{
    g.fillAll(findColour(juce::PopupMenu::backgroundColourId));
    for (int tile = 0; tile < tileCount; ++tile)
    {
        const auto area = getTileBounds(tile);
        if (owner.strip.isValid() && owner.frameHeight > 0)
        {
            const int frame = juce::jlimit(0, owner.frames - 1, tile);
            g.drawImage(owner.strip, area.getX(), area.getY(), owner.frameWidth, owner.frameHeight, 0,
                        frame * owner.frameHeight, owner.frameWidth, owner.frameHeight);
        }
        if (owner.showValues)
        {
            g.setColour(findColour(juce::PopupMenu::textColourId));
            g.setFont(juce::Font(12.0f));
            g.drawText(items[tile], area.withTop(area.getBottom() - valueTextHeight), juce::Justification::centred,
                       true);
        }
        if (tile == lastEntered)
        {
            g.setColour(findColour(juce::PopupMenu::highlightedBackgroundColourId));
            g.drawRect(area, 1);
        }
    }
}

void ImageComboBox::Picker::mouseMove(const juce::MouseEvent& event)
{
    const int tile = getTileAt(event.getPosition());
    if (tile >= 0 && tile != lastEntered)
    {
        lastEntered = tile;
        repaint();
    }
}

void ImageComboBox::Picker::mouseUp(const juce::MouseEvent& event)
{
    const int tile = getTileAt(event.getPosition());
    if (tile >= 0)
        owner.choose(tile);
}
