#include "core/clipboard/pasteactionoptions.h"

#include "core/frame/optionfields.h"

namespace OMC {

namespace {

constexpr options::Field<PasteActionOptions> actionFields[] = {
    {"groups", &PasteActionOptions::groups},
    {"effects", &PasteActionOptions::effects},
    {"composites", &PasteActionOptions::composites},
};

} // namespace

PasteActionOptions::PasteActionOptions(bool groups, bool effects, bool composites)
    : groups(groups),
      effects(effects),
      composites(composites)
{}

PasteActionOptions::PasteActionOptions(const QVariant& value)
{
    options::read<PasteActionOptions>(*this, value, actionFields, actionFields);
}

QVariantMap PasteActionOptions::fields() const
{
    return options::values<PasteActionOptions>(*this, actionFields);
}

std::string PasteActionOptions::__str__() const
{
    return {};
}

} // namespace OMC
