#pragma once

#include "core/geometry/curvelist.h"

#include <QString>

#include <vector>

namespace OMC {

class Bezier;
extern template class BRINDLE_CORE_EXPORT CurveList<Bezier, GR_Bezier2d>;

/// A polynomial curve of degree 0 to 3 in the plane: a list of degree + 1 control points (Point2d), in any unit, x to
/// the right and y up. The parameter runs from 0 to 1. The default is a cubic with all points at (0, 0). A list gives
/// its first Bezier, or its first three points as a cubic that ends at (0, 0); a list of fewer than four items gives no
/// curve. The degree of the argument is ignored.
///
/// A value that travels inside a QVariant by copy. The boundaries tell whether its ends belong to it; the from and to
/// parameters tell which stretch of a longer curve it is.
class BRINDLE_CORE_EXPORT Bezier : public CurveList<Bezier, GR_Bezier2d> {
    Q_OBJECT
    BRINDLE_COPYABLE(Bezier)
    Q_PROPERTY(int degree READ getDegree WRITE setDegree)
    Q_PROPERTY(QString from_boundary READ getFromBoundary WRITE setFromBoundary)
    Q_PROPERTY(double from_parameter READ getFromParameter WRITE setFromParameter)
    Q_PROPERTY(OMC::Obj from_tangent READ getFromTangent)
    Q_PROPERTY(QString to_boundary READ getToBoundary WRITE setToBoundary)
    Q_PROPERTY(double to_parameter READ getToParameter WRITE setToParameter)
    Q_PROPERTY(OMC::Obj to_tangent READ getToTangent)
    Q_PROPERTY(OMC::Obj bounding_box READ getBoundingBox)
    Q_PROPERTY(bool line READ getLine)
    Q_PROPERTY(bool cusp READ getCusp)
    Q_PROPERTY(uint inflections READ getInflections)

public:
    /// A cubic with closed ends whose points are all (0, 0).
    Bezier();
    explicit Bezier(const GR_Bezier2d& curve);
    Bezier(const Bezier& other);
    /// The first curve that getBezierFromQVariant reads as a cubic, or the default one. Required: the degree is not
    /// looked at.
    Bezier(const QVariant& value, unsigned int degree);
    Bezier& operator=(const Bezier& other);

    /// Reads curves of a degree from a list with more items than the degree: the Beziers in it, and the first plain
    /// points in a row as a curve that ends at (0, 0).
    ///
    /// The curves are appended. Required: of plain points the first `degree` in a row make one curve, and no later ones
    /// do.
    static void getBezierFromQVariant(const QVariant& value, std::vector<GR_Bezier2d>& curves, unsigned int degree);

    Obj derivative() const;                       ///< The curve of the derivatives by the parameter, one degree lower.
    Obj evaluateAndRound(double parameter) const; ///< The point at a parameter, in whole numbers.
    /// Replaces the curve by the straight line between its ends, of degree 1; a curve of degree 1 or 0 stays.
    void straighten();

    int getDegree() const; ///< 0 to 3; raising it brings back the points that lowering it hid.
    void setDegree(int degree);
    /// Whether the first point belongs to the curve: "Closed" or "Open", written in any case of letters.
    QString getFromBoundary() const;
    void setFromBoundary(const QString& boundary);
    double getFromParameter() const; ///< Where on a longer curve this one begins; 0 unless it was cut.
    void setFromParameter(double parameter);
    /// Whether the last point belongs to the curve: "Closed" or "Open", written in any case of letters.
    QString getToBoundary() const;
    void setToBoundary(const QString& boundary);
    double getToParameter() const; ///< Where on a longer curve this one ends; 1 unless it was cut.
    void setToParameter(double parameter);
    bool getLine() const;                ///< Whether it runs straight from end to end, or is a point.
    bool getCusp() const;                ///< Whether the curve comes to a point between its ends.
    unsigned int getInflections() const; ///< How often the curve changes the side to which it bends: 0, 1 or 2.
};

} // namespace OMC

Q_DECLARE_METATYPE(OMC::Bezier)
