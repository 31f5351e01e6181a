#pragma once

#include "core/frame/export.h"

#include <QString>

#include <memory>

namespace OMC {

/// The names of the handles of a type of node. A type gets its own by a factory that is registered for it.
class BRINDLE_CORE_EXPORT NodeSubselectionNameFactory {
public:
    virtual ~NodeSubselectionNameFactory() = default;

    virtual QString getSubselectionName(int index) const;        ///< "Handle_7", unless a type has names of its own.
    virtual int getSubselectionIndex(const QString& name) const; ///< Below 0 for a name that isn't known.

    /// Sets the factory of a type of node, for the whole process; one that was there is destroyed.
    static void registerNodeSubselectionNameFactory(const QString& type,
                                                    std::unique_ptr<NodeSubselectionNameFactory> factory);
    /// The factory of a type, or null.
    static const NodeSubselectionNameFactory* getFactory(const QString& type);
    /// The first digits in a name as a number; 0 for a name without digits, or with more than an int holds.
    static int getGenericSubselectionIndex(const QString& name);
};

} // namespace OMC
