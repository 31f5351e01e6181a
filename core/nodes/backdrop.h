#pragma once

#include "core/frame/engineview.h"
#include "core/frame/obj.h"

#include <QString>
#include <QVariant>

#include <vector>

class MO_Backdrop;
struct MO_BackdropProperties;
struct MO_BackdropText;
class TUGroup;

namespace OMC {

/// A titled, coloured rectangle behind the nodes of a group, in the coordinates of the node view, y growing downwards.
///
/// It holds a weak handle on the engine's backdrop. Each write is one undo entry, "Modify Backdrop". Once the backdrop
/// is removed, by an undo too, its wrappers are invalid for ever.
class BRINDLE_CORE_EXPORT Backdrop : public EngineView<MO_Backdrop> {
    Q_OBJECT
    BRINDLE_COPYABLE(Backdrop)
    Q_PROPERTY(int top READ getTop WRITE setTop)
    Q_PROPERTY(int bottom READ getBottom WRITE setBottom)
    Q_PROPERTY(int left READ getLeft WRITE setLeft)
    Q_PROPERTY(int right READ getRight WRITE setRight)
    Q_PROPERTY(int width READ getWidth WRITE setWidth)
    Q_PROPERTY(int height READ getHeight WRITE setHeight)
    Q_PROPERTY(QString title READ getTitle WRITE setTitle)
    Q_PROPERTY(QString description READ getDescription WRITE setDescription)
    Q_PROPERTY(QString title_font READ getTitleFont WRITE setTitleFont)
    Q_PROPERTY(double title_font_size READ getTitleFontSize WRITE setTitleFontSize)
    Q_PROPERTY(QVariant title_font_colour READ getTitleFontColour WRITE setTitleFontColour)
    Q_PROPERTY(QString description_font READ getDescriptionFont WRITE setDescriptionFont)
    Q_PROPERTY(double description_font_size READ getDescriptionFontSize WRITE setDescriptionFontSize)
    Q_PROPERTY(QVariant description_font_colour READ getDescriptionFontColour WRITE setDescriptionFontColour)
    Q_PROPERTY(QVariant colour READ getColour WRITE setColour)

public:
    explicit Backdrop(MO_Backdrop* backdrop);

    std::string __str__() const override; ///< "Backdrop()" for each.

    virtual int getTop() const; ///< The y of the upper side, in whole numbers; writing it moves this side alone.
    virtual void setTop(int top);
    virtual int getBottom() const; ///< The y of the lower side, in whole numbers; writing it moves this side alone.
    virtual void setBottom(int bottom);
    virtual int getLeft() const; ///< The x of the left side, in whole numbers; writing it moves this side alone.
    virtual void setLeft(int left);
    virtual int getRight() const; ///< The x of the right side, in whole numbers; writing it moves this side alone.
    virtual void setRight(int right);
    virtual int getWidth() const; ///< The width in whole numbers; writing it moves the right side.
    virtual void setWidth(int width);
    /// The height in whole numbers; writing it puts the right side at the top plus the value and leaves the height.
    ///
    /// Required: the write goes to the right side.
    virtual int getHeight() const;
    virtual void setHeight(int height);

    virtual QString getTitle() const; ///< The title.
    virtual void setTitle(const QString& title);
    virtual QString getDescription() const; ///< The text below the title.
    virtual void setDescription(const QString& description);
    virtual QString getTitleFont() const; ///< The family of the title's font.
    virtual void setTitleFont(const QString& font);
    virtual double getTitleFontSize() const; ///< The size of the title's font in points, above 0.
    virtual void setTitleFontSize(double size);
    /// The title's colour; takes every form that Colour takes; a list of three channels keeps the alpha.
    virtual QVariant getTitleFontColour() const;
    virtual void setTitleFontColour(const QVariant& colour);
    virtual QString getDescriptionFont() const; ///< The family of the description's font.
    virtual void setDescriptionFont(const QString& font);
    virtual double getDescriptionFontSize() const; ///< The size of the description's font in points, above 0.
    virtual void setDescriptionFontSize(double size);
    /// The description's colour; takes every form that Colour takes; a list of three channels keeps the alpha.
    virtual QVariant getDescriptionFontColour() const;
    virtual void setDescriptionFontColour(const QVariant& colour);
    /// The colour of the rectangle; takes every form that Colour takes; a list of three channels keeps the alpha.
    virtual QVariant getColour() const;
    virtual void setColour(const QVariant& colour);

    virtual void match(const Backdrop& other); ///< Takes all properties of another backdrop, as one undo entry.
    /// The nodes of the group whose position lies in the rectangle, its sides included, in the order of the group.
    virtual std::vector<Obj> containedNodes() const;

    /// Adds the engine's backdrops that a value tells: a Backdrop, or a list of such. Anything else adds none.
    static void qvariantToBackdrops(const QVariant& value, std::vector<MO_Backdrop*>& backdrops);

    MO_Backdrop* getBackdrop() const; ///< The engine's backdrop, or null once it is gone.
    TUGroup* getGroup() const;        ///< Its group, or null once the backdrop is gone.

private:
    template <typename Change>
    void modify(const Change& change);
};

} // namespace OMC
