#include "engine/clipboard/templates.h"

#include "core/host/msg_scope.h"
#include "engine/clipboard/templatefiles.h"
#include "engine/folder/folderio.h"

namespace brindle::engine {

namespace {

/// Tells a scene the name of its default camera while it lives: as the camera itself where the scene has it, else as an
/// entry of the metadata.
class NamedCamera {
public:
    NamedCamera(Scene& scene, const QString& name) : m_scene(scene)
    {
        if (name.isEmpty())
            return;
        forEachFrom(scene.graph().root(), [&](Node& node) {
            auto* camera = node.name() == name ? dynamic_cast<TUCameraModule*>(&node.host()) : nullptr;
            if (camera && !m_scene.defaultCamera())
                m_scene.setDefaultCamera(camera);
        });
        m_hasEntry = !m_scene.defaultCamera();
        if (m_hasEntry)
            m_scene.metadataList().prepend(std::make_unique<Metadata>(QString(cameraEntry), Metadata::Value(name)));
    }
    NamedCamera(const NamedCamera&) = delete;
    NamedCamera& operator=(const NamedCamera&) = delete;
    ~NamedCamera()
    {
        m_scene.setDefaultCamera(nullptr);
        if (m_hasEntry)
            m_scene.metadataList().take(0);
    }

private:
    Scene& m_scene;
    bool m_hasEntry = false;
};

QString cameraOf(Scene& scene)
{
    if (const TUCameraModule* camera = scene.defaultCamera())
        return camera->instanceName();
    for (const auto& entry : scene.metadataList()) {
        if (entry->metaName() == cameraEntry)
            return entry->value().toString();
    }
    return QString();
}

} // namespace

std::shared_ptr<const DragScene> readTemplate(const QString& path, const CopyTerms& terms)
{
    const ProjectFolder folder(path);
    Project project(folder.path());
    QString error;
    if (!folder.readOnly(project, error)) {
        MSG_Scope(error, MSG_Scope::kError);
        return nullptr;
    }
    project.setReadOnly(true);
    auto& scene = static_cast<Scene&>(*project.sceneAt(0));
    const SubNodes& nodes = scene.graph().root().subNodes();
    std::vector<Node*> all;
    for (std::size_t place = 0; place < nodes.size(); ++place)
        all.push_back(&nodes.at(place));
    try {
        std::shared_ptr<DragScene> content = copyContent(scene, all, terms);
        if (content)
            content->camera = cameraOf(scene);
        return content;
    } catch (const FolderFailure& failure) {
        logFailure(QStringLiteral("read the template"), failure.reason);
        return nullptr;
    }
}

bool writeTemplate(const QString& path, const DragScene& content, const QString& camera)
{
    const ProjectFolder folder(path);
    const NamedCamera named(content.scene(), camera);
    TemplateFiles files(content);
    const ProjectRecord record = content.project().record();
    ProjectLock lock;
    QString error;
    if (folder.create(record, {&content.scene()}, lock, error, {&files}))
        return true;
    MSG_Scope(error, MSG_Scope::kError);
    return false;
}

void logFailure(const QString& what, const QString& reason)
{
    MSG_Scope(QStringLiteral("Cannot ") + what + QLatin1String(": ") + reason + u'.', MSG_Scope::kError);
}

} // namespace brindle::engine
