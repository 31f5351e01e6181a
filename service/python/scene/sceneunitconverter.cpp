#include "core/scene/sceneunitconverter.h"

#include "service/python/family.h"

namespace brindle::python {

namespace {

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<SceneUnitConverter>()
            .method<"to_field", Form<pick<double, const QString&>(&SceneUnitConverter::toField), "value, axis">,
                    Form<pick<const QVariant&>(&SceneUnitConverter::toField), "point: Point2d -> Point2d">,
                    Form<pick<const QVariant&>(&SceneUnitConverter::toField),
                         "point: Point3d | Sequence[object] | float -> Point3d">>()
            .method<"to_ogl", Form<pick<double, const QString&>(&SceneUnitConverter::toOgl), "value, axis">,
                    Form<pick<const QVariant&>(&SceneUnitConverter::toOgl), "point: Point2d -> Point2d">,
                    Form<pick<const QVariant&>(&SceneUnitConverter::toOgl),
                         "point: Point3d | Sequence[object] | float -> Point3d">>(),
    };
});

} // namespace

} // namespace brindle::python
