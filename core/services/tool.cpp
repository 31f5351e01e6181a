#include "core/services/tool.h"

namespace OMC {

std::string Tool::__str__() const
{
    return "Tool()";
}

std::string ToolList::__str__() const
{
    return "todo";
}

Obj ToolList::get(const QString& name) const
{
    return Container::get(name);
}

void ToolList::set(const QString&, const Obj&)
{
    throw Exception(std::string("Unable to set views."));
}

Obj ToolList::__iter__() const
{
    return new ToolList;
}

} // namespace OMC
