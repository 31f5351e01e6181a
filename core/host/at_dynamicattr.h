#pragma once

#include "core/host/at_attr.h"
#include "core/host/co_command.h"

/// Attributes that are added to a node, beside those that its type has. They are told by their flag
/// (AT_AttrMeta::kDynamic), saved with the node and copied with it. A node has them at its top level, and in groups
/// (AT_DynGroupAttr) that were added to it.

/// Makes attributes of one type. It belongs to the engine, and lives as long as the process.
class AT_AttrFactory;

/// The types of attributes that can be added to a node, by name.
BRINDLE_HOST_EXPORT const QMap<QString, const AT_AttrFactory*>& AT_AttrFactorySingleton();

namespace tu_node {

/// Adds an attribute behind those of the node's top level, with the keyword, the display name and the flags of `meta`.
/// `linkable`: a column can drive it, where its type allows that. Fails for an unknown type, an empty keyword, one with
/// a point in it or one that the node has already, and for a node in no scene.
class BRINDLE_HOST_EXPORT CreateAttrCmd final : public CO_EngineCommand {
public:
    CreateAttrCmd(MO_Node* node, const AT_AttrMeta& meta, const QString& type, bool linkable);
};

/// Takes an attribute that was added to the node's top level away, with all that is in it; its links to columns are cut
/// before. Fails for another attribute.
class BRINDLE_HOST_EXPORT RemoveAttrCmd final : public CO_EngineCommand {
public:
    RemoveAttrCmd(MO_Node* node, AT_Attr* attr);
};

} // namespace tu_node

namespace Attr::DynGroup {

/// The same in a group; each fails for null.
class BRINDLE_HOST_EXPORT CreateAttrCmd final : public CO_EngineCommand {
public:
    CreateAttrCmd(AT_DynGroupAttr* group, const AT_AttrMeta& meta, const QString& type, bool linkable);
};

class BRINDLE_HOST_EXPORT RemoveAttrCmd final : public CO_EngineCommand {
public:
    RemoveAttrCmd(AT_DynGroupAttr* group, AT_Attr* attr);
};

} // namespace Attr::DynGroup
