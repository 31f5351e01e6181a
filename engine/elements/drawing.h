#pragma once

#include "core/host/em_elementinfo.h"

#include <QString>

#include <memory>
#include <vector>

namespace brindle::engine {

class DrawingContent;
using ContentPointer = std::shared_ptr<const DrawingContent>;

/// The file of a version of a drawing in a layer.
struct DrawingFile {
    EM_LayerId layer = EM_DefaultLayerId;
    int version = 1;
    ContentPointer content; ///< Not null.
};

/// A drawing: a name, what an animator notes about it, and its files. It belongs to the drawing list of its element or,
/// while it is in none, to a command.
class Drawing final : public EM_DrawingInfo {
public:
    explicit Drawing(const QString& name);

    EM_DrawingId id() const override { return m_id; }
    QString timing() const override { return m_name; }
    const QString& name() const { return m_name; }
    /// The name of its files ahead of layer, version and ending; that of no other drawing of the element, also where
    /// capital letters are not told apart. Given by the list that it is in.
    const QString& stem() const { return m_stem; }

    ContentPointer content(EM_LayerId layer, int version) const; ///< Null where there is no file.
    ContentPointer content(EM_LayerId layer) const { return content(layer, version); }
    /// Null takes the file away. Gives the content that was there.
    ContentPointer setContent(EM_LayerId layer, int version, ContentPointer content);
    const std::vector<DrawingFile>& files() const { return m_files; } ///< By layer and version.
    bool hasVersion(int version) const;                               ///< Whether it has a file of that version.

    int version = 1;
    EM_MarkType type = kMarkNone;
    double scaleFactor = 1.0;

private:
    friend class DrawingList;

    EM_DrawingId m_id;
    QString m_name;
    QString m_stem;
    std::vector<DrawingFile> m_files;
};

} // namespace brindle::engine
