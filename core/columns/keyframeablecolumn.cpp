#include "core/columns/keyframeablecolumn.h"

#include "core/columns/columncast.h"
#include "core/columns/controlpointlist.h"
#include "core/columns/controlpointvisitor.h"
#include "core/columns/keyframeedit.h"
#include "core/frame/found.h"
#include "core/frame/undo.h"
#include "core/host/sc_scene.h"
#include "core/host/tu_timedvalue.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace OMC {

namespace {

/// Required: a line a frame, "FRAME: %f". All lines at once, as each of them may be a system call.
void printFrames(const QList<double>& frames)
{
    std::string lines;
    lines.reserve(static_cast<std::size_t>(frames.size()) * sizeof("FRAME: 10000.000000\n"));
    std::array<char, 400> number; // the largest one has 309 digits ahead of its point
    for (const double frame : frames) {
        // Most frames are whole, and a whole number is written in a tenth of the time.
        const bool isWhole = std::abs(frame) < 1e15 && frame == std::trunc(frame) && !std::signbit(frame);
        const auto written = isWhole ? std::to_chars(number.begin(), number.end(), static_cast<long long>(frame))
                                     : std::to_chars(number.begin(), number.end(), frame, std::chars_format::fixed, 6);
        lines.append("FRAME: ").append(number.data(), written.ptr).append(isWhole ? ".000000\n" : "\n");
    }
    std::fwrite(lines.data(), 1, lines.size(), stdout);
}

/// A frame of an argument; a number isn't converted through the table of types.
double frameFrom(const QVariant& item, bool& isFrame)
{
    isFrame = true;
    switch (item.typeId()) {
    case QMetaType::Int:
        return *static_cast<const int*>(item.constData());
    case QMetaType::Double:
        return *static_cast<const double*>(item.constData());
    default:
        return item.toDouble(&isFrame);
    }
}

} // namespace

KeyframeableColumn::KeyframeableColumn(AT_FncTimedValue* timedValue) : Column(timedValue) {}

std::string KeyframeableColumn::__str__() const
{
    return described(tr("KeyframeableColumn(%1)"));
}

Obj KeyframeableColumn::getControlPoints() const
{
    return Obj(new ControlPointList(&function()));
}

QVariant KeyframeableColumn::keyframeCreate(const QVariant& value)
{
    validate();
    const QList<double> frames = keyframeedit::framesIn(value);
    CO_CommandManager& manager = commandManager();
    auto& column = function();
    printFrames(frames);
    keyframeedit::create(manager, column, frames,
                         {tr("Failed to set keyframe at frame %1"), tr("Setting %1 keyframes."),
                          tr("Setting a keyframe."), tr("Failed to set %1 keyframes."),
                          tr("Failed to set a keyframe.")});

    QVariantList points;
    points.reserve(frames.size());
    for (const double frame : frames) {
        ControlPointFrameWrapperVisitor visitor(frame);
        column.accept(visitor);
        ControlPoint* point = visitor.take();
        if (!point)
            continue;
        if (frames.size() == 1)
            return toVariant(point);
        points.append(toVariant(point));
    }
    return points;
}

void KeyframeableColumn::keyframeRemove(const QVariant& value)
{
    validate();
    QList<double> frames = keyframeedit::framesIn(value);
    const qsizetype given = frames.size();
    CO_CommandManager& manager = commandManager();
    auto& column = function();
    frames.removeIf([&](double frame) { return !column.isKey(frame); });
    keyframeedit::remove(manager, column, frames, given,
                         {tr("Failed to remove keyframe at: %1"), tr("Removing %1 keyframes."),
                          tr("Removing a keyframe."), tr("Failed to remove %1 keyframes."),
                          tr("Failed to remove a keyframe.")});
}

bool KeyframeableColumn::keyframeExists(const QVariant& value) const
{
    validate();
    const QList<double> frames = keyframeedit::framesIn(value);
    const auto& column = function();
    return std::any_of(frames.cbegin(), frames.cend(), [&](double frame) { return column.isKey(frame); });
}

