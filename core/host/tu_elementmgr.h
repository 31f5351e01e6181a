#pragma once

#include "core/host/em_elementinfo.h"
#include "core/host/export.h"
#include "core/host/tu_element.h"
#include "core/host/tu_pixmapformat.h"
#include "core/host/ut_path.h"

#include <QString>
#include <QStringList>

#include <set>

/// Sentences for a person, one a line.
class BRINDLE_HOST_EXPORT MSG_Text {
public:
    void addLine(const QString& line) { m_lines.append(line); }
    QString getText() const { return m_lines.join(u'\n'); }

private:
    QStringList m_lines;
};

/// The elements of a project, by their ids, ascending.
class BRINDLE_HOST_EXPORT TUDbElementMgr {
public:
    virtual ~TUDbElementMgr() = default;

    using Iterator = const TUElement* const*;
    virtual Iterator elementBegin() const = 0;
    virtual Iterator elementEnd() const = 0;
    int nbElements() const { return static_cast<int>(elementEnd() - elementBegin()); } ///< Those that are deleted too.

    /// One whose id is -1 where there is none.
    virtual const TUElement& elementById(int id) const = 0;
    /// The element of exactly this name: one that is deleted only where no other has it. The second argument is always
    /// 0.
    virtual const TUElement& elementByName(const QString& name, int) const = 0;

    /// Writes what the database keeps back. A database that is written with its project has nothing to do.
    virtual void flush() {}
};

/// The elements of a project and their drawings. EM_Commands and its like change them.
///
/// A drawing is told by the ids of its element and its own; where there is no such drawing, texts are null and numbers
/// those of a new drawing.
class BRINDLE_HOST_EXPORT TUElementMgr : public TUDbElementMgr {
public:
    /// Makes an element that is in no list yet: EM_Commands::FakeAddElementsCmd adds it, and without that it goes. The
    /// one that is given has the id -1 where it can't be made: for a name that no element can have (empty, longer than
    /// 255 characters, with control characters) or that one has which isn't deleted, a scan type, pixmap format or
    /// vector type that there is not, and a field chart that is no positive, finite number.
    virtual const TUElement& createElement(const QString& name, int scanType, double fieldChart, int pixmapFormat,
                                           int vectorType, bool useTemporaryFolder) = 0;
    /// What a new element is like where nothing else is said: for vector drawings, in colour, as a PNG, on a chart of
    /// 12 fields.
    virtual void defaults(int& scanType, double& fieldChart, int& pixmapFormat, int& vectorType) const
    {
        scanType = 0;
        fieldChart = 12;
        pixmapFormat = TUPixmapFormatList(TUPixmapFormatList::kPaint).format(QStringLiteral("PNG"));
        vectorType = TUElement::kPnt;
    }
    /// Whether the files of new elements stand in a temporary folder until the project is saved.
    virtual bool useTemporaryFolder() const { return false; }
    virtual bool isInTempDirectory(int id) const = 0;

    /// The lock of an element's folder, which tells other processes who works on its files. False where another one has
    /// it, as the log says, or the folder can't be written; true also for one that is held already.
    virtual bool getLock(const TUElement& element) = 0;
    virtual bool hasLock(int id) const = 0; ///< Whether this process holds it.
    virtual bool releaseLock(const TUElement& element) = 0;

    virtual bool isElementDeleted(int id) const = 0;
    /// Whether a column of the project shows its drawings.
    virtual bool elementIsLinkedToTimedValue(int id) const = 0;
    /// Whether all of these elements may be removed; `deletable` are those that may, and `reasons` has a line for each
    /// of the others.
    virtual bool canDeleteElements(const std::set<int>& ids, std::set<int>& deletable, MSG_Text& reasons) const = 0;
    /// Asks for the present state to be written at the next occasion, which is a save of the project. The argument is
    /// always true.
    virtual bool saveChangesToDataBase(bool) { return true; }

    virtual EM_ElementInfo* getElementDrawingInfoById(int id) const = 0; ///< Null where there is no such element.
    /// The absolute path of its folder, which is there once it has a file. The second argument is always 0.
    virtual VFS_Path elementFolder(int id, int) const = 0;
    virtual int getDrawingOpacity(int id) const = 0; ///< In percent, 0 to 100; 100 for a new element.
    /// The ending of new drawing files, without its dot: that of the vector type, else of the pixmap format.
    virtual QString fileExt(int id) const = 0;

    /// The drawing of exactly this name; EM_InvalidDrawingId where there is none. The last argument tells whether the
    /// name is one that a new drawing is to get.
    virtual EM_DrawingId getDrawingId(int id, const QString& timing, bool isNew) const = 0;
    virtual QString getDrawingTiming(int id, EM_DrawingId drawing) const = 0; ///< Its name.
    virtual int getDrawingType(int id, EM_DrawingId drawing) const = 0;       ///< EM_MarkType.
    virtual int getDrawingVersion(int id, EM_DrawingId drawing) const = 0;    ///< From 1.
    virtual double getDrawingScaleFactor(int id, EM_DrawingId drawing) const = 0;
    virtual QString nextUnusedNumericTiming(int id) const = 0; ///< The number behind the highest one that is a name.

    /// The path of a drawing's file up to its version and ending: "/p/elements/Arm/1". The last two arguments, always 1
    /// and 0, ask for the whole path of the present place.
    virtual VFS_Path drawingFilenamePart(int id, EM_DrawingId drawing, EM_LayerId layer, bool, int) const = 0;
};

/// The names of drawing files.
namespace celcache_util {

/// The file of a version of a drawing: "/p/elements/Arm/1.png", and "/p/elements/Arm/1@2.png" for its version 2.
BRINDLE_HOST_EXPORT VFS_Path buildDrawingName(const VFS_Path& part, const QString& extension, int version);

} // namespace celcache_util
