#include "engine/attributes/numberattribute.h"

#include "engine/attributes/attributetext.h"
#include "engine/curves/columnkinds.h"
#include "engine/curves/velocitycolumn.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <type_traits>

namespace brindle::engine {

namespace {

/// Sets a value at a frame: through the column that is linked when it is executed, else the local one.
template <typename Attribute>
class SetNumber final : public CO_Command {
public:
    using Value = typename Attribute::Value;

    SetNumber(Attribute& attribute, double frame, Value value) : m_attribute(attribute), m_frame(frame), m_value(value)
    {}

    Status execute() override
    {
        m_ofColumn.reset();
        if (NumberValues* numbers = m_attribute.ownSocket().numbers()) {
            m_ofColumn = numbers->setValueCommand(m_frame, m_attribute.read(static_cast<double>(m_value)));
            return m_ofColumn->execute();
        }
        m_before = m_attribute.localValue();
        if (!m_attribute.setLocalValue(m_value))
            return kNoop;
        tellChanged(m_attribute);
        return kOk;
    }

    Status unexecute() override
    {
        if (m_ofColumn)
            return m_ofColumn->unexecute();
        if (m_attribute.setLocalValue(m_before))
            tellChanged(m_attribute);
        return kOk;
    }

private:
    Attribute& m_attribute;
    double m_frame;
    Value m_value;
    Value m_before{};
    std::unique_ptr<CO_Command> m_ofColumn;
};

bool isStorable(bool)
{
    return true;
}
bool isStorable(int)
{
    return true;
}
bool isStorable(double value)
{
    return std::isfinite(value);
}

bool isSame(int one, int other) // bools as well
{
    return one == other;
}
bool isSame(double one, double other)
{
    return std::bit_cast<std::uint64_t>(one) == std::bit_cast<std::uint64_t>(other);
}

template <typename Value>
Value fromNumber(double number)
{
    if constexpr (std::is_same_v<Value, bool>)
        return number != 0;
    else
        return static_cast<Value>(number);
}

} // namespace

template <typename Base>
NumberAttribute<Base>::NumberAttribute(MO_Node& node, const AttributeMeta& meta)
    : AttributeOf<Base>(node, meta),
      m_socket(*this, meta),
      m_local(defaultValue())
{}

template <typename Base>
AttributeValue NumberAttribute<Base>::newValue(const AttributeSpec& spec)
{
    return fromNumber<Value>(spec.defaultValue);
}

template <typename Base>
TUTvSocket* NumberAttribute<Base>::socket() const
{
    return this->meta().isLinkable() ? &m_socket : nullptr;
}

template <typename Base>
typename Base::ValueType NumberAttribute<Base>::value(double frame) const
{
    const NumberValues* numbers = m_socket.numbers();
    double number = 0;
    if (!numbers || !numbers->valueAt(frame, number))
        return m_local;
    return fromNumber<Value>(read(number));
}

template <typename Base>
double NumberAttribute<Base>::read(double number) const
{
    if constexpr (std::is_same_v<Value, bool>) {
        return number != 0 ? 1 : 0;
    } else {
        const double held = std::clamp(number, this->meta().spec().minimum, this->meta().spec().maximum);
        return std::is_same_v<Value, int> ? std::round(held) : held;
    }
}

template <typename Base>
bool NumberAttribute<Base>::setValue(double frame, Value given, bool constantSegment, bool force)
{
    if (!isStorable(given))
        return false;
    const double number = read(static_cast<double>(given));
    NumberValues* numbers = m_socket.numbers();
    if (!numbers)
        return setLocalValue(given) || force;
    double present = 0;
    if (!force && numbers->valueAt(frame, present) &&
        isSame(fromNumber<Value>(read(present)), fromNumber<Value>(number)))
        return false;
    return numbers->setValueAt(frame, number, constantSegment);
}

template <typename Base>
bool NumberAttribute<Base>::setLocalValue(Value given)
{
    if (!isStorable(given))
        return false;
    const auto held = fromNumber<Value>(read(static_cast<double>(given)));
    if (isSame(held, m_local))
        return false;
    m_local = held;
    return true;
}

template <typename Base>
TUTimedValue* NumberAttribute<Base>::createTimedValue() const
{
    const SC_SceneCommon* scene = this->sceneCommon();
    if (!scene || !this->meta().isLinkable())
        return nullptr;
    const ColumnKind& kind = std::is_same_v<Base, AT_DoubleVbAttr> ? velocityKind : numberColumnKind();
    const QString name = TUTimedValue::generateAnonymousName(scene, QString());
    return Column::asTimedValue(kind.make(name, true)).release();
}

template <typename Base>
QString NumberAttribute<Base>::textAt(double frame) const
{
    return attribute_text::write(value(frame));
}

template <typename Base>
CO_Command* NumberAttribute<Base>::setTextCommand(double frame, const QString& text)
{
    Value read{};
    if (!attribute_text::read(text, read))
        return nullptr;
    return new SetNumber<NumberAttribute>(*this, frame, read);
}

template class NumberAttribute<AT_BoolAttr>;
template class NumberAttribute<AT_IntAttr>;
template class NumberAttribute<AT_DoubleAttr>;
template class NumberAttribute<AT_DoubleVbAttr>;

} // namespace brindle::engine
