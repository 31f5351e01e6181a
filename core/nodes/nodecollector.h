#pragma once

#include "core/host/mo_node.h"

#include <QList>
#include <QRegularExpression>
#include <QVariant>

#include <vector>

namespace OMC {

/// Keeps the modules that it visits and that a filter lets through. A group that accepts it leads it to the modules
/// below, depth first, and is no module itself.
///
/// The filter is a map from "name", "type" and "path" (in any case of letters) to patterns, or patterns that the name,
/// the type or the path may match. Patterns are a regular expression, a text that is one, or a list of such; a pattern
/// that is not valid matches nothing. Within one key one pattern has to match, between keys all. Without any pattern
/// every module passes.
class NodeCollector : public MO_ModuleVisitor {
public:
    explicit NodeCollector(const QVariant& filter);

    using MO_ModuleVisitor::visit;
    void visit(MO_Module& module) override;

    const std::vector<MO_Node*>& modules() const { return m_modules; }

private:
    using Patterns = QList<QRegularExpression>;

    bool matches(const MO_Module& module) const;

    Patterns m_name;
    Patterns m_type;
    Patterns m_path;
    Patterns m_any;
    std::vector<MO_Node*> m_modules;
};

} // namespace OMC
