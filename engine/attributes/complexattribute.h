#pragma once

#include "engine/attributes/attributeof.h"

namespace brindle::engine {

/// An attribute that holds attributes. Its text is that of its members, with ", " between; its values are in them.
template <typename Base>
class ComplexAttribute : public AttributeOf<Base> {
public:
    ComplexAttribute(MO_Node& node, const AttributeMeta& meta, const AttributeMembers& members)
        : AttributeOf<Base>(node, meta),
          m_members(members)
    {}

    AT_ComplexAttr::AttrIterator attrsBegin() const final { return m_members.first; }
    AT_ComplexAttr::AttrIterator attrsEnd() const final { return m_members.first + m_members.count; }
    QString textAt(double frame) const override;
    CO_Command* setTextCommand(double frame, const QString& text) override;

    static AttributeValue newValue(const AttributeSpec&) { return {}; }
    AttributeValue stored() const { return {}; }
    void store(const AttributeValue&) {}

private:
    AttributeMembers m_members;
};

extern template class ComplexAttribute<AT_ComplexAttr>;
extern template class ComplexAttribute<AT_DrawingAttr>;
extern template class ComplexAttribute<AT_ColorAttr>;
extern template class ComplexAttribute<AT_Position2dAttr>;
extern template class ComplexAttribute<AT_Position3dAttr>;

} // namespace brindle::engine
