#include "core/scene/scene.h"

#include "core/scene/scenelist.h"
#include "service/python/scene/frameoptions.h"
#include "service/python/tables.h"

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

} // namespace

std::vector<ClassTable> sceneTables()
{
    using namespace OMC;
    return {
        Class<python::FrameOptions>("FrameOptions", "How frames are inserted or removed, in place of the preferences.")
            .constructor<&newFrameOptions, "ripple_markers=True, extend_exposure=False">()
            .member<&python::FrameOptions::rippleMarkers>("ripple_markers", "Whether the scene's markers move along.")
            .member<&python::FrameOptions::extendExposure>(
                "extend_exposure", "Whether the drawing before inserted frames is held over them."),
        Class<Scene>("Scene", "A scene: its timing, its settings and its nodes. Frames count from 1.")
            .property("aspect", "The shape of the field chart's units, a SceneAspect.")
            .property("units", "The number of the field chart's units, a SceneUnits.")
            .property("center", "The coordinates at the centre of the picture, a SceneCenter.")
            .property("name", "The scene's name; writing it always fails.")
            .property("framerate", "Frames per second.")
            .property("vector_texture_pixel_density", "Pixels for each model unit in new vector drawings' textures.")
            .property("bitmap_texture_pixel_density", "Pixels for each model unit in new bitmap drawings' textures.")
            .property("frame_count", "The number of frames; writing it adds or removes frames at the end.")
            .property("frame_start", "The first frame of the range that is played.")
            .property("frame_stop", "The last frame of the range that is played.")
            .property("colorspace", "The name of the colour space that the project works in, one of colorspaces.")
            .property("colorspaces", "The names of all colour spaces.")
            .property("camera", "The default CameraNode or None; written with a node, a path, or None to unset it.")
            .property("camera_path", "The default camera's path, \"NONE\" without one; written as camera.")
            .property("unit_converter", "The way between fields and OpenGL units, a SceneUnitConverter.")
            .property("sounds", "Not supported: reading it always fails.")
            .property("top", "The root group, a GroupNode.")
            .property("nodes", "All nodes of the scene, a NodeList.")
            .property("compositions", "Not supported: reading it always fails.")
            .property("display", "The default DisplayNode or None; written with a node, a path, or None to unset it.")
            .property("display_name", "The default display's name, None when none is set, \"\" when the scene has no "
                                      "display; written as display.")
            .property("displays", "All display nodes.")
            .property("display_names", "The names of all display nodes.")
            .method<"frame_insert", Form<&frameInsert, "at, count, options=None">>(
                "Inserts frames behind frame `at`, 0 for the very front; False for a negative count.")
            .method<"frame_remove", Form<&frameRemove, "at, count, options=None">>(
                "Removes the frames behind frame `at` with all that lies on them; False for a negative count."),
        Class<SceneList>("SceneList",
                         "The project's scenes. list[\"name\"] finds one whatever the case of its letters.")
            .method<"contains", Form<&SceneList::contains, "scene">>("False for a scene that is alive."),
    };
}

} // namespace brindle::python
