#pragma once

#include "core/frame/obj.h"
#include "core/host/math_matrix4x4.h"

#include <QList>

#include <memory>

namespace OMC {

/// A 4 by 4 homogeneous matrix, stored as the images of the axes and of the origin: cells 0 to 2 are the x axis, 4 to 6
/// the y axis, 8 to 10 the z axis, 12 to 14 the origin and 15 the homogeneous scale. Each step is multiplied from the
/// right, so the step added last acts first on a point. Angles are in degrees unless the operation says otherwise.
///
/// One value makes a matrix as follows: a matrix or a transformation is copied; a point or vector gives the translation
/// to it; a number gives the scale by it; a list gives its 2 or 3 numbers as a translation (of 3 the second counts
/// twice), 9 numbers as a 3 by 3 homogeneous matrix, 16 numbers as the cells, multiplied by the matrices in the list.
/// An axis and an origin give the frame whose y axis points along the axis; null stands for (0, 1, 0) and (0, 0, 0).
///
/// A value: it leads to no engine object, is always valid, and travels inside a QVariant by copy. The arithmetic is
/// Math::Matrix4x4's; what is here reads arguments in every form.
class BRINDLE_CORE_EXPORT Matrix : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(Matrix)
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
    /// Reads every form that `fromQVariant` takes.
    explicit Matrix(const QVariant& value);
    /// The frame at a point whose y axis points along a vector; null stands for (0, 1, 0) and (0, 0, 0).
    Matrix(const QVariant& axis, const QVariant& origin);
    ~Matrix() override;
    Matrix& operator=(const Matrix& other);

    std::string __str__() const override;
    bool filterDir(std::string& name) const override;

    /// A new matrix of whatever Matrix(value) takes; the identity of anything else.
    ///
    /// The caller owns it.
    static Matrix* fromQVariant(const QVariant& value);
    /// The same without a new object.
    static Math::Matrix4x4 valueOf(const QVariant& value);

    const Math::Matrix4x4& getMatrix() const;

    QVariant get(int index) const; ///< A cell, 0 to 15.
    /// Checks the index and changes nothing: cells are written through the axes and the origin.
    ///
    /// Required: the value is read, and dropped.
    void set(int index, const QVariant& value);
    /// The sixteen cells, each cut off to a whole number.
    ///
    /// Required as it is.
    QList<int> list() const;
    int size() const { return cellCount; } ///< 16, as len() gives it.
    bool operator==(const QVariant& other) const;

    /// Required: the iteration goes through the cells 0 to 14 and is at its end at cell 15.
    Obj __iter__() const;
    bool __atend__() const;
    QVariant __iterItem__() const;
    void operator++();

    void reset();                                 ///< Becomes the identity.
    void normalize();                             ///< Gives the axes length 1 and the homogeneous scale 1.
    void transpose();                             ///< Swaps rows and columns.
    void inverse();                               ///< Becomes its inverse; fails for a singular matrix.
    Obj getInverse() const;                       ///< The inverse as a new Matrix; fails for a singular matrix.
    Obj matrixRotation() const;                   ///< The rotation alone as a new Matrix.
    void multiply(const QVariant& other);         ///< Multiplies from the right by anything that Matrix(value) takes.
    void translate(double x, double y, double z); ///< Adds a move, by three numbers or by anything that Vector3d takes.
    void translate(const QVariant& vector);
    void scale(double x, double y, double z); ///< Adds a scale along each axis.
    void skew(double angle); ///< Adds a lean of the y axis towards x by an angle in degrees; heights stay.
    /// Adds a turn, counter-clockwise about an axis; null is the z axis, out of the picture.
    void rotateDegrees(double angle, const QVariant& axis);
    /// Adds a turn in radians, counter-clockwise about an axis; null is the z axis, out of the picture.
    void rotateRadians(double angle, const QVariant& axis);
    /// Adds the projection of a box in front of the eye, which looks along -z, to the cube from -1 to 1.
    void orthogonalProject(double left, double right, double bottom, double top, double zNear, double zFar);
    /// Adds the perspective projection of a frustum in front of the eye to the cube from -1 to 1. The frustum is given
    /// by the vertical angle of view in degrees and the aspect, width to height, or by its rectangle at the near
    /// distance.
    void perspectiveProject(double fieldOfView, double aspect, double zNear, double zFar);
    void perspectiveProject(double left, double right, double bottom, double top, double zNear, double zFar);
    /// Adds the view from an eye to a target; null stands for (0, 0, 0), (0, 0, -2.66) and upwards (0, 1, 0).
    void lookAt(const QVariant& eye, const QVariant& target, const QVariant& up);

    /// Transforms a matrix, point or vector by this one and gives an object of its class; numbers and lists give a list
    /// of three coordinates, other objects null. Vectors are moved like points.
    QVariant apply(const QVariant& value) const;
    /// [translation, scale, rotation, skew] in the plane about a pivot: a Vector3d, a Vector2d and two angles in
    /// degrees. The matrix is translate, rotate, skew, scale, in this order. The flags ask for negative scales; a
    /// mirror has y's.
    QList<QVariant> extractParameters_2d(bool negativeX, bool negativeY, const QVariant& pivot) const;
    /// [translation, scale, rotation about x, y and z] in space about a pivot, three Vector3d, angles in degrees: the
    /// matrix is translate, rotate about z, y and x, scale, in this order.
    QList<QVariant> extractParameters_3d(const QVariant& pivot) const;
    void print(const QString& text) const; ///< Writes a text and the cells to the standard output.

    bool getHasNan() const;      ///< Whether a cell is no number.
    bool getHasInfinity() const; ///< Whether a cell is infinite.
    QVariant getXAxis() const;   ///< Where (1, 0, 0) points, a Vector3d; takes what Point3d takes.
    void setXAxis(const QVariant& axis);
    QVariant getYAxis() const; ///< Where (0, 1, 0) points, a Vector3d; takes what Point3d takes.
    void setYAxis(const QVariant& axis);
    QVariant getZAxis() const; ///< Where (0, 0, 1) points, a Vector3d; takes what Point3d takes.
    void setZAxis(const QVariant& axis);
    QVariant getOrigin() const; ///< Where (0, 0, 0) is put, a Point3d; takes what Point3d takes.
    void setOrigin(const QVariant& origin);
    bool getIdentity() const; ///< Whether it changes nothing; writing true makes it so, false does nothing.
    void setIdentity(bool identity);
    bool getSingular() const; ///< Whether it has no inverse.
    /// How much larger the origin's depth makes things for the standard camera, which is 8/3 from the plane z = 0; 0 at
    /// and behind it.
    double getTruckFactor() const;
    double getScaleFactor() const;  ///< How much lengths grow in the plane z = 0.
    bool getRotationExists() const; ///< Whether it turns anything.
    bool getConstantZ() const;      ///< Whether the plane z = 0 keeps one depth all over.
    bool getTransform2d() const;    ///< Whether it acts on x and y alone.
    bool getPerspective() const;    ///< Whether it is a perspective projection.

private:
    void setCells(std::size_t first, const QVariant& value);

    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace OMC

Q_DECLARE_METATYPE(OMC::Matrix)
