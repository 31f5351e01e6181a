#pragma once

#include "core/frame/obj.h"
#include "core/host/mo_porttransform.h"

#include <memory>

namespace OMC {

class Deformation;

/// The transformation at an out-port of the graph: a matrix, its depth among what is drawn, and deformations.
///
/// A value: it is what the port gave at a frame, or a detached one, and changing it changes no port. It travels inside
/// a QVariant by copy. Each step is added from the right, as on a Matrix.
class BRINDLE_CORE_EXPORT Transformation : public BaseObject {
    Q_OBJECT
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

    BaseObject* copy() const override;
    std::string __str__() const override;

    bool operator==(const Transformation& other) const;

    virtual int getDepth() const;
    virtual void setDepth(int depth);
    virtual bool getValid() const; ///< Whether anything was set or added.
    virtual QVariant getMatrix() const;
    virtual void setMatrix(const QVariant& matrix);
    virtual void set(const QVariant& matrix);
    virtual void reset(); ///< Back to the identity, not set, at depth 0.
    virtual void translate(double x, double y, double z);
    virtual void translate(const QVariant& vector); ///< Throws for null.
    virtual void scale(double x, double y, double z);
    /// Angles in degrees, or radians; a null axis stands for (0, 0, 1).
    virtual void rotateDegrees(double angle, const QVariant& axis);
    virtual void rotateRadians(double angle, const QVariant& axis);
    virtual void skew(double angle);
    virtual void multiply(const QVariant& matrix);
    /// Another transformation with its deformations, or whatever `multiply` takes.
    virtual void add(const QVariant& other);
    virtual Obj matrixInversed() const; ///< Throws where there is none.
    virtual bool getDeformationValid() const;
    virtual void deformationReset();           ///< Drops all deformations, and the one that was handed out.
    virtual Obj matrixWithDeformation() const; ///< Includes what the deformations do to a whole drawing.
    virtual Obj getOrigin() const;
    /// The deformers of the deformations that are enabled; empty where there are none. The same object until
    /// deformationReset, which destroys it as the transformation does.
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
