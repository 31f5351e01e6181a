#include "engine/attributes/attributes.h"

#include "core/host/mo_node.h"
#include "engine/attributes/attributetext.h"
#include "engine/curves/beziercolumn.h"

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
        if (Column* column = m_attribute.ownSocket().column()) {
            m_ofColumn = column->setValueCommand(m_frame, m_attribute.meta().read(static_cast<double>(m_value)));
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

/// Sets a local value of any kind, and the one before when it is undone.
template <typename Attribute, typename Value>
class SetLocal final : public CO_Command {
public:
    SetLocal(Attribute& attribute, const Value& value) : m_attribute(attribute), m_value(value) {}

    Status execute() override
    {
        const Value before = m_attribute.localValue();
        if (!m_attribute.setLocalValue(m_value))
            return kNoop;
        m_value = before;
        tellChanged(m_attribute);
        return kOk;
    }
    Status unexecute() override { return execute(); }

private:
    Attribute& m_attribute;
    Value m_value; // that it gets next
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

bool isSame(int one, int other)
{
    return one == other;
} // bools as well
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
SC_SceneCommon* AttributeOf<Base>::sceneCommon() const
{
    return m_node.sceneCommon();
}

template <typename Base>
NumberAttribute<Base>::NumberAttribute(MO_Node& node, const AttributeMeta& meta)
    : AttributeOf<Base>(node, meta),
      m_socket(*this, meta),
      m_local(fromNumber<Value>(meta.spec().defaultValue))
{}

template <typename Base>
TUTvSocket* NumberAttribute<Base>::socket() const
{
    return this->meta().isLinkable() ? &m_socket : nullptr;
}

template <typename Base>
typename Base::ValueType NumberAttribute<Base>::value(double frame) const
{
    const Column* column = m_socket.column();
    if (!column || !column->hasValues())
        return m_local;
    return fromNumber<Value>(this->meta().read(column->valueAt(frame)));
}

template <typename Base>
bool NumberAttribute<Base>::setValue(double frame, Value given, bool constantSegment, bool force)
{
    if (!isStorable(given))
        return false;
    const double number = this->meta().read(static_cast<double>(given));
    Column* column = m_socket.column();
    if (!column)
        return setLocalValue(given) || force;
    if (!force && column->hasValues() && isSame(value(frame), fromNumber<Value>(number)))
        return false;
    return column->setValueAt(frame, number, constantSegment);
}

template <typename Base>
bool NumberAttribute<Base>::setLocalValue(Value given)
{
    if (!isStorable(given))
        return false;
    const auto held = fromNumber<Value>(this->meta().read(static_cast<double>(given)));
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
    return new BezierColumn(TUTimedValue::generateAnonymousName(scene, QString()), true);
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

bool TextAttribute::setValue(double, const QString& value, bool, bool force)
{
    return setLocalValue(value) || force;
}

bool TextAttribute::setLocalValue(const QString& value)
{
    if (value == m_local)
        return false;
    m_local = value;
    return true;
}

CO_Command* TextAttribute::setTextCommand(double, const QString& text)
{
    return new SetLocal<TextAttribute, QString>(*this, text);
}

EnumAttribute::EnumAttribute(MO_Node& node, const AttributeMeta& meta)
    : AttributeOf(node, meta),
      m_local(static_cast<int>(meta.spec().defaultValue))
{}

QMap<int, QString> EnumAttribute::options() const
{
    QMap<int, QString> options;
    for (const auto& [value, text] : meta().spec().options)
        options.insert(value, literalText(text));
    return options;
}

bool EnumAttribute::setLocalValue(int value)
{
    const auto& options = meta().spec().options;
    const bool known = std::any_of(options.begin(), options.end(),
                                   [value](const EnumOption& option) { return option.value == value; });
    if (!known || value == m_local)
        return false;
    m_local = value;
    return true;
}

QString EnumAttribute::textAt(double) const
{
    for (const auto& [value, text] : meta().spec().options) {
        if (value == m_local)
            return literalText(text);
    }
    return QString();
}

CO_Command* EnumAttribute::setTextCommand(double, const QString& text)
{
    for (const auto& option : meta().spec().options) {
        if (literalText(option.text) == text)
            return new SetLocal<EnumAttribute, int>(*this, option.value);
    }
    return nullptr;
}

template <typename Base>
AT_Attr* ComplexAttribute<Base>::timing() const
{
    if (this->meta().kind() != AttributeKind::Drawing)
        return nullptr;
    const auto found =
        std::find_if(attrsBegin(), attrsEnd(), [](const AT_Attr* attr) { return attr->meta().keyword() == u"timing"; });
    return found == attrsEnd() ? nullptr : *found;
}

template <typename Base>
QString ComplexAttribute<Base>::textAt(double frame) const
{
    if (const AT_Attr* timing = this->timing())
        return timing->textAt(frame);
    QStringList texts;
    for (auto member = attrsBegin(); member != attrsEnd(); ++member)
        texts.append((*member)->textAt(frame));
    return texts.join(", ");
}

template <typename Base>
CO_Command* ComplexAttribute<Base>::setTextCommand(double frame, const QString& text)
{
    if (AT_Attr* timing = this->timing())
        return timing->setTextCommand(frame, text);
    const QStringList texts = text.split(',');
    if (texts.size() != m_count)
        return nullptr;
    auto commands = std::make_unique<CO_AndCommand>();
    for (int index = 0; index < m_count; ++index) {
        CO_Command* command = m_begin[index]->setTextCommand(frame, texts[index].trimmed());
        if (!command)
            return nullptr;
        commands->add(command);
    }
    return commands.release();
}

template class NumberAttribute<AT_BoolAttr>;
template class NumberAttribute<AT_IntAttr>;
template class NumberAttribute<AT_DoubleAttr>;
template class ComplexAttribute<AT_ComplexAttr>;
template class ComplexAttribute<AT_ColorAttr>;
template class ComplexAttribute<AT_Position2dAttr>;
template class ComplexAttribute<AT_Position3dAttr>;

} // namespace brindle::engine
