#pragma once

#include <QList>
#include <QString>
#include <QVariant>

#include <functional>

class CO_Command;
class CO_CommandManager;

/// Edits of keyframes at several frames, as one command and one undo entry.
namespace OMC::keyframeedit {

/// The frames in a script's argument; throws what is wrong with it.
QList<double> framesIn(const QVariant& value);

/// A text with a number where there are few frames, and one for many.
struct Texts {
    QString frameFailure; ///< With a frame for %1.
    QString few;
    QString many;
    QString fewFailure;
    QString manyFailure;
};

/// Leaves the command for one frame, or null when there is none.
using Factory = std::function<void(double frame, CO_Command** command)>;

/// `given` is the number of frames that the script gave.
void run(CO_CommandManager& manager, const QList<double>& frames, qsizetype given, const Factory& factory,
         const Texts& texts);

} // namespace OMC::keyframeedit
