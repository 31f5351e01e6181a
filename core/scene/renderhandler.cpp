#include "core/scene/renderhandler.h"

namespace OMC {

BaseObject* RenderHandler::copy() const
{
    return new RenderHandler;
}

std::string RenderHandler::__str__() const
{
    return "RenderHandler()";
}

} // namespace OMC
