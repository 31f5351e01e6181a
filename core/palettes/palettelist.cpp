#include "core/palettes/palettelist.h"

#include "core/elements/element.h"
#include "core/frame/global.h"
#include "core/frame/undo.h"
#include "core/host/sc_session.h"
#include "core/palettes/palette.h"
#include "core/palettes/palettebasecolour.h"
#include "core/palettes/paletteedit.h"
#include "core/palettes/paletteelement.h"
#include "core/palettes/palettelistcommands.h"
#include "core/palettes/palettelocation.h"

#include <QDir>

#include <algorithm>
#include <limits>
#include <optional>

namespace OMC {

namespace {

constexpr unsigned int atTheEnd = std::numeric_limits<unsigned int>::max();

/// The folder of a list's palettes, below the list's path.
const QString library = QStringLiteral("/palette-library");

QString typeNameOf(int type)
{
    switch (type) {
    case CM_PaletteList::kElement:
        return QStringLiteral("ELEMENT");
    case CM_PaletteList::kScene:
        return QStringLiteral("SCENE");
    case CM_PaletteList::kUnspecified:
        return QStringLiteral("UNSPECIFIED");
    case CM_PaletteList::kHidden:
        return QStringLiteral("HIDDEN");
    default:
        return QStringLiteral("UNKNOWN");
    }
}

/// The name of a palette, which its file tells.
QString nameOf(CM_Palette& palette)
{
    if (!palette.IsLoadedFromDisk())
        palette.Load();
    return palette.GetName();
}

/// The first palette of a name, or null.
std::shared_ptr<CM_Palette> firstNamed(const CM_PaletteList& list, const QString& name)
{
    const auto& palettes = list.palettes();
    const auto named = std::find_if(palettes.begin(), palettes.end(),
                                    [&name](const auto& palette) { return nameOf(*palette) == name; });
    return named == palettes.end() ? nullptr : *named;
}

} // namespace

/// The differences between `clone` and `duplicate`.
struct PaletteList::CopyKind {
    bool keepsIds;
    QString suffix;
    QString label;
};

PaletteList::PaletteList(std::shared_ptr<CM_PaletteList> list, SC_ProjectCommon* project)
    : CountedList(project),
      m_list(std::move(list))
{}

std::string PaletteList::__str__() const
{
    return tr("PaletteList(%1) [%2]").arg(getPath(), QString::number(size())).toStdString();
}

void PaletteList::validate() const
{
    if (!m_list)
        throwInvalid();
    if (!isGone()) {
        validateThreadLock();
        if (!m_list->IsLoadedFromDisk())
            m_list->Load();
    }
    if (m_list->state() == CM_PaletteList::kDeleted)
        throw Exception(tr("PaletteList is no longer valid."));
    if (m_list->type() == CM_PaletteList::kHidden)
        throw Exception(tr("Unable to access a hidden palette list."));
    if (isGone())
        throwInvalid();
}

CM_PaletteList& PaletteList::engine() const
{
    validate();
    return *m_list;
}

// --- What it is -----------------------------------------------------------------------------------------------------

QString PaletteList::getPath() const
{
    return engine().GetPath();
}

bool PaletteList::getValid() const
{
    try {
        validate();
        return true;
    } catch (const Exception&) {
        return false;
    }
}

bool PaletteList::getLoaded() const
{
    return engine().IsLoadedFromDisk();
}

QString PaletteList::getId() const
{
    return engine().GetID().AsString();
}

QString PaletteList::getType() const
{
    return typeNameOf(engine().type());
}

int PaletteList::getElementId() const
{
    const QString folder = engine().GetPath(); // Throws for a dead list, whose project can't be looked at.
    return palettelocation::elementOfFolder(folder, *findTarget());
}

bool PaletteList::getLocked() const
{
    return engine().IsLocked();
}

void PaletteList::lock() const
{
    if (!engine().IsLocked() && !paletteedit::manager().LockPaletteList(m_list, nullptr))
        throw Exception(tr("Unable to lock PaletteList."));
}

void PaletteList::release() const
{
    if (engine().IsLocked() && !paletteedit::manager().UnlockPaletteList(m_list))
        throw Exception(tr("Unable to release PaletteList."));
}

Obj PaletteList::element() const
{
    return Obj(palettelocation::newElement(getElementId()));
}

// --- Its palettes ---------------------------------------------------------------------------------------------------

std::size_t PaletteList::size() const
{
    return engine().palettes().size();
}

Palette* PaletteList::newItem(int index) const
{
    return wrapperOf(engine().palettes()[itemIndex(index)]);
}

Palette* PaletteList::newItem(const QString& idOrName) const
{
    const CM_PaletteList& list = engine();
    if (const auto palette = list.GetPalette(UT_Id::FromString(idOrName)))
        return wrapperOf(palette);
    const auto named = firstNamed(list, idOrName);
    return named ? wrapperOf(named) : nullptr;
}

Obj PaletteList::get(int index) const
{
    return Obj(newItem(index));
}

Obj PaletteList::get(const QString& idOrName) const
{
    return Obj(newItem(idOrName));
}

std::vector<Obj> PaletteList::list() const
{
    std::vector<Obj> palettes;
    for (const std::shared_ptr<CM_Palette>& palette : engine().palettes())
        palettes.emplace_back(wrapperOf(palette));
    return palettes;
}

QStringList PaletteList::paletteNames() const
{
    QStringList names;
    for (const std::shared_ptr<CM_Palette>& palette : engine().palettes())
        names.append(nameOf(*palette));
    return names;
}

Obj PaletteList::find(const QString& name, bool byPath) const
{
    const CM_PaletteList& list = engine();
    const auto palette = byPath ? list.GetPaletteByPath(name) : firstNamed(list, name);
    return palette ? Obj(wrapperOf(palette)) : Obj();
}

bool PaletteList::contains(const Obj& object) const
{
    const CM_PaletteList& list = engine();
    const auto* palette = objectIn<Palette>(object);
    return palette && palette->palette() && list.GetPalette(palette->palette()->GetID());
}

Obj PaletteList::paletteContainingColour(const QVariant& value) const
{
    const CM_PaletteList& list = engine();
    const auto* colour = objectFrom<PaletteBaseColour>(value);
    std::shared_ptr<CM_Palette> palette;
    if (!colour || !list.GetColor(UT_Id::FromString(colour->getId()), &palette))
        return Obj();
    return Obj(wrapperOf(palette));
}

Palette* PaletteList::wrapperOf(const std::shared_ptr<CM_Palette>& palette) const
{
    return new Palette(palette, findTarget());
}

std::size_t PaletteList::itemIndex(int index) const
{
    const int count = engine().Size();
    const int place = index < 0 ? index + count : index;
    if (place < 0 || place >= count)
        throwIndexOutOfRange();
    return static_cast<std::size_t>(place);
}

// --- New palettes ---------------------------------------------------------------------------------------------------

Obj PaletteList::create(const QString& type, const QString& name, bool overwrite, unsigned int index,
                        const QString& path)
{
    const CM_PaletteList& list = engine();
    const auto size = static_cast<unsigned int>(list.Size());
    if (index != atTheEnd && index >= size)
        throwIndexOutOfRange();
    const int place = static_cast<int>(index == atTheEnd ? size : index);
    const QString folder = QDir(list.GetPath() + library).absoluteFilePath(oswRemapPath::RemapPath2(path));
    const int number = Palette::getTypeFromString(type);
    if (number == Palette::unknownType)
        throw Exception(
            tr("Failed to create the new palette. Unkown palette type: %1. Available types are: %2")
                .arg(type, QStringList{Palette::getStringFromType(0), Palette::getStringFromType(1)}.join(u", ")));
    const QString used = name.isEmpty() ? QStringLiteral("Palette") : CM_PalettePathGen::FileName(name);
    CM_PalettePathFile file(folder + u'/' + used);
    if (name.isEmpty())
        file = CM_PalettePathGen::GetInstance()->Generate(file.filename(false), list.GetPath());
    if (!overwrite && paletteedit::manager().PaletteExists(file))
        throw Exception(
            tr("Failed to create the new palette with name: %1, it already exists in file path.").arg(name));
    const auto replaced = list.GetPaletteByPath(file.filename(true));
    const auto made = std::make_shared<CM_Palette>(file);
    made->AddDefaultColor();
    made->SetType(static_cast<CM_Palette::Type>(number));
    if (made->colors().empty())
        throw Exception(tr("Failed to create the new palette."));
    if (!name.isEmpty())
        made->SetName(name);
    const int free = replaced && list.GetPaletteIndex(replaced->GetID()) < place ? place - 1 : place;
    runAndSave(std::make_unique<OMC_PaletteList_AddPaletteCommand>(m_list, made, free, movesFiles()), made,
               tr("Create Palette"), replaced);
    return Obj(wrapperOf(made));
}

Obj PaletteList::clone(const Obj& palette, const QString& name)
{
    return copyOf(palette, name, {true, QStringLiteral("-clone"), tr("Cloned Palette")});
}

Obj PaletteList::duplicate(const Obj& palette, const QString& name)
{
    return copyOf(palette, name, {false, QStringLiteral("-copy"), tr("Duplicate Palette")});
}

Obj PaletteList::copyOf(const Obj& object, const QString& name, const CopyKind& kind)
{
    const CM_PaletteList& list = engine();
    const auto* palette = objectIn<Palette>(object);
    if (!palette)
        throw Exception(tr("Failed to clone palette."));
    const auto source = list.GetPalette(UT_Id::FromString(palette->getId()));
    if (!source)
        throw Exception(tr("Given Palette doesn't belong to current palette list."));
    const QString used = name.isEmpty() ? freeName(source->GetName() + kind.suffix) : name;
    const QString file = list.GetPath() + library + u'/' + CM_PalettePathGen::FileName(used);
    const auto made = std::make_shared<CM_Palette>(CM_PalettePathGen::GetInstance()->Generate(file, list.GetPath()));
    made->Copy(*source, kind.keepsIds);
    made->SetName(used);
    runAndSave(std::make_unique<OMC_PaletteList_AddPaletteCommand>(m_list, made, list.Size(), movesFiles()), made,
               kind.label);
    return Obj(wrapperOf(made));
}

/// The name, or with "_1", "_2", ... behind it, that no palette of the list has.
QString PaletteList::freeName(const QString& name) const
{
    const QStringList taken = paletteNames();
    QString used = name;
    for (int counter = 1; taken.contains(used); ++counter)
        used = QStringLiteral("%1_%2").arg(name, QString::number(counter));
    return used;
}

void PaletteList::set(int index, const Obj& object)
{
    const std::size_t place = itemIndex(index);
    const auto* palette = objectIn<Palette>(object);
    if (!palette)
        throw Exception(tr("Invalid input palette object."));
    const UT_Id id = UT_Id::FromString(palette->getId());
    if (m_list->GetPalette(id))
        throw Exception(tr("Palette ID already exists on the list, use the clone or duplicate options instead."));
    const auto source = paletteedit::manager().GetPalette(id);
    if (!source)
        throw Exception(tr("Invalid input palette object."));
    const QString file = m_list->GetPath() + library + u'/' + source->GetDiskName();
    const auto made =
        std::make_shared<CM_Palette>(CM_PalettePathFile(paletteedit::manager().GenerateUniquePaletteName(file)));
    made->Copy(*source, false);
    runAndSave(std::make_unique<OMC_PaletteList_SetPaletteCommand>(m_list, made, static_cast<int>(place), movesFiles()),
               made, tr("Set Palette"));
}

// --- Fewer palettes, another order ----------------------------------------------------------------------------------

void PaletteList::remove(const QVariant& value)
{
    validate();
    const auto palette = paletteIn(value, true);
    if (!palette)
        throw Exception(tr("Unable to find given palette."));
    run(std::make_unique<OMC_PaletteList_RemovePaletteCommand>(m_list, palette, movesFiles()), tr("Remove Palette"));
}

void PaletteList::reorder(const QVariant& value, int index)
{
    validate();
    const auto palette = paletteIn(value, false);
    if (!palette)
        throw Exception(tr("Unable to find given palette."));
    const auto to = static_cast<int>(itemIndex(index));
    run(std::make_unique<OMC_PaletteList_ReorderPaletteCommand>(m_list, m_list->GetPaletteIndex(palette->GetID()), to),
        tr("Reorder Palette"));
}

void PaletteList::movePaletteUp(const QVariant& value)
{
    const int index = indexOf(value);
    if (index + 1 >= m_list->Size())
        throw Exception(tr("Unable to move palette further up."));
    reorder(value, index + 1);
}

void PaletteList::movePaletteDown(const QVariant& value)
{
    const int index = indexOf(value);
    if (index < 1)
        throw Exception(tr("Unable to move palette further down."));
    reorder(value, index - 1);
}

/// The index of a wrapped palette.
int PaletteList::indexOf(const QVariant& value) const
{
    const CM_PaletteList& list = engine();
    const auto* palette = objectFrom<Palette>(value);
    const int index = palette ? list.GetPaletteIndex(UT_Id::FromString(palette->getId())) : -1;
    if (index < 0)
        throw Exception(tr("Unable to find given palette."));
    return index;
}

void PaletteList::clear()
{
    if (engine().Size() == 0)
        return;
    paletteedit::requireFree(m_list);
    paletteedit::run(findTarget(), std::make_unique<OMC_PaletteList_ClearPaletteCommand>(m_list, movesFiles()),
                     tr("Clear Palette List"), tr("Failed to clear the list."));
}

std::shared_ptr<CM_Palette> PaletteList::paletteIn(const QVariant& value, bool byPathToo) const
{
    if (const auto* palette = objectFrom<Palette>(value))
        return m_list->GetPalette(UT_Id::FromString(palette->getId()));
    if (value.typeId() == QMetaType::QString) {
        const QString text = value.toString();
        auto palette = m_list->GetPalette(UT_Id::FromString(text));
        return palette || !byPathToo ? palette : m_list->GetPaletteByPath(text);
    }
    bool isNumber = false;
    const int index = value.toInt(&isNumber);
    return isNumber && index >= 0 && index < m_list->Size() ? m_list->palettes()[static_cast<std::size_t>(index)]
                                                            : nullptr;
}

// --- Commands -------------------------------------------------------------------------------------------------------

/// A project that is open read-only changes no file.
bool PaletteList::movesFiles() const
{
    const SC_SessionContext* session = Global::sessionContext();
    const SC_ProjectManager* projects = session ? session->projectManager() : nullptr;
    const SC_Project* project = projects ? projects->findProject(findTarget()->id()) : nullptr;
    return project && !project->isReadOnly();
}

void PaletteList::run(std::unique_ptr<UT_Command> command, const QString& label) const
{
    paletteedit::requireFree(m_list);
    paletteedit::run(findTarget(), std::move(command), label, tr("Failed to change the list of palettes."));
}

/// As one entry with the removal of the palette that is replaced. A file that can't be written takes all back.
void PaletteList::runAndSave(std::unique_ptr<UT_Command> command, const std::shared_ptr<CM_Palette>& made,
                             const QString& label, const std::shared_ptr<CM_Palette>& replaced) const
{
    std::optional<undo::Scope> scope;
    if (CO_CommandManager* manager = findTarget()->commandManager())
        scope.emplace(*manager, label);
    if (replaced)
        run(std::make_unique<OMC_PaletteList_RemovePaletteCommand>(m_list, replaced, movesFiles()), label);
    run(std::move(command), label);
    QString error;
    if (!paletteedit::manager().SavePalette(made, &error))
        throw Exception(error);
}

} // namespace OMC
