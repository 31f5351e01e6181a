#pragma once

#include "core/frame/iterable.h"
#include "core/frame/listobj.h"
#include "core/frame/weakhandle.h"
#include "core/host/mo_node.h"

namespace OMC {

struct PortSide;

/// The in-ports or the out-ports of a node, by their places from 0.
///
/// It holds the node weakly and no ports: each call asks the engine. Its ports can't be replaced; a list whose ports
/// come and go is a MultiPortList. The loop's position is the wrapper's own.
class BRINDLE_CORE_EXPORT PortList : public ListObj, public IterableObj {
    Q_OBJECT
    Q_PROPERTY(bool dynamic READ getDynamic)

public:
    PortList(MO_Node* node, bool isInPort);
    PortList(const PortList& other) = default;

    BaseObject* copy() const override;
    /// "InPorts(%1)[%2]" or "OutPorts(%1)[%2]": the node's path and the number of ports.
    std::string __str__() const override;

    Obj __iterItem__() const override;
    void operator++() override;
    void operator--() override;
    bool __atend__() const override;
    Obj __iter__() const override;

    std::size_t size() const override;
    using ListObj::get;
    Obj get(int index) const override;
    void set(int index, const Obj& object) override; ///< Always throws.
    std::vector<Obj> list() const override;          ///< An empty handle where the engine has no port.
    virtual bool getDynamic() const;                 ///< Whether ports can be made and removed.
    /// The port at a place that is written as a text; empty for a text that is no number.
    virtual Obj operator()(const QString& index) const;

protected:
    void validate() const override;

    MO_Node* checkedNode() const;
    bool isInPortList() const { return m_isInPort; }
    const PortSide& side() const;
    Obj wrapped(const MO_Port* port) const; ///< Empty for null.
    Obj lastMattePort() const;

private:
    WeakHandle<MO_Node> m_node;
    quint64 m_cursor = 0;
    bool m_isInPort;
};

class BRINDLE_CORE_EXPORT InPortList : public PortList {
    Q_OBJECT
    Q_PROPERTY(OMC::Obj matte_port READ getMattePort)

public:
    explicit InPortList(MO_Node* node);
    InPortList(const InPortList& other) = default;

    BaseObject* copy() const override;
    virtual Obj getMattePort() const; ///< The last matte port; empty when there is none.
};

} // namespace OMC
