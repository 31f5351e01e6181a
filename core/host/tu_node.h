#pragma once

#include "core/host/co_command.h"
#include "core/host/export.h"

#include <QColor>
#include <QString>

#include <memory>
#include <set>

class MO_Module;
class MO_Node;
class MO_Port;
class TUGroup;
class TUScene;
class TUTimedValue;

/// The undoable changes of nodes and their links. Each fails, and changes nothing, when the node is in no scene.
namespace tu_node {

class BRINDLE_HOST_EXPORT SetXYCmd final : public CO_EngineCommand {
public:
    SetXYCmd(MO_Node* node, int x, int y);
};

class BRINDLE_HOST_EXPORT SetXYZCmd final : public CO_EngineCommand {
public:
    SetXYZCmd(MO_Node* node, int x, int y, int z);
};

/// Fails when another node of the group has the name, for the root group, and for a name that is not valid.
class BRINDLE_HOST_EXPORT SetInstanceNameCmd final : public CO_EngineCommand {
public:
    SetInstanceNameCmd(MO_Node* node, const QString& name);
};

class BRINDLE_HOST_EXPORT EnabledNodeCmd final : public CO_EngineCommand {
public:
    EnabledNodeCmd(MO_Node* node, bool enabled);
};

/// Sets the node's own colour in the node view; an invalid one takes it away.
class BRINDLE_HOST_EXPORT SetNodeColorCmd final : public CO_EngineCommand {
public:
    SetNodeColorCmd(MO_Node* node, const QColor& colour);
};

/// Fails for a node whose pictures can't be kept.
class BRINDLE_HOST_EXPORT CacheNodeCmd final : public CO_EngineCommand {
public:
    CacheNodeCmd(MO_Node* node, bool cached);
};

/// Fails for a node that can't be locked.
class BRINDLE_HOST_EXPORT LockNodeCmd final : public CO_EngineCommand {
public:
    LockNodeCmd(MO_Node* node, bool locked);
};

class BRINDLE_HOST_EXPORT ShowHideTimelineThumb final : public CO_EngineCommand {
public:
    ShowHideTimelineThumb(MO_Node* node, bool shown);
};

/// Adds a new node, which it takes, behind the group's sub-nodes. A name that another sub-node has gets a number behind
/// it ("Arm_1").
class BRINDLE_HOST_EXPORT AddSubNodeCmd final : public CO_EngineCommand {
public:
    AddSubNodeCmd(TUGroup* group, MO_Node* node);
};

/// Links an out-port to an in-port by their places. Fails when the in-port has a source, the types differ, a place is
/// empty, the nodes are not in one group, or the link would close a circle.
class BRINDLE_HOST_EXPORT LinkCmd final : public CO_EngineCommand {
public:
    LinkCmd(MO_Node* inNode, unsigned int inIndex, MO_Node* outNode, unsigned int outIndex, MO_Port* = nullptr);
};

/// Cuts the in-port's link. Without a source it does nothing; without such a port it fails.
class BRINDLE_HOST_EXPORT UnlinkInPortFromOutsideCmd final : public CO_EngineCommand {
public:
    UnlinkInPortFromOutsideCmd(MO_Node* node, unsigned int index);
};

/// Cuts all links of the out-port.
class BRINDLE_HOST_EXPORT UnlinkOutPortFromOutsideCmd final : public CO_EngineCommand {
public:
    UnlinkOutPortFromOutsideCmd(MO_Node* node, unsigned int index);
};

/// Puts a new port at a place of a node that takes ports. On a group, and on the multi-port nodes inside it, the facing
/// port comes and goes along.
class BRINDLE_HOST_EXPORT AddInPortCmd final : public CO_EngineCommand {
public:
    AddInPortCmd(MO_Node* node, unsigned int index, std::unique_ptr<MO_Port> port);
};

class BRINDLE_HOST_EXPORT AddOutPortCmd final : public CO_EngineCommand {
public:
    AddOutPortCmd(MO_Node* node, unsigned int index, std::unique_ptr<MO_Port> port);
};

/// Takes an unlinked port away. Fails while it is linked.
class BRINDLE_HOST_EXPORT DeleteInPortCmd final : public CO_EngineCommand {
public:
    DeleteInPortCmd(MO_Node* node, unsigned int index);
};

class BRINDLE_HOST_EXPORT DeleteOutPortCmd final : public CO_EngineCommand {
public:
    DeleteOutPortCmd(MO_Node* node, unsigned int index);
};

} // namespace tu_node

namespace tu_module {

/// Fails for a version that the module doesn't have, and for null.
class BRINDLE_HOST_EXPORT SetVersionCmd final : public CO_EngineCommand {
public:
    SetVersionCmd(MO_Module* module, int version);
};

} // namespace tu_module

/// Removing nodes with all that hangs on them.
namespace SU_CleanUpCommands {

/// The data that goes along with the nodes.
struct DeleteStrategy {
    bool deleteTimedValues = false; ///< Also the columns that only these nodes were linked to.
};

/// Removes the nodes, their links and, for a group, all that is in it. One undo entry, labelled "Delete Nodes". False
/// when nothing was removed: a node of another scene, the root group. The last flag also bridges the gap: what fed the
/// first in-port of a removed node then feeds what its first out-port fed, where the types agree.
BRINDLE_HOST_EXPORT bool removeNodes(TUScene* scene, const std::set<MO_Node*>& nodes, const DeleteStrategy& strategy,
                                     bool bridge);
/// The same, with the first field of the strategy as a flag.
BRINDLE_HOST_EXPORT bool removeNodes(TUScene* scene, const std::set<MO_Node*>& nodes, bool deleteTimedValues);

/// Removes columns, with their links. One undo entry, labelled "Delete Columns". False when nothing was removed: a
/// column of another scene, or one that belongs to another column.
BRINDLE_HOST_EXPORT bool removeColumns(TUScene* scene, const std::set<TUTimedValue*>& columns);

} // namespace SU_CleanUpCommands
