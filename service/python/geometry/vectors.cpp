#include "core/geometry/vectors.h"
#include "service/python/family.h"

namespace brindle::python {

namespace {

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<Vector2d>()
            .constructors<Construct<&newOf<Vector2d, QVariant>, "value: PointLike">,
                          Construct<&newOf<Vector2d, double, double>, "x=0, y=0">>()
            .staticMethod<"from_qvariant", StaticForm<&Vector2d::fromQVariant, "value">>(),
        Class<Vector3d>()
            .constructors<Construct<&newOf<Vector3d, QVariant>, "value: PointLike">,
                          Construct<&newOf<Vector3d, double, double, double>, "x=0, y=0, z=0">>()
            .staticMethod<"from_qvariant", StaticForm<&Vector3d::fromQVariant, "value">>(),
    };
});

} // namespace

} // namespace brindle::python
