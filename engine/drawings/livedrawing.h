#pragma once

#include "engine/drawings/drawingvalue.h"
#include "engine/drawings/liveart.h"

#include <QExplicitlySharedDataPointer>

#include <array>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

namespace brindle::engine {

class CommandManager;
class ContentStore;
class LiveDrawing;
using LiveDrawingPointer = QExplicitlySharedDataPointer<LiveDrawing>;

/// A drawing as scripts and sessions see it: its present value, and an object for each of its parts that a caller may
/// point to. Objects of layers are kept as long as the drawing, so that an undo gives a layer its object again.
///
/// One of an element belongs to the element's drawing once it was asked for, and is what that shows; its content is the
/// value's, and is made when it is asked for. One of no element belongs to who made it.
///
/// While a session is open on it (`SessionMark`), undo and redo and all that would give it another value from outside
/// are refused: what the session began with would no longer be there.
class LiveDrawing final : public GR_CompositeVectorDrawingObj {
public:
    /// Of no element. A null dictionary stands for one of its own; another one is the caller's, and outlives it.
    explicit LiveDrawing(GR_ColorDict* dict);
    /// Of an element's drawing, with the value of its content; null is a drawing without a file. Throws
    /// `FolderFailure` where the content can't be read.
    LiveDrawing(ContentStore& store, CommandManager& history, const ContentPointer& content);
    ~LiveDrawing() override;

    // --- Its value --------------------------------------------------------------------------------------------------
    const DrawingPointer& value() const { return m_value; }
    int revision() const { return m_revision; }
    /// Takes another value. The ids that this drawing has given stay given.
    void setValue(const DrawingPointer& value);
    /// A value and its content; null for a drawing without a file.
    struct State {
        DrawingPointer value;
        ContentPointer content;
    };
    State state() const;
    /// Takes the art layers of an earlier state; what is noted about the drawing as a whole stays.
    void setArts(const State& state);

    /// The present content, which is made where the value has none yet. Null for a drawing without a file.
    ContentPointer content() const;
    /// Whether `content()` is there without being made.
    bool isSettled() const { return m_value == m_contentValue; }
    /// Shows another content; throws `FolderFailure`, and changes nothing, where it can't be read.
    void setContent(const ContentPointer& content);
    /// The content that stands on disk after a save, which has the bytes of the present one.
    void setStanding(const ContentPointer& content) { m_content = content; }
    void saved(); ///< A save has happened.

    // --- Edits. What they give is good until the next one; each one makes the revision grow -------------------------
    /// The value of a layer, for changing; the caller tells the leaf's LiveLayer what was changed.
    LayerValue& edit(LiveLeaf& leaf);
    /// Puts a layer at a place of an art layer: a new one, or one that was taken out.
    LiveLeaf& insert(LiveArt& art, std::size_t place, const LayerPointer& layer);
    /// Its leaf goes on showing it until the session ends.
    LayerPointer take(LiveLeaf& leaf);
    quint32 newLayerId(); ///< std::length_error when all are given.
    quint32 newStrokeId();

    // --- Its place --------------------------------------------------------------------------------------------------
    void setGone(bool isGone) { m_isGone = isGone; }                             ///< Whether it is out of its project.
    void setScale(std::function<double()> scale) { m_scale = std::move(scale); } ///< From drawing to camera units.
    /// The element's drawing goes: there is no store any more.
    void drop();
    /// What leads to the drawing as long as it lives, and to null afterwards.
    const std::shared_ptr<LiveDrawing*>& link() const { return m_link; }

    bool isUnderEdit() const { return m_sessions > 0; }
    void openSession() { ++m_sessions; }
    /// Ends a session whose changes `endEdits` has told the undo list of; others are lost to that.
    void closeSession();
    /// Tells the undo list that the changes of the session become a step, or that nothing differs. Gives whether the
    /// project was saved behind the last of them: then executing the step calls `stepIsSaved`.
    bool endEdits(bool differs);
    void stepIsSaved() const;

    GR_ColorDict& dict() const { return *m_dict; }
    LiveArt& art(std::size_t index) const { return *m_arts[index]; } ///< Also one that the drawing lacks.

    GR_DrawingBase* GetArt(int index) const override;
    GR_CompositeDrawingInfo* GetDrawingInfo() override;
    void InfoChanged() override;
    GR_ColorDict::PaletteInfo GetPaletteInfo() const override;
    bool IsGone() const override { return m_isGone; }
    bool IsEmpty() const override { return m_value->isEmpty(); }
    bool IsDrawingModified() const override;
    double GetMaxThickness() const override;
    Math::Box2d GetWorldBBox() const override;
    Math::Box2d GetVisibleWorldBBox() const override;
    Math::Matrix2x3 GetImplicitScalingMatrix() const override;
    Math::Matrix2x3 GetImplicitScalingMatrixInverse() const override;

private:
    void makeArts();
    void show();
    LiveLeaf& leafOf(const LayerValue& layer);
    void showArt(std::size_t index);
    DrawingValue& editValue();

    DrawingPointer m_value;
    int m_revision = 0;
    quint32 m_lastLayerId = 0; ///< The highest ever given, also in values that were taken back.
    quint32 m_lastStrokeId = 0;

    std::array<QExplicitlySharedDataPointer<LiveArt>, kArtCount> m_arts;
    std::unordered_map<quint32, std::unique_ptr<LiveLeaf>> m_leaves; ///< By the ids of their layers.
    std::vector<LiveLeaf*> m_removedLeaves;                ///< Of layers that were taken out, until the session ends.
    std::vector<std::unique_ptr<LiveLeaf>> m_formerLeaves; ///< Of layers whose ids other kinds of layers have now.

    GR_ColorDict m_ownDict;
    GR_ColorDict* m_dict = &m_ownDict;
    GR_CompositeDrawingInfo m_info; ///< As the value's, but for what is not told yet.

    ContentStore* m_store = nullptr;  ///< Null for a drawing of no element.
    mutable ContentPointer m_content; ///< Of `m_contentValue`.
    mutable DrawingPointer m_contentValue;
    ContentPointer m_savedContent; ///< That of the project on disk.
    std::function<double()> m_scale;
    std::shared_ptr<LiveDrawing*> m_link = std::make_shared<LiveDrawing*>(this);
    CommandManager* m_history = nullptr; ///< Null for a drawing of no element.
    int m_sessions = 0;
    bool m_isEditNoted = false; ///< The undo list knows that the session has changed something since the last save.
    bool m_isGone = false;
};

/// The engine's drawing behind what the host shows of it; null for null and for those of another engine.
LiveDrawing* liveDrawing(const GR_CompositeVectorDrawingObj* drawing);

/// A session is open on a drawing while it lives.
class SessionMark {
public:
    explicit SessionMark(LiveDrawing& drawing) : m_link(drawing.link()) { drawing.openSession(); }
    SessionMark(const SessionMark&) = delete;
    SessionMark& operator=(const SessionMark&) = delete;
    ~SessionMark()
    {
        if (LiveDrawing* drawing = *m_link)
            drawing->closeSession();
    }

    LiveDrawing* drawing() const { return *m_link; } ///< Null once it is gone.

private:
    std::shared_ptr<LiveDrawing*> m_link;
};

} // namespace brindle::engine
