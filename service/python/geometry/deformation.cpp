#include "core/geometry/deformation.h"

#include "service/python/tables.h"

namespace brindle::python {

std::vector<ClassTable> deformationTables()
{
    using namespace OMC;
    return {
        Class<Deformation>("Deformation", "The deformers of a transformation as they were when it was asked for them.")
            .calling("transform")
            .method<"transform", Form<&Deformation::transform, "value, scaled=False">>(
                "Where a point in any form that Point3d takes comes to, as a Point3d with z 0; a list of them for a "
                "list of points. In the units of the scene, or, with `scaled`, in those that deformers count in."),
    };
}

} // namespace brindle::python
