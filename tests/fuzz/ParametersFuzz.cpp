// The parameter description (parameters.xml) through the product's parameter manager, and every
// parameter it defines through the calls a host, a preset and the editor make.
#include "FuzzSupport.h"

#include "io/XmlInput.h"
#include "parameters/FloatParameter.h"
#include "parameters/IntParameter.h"
#include "product/VelmarinParameterManager.h"

#include <memory>

int fuzzParameters(const uint8_t* data, size_t size)
{
    static auto* const manager = new VelmarinParameterManager();

    const auto root = XmlInput::parse(fuzz::textOf(data, size));
    if (root == nullptr)
        return 0;
    manager->readXml(*root);

    for (auto* p : manager->getParameters())
    {
        // Indices and names are unique, so each parameter is found under both.
        FUZZ_CHECK(manager->getParameter(p->getIndex()) == p);
        FUZZ_CHECK(manager->getParameter(p->getName()) == p);

        (void)p->getDisplayText();
        (void)p->getVar();

        // A value's own text reads back as the same value (an int row with its bounds the wrong
        // way round clamps each way in turn, as its definition asks; a float's "-0" reads as 0).
        const auto text = p->getText();
        p->setText(text, true);
        const auto* asInt = dynamic_cast<const IntParameter*>(p);
        if (dynamic_cast<const FloatParameter*>(p) != nullptr)
            FUZZ_CHECK(p->getText() == text || p->getText().getDoubleValue() == text.getDoubleValue());
        else if (asInt == nullptr || asInt->getMinimum() <= asInt->getMaximum())
            FUZZ_CHECK(p->getText() == text);

        const std::unique_ptr<Parameter> copy(p->clone(p->getIndex(), p->getName()));
        FUZZ_CHECK(copy->getText() == p->getText());

        for (const float n : {0.0f, 0.5f, 1.0f})
        {
            p->setNormalized(n, true);
            (void)p->getDisplayText();
            p->setText(p->getText(), false);
        }
        p->setBool(true, false);
        p->copyFrom(*copy, true);
    }
    return 0;
}
