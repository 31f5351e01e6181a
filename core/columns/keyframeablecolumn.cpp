#include "core/columns/keyframeablecolumn.h"

#include "core/columns/controlpointlist.h"
#include "core/columns/controlpointvisitor.h"
#include "core/columns/keyframeedit.h"
#include "core/frame/undo.h"
#include "core/host/sc_scene.h"
#include "core/host/tu_timedvalue.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace OMC {

namespace {

/// A line a frame for debugging, which is required to stay: "FRAME: %f". All lines at once, as each of them may be a
/// system call.
void printFrames(const QList<double>& frames)
{
    std::string lines;
    std::array<char, 400> number; // the largest one has 309 digits ahead of its point
    for (const double frame : frames) {
        const auto written = std::to_chars(number.begin(), number.end(), frame, std::chars_format::fixed, 6);
        lines.append("FRAME: ").append(number.data(), written.ptr).append(1, '\n');
    }
    std::fwrite(lines.data(), 1, lines.size(), stdout);
}

} // namespace

KeyframeableColumn::KeyframeableColumn(AT_FncTimedValue* timedValue) : Column(timedValue) {}

BaseObject* KeyframeableColumn::copy() const
{
    return new KeyframeableColumn(*this);
}

std::string KeyframeableColumn::__str__() const
{
    return described(tr("KeyframeableColumn(%1)"));
}

Obj KeyframeableColumn::getControlPoints() const
{
    return Obj(new ControlPointList(&timedValueAs<AT_FncTimedValue>()));
}

QVariant KeyframeableColumn::keyframeCreate(const QVariant& value)
{
    validate();
    const QList<double> frames = keyframeedit::framesIn(value);
    CO_CommandManager& manager = commandManager();
    auto& column = timedValueAs<AT_FncTimedValue>();
    printFrames(frames);
    keyframeedit::run(manager, frames, frames.size(),
                      [&](double frame, CO_Command** command) { column.createKeyframes(frame, frame, command); },
                      {tr("Failed to set keyframe at frame %1"), tr("Setting %1 keyframes."), tr("Setting a keyframe."),
                       tr("Failed to set %1 keyframes."), tr("Failed to set a keyframe.")});

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
    auto& column = timedValueAs<AT_FncTimedValue>();
    frames.removeIf([&](double frame) { return !column.isKey(frame); });
    keyframeedit::run(manager, frames, given,
                      [&](double frame, CO_Command** command) { column.removeKeyframes(frame, frame, command); },
                      {tr("Failed to remove keyframe at: %1"), tr("Removing %1 keyframes."), tr("Removing a keyframe."),
                       tr("Failed to remove %1 keyframes."), tr("Failed to remove a keyframe.")});
}

bool KeyframeableColumn::keyframeExists(const QVariant& value) const
{
    validate();
    const QList<double> frames = keyframeedit::framesIn(value);
    const auto& column = timedValueAs<AT_FncTimedValue>();
    return std::any_of(frames.cbegin(), frames.cend(), [&](double frame) { return column.isKey(frame); });
}

void KeyframeableColumn::keyframeClear(int start, int end)
{
    auto& column = timedValueAs<AT_FncTimedValue>();
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
    const std::vector<int> keyframes = timedValueAs<AT_FncTimedValue>().keyframes();
    return QList<int>(keyframes.begin(), keyframes.end());
}

void KeyframeableColumn::keyframelistFromVariant(const QVariant& value, QList<double>& frames, QList<QString>& errors)
{
    const auto addFrame = [&](const QVariant& item) {
        bool read = false;
        const double frame = item.toDouble(&read);
        if (read)
            frames.append(frame);
        else
            errors.append(tr("Invalid argument: ")); // Without the value: required.
    };
    if (value.typeId() != QMetaType::QVariantList)
        return addFrame(value);

    // Not by recursion: a script decides how deep its lists lie inside each other.
    struct Level {
        const QVariantList* items;
        qsizetype next;
    };
    const auto listIn = [](const QVariant& list) { return static_cast<const QVariantList*>(list.constData()); };
    std::vector<Level> levels{{listIn(value), 0}};
    while (!levels.empty()) {
        Level& level = levels.back();
        if (level.next == level.items->size()) {
            levels.pop_back();
            continue;
        }
        const QVariant& item = level.items->at(level.next++);
        if (item.typeId() == QMetaType::QVariantList)
            levels.push_back({listIn(item), 0});
        else
            addFrame(item);
    }
}

int KeyframeableColumn::getHoldStartFrame() const
{
    return timedValueAs<TUFnc2DTimedValue>().start();
}

void KeyframeableColumn::setHoldStartFrame(int frame)
{
    auto& column = timedValueAs<TUFnc2DTimedValue>();
    undo::manager(column.sceneCommon())
        .execute(new tu_timedvalue::fnc2d::SetStartCmd(&column, frame), tr("Set Start Frame for Hold"));
}

int KeyframeableColumn::getHoldStopFrame() const
{
    return timedValueAs<TUFnc2DTimedValue>().stop();
}

void KeyframeableColumn::setHoldStopFrame(int frame)
{
    auto& column = timedValueAs<TUFnc2DTimedValue>();
    undo::manager(column.sceneCommon())
        .execute(new tu_timedvalue::fnc2d::SetStopCmd(&column, frame), tr("Set Stop Frame for Hold"));
}

int KeyframeableColumn::getHoldStep() const
{
    return timedValueAs<TUFnc2DTimedValue>().step();
}

void KeyframeableColumn::setHoldStep(int step)
{
    auto& column = timedValueAs<TUFnc2DTimedValue>();
    undo::manager(column.sceneCommon())
        .execute(new tu_timedvalue::fnc2d::SetStepCmd(&column, step), tr("Set Step for Hold"));
}

int KeyframeableColumn::numberOfPoints() const
{
    return timedValueAs<TUFnc2DTimedValue>().pointCount();
}

} // namespace OMC
