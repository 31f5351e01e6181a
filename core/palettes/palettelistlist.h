#pragma once

#include "core/frame/engineview.h"
#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/listobj.h"

#include <QString>

#include <functional>
#include <memory>

class CM_Palette;
class SC_ProjectCommon;

namespace OMC {

class PaletteList;

/// The palette lists of a project: its own, and then those of the elements that have one. It also tells where palettes
/// lie on disk: places are "ENVIRONMENT", "JOB", "SCENE", "ELEMENT" and "EXTERNAL", in any case of letters, or an
/// element; any other text is "BACKUP".
class BRINDLE_CORE_EXPORT PaletteListList : public CountedList<EngineView<SC_ProjectCommon, ListObj>, IterableObj> {
    Q_OBJECT
    BRINDLE_COPYABLE(PaletteListList)

public:
    explicit PaletteListList(SC_ProjectCommon* project);

    std::string __str__() const override;

    std::size_t size() const override;               ///< The number of lists.
    Obj get(int index) const override;               ///< The list at an index from 0; throws beyond either end.
    Obj get(const QString& id) const override;       ///< The list of an id; null when there is none.
    void set(int index, const Obj& object) override; ///< Always refused.
    std::vector<Obj> list() const override;          ///< All lists.
    bool contains(const Obj& list) const;            ///< Whether a palette list is one of the project's.

    Obj projectPalettes() const;                           ///< The project's own list.
    Obj elementPaletteList(const QVariant& element) const; ///< The list of an element, or null.

    /// The folder of the palettes at a place, given as its name or an element; empty for a place without a folder.
    QString findFolder(const QVariant& place) const;
    /// The palette with a file of a name at a place, or at that of another palette; null when there is none.
    Obj findPalette(const QVariant& place, const QString& name) const;
    /// The palette at a place, or the given one, that has a texture's file of a name; null when there is none.
    Obj findTexture(const QVariant& place, const QString& name) const;
    /// The palettes at a place, in the order of their files' names; files that no list knows are passed over.
    std::vector<Obj> listPalettes(const QVariant& place) const;

    static int getLocationTypeFromString(const QString& text); ///< The number of a place's name.
    static QString getStringFromLocationType(int type);        ///< The name of a place's number.

private:
    void beforeIteration() const override { validate(); }
    Obj firstPalette(const std::function<bool(const CM_Palette&)>& wanted) const;
    Obj paletteAt(const QString& file) const;
};

} // namespace OMC
