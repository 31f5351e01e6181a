#pragma once

#include "core/host/co_command.h"
#include "core/host/dd_dropmode.h"
#include "engine/elements/elementmanager.h"

#include <QHash>
#include <QSet>
#include <QStringList>

#include <map>
#include <memory>
#include <unordered_map>

namespace brindle::engine {

/// Brings drawings of copied elements into elements that are there, as a drawing mode says. Several nodes that show the
/// same two elements share what is made.
class DrawingPaste {
public:
    DrawingPaste(ElementManager& elements, DD_DropMode::DrawingMode mode) : m_elements(elements), m_mode(mode) {}

    /// Adds the commands that bring drawings, by their names, of one element into another one. Gives the names under
    /// which they are exposed there; an empty one for a drawing that is not to be. Throws `FolderFailure`.
    QHash<QString, QString> paste(const Element& from, Element& to, const QStringList& drawings,
                                  CO_AndCommand& commands);

private:
    using Layers = std::unordered_map<EM_LayerId, EM_LayerId>;

    /// What is known of a pair of elements.
    struct Pair {
        Layers layers; ///< The target's ids by those of the source.
        bool hasLayers = false;
        QHash<QString, QString> names;
    };

    QString bring(const Drawing& drawing, const Element& from, Element& to, Pair& pair, CO_AndCommand& commands);
    const Layers& layersOf(const Element& from, Element& to, Pair& pair, CO_AndCommand& commands);
    QString freeName(const QString& name, const Element& to) const;
    bool isTaken(const QString& name, const Element& to) const;
    void add(const Drawing& drawing, const QString& name, const Element& from, Element& to, Pair& pair,
             CO_AndCommand& commands);

    ElementManager& m_elements;
    DD_DropMode::DrawingMode m_mode;
    std::map<std::pair<const Element*, const Element*>, Pair> m_pairs;
    std::unordered_map<const Element*, QSet<QString>> m_added; ///< The names of drawings that are made.
    std::unordered_map<const Element*, EM_LayerId> m_lastLayers;
};

} // namespace brindle::engine
