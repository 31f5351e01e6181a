#include "engine/attributes/enumattribute.h"

#include <algorithm>

namespace brindle::engine {

namespace {

QString textOf(const AttributeSpec& spec, int value)
{
    for (const EnumOption& option : spec.options) {
        if (option.value == value)
            return literalText(option.text);
    }
    return QString();
}

/// Chooses an option. The old and the new one change places.
class SetOption final : public CO_Command {
public:
    SetOption(AT_EnumAttrBase* attr, int value) : m_attr(dynamic_cast<EnumAttribute*>(attr)), m_value(value) {}

    Status execute() override
    {
        if (!m_attr || !m_attr->hasOption(m_value))
            return kFail;
        const int before = m_attr->localValue();
        if (!m_attr->setLocalValue(m_value))
            return kNoop;
        m_value = before;
        tellChanged(*m_attr);
        return kOk;
    }
    Status unexecute() override { return execute(); }

private:
    EnumAttribute* m_attr;
    int m_value; // that it gets next
};

} // namespace

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

bool EnumAttribute::hasOption(int value) const
{
    const auto& options = meta().spec().options;
    return std::any_of(options.begin(), options.end(),
                       [value](const EnumOption& option) { return option.value == value; });
}

bool EnumAttribute::setLocalValue(int value)
{
    if (!hasOption(value) || value == m_local)
        return false;
    m_local = value;
    return true;
}

QString EnumAttribute::textAt(double) const
{
    return textOf(meta().spec(), m_local);
}

CO_Command* EnumAttribute::setTextCommand(double, const QString& text)
{
    const EnumOption* option = optionOf(text);
    return option ? new SetLocal<EnumAttribute, int>(*this, option->value) : nullptr;
}

AttributeValue EnumAttribute::newValue(const AttributeSpec& spec)
{
    return textOf(spec, static_cast<int>(spec.defaultValue));
}

AttributeValue EnumAttribute::stored() const
{
    return textOf(meta().spec(), m_local);
}

void EnumAttribute::store(const AttributeValue& value)
{
    if (const EnumOption* option = optionOf(std::get<QString>(value)))
        setLocalValue(option->value);
}

const EnumOption* EnumAttribute::optionOf(const QString& text) const
{
    const auto& options = meta().spec().options;
    const auto found = std::find_if(options.begin(), options.end(),
                                    [&text](const EnumOption& option) { return literalText(option.text) == text; });
    return found == options.end() ? nullptr : &*found;
}

} // namespace brindle::engine

AT_EnumAttrBase::SetLocalValueCmd::SetLocalValueCmd(AT_EnumAttrBase* attr, int value)
    : CO_EngineCommand(std::make_unique<brindle::engine::SetOption>(attr, value))
{}
