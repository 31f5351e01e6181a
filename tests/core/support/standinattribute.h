#pragma once

#include "core/host/at_attr.h"
#include "core/host/tu_timedvalue.h"
#include "tests/core/support/standinnode.h"

#include <vector>

// Attributes of no engine, on a node of no engine: what the open engine's never lack or lose.

class StandInSocket : public TUTvSocket {
public:
    AT_Attr* attr() const override { return nullptr; }
    TUTimedValue* linkedTimedValue() const override { return column; }
    bool columnName(QString& name, int) const override
    {
        if (column)
            name = column->getName();
        return column;
    }

    TUTimedValue* column = nullptr;
};

/// An attribute of a host class without a value of its own.
template <typename Base>
class StandInAttribute : public Base {
public:
    StandInAttribute(MO_Node& node, const QString& keyword) : owner(node), details(keyword, keyword, AT_AttrMeta::kDirtyOnChange) {}

    MO_Node* node() const override { return &owner; }
    const AT_AttrMeta& meta() const override { return details; }
    SC_SceneCommon* sceneCommon() const override { return owner.sceneCommon(); }
    TUTvSocket* socket() const override { return linkable ? &plug : nullptr; }
    void accept(AT_AttrVisitor& visitor) override { visitor.visit(static_cast<Base&>(*this)); }
    QString displayText() const override { return QStringLiteral("Stand-in"); }
    QString typeText() const override { return QStringLiteral("STAND_IN"); }
    QString textAt(double) const override { return QString(); }
    CO_Command* setTextCommand(double, const QString&) override { return nullptr; }

    MO_Node& owner;
    AT_AttrMeta details;
    mutable StandInSocket plug;
    bool linkable = false;
};

using StandInSimple = StandInAttribute<AT_SimpleAttr>;

class StandInComplex : public StandInAttribute<AT_ComplexAttr> {
public:
    using StandInAttribute::StandInAttribute;
    AttrIterator attrsBegin() const override { return members.data(); }
    AttrIterator attrsEnd() const override { return members.data() + members.size(); }

    std::vector<AT_Attr*> members;
};

/// Holds its local value at every frame.
template <typename Base>
class StandInValue : public StandInAttribute<Base> {
public:
    using Value = typename Base::ValueType;
    using StandInAttribute<Base>::StandInAttribute;

    Value value(double) const override { return held; }
    Value localValue() const override { return held; }
    Value defaultValue() const override { return Value(); }
    bool setValue(double, Value value, bool, bool) override { return setLocalValue(value); }
    bool setLocalValue(Value value) override
    {
        held = value;
        return stores;
    }
    TUTimedValue* createTimedValue() const override { return nullptr; }

    Value held{};
    bool stores = true;
};

class StandInInt : public StandInValue<AT_IntAttr> {
public:
    using StandInValue::StandInValue;
    int minValue() const override { return -7; }
    int maxValue() const override { return 70; }
    int step() const override { return 7; }
};

/// A stand-in node with attributes.
class AttributedNode : public StandInNode {
public:
    using StandInNode::StandInNode;
    AT_Attr* findAttributeByKeyword(const QString& keyword) const override
    {
        for (AT_Attr* attribute : attributes) {
            if (attribute->meta().keyword() == keyword)
                return attribute;
        }
        return nullptr;
    }
    AttrIterator attrsBegin() const override { return attributes.data(); }
    AttrIterator attrsEnd() const override { return attributes.data() + attributes.size(); }

    std::vector<AT_Attr*> attributes;
};
