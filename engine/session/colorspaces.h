#pragma once

#include "core/host/cel_colorspace.h"

#include <QStringView>

namespace brindle::engine {

/// Whether there is a colour space of exactly this name.
bool isColorSpace(QStringView name);

/// The colour spaces of film, television and the web that people work in, the same for all projects.
class ColorSpaceManager final : public CEL_ColorSpaceManager {
public:
    QStringList colorSpaceNames(const QString& filter) const override;
    bool contains(const QString& name) const override { return isColorSpace(name); }
};

} // namespace brindle::engine
