#pragma once

#include "core/frame/engineview.h"
#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/listobj.h"
#include "core/host/cm_palette.h"

#include <QString>
#include <QStringList>

#include <memory>

class SC_ProjectCommon;
class UT_Command;

namespace OMC {

class PaletteBaseColour;

/// A palette: colours and textures in an order, found by their ids in constant time, by index, or by name. A change
/// needs no lock; while another process holds it, the change is refused, with the holder's name.
///
/// It is a file (".plt"), which is read at the first use. `lock` keeps other processes out until `release`, or until
/// the project is closed.
class BRINDLE_CORE_EXPORT Palette : public CountedList<EngineView<SC_ProjectCommon, ListObj>, IterableObj> {
    Q_OBJECT
    BRINDLE_COPYABLE(Palette)
    Q_PROPERTY(QString path READ getPath)
    Q_PROPERTY(QString name READ getName WRITE setName)
    Q_PROPERTY(bool valid READ getValid)
    Q_PROPERTY(bool loaded READ getLoaded)
    Q_PROPERTY(bool found READ getFound)
    Q_PROPERTY(QString type READ getType WRITE setType)
    Q_PROPERTY(bool locked READ getLocked)
    Q_PROPERTY(QString id READ getId)
    Q_PROPERTY(QString location READ getLocation)
    Q_PROPERTY(int element_id READ getElementId)

public:
    static constexpr int unknownType = 2; ///< The number of a text that names no type.

    Palette(std::shared_ptr<CM_Palette> palette, SC_ProjectCommon* project);

    std::string __str__() const override;

    QString getPath() const; ///< The palette's file.
    QString
    getName() const; ///< The name, as the person sees it; an empty one becomes "Default". The file keeps its own.
    void setName(const QString& name);
    bool getValid() const;   ///< Whether the palette can be used; never fails.
    bool getLoaded() const;  ///< Whether its file was read; every use reads it.
    bool getFound() const;   ///< False when its file was looked for and is missing.
    QString getType() const; ///< "Colour" or "Pencil Texture"; it takes either in any case of letters, and "Color".
    void setType(const QString& type) const;
    bool getLocked() const; ///< Whether this process holds the palette's lock.
    QString getId() const;  ///< Sixteen hexadecimal digits, which no other palette has.
    /// The location of the file: "ENVIRONMENT", "JOB", "SCENE", "ELEMENT", "EXTERNAL" or "BACKUP".
    QString getLocation() const;
    int getElementId() const; ///< The element in whose folder the file lies, or -1.

    void
    lock() const; ///< Takes the palette's lock, which keeps other processes from saving it. Fails where one has it.
    void release() const; ///< Gives the palette's lock back.

    static QString getStringFromType(int type);        ///< The text of a type's number; empty for another number.
    static int getTypeFromString(const QString& text); ///< The number of a type, or 2 for a text that names none.

    std::size_t size() const override; ///< The number of colours and textures.
    Obj get(int index) const override; ///< The colour at an index from 0; throws beyond either end.
    /// The colour of an id, or the first of a name; null when there is none.
    Obj get(const QString& idOrName) const override;
    std::vector<Obj> list() const override; ///< All colours and textures.
    /// The same as `get`, for a caller that takes the wrapper itself; null where there is none.
    PaletteBaseColour* newItem(int index) const;
    PaletteBaseColour* newItem(const QString& idOrName) const;
    QStringList colourNames() const;        ///< The names of all colours and textures.
    bool contains(const Obj& colour) const; ///< Whether a colour or texture of that id is in the palette.

    Obj element() const;     ///< The element in whose folder the file lies, or null.
    Obj paletteList() const; ///< The list that the palette is on; fails where it is on none.

    /// Adds a solid colour at an index, or at the end for -1. Without a name it is "Default", without a colour black;
    /// the colour is whatever Colour(value) takes.
    Obj createSolidColour(const QString& name, const QVariant& colour, int index);
    /// Adds a gradient along a line, from one colour to another. The places are in percent.
    Obj createLinearGradientColour(const QString& name, const QVariant& colour1, float pos1, const QVariant& colour2,
                                   float pos2, int index);
    /// Adds a gradient from a centre to the rim, from one colour to another. The places are in percent.
    Obj createRadialGradientColour(const QString& name, const QVariant& colour1, float pos1, const QVariant& colour2,
                                   float pos2, int index);
    /// Adds the picture of an image file at an index, or at the end for -1. Without a name it has that of the file.
    Obj createTexture(const QString& name, const QString& path, int index, bool tiled);

    /// Adds a copy of a colour at the end, under the colour's own id. Where that id is there already it fails, or takes
    /// a new one with `duplicate`. Gives the copy.
    Obj append(const Obj& colour, bool duplicate);
    void
    appendEntries(const std::vector<CM_Palette::Entry>& entries) const; ///< Adds entries at the end, under their own ids.
    Obj insert(const Obj& colour, int index, bool duplicate);     ///< The same at an index, which may be the size.
    /// Moves a colour here from another palette of the same list, to the end.
    void acquire(const Obj& colour);
    /// Puts a copy of a colour in the place of the one at an index, under a new id where the colour is in this palette.
    void set(int index, const Obj& colour) override;
    Obj pop(int index);                         ///< Removes the colour at an index, or the last for -1, and gives it.
    void remove(const Obj& colour);             ///< Removes a colour, found by its id.
    void reorder(const Obj& colour, int index); ///< Moves a colour of the palette to an index, or to the end for -1.
    void clear();                               ///< Removes all colours; fails when there are none.

    /// The engine's palette, which `validate` has not looked at.
    const std::shared_ptr<CM_Palette>& palette() const { return m_palette; }

protected:
    void validate() const override;
    void beforeIteration() const override { validate(); }

private:
    CM_Palette& engine() const;
    PaletteBaseColour* wrapperOf(const CM_Palette::Entry& entry) const;
    int insertionIndex(int index) const;
    Obj create(const CM_Palette::Entry& entry, int index, const QString& label);
    Obj createGradient(int type, const QString& name, const QVariant& colour1, float pos1, const QVariant& colour2,
                       float pos2, int index);
    Obj add(const Obj& object, std::vector<int> indices, bool duplicate, const QString& label);
    void removeAll(std::vector<UT_Id> colours, const QString& label, const QString& failure);
    void run(std::unique_ptr<UT_Command> command, const QString& label) const;

    std::shared_ptr<CM_Palette> m_palette;
};

} // namespace OMC
