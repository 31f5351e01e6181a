#include "core/columns/keyframeedit.h"

#include "core/columns/keyframeablecolumn.h"
#include "core/frame/undo.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>

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

void run(CO_CommandManager& manager, const QList<double>& frames, qsizetype given, const Factory& factory,
         const Texts& texts)
{
    auto commands = std::make_unique<CO_AndCommand>();
    QStringList errors;
    for (const double frame : frames) {
        CO_Command* command = nullptr;
        factory(frame, &command);
        if (command)
            commands->add(command);
        else
            errors.append(texts.frameFailure.arg(truncated(frame)));
    }
    throwIfAny(errors);
    // The text for many frames stands where there are few, and the other way round: required, scripts look for them.
    if (given < 2)
        undo::run(manager, commands.release(), texts.few.arg(given), texts.fewFailure.arg(given));
    else
        undo::run(manager, commands.release(), texts.many, texts.manyFailure);
}

} // namespace OMC::keyframeedit
