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

/// The nodes of a scene (at any depth) or of a group (the direct ones). list["Top/Arm"] finds a node by its path, in
/// constant time; a loop goes over the nodes that there were when it began.
///
/// A list may also be filled by native code.
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
    virtual bool contains(const QString& name) const; ///< Whether a node of that path or name is there.
    bool holds(const BaseObject& item) const;         ///< Whether an object shows a node of the list.
    virtual Obj operator()(const QString& name) const;

    /// The nodes, except groups, that a filter lets through: a regular expression or a list of them, searched for in
    /// name, type and path, a map that names them ({"type": ["^PEG$", "^READ$"], "name": "arm"}), or a function that
    /// says so of a node.
    virtual std::vector<Obj> find(const QVariant& filter) const;

    /// Makes a node in this list's group (in a scene's list, the root group), where a name with slashes is a path, or
    /// in the group that is given as a node, a path or an index of this list. An empty name lets the engine choose one.
    /// Null for a type that isn't known.
    virtual Obj create(const QString& type, const QVariant& group, const QString& name);
    virtual Obj create(const QString& type, const QString& name);

    /// Moves nodes into the group of the list; a scene's list takes none. Gives the moved node, or a list of them;
    /// other objects of theirs are invalid. The places in the node view are kept: x and y are not used. A single node
    /// gives its group a multi-port node if need be, and stays where it is when the engine refuses the drop; several
    /// fail in both cases.
    QVariant move(const QVariant& nodes, int x, int y);

    /// Removes nodes; `deleteColumns` also removes the columns that only they used, `bridge` connects what they
    /// connected.
    void remove(const QVariant& nodes, bool deleteColumns = false, bool bridge = false);

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
    /// The source of the nodes.
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
