#pragma once

#include "engine/curves/framepoints.h"

#include <cmath>
#include <limits>

namespace brindle::engine {

/// A control point as a bezier curve keeps it.
///
/// `leftX` and `rightX` are frames. The handles' y stands for the point at the value `anchor`: they move up and down
/// with the point without being written, so that a value that is set and set back leaves every bit of them as it was.
struct CurvePoint {
    double frame = 0;
    double value = 0;
    double anchor = 0;
    double leftX = 0, leftY = 0;
    double rightX = 0, rightY = 0;
    unsigned long long identity = 0; ///< Unlike that of all other points that the curve ever had.
    bool constSegment = false;
    int continuity = 0;

    double leftHandleY() const { return carried(leftY); }
    double rightHandleY() const { return carried(rightY); }
    void setLeftHandle(double x, double y)
    {
        drop();
        leftX = x;
        leftY = y;
    }
    void setRightHandle(double x, double y)
    {
        drop();
        rightX = x;
        rightY = y;
    }

    bool operator==(const CurvePoint&) const = default;

    /// Whether all numbers but the frame are such that a curve can have them.
    bool isSound() const
    {
        return std::isfinite(value) && std::isfinite(anchor) && std::isfinite(leftX) && std::isfinite(leftY) &&
               std::isfinite(rightX) && std::isfinite(rightY) && continuity >= 0 && continuity <= 2;
    }
    /// Moves what is at frames of its own beside the point.
    void shift(double frames)
    {
        leftX += frames;
        rightX += frames;
    }
    void scale(double factor)
    {
        leftY = leftHandleY() * factor;
        rightY = rightHandleY() * factor;
        value = anchor = value * factor;
    }

private:
    double carried(double y) const
    {
        if (value == anchor)
            return y;
        const double sum = y + (value - anchor);
        return std::isfinite(sum) ? sum : std::copysign(std::numeric_limits<double>::max(), value);
    }
    /// Writes the handles down where they are.
    void drop()
    {
        leftY = leftHandleY();
        rightY = rightHandleY();
        anchor = value;
    }
};

using CurvePoints = FramePoints<CurvePoint>;

} // namespace brindle::engine
