#pragma once

#include "core/frame/obj.h"
#include "core/host/math_matrix4x4.h"

#include <QList>

#include <memory>

namespace OMC {

/// A 4 by 4 homogeneous matrix: where it puts the axes and the origin is what it does to a picture.
///
/// A value: it leads to no engine object, is always valid, and travels inside a QVariant by copy. Cells 0 to 2 are the
/// x axis, 4 to 6 the y axis, 8 to 10 the z axis, 12 to 14 the origin and 15 the homogeneous scale. Each operation that
/// adds a step multiplies from the right: the step added last acts first on a point. Angles are in degrees where
/// nothing else is said. The arithmetic is Math::Matrix4x4's; what is here reads arguments in every form.
class BRINDLE_CORE_EXPORT Matrix : public BaseObject {
    Q_OBJECT
    Q_PROPERTY(bool has_nan READ getHasNan)
    Q_PROPERTY(bool has_infinity READ getHasInfinity)
    Q_PROPERTY(QVariant axis_x READ getXAxis WRITE setXAxis)
    Q_PROPERTY(QVariant axis_y READ getYAxis WRITE setYAxis)
    Q_PROPERTY(QVariant axis_z READ getZAxis WRITE setZAxis)
    Q_PROPERTY(QVariant origin READ getOrigin WRITE setOrigin)
    Q_PROPERTY(bool identity READ getIdentity WRITE setIdentity)
    Q_PROPERTY(bool singular READ getSingular)
    Q_PROPERTY(double truck_factor READ getTruckFactor)
    Q_PROPERTY(double scale_factor READ getScaleFactor)
    Q_PROPERTY(bool rotation_exists READ getRotationExists)
    Q_PROPERTY(bool constant_z READ getConstantZ)
    Q_PROPERTY(bool transform_2d READ getTransform2d)
    Q_PROPERTY(bool perspective READ getPerspective)

public:
    static constexpr int cellCount = 16;

    Matrix();
    Matrix(const Math::Matrix4x4& matrix);
    Matrix(const Matrix& other);
    /// What `fromQVariant` reads.
    explicit Matrix(const QVariant& value);
    /// The frame at a point whose y axis points along a vector; null stands for (0, 1, 0) and (0, 0, 0).
    Matrix(const QVariant& axis, const QVariant& origin);
    ~Matrix() override;
    Matrix& operator=(const Matrix& other);

    BaseObject* copy() const override;
    std::string __str__() const override;
    bool filterDir(std::string& name) const override;

    /// A new matrix, which the caller owns: of a matrix or a transformation as it is; of a point or vector, the move
    /// there; of a number, a scale on all axes; of a list, its numbers by how many they are (2 and 3 move, 9 are a 3 by
    /// 3 homogeneous form, 16 the cells), times the matrices in it in their order. The identity of anything else.
    static Matrix* fromQVariant(const QVariant& value);
    /// The same without a new object.
    static Math::Matrix4x4 valueOf(const QVariant& value);

    const Math::Matrix4x4& getMatrix() const;

    QVariant get(int index) const; ///< A cell; throws out of range.
    /// Required: reads the value, checks the index and changes nothing. Cells change through the axes and the origin.
    void set(int index, const QVariant& value);
    QList<int> list() const; ///< Required: the cells, each cut off to a whole number.
    int size() const { return cellCount; }
    bool operator==(const QVariant& other) const;

    /// Required: the iteration goes through the cells 0 to 14 and is at its end at cell 15.
    Obj __iter__() const;
    bool __atend__() const;
    QVariant __iterItem__() const;
    void operator++();

    void reset();
    void normalize();
    void transpose();
    void inverse();         ///< Throws where there is none.
    Obj getInverse() const; ///< Throws where there is none.
    Obj matrixRotation() const;
    void multiply(const QVariant& other);
    void translate(double x, double y, double z);
    void translate(const QVariant& vector);
    void scale(double x, double y, double z);
    void skew(double angle);
    /// A null axis stands for (0, 0, 1).
    void rotateDegrees(double angle, const QVariant& axis);
    void rotateRadians(double angle, const QVariant& axis);
    void orthogonalProject(double left, double right, double bottom, double top, double zNear, double zFar);
    void perspectiveProject(double fieldOfView, double aspect, double zNear, double zFar);
    void perspectiveProject(double left, double right, double bottom, double top, double zNear, double zFar);
    /// Null stands for the eye (0, 0, 0), the target (0, 0, -2.66) and upwards (0, 1, 0).
    void lookAt(const QVariant& eye, const QVariant& target, const QVariant& up);

    /// What a matrix, point or vector becomes under this one, in an object of its class; the coordinates as a list for
    /// anything that isn't an object. Invalid for other objects.
    QVariant apply(const QVariant& value) const;
    /// [translation as a Vector3d, scale as a Vector2d, rotation, skew].
    QList<QVariant> extractParameters_2d(bool negativeX, bool negativeY, const QVariant& pivot) const;
    /// [translation, scale, rotation about x, y and z], each a Vector3d.
    QList<QVariant> extractParameters_3d(const QVariant& pivot) const;
    void print(const QString& text) const;

    bool getHasNan() const;
    bool getHasInfinity() const;
    QVariant getXAxis() const;
    void setXAxis(const QVariant& axis);
    QVariant getYAxis() const;
    void setYAxis(const QVariant& axis);
    QVariant getZAxis() const;
    void setZAxis(const QVariant& axis);
    QVariant getOrigin() const;
    void setOrigin(const QVariant& origin);
    bool getIdentity() const;
    void setIdentity(bool identity); ///< False has no effect.
    bool getSingular() const;
    double getTruckFactor() const;
    double getScaleFactor() const;
    bool getRotationExists() const;
    bool getConstantZ() const;
    bool getTransform2d() const;
    bool getPerspective() const;

private:
    void setCells(std::size_t first, const QVariant& value);

    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace OMC

Q_DECLARE_METATYPE(OMC::Matrix)
