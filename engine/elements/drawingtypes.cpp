#include "core/host/em_elementinfo.h"

#include <algorithm>

namespace {

constexpr EM_DrawingTypes::Info marks[] = {
    {kMarkKey, "KEY"},
    {kMarkBreakdown, "BREAKDOWN"},
    {kMarkInbetween, "INBETWEEN"},
};

} // namespace

const EM_DrawingTypes::Info* EM_DrawingTypes::getInfo(int type)
{
    const auto* found =
        std::find_if(std::begin(marks), std::end(marks), [type](const Info& mark) { return mark.type == type; });
    return found == std::end(marks) ? nullptr : found;
}

EM_MarkType EM_XMLFileIO::convertFromStringToMarkType(const QString& text)
{
    const auto* found = std::find_if(std::begin(marks), std::end(marks), [&text](const EM_DrawingTypes::Info& mark) {
        return text == QLatin1String(mark.name);
    });
    return found == std::end(marks) ? kMarkNone : found->type;
}
