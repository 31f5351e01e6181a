#pragma once

#include "core/frame/found.h"
#include "core/frame/undo.h"
#include "core/host/mo_node.h"
#include "core/host/sc_scene.h"

namespace OMC::active_node {

/// What setting and unsetting the scene's default node of a class is called.
struct Texts {
    QString wrongType; ///< With the path and the type of the node to fill in.
    QString setLabel;  ///< With the path to fill in.
    QString unsetLabel;
    QString setFailure;
    QString unsetFailure;
};

/// Makes a node the default one of its scene, or none in its place. What is so already is left alone. `Command` is made
/// of the scene and the node.
template <typename Module, typename Command>
void set(MO_Node& node, bool active, Module* (*presentOf)(const SC_SceneCommon&), const Texts& texts)
{
    SC_SceneCommon* scene = node.sceneCommon();
    CO_CommandManager& manager = undo::manager(scene, unexpected::ErrorHasOccurred);
    auto& module = foundAs<Module>(&node, [&] { return texts.wrongType.arg(node.qualifiedName(), node.typeName()); });
    const bool isPresent = presentOf(*scene) == &module;
    if (active && !isPresent)
        undo::run(manager, new Command(scene, &module), texts.setLabel.arg(node.qualifiedName()), texts.setFailure);
    else if (!active && isPresent)
        undo::run(manager, new Command(scene, nullptr), texts.unsetLabel, texts.unsetFailure);
}

} // namespace OMC::active_node
