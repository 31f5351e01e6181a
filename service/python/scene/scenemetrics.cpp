#include "core/scene/scenemetrics.h"

#include "service/python/tables.h"

namespace brindle::python {

std::vector<ClassTable> sceneMetricsTables()
{
    using namespace OMC;
    return {
        Class<SceneAspect>("SceneAspect", "The shape of the field chart's units, of the whole project.")
            .property("x", "The chart's aspect across, for each unit.")
            .property("y", "The chart's aspect up, for each unit."),
        Class<SceneUnits>("SceneUnits", "The number of the field chart's units, of the whole project.")
            .property("x", "Units from the left border to the right one.")
            .property("y", "Units from the bottom to the top.")
            .property("z", "Units in depth."),
        Class<SceneCenter>("SceneCenter", "The coordinates at the centre of the picture, of the whole project.")
            .property("x", "The coordinate to the right.")
            .property("y", "The coordinate upwards."),
    };
}

} // namespace brindle::python
