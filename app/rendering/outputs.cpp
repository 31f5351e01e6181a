#include "app/rendering/outputs.h"

#include "app/rendering/framelist.h"
#include "core/host/at_attr.h"
#include "core/host/celio_manager.h"
#include "core/host/mo_node.h"
#include "core/host/sc_scene.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace app {

namespace {

const CELIO_Handler* writerOf(const QString& path)
{
    const CELIO_Handler* handler = CELIO_Manager::getInstance()->findHandler(QFileInfo(path).suffix());
    return handler && handler->canWrite() ? handler : nullptr;
}

/// The ending for the format that a WRITE node names.
QString endingOf(MO_Node& node)
{
    const auto* format = dynamic_cast<AT_EnumAttrBase*>(node.findAttributeByKeyword(QStringLiteral("format")));
    const QString word = format ? format->options().value(format->localValue()) : QStringLiteral("PNG");
    return word == u"JPEG" ? QStringLiteral("jpg") : word.toLower();
}

/// The pattern of the path that a WRITE node names; a relative path lies in the project's folder. A path without a
/// place for the frame's number gets one at its end, ahead of the ending; a path without an ending gets that of the
/// format.
QString patternOf(MO_Node& node, const SC_Project& project)
{
    const auto* path = dynamic_cast<AT_StringAttr*>(node.findAttributeByKeyword(QStringLiteral("path")));
    QString pattern = path ? path->localValue() : QString();
    if (pattern.isEmpty())
        return {};
    const QString ending = writerOf(pattern) ? u'.' + QFileInfo(pattern).suffix() : QString();
    if (!isFramePattern(pattern))
        pattern = pattern.chopped(ending.size()).replace(u'%', QStringLiteral("%%")) + QStringLiteral("%04d") + ending;
    if (ending.isEmpty())
        pattern += u'.' + endingOf(node);
    return QDir(project.path()).absoluteFilePath(pattern);
}

std::vector<Output> writeNodesOf(const SC_Project& project, TUScene& scene)
{
    std::vector<MO_Node*> nodes;
    scene.getRootGroup()->getRecursiveSubNodeList(nodes);
    std::vector<Output> outputs;
    for (MO_Node* node : nodes)
        if (node->typeName() == u"WRITE" && node->isEnabled())
            if (const QString pattern = patternOf(*node, project); !pattern.isEmpty())
                outputs.push_back({node, pattern});
    return outputs;
}

/// Why outputs can't be drawn; an empty text where they can.
QString failureOf(const std::vector<Output>& outputs)
{
    for (auto output = outputs.begin(); output != outputs.end(); ++output) {
        if (!output->node->hasImageOutput())
            return QString("The node \"%1\" shows no picture.").arg(output->node->qualifiedName());
        if (output->pattern.isEmpty())
            continue;
        if (!writerOf(output->pattern))
            return QString("\"%1\" is in no format that pictures can be written in.").arg(output->pattern);
        const auto same = std::find_if(outputs.begin(), output,
                                       [&](const Output& other) { return other.pattern == output->pattern; });
        if (same != output)
            return QString("The nodes \"%1\" and \"%2\" write the same files, \"%3\".")
                .arg(same->node->qualifiedName(), output->node->qualifiedName(), output->pattern);
    }
    return {};
}

} // namespace

std::vector<Output> outputsOf(const OutputRequest& request, const SC_Project& project, TUScene& scene, QString& error)
{
    const SC_SceneCommon& common = *scene.sceneCommon();
    const bool isToldWhere = !request.out.isEmpty() || request.isForMovie;
    const QString pattern = isToldWhere ? request.out : QString(defaultPattern);
    std::vector<Output> outputs;
    if (request.node.isEmpty() && !isToldWhere)
        outputs = writeNodesOf(project, scene);
    if (!request.node.isEmpty()) {
        if (MO_Node* node = node_util::getNodeFromQualifiedName_optimized(&common, request.node))
            outputs.push_back({node, pattern});
        else
            error = QString("The scene \"%1\" has no node \"%2\".").arg(scene.name(), request.node);
    } else if (outputs.empty()) {
        if (auto* display = static_cast<MO_Node*>(common.defaultDisplay()))
            outputs.push_back({display, pattern});
        else
            error =
                QString("The scene \"%1\" has no display that shows it; --node names what to draw.").arg(scene.name());
    }
    if (!outputs.empty())
        error = failureOf(outputs);
    return error.isEmpty() ? outputs : std::vector<Output>();
}

} // namespace app
