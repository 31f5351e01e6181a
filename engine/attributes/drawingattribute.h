#pragma once

#include "engine/attributes/complexattribute.h"

class TUElementMgr;

namespace brindle::engine {

/// An attribute with the drawings of a column of exposures. Its text is the name of the drawing at a frame. While no
/// column is linked it has a text of its own, which is the same at every frame.
template <typename Base>
class ExposedAttribute : public AttributeOf<Base> {
public:
    static constexpr DrivenBy drivenBy = std::is_same_v<Base, AT_ElementAttr> ? DrivenBy::Drawings : DrivenBy::Timings;

    ExposedAttribute(MO_Node& node, const AttributeMeta& meta) : AttributeOf<Base>(node, meta), m_socket(*this, meta) {}

    TUTvSocket* socket() const final { return this->meta().isLinkable() ? &m_socket : nullptr; }
    QString textAt(double frame) const final;
    CO_Command* setTextCommand(double frame, const QString& text) final;

    const QString& localValue() const { return m_local; }
    bool setLocalValue(const QString& value); ///< False when the value is as before.

    static AttributeValue newValue(const AttributeSpec&) { return QString(); }
    AttributeValue stored() const { return m_local; }
    void store(const AttributeValue& value) { setLocalValue(std::get<QString>(value)); }

protected:
    /// The linked column, or null.
    TUSeqTimedValue* exposures() const;

private:
    mutable Socket m_socket; // the host shows it through const attributes
    QString m_local;
};

extern template class ExposedAttribute<AT_ElementAttr>;
extern template class ExposedAttribute<AT_TimingAttr>;

/// Its own text is the name of an element, which it shows while no drawing column is linked.
class ElementAttribute final : public ExposedAttribute<AT_ElementAttr> {
public:
    using ExposedAttribute::ExposedAttribute;

    TUElementTimedValue* linkedElementTimedValue() const override;
    int getElementId() const override;
};

/// Its own text is the name of the drawing at every frame while no timing column is linked.
class TimingAttribute final : public ExposedAttribute<AT_TimingAttr> {
public:
    using ExposedAttribute::ExposedAttribute;

    QString value(double frame) const override { return textAt(frame); }
};

/// The attribute of a read node with its members "element", "timing" and "element_mode". Its text is the name of the
/// drawing at a frame.
class DrawingAttribute final : public ComplexAttribute<AT_DrawingAttr> {
public:
    using ComplexAttribute::ComplexAttribute;

    bool getElementMode() const override;
    AT_BoolAttr* elementModeAttr() const override;
    AT_Attr* drawingAttr() const override;
    TUTimedValue* linkedTimedValue() const override;
    TUSeqTimedValue* linkedSeqTimedValue() const override;
    int getElementId() const override;
    QString getElementName() const override;
    QString timingName() const override;
    QString value(double frame) const override;
    double drawingScaleFactor(double frame) const override;

    QString textAt(double frame) const override { return value(frame); }
    CO_Command* setTextCommand(double frame, const QString& text) override;

private:
    template <typename Class>
    Class& memberAs(QStringView keyword) const;
    const TUElementMgr* elements() const;
};

} // namespace brindle::engine
