#pragma once

#include "core/nodes/node.h"

class TUPegModule;

namespace OMC {

/// A node that moves, turns, scales and skews what hangs on it: scale first, then skew, the turn about the pivot, and
/// the move. Positions are in fields, angles in degrees, counter-clockwise; a matrix is in OpenGL units.
///
/// In the plane, the usual way, its rotation is the angle about z, and its scale that of x and y. With "full_transform"
/// on it turns about x, y and z, one after the other, and scales all three.
class BRINDLE_CORE_EXPORT PegNode : public Node {
    Q_OBJECT
    BRINDLE_COPYABLE(PegNode)

public:
    explicit PegNode(TUPegModule* node);

    std::string __str__() const override;
    /// Shows the operations that set a part of the transformation, which look like setters of properties.
    bool filterDir(std::string& name) const override;

    /// The transformation of what hangs on the peg: its own behind those of the pegs above it. A Matrix.
    virtual Obj matrix(int frame) const;
    /// The point that it turns about, a Point3d: with `inUse` the one that it really uses at the frame, else that of
    /// the attribute.
    virtual Obj pivot(int frame, bool inUse = false) const;
    virtual Obj rotation(int frame) const;    ///< A Vector3d of angles about x, y and z.
    virtual Obj scale(int frame) const;       ///< A Vector3d of factors.
    virtual double skew(int frame) const;     ///< The angle by which the y axis leans towards x.
    virtual Obj translation(int frame) const; ///< A Vector3d.

    /// Takes a matrix apart into the peg's scale, rotation, skew and translation, with keys for all of them at the
    /// frame. It is the peg's own transformation, without those of the pegs above it; what the peg can't do (skew in
    /// space, a turn about x in the plane, ...) is left out. `adjustColumn` lets the rest of the columns follow.
    virtual void setMatrix(int frame, const QVariant& matrix, bool adjustColumn = false);
    /// Sets the point that it turns about, for all frames: a position in any form; what it doesn't tell stays. With
    /// `keepPlace` the point is where the drawings below show it: what they add themselves is taken off.
    virtual void setPivot(int frame, const QVariant& point, bool keepPlace = false);
    /// Sets the rotation: a number, the angle about z, or three angles in any form of a position.
    virtual void setRotation(int frame, const QVariant& value, bool adjustColumn = false);
    virtual void setScale(int frame, const QVariant& value, bool adjustColumn = false); ///< Sets the factors.
    virtual void setSkew(int frame, const QVariant& value, bool adjustColumn = false);  ///< Sets the angle.
    virtual void setTranslation(int frame, const QVariant& value,
                                bool adjustColumn = false); ///< Sets the place, in fields.

    /// Adds the parts of a matrix to those of the peg at a frame, or over the frames of [first, last]: factors
    /// multiply, all else is added. What lies outside stays in place.
    virtual void applyMatrix(const QVariant& range, const QVariant& matrix);
    virtual void applyRotation(const QVariant& range, const QVariant& value);    ///< Adds to the angles.
    virtual void applyScale(const QVariant& range, const QVariant& value);       ///< Multiplies the factors.
    virtual void applySkew(const QVariant& range, double value);                 ///< Adds to the skew.
    virtual void applyTranslation(const QVariant& range, const QVariant& value); ///< Adds a way, in fields.

private:
    TUPegModule& peg() const;
};

} // namespace OMC
