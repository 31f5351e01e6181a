#pragma once

#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/mapobj.h"

namespace OMC {

/// The data that nodes of a type have, by their keys; each access makes a new data object.
class BRINDLE_CORE_EXPORT NodeDataHandler : public CountedList<MapObj, IterableMap> {
    Q_OBJECT
    BRINDLE_COPYABLE(NodeDataHandler)

public:
    explicit NodeDataHandler(const QString& nodeType) : m_nodeType(nodeType) {}
    /// A copy stands at the first key, whatever the other one's loop has come to.
    NodeDataHandler(const NodeDataHandler& other);

    /// Required: it shows the keys of all types of nodes, not of this one alone.
    std::string __str__() const override;

    std::size_t size() const override;
    QList<QString> list() const override;
    virtual bool contains(const QString& key) const; ///< Whether the nodes have data of a key.
    /// Fails for a key that isn't registered and for one that isn't there for this type of node.
    Obj get(const QString& key) const override;
    [[noreturn]] void set(const QString& key, const Obj& object) override; ///< Fails: data can't be replaced.

    QString __iterItem__() const override; ///< Fails behind the last key.

private:
    void startIteration() override;
    std::size_t iterationSize() const override { return m_keys.size(); }

    QString m_nodeType;
    Snapshot<QString> m_keys;
};

} // namespace OMC
