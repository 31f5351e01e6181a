#pragma once

#include "core/frame/engineview.h"
#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/listobj.h"
#include "core/host/cm_palettelist.h"

#include <QString>
#include <QStringList>

#include <memory>

class SC_ProjectCommon;
class UT_Command;

namespace OMC {

class Palette;

/// The palettes of a project, or of an element, in their order. list["name"] finds one by its id or its name. A change
/// needs no lock; while another process holds it, the change is refused, with the holder's name.
///
/// A palette that leaves the list is kept: its file moves into the folder ".deleted" beside it, and undo brings it
/// back.
class BRINDLE_CORE_EXPORT PaletteList : public CountedList<EngineView<SC_ProjectCommon, ListObj>, IterableObj> {
    Q_OBJECT
    BRINDLE_COPYABLE(PaletteList)
    Q_PROPERTY(QString path READ getPath)
    Q_PROPERTY(bool valid READ getValid)
    Q_PROPERTY(bool loaded READ getLoaded)
    Q_PROPERTY(QString id READ getId)
    Q_PROPERTY(QString type READ getType)
    Q_PROPERTY(int element_id READ getElementId)
    Q_PROPERTY(bool locked READ getLocked)

public:
    PaletteList(std::shared_ptr<CM_PaletteList> list, SC_ProjectCommon* project);

    std::string __str__() const override;

    QString getPath() const;  ///< The folder of the project or of the element.
    bool getValid() const;    ///< Whether the list can be used; never fails.
    bool getLoaded() const;   ///< Whether its file was read; every use reads it.
    QString getId() const;    ///< Sixteen hexadecimal digits, which no other list has.
    QString getType() const;  ///< "SCENE" of the project, or "ELEMENT".
    int getElementId() const; ///< The element whose list it is, or -1.
    bool getLocked() const;   ///< Whether this process holds the list's lock.

    void lock() const; ///< Takes the list's lock, which keeps other processes from saving it. Fails where one has it.
    void release() const; ///< Gives the list's lock back.

    std::size_t size() const override; ///< The number of palettes.
    Obj get(int index) const override; ///< The palette at an index; a negative one counts from the end.
    Obj get(const QString& idOrName)
        const override;                     ///< The palette of an id, or the first of a name; null when there is none.
    std::vector<Obj> list() const override; ///< All palettes.
    /// The same as `get`, for a caller that takes the wrapper itself; null where there is none.
    Palette* newItem(int index) const;
    Palette* newItem(const QString& idOrName) const;
    QStringList paletteNames() const; ///< The names of all palettes.
    /// The first palette of a name, or the one whose file is at a path; null when there is none.
    Obj find(const QString& name, bool byPath) const;
    bool contains(const Obj& palette) const; ///< Whether a palette is on the list.
    Obj element() const;                     ///< The element whose list it is, or null.
    /// The first palette with a colour, found by the colour's id; null when there is none.
    Obj paletteContainingColour(const QVariant& colour) const;

    /// Makes a palette with one colour, at once also as a file: of a type ("Colour" or "Pencil Texture"), at an index,
    /// or at the end for 4294967295, in the folder `path`, which starts in the list's own unless it is absolute. The
    /// file is named after the palette; one that is there already is a failure, or with `overwrite` moves into
    /// ".deleted".
    Obj create(const QString& type, const QString& name, bool overwrite, unsigned int index, const QString& path);
    /// Adds a copy of a palette of this list, whose colours keep their ids: drawings that are painted with one show in
    /// the other's colours. Without a name it is the palette's with "-clone" behind it.
    Obj clone(const Obj& palette, const QString& name);
    /// Adds a copy of a palette of this list, whose colours get new ids. Without a name it is the palette's with
    /// "-copy" behind it.
    Obj duplicate(const Obj& palette, const QString& name);
    /// Puts a copy of a palette of another list, with new colour ids, in the place of the one at an index.
    void set(int index, const Obj& palette) override;
    /// Removes a palette, given as itself, its index, its id or the path of its file.
    void remove(const QVariant& palette);
    /// Moves a palette, given as itself, its index or its id, to an index; a negative one counts from the end.
    void reorder(const QVariant& palette, int index);
    void movePaletteUp(const QVariant& palette);   ///< Moves a palette one place to the end; fails at the end.
    void movePaletteDown(const QVariant& palette); ///< Moves a palette one place to the beginning; fails there.
    void clear();                                  ///< Removes all palettes.

protected:
    void validate() const override;
    void beforeIteration() const override { validate(); }

private:
    struct CopyKind;

    CM_PaletteList& engine() const;
    Palette* wrapperOf(const std::shared_ptr<CM_Palette>& palette) const;
    std::size_t itemIndex(int index) const;
    std::shared_ptr<CM_Palette> paletteIn(const QVariant& value, bool byPathToo) const;
    int indexOf(const QVariant& palette) const;
    Obj copyOf(const Obj& object, const QString& name, const CopyKind& kind);
    QString freeName(const QString& name) const;
    bool movesFiles() const;
    void run(std::unique_ptr<UT_Command> command, const QString& label) const;
    void runAndSave(std::unique_ptr<UT_Command> command, const std::shared_ptr<CM_Palette>& made, const QString& label,
                    const std::shared_ptr<CM_Palette>& replaced = nullptr) const;

    std::shared_ptr<CM_PaletteList> m_list;
};

} // namespace OMC
