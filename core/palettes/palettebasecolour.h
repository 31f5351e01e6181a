#pragma once

#include "core/frame/engineview.h"
#include "core/frame/listobj.h"
#include "core/host/cm_palette.h"

#include <QString>

#include <memory>

class SC_ProjectCommon;
class UT_Command;

namespace OMC {

/// A colour of a palette: a PaletteColour or a PaletteTexture. Drawings are painted with its id, so its look can change
/// without them.
///
/// It finds its colour by the ids of palette and colour, and keeps the colour that it found last: one that was taken
/// off its palette can still be read and put on another. Invalid once the project is closed.
class BRINDLE_CORE_EXPORT PaletteBaseColour : public EngineView<SC_ProjectCommon, ListObj> {
    Q_OBJECT
    BRINDLE_COPYABLE(PaletteBaseColour)
    Q_PROPERTY(QString name READ getName WRITE setName)
    Q_PROPERTY(QString base_type READ getBaseType)
    Q_PROPERTY(QString id READ getId)
    Q_PROPERTY(bool valid READ getValid)

public:
    /// `palette` is the one that holds the colour, or names nothing.
    PaletteBaseColour(std::shared_ptr<CM_BaseColorObj> colour, const UT_Id& palette, SC_ProjectCommon* project);

    std::string __str__() const override;

    QString getName() const; ///< The name, as the person sees it; an empty one becomes "Default".
    virtual void setName(const QString& name);
    QString getBaseType() const; ///< "Colour" or "Texture".
    QString getId() const;       ///< The id by which drawings name their paint: sixteen hexadecimal digits.
    bool getValid() const;       ///< Whether the colour can be read; never fails.

    Obj palette() const;      ///< The palette that holds the colour; fails where none does.
    Obj palette_list() const; ///< The palette list that holds the colour's palette; fails where none does.

    /// The colour as it is now; throws when it is of the other kind.
    std::shared_ptr<CM_Color> colorData() const;
    std::shared_ptr<CM_Texture> textureData() const;
    UT_Id parentPaletteId() const;                    ///< Names nothing where no palette holds the colour.
    UT_Id parentPaletteListId() const;                ///< Names nothing where no list has the colour's palette.
    SC_ProjectCommon* projectCommon() const;          ///< Null once the project is closed.
    void setParentPaletteId(const QString& id) const; ///< Sets the palette in which the colour is looked for.

    /// A new wrapper for a colour or a texture; null for null.
    static PaletteBaseColour* wrapperOf(const std::shared_ptr<CM_BaseColorObj>& colour, const UT_Id& palette,
                                        SC_ProjectCommon* project);

protected:
    void validate() const override;
    /// The colour as it is now: on its palette, or as it was when it was taken off.
    const std::shared_ptr<CM_BaseColorObj>& live() const;
    /// The palette that holds the colour now; throws where none does.
    std::shared_ptr<CM_Palette> parentPalette() const;
    /// Runs an edit of the colour as one entry of the undo list.
    void run(std::unique_ptr<UT_Command> command, const QString& label) const;

private:
    std::shared_ptr<CM_Palette> findParentPalette() const;

    mutable std::shared_ptr<CM_BaseColorObj> m_colour;
    mutable UT_Id m_palette;
};

} // namespace OMC
