#include "core/palettes/paletteedit.h"

#include "core/frame/exception.h"
#include "core/frame/found.h"
#include "core/host/sc_session.h"

namespace OMC::paletteedit {

CM_PaletteManager& manager()
{
    return found(CM_PaletteManager::GetInstance(), &BaseObject::throwUnexpected);
}

void requireFree(const std::shared_ptr<CM_Palette>& palette)
{
    QString holder;
    if (manager().IsHeldByOther(palette, &holder))
        throw Exception(BaseObject::tr("The palette %1 is locked by %2.").arg(palette->GetName(), holder));
}

void requireFree(const std::shared_ptr<CM_PaletteList>& list)
{
    QString holder;
    if (manager().IsHeldByOther(list, &holder))
        throw Exception(BaseObject::tr("The palette list %1 is locked by %2.").arg(list->GetPath(), holder));
}

void run(SC_ProjectCommon* project, std::unique_ptr<UT_Command> command, const QString& label, const QString& failure)
{
    UT_UndoRedoManager undo;
    if (project)
        undo.SetStageCommandManager(project->commandManager());
    if (!undo.ExecuteCommand(command.release(), label))
        throw Exception(failure);
}

std::shared_ptr<CM_PaletteList> listOf(const CM_Palette& palette)
{
    const CM_PaletteManager& palettes = manager();
    return palettes.GetPaletteList(palettes.SearchParentPaletteList(palette.GetID()));
}

void notifyOf(const CM_Palette& palette, std::vector<UT_Id> colours)
{
    manager().notify({{}, palette.GetID(), std::move(colours)});
}

void notifyOf(const CM_PaletteList& list)
{
    manager().notify({list.GetID(), {}, {}});
}

void notifyOf(const CM_PaletteList& list, const CM_Palette& palette)
{
    manager().notify({list.GetID(), palette.GetID(), {}});
}

} // namespace OMC::paletteedit
