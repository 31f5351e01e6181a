#pragma once

#include "core/host/export.h"

#include <QString>
#include <QStringList>

#include <vector>

/// A drawing while the process runs: no other drawing of any element has it, now or later. It is not saved; a project
/// names its drawings by their timings.
using EM_DrawingId = unsigned long long;
inline constexpr EM_DrawingId EM_InvalidDrawingId = 0;

/// A layer of the drawings of an element, in files of its own.
using EM_LayerId = long long;
inline constexpr EM_LayerId EM_DefaultLayerId = 0; ///< The one that every element has, without a name.

/// The place of a drawing in the animation.
enum EM_MarkType : int { kMarkNone = 0, kMarkKey = 1, kMarkBreakdown = 2, kMarkInbetween = 3 };

/// A drawing of an element.
class BRINDLE_HOST_EXPORT EM_DrawingInfo {
public:
    virtual ~EM_DrawingInfo() = default;

    virtual EM_DrawingId id() const = 0;
    virtual QString timing() const = 0; ///< Its name, which cells of the exposure sheet show.
};

struct EM_LayerInfo {
    EM_LayerId id;
    QString name;
};

/// The drawings of an element. It goes with the element.
class BRINDLE_HOST_EXPORT EM_ElementInfo {
public:
    virtual ~EM_ElementInfo() = default;

    virtual QString name() const = 0; ///< The element's.

    /// The drawings by their ids, ascending: in the order in which they were made.
    using Map = std::vector<const EM_DrawingInfo*>;
    virtual const Map& getMap() const = 0;
    Map::const_iterator begin() const { return getMap().begin(); }
    Map::const_iterator end() const { return getMap().end(); }
    virtual QStringList getAllDrawingNames() const = 0;         ///< In the order of the map.
    virtual int drawingCount() const = 0;                       ///< Of all names.
    virtual bool hasDrawingName(const QString& name) const = 0; ///< Whether it is among all names.

    virtual std::vector<EM_LayerId> layerIds() const = 0; ///< The default one, and those that have names.
    /// Null where there is none.
    virtual const EM_LayerInfo* findLayer(const QString& name) const = 0;
    virtual const EM_LayerInfo* findLayer(EM_LayerId id) const = 0;

    /// Marks a drawing at once, which no undo takes back. A drawing that there is not is left alone.
    virtual void setDrawingType(EM_DrawingId drawing, EM_MarkType type) = 0;
    /// Says at once that the file of a drawing stands at its path, and is the drawing's from the next save on. No undo
    /// takes it back. One that has a content already keeps that.
    virtual void setDrawingFileExists(EM_DrawingId drawing, bool exists) = 0;

    /// What becomes of a drawing; all false for one that there is not.
    virtual bool isDrawingDeleted(EM_DrawingId drawing) const = 0; ///< Removed, with its element, and its file kept.
    virtual bool isDrawingRenamed(EM_DrawingId drawing) const = 0; ///< Its file gets another name with the next save.
    /// Whether it has a file, or gets one with the next save, for its version in a layer. Looks for the file.
    virtual bool drawingFileExists(EM_DrawingId drawing, EM_LayerId layer) const = 0;
    virtual bool isDrawingUsed(EM_DrawingId drawing) const = 0; ///< Whether a column shows it.
};

/// The names of marks.
class BRINDLE_HOST_EXPORT EM_DrawingTypes {
public:
    struct Info {
        EM_MarkType type;
        const char* name; ///< "KEY", "BREAKDOWN" or "INBETWEEN".
    };
    /// Null for an unmarked drawing, and for a number that is no mark.
    static const Info* getInfo(int type);
};

class BRINDLE_HOST_EXPORT EM_XMLFileIO {
public:
    /// The mark of exactly this name; none for any other text.
    static EM_MarkType convertFromStringToMarkType(const QString& text);
};
