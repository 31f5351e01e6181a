#include "core/scene/scenemetrics.h"

#include "service/python/family.h"

namespace brindle::python {

namespace {

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<SceneAspect>(),
        Class<SceneUnits>(),
        Class<SceneCenter>(),
    };
});

} // namespace

} // namespace brindle::python
