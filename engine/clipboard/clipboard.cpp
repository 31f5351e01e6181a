#include "core/host/dd_clipboard.h"

#include <QFileInfo>

bool DD_DragUtil::GetDragInfo(SC_SessionContext*, const DD_DragObject& object, DD_DragInfo& info,
                              std::shared_ptr<DD_DragSceneOld>& scene)
{
    if (!object.isValid() || object.numFrames() < 1)
        return false;
    info.numFrames = object.numFrames();
    scene = std::make_shared<DD_DragSceneOld>(object, QString());
    return true;
}

bool DD_TplUtil::GetValidSceneFile(const QString& path, UT_Path& file)
{
    UT_Path project(path);
    project.AddName(QStringLiteral("project.json"));
    if (path.isEmpty() || !QFileInfo(project.ToString()).isFile())
        return false;
    file = project;
    return true;
}

std::shared_ptr<DD_DragSceneOld> DD_TplUtil::LoadTemplate(SC_SessionContext*, const QString&, bool)
{
    return nullptr;
}

bool DD_TplUtil::SaveDragObjectAsNewTemplate(SC_SessionContext*, const DD_DragSceneOld&, UT_Path&)
{
    return false;
}

DD_DragObject DD_SystemExternalAPI::CreateDragObjectFromSelection(SC_SceneCommon*, const SL_Selection*, bool, bool)
{
    return DD_DragObject();
}

DD_DragObject DD_SystemExternalAPI::CreateDragObjectFromTemplate(SC_SessionContext*, const QString&, int, int, bool,
                                                                 bool)
{
    return DD_DragObject();
}

QString DD_SystemExternalAPI::CreateTemplateFromSelection(SC_SessionContext*, SC_SceneCommon*, QString&, const QString&,
                                                          bool, bool, bool)
{
    return QString();
}

bool DD_SystemExternalAPI::PasteIntoScene(SC_SessionContext*, SC_SceneCommon*, const SL_Selection&,
                                          const DD_DragObject&, const DD_DropMode&,
                                          const DD_SelectionUtil::CompositionOptions&, SL_Selection*, int, int)
{
    return false;
}

bool DD_SystemExternalAPI::PasteTemplateIntoScene(TUScene*, SC_SessionContext*, SC_SceneCommon*, const QString&, int,
                                                  const DD_DropMode&, const DD_SelectionUtil::CompositionOptions&, bool)
{
    return false;
}

bool DD_SystemExternalAPI::PasteTemplateIntoGroup(TUScene*, SC_SessionContext*, SC_SceneCommon*, TUGroup*,
                                                  const QString&, int, const DD_DropMode&, int)
{
    return false;
}

bool DD_System::DropDragObjectNewLayer(SC_SessionContext*, SC_SceneCommon*, TUGroup*, const DD_DragObject&,
                                       const DD_DropMode&, DD_Selection&, int, int, int, int, SL_Selection&)
{
    return false;
}
