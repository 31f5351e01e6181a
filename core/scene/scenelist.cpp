#include "core/scene/scenelist.h"

#include "core/frame/global.h"
#include "core/frame/weakhandle.h"
#include "core/host/sc_scene.h"
#include "core/host/sc_session.h"
#include "core/scene/scene.h"

namespace OMC {

namespace {

/// The only identifier that `contains` ever looks for.
const SC_Id containedId(72);

SC_SessionContext& session()
{
    SC_SessionContext* session = Global::sessionContext();
    if (!session)
        BaseObject::throwInvalid();
    return *session;
}

SC_SceneManager& sessionScenes()
{
    const SC_ProjectCommon* project = session().projectCommon();
    SC_SceneManager* scenes = project ? project->sceneManager() : nullptr;
    if (!scenes)
        BaseObject::throwInvalid();
    return *scenes;
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

struct SceneList::Private : Recycled {
    WeakPointer<SC_ProjectCommon> project;
    quint32 index = 0;
    bool atEnd = false;
    std::vector<UT_SharedWeakPtrBase> scenes = {};
};

SceneList::SceneList(SC_ProjectCommon* project) : d(new Private{{}, WeakPointer(project)}) {}

SceneList::SceneList(const SceneList& other) : ListObj(other), IterableObj(other), d(new Private(*other.d)) {}

SceneList::~SceneList() = default;

BaseObject* SceneList::copy() const
{
    return new SceneList(*this);
}

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
        throw Exception(tr("Scene index is out of range."));
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

Obj SceneList::__iterItem__() const
{
    validate();
    const std::size_t count = d->scenes.size();
    if (d->index >= count)
        throw Exception(tr("Scene index is out of range."));
    if (d->index + 1 >= count)
        d->atEnd = true;
    return Obj(createScene(static_cast<TUScene*>(d->scenes[d->index].get())));
}

void SceneList::operator++()
{
    ++d->index;
}

void SceneList::operator--()
{
    if (d->index > 0)
        --d->index;
}

bool SceneList::__atend__() const
{
    return d->atEnd;
}

Obj SceneList::__iter__() const
{
    validate();
    auto* iterator = new SceneList(*this);
    Obj handle(iterator);
    iterator->resetIterator();
    return handle;
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
    const SC_SceneManager* manager = d->project.get()->sceneManager();
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

void SceneList::validate() const
{
    if (!d->project.get())
        throwInvalid();
    validateThreadLock();
}

void SceneList::resetIterator()
{
    d->index = 0;
    d->atEnd = false;
    const std::vector<TUScene*> all = scenes();
    d->atEnd = all.empty();
    d->scenes.assign(all.size(), {});
    for (std::size_t i = 0; i < all.size(); ++i)
        d->scenes[i].assign(all[i]);
}

std::vector<TUScene*> SceneList::scenes() const
{
    const SC_ProjectManager* projects = session().projectManager();
    const SC_Project* project = projects ? projects->findProject(d->project.get()->id()) : nullptr;
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
