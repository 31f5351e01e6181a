#pragma once

#include "core/frame/baseobject.h"
#include "core/host/math_box2d.h"

#include <QtGlobal>

namespace OMC {

/// The size of a rectangle, in the units of the operation that takes or gives it.
///
/// This and the three classes below are values: they lead to no engine object, are always valid, and travel inside a
/// QVariant by copy.
class BRINDLE_CORE_EXPORT Rect2D : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(Rect2D)

public:
    explicit Rect2D(double width = 0.0, double height = 0.0);
    Rect2D(const Rect2D& other);
    Rect2D& operator=(const Rect2D& other);

    std::string __str__() const override;

    bool operator==(const Rect2D& other) const { return width == other.width && height == other.height; }

    double width;  ///< From side to side.
    double height; ///< From bottom to top.
};

/// A size and the corner with the smallest coordinates; the other corner is (x + width, y + height). Made of one value
/// it is the rectangle about the positions in a list, or about a single one.
class BRINDLE_CORE_EXPORT AllocatedRect2D : public Rect2D {
    Q_OBJECT
    BRINDLE_COPYABLE(AllocatedRect2D)

public:
    explicit AllocatedRect2D(double width = 0.0, double height = 0.0, double x = 0.0, double y = 0.0);
    AllocatedRect2D(const AllocatedRect2D& other);
    AllocatedRect2D& operator=(const AllocatedRect2D& other);

    std::string __str__() const override;

    bool operator==(const AllocatedRect2D& other) const
    {
        return Rect2D::operator==(other) && x == other.x && y == other.y;
    }

    /// A new rectangle: a copy of a rectangle, the box about the positions in a list, or one of size 0 at a position.
    ///
    /// The caller owns it. Positions are those of Point2d::fromQVariant.
    static AllocatedRect2D* fromQVariant(const QVariant& value);

    void add(const QVariant& value); ///< Grows to hold a rectangle, or a position in any form that Point2d takes.
    /// Moves the sides outwards by margins: left and right by x, bottom and top by y, or each by its own. Negative
    /// margins move them inwards: by x and y at most to where they meet; sides with margins of their own that pass each
    /// other change places. Fails for a margin that isn't finite.
    void expand(double x, double y);
    void expand(double left, double bottom, double right, double top);

    double x; ///< The smallest x.
    double y; ///< The smallest y.

private:
    /// The box about the two corners.
    Math::Box2d box() const;
    void setBox(const Math::Box2d& box);
};

/// The size of a rectangle in whole numbers; the height may be given with a fraction, which is cut off.
class BRINDLE_CORE_EXPORT Rect2DI : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(Rect2DI)

public:
    /// Required: the height is a double whose fraction is cut off, the width an integer. Throws for a height beyond the
    /// integers.
    explicit Rect2DI(int width = 0, double height = 0.0);
    Rect2DI(const Rect2DI& other);
    Rect2DI& operator=(const Rect2DI& other);

    std::string __str__() const override;

    bool operator==(const Rect2DI& other) const { return width == other.width && height == other.height; }

    /// A new size from the first two numbers of a list of three items or more: a half is added and the fraction is cut
    /// off. A rectangle in any form gives the size 0, 0. Fails for anything else.
    ///
    /// The caller owns it.
    static Rect2DI* ConvertQVariant(const QVariant& value);

    qint32 width;  ///< From side to side.
    qint32 height; ///< From bottom to top.
};

/// A size and the corner with the smallest coordinates, in whole numbers.
class BRINDLE_CORE_EXPORT AllocatedRect2DI : public Rect2DI {
    Q_OBJECT
    BRINDLE_COPYABLE(AllocatedRect2DI)

public:
    explicit AllocatedRect2DI(int width = 0, int height = 0, int x = 0, int y = 0);
    AllocatedRect2DI(const AllocatedRect2DI& other);
    AllocatedRect2DI& operator=(const AllocatedRect2DI& other);

    std::string __str__() const override;

    bool operator==(const AllocatedRect2DI& other) const
    {
        return Rect2DI::operator==(other) && x == other.x && y == other.y;
    }

    qint32 x; ///< The smallest x.
    qint32 y; ///< The smallest y.
};

} // namespace OMC

Q_DECLARE_METATYPE(OMC::Rect2D)
Q_DECLARE_METATYPE(OMC::AllocatedRect2D)
Q_DECLARE_METATYPE(OMC::Rect2DI)
Q_DECLARE_METATYPE(OMC::AllocatedRect2DI)
