#include "core/scene/scene.h"

#include "core/clipboard/clipboard.h"
#include "core/columns/columnlist.h"
#include "core/elements/metadatahandler.h"
#include "core/nodes/groupnode.h"
#include "core/nodes/nodelist.h"
#include "core/scene/scenelist.h"
#include "service/python/family.h"
#include "service/python/scene/frameoptions.h"

namespace brindle::python {

/// The options of a call, which stay the script's; null for None.
template <>
struct From<const FrameOptions*> {
    static constexpr const char* type = "FrameOptions | None";
    static bool accepts(PyObject* value) { return value == Py_None || read(value, 0); }
    static const FrameOptions* read(PyObject* value, unsigned int)
    {
        return isWrapper(value) ? dynamic_cast<const FrameOptions*>(heldObject(value)) : nullptr;
    }
    static constexpr bool isDefault(std::string_view text) { return text == "None"; }
    static const FrameOptions* fallback(std::string_view) { return nullptr; }
};

namespace {

FrameOptions* newFrameOptions(bool rippleMarkers, bool extendExposure)
{
    return new FrameOptions(rippleMarkers, extendExposure);
}

bool frameInsert(OMC::Scene& scene, int at, int count, const FrameOptions* options)
{
    return scene.frameInsert(at, count, options);
}

bool frameRemove(OMC::Scene& scene, int at, int count, const FrameOptions* options)
{
    return scene.frameRemove(at, count, options);
}

QStringList namesOf(const OMC::SceneList& scenes)
{
    QStringList names;
    for (const OMC::Obj& item : scenes.list()) {
        if (const auto* scene = OMC::objectIn<OMC::Scene>(item))
            names.append(scene->getName());
    }
    return names;
}

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<python::FrameOptions>()
            .constructor<&newFrameOptions, "ripple_markers=True, extend_exposure=False">()
            .member<&python::FrameOptions::rippleMarkers>("ripple_markers")
            .member<&python::FrameOptions::extendExposure>("extend_exposure"),
        Class<Scene>()
            .property("aspect", "SceneAspect")
            .property("units", "SceneUnits")
            .property("center", "SceneCenter")
            .property("camera", "CameraNode | None", "NodesLike | None")
            .property("camera_path", "str", "NodesLike | None")
            .property("unit_converter", "SceneUnitConverter")
            .property<&Scene::newMetadata>("metadata")
            .property("sounds", "list[Sound]")
            .property<&Scene::newTop>("top")
            .property<&Scene::newNodes>("nodes")
            .property("compositions", "CompositionList")
            .property<&Scene::newColumns>("columns")
            .property("display", "DisplayNode | None", "NodesLike | None")
            .property("display_name", "str | None", "NodesLike | None")
            .property<&Scene::newClipboard>("clipboard")
            .property("displays", "list[DisplayNode]")
            .method<"frame_insert", Form<&frameInsert, "at, count, options=None">>()
            .method<"frame_remove", Form<&frameRemove, "at, count, options=None">>(),
        Class<SceneList>()
            .items("Scene")
            .keys<&namesOf>()
            .method<"contains", Form<&SceneList::contains, "scene: Scene | None">>(),
    };
});

} // namespace

} // namespace brindle::python
