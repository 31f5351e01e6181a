#include "tests/core/support/openproject.h"

#include <QDirIterator>
#include <QFile>

#include <stdexcept>

OpenProject::OpenProject() : m_session(SC_SessionContext::create())
{
    QString error;
    if (!m_session->projectManager()->createProject(m_folder.filePath(QStringLiteral("project")), error))
        throw std::runtime_error(error.toStdString());
}

OpenProject::~OpenProject() = default;

SC_Project* OpenProject::project() const
{
    return m_session->projectManager()->project();
}

SC_ProjectCommon* OpenProject::projectCommon() const
{
    return m_session->projectCommon();
}

TUScene* OpenProject::scene() const
{
    return project() ? dynamic_cast<TUScene*>(project()->sceneAt(0)) : nullptr;
}

SC_SceneCommon* OpenProject::sceneCommon() const
{
    return scene() ? scene()->sceneCommon() : nullptr;
}

CO_CommandManager& OpenProject::manager() const
{
    CO_CommandManager* manager = m_session->commandManager();
    if (!manager)
        throw std::runtime_error("no project is open");
    return *manager;
}

QStringList OpenProject::labels() const
{
    return manager().collectExecutedNames();
}

QStringList OpenProject::redoLabels() const
{
    return manager().collectUnexecutedNames();
}

TUGroup* OpenProject::top() const
{
    return scene() ? scene()->getRootGroup() : nullptr;
}

MO_Node* OpenProject::node(const QString& path) const
{
    return node_util::getNodeFromQualifiedName_optimized(sceneCommon(), path);
}

QByteArray OpenProject::saved() const
{
    QString error;
    if (!m_session->projectManager()->saveProject(error))
        throw std::runtime_error(error.toStdString());
    QStringList paths;
    for (QDirIterator files(project()->path(), QDir::Files, QDirIterator::Subdirectories); files.hasNext();)
        paths.append(files.next());
    paths.sort();
    QByteArray content;
    for (const QString& path : paths) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            throw std::runtime_error(path.toStdString());
        content += path.toUtf8() + '\n' + file.readAll() + '\n';
    }
    return content;
}

QByteArray OpenProject::savedContent() const
{
    QByteArray content = saved();
    const qsizetype line = content.indexOf("  \"lastChange\"");
    return line < 0 ? content : content.remove(line, content.indexOf('\n', line) + 1 - line);
}

void OpenProject::close()
{
    m_session->projectManager()->closeProject();
}
