#pragma once

#include "engine/clipboard/addcontent.h"
#include "engine/clipboard/elementtransfer.h"
#include "engine/curves/column.h"
#include "engine/exposure/exposures.h"
#include "engine/graph/nodecopy.h"

#include <QHash>
#include <QSet>

#include <memory>
#include <unordered_map>
#include <vector>

namespace brindle::engine {

/// Makes nodes and columns of one scene anew for another one, which may belong to another project, with the elements
/// that they show. What it makes is in no scene; `take` gives the command that adds it. The source stays as it is.
///
/// Copying goes from the scene to the one of a drag object, pasting from that one to a scene.
class Transfer {
public:
    struct Terms {
        FrameSpan frames;             ///< Those that go along; none stands for all, with what lies beyond the scene.
        int at = 1;                   ///< The frame that the first one becomes.
        bool keepsColumnNames = true; ///< Also of columns that the engine named.
        DD_DropMode::ElementMode elementMode = DD_DropMode::kElementAsElement;
        ElementTransfer::Terms elements{};
    };

    Transfer(Scene& from, Scene& to, Terms terms);

    /// Adds nodes, none of which lies in another one, with all that is in them, the links among them and what drives
    /// their attributes. A multi-port node is a part of its group and doesn't go without it.
    void addNodes(const std::vector<Node*>& tops);
    /// Adds a column that drives attributes of the target scene, and gives the copy.
    Column& addColumn(const Column& source);

    /// What was added, once. Throws `FolderFailure` where the file of a drawing can't be read.
    std::unique_ptr<AddContent> take(Group* group);

    const NodeCopies& copies() const { return m_copies; } ///< By the nodes of the source.
    const ElementTransfer& elements() const { return m_elements; }

private:
    struct Drive {
        Socket* socket;
        Socket::Order order;
    };
    struct Copied {
        const Column* source;
        std::unique_ptr<Column> column;
        std::vector<Drive> drives; ///< Of the copied nodes' attributes.
    };

    void noteDrives(const Node& node);
    void linkTops(const Node& top) const;
    Copied& copied(const Column& source);
    void addSources();
    QString freeName(const QString& name, bool anonymous);
    void finish(Copied& one);
    std::unordered_map<int, QSet<QString>> shownDrawings() const;
    void setElements();
    void nameElement(Node& copy, const std::unordered_map<int, QSet<QString>>& shown);
    void showThroughTiming(Node& node);
    void showAsElement(Node& node);
    template <typename Kind>
    Kind& newColumn(const Column& like, const Exposures& exposures);

    Scene& m_from;
    Scene& m_to;
    Terms m_terms;
    ElementTransfer m_elements;
    NodeCopies m_copies;
    std::vector<std::pair<const Node*, Node*>> m_pairs;   ///< The same in their order.
    std::unordered_map<const Node*, int> m_namedElements; ///< Of copies that name an element themselves.
    std::vector<std::unique_ptr<MO_Node>> m_nodes;
    std::vector<Copied> m_columns;
    std::unordered_map<const Column*, std::size_t> m_places; ///< In `m_columns`, by the source.
    std::vector<std::unique_ptr<Column>> m_made;             ///< Columns that no column of the source stands for.
    QHash<QString, QString> m_names;                         ///< New names by the old ones, where they differ.
    QSet<QString> m_taken;                                   ///< The new names.
};

} // namespace brindle::engine
