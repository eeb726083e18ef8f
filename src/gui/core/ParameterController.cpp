#include "ParameterController.h"

ParameterController::~ParameterController()
{
    removeAllParameters();
}

void ParameterController::addParameter(Parameter* p)
{
    if (p == nullptr || parameters.contains(p) || ! acceptsParameter(*p))
        return;
    parameters.add(p);
    parameterAdded(*p);
    parameterUpdated(*p);
    p->addAsyncListener(this);
}

void ParameterController::removeAllParameters()
{
    for (auto* p : parameters)
        p->removeAsyncListener(this);
    parameters.clear();
}
