#pragma once

#include "core/elements/elementguard.h"
#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/listobj.h"
#include "core/host/em_elementinfo.h"

#include <QVariant>

namespace OMC {

class ElementDrawing;

/// The drawings of an element, in the order in which they were made. list["1"] finds one by its name in constant time;
/// a loop goes over the drawings that there were when it began.
class BRINDLE_CORE_EXPORT ElementDrawingList : public CountedList<ListObj, IterableObj> {
    Q_OBJECT
    BRINDLE_COPYABLE(ElementDrawingList)

public:
    explicit ElementDrawingList(int elementId) : m_elementId(elementId) {}

    std::string __str__() const override;

    std::size_t size() const override;
    /// The drawing at an index, or of exactly this name; throws where there is none.
    Obj get(int index) const override;
    Obj get(const QString& name) const override;
    ElementDrawing* newItem(int index) const;
    ElementDrawing* newItem(const QString& name) const;
    void set(int index, const Obj& object) override; ///< Always refused.
    std::vector<Obj> list() const override;
    QStringList names() const;                        ///< The names of all drawings.
    virtual bool contains(const QString& name) const; ///< Whether there is a drawing of exactly this name.
    bool holds(const BaseObject& item) const;         ///< Whether an object shows a drawing of the element.
    virtual Obj operator()(const QString& name) const;

    /// Makes a drawing, or with a list of names one for each, sorted by name. Gives the drawing, or a list of them for
    /// a list; one that is there already is given as it is. A new drawing has no file yet. With `fileExists` its file
    /// stands at its path already and becomes the project's with the next save; with `second` that fails at once where
    /// the file is missing, and without it the save does.
    virtual QVariant create(const QVariant& names, bool fileExists, bool second);

    /// Removes drawings with all their versions: an ElementDrawing, a name or a list of these. Their files go with the
    /// next save; an undo brings them back, also after a save. Cells of the exposure sheet go on naming them.
    virtual void remove(const QVariant& drawings);

private:
    void startIteration() override;
    std::size_t iterationSize() const override { return m_snapshot.size(); }
    Obj itemAt(quint64 position) const override;
    std::vector<EM_DrawingId> ids() const;

    ElementGuard m_guard;
    int m_elementId;
    Snapshot<EM_DrawingId> m_snapshot;
};

} // namespace OMC
