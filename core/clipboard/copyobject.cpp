#include "core/clipboard/copyobject.h"

namespace OMC {

CopyObject::CopyObject(const DD_DragObject& object) : m_object(object) {}

std::string CopyObject::__str__() const
{
    return "CopyObject()";
}

const DD_DragObject& CopyObject::getObject() const
{
    validate();
    return m_object;
}

void CopyObject::validate() const
{
    if (!m_object.isValid())
        throwInvalid();
}

} // namespace OMC
