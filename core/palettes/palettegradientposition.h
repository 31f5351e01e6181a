#pragma once

#include "core/geometry/colour.h"
#include "core/host/cm_color.h"

namespace OMC {

/// A colour at a place of a gradient, in percent from 0, its start or centre, to 100, its end or rim. Made of one value
/// it takes what Colour(value) takes; of another gradient position it also takes the place.
///
/// A value: it leads to no engine object, is always valid, and travels inside a QVariant by copy.
class BRINDLE_CORE_EXPORT PaletteGradientPosition : public Colour {
    Q_OBJECT
    BRINDLE_COPYABLE(PaletteGradientPosition)
    Q_PROPERTY(QVariant colour READ getColour WRITE setColour)

public:
    static constexpr double wholeWay = 100.0; ///< The place of the end or the rim.

    /// Opaque black at 0.
    PaletteGradientPosition();
    /// The integer is not read.
    explicit PaletteGradientPosition(const QVariant& value, int unused = 0);
    /// The position is held in 0 to 100; throws for one that is no number.
    explicit PaletteGradientPosition(double position, const QVariant& value, int unused = 0);
    explicit PaletteGradientPosition(const CM_GradientData& marker);

    std::string __str__() const override;

    QVariant getColour() const; ///< The colour without its place; writing it leaves the place.
    void setColour(const QVariant& value);

    CM_Rgba rgba() const;           ///< The four bytes, as the engine has them.
    double percent() const;         ///< The place, held in 0 to 100. Throws where it is no number.
    CM_GradientData marker() const; ///< The marker of a gradient that it tells.

    double position = 0.0; ///< The place in percent, from 0 to 100.
};

} // namespace OMC

Q_DECLARE_METATYPE(OMC::PaletteGradientPosition)
