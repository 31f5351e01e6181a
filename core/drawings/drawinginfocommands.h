#pragma once

#include "core/host/ca_celkey.h"
#include "core/host/gr_drawing.h"
#include "core/host/ut_undoredo.h"

/// The undoable changes of what is noted about a drawing as a whole. Each finds the drawing by its key.
namespace OMC {

/// Keeps what was noted before, and brings it back.
class DrawingInfoCommand : public UT_Command {
public:
    explicit DrawingInfoCommand(const CA_CelKey& key) : m_key(key) {}

    bool Execute() final;
    bool Undo() final;

protected:
    virtual void change(GR_CompositeDrawingInfo& info) const = 0;

private:
    CA_CelKey m_key;
    GR_CompositeDrawingInfo m_before;
};

class OMCDrawing_ChangePivotCommand final : public DrawingInfoCommand {
public:
    OMCDrawing_ChangePivotCommand(const CA_CelKey& key, const Math::Point2d& point)
        : DrawingInfoCommand(key),
          m_point(point)
    {}

private:
    void change(GR_CompositeDrawingInfo& info) const override { info.SetPivotPoint(m_point); }

    Math::Point2d m_point;
};

class OMCDrawing_UnsetePivotCommand final : public DrawingInfoCommand {
public:
    using DrawingInfoCommand::DrawingInfoCommand;

private:
    void change(GR_CompositeDrawingInfo& info) const override { info.UnsetPivotPoint(); }
};

/// Writes a field: the field size or the point quantum.
template <typename Value>
class DrawingFieldCommand final : public DrawingInfoCommand {
public:
    DrawingFieldCommand(const CA_CelKey& key, Value GR_CompositeDrawingInfo::*field, Value value)
        : DrawingInfoCommand(key),
          m_field(field),
          m_value(value)
    {}

private:
    void change(GR_CompositeDrawingInfo& info) const override { info.*m_field = m_value; }

    Value GR_CompositeDrawingInfo::*m_field;
    Value m_value;
};

} // namespace OMC
