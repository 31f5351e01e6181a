#include "core/geometry/rectangles.h"

#include "core/frame/finite.h"
#include "core/geometry/point3d.h"
#include "core/geometry/strictpoint.h"
#include "core/nodes/node_coordinates.h"

#include <array>
#include <cmath>
#include <limits>
#include <optional>

namespace OMC {

namespace {

Math::Point2d planePoint(const QVariant& value)
{
    const Math::Point3d point = Point3d::valueOf(value);
    return {point.x, point.y};
}

/// The number without its fraction; nothing for one beyond the integers.
std::optional<int> truncated(double number)
{
    const double whole = std::trunc(number);
    if (!(whole >= std::numeric_limits<int>::min() && whole <= std::numeric_limits<int>::max()))
        return std::nullopt;
    return static_cast<int>(whole);
}

} // namespace

// --- Rect2D ---------------------------------------------------------------------------------------------------------

Rect2D::Rect2D(double width, double height) : width(width), height(height) {}

Rect2D::Rect2D(const Rect2D& other) : BaseObject(other), width(other.width), height(other.height) {}

Rect2D& Rect2D::operator=(const Rect2D& other)
{
    width = other.width;
    height = other.height;
    return *this;
}

std::string Rect2D::__str__() const
{
    return QStringLiteral("Rect2D(%1, %2)").arg(width).arg(height).toStdString();
}

// --- AllocatedRect2D ------------------------------------------------------------------------------------------------

AllocatedRect2D::AllocatedRect2D(double width, double height, double x, double y) : Rect2D(width, height), x(x), y(y) {}

AllocatedRect2D::AllocatedRect2D(const AllocatedRect2D& other) : Rect2D(other), x(other.x), y(other.y) {}

AllocatedRect2D& AllocatedRect2D::operator=(const AllocatedRect2D& other)
{
    Rect2D::operator=(other);
    x = other.x;
    y = other.y;
    return *this;
}

std::string AllocatedRect2D::__str__() const
{
    return QStringLiteral("AllocatedRect2D(%1, %2, %3, %4)").arg(width).arg(height).arg(x).arg(y).toStdString();
}

AllocatedRect2D* AllocatedRect2D::fromQVariant(const QVariant& value)
{
    if (value.typeId() == QMetaType::QVariantList) {
        Math::Box2d box;
        for (const QVariant& item : *static_cast<const QVariantList*>(value.constData()))
            box.AddClosed(planePoint(item));
        auto* rectangle = new AllocatedRect2D;
        rectangle->setBox(box);
        return rectangle;
    }
    const QObject* object = QVariantToPointer(value);
    if (const auto* rectangle = dynamic_cast<const AllocatedRect2D*>(object))
        return new AllocatedRect2D(*rectangle);
    // Required: a node's coordinates give x twice, unlike in every other reader.
    if (const auto* coordinates = dynamic_cast<const Node_Coordinates*>(object))
        return new AllocatedRect2D(0.0, 0.0, coordinates->getX(), coordinates->getX());
    const Math::Point2d point = planePoint(value);
    return new AllocatedRect2D(0.0, 0.0, point.x, point.y);
}

void AllocatedRect2D::add(const QVariant& value)
{
    Math::Box2d grown = box();
    if (const auto* rectangle = objectFrom<AllocatedRect2D>(value))
        grown.AddClosed(rectangle->box());
    else
        grown.AddClosed(planePoint(value));
    setBox(grown);
}

void AllocatedRect2D::expand(double x, double y)
{
    requireFinite(x, 0);
    requireFinite(y, 1);
    setBox(box().Enlarge(x, y));
}

void AllocatedRect2D::expand(double left, double bottom, double right, double top)
{
    requireFinite(left, 0);
    requireFinite(bottom, 1);
    requireFinite(right, 2);
    requireFinite(top, 3);
    setBox(Math::Box2d({x - left, y - bottom}, {x + width + right, y + height + top}));
}

Math::Box2d AllocatedRect2D::box() const
{
    return Math::Box2d({x, y}, {x + width, y + height});
}

void AllocatedRect2D::setBox(const Math::Box2d& box)
{
    x = box.minX();
    y = box.minY();
    width = box.width();
    height = box.height();
}

// --- Rect2DI --------------------------------------------------------------------------------------------------------

Rect2DI::Rect2DI(int width, double height) : width(width), height(0)
{
    const std::optional<int> whole = truncated(height);
    if (!whole)
        throwInvalidArgument(1);
    this->height = *whole;
}

Rect2DI::Rect2DI(const Rect2DI& other) : BaseObject(other), width(other.width), height(other.height) {}

Rect2DI& Rect2DI::operator=(const Rect2DI& other)
{
    width = other.width;
    height = other.height;
    return *this;
}

std::string Rect2DI::__str__() const
{
    // Required: the text has another name than the class.
    return QStringLiteral("Rect2dI(%1, %2)").arg(width).arg(height).toStdString();
}

Rect2DI* Rect2DI::ConvertQVariant(const QVariant& value)
{
    if (const QObject* object = QVariantToPointer(value)) {
        // Required: a rectangle gives the size 0, 0. An allocated rectangle is one of these two as well.
        if (dynamic_cast<const Rect2DI*>(object) || dynamic_cast<const Rect2D*>(object))
            return new Rect2DI;
    } else if (value.typeId() == QMetaType::QVariantList) {
        const auto& list = *static_cast<const QVariantList*>(value.constData());
        double width = 0.0;
        double height = 0.0;
        // Required: the list has at least three items, of which two are read.
        if (list.size() >= 3 && readStrictList(list, std::array{&width, &height})) {
            const std::optional<int> wholeWidth = truncated(width + 0.5);
            const std::optional<int> wholeHeight = truncated(height + 0.5);
            if (wholeWidth && wholeHeight)
                return new Rect2DI(*wholeWidth, *wholeHeight);
        }
    }
    throw Exception(tr("Unsupported Point3D type."));
}

// --- AllocatedRect2DI -----------------------------------------------------------------------------------------------

AllocatedRect2DI::AllocatedRect2DI(int width, int height, int x, int y) : Rect2DI(width, height), x(x), y(y) {}

AllocatedRect2DI::AllocatedRect2DI(const AllocatedRect2DI& other) : Rect2DI(other), x(other.x), y(other.y) {}

AllocatedRect2DI& AllocatedRect2DI::operator=(const AllocatedRect2DI& other)
{
    Rect2DI::operator=(other);
    x = other.x;
    y = other.y;
    return *this;
}

std::string AllocatedRect2DI::__str__() const
{
    // Required: the text is that of the class in doubles.
    return QStringLiteral("AllocatedRect2D(%1, %2, %3, %4)").arg(width).arg(height).arg(x).arg(y).toStdString();
}

} // namespace OMC
