#pragma once

#include "core/frame/obj.h"

#include <QString>

#include <map>
#include <memory>

namespace OMC {

/// Makes the data objects of one key, for the types of nodes that it serves. A host registers one for each key.
class BRINDLE_CORE_EXPORT NodeDataFactory {
public:
    using Registry = std::map<QString, std::unique_ptr<NodeDataFactory>>;

    virtual ~NodeDataFactory();
    virtual Obj create() const = 0; ///< A new data object.
    virtual bool supports(const QString& nodeType) const = 0;

    /// Enters a factory under a name and takes it over. Where the name has one already, that one stays, the new one is
    /// destroyed, and the result is false.
    static bool registerNodeData(const QString& name, NodeDataFactory* factory);
    /// The factories of the process by their names. No lock guards them: register while one thread runs.
    static Registry& registeredNodeData();
};

} // namespace OMC
