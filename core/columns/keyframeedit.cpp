#include "core/columns/keyframeedit.h"

#include "core/columns/keyframeablecolumn.h"
#include "core/frame/undo.h"
#include "core/host/tu_timedvalue.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <vector>

namespace OMC::keyframeedit {

namespace {

void throwIfAny(const QStringList& errors)
{
    if (!errors.isEmpty())
        throw Exception(errors.join(QLatin1Char('\n')));
}

int truncated(double frame)
{
    constexpr double limit = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(frame, -limit, limit));
}

void throwIfRefused(const std::vector<double>& frames, const Texts& texts)
{
    QStringList errors;
    for (const double frame : frames)
        errors.append(texts.frameFailure.arg(truncated(frame)));
    throwIfAny(errors);
}

void run(CO_CommandManager& manager, CO_Command* command, qsizetype given, const Texts& texts)
{
    // Required: the text for many frames stands where there are few, and the other way round. Scripts look for them.
    if (given < 2)
        undo::run(manager, command, texts.few.arg(given), texts.fewFailure.arg(given));
    else
        undo::run(manager, command, texts.many, texts.manyFailure);
}

} // namespace

QList<double> framesIn(const QVariant& value)
{
    QList<double> frames;
    QList<QString> errors;
    KeyframeableColumn::keyframelistFromVariant(value, frames, errors);
    throwIfAny(errors);
    if (!std::all_of(frames.cbegin(), frames.cend(), [](double frame) { return std::isfinite(frame); }))
        BaseObject::throwInvalidArgument(0);
    return frames;
}

void create(CO_CommandManager& manager, AT_FncTimedValue& column, const QList<double>& frames, const Texts& texts)
{
    std::vector<double> refused;
    CO_Command* command = column.createKeyframes({frames.begin(), frames.end()}, refused);
    throwIfRefused(refused, texts);
    run(manager, command, frames.size(), texts);
}

void remove(CO_CommandManager& manager, AT_FncTimedValue& column, const QList<double>& frames, qsizetype given,
            const Texts& texts)
{
    auto commands = std::make_unique<CO_AndCommand>();
    std::vector<double> refused;
    for (const double frame : frames) {
        CO_Command* command = nullptr;
        column.removeKeyframes(frame, frame, &command);
        if (command)
            commands->add(command);
        else
            refused.push_back(frame);
    }
    throwIfRefused(refused, texts);
    run(manager, commands.release(), given, texts);
}

} // namespace OMC::keyframeedit
