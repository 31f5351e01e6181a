#include "engine/session/project.h"

#include "engine/elements/elementfile.h"
#include "engine/session/scene.h"

namespace brindle::engine {

namespace {

std::vector<PaletteStore::ElementFolder> elementFolders(const ElementManager& elements)
{
    std::vector<PaletteStore::ElementFolder> folders;
    for (const TUElement* element : elements.elements()) {
        if (!element->isDeleted())
            folders.push_back({element->id(), elements.elementFolder(element->id(), 0).ToString()});
    }
    return folders;
}

} // namespace

Project::Project(const QString& path) : m_common(newId(), path)
{
    palettes().setPath(path);
    palettes().setLock(m_lock);
    palettes().setElementFolders(
        {[this] { return elementFolders(m_common.elements()); }, [this] { return m_common.elements().revision(); }});
}

Project::~Project() = default;

void Project::addFirstScene()
{
    fillNewScene(static_cast<Scene&>(*addScene({QStringLiteral("Scene-1")})));
}

TUScene* Project::addScene(const SceneRecord& record)
{
    const SceneTiming timing{record.frameCount, record.startFrame, record.stopFrame, record.frameRate};
    if (!timing.isValid())
        return nullptr;
    auto scene = newScene(m_common, record.name, timing);
    Scene* added = scene.get();
    m_common.scenes().insert(std::move(scene), sceneCount());
    return added;
}

void Project::setRecord(const ProjectRecord& record)
{
    m_common.setSettings(record.settings);
    m_common.history().setChangeBefore(record.lastChange);
}

void Project::addElements(const JsonFile& file)
{
    readElements(file, m_common.elements());
}

void Project::opened(const Folder& folder, bool isOwn)
{
    m_common.elementFiles().opened(folder, isOwn, !m_common.elements().elements().empty());
}

ProjectRecord Project::record() const
{
    return {m_common.settings(), lastChange(), !m_common.elements().elements().empty()};
}

void Project::setPath(const QString& path)
{
    m_common.setPath(path);
    palettes().setPath(path);
}

void Project::setReadOnly(bool readOnly)
{
    m_readOnly = readOnly;
    palettes().setReadOnly(readOnly);
}

SC_SceneBase* Project::sceneAt(int index) const
{
    return m_common.scenes().at(index);
}

} // namespace brindle::engine
