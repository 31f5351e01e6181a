#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace app::desk {

/// The options of the desk's command line.
struct Options {
    QString project; ///< A folder.
    bool make = false;
    bool readOnly = false;
    bool verbose = false;
    QList<QByteArray> script; ///< Run at the start: its path and its own arguments. Empty for none.

    bool interrupter = false; ///< The process is a desk's InterruptHelper, which has no other options.
    bool help = false;        ///< Nothing else counts where it is asked for.
    QString error;            ///< Why the arguments don't fit; empty when they do.
};

/// Reads the arguments behind the program's name. What stands behind --run's script is the script's own.
Options optionsFrom(const QList<QByteArray>& arguments);

} // namespace app::desk
