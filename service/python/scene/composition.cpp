#include "core/scene/composition.h"

#include "core/scene/compositionlist.h"
#include "service/python/family.h"

namespace brindle::python {

namespace {

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<Composition>()
            .method<"get_base", Form<&Composition::getBase, "-> Node">>()
            .method<"get_layers", Form<&Composition::getLayers, "-> list[CompositionLayer]">>()
            .method<"render", Form<&Composition::render>>(),
        Class<CompositionLayer>(),
        Class<AttributeLayer>().method<"get_attribute", Form<&AttributeLayer::getAttribute, "-> Attribute">>(),
        Class<NodeLayer>().method<"get_node", Form<&NodeLayer::getNode, "-> Node">>(),
        Class<SoundLayer>().method<"get_sound", Form<&SoundLayer::getSound, "-> Sound">>(),
        Class<DrawingCompLayer>(),
        Class<GroupLayer>(),
        Class<CompositionList>().items("Composition"),
    };
});

} // namespace

} // namespace brindle::python
