#pragma once

#include "core/host/dt_undolistener.h"
#include "core/host/em_commands.h"
#include "core/host/gr_drawingaccess.h"
#include "engine/drawings/drawingcontents.h"
#include "engine/elements/elementmanager.h"
#include "tests/engine/folder/foldertest.h"

/// An edit session on an art layer, as scripts have one.
class EditSession {
public:
    explicit EditSession(GR_VectorDrawingObj* art) : m_undo(nullptr, nullptr, nullptr, 1)
    {
        access.SetDrawing(art);
        access.AddListener(&m_undo);
        m_undo.SetCurrentDrawing(art, CA_CelKey());
    }
    ~EditSession() { access.RemoveListener(&m_undo); }

    /// Ends it, and puts its step on the undo list. False where nothing differs, so that there is no step.
    bool end(CO_CommandManager& manager);
    DT_Command* release() { return m_undo.Release(); }

    GR_DrawingAccess access;

private:
    DT_UndoListener m_undo;
};

/// A project with an element of vector drawings, and in it the drawing "1", which is blank and has a file.
class DrawingTest : public FolderTest {
public:
    DrawingTest();

    brindle::engine::ElementManager& elements() { return elementsOf(project()); }
    static brindle::engine::ElementManager& elementsOf(brindle::engine::Project& project);
    brindle::engine::LiveDrawing& drawing(const QString& name = QStringLiteral("1"));
    brindle::engine::LiveArt& art() { return drawing().art(GR_CompositeVectorDrawingObj::kLine); }
    CA_CelKeyElement key(const QString& name = QStringLiteral("1"));
    bool addDrawing(const QString& name);
    /// What the drawing's file would hold now; empty where it has none.
    QByteArray bytes(const QString& name = QStringLiteral("1"));
    static QByteArray bytesOf(brindle::engine::Project& project, const QString& name = QStringLiteral("1"));

    /// Runs edits in a session of their own; false where they left no step.
    template <typename Edits>
    bool edit(Edits edits)
    {
        EditSession session(&art());
        edits(session.access);
        return session.end(manager());
    }

    int element = -1;
};

/// A stroke along a cubic with handles on the chord.
GR_StrokeData straightStroke(const Math::Point2d& from, const Math::Point2d& to);
GR_ColorPtr colourOf(quint64 id);
GR_ThicknessPathPtr widthPath(double thickness);
/// The layer of strokes of a leaf.
GR_Layer& strokesOf(UT_Node* leaf);
GR_VectorStroke* strokeAt(UT_Node* leaf, std::size_t index);
std::vector<UT_Node*> leavesOf(GR_VectorDrawingObj& art);
