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
