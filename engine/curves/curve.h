#pragma once

#include "engine/curves/curvepoints.h"

#include <array>
#include <vector>

namespace brindle::engine {

/// One elementary change of a curve's points, with what takes it back.
struct CurveChange {
    enum Kind { Made, Taken, Edited, Moved };
    Kind kind;
    CurvePoint before; ///< The point as it was; a point made, as it was made.
    double frame;      ///< The point's frame after the change.
};
using CurveLog = std::vector<CurveChange>;

/// A function of the frame through control points: a cubic Bezier curve between them, constant before the first one and
/// after the last one. It knows nothing of scenes and commands; the column that owns it does.
///
/// Frames are finite and lie within a thousand million of 0, values and handles are finite. An edit that would break
/// this, or names a point that isn't there, is refused and changes nothing. Each edit appends what it did to the log,
/// and `revert` takes a log back, newest change first.
class Curve {
public:
    enum class Edit { Done, Nothing, Refused };

    static constexpr std::size_t changesOfSplice = 3; ///< At most: the new point, and those beside it.

    static bool isFrame(double frame);

    const CurvePoints& points() const { return m_points; }
    double evaluate(double frame) const; ///< 0 while there is no point.

    /// Makes a point on the curve, whose shape stays. In a segment the handles around it become those of the two parts;
    /// the same split of a constant segment gives two constant ones. Outside the range the curve goes on flat, with
    /// handles at one third of the gap. The first point of all has no handles: they are where it is.
    Edit splice(double frame, bool constantSegment, CurveLog& log);
    Edit erase(double frame, CurveLog& log);
    /// Moves a point; its handles stay where they are, held within its new neighbours, and so do those that face it.
    Edit move(double frame, double newFrame, double value, CurveLog& log);
    /// Sets a point's value; its handles move up or down with it.
    Edit setValue(double frame, double value, CurveLog& log);
    /// Sets a handle, its x held between the point and its neighbour on that side.
    Edit setLeftHandle(double frame, double x, double y, CurveLog& log);
    Edit setRightHandle(double frame, double x, double y, CurveLog& log);
    Edit setConstSegment(double frame, bool constantSegment, CurveLog& log);
    Edit setContinuity(double frame, int continuity, CurveLog& log);
    /// Multiplies all values by a factor.
    Edit scale(double factor, CurveLog& log);
    /// Makes room for `delta` frames behind frame `at`, or takes the -`delta` frames behind it out with their points.
    Edit shift(int at, int delta, CurveLog& log);

    /// Puts a point as it is given, in place of one at its frame; false when a number is refused.
    bool put(const CurvePoint& point);

    /// The part of a curve that an edit at a frame may change: the point there, or else those beside it.
    struct Kept {
        double frame = 0;
        bool stands = false; ///< A point stands at the frame.
        int count = 0;
        std::array<CurvePoint, 2> points;
    };
    Kept keep(double frame) const;
    /// Takes the point at the frame away where there was none, and writes the others back.
    void restore(const Kept& kept);

    void revert(CurveLog& log);

private:
    CurvePoint& make(CurvePoint point, CurveLog& log);
    void take(double frame, CurveLog& log);
    void change(const CurvePoint& there, const CurvePoint& point, CurveLog& log);
    void relocate(double from, double to, CurveLog& log);
    void hold(double frame, CurveLog& log);
    void spliceInto(CurvePoint& point, const CurvePoint& before, const CurvePoint& after, CurveLog& log);

    CurvePoints m_points;
    unsigned long long m_identities = 0;
};

} // namespace brindle::engine
