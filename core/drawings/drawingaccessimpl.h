#pragma once

#include "core/frame/export.h"
#include "core/host/ca_celcache.h"
#include "core/host/gr_drawingaccess.h"

#include <QObject>
#include <QString>

#include <memory>

class DT_Command;
class TUSceneChangeManager;

namespace OMC {

class DrawingLayerImplShared;

/// The edit session of drawings: one in the process, for one drawing with its four art layers. What is changed in it
/// becomes one entry of the undo list at its end, "Drawing Modified with Python".
///
/// Whoever begins while a session of the same drawing is open joins it; one end closes it for all. Threads are kept
/// apart by the checks of the wrappers. A session whose project is closed is over, and leaves nothing.
class BRINDLE_CORE_EXPORT DrawingAccessImpl : public QObject {
    Q_OBJECT

public:
    /// The one of the process, made at the first use.
    static DrawingAccessImpl& get();

    DrawingAccessImpl();
    ~DrawingAccessImpl() override; ///< Takes back what a session holds that is still open.

    bool active() const;                             ///< Whether a session is open.
    GR_VectorDrawingObj* vectorDrawing() const;      ///< The art layer that the session works on; null without one.
    const CA_DrawingLayerKey& getCurrentKey() const; ///< Its key; an invalid one without a session.
    /// Whether sides of strokes with the eraser colour keep it when the colour of a contour is set.
    bool getRespectSticky() const;
    void setRespectSticky(bool respect);
    quint64 sessionNumber() const; ///< Tells sessions apart: no later one has the number of this one.

    /// Opens a session, or joins the one that is open on the drawing: `created` tells which. Throws "A different
    /// drawing is already being modified." for another drawing, and "An unexpected error has occurred." without a
    /// drawing or a project.
    GR_DrawingAccess* vectorBegin(GR_VectorDrawingObj* drawing, const CA_DrawingLayerKey& key, bool& created);
    /// Closes the session. Throws "There is no active drawing access." without one.
    void vectorEnd(bool finish);
    /// Ends the present group of operations. With `reopen` it begins the next one; without, operations stand for
    /// themselves until then. Throws "There is no active drawing access." without a session.
    GR_DrawingAccess* vectorStep(bool reopen, bool finish);
    /// Closes the session as the process ends: its step goes to the undo list and is taken back there.
    void vectorCancel();
    /// Closes the session and takes back what was done in it, without a trace on the undo list. Nothing without one.
    void vectorTakeBack();

    /// Lets the session work on another art layer of its drawing, for operations that name none.
    void setArtLayer(GR_VectorDrawingObj* drawing, const CA_DrawingLayerKey& key);

    /// Makes a layer of the session's drawing known to it. Nothing without a session, or of another drawing.
    void addActiveLayer(GR_VectorDrawingObj* drawing, UT_Node* layer, DrawingLayerImplShared* record);
    /// Whether the session erased the layer; its wrappers are good until the session ends.
    bool isErased(const DrawingLayerImplShared& record) const;

    /// The layer type of a name, as "PEN_LAYER"; throws for another text.
    static GR_Layer::LayerType layerTypeFromQString(const QString& name);

private:
    struct Session;

    void addStep(std::unique_ptr<DT_Command> step); ///< To the undo list.
    void close();                                   ///< Drops the session.
    static void tellChanged(TUSceneChangeManager* changes, const CA_DrawingLayerKey& key);

    std::unique_ptr<Session> m_session;
    CA_DrawingLayerKey m_key;
    quint64 m_sessionNumber = 0;
    bool m_respectSticky = false;
};

} // namespace OMC
