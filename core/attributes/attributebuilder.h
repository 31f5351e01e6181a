#pragma once

#include "core/attributes/attributecommands.h"
#include "core/columns/columncast.h"
#include "core/host/mo_framerange.h"
#include "core/host/sc_scene.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <type_traits>
#include <vector>

/// How the commands that set one value at one frame are put together: the column and its key first, the value last.
namespace tu_attr {

struct SetValueOptions {
    bool force = false;          ///< Also when the value is there already.
    bool adjustColumn = false;   ///< The rest of the column follows.
    bool holdFirstFrame = false; ///< A new column begins with the old value at frame 1.
    bool constantSegment = false;
};

/// The command that gives an attribute a column of its own, or null when it can't have one. `column` gets the new
/// column, which stays the command's.
template <typename T>
CO_AndCommand* makeColumnCommand(T& attr, TUTimedValue*& column)
{
    column = attr.socket() ? attr.createTimedValue() : nullptr;
    if (!column)
        return nullptr;
    // All or nothing, so that a link that is refused leaves no stray column.
    auto* commands = new CO_AndCommand;
    commands->add(new SC_SceneCmds::AddTimedValueCmd(attr.sceneCommon(), column, -1, -1));
    commands->add(new tu_tv_socket::LinkCmd(attr.socket(), column));
    return commands;
}

/// The command that sets a value at a frame; all of its steps are done, or none.
template <typename T>
std::unique_ptr<CO_Command> setValueCommand(T& attr, double frame, const typename T::ValueType& value,
                                            const SetValueOptions& options)
{
    const TUTvSocket* socket = attr.socket();
    TUTimedValue* column = socket ? socket->linkedTimedValue() : nullptr;
    std::unique_ptr<CO_AndCommand> steps;
    const auto addStep = [&steps](CO_Command* step) {
        if (step && !steps)
            steps = std::make_unique<CO_AndCommand>();
        if (step)
            steps->add(step);
    };
    if (column) {
        if (options.force || !(value == attr.value(frame)))
            addStep(column->spliceCommand(frame, options.constantSegment));
    } else if (socket && (options.force || !(value == attr.localValue()))) {
        addStep(makeColumnCommand(attr, column));
        if (column && options.holdFirstFrame && frame != 1)
            addStep(new SetValueCmd<T>(attr, 1, attr.localValue(), options.constantSegment, options.force));
    }
    if constexpr (std::is_arithmetic_v<typename T::ValueType>) {
        if (auto* curve = options.adjustColumn ? OMC::columnCast<TUFnc2DTimedValue>(column) : nullptr) {
            auto adjustments = std::make_unique<CO_OrCommand>(true);
            curve->adjustColumn(frame, static_cast<double>(value), *adjustments);
            if (adjustments->size() > 0)
                addStep(adjustments.release());
        }
    }
    auto set = std::make_unique<SetValueCmd<T>>(attr, frame, value, options.constantSegment, options.force);
    if (!steps)
        return set;
    addStep(set.release());
    return steps;
}

/// Changes the values of an animated attribute over a range of frames, keys of its own included, and holds still what
/// lies outside the range. Without a column, and over all frames, the local value changes.
template <typename T>
class ChangeValueAllFramesCmd : public CO_OrCommand {
public:
    using Value = typename T::ValueType;
    using Change = std::function<Value(Value)>;

    ChangeValueAllFramesCmd(T& attr, const Change& change, const MO_FrameRange& range)
        : CO_OrCommand(true),
          m_attr(attr)
    {
        const TUTvSocket* socket = attr.socket();
        TUTimedValue* column = socket ? socket->linkedTimedValue() : nullptr;
        const bool makesColumn = socket && !column && !range.isInfinite();
        CO_Command* make = makesColumn ? makeColumnCommand(attr, column) : nullptr;
        if (!column) {
            add(new SetLocalValueCmd<T>(attr, change(attr.localValue())));
            return;
        }
        add(make);
        m_column = column;
        m_curve = OMC::columnCast<TUFnc2DTimedValue>(column);
        const std::vector<int> passive = range.passiveFrames();
        const std::vector<int> edges = range.edgeFrames();
        // All keys are made before the first one moves: a curve is cut where it was, not where it goes.
        for (const auto* frames : {&passive, &edges}) {
            for (const int frame : *frames)
                addSplice(frame);
        }
        for (const int frame : passive)
            addKey(frame, attr.value(frame));
        for (const int frame : edges)
            addKey(frame, change(attr.value(frame)));
        for (int index = 0; m_curve && index < m_curve->pointCount(); ++index)
            addPoint(m_curve->curvePoint(index), change, range);
    }

    /// The first step that fails undoes those before it: half an offset is none.
    Status execute() override
    {
        for (std::size_t index = 0; index < m_commands.size(); ++index) {
            if (m_commands[index]->execute() != kFail)
                continue;
            while (index > 0)
                m_commands[--index]->unexecute();
            return kFail;
        }
        return kOk;
    }

private:
    bool hasKey(double frame) const { return m_curve && m_curve->isKey(frame); }
    bool isHeld(double frame) const { return m_curve && m_curve->isConstantAt(frame); }

    /// A key on the curve, where none stands.
    void addSplice(double frame) { add(m_column->spliceCommand(frame, isHeld(frame))); }

    /// The value of the key that is made there; one that stands already is left alone.
    void addKey(double frame, Value value)
    {
        if (!hasKey(frame))
            add(new SetValueCmd<T>(m_attr, frame, value, isHeld(frame), true));
    }

    void addPoint(const TUFnc2DPoint& point, const Change& change, const MO_FrameRange& range)
    {
        if (isEnabled(range, point.frame))
            add(new SetValueCmd<T>(m_attr, point.frame, change(valueOf(point)), point.constSegment, true));
    }

    /// The key's own value. The column may show another one at its frame, where it holds its values.
    static Value valueOf(const TUFnc2DPoint& point)
    {
        if constexpr (std::is_integral_v<Value>) {
            using Limits = std::numeric_limits<Value>;
            return static_cast<Value>(std::round(std::clamp<double>(point.value, Limits::min(), Limits::max())));
        } else {
            return point.value;
        }
    }

    /// A key between two frames moves only when both do.
    static bool isEnabled(const MO_FrameRange& range, double frame)
    {
        constexpr double limit = std::numeric_limits<int>::max();
        const double held = std::clamp(frame, -limit, limit);
        return range.isFrameEnabled(static_cast<int>(std::floor(held))) &&
               range.isFrameEnabled(static_cast<int>(std::ceil(held)));
    }

    T& m_attr;
    TUTimedValue* m_column = nullptr;
    const TUFnc2DTimedValue* m_curve = nullptr; ///< The same, where it is a curve of values.
};

/// Adds an amount. A whole number stays within the whole numbers.
template <typename T>
class OffsetValueAllFramesCmd final : public ChangeValueAllFramesCmd<T> {
public:
    using Value = typename T::ValueType;

    OffsetValueAllFramesCmd(T& attr, Value delta, const MO_FrameRange& range)
        : ChangeValueAllFramesCmd<T>(
              attr, [delta](Value value) { return sum(value, delta); }, range)
    {}

private:
    static Value sum(Value value, Value delta)
    {
        if constexpr (std::is_integral_v<Value>) {
            using Limits = std::numeric_limits<Value>;
            return static_cast<Value>(
                std::clamp<long long>(static_cast<long long>(value) + delta, Limits::min(), Limits::max()));
        } else {
            return value + delta;
        }
    }
};

} // namespace tu_attr
