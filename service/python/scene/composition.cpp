#include "core/scene/composition.h"

#include "core/scene/compositionlist.h"
#include "service/python/tables.h"

namespace brindle::python {

std::vector<ClassTable> compositionTables()
{
    using namespace OMC;
    return {
        Class<Composition>("Composition", "What a scene shows, layer by layer. No scene gives one yet.")
            .method<"get_base", Form<&Composition::getBase>>("Always fails.")
            .method<"get_layers", Form<&Composition::getLayers>>("Always fails.")
            .method<"render", Form<&Composition::render>>("Always False."),
        Class<CompositionLayer>("CompositionLayer", "A layer of a composition."),
        Class<AttributeLayer>("AttributeLayer", "The layer of an attribute.")
            .method<"get_attribute", Form<&AttributeLayer::getAttribute>>("Always fails."),
        Class<NodeLayer>("NodeLayer", "The layer of a node.")
            .method<"get_node", Form<&NodeLayer::getNode>>("Always fails."),
        Class<SoundLayer>("SoundLayer", "The layer of a sound.")
            .method<"get_sound", Form<&SoundLayer::getSound>>("Always fails."),
        Class<DrawingCompLayer>("DrawingCompLayer", "The layer of a drawing."),
        Class<GroupLayer>("GroupLayer", "The layer of a group."),
        Class<CompositionList>("CompositionList",
                               "The compositions of a scene: none yet, and no scene gives the list."),
    };
}

} // namespace brindle::python
