#include "core/attributes/attributewrappervisitor.h"

#include "core/attributes/boolattribute.h"
#include "core/attributes/doubleattribute.h"
#include "core/attributes/intattribute.h"
#include "core/attributes/textattribute.h"

namespace OMC {

AttributeWrapperVisitor::AttributeWrapperVisitor(const QStringList& parentPath) : m_parentPath(parentPath) {}

AttributeWrapperVisitor::~AttributeWrapperVisitor() = default;

void AttributeWrapperVisitor::visit(AT_Attr& attr)
{
    make<Attribute>(attr);
}

void AttributeWrapperVisitor::visit(AT_BoolAttr& attr)
{
    make<BoolAttribute>(attr);
}

void AttributeWrapperVisitor::visit(AT_IntAttr& attr)
{
    make<IntAttribute>(attr);
}

void AttributeWrapperVisitor::visit(AT_DoubleAttr& attr)
{
    make<DoubleAttribute>(attr);
}

void AttributeWrapperVisitor::visit(AT_StringAttr& attr)
{
    make<TextAttribute>(attr);
}

Attribute* AttributeWrapperVisitor::take()
{
    return m_wrapper.release();
}

template <typename Wrapper>
void AttributeWrapperVisitor::make(AT_Attr& attr)
{
    m_wrapper = std::make_unique<Wrapper>(attr.node(), m_parentPath, attr.meta().keyword());
}

} // namespace OMC
