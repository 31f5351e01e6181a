#pragma once

#include "core/frame/iterable.h"
#include "core/frame/listobj.h"

#include <QString>

#include <memory>
#include <vector>

class MO_Port;

namespace OMC {

class InPort;
class OutPort;

/// The cables of an out-port, in the order of linking.
///
/// It holds a copy of the port's wrapper and asks the engine at each call: a loop that cuts cables sees the list
/// shrink.
class BRINDLE_CORE_EXPORT CableList : public ListObj, public IterableObj {
    Q_OBJECT

public:
    explicit CableList(const OutPort* port); ///< Null gives a list that is never valid.
    CableList(const CableList& other);
    ~CableList() override;

    BaseObject* copy() const override;
    std::string __str__() const override; ///< "CableList(%1, %2)": the node's path and the port's place on it.

    Obj __iterItem__() const override;
    void operator++() override;
    void operator--() override;
    bool __atend__() const override;
    Obj __iter__() const override;

    std::size_t size() const override;
    using ListObj::get;
    Obj get(int index) const override;
    void set(int index, const Obj& object) override; ///< Always throws.
    std::vector<Obj> list() const override;
    /// Whether a cable leads to a node or an in-port.
    virtual bool contains(const Obj& object) const;
    /// The cable at a place that is written as a text; empty for a text that is no number.
    virtual Obj operator()(const QString& index) const;

protected:
    void validate() const override;

private:
    MO_Port* checkedPort() const;

    std::unique_ptr<OutPort> m_port;
    quint64 m_cursor = 0;
};

/// The real connections of an out-port through groups.
///
/// A loop walks those that there were when it began, whatever its body changes; outside a loop each call asks anew.
class BRINDLE_CORE_EXPORT FlatCableList : public ListObj, public IterableObj {
    Q_OBJECT

public:
    explicit FlatCableList(const OutPort* port); ///< Null gives a list that is never valid.
    FlatCableList(const FlatCableList& other);
    ~FlatCableList() override;

    BaseObject* copy() const override;
    std::string __str__() const override; ///< "FlatCableList(%1, %2)": the node's path and the port's place on it.

    Obj __iterItem__() const override;
    void operator++() override;
    void operator--() override;
    bool __atend__() const override;
    Obj __iter__() const override;

    std::size_t size() const override;
    using ListObj::get;
    Obj get(int index) const override;
    void set(int index, const Obj& object) override; ///< Always throws.
    std::vector<Obj> list() const override;
    /// Whether a connection leads to a node or an in-port.
    virtual bool contains(const Obj& object) const;
    /// The connection at a place that is written as a text; empty for a text that is no number.
    virtual Obj operator()(const QString& index) const;

protected:
    void validate() const override;

private:
    using Snapshot = std::vector<InPort>;

    MO_Port* checkedPort() const;
    std::vector<MO_Port*> destinations() const;
    Obj cableTo(const MO_Port* port) const;

    std::unique_ptr<OutPort> m_port;
    quint64 m_cursor = 0;
    std::shared_ptr<const Snapshot> m_snapshot; ///< Of a loop; never changed, so that copies share it.
};

} // namespace OMC
