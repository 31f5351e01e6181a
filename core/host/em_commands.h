#pragma once

#include "core/host/ca_celkey.h"
#include "core/host/co_command.h"
#include "core/host/export.h"

#include <QByteArray>
#include <QString>

#include <set>

class TUElementMgr;
class TUSeqTimedValue;

/// The undoable changes of elements and their drawings. Each fails, and changes nothing, for an element or a drawing
/// that there is not, for a value that it doesn't take, and for the manager of another engine. Files follow with the
/// next save of the project.
///
/// While an edit session is open on a drawing, what would take the drawing away or give it another content is refused,
/// also where an undo would do that.

/// Fails for a name that no element can have, or that another one has which isn't deleted. The folder keeps its name.
class BRINDLE_HOST_EXPORT RenameElementCmd final : public CO_EngineCommand {
public:
    static CO_Command* BuildCmd(TUElementMgr* manager, int id, const QString& name);

private:
    using CO_EngineCommand::CO_EngineCommand;
};

/// Sets all fields of an element. The form of its files (pixmap format and vector type) can't change any more once it
/// has a file.
class BRINDLE_HOST_EXPORT ModifyElementCmd final : public CO_EngineCommand {
public:
    ModifyElementCmd(TUElementMgr* manager, int id, const QString& name, int scanType, double fieldChart,
                     int pixmapFormat, int vectorType);
};

/// Rounded to whole percents, 0 to 100.
class BRINDLE_HOST_EXPORT ChangeElementOpacity final : public CO_EngineCommand {
public:
    ChangeElementOpacity(TUElementMgr* manager, int id, double value);
};

/// Removes elements. With `removeFiles` they leave the database, and their files the project; without, both stay, and
/// the elements are deleted ones (TUElement::isDeleted). The last argument is always 0.
class BRINDLE_HOST_EXPORT RemoveElementsCmd final : public CO_EngineCommand {
public:
    static CO_Command* BuildCmd(TUElementMgr* manager, const std::set<int>& ids, bool removeFiles, int);

private:
    using CO_EngineCommand::CO_EngineCommand;
};

namespace EM_Commands {

/// Adds elements that TUElementMgr::createElement has made. Undone, they are gone as if they had never been. The last
/// three arguments are always 1, 1 and 0.
class BRINDLE_HOST_EXPORT FakeAddElementsCmd final : public CO_EngineCommand {
public:
    FakeAddElementsCmd(TUElementMgr* manager, const std::set<int>& ids, bool, bool, int);
};

/// Makes a drawing. It has no file until something is drawn or brought into it; with `fileExists` the file stands at
/// its path already, and is the drawing's from the next save on, which fails where it is missing then. `checkFile`
/// refuses at once where it is missing.
///
/// Fails for a name that no drawing can have: empty, longer than 255 characters, with control characters.
class BRINDLE_HOST_EXPORT NewDrawingCmd final : public CO_EngineCommand {
public:
    /// Null where the element has a drawing of that name.
    static CO_Command* Create(TUElementMgr* manager, int id, const QString& name, bool fileExists, bool checkFile);

private:
    using CO_EngineCommand::CO_EngineCommand;
};

/// Removes a drawing with all its versions. Cells of the exposure sheet go on naming it.
class BRINDLE_HOST_EXPORT DeleteDrawingCmd final : public CO_EngineCommand {
public:
    DeleteDrawingCmd(TUElementMgr* manager, int id, EM_DrawingId drawing);
};

} // namespace EM_Commands

/// Gives a drawing another name, also in the cells of the exposure sheet that show it, and its files. Fails for a name
/// that another drawing of the element has, or that none can have.
class BRINDLE_HOST_EXPORT RenameDrawingCmd final : public CO_EngineCommand {
public:
    RenameDrawingCmd(TUElementMgr* manager, int id, EM_DrawingId drawing, const QString& name);
};

/// Shows another version of a drawing, 1 to 9999. One that isn't there is made as a copy of the present one, which
/// stays beside it.
class BRINDLE_HOST_EXPORT SetDrawingVersionCmd final : public CO_EngineCommand {
public:
    SetDrawingVersionCmd(TUElementMgr* manager, int id, EM_DrawingId drawing, int version);
};

/// A positive, finite number.
class BRINDLE_HOST_EXPORT SetDrawingScaleFactorCmd final : public CO_EngineCommand {
public:
    SetDrawingScaleFactorCmd(TUElementMgr* manager, int id, EM_DrawingId drawing, double factor);
};

/// Copies what a drawing shows, its mark and its scale factor into a drawing that is made for it, at version 1.
class BRINDLE_HOST_EXPORT DuplicateDrawingCmd final : public CO_EngineCommand {
public:
    /// Copies the source's layer into the layer that the target names, in a drawing called `name` of the target's
    /// element. It is made where it isn't there, and so is the layer, with the name that the source's has.
    static CO_Command* Create(TUElementMgr* manager, const CA_CelKey& source, const CA_CelKey& target,
                              const QString& name);
    /// Copies the drawing that a column shows at a frame under the next free number, and exposes the copy there, up to
    /// the next exposure. Null where no drawing is shown. The second argument is always 0, the last one 1.
    static CO_Command* Create(TUSeqTimedValue* column, int, double frame, int count);
    /// Exposes a drawing of its own on each frame from `start` to `end`: the prefix and a number that counts them from
    /// 1, past those that there are. With `emptyOnly` frames that show a drawing keep it. What is shown behind `end`
    /// stays. Null for frames that the column can't have, and where no frame is to be filled. The second argument is
    /// always 0.
    static CO_Command* CreateWithFillDuplicate(TUSeqTimedValue* column, int, int start, int end, const QString& prefix,
                                               bool emptyOnly);

private:
    using CO_EngineCommand::CO_EngineCommand;
};

/// Gives the present version of a drawing's layer a new content: the bytes of its file.
class BRINDLE_HOST_EXPORT SetDrawingContentCmd final : public CO_EngineCommand {
public:
    SetDrawingContentCmd(TUElementMgr* manager, const CA_CelKey& drawing, const QByteArray& content);
};

/// The same with the content of a file anywhere.
class BRINDLE_HOST_EXPORT ImportDrawingCmd {
public:
    /// Null, with one sentence in `error`, where the file can't be read, or is no whole file of the element's format.
    static CO_Command* Create(TUElementMgr* manager, const CA_CelKey& drawing, const QString& path, QString& error);
};
