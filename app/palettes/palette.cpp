#include "app/arguments.h"
#include "app/palettes/gimppalette.h"
#include "app/palettes/palettesheet.h"
#include "core/host/cm_palettemanager.h"
#include "core/palettes/colourtext.h"
#include "engine/engine.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <unistd.h>

#include <cstdlib>
#include <memory>

namespace app {

namespace {

/// Files and what to do, as the arguments tell them.
struct Task {
    QString palette;
    QString picture; ///< Each of these is empty where it isn't asked for.
    QString importFrom;
    QString exportTo;
};

QString quoted(const QString& path)
{
    return u'"' + path + u'"';
}

/// Whether blocks of colours are asked for: on a terminal, unless the variable NO_COLOR says no, and also elsewhere
/// when CLICOLOR_FORCE says so.
bool showsColours()
{
    if (qEnvironmentVariableIsSet("CLICOLOR_FORCE"))
        return true;
    return isatty(STDOUT_FILENO) && qEnvironmentVariableIsEmpty("NO_COLOR");
}

std::shared_ptr<CM_Palette> importedPalette(const Task& task, QString& error)
{
    const CM_PalettePathFile path(task.palette);
    const QString file = path.filename(true);
    if (QFileInfo::exists(file)) {
        error = QString("%1 exists already.").arg(quoted(file));
        return nullptr;
    }
    QFile source(task.importFrom);
    if (!source.open(QIODevice::ReadOnly)) {
        error = QString("%1 can't be read: %2.").arg(quoted(task.importFrom), source.errorString());
        return nullptr;
    }
    const auto palette = std::make_shared<CM_Palette>(path);
    QString reason;
    if (!gimp::read(source.readAll(), *palette, reason)) {
        error = QString("%1 is no GIMP palette: %2.").arg(quoted(task.importFrom), reason);
        return nullptr;
    }
    return CM_PaletteManager::GetInstance()->SavePalette(palette, &error) ? palette : nullptr;
}

/// Writes a file whole or not at all. False, with a sentence, when it can't.
bool write(const QString& path, const QByteArray& bytes, QString& error)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() && file.commit())
        return true;
    error = QString("%1 can't be written: %2.").arg(quoted(path), file.errorString());
    return false;
}

int perform(const Task& task)
{
    QString error;
    const bool imports = !task.importFrom.isEmpty();
    const auto palette =
        imports ? importedPalette(task, error) : CM_Palette::Open(CM_PalettePathFile(task.palette), error);
    if (!palette)
        return fail(error, failed);
    if (imports)
        print(QString("Made %1: %2\n").arg(palette->GetPath().filename(true), OMC::colourtext::contentOf(*palette)));
    if (!task.picture.isEmpty()) {
        if (!write(task.picture, pngOf(palettePicture(*palette)), error))
            return fail(error, failed);
        print(QString("Wrote %1\n").arg(task.picture));
    }
    if (!task.exportTo.isEmpty()) {
        if (!write(task.exportTo, gimp::textOf(*palette), error))
            return fail(error, failed);
        print(QString("Wrote %1\n").arg(task.exportTo));
    }
    if (!imports && task.picture.isEmpty() && task.exportTo.isEmpty())
        print(paletteLines(*palette, showsColours()));
    return done;
}

} // namespace

int showPalette(const QList<QByteArray>& given)
{
    Task task;
    Arguments arguments(paletteUsage, given);
    while (arguments.next()) {
        if (!arguments.isOption()) {
            if (task.palette.isEmpty())
                task.palette = arguments.folder();
            else
                arguments.misfit();
        } else if (arguments.value() == "--out") {
            if (arguments.takeFor("--out needs the name of a picture."))
                task.picture = arguments.folder();
        } else if (arguments.value() == "--import") {
            if (arguments.takeFor("--import needs the name of a GIMP palette."))
                task.importFrom = arguments.folder();
        } else if (arguments.value() == "--export") {
            if (arguments.takeFor("--export needs the name of a GIMP palette."))
                task.exportTo = arguments.folder();
        } else {
            arguments.refuse();
        }
    }
    if (arguments.isHelpAsked()) {
        print(helpOf(paletteUsage));
        return done;
    }
    if (task.palette.isEmpty())
        arguments.misfit();
    if (!task.picture.isEmpty() && !task.picture.endsWith(u".png", Qt::CaseInsensitive))
        arguments.fail(QString("The picture %1 has to be a \".png\" file.").arg(quoted(task.picture)));
    if (!arguments.error().isEmpty())
        return fail(arguments.error(), misused);
    return perform(task);
}

} // namespace app
