#include "core/palettes/palette.h"

#include "core/elements/element.h"
#include "core/geometry/colour.h"
#include "core/host/sc_session.h"
#include "core/palettes/palettebasecolour.h"
#include "core/palettes/palettecommands.h"
#include "core/palettes/paletteedit.h"
#include "core/palettes/paletteelement.h"
#include "core/palettes/palettelist.h"
#include "core/palettes/palettelocation.h"

#include <QFile>

#include <algorithm>
#include <cmath>

namespace OMC {

namespace {

/// By CM_Palette::Type.
const QStringList paletteTypes = {QStringLiteral("Colour"), QStringLiteral("Pencil Texture")};

QString nameOr(const QString& name, const QString& otherwise)
{
    return name.isEmpty() ? otherwise : name;
}

CM_GradientData markerOf(const QVariant& colour, double position)
{
    int r = 0;
    int g = 0;
    int b = 0;
    int a = 255;
    if (colour.isValid())
        Colour::QVariantToRGBAInt(colour, r, g, b, a);
    return {position, CM_Rgba(r, g, b, a)};
}

/// A place in percent as the engine has it. Throws for what is no number.
double positionOf(float percent, unsigned int argument)
{
    if (std::isnan(percent))
        BaseObject::throwInvalidArgument(argument);
    return percent / 100.0;
}

/// The engine's colour of a colour or texture, as it is now; null for any other object.
CM_Palette::Entry entryIn(const PaletteBaseColour* colour)
{
    if (!colour)
        return nullptr;
    if (colour->getBaseType() == u"Texture")
        return colour->textureData();
    return colour->colorData();
}

} // namespace

Palette::Palette(std::shared_ptr<CM_Palette> palette, SC_ProjectCommon* project)
    : CountedList(project),
      m_palette(std::move(palette))
{}

std::string Palette::__str__() const
{
    return tr("Palette(%1) [%2]").arg(getPath(), QString::number(size())).toStdString();
}

void Palette::validate() const
{
    if (!m_palette)
        throwInvalid();
    if (!isGone()) {
        validateThreadLock();
        if (!m_palette->IsLoadedFromDisk())
            m_palette->Load();
    }
    if (m_palette->state() == CM_Palette::kDeleted)
        throw Exception(tr("Palette is no longer valid."));
    if (m_palette->GetType() == CM_Palette::kHidden)
        throw Exception(tr("Unable to access a hidden palette."));
    if (isGone())
        throwInvalid();
}

CM_Palette& Palette::engine() const
{
    validate();
    return *m_palette;
}

// --- What it is -----------------------------------------------------------------------------------------------------

QString Palette::getPath() const
{
    return engine().GetPath().filename(true);
}

QString Palette::getName() const
{
    return engine().GetName();
}

void Palette::setName(const QString& name)
{
    const QString used = nameOr(name, QStringLiteral("Default"));
    if (used != engine().GetName())
        run(std::make_unique<OMC_Palette_RenameCommand>(m_palette, used), tr("Rename Palette"));
}

bool Palette::getValid() const
{
    try {
        validate();
        return true;
    } catch (const Exception&) {
        return false;
    }
}

bool Palette::getLoaded() const
{
    return engine().IsLoadedFromDisk();
}

bool Palette::getFound() const
{
    return !engine().IsFileNotFound();
}

QString Palette::getType() const
{
    return getStringFromType(engine().GetType());
}

void Palette::setType(const QString& text) const
{
    validate();
    const int type = getTypeFromString(text);
    if (type == unknownType)
        throw Exception(tr("Unkown palette type: %1. Available types are: %2").arg(text, paletteTypes.join(u", ")));
    if (type != m_palette->GetType())
        run(std::make_unique<OMC_Palette_SetTypeCommand>(m_palette, static_cast<CM_Palette::Type>(type)),
            tr("Set Palette Type"));
}

QString Palette::getStringFromType(int type)
{
    return type >= 0 && type < paletteTypes.size() ? paletteTypes[type] : QString();
}

int Palette::getTypeFromString(const QString& text)
{
    if (text.compare(u"Color", Qt::CaseInsensitive) == 0)
        return CM_Palette::kColour;
    const auto found = std::find_if(paletteTypes.begin(), paletteTypes.end(), [&text](const QString& name) {
        return name.compare(text, Qt::CaseInsensitive) == 0;
    });
    return found == paletteTypes.end() ? unknownType : static_cast<int>(found - paletteTypes.begin());
}

QString Palette::getId() const
{
    return engine().GetID().AsString();
}

QString Palette::getLocation() const
{
    const CM_Palette& palette = engine(); // Throws for a dead palette, whose project can't be looked at.
    return palettelocation::nameOf(palettelocation::locationOf(palette.GetPath(), *findTarget()));
}

int Palette::getElementId() const
{
    const CM_Palette& palette = engine(); // Likewise.
    return palettelocation::elementOf(palette, *findTarget());
}

bool Palette::getLocked() const
{
    return engine().IsLocked();
}

void Palette::lock() const
{
    if (!engine().IsLocked() && !paletteedit::manager().LockPalette(m_palette, nullptr))
        throw Exception(tr("Unable to lock Palette."));
}

void Palette::release() const
{
    if (engine().IsLocked() && !paletteedit::manager().UnlockPalette(m_palette))
        throw Exception(tr("Unable to release Palette."));
}

Obj Palette::element() const
{
    return Obj(palettelocation::newElement(getElementId()));
}

Obj Palette::paletteList() const
{
    const auto list = paletteedit::listOf(engine());
    if (!list)
        throw Exception(tr("Object isn't currently inserted on any palettelist."));
    return Obj(new PaletteList(list, findTarget()));
}

// --- Its colours ----------------------------------------------------------------------------------------------------

std::size_t Palette::size() const
{
    return engine().colors().size();
}

PaletteBaseColour* Palette::newItem(int index) const
{
    const CM_Palette& palette = engine();
    if (index < 0 || static_cast<std::size_t>(index) >= palette.colors().size())
        throwIndexOutOfRange();
    return wrapperOf(palette.colors()[static_cast<std::size_t>(index)]);
}

PaletteBaseColour* Palette::newItem(const QString& idOrName) const
{
    const CM_Palette& palette = engine();
    if (const CM_Palette::Entry entry = palette.GetColorById(UT_Id::FromString(idOrName)))
        return wrapperOf(entry);
    const CM_Palette::Entry named = palette.GetColorByName(idOrName);
    return named ? wrapperOf(named) : nullptr;
}

Obj Palette::get(int index) const
{
    return Obj(newItem(index));
}

Obj Palette::get(const QString& idOrName) const
{
    return Obj(newItem(idOrName));
}

std::vector<Obj> Palette::list() const
{
    std::vector<Obj> colours;
    const auto& entries = engine().colors();
    colours.reserve(entries.size());
    for (const CM_Palette::Entry& entry : entries)
        colours.emplace_back(wrapperOf(entry));
    return colours;
}

QStringList Palette::colourNames() const
{
    QStringList names;
    for (const CM_Palette::Entry& entry : engine().colors())
        names.append(entry->GetColorName());
    return names;
}

bool Palette::contains(const Obj& object) const
{
    const CM_Palette& palette = engine();
    const auto* colour = objectIn<PaletteBaseColour>(object);
    return colour && palette.GetColorById(UT_Id::FromString(colour->getId()));
}

// --- New colours ----------------------------------------------------------------------------------------------------

Obj Palette::createSolidColour(const QString& name, const QVariant& colour, int index)
{
    const int place = insertionIndex(index);
    const auto created = std::make_shared<CM_Color>(CM_Color::kSolid, nameOr(name, QStringLiteral("Default")));
    created->AddColorMarker(markerOf(colour, 0));
    return create(created, place, tr("Create Palette Color"));
}

Obj Palette::createLinearGradientColour(const QString& name, const QVariant& colour1, float pos1,
                                        const QVariant& colour2, float pos2, int index)
{
    return createGradient(CM_Color::kLinearGradient, name, colour1, pos1, colour2, pos2, index);
}

Obj Palette::createRadialGradientColour(const QString& name, const QVariant& colour1, float pos1,
                                        const QVariant& colour2, float pos2, int index)
{
    return createGradient(CM_Color::kRadialGradient, name, colour1, pos1, colour2, pos2, index);
}

Obj Palette::createGradient(int type, const QString& name, const QVariant& colour1, float pos1, const QVariant& colour2,
                            float pos2, int index)
{
    const int place = insertionIndex(index);
    const auto created =
        std::make_shared<CM_Color>(static_cast<CM_Color::Type>(type), nameOr(name, QStringLiteral("Default")));
    created->AddColorMarker(markerOf(colour1, positionOf(pos1, 2)));
    created->AddColorMarker(markerOf(colour2, positionOf(pos2, 4)));
    return create(created, place, tr("Create Palette Color"));
}

Obj Palette::createTexture(const QString& name, const QString& path, int index, bool tiled)
{
    const int place = insertionIndex(index);
    if (path.isEmpty() || !QFile(path).open(QIODevice::ReadOnly))
        throw Exception(tr("Unable to open given texture file location"));
    const auto created = std::make_shared<CM_Texture>(nameOr(name, UT_Path(path).GetBaseName()), path, tiled);
    if (!created->GetBitmap())
        throw Exception(tr("The file \"%1\" is no image, or too large for a texture.").arg(path));
    return create(created, place, tr("Create Texture Color"));
}

/// -1 is the end; any other index has to be that of a colour.
int Palette::insertionIndex(int index) const
{
    const auto count = static_cast<int>(size());
    if (index == -1)
        return count;
    if (index < 0 || index >= count)
        throwIndexOutOfRange();
    return index;
}

Obj Palette::create(const CM_Palette::Entry& entry, int index, const QString& label)
{
    run(std::make_unique<OMC_Palette_AddColorCommand>(m_palette, CM_Palette::StoreColorList({entry}),
                                                      std::vector<int>{index}),
        label);
    return Obj(wrapperOf(m_palette->GetColorById(entry->GetID())));
}

// --- Colours of other palettes --------------------------------------------------------------------------------------

Obj Palette::append(const Obj& colour, bool duplicate)
{
    validate();
    return add(colour, {}, duplicate, tr("Append Palette Color"));
}

void Palette::appendEntries(const std::vector<CM_Palette::Entry>& entries) const
{
    validate();
    if (!entries.empty())
        run(std::make_unique<OMC_Palette_AddColorCommand>(m_palette, CM_Palette::StoreColorList(entries)),
            tr("Append Palette Color"));
}

Obj Palette::insert(const Obj& colour, int index, bool duplicate)
{
    if (index < 0 || static_cast<std::size_t>(index) > size())
        throwIndexOutOfRange();
    return add(colour, {index}, duplicate, tr("Insert Palette Color"));
}

Obj Palette::add(const Obj& object, std::vector<int> indices, bool duplicate, const QString& label)
{
    const auto* colour = objectIn<PaletteBaseColour>(object);
    CM_Palette::Entry entry = entryIn(colour);
    if (!entry)
        throw Exception(tr("Invalid input palette object."));
    if (m_palette->GetColorById(entry->GetID())) {
        if (!duplicate)
            throw Exception(tr("Color ID already exists on list, to insert with this ID, enable the duplicate "
                               "option."));
        entry = entry->Clone(true);
    }
    run(std::make_unique<OMC_Palette_AddColorCommand>(m_palette, CM_Palette::StoreColorList({entry}),
                                                      std::move(indices)),
        label);
    colour->setParentPaletteId(getId());
    return Obj(wrapperOf(m_palette->GetColorById(entry->GetID())));
}

void Palette::acquire(const Obj& object)
{
    validate();
    const auto* colour = objectIn<PaletteBaseColour>(object);
    if (!colour)
        throw Exception(tr("Could not acquire input palette color object."));
    const UT_Id id = UT_Id::FromString(colour->getId());
    const auto list = paletteedit::listOf(*m_palette);
    std::shared_ptr<CM_Palette> owner;
    if (!list || !list->GetColor(id, &owner))
        return;
    if (owner == m_palette)
        throw Exception(tr("Palette colour object already owned by this palette."));
    paletteedit::requireFree(owner);
    run(std::make_unique<OMC_Palette_MoveCommand>(owner, m_palette, id), tr("Acquire Palette Color"));
    colour->setParentPaletteId(getId());
}

void Palette::set(int index, const Obj& object)
{
    if (index < 0 || static_cast<std::size_t>(index) >= size())
        throwIndexOutOfRange();
    const auto* colour = objectIn<PaletteBaseColour>(object);
    CM_Palette::Entry entry = entryIn(colour);
    if (!entry)
        throw Exception(tr("Invalid input palette colour object."));
    if (m_palette->GetColorById(entry->GetID()))
        entry = entry->Clone(true);
    run(std::make_unique<OMC_Palette_SetColorCommand>(m_palette, CM_Palette::StoreColorList({entry}), index),
        tr("Set Palette"));
    colour->setParentPaletteId(getId());
}

// --- Fewer colours, another order -----------------------------------------------------------------------------------

Obj Palette::pop(int index)
{
    const auto count = static_cast<int>(size());
    const int place = index == -1 ? count - 1 : index;
    if (place < 0 || place >= count)
        throwIndexOutOfRange();
    const CM_Palette::Entry entry = m_palette->GetColor(place);
    removeAll({entry->GetID()}, tr("Pop Palette Color"), tr("Unable to find given colour."));
    return Obj(wrapperOf(entry));
}

void Palette::remove(const Obj& object)
{
    const CM_Palette& palette = engine();
    const auto* colour = objectIn<PaletteBaseColour>(object);
    const UT_Id id = colour ? UT_Id::FromString(colour->getId()) : UT_Id();
    if (!palette.GetColorById(id))
        throw Exception(tr("Unable to find given colour."));
    removeAll({id}, tr("Remove Palette Color"), tr("Unable to find given colour."));
}

void Palette::reorder(const Obj& object, int index)
{
    const auto count = static_cast<int>(size());
    const int to = index == -1 ? count - 1 : index;
    if (to < 0 || to >= count)
        throwIndexOutOfRange();
    const auto* colour = objectIn<PaletteBaseColour>(object);
    const UT_Id id = colour ? UT_Id::FromString(colour->getId()) : UT_Id();
    if (!m_palette->GetColorById(id))
        throw Exception(tr("Unable to find given colour."));
    const int from = m_palette->GetColorIndex(id);
    if (from < 0)
        throw Exception(tr("Unable to find colour at given index."));
    run(std::make_unique<OMC_Palette_ReorderCommand>(m_palette, from, to), tr("Reorder Palette Color"));
}

void Palette::clear()
{
    std::vector<UT_Id> ids;
    for (const CM_Palette::Entry& entry : engine().colors())
        ids.push_back(entry->GetID());
    if (ids.empty())
        throw Exception(tr("Unable to clear colours."));
    removeAll(std::move(ids), tr("Clear Palette Colors"), tr("Failed to clear colours."));
}

void Palette::removeAll(std::vector<UT_Id> colours, const QString& label, const QString& failure)
{
    paletteedit::requireFree(m_palette);
    paletteedit::run(findTarget(), std::make_unique<OMC_Palette_RemoveColorCommand>(m_palette, std::move(colours)),
                     label, failure);
}

void Palette::run(std::unique_ptr<UT_Command> command, const QString& label) const
{
    paletteedit::requireFree(m_palette);
    paletteedit::run(findTarget(), std::move(command), label,
                     tr("Failed to change the palette %1.").arg(m_palette->GetName()));
}

PaletteBaseColour* Palette::wrapperOf(const CM_Palette::Entry& entry) const
{
    return PaletteBaseColour::wrapperOf(entry, m_palette->GetID(), findTarget());
}

} // namespace OMC
