#pragma once

#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/listobj.h"
#include "core/frame/weakhandle.h"

#include <QList>

#include <cstddef>
#include <set>
#include <vector>

class MO_Node;
class SC_SceneCommon;
class TUGroup;
class TUScene;

namespace OMC {

class Node;

/// Nodes of a scene (all of them, at any depth), of a group (its direct sub-nodes), or a list filled by native code.
///
/// The lists of a scene and of a group keep no members and ask the engine at each call; they go invalid with their
/// scene or group. A loop over a scene's list goes over the nodes as they were when it began. A filled list holds weak
/// handles, whose dead ones show as empty; before the first `addNode` it is invalid.
class BRINDLE_CORE_EXPORT NodeList : public FlaggedList<ListObj, IterableObj> {
    Q_OBJECT
    BRINDLE_COPYABLE(NodeList)

public:
    NodeList();
    NodeList(TUScene* scene, bool topOnly); ///< `topOnly`: the direct sub-nodes of the root group.
    explicit NodeList(TUGroup* group);

    std::string __str__() const override;

    std::size_t size() const override;
    /// By path; in a group also relative to it, and by name; in a filled list by name or path. Empty when there is
    /// none.
    Obj get(const QString& name) const override;
    Obj get(int index) const override;               ///< Throws beyond either end.
    void set(int index, const Obj& object) override; ///< Always refused.
    std::vector<Obj> list() const override;
    /// The same as `get`, for a caller that takes the wrapper itself; null where there is none.
    Node* newItem(const QString& name) const;
    Node* newItem(int index) const;
    virtual bool contains(const QString& name) const;
    virtual Obj operator()(const QString& name) const;

    /// The nodes, except groups, that a filter of regular expressions lets through. A text or a list of texts is
    /// searched for in name, type and path; a map names them: {"type": ["^PEG$", "^READ$"], "name": "arm"}.
    virtual std::vector<Obj> find(const QVariant& filter) const;

    /// Makes a node in a group, which is given as a node, a path or an index of this list. An empty name lets the
    /// engine choose one. Empty when the engine doesn't know the type.
    virtual Obj create(const QString& type, const QVariant& group, const QString& name);
    /// Makes a node in the list's group (in a scene's list, the root group). A name with slashes is a path.
    virtual Obj create(const QString& type, const QString& name);

    /// Moves nodes (any form of nodesFromQVariant) into the list's group; a scene's list and a filled one take none.
    /// Gives the new node, or the list of the new nodes; wrappers of the old ones are invalid. The places in the node
    /// view are the engine's to choose: x and y are not used. A single node gives its group a multi-port node if need
    /// be, and stays where it is when the engine refuses the drop; several throw in both cases.
    QVariant move(const QVariant& nodes, int x, int y);

    /// Removes nodes (any form of nodesFromQVariant); with `deleteTimedValues` also the columns that only they were
    /// linked to, with `bridge` what they connected is connected.
    void remove(const QVariant& nodes, bool deleteTimedValues = false, bool bridge = false);

    void addNode(MO_Node* node);

    /// Adds the engine nodes that a value tells: a node, a NodeList, a path or name or index of this list, or a list of
    /// such. What tells none adds none; an index out of range throws.
    void nodesFromQVariant(const QVariant& value, std::set<MO_Node*>& nodes) const;
    void nodesFromQVariant(const QVariant& value, std::vector<MO_Node*>& nodes) const;

protected:
    void validate() const override;
    void beforeIteration() const override;
    void startIteration() override;

private:
    /// Where the nodes come from.
    enum Mode { SceneNodes, GroupNodes, Handles, Unknown };

    void append(MO_Node* node);
    std::vector<MO_Node*> engineNodes() const;
    MO_Node* findNode(const QString& name) const;
    MO_Node* nodeAt(int index) const;
    template <typename Add>
    void forNodesIn(const QVariant& value, const Add& add) const;
    MO_Node* addNodeHelper(SC_SceneCommon* scene, TUGroup* group, const QString& name, const QString& type, int x,
                           int y, int z);
    std::vector<MO_Node*> moveNodesToGroup(TUGroup* group, const std::vector<MO_Node*>& nodes);
    bool removeNodesHelper(const std::set<MO_Node*>& nodes, bool deleteTimedValues, bool bridge);

    Mode m_mode = Unknown;
    WeakHandle<TUScene> m_scene;
    WeakHandle<TUGroup> m_group;
    QList<WeakHandle<MO_Node>> m_nodes; ///< Shared by copies of the list, until one of them adds a node.
};

} // namespace OMC
