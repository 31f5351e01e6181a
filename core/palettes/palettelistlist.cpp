#include "core/palettes/palettelistlist.h"

#include "core/host/sc_session.h"
#include "core/palettes/palette.h"
#include "core/palettes/paletteedit.h"
#include "core/palettes/paletteelement.h"
#include "core/palettes/palettelist.h"
#include "core/palettes/palettelocation.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <optional>

namespace OMC {

namespace {

/// A folder of palettes, as a script tells it.
struct Place {
    int location;
    int element;
};

/// None for a value that tells no place.
std::optional<Place> folderIn(const QVariant& value)
{
    if (const std::optional<int> element = palettelocation::elementIn(value))
        return Place{CM_Element, *element};
    if (const auto* palette = objectFrom<Palette>(value)) {
        const int element = palette->getElementId();
        return Place{element < 0 ? palettelocation::locationNamed(palette->getLocation()) : CM_Element, element};
    }
    if (value.typeId() != QMetaType::QString)
        return std::nullopt;
    return Place{palettelocation::locationNamed(value.toString()), -1};
}

} // namespace

PaletteListList::PaletteListList(SC_ProjectCommon* project) : CountedList(project) {}

std::string PaletteListList::__str__() const
{
    return tr("PaletteListList() [%1]").arg(size()).toStdString();
}

std::size_t PaletteListList::size() const
{
    validate();
    return paletteedit::manager().paletteLists().size();
}

Obj PaletteListList::get(int index) const
{
    validate();
    const auto lists = paletteedit::manager().paletteLists();
    if (index < 0 || static_cast<std::size_t>(index) >= lists.size())
        throwIndexOutOfRange();
    return Obj(new PaletteList(lists[static_cast<std::size_t>(index)], findTarget()));
}

Obj PaletteListList::get(const QString& id) const
{
    validate();
    const auto list = paletteedit::manager().GetPaletteList(UT_Id::FromString(id));
    return list ? Obj(new PaletteList(list, findTarget())) : Obj();
}

void PaletteListList::set(int, const Obj&)
{
    throw Exception(tr("Palette lists cannot be set, object is read only."));
}

std::vector<Obj> PaletteListList::list() const
{
    validate();
    std::vector<Obj> lists;
    for (const std::shared_ptr<CM_PaletteList>& list : paletteedit::manager().paletteLists())
        lists.emplace_back(new PaletteList(list, findTarget()));
    return lists;
}

bool PaletteListList::contains(const Obj& object) const
{
    validate();
    const auto* list = objectIn<PaletteList>(object);
    return list && paletteedit::manager().GetPaletteList(UT_Id::FromString(list->getId()));
}

Obj PaletteListList::projectPalettes() const
{
    validate();
    const QString folder = CM_PaletteListPathProject(findTarget(), 0, ~0U).path().ToString();
    const auto list = paletteedit::manager().GetPaletteListFromPath(folder, true);
    return Obj(new PaletteList(list, findTarget()));
}

Obj PaletteListList::elementPaletteList(const QVariant& value) const
{
    validate();
    const std::optional<int> element = palettelocation::elementIn(value);
    const QString folder = element ? palettelocation::elementFolder(*findTarget(), *element) : QString();
    if (folder.isEmpty())
        return Obj();
    for (const std::shared_ptr<CM_PaletteList>& list : paletteedit::manager().paletteLists()) {
        if (list->type() == CM_PaletteList::kElement && list->GetPath() == folder)
            return Obj(new PaletteList(list, findTarget()));
    }
    return Obj();
}

QString PaletteListList::findFolder(const QVariant& value) const
{
    validate();
    const std::optional<int> element = palettelocation::elementIn(value);
    const int location = element ? int(CM_Element) : palettelocation::locationNamed(value.toString());
    return CM_PalettePathProject(findTarget(), location, {}, element.value_or(-1)).path().ToString();
}

Obj PaletteListList::findPalette(const QVariant& value, const QString& name) const
{
    validate();
    const std::optional<Place> place = folderIn(value);
    if (!place)
        return Obj();
    const QString file = CM_PalettePathProject(findTarget(), place->location, name, place->element).filename(true);
    return !file.isEmpty() && QFile::exists(file) ? paletteAt(file) : Obj();
}

Obj PaletteListList::findTexture(const QVariant& value, const QString& name) const
{
    validate();
    const auto* given = objectFrom<Palette>(value);
    const QString only = given ? given->getPath() : QString();
    const QString folder = given ? QString() : findFolder(value);
    return firstPalette([&](const CM_Palette& palette) {
        const CM_PalettePathI& path = palette.GetPath();
        const bool isThere = given ? path.filename(true) == only : path.path().ToString() == folder;
        return isThere && QFile::exists(path.filename(false) + QStringLiteral("_textures/") + name);
    });
}

std::vector<Obj> PaletteListList::listPalettes(const QVariant& value) const
{
    const QString folder = findFolder(value);
    std::vector<Obj> palettes;
    if (folder.isEmpty())
        return palettes;
    for (const QString& name : QDir(folder).entryList({QStringLiteral("*.plt")}, QDir::Files)) {
        Obj palette = paletteAt(folder + u'/' + name);
        if (palette.get())
            palettes.push_back(std::move(palette));
    }
    return palettes;
}

int PaletteListList::getLocationTypeFromString(const QString& text)
{
    return palettelocation::locationNamed(text);
}

QString PaletteListList::getStringFromLocationType(int type)
{
    return palettelocation::nameOf(type);
}

Obj PaletteListList::paletteAt(const QString& file) const
{
    return firstPalette([&file](const CM_Palette& palette) { return palette.GetPath().filename(true) == file; });
}

Obj PaletteListList::firstPalette(const std::function<bool(const CM_Palette&)>& wanted) const
{
    for (const std::shared_ptr<CM_PaletteList>& list : paletteedit::manager().paletteLists()) {
        const auto& palettes = list->palettes();
        const auto found =
            std::find_if(palettes.begin(), palettes.end(), [&wanted](const auto& palette) { return wanted(*palette); });
        if (found != palettes.end())
            return Obj(new Palette(*found, findTarget()));
    }
    return Obj();
}

} // namespace OMC
