#pragma once

#include "core/attributes/boolattribute.h"
#include "core/attributes/colourattribute.h"
#include "core/attributes/doubleattribute.h"
#include "core/attributes/drawingattribute.h"
#include "core/attributes/elementattribute.h"
#include "core/attributes/enumattribute.h"
#include "core/attributes/intattribute.h"
#include "core/attributes/position2dattribute.h"
#include "core/attributes/position3dattribute.h"
#include "core/attributes/textattribute.h"
#include "core/attributes/timingattribute.h"
#include "core/host/at_attr.h"

#include <QString>

#include <memory>
#include <type_traits>

namespace OMC {

/// The wrapper class for attributes of a host class.
template <typename HostClass, typename WrapperClass>
struct AttributeWrapper {
    using Host = HostClass;
    using Wrapper = WrapperClass;
};

/// The class that a script gets for each kind of attribute, in the order of the host's list of kinds. A kind without a
/// class of its own gets the general one.
template <typename... Rows>
struct AttributeWrapperTable {
    using Kinds = AT_AttrKindList<typename Rows::Host...>;
};
using AttributeWrappers = AttributeWrapperTable<
    AttributeWrapper<AT_BoolAttr, BoolAttribute>, AttributeWrapper<AT_IntAttr, IntAttribute>,
    AttributeWrapper<AT_DoubleVbAttr, DoubleAttribute>, AttributeWrapper<AT_DoubleAttr, DoubleAttribute>,
    AttributeWrapper<AT_StringAttr, TextAttribute>, AttributeWrapper<AT_EnumAttrBase, EnumAttribute>,
    AttributeWrapper<AT_ElementAttr, ElementAttribute>, AttributeWrapper<AT_TimingAttr, TimingAttribute>,
    AttributeWrapper<AT_DrawingAttr, DrawingAttribute>, AttributeWrapper<AT_ColorAttr, ColourAttribute>,
    AttributeWrapper<AT_Position2dAttr, Position2DAttribute>, AttributeWrapper<AT_Scale3dAttr, Position3DAttribute>,
    AttributeWrapper<AT_Rotation3dAttr, Position3DAttribute>, AttributeWrapper<AT_Position3dAttr, Position3DAttribute>,
    AttributeWrapper<AT_DynGroupAttr, Attribute>, AttributeWrapper<AT_SimpleAttr, Attribute>,
    AttributeWrapper<AT_ComplexAttr, Attribute>, AttributeWrapper<AT_Attr, Attribute>>;
static_assert(std::is_same_v<AttributeWrappers::Kinds, AT_AttrKinds>, "each kind of attribute has its row, in order");

/// The visits of the rows of a table.
template <typename Table>
class AttributeWrapperVisits;

template <>
class AttributeWrapperVisits<AttributeWrapperTable<>> : public AT_AttrVisitorWithFallback {
protected:
    explicit AttributeWrapperVisits(const QString& parentPath) : m_parentPath(parentPath) {}

    const QString& m_parentPath;
    std::unique_ptr<Attribute> m_wrapper;
};

template <typename Row, typename... Rows>
class AttributeWrapperVisits<AttributeWrapperTable<Row, Rows...>>
    : public AttributeWrapperVisits<AttributeWrapperTable<Rows...>> {
public:
    using AttributeWrapperVisits<AttributeWrapperTable<Rows...>>::visit;
    void visit(typename Row::Host& attr) override
    {
        this->m_wrapper = std::make_unique<typename Row::Wrapper>(attr, this->m_parentPath);
    }

protected:
    using AttributeWrapperVisits<AttributeWrapperTable<Rows...>>::AttributeWrapperVisits;
};

/// Makes the wrapper for an attribute, by the table. The dotted path must outlive the visitor.
class AttributeWrapperVisitor final : public AttributeWrapperVisits<AttributeWrappers> {
public:
    explicit AttributeWrapperVisitor(const QString& parentPath) : AttributeWrapperVisits(parentPath) {}

    /// The wrapper made last; the caller owns it.
    Attribute* take() { return m_wrapper.release(); }
};

} // namespace OMC
