#pragma once

#include "engine/attributes/attributeof.h"
#include "engine/attributes/numberattribute.h"

#include <type_traits>

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
    AT_Attr* member(int index) const
    {
        return index >= 0 && index < m_members.count ? m_members.first[index] : nullptr;
    }
    QString textAt(double frame) const override;
    CO_Command* setTextCommand(double frame, const QString& text) override;

    static AttributeValue newValue(const AttributeSpec&) { return {}; }
    AttributeValue stored() const { return {}; }
    void store(const AttributeValue&) {}

private:
    AttributeMembers m_members;
};

/// A colour: whole numbers for red, green, blue and alpha.
class ColourAttribute final : public ComplexAttribute<AT_ColorAttr> {
public:
    using ComplexAttribute::ComplexAttribute;

    AT_IntAttr* channel(int index) const override;
};

/// Numbers along two or three axes. A position in space, and a rotation, can be linked to a path as a whole: then the
/// path gives the value at a frame, while it has any. Its text is that of its value.
template <typename Base>
class AxesAttribute final : public ComplexAttribute<Base> {
public:
    AxesAttribute(MO_Node& node, const AttributeMeta& meta, const AttributeMembers& members)
        : ComplexAttribute<Base>(node, meta, members),
          m_socket(*this, meta)
    {}

    static constexpr DrivenBy drivenBy = std::is_same_v<Base, AT_Position3dAttr>   ? DrivenBy::Positions
                                         : std::is_same_v<Base, AT_Rotation3dAttr> ? DrivenBy::Rotations
                                                                                   : DrivenBy::Nothing;

    TUTvSocket* socket() const override
    {
        return drivenBy != DrivenBy::Nothing && this->meta().isLinkable() ? &m_socket : nullptr;
    }
    int axisCount() const override { return static_cast<int>(this->nAttrs()); }
    AT_DoubleAttr* axis(int index) const override { return static_cast<DoubleAttribute*>(this->member(index)); }
    Math::Point3d value(double frame) const override;
    Math::Point3d localValue() const override;
    bool setValue(double frame, const Math::Point3d& value, bool constantSegment, bool force) override;
    QString textAt(double frame) const override;
    /// Of a linked path, its place at the frame; else the axes.
    CO_Command* setTextCommand(double frame, const QString& text) override;

    const Socket& ownSocket() const { return m_socket; }

private:
    mutable Socket m_socket;
};

extern template class ComplexAttribute<AT_ComplexAttr>;
extern template class ComplexAttribute<AT_DrawingAttr>;
extern template class ComplexAttribute<AT_ColorAttr>;
extern template class ComplexAttribute<AT_Position2dAttr>;
extern template class ComplexAttribute<AT_Position3dAttr>;
extern template class ComplexAttribute<AT_Scale3dAttr>;
extern template class ComplexAttribute<AT_Rotation3dAttr>;
extern template class AxesAttribute<AT_Position2dAttr>;
extern template class AxesAttribute<AT_Position3dAttr>;
extern template class AxesAttribute<AT_Scale3dAttr>;
extern template class AxesAttribute<AT_Rotation3dAttr>;

} // namespace brindle::engine
