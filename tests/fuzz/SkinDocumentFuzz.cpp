// A skin document (skin.xml) through the panel builder: every control the builder knows, bound to
// the parameters and events of a real plug-in, then painted. The images the document may name are
// strips made once here, so the fuzzer spends its time on the document.
#include "FuzzSupport.h"

#include "gui/core/SkinContext.h"
#include "gui/skin/GFXPanel.h"
#include "gui/skin/SkinPackage.h"
#include "io/XmlInput.h"
#include "plugin/BasePlugin.h"
#include "product/VelmarinProcessor.h"

namespace
{
class FuzzSkin : public SkinContext
{
public:
    explicit FuzzSkin(BasePlugin& p) : plugin(p) {}
    BasePlugin* getPlugin() const override { return &plugin; }
    juce::Image getImage(const juce::String& fileName) override
    {
        // Any name ending in ".png" is a 32 x 640 strip; others are missing.
        static const juce::Image strip = []
        {
            juce::Image image(juce::Image::ARGB, 32, 640, true);
            juce::Graphics g(image);
            for (int y = 0; y < 640; y += 16)
            {
                g.setColour(juce::Colour(uint8_t(y / 3), 40, 90));
                g.fillRect(0, y, 32, 16);
            }
            return image;
        }();
        return fileName.endsWith(".png") ? strip : juce::Image();
    }
    juce::Font getFont(const juce::String&, int) override { return {}; }

private:
    BasePlugin& plugin;
};
} // namespace

int fuzzSkinDocument(const uint8_t* data, size_t size)
{
    const auto root = XmlInput::parse(fuzz::textOf(data, size));
    if (root == nullptr)
        return 0;
    const auto* element = SkinPackage::findMainPanel(*root);
    if (element == nullptr)
        element = root.get();

    FuzzSkin skin(fuzz::sharedProcessor().getPlugin());
    GFXPanel panel("MainEditorPanel");
    panel.load(*element, skin);
    FUZZ_CHECK(panel.getWidth() >= 0 && panel.getWidth() <= BaseGFXController::maximumExtent);
    FUZZ_CHECK(panel.getHeight() >= 0 && panel.getHeight() <= BaseGFXController::maximumExtent);

    juce::Image canvas(juce::Image::ARGB, 128, 128, true);
    juce::Graphics g(canvas);
    panel.paintEntireComponent(g, false);
    return 0;
}
