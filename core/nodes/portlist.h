#pragma once

#include "core/frame/engineview.h"
#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/listobj.h"
#include "core/host/mo_node.h"

namespace OMC {

class Port;
struct PortSide;

/// The in-ports or the out-ports of a node, by their places from 0.
///
/// It holds the node weakly and no ports: each call asks the engine. Its ports can't be replaced; a list whose ports
/// come and go is a MultiPortList.
class BRINDLE_CORE_EXPORT PortList : public CountedList<EngineView<MO_Node, ListObj>, IterableObj> {
    Q_OBJECT
    BRINDLE_COPYABLE(PortList)
    Q_PROPERTY(bool dynamic READ getDynamic)

public:
    PortList(MO_Node* node, bool isInPort);

    /// "InPorts(%1)[%2]" or "OutPorts(%1)[%2]": the node's path and the number of ports.
    std::string __str__() const override;

    std::size_t size() const override;
    using ListObj::get;
    Obj get(int index) const override;
    void set(int index, const Obj& object) override; ///< Always throws.
    std::vector<Obj> list() const override;          ///< An empty handle where the engine has no port.
    Port* newItem(int index) const;                  ///< The same as `get`, for a caller that takes the wrapper itself.
    virtual bool getDynamic() const;                 ///< Whether ports can be made and removed.
    /// The port at a place that is written as a text; empty for a text that is no number.
    virtual Obj operator()(const QString& index) const;

protected:
    void beforeStep() const override;

    bool isInPortList() const { return m_isInPort; }
    const PortSide& side() const;
    Port* wrapped(const MO_Port* port) const; ///< Null for null.
    Obj lastMattePort() const;

private:
    bool m_isInPort;
};

/// The in-ports of a node whose number is fixed.
class BRINDLE_CORE_EXPORT InPortList : public PortList {
    Q_OBJECT
    BRINDLE_COPYABLE(InPortList)
    Q_PROPERTY(OMC::Obj matte_port READ getMattePort)

public:
    explicit InPortList(MO_Node* node);

    virtual Obj getMattePort() const; ///< The last matte port; null when there is none.
};

} // namespace OMC
