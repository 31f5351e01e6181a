#pragma once

#include "core/host/co_command.h"
#include "core/host/mo_node.h"
#include "engine/attributes/attributemeta.h"
#include "engine/curves/column.h"

namespace brindle::engine {

/// The operations that are the same for attributes of all kinds. `Base` is the host class of the kind.
template <typename Base>
class AttributeOf : public Base {
    static_assert(AT_AttrKinds::has<Base>, "a visitor has to be able to tell the class from others");

public:
    AttributeOf(MO_Node& node, const AttributeMeta& meta) : m_node(node), m_meta(meta) {}

    MO_Node* node() const final { return &m_node; }
    const AttributeMeta& meta() const final { return m_meta; }
    SC_SceneCommon* sceneCommon() const final { return m_node.sceneCommon(); }
    TUTvSocket* socket() const override { return nullptr; }
    void accept(AT_AttrVisitor& visitor) final { visitor.visit(static_cast<Base&>(*this)); }
    QString displayText() const final
    {
        return m_meta.displayName().isEmpty() ? m_meta.keyword() : m_meta.displayName();
    }
    QString typeText() const final { return m_meta.typeText(); }

private:
    MO_Node& m_node;
    const AttributeMeta& m_meta;
};

/// Sets a local value of any kind, and the one before when it is undone.
template <typename Attribute, typename Value>
class SetLocal final : public CO_Command {
public:
    SetLocal(Attribute& attribute, const Value& value) : m_attribute(attribute), m_value(value) {}

    Status execute() override
    {
        const Value before = m_attribute.localValue();
        if (!m_attribute.setLocalValue(m_value))
            return kNoop;
        m_value = before;
        tellChanged(m_attribute);
        return kOk;
    }
    Status unexecute() override { return execute(); }

private:
    Attribute& m_attribute;
    Value m_value; // that it gets next
};

} // namespace brindle::engine
