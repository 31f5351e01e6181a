#pragma once

#include "core/geometry/curvelist.h"

#include <QString>

#include <vector>

namespace OMC {

class Bezier;
extern template class BRINDLE_CORE_EXPORT CurveList<Bezier, GR_Bezier2d>;

/// A polynomial curve of degree 0 to 3 in the plane, as the list of its degree + 1 control points (Point2d), in any
/// unit, x to the right and y up. Its parameter runs from 0 to 1. Made without arguments it is a cubic at (0, 0), of a
/// Bezier a copy; of a list it takes its first Bezier, or its first three points as a cubic that ends at (0, 0), and a
/// list of fewer than four items makes no curve. The degree is not looked at.
///
/// A value that travels inside a QVariant by copy. The boundaries say whether its ends belong to it; the parameters,
/// which stretch of a longer curve it is.
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

    /// Reads the curves of a degree from a list with more items than that: its Beziers, and of plain points the first
    /// ones in a row as a curve that ends at (0, 0).
    ///
    /// The curves are appended. Required: of plain points the first `degree` in a row make one curve, and no later ones
    /// do.
    static void getBezierFromQVariant(const QVariant& value, std::vector<GR_Bezier2d>& curves, unsigned int degree);

    Obj derivative() const;                       ///< The curve of the derivatives by the parameter, one degree lower.
    Obj evaluateAndRound(double parameter) const; ///< The point at a parameter, in whole numbers.
    /// Becomes the straight line between its ends, of degree 1, unless it is of that degree or a point.
    void straighten();

    int getDegree() const; ///< 0 to 3; a higher degree brings back the points that a lower one left out.
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
