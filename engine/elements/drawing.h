#pragma once

#include "core/host/em_elementinfo.h"

#include <QExplicitlySharedDataPointer>
#include <QString>

#include <memory>
#include <vector>

namespace brindle::engine {

class DrawingContent;
class LiveDrawing;
using ContentPointer = std::shared_ptr<const DrawingContent>;

/// The file of a version of a drawing in a layer.
struct DrawingFile {
    EM_LayerId layer = EM_DefaultLayerId;
    int version = 1;
    ContentPointer content; ///< Not null.
};

/// A drawing: a name, what an animator notes about it, and its files. It belongs to the drawing list of its element or,
/// while it is in none, to a command.
///
/// A vector drawing that scripts or sessions have asked for is kept as a live one. It then tells what the file's
/// content is, also in the middle of a session; a content that is set goes to it.
class Drawing final : public EM_DrawingInfo {
public:
    explicit Drawing(const QString& name);
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;
    ~Drawing() override;

    EM_DrawingId id() const override { return m_id; }
    QString timing() const override { return m_name; }
    const QString& name() const { return m_name; }
    /// The name of its files ahead of layer, version and ending; that of no other drawing of the element, also where
    /// capital letters are not told apart. Given by the list that it is in.
    const QString& stem() const { return m_stem; }

    ContentPointer content(EM_LayerId layer, int version) const; ///< Null where there is no file.
    ContentPointer content(EM_LayerId layer) const { return content(layer, version); }
    /// Null takes the file away. Gives the content that was there. Throws `FolderFailure`, and changes nothing, where
    /// a live drawing can't read it.
    ContentPointer setContent(EM_LayerId layer, int version, ContentPointer content);
    /// Whether `setContent` takes it; the log says why not.
    bool takesContent(EM_LayerId layer, int version, const ContentPointer& content) const;
    /// The content that stands on disk after a save in place of the present one, with the same bytes.
    void setStanding(EM_LayerId layer, int version, ContentPointer content);
    /// A save has happened: what live drawings show is what is on disk.
    void saved();
    const std::vector<DrawingFile>& files() const; ///< By layer and version.
    bool hasVersion(int version) const;            ///< Whether it has a file of that version.

    // --- Live drawings ------------------------------------------------------------------------------------------
    LiveDrawing* live(EM_LayerId layer, int version) const; ///< Null where nobody has asked for it yet.
    void setLive(EM_LayerId layer, int version, const QExplicitlySharedDataPointer<LiveDrawing>& live);
    void setGone(bool isGone); ///< It left its element or came back, or its element did.
    bool isUnderEdit() const;  ///< Whether a session is open on one of its live drawings.
    bool isUnderEdit(EM_LayerId layer, int version) const;

    int version = 1;
    EM_MarkType type = kMarkNone;
    double scaleFactor = 1.0;

private:
    friend class DrawingList;

    struct Live {
        EM_LayerId layer;
        int version;
        QExplicitlySharedDataPointer<LiveDrawing> drawing;
    };

    void store(EM_LayerId layer, int version, ContentPointer content) const;
    void settle() const; ///< Takes over what live drawings show.

    EM_DrawingId m_id;
    QString m_name;
    QString m_stem;
    mutable std::vector<DrawingFile> m_files;
    std::vector<Live> m_live;
};

} // namespace brindle::engine
