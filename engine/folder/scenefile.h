#pragma once

#include <QByteArray>
#include <QSet>
#include <QString>

class TUScene;

namespace brindle::engine {

class JsonFile;
class ProjectMaker;

/// The form of a scene in its file: JSON with these fields.
///
///     format, version    "brindle-scene", 3
///     name               of the scene
///     frames, start, stop, frameRate
///     camera, display    the paths of the default ones: "Top/Camera"; left out where none is set
///     markers            name, frame, length, colour "#AARRGGBB", and note, left out when empty; the list likewise
///     metadata           as MetadataList::write has them; left out where there are none
///     nodes              the root group and all below it, depth first, each group ahead of its content
///     columns            in the order of the exposure sheet
///
/// A node:
///
///     name, type
///     depth              0 is the root group; a node is in the last one before it that is a level up
///     place              [x, y, z] in the node view
///     enabled            false; left out when true
///     colour             the node's own one in the node view: "#AARRGGBB"; left out where it has none
///     cached, locked, thumbnails
///                        true; left out when false
///     inPorts, outPorts  of a node that takes ports: [id, "IMAGE"], with "MATTE" behind it for a matte port
///     added              attributes that were added to the node: [{"path": "meta.take", "type": "INT"}, ...], with
///                        "title", the display name, "linkable", true, and "flags", where they aren't 13
///     values             local values of attributes that a new node doesn't have: {"position.x": 3.5}
///     columns            names of linked columns: {"position.x": "ATV-0001"}
///     links              to nodes of the same group, by out-port and in the order of linking:
///                        [id of the out-port, name of the node, id of the in-port]
///
/// A column:
///
///     name, type         "BEZIER", ...: the word of its kind (ColumnKind::word)
///     anonymous          true; left out when false
///     ...                the fields of its kind, as the class of the kind describes them
///     order              places of the attributes that it drives, as the nodes list them, in the order of
///                        linking; left out when it is the same
///
/// Nodes are named by their group, links by the nodes' names, so that a change in one place of the scene is a change in
/// one place of the file. Ids of the session are not kept.
///
/// Version 1 has no camera, display and markers; such a scene gets its first display as the default one. Version 2 has
/// no metadata.

inline constexpr char sceneFormat[] = "brindle-scene";
inline constexpr int sceneVersion = 3;

QByteArray sceneText(const TUScene& scene);

/// Makes the scene. `names` are those of the scenes read before. Throws `FolderFailure`.
void readScene(const JsonFile& file, QSet<QString>& names, ProjectMaker& maker);

} // namespace brindle::engine
