#pragma once

#include "core/columns/column.h"
#include "core/host/tu_seqtimedvalue.h"

namespace OMC {

class ElementDrawing;
class ElementDrawingList;

/// A drawing column: which drawing of its element is exposed at each frame. column[frame] gives an ElementDrawing, or
/// null where nothing is exposed, and takes a drawing or its name.
///
/// A drawing holds up to the next exposure; a frame at which an exposure begins is a key exposure. An empty name
/// exposes nothing, up to the next exposure. A name that the element doesn't have makes the drawing in it, in the same
/// undo entry. The size is the number of frames up to the last one that shows a drawing; the last exposure holds up to
/// the end of the scene.
///
/// Ranges of frames are given as a frame, a dictionary of a first and a last frame ({"from": 2, "to": 4}; also "start"
/// or "begin" and "end" or "finish"), or a list of these.
class BRINDLE_CORE_EXPORT ElementColumn : public Column {
    Q_OBJECT
    BRINDLE_COPYABLE(ElementColumn)
    Q_PROPERTY(OMC::Obj drawings READ getDrawings)
    Q_PROPERTY(QStringList drawing_names READ getDrawingNames)
    Q_PROPERTY(QVariant element READ getElement WRITE setElement)

public:
    explicit ElementColumn(TUTimedValue* timedValue);

    std::string __str__() const override;

    /// The number of frames up to the last one that shows a drawing.
    unsigned int nFrames() const override;

    using Column::get;
    using Column::set;
    /// The drawing that is exposed at a frame, null where there is none. Without an element it is the name alone.
    QVariant get(int frame) const override;
    /// Exposes a drawing at a frame, or those of a list at the frame and those behind it: drawings, names, or null for
    /// an empty cell. The last one holds up to the next exposure.
    void set(int frame, const QVariant& drawings) override;

    void setEach(int first, int step, const QVariantList& drawings) override;
    /// The same as `get`, for a caller that takes the wrapper itself; null where there is a name alone, or none.
    ElementDrawing* newDrawingAt(int frame, QString& name) const;

    /// Makes an element and shows it in the column. The arguments are those of the element list's `create`.
    virtual Obj attachNewElement(const QString& name, const QString& scanType, double fieldChart,
                                 const QString& pixmapFormat, const QString& vectorType);
    /// The element whose drawings the column shows, null for none; written with an Element or its number, or with -1
    /// for none. Cells keep the names that they show.
    virtual QVariant getElement() const;
    virtual void setElement(const QVariant& element);
    virtual Obj getDrawings() const;             ///< The drawings of the column's element; null without one.
    virtual QStringList getDrawingNames() const; ///< The names that cells show, each once, in the order of the sheet.

    virtual Obj drawing(double frame) const; ///< The drawing that is exposed at a frame, or null.
    /// Makes a drawing and exposes it at a frame, in one undo entry. Its name is the number behind the highest one of
    /// the element; with `byFrame` it is the number of the frame, with a number of its own behind where that is taken.
    virtual Obj generate(double frame, bool byFrame);
    /// The mark of the drawing that is exposed at a frame, as the drawing's `type` has it.
    virtual QString drawingType(double frame) const;
    virtual void setDrawingType(double frame, const QString& type); ///< Marks the drawing; no undo takes that back.
    virtual int drawingVersion(const QString& timing) const; ///< The version of a drawing of the element, by its name.

    /// Removes the drawings that are exposed over ranges of frames: from the element, and from all cells that show
    /// them.
    virtual void drawingDelete(const QVariant& frames);
    /// Copies the drawing that is exposed at a frame under the number behind the highest one, and exposes the copy from
    /// the frame on. Gives the copy.
    virtual QVariant drawingDuplicate(int frame);

    /// Makes each frame of the ranges that shows a drawing a key exposure.
    virtual void keyExposureAdd(const QVariant& frames);
    /// Takes key exposures away: the drawing that is exposed ahead of each holds on.
    virtual void keyExposureRemove(const QVariant& frames);
    /// Takes those key exposures away that show the same drawing as the frame ahead.
    virtual void keyExposureRemoveDuplicate(const QVariant& frames);
    /// The frame of the next key exposure behind a frame, null where there is none. `marks`, a text or a list of texts,
    /// asks for one of a drawing with such a mark.
    virtual QVariant keyExposureNext(double frame, const QVariant& marks) const;

    /// Lets the drawing ahead of each empty cell hold on over it, from frame `start` to `end`.
    virtual void fillEmpty(int start, int end);
    /// Empties `count` cells from a frame on, at least 2. With `ripple` the frames are cut out of the column: what is
    /// exposed behind them moves up.
    virtual void clear(int start, int count, bool ripple);

private:
    /// The engine's column; each throws its sentence for one of another kind.
    TUElementTimedValue& linkedColumn() const;
    TUElementTimedValue& elementColumn() const;
    void runLink(TUElementTimedValue& column, int element);
    ElementDrawing exposedDrawing(double frame, const QString& failure) const;
};

} // namespace OMC
