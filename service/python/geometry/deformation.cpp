#include "core/geometry/deformation.h"

#include "service/python/family.h"

namespace brindle::python {

namespace {

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<Deformation>()
            .calling("transform")
            .method<"transform",
                    Form<&Deformation::transform,
                         "value: PointLike | Sequence[PointLike], scaled=False -> Point3d | list[Point3d]">>(),
    };
});

} // namespace

} // namespace brindle::python
