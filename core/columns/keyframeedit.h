#pragma once

#include <QList>
#include <QString>
#include <QVariant>

class AT_FncTimedValue;
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

void create(CO_CommandManager& manager, AT_FncTimedValue& column, const QList<double>& frames, const Texts& texts);
/// `given` is the number of frames that the script gave.
void remove(CO_CommandManager& manager, AT_FncTimedValue& column, const QList<double>& frames, qsizetype given,
            const Texts& texts);

} // namespace OMC::keyframeedit
