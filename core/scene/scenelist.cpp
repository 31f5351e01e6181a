#include "core/scene/scenelist.h"

#include "core/frame/found.h"
#include "core/frame/global.h"
#include "core/host/sc_scene.h"
#include "core/host/sc_session.h"
#include "core/scene/scene.h"

namespace OMC {

namespace {

/// The only identifier that `contains` ever looks for.
const SC_Id containedId(72);

SC_SessionContext& session()
{
    return found(Global::sessionContext());
}

SC_SceneManager& sessionScenes()
{
    const SC_ProjectCommon* project = session().projectCommon();
    return found(project ? project->sceneManager() : nullptr);
}

template <typename Function>
void forAllScenes(SC_SceneManager& manager, Function function)
{
    class Visitor : public SC_AbstractSceneVisitor {
    public:
        explicit Visitor(Function& function) : m_function(function) {}
        void visit(SC_SceneBase& base) override
        {
            if (auto* scene = dynamic_cast<TUScene*>(&base))
                m_function(scene);
        }

    private:
        Function& m_function;
    } visitor(function);
    manager.forAllScenes(visitor);
}

} // namespace

SceneList::SceneList(SC_ProjectCommon* project) : FlaggedList(project) {}

std::string SceneList::__str__() const
{
    return QStringLiteral("Scenes()[%1]").arg(size()).toStdString();
}

std::size_t SceneList::size() const
{
    validate();
    return static_cast<std::size_t>(sessionScenes().sceneCount());
}

Obj SceneList::get(int index) const
{
    validate();
    const std::vector<TUScene*> all = scenes();
    // A negative index is a huge unsigned one, and so out of range as well.
    const auto position = static_cast<unsigned int>(index);
    if (position >= all.size())
        throwNoMoreItems();
    return Obj(createScene(all[position]));
}

void SceneList::set(int, const Obj&)
{
    throw Exception(tr("Unable to set the scene list."));
}

std::vector<Obj> SceneList::list() const
{
    validate();
    std::vector<Obj> objects;
    for (TUScene* scene : scenes())
        objects.emplace_back(createScene(scene));
    return objects;
}

void SceneList::beforeIteration() const
{
    validate();
}

void SceneList::startIteration()
{
    std::vector<WeakHandle<TUScene>> handles;
    for (TUScene* scene : scenes())
        handles.emplace_back(scene);
    m_scenes.take(std::move(handles));
    FlaggedList::startIteration();
}

std::size_t SceneList::iterationSize() const
{
    return m_scenes.size();
}

Obj SceneList::itemAt(quint64 position) const
{
    return Obj(createScene(m_scenes[position].get()));
}

void SceneList::throwNoMoreItems() const
{
    throw Exception(tr("Scene index is out of range."));
}

// Required: a step back leaves a loop at its end.
bool SceneList::staysAtEnd() const
{
    return true;
}

bool SceneList::contains(const Obj& object) const
{
    validate();
    const auto* scene = objectIn<Scene>(object);
    if (!scene)
        return false;
    if (!session().projectManager())
        throwInvalid();
    // Both are required as they are: a live scene is never contained, and the identifier is always the same.
    if (scene->scene())
        return false;
    const SC_SceneManager* manager = findTarget()->sceneManager();
    return manager && manager->find(containedId);
}

Obj SceneList::operator()(const QString& name) const
{
    validate();
    TUScene* found = nullptr;
    forAllScenes(sessionScenes(), [&](TUScene* scene) {
        if (scene->name().compare(name, Qt::CaseInsensitive) == 0)
            found = scene;
    });
    return found ? Obj(createScene(found)) : Obj();
}

BaseObject* SceneList::createScene(TUScene* scene) const
{
    return new Scene(scene);
}

std::vector<TUScene*> SceneList::scenes() const
{
    const SC_ProjectManager* projects = session().projectManager();
    const SC_Project* project = projects ? projects->findProject(findTarget()->id()) : nullptr;
    if (!project)
        throwInvalid();
    SC_SceneManager& manager = sessionScenes();
    std::vector<TUScene*> all;
    auto* first = dynamic_cast<TUScene*>(project->sceneAt(0));
    if (first)
        all.push_back(first);
    forAllScenes(manager, [&](TUScene* scene) {
        if (scene != first)
            all.push_back(scene);
    });
    return all;
}

} // namespace OMC
