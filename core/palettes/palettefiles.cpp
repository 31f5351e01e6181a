#include "core/palettes/palettefiles.h"

#include "core/frame/exception.h"
#include "core/host/msg_scope.h"
#include "core/host/ut_path.h"

#include <QCoreApplication>

namespace OMC {

namespace {

const QString extension = QStringLiteral(".plt");
const QString texturesEnd = QStringLiteral("_textures");

bool move(const QString& from, const QString& to)
{
    MSG_Scope(QStringLiteral("tufile::MoveDir %1 to %2").arg(from, to), MSG_Scope::kDebug);
    return tufile::MoveDir(from, to);
}

/// Moves a palette's file, and its textures where there are any: both or neither.
void moveBoth(const QString& from, const QString& to)
{
    bool moved = move(from + extension, to + extension);
    if (moved && tufile::fileExists(from + texturesEnd)) {
        moved = move(from + texturesEnd, to + texturesEnd);
        if (!moved)
            move(to + extension, from + extension);
    }
    if (!moved)
        throw Exception(QCoreApplication::translate("OMC::PaletteList", "Failed to move the palette \"%1\" to \"%2\".")
                            .arg(from + extension, to + extension));
}

} // namespace

QString uniquePath(const QString& path)
{
    const UT_Path wanted(path);
    UT_Path unique(path);
    for (int counter = 1; unique.Exists(); ++counter) {
        unique = wanted;
        unique.Up();
        unique.AddName(QStringLiteral("%1_%2").arg(wanted.GetBaseName(), QString::number(counter)));
        unique.AddExtension(wanted.GetExtension());
    }
    return unique.ToString();
}

PaletteFiles::PaletteFiles(const CM_PalettePathI& path, bool movable)
    : m_place(path.filename(false)),
      m_movable(movable)
{}

void PaletteFiles::moveAway()
{
    if (!m_movable || areAway() || !tufile::fileExists(m_place + extension))
        return;
    UT_Path target(m_place);
    const QString name = m_place.section(u'/', -1);
    target.Up();
    target.AddName(QStringLiteral(".deleted"));
    target.AddName(name + extension);
    QString away = uniquePath(target.ToString());
    away.chop(extension.size());
    moveBoth(m_place, away);
    m_away = away;
}

void PaletteFiles::moveBack()
{
    if (!areAway())
        return;
    moveBoth(m_away, m_place);
    m_away.clear();
}

} // namespace OMC
