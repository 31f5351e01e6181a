#pragma once

#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/listobj.h"
#include "core/nodes/cableends.h"

#include <QString>

#include <vector>

namespace OMC {

/// The cables of an out-port, in the order of linking.
///
/// It holds a copy of the port's wrapper and asks the engine at each call: a loop that cuts cables sees the list
/// shrink.
class BRINDLE_CORE_EXPORT CableList : public CountedList<ListObj, IterableObj> {
    Q_OBJECT
    BRINDLE_COPYABLE(CableList)

public:
    explicit CableList(const OutPort* port); ///< Null gives a list that is never valid.

    std::string __str__() const override; ///< "CableList(%1, %2)": the node's path and the port's place on it.

    std::size_t size() const override;
    using ListObj::get;
    Obj get(int index) const override;
    void set(int index, const Obj& object) override; ///< Always throws.
    std::vector<Obj> list() const override;
    virtual bool contains(const Obj& object) const; ///< Whether a cable leads to a node or an in-port.
    /// The cable at a place that is written as a text; empty for a text that is no number.
    virtual Obj operator()(const QString& index) const;

protected:
    void validate() const override;
    void beforeStep() const override;

private:
    MO_Port* checkedPort() const;

    OwnPort<OutPort> m_port;
};

/// The real connections of an out-port through groups.
///
/// A loop walks those that there were when it began, whatever its body changes; outside a loop each call asks anew.
class BRINDLE_CORE_EXPORT FlatCableList : public CountedList<ListObj, IterableObj> {
    Q_OBJECT
    BRINDLE_COPYABLE(FlatCableList)

public:
    explicit FlatCableList(const OutPort* port); ///< Null gives a list that is never valid.

    std::string __str__() const override; ///< "FlatCableList(%1, %2)": the node's path and the port's place on it.

    std::size_t size() const override;
    using ListObj::get;
    Obj get(int index) const override;
    void set(int index, const Obj& object) override; ///< Always throws.
    std::vector<Obj> list() const override;
    virtual bool contains(const Obj& object) const; ///< Whether a connection leads to a node or an in-port.
    /// The connection at a place that is written as a text; empty for a text that is no number.
    virtual Obj operator()(const QString& index) const;

protected:
    void validate() const override;
    void beforeStep() const override;
    void startIteration() override;

private:
    MO_Port* checkedPort() const;
    std::vector<MO_Port*> destinations() const;
    Obj cableTo(const MO_Port* port) const;

    OwnPort<OutPort> m_port;
    Snapshot<InPort> m_snapshot;
};

} // namespace OMC
