#pragma once

#include "core/host/dd_dropmode.h"
#include "engine/elements/elementmanager.h"

#include <QSet>
#include <QString>

#include <map>
#include <memory>
#include <unordered_map>
#include <vector>

namespace brindle::engine {

/// A new drawing like another one, under a name, with all its files; layers by another element's ids where these are
/// given. Throws `FolderFailure` where a file can't be read.
std::unique_ptr<Drawing> copyDrawing(const Drawing& drawing, const QString& name, ContentStore& contents,
                                     const std::unordered_map<EM_LayerId, EM_LayerId>& layers = {});

/// Gives the elements that copied nodes show their place in another project: as new ones, or as some that it has.
class ElementTransfer {
public:
    struct Terms {
        DD_DropMode::DrawingMode mode = DD_DropMode::kAlwaysCreate;
        bool allDrawings = true; ///< Not only those that are shown.
        /// The elements of the target that are the very ones which were copied, by their ids in the source.
        std::unordered_map<int, int> origins;
    };

    ElementTransfer(const ElementManager& from, ElementManager& to, Terms terms);

    /// The id of the target's element, which is made if need be; -1 for none. `shown` are the drawings that the copied
    /// frames show. Throws `FolderFailure`.
    int idFor(int source, const QSet<QString>& shown);
    /// Whether the target's element has the drawing, or has it once what was made is there.
    bool hasDrawing(int id, const QString& drawing) const;
    QString nameOf(int id) const; ///< Of the target's element.

    const std::map<int, int>& ids() const { return m_ids; } ///< The targets' ids by those of the source.
    std::vector<std::unique_ptr<Element>> takeMade() { return std::move(m_made); }

private:
    int present(const Element& source) const;
    int make(const Element& source, const QSet<QString>& shown);
    const Element* find(int id) const;
    QString freeName(const QString& name) const;

    const ElementManager& m_from;
    ElementManager& m_to;
    Terms m_terms;
    std::map<int, int> m_ids;
    std::vector<std::unique_ptr<Element>> m_made;
    QSet<QString> m_names; ///< Of those that were made.
};

} // namespace brindle::engine
