#pragma once

#include <QString>
#include <QStringList>

namespace app::desk {

/// What the command line asks of the desk.
struct Options {
    QString project; ///< A folder.
    bool make = false;
    bool readOnly = false;
    bool verbose = false;
    QStringList script; ///< Run at the start: its path and its own arguments. Empty for none.

    QString error; ///< Why the arguments don't fit; empty when they do.
};

/// Reads the arguments behind the program's name. What stands behind --run's script is the script's own.
Options optionsFrom(QStringList arguments);

} // namespace app::desk