void KeyframeableColumn::keyframeClear(int start, int end)
{
    auto& column = function();
    CO_CommandManager& manager = commandManager();
    if (end < 1)
        end = scene().getNumberOfFrames();
    if (start > end)
        std::swap(start, end);
    CO_Command* command = nullptr;
    column.removeKeyframes(start, end, &command);
    if (command)
        undo::run(manager, command, QString(), tr("Failed to clear keyfames on the column."));
}

QList<int> KeyframeableColumn::keyframeList() const
{
    const std::vector<int> keyframes = function().keyframes();
    return QList<int>(keyframes.begin(), keyframes.end());
}

void KeyframeableColumn::keyframelistFromVariant(const QVariant& value, QList<double>& frames, QList<QString>& errors)
{
    const auto addFrame = [&](const QVariant& item) {
        bool read = false;
        const double frame = frameFrom(item, read);
        if (read)
            frames.append(frame);
        else
            errors.append(tr("Invalid argument: ")); // Required: without the value.
    };
    const auto isList = [](const QVariant& item) {
        return item.typeId() == QMetaType::QVariantList || item.typeId() == QMetaType::QStringList;
    };
    if (!isList(value))
        return addFrame(value);

    // Not by recursion: a script decides how deep its lists lie inside each other.
    struct Level {
        QVariantList items;
        qsizetype next;
    };
    std::vector<Level> levels{{value.toList(), 0}};
    while (!levels.empty()) {
        Level& level = levels.back();
        if (level.next == level.items.size()) {
            levels.pop_back();
            continue;
        }
        const QVariant& item = level.items.at(level.next++);
        if (isList(item))
            levels.push_back({item.toList(), 0});
        else
            addFrame(item);
    }
}

// Required: a value that is refused raises no error.
template <typename Command>
void KeyframeableColumn::setHold(int value, const QString& label)
{
    TUFnc2DTimedValue& column = curve();
    CO_CommandManager& manager = undo::manager(target().sceneCommon());
    CO_Command* command = new Command(&column, value);
    if (auto* path = columnCast<AT_Fnc3dTimedValue>(&target()))
        command = new tu_timedvalue::path3d::Path3DVeloCmd(path, command);
    manager.execute(command, label);
}

int KeyframeableColumn::getHoldStartFrame() const
{
    return curve().start();
}

void KeyframeableColumn::setHoldStartFrame(int frame)
{
    setHold<tu_timedvalue::fnc2d::SetStartCmd>(frame, tr("Set Start Frame for Hold"));
}

int KeyframeableColumn::getHoldStopFrame() const
{
    return curve().stop();
}

void KeyframeableColumn::setHoldStopFrame(int frame)
{
    setHold<tu_timedvalue::fnc2d::SetStopCmd>(frame, tr("Set Stop Frame for Hold"));
}

int KeyframeableColumn::getHoldStep() const
{
    return curve().step();
}

void KeyframeableColumn::setHoldStep(int step)
{
    setHold<tu_timedvalue::fnc2d::SetStepCmd>(step, tr("Set Step for Hold"));
}

int KeyframeableColumn::numberOfPoints() const
{
    return curve().pointCount();
}

// A wrapper leads to the column that it was made for, or to nothing.
AT_FncTimedValue& KeyframeableColumn::function() const
{
    return static_cast<AT_FncTimedValue&>(target());
}

TUFnc2DTimedValue& KeyframeableColumn::curve() const
{
    if (auto* curve = columnCast<TUFnc2DTimedValue>(&target()))
        return *curve;
    const auto& path = found(columnCast<AT_Fnc3dTimedValue>(&target()), unexpected::ErrorOccurred);
    return found(path.velocity(), [] { return tr("No velocity column set"); });
}

} // namespace OMC
