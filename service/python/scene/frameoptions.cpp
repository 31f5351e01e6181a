#include "service/python/scene/frameoptions.h"

#include <QString>

namespace brindle::python {

std::string FrameOptions::__str__() const
{
    const auto word = [](bool flag) { return flag ? QStringLiteral("True") : QStringLiteral("False"); };
    return QStringLiteral("FrameOptions(%1, %2)").arg(word(rippleMarkers), word(extendExposure)).toStdString();
}

} // namespace brindle::python
