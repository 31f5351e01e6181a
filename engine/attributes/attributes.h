#pragma once

#include "core/host/co_command.h"
#include "engine/attributes/attributemeta.h"
#include "engine/curves/column.h"

namespace brindle::engine {

/// What the attributes of all kinds say of themselves; `Base` is the host class of the kind.
template <typename Base>
class AttributeOf : public Base {
public:
    AttributeOf(MO_Node& node, const AttributeMeta& meta) : m_node(node), m_meta(meta) {}

    MO_Node* node() const final { return &m_node; }
    const AttributeMeta& meta() const final { return m_meta; }
    SC_SceneCommon* sceneCommon() const final;
    TUTvSocket* socket() const override { return nullptr; }
    void accept(AT_AttrVisitor& visitor) final { visitor.visit(static_cast<Base&>(*this)); }
    QString displayText() const final { return m_meta.displayName(); }
    QString typeText() const final { return m_meta.typeText(); }

private:
    MO_Node& m_node;
    const AttributeMeta& m_meta;
};

/// An attribute with a number: AT_BoolAttr, AT_IntAttr and AT_DoubleAttr.
///
/// - A linked column that has keys gives the value at a frame; until it has, and without one, the local value holds.
/// The
///   column is read as the attribute takes it (AttributeMeta::read): an int rounds it, a bool is true for all but 0.
/// - A number is another one when any bit of it differs: 0 and -0 are two values.
/// - A number beyond the minimum or maximum becomes the minimum or maximum, as a field of an editor does. NaN and
///   infinities are refused.
/// - Setting a value at a frame of a linked attribute sets the key there, and makes one where there is none.
template <typename Base>
class NumberAttribute : public AttributeOf<Base> {
public:
    using Value = typename Base::ValueType;

    NumberAttribute(MO_Node& node, const AttributeMeta& meta);

    TUTvSocket* socket() const final;
    Value value(double frame) const final;
    Value localValue() const final { return m_local; }
    bool setValue(double frame, Value value, bool constantSegment, bool force) final;
    bool setLocalValue(Value value) final;
    TUTimedValue* createTimedValue() const final;
    QString textAt(double frame) const final;
    CO_Command* setTextCommand(double frame, const QString& text) final;

    const Socket& ownSocket() const { return m_socket; }

private:
    mutable Socket m_socket;
    Value m_local;
};

class BoolAttribute final : public NumberAttribute<AT_BoolAttr> {
public:
    using NumberAttribute::NumberAttribute;
};

class IntAttribute final : public NumberAttribute<AT_IntAttr> {
public:
    using NumberAttribute::NumberAttribute;
    int minValue() const override { return static_cast<int>(meta().spec().minimum); }
    int maxValue() const override { return static_cast<int>(meta().spec().maximum); }
    int step() const override { return static_cast<int>(meta().spec().step); }
};

class DoubleAttribute final : public NumberAttribute<AT_DoubleAttr> {
public:
    using NumberAttribute::NumberAttribute;
    double defaultValue() const override { return meta().spec().defaultValue; }
    double minValue() const override { return meta().spec().minimum; }
    double maxValue() const override { return meta().spec().maximum; }
    double step() const override { return meta().spec().step; }
};

/// A text, empty in a new node. No column gives texts, so it is the same at every frame.
class TextAttribute final : public AttributeOf<AT_StringAttr> {
public:
    using AttributeOf::AttributeOf;

    QString value(double) const override { return m_local; }
    QString localValue() const override { return m_local; }
    bool setValue(double frame, const QString& value, bool constantSegment, bool force) override;
    bool setLocalValue(const QString& value) override;
    TUTimedValue* createTimedValue() const override { return nullptr; }
    QString textAt(double) const override { return m_local; }
    CO_Command* setTextCommand(double frame, const QString& text) override;

private:
    QString m_local;
};

/// One of the options of its table.
class EnumAttribute final : public AttributeOf<AT_EnumAttrBase> {
public:
    EnumAttribute(MO_Node& node, const AttributeMeta& meta);

    QMap<int, QString> options() const override;
    int localValue() const override { return m_local; }
    bool setLocalValue(int value);         ///< False when the value is as before or no option's.
    QString textAt(double) const override; ///< Of the present option.
    CO_Command* setTextCommand(double frame, const QString& text) override;

private:
    int m_local;
};

/// An attribute that holds attributes. Its text is that of its members, with ", " between; that of a drawing is its
/// timing's.
template <typename Base>
class ComplexAttribute final : public AttributeOf<Base> {
public:
    ComplexAttribute(MO_Node& node, const AttributeMeta& meta, AT_ComplexAttr::AttrIterator begin, int count)
        : AttributeOf<Base>(node, meta),
          m_begin(begin),
          m_count(count)
    {}

    AT_ComplexAttr::AttrIterator attrsBegin() const override { return m_begin; }
    AT_ComplexAttr::AttrIterator attrsEnd() const override { return m_begin + m_count; }
    QString textAt(double frame) const override;
    CO_Command* setTextCommand(double frame, const QString& text) override;

private:
    AT_Attr* timing() const; ///< Of a drawing; null for another one.

    AT_ComplexAttr::AttrIterator m_begin;
    int m_count;
};

extern template class NumberAttribute<AT_BoolAttr>;
extern template class NumberAttribute<AT_IntAttr>;
extern template class NumberAttribute<AT_DoubleAttr>;
extern template class ComplexAttribute<AT_ComplexAttr>;
extern template class ComplexAttribute<AT_ColorAttr>;
extern template class ComplexAttribute<AT_Position2dAttr>;
extern template class ComplexAttribute<AT_Position3dAttr>;

} // namespace brindle::engine
