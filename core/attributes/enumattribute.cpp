#include "core/attributes/enumattribute.h"

#include "core/attributes/enumattributeoption.h"
#include "core/frame/undo.h"
#include "core/host/at_attr.h"

#include <optional>

namespace OMC {

namespace {

/// The number of the option that a script's argument names.
std::optional<int> numberOf(const QVariant& value, const QMap<int, QString>& options)
{
    if (value.typeId() == QMetaType::Int)
        return options.contains(value.toInt()) ? std::optional(value.toInt()) : std::nullopt;
    QString text;
    if (const auto* option = objectFrom<EnumAttributeOption>(value))
        text = option->getValue();
    else if (value.typeId() == QMetaType::QString)
        text = value.toString();
    else
        return std::nullopt;
    for (auto option = options.cbegin(); option != options.cend(); ++option) {
        if (option.value() == text)
            return option.key();
    }
    for (auto option = options.cbegin(); option != options.cend(); ++option) {
        if (QString::number(option.key()) == text)
            return option.key();
    }
    return std::nullopt;
}

EnumAttributeOption* newOption(int number, const QString& text)
{
    return new EnumAttributeOption(text, QString::number(number));
}

} // namespace

std::string EnumAttribute::__str__() const
{
    return described(tr("EnumAttr(%1, %2)"));
}

Obj EnumAttribute::value(int) const
{
    return Obj(newPresent());
}

Obj EnumAttribute::localvalue() const
{
    return Obj(newPresent());
}

void EnumAttribute::setValue(int, const QVariant& value)
{
    setLocalvalue(value);
}

void EnumAttribute::setLocalvalue(const QVariant& value)
{
    auto& attr = typed<AT_EnumAttrBase>();
    const std::optional<int> number = numberOf(value, attr.options());
    if (!number)
        throw Exception(std::string("Failed to match value with a appropriate option in the attribute."));
    if (*number == attr.localValue())
        return;
    CO_CommandManager& manager = undo::manager(attr.sceneCommon(), unexpected::ErrorHasOccurred);
    undo::run(manager, new AT_EnumAttrBase::SetLocalValueCmd(&attr, *number), tr("Set Attribute local value."),
              tr("Failed to set the attribute's local value."));
}

QVariantList EnumAttribute::getOptions() const
{
    const QMap<int, QString> options = typed<AT_EnumAttrBase>().options();
    QVariantList list;
    for (auto option = options.cbegin(); option != options.cend(); ++option)
        list.append(toVariant(newOption(option.key(), option.value())));
    return list;
}

EnumAttributeOption* EnumAttribute::newPresent() const
{
    auto& attr = typed<AT_EnumAttrBase>();
    const int number = attr.localValue();
    const QMap<int, QString> options = attr.options();
    const auto found = options.constFind(number);
    if (found == options.cend())
        throw Exception(tr("Failed to find the enum attribute's value (%1)").arg(number));
    return newOption(number, *found);
}

} // namespace OMC
