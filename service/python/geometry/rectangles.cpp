#include "core/geometry/rectangles.h"

#include "service/python/family.h"

namespace brindle::python {

namespace {

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<Rect2D>()
            .constructor<&newOf<Rect2D, double, double>, "width=0, height=0">()
            .member<&Rect2D::width>("width")
            .member<&Rect2D::height>("height"),
        Class<AllocatedRect2D>()
            .constructors<
                Construct<&newOf<AllocatedRect2D, double, double, double, double>, "width=0, height=0, x=0, y=0">,
                Construct<&AllocatedRect2D::fromQVariant, "value: Rect2D | PointLike">>()
            .member<&AllocatedRect2D::x>("x")
            .member<&AllocatedRect2D::y>("y")
            .method<"add", Form<&AllocatedRect2D::add, "value: Rect2D | PointLike">>()
            .method<"expand", Form<pick<double, double>(&AllocatedRect2D::expand), "x, y">,
                    Form<pick<double, double, double, double>(&AllocatedRect2D::expand), "left, bottom, right, top">>()
            .staticMethod<"from_qvariant", StaticForm<&AllocatedRect2D::fromQVariant, "value: Rect2D | PointLike">>(),
        Class<Rect2DI>()
            .constructor<&newOf<Rect2DI, int, double>, "width=0, height=0">()
            .member<&Rect2DI::width>("width")
            .member<&Rect2DI::height>("height")
            .staticMethod<"convert_qvariant", StaticForm<&Rect2DI::ConvertQVariant, "value">>(),
        Class<AllocatedRect2DI>()
            .constructor<&newOf<AllocatedRect2DI, int, int, int, int>, "width=0, height=0, x=0, y=0">()
            .member<&AllocatedRect2DI::x>("x")
            .member<&AllocatedRect2DI::y>("y"),
    };
});

} // namespace

} // namespace brindle::python
