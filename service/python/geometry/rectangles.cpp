#include "core/geometry/rectangles.h"

#include "service/python/tables.h"

namespace brindle::python {

std::vector<ClassTable> rectangleTables()
{
    using namespace OMC;
    return {
        Class<Rect2D>("Rect2D", "The size of a rectangle, in the units of the operation that takes or gives it.")
            .constructor<&newOf<Rect2D, double, double>, "width=0, height=0">()
            .member<&Rect2D::width>("width", "From side to side.")
            .member<&Rect2D::height>("height", "The second size."),
        Class<AllocatedRect2D>("AllocatedRect2D",
                               "A size and the corner with the smallest coordinates. A value gives the "
                               "rectangle about the positions in a list, or about a single one.")
            .constructors<
                Construct<&newOf<AllocatedRect2D, double, double, double, double>, "width=0, height=0, x=0, y=0">,
                Construct<&AllocatedRect2D::fromQVariant, "value">>()
            .member<&AllocatedRect2D::x>("x", "The smallest x.")
            .member<&AllocatedRect2D::y>("y", "The smallest y.")
            .method<"add", Form<&AllocatedRect2D::add, "value">>(
                "Grows to hold an AllocatedRect2D, or a position in any form that Point2d takes.")
            .method<"expand", Form<pick<double, double>(&AllocatedRect2D::expand), "x, y">,
                    Form<pick<double, double, double, double>(&AllocatedRect2D::expand), "left, bottom, right, top">>(
                "Moves the sides outwards by margins; negative ones move them inwards.")
            .staticMethod<"from_qvariant", StaticForm<&AllocatedRect2D::fromQVariant, "value">>(
                "A new rectangle: an AllocatedRect2D as it is, the one about the positions in a list, or of no size at "
                "a single one."),
        Class<Rect2DI>("Rect2DI", "The size of a rectangle in whole numbers; the height may be given with a fraction, "
                                  "which is cut off.")
            .constructor<&newOf<Rect2DI, int, double>, "width=0, height=0">()
            .member<&Rect2DI::width>("width", "From side to side.")
            .member<&Rect2DI::height>("height", "The second size.")
            .staticMethod<"convert_qvariant", StaticForm<&Rect2DI::ConvertQVariant, "value">>(
                "A new size of the first two numbers in a list of three or more, rounded; 0 by 0 of a rectangle. Fails "
                "for anything else."),
        Class<AllocatedRect2DI>("AllocatedRect2DI", "A size and the corner with the smallest coordinates, in whole "
                                                    "numbers.")
            .constructor<&newOf<AllocatedRect2DI, int, int, int, int>, "width=0, height=0, x=0, y=0">()
            .member<&AllocatedRect2DI::x>("x", "The smallest x.")
            .member<&AllocatedRect2DI::y>("y", "The smallest y."),
    };
}

} // namespace brindle::python
