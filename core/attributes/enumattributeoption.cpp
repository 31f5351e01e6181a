#include "core/attributes/enumattributeoption.h"

#include <utility>

namespace OMC {

EnumAttributeOption::EnumAttributeOption(const QString& name, QString value) : m_name(name), m_value(std::move(value))
{}

EnumAttributeOption::EnumAttributeOption(const EnumAttributeOption& other)
    : BaseObject(),
      m_name(other.m_name),
      m_value(other.m_value)
{}

std::string EnumAttributeOption::__str__() const
{
    return m_name.toStdString();
}

} // namespace OMC
