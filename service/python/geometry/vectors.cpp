#include "core/geometry/vectors.h"
#include "service/python/tables.h"

namespace brindle::python {

std::vector<ClassTable> vectorTables()
{
    using namespace OMC;
    return {
        Class<Vector2d>("Vector2d", "The way between two positions in the plane. A value is read as for Point2d.")
            .constructors<Construct<&newOf<Vector2d, QVariant>, "value">,
                          Construct<&newOf<Vector2d, double, double>, "x=0, y=0">>()
            .staticMethod<"from_qvariant", StaticForm<&Vector2d::fromQVariant, "value">>(
                "A new vector of whatever Vector2d(value) takes."),
        Class<Vector3d>("Vector3d", "The way between two positions in space. A value is read as for Point3d.")
            .constructors<Construct<&newOf<Vector3d, QVariant>, "value">,
                          Construct<&newOf<Vector3d, double, double, double>, "x=0, y=0, z=0">>()
            .staticMethod<"from_qvariant", StaticForm<&Vector3d::fromQVariant, "value">>(
                "A new vector of whatever Vector3d(value) takes."),
    };
}

} // namespace brindle::python
