#pragma once

#include "core/geometry/curvelist.h"

#include <QString>

#include <vector>

namespace OMC {

class Bezier;
extern template class BRINDLE_CORE_EXPORT CurveList<Bezier, GR_Bezier2d>;

/// A polynomial curve of degree 0 to 3 in the plane, with one control point more than its degree.
///
/// A value that travels inside a QVariant by copy. The boundaries say whether its ends belong to it; the parameters,
/// which stretch of a longer curve it is.
class BRINDLE_CORE_EXPORT Bezier : public CurveList<Bezier, GR_Bezier2d> {
    Q_OBJECT
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

    /// Appends the curves of a degree that a value tells: Beziers and points in a list that holds more items than the
    /// degree. Required: the first `degree` of plain points in a row make one curve, whose last control point stays
    /// (0, 0); the points behind them make none.
    static void getBezierFromQVariant(const QVariant& value, std::vector<GR_Bezier2d>& curves, unsigned int degree);

    Obj derivative() const;                       ///< The curve of the derivatives, one degree lower.
    Obj evaluateAndRound(double parameter) const; ///< A Point2d of whole numbers.
    /// Becomes the straight line between its ends, of degree 1, unless it is of that degree or a point.
    void straighten();

    int getDegree() const;
    void setDegree(int degree); ///< 0 to 3. A higher degree brings back the points that a lower one left out.
    QString getFromBoundary() const;
    void setFromBoundary(const QString& boundary); ///< "Open" or "Closed", whatever the case of the letters.
    double getFromParameter() const;
    void setFromParameter(double parameter);
    QString getToBoundary() const;
    void setToBoundary(const QString& boundary);
    double getToParameter() const;
    void setToParameter(double parameter);
    bool getLine() const; ///< Whether it runs straight from end to end.
    bool getCusp() const;
    unsigned int getInflections() const; ///< 0 to 2.
};

} // namespace OMC

Q_DECLARE_METATYPE(OMC::Bezier)
