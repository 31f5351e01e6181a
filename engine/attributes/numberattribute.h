#pragma once

#include "engine/attributes/attributeof.h"

#include <variant>

namespace brindle::engine {

/// An attribute with a number: AT_BoolAttr, AT_IntAttr, AT_DoubleAttr and AT_DoubleVbAttr.
///
/// - A linked column that has keys gives the value at a frame; until it has, and without one, the local value holds.
///   An int rounds what the column says, a bool is true for all but 0.
/// - A number is another one when any bit of it differs: 0 and -0 are two values.
/// - A number beyond the minimum or maximum becomes the minimum or maximum, as a field of an editor does. NaN and
///   infinities are refused.
/// - Setting a value at a frame of a linked attribute sets the key there, and makes one where there is none.
template <typename Base>
class NumberAttribute : public AttributeOf<Base> {
public:
    using Value = typename Base::ValueType;
    static constexpr DrivenBy drivenBy = DrivenBy::Numbers;

    NumberAttribute(MO_Node& node, const AttributeMeta& meta);

    TUTvSocket* socket() const final;
    Value value(double frame) const final;
    Value localValue() const final { return m_local; }
    Value defaultValue() const final { return std::get<Value>(this->meta().newValue()); }
    bool setValue(double frame, Value value, bool constantSegment, bool force) final;
    bool setLocalValue(Value value) final;
    TUTimedValue* createTimedValue() const final;
    QString textAt(double frame) const final;
    CO_Command* setTextCommand(double frame, const QString& text) final;

    static AttributeValue newValue(const AttributeSpec& spec);
    AttributeValue stored() const { return m_local; }
    void store(const AttributeValue& value) { setLocalValue(std::get<Value>(value)); }

    const Socket& ownSocket() const { return m_socket; }
    /// Brings a number into the attribute's range: held between minimum and maximum, rounded for an int, 0 or 1 for a
    /// bool.
    double read(double number) const;

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

template <typename Base>
class RealNumberAttribute final : public NumberAttribute<Base> {
public:
    using NumberAttribute<Base>::NumberAttribute;
    double minValue() const override { return this->meta().spec().minimum; }
    double maxValue() const override { return this->meta().spec().maximum; }
    double step() const override { return this->meta().spec().step; }
};
using DoubleAttribute = RealNumberAttribute<AT_DoubleAttr>;
using VelocityAttribute = RealNumberAttribute<AT_DoubleVbAttr>;

extern template class NumberAttribute<AT_BoolAttr>;
extern template class NumberAttribute<AT_IntAttr>;
extern template class NumberAttribute<AT_DoubleAttr>;
extern template class NumberAttribute<AT_DoubleVbAttr>;

} // namespace brindle::engine
