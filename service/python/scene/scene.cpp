#include "core/scene/history.h"
#include "core/scene/project.h"
#include "core/scene/scene.h"
#include "core/scene/scenelist.h"
#include "service/python/tables.h"

namespace brindle::python {

std::vector<ClassTable> sceneTables()
{
    using namespace OMC;
    return {
        Class<Project>("Project", "The open project.")
            .property("dirty", "Whether the project differs from what was last saved.")
            .property("dirty_previously", "Whether the undo list has anything to undo.")
            .property("history", "The undo list, a History."),
        Class<History>("History", "The undo list of the project: the names of its entries, oldest first, undo and redo.")
            .property("current", "The name of the open bracket, or \"NONE\".")
            .property("active", "Always False.")
            .property("size_total", "How many entries can be undone or done again.")
            .property("size_unexecuted", "How many entries can be done again.")
            .property("size_executed", "How many entries can be undone.")
            .property("size_max", "How many entries are kept; older ones are dropped.")
            .method<"size", Form<&History::size>>("How many entries can be undone, as len() gives it.")
            .method<"get", Form<&History::get, "index">>("The name of an entry that can be undone, from 0, oldest first.")
            .method<"set", Form<&History::set, "index, name">>("Always fails: the history can't be written.")
            .method<"list", Form<&History::list>>("The names of the entries that can be undone, oldest first.")
            .method<"contains", Form<&History::contains, "name">>("Whether an entry that can be undone has the name.")
            .method<"undo", Form<&History::undo, "count=1">>("Undoes up to so many entries.")
            .method<"redo", Form<&History::redo, "count=1">>("Does up to so many undone entries again.")
            .method<"clear", Form<&History::clear>>("Empties the undo list; the project stays as it is.")
            .method<"begin", Form<&History::begin, "name">>(
                "Opens a bracket: everything up to end() becomes one entry of this name. Brackets nest.")
            .method<"end", Form<&History::end>>("Closes the bracket that the matching begin() opened.")
            .method<"cancel", Form<&History::cancel>>("Takes back all that was done in the open bracket."),
        Class<Scene>("Scene", "A scene: its timing and its nodes. Frames count from 1.")
            .property("name", "The scene's name; writing it always fails.")
            .property("framerate", "Frames per second.")
            .property("frame_count", "The number of frames; writing it adds or removes frames at the end.")
            .property("frame_start", "The first frame of the range that is played.")
            .property("frame_stop", "The last frame of the range that is played.")
            .property("sounds", "Not supported: reading it always fails.")
            .property("top", "The root group, a GroupNode.")
            .property("nodes", "All nodes of the scene, a NodeList.")
            .property("compositions", "Not supported: reading it always fails."),
        Class<SceneList>("SceneList", "The project's scenes. list[\"name\"] finds one whatever the case of its letters.")
            .method<"contains", Form<&SceneList::contains, "scene">>("False for a scene that is alive."),
    };
}

} // namespace brindle::python
