#pragma once

#include "core/frame/obj.h"
#include "core/host/mo_porttransform.h"

#include <memory>

namespace OMC {

class Deformation;

/// The transformation of a picture at a port at a frame: a matrix, a depth that orders what is drawn, and deformations.
/// It is a value: changing it changes no port, and one made by a script belongs to no port. Each step is multiplied
/// from the right, so the step added last acts first.
///
/// It travels inside a QVariant by copy.
class BRINDLE_CORE_EXPORT Transformation : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(Transformation)
    Q_PROPERTY(int depth READ getDepth WRITE setDepth)
    Q_PROPERTY(bool valid READ getValid)
    Q_PROPERTY(QVariant matrix READ getMatrix WRITE setMatrix)
    Q_PROPERTY(bool deformation_valid READ getDeformationValid)
    Q_PROPERTY(OMC::Obj deformation READ getDeformation)
    Q_PROPERTY(OMC::Obj origin READ getOrigin)

public:
    Transformation(); ///< A detached one at frame 1.
    /// A copy of a port's; null gives a detached one.
    explicit Transformation(const MO_PortTransform* transform);
    Transformation(const Transformation& other);
    ~Transformation() override;
    Transformation& operator=(const Transformation& other);

    std::string __str__() const override;

    bool operator==(const Transformation& other) const;

    virtual int getDepth() const; ///< Its place among what is drawn.
    virtual void setDepth(int depth);
    virtual bool getValid() const;      ///< Whether anything was set or added.
    virtual QVariant getMatrix() const; ///< A new Matrix, without deformations; takes what Matrix(value) takes.
    virtual void setMatrix(const QVariant& matrix);
    virtual void set(const QVariant& matrix); ///< Replaces the matrix by anything that Matrix(value) takes.
    virtual void reset();                     ///< Becomes the identity at depth 0, without deformations and not valid.
    /// Adds a move, by three numbers or by anything that Vector3d takes.
    virtual void translate(double x, double y, double z);
    virtual void translate(const QVariant& vector);
    virtual void scale(double x, double y, double z); ///< Adds a scale along each axis.
    /// Adds a turn, counter-clockwise about an axis; null is the z axis, out of the picture.
    virtual void rotateDegrees(double angle, const QVariant& axis);
    /// Adds a turn in radians, counter-clockwise about an axis; null is the z axis, out of the picture.
    virtual void rotateRadians(double angle, const QVariant& axis);
    virtual void skew(double angle); ///< Adds a lean of the y axis towards x by an angle in degrees; heights stay.
    virtual void multiply(const QVariant& matrix); ///< Adds a matrix in any form that Matrix(value) takes.
    /// Adds another transformation with its deformations, or a matrix as `multiply` does.
    virtual void add(const QVariant& other);
    virtual Obj matrixInversed() const;        ///< The inverse of the matrix as a new Matrix; fails for a singular one.
    virtual bool getDeformationValid() const;  ///< Whether it has deformations.
    virtual void deformationReset();           ///< Drops all deformations.
    virtual Obj matrixWithDeformation() const; ///< A new Matrix with what the deformations do to a drawing as a whole.
    virtual Obj getOrigin() const;             ///< Where (0, 0, 0) is put, a Point3d.
    /// The deformers that are enabled; null where there are none.
    ///
    /// The same object until deformationReset, which destroys it as the transformation does.
    Obj getDeformation() const;

    const MO_PortTransform* getPortTransform() const; ///< Null where it is invalid.

protected:
    /// Takes a transformation over; null gives one that is invalid all its life.
    explicit Transformation(std::unique_ptr<MO_PortTransform> transform);

private:
    CC_Transformation& required() const;

    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace OMC

Q_DECLARE_METATYPE(OMC::Transformation)
