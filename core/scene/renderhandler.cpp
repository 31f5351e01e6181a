#include "core/scene/renderhandler.h"

namespace OMC {

std::string RenderHandler::__str__() const
{
    return "RenderHandler()";
}

} // namespace OMC
