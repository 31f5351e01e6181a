#pragma once

#include "core/host/at_timedvaluevisitor.h"
#include "engine/curves/column.h"
#include "engine/curves/hold.h"

namespace brindle::engine {

/// Gives a column the host class of its kind.
template <typename Host>
class HostColumn : public Host, public Column {
public:
    HostColumn(const ColumnKind& kind, const QString& name, bool anonymous)
        : Column(static_cast<Host&>(*this), kind, name, anonymous)
    {}

    TUTimedValue::timedValueType type() const override { return Column::kind().type; }
    QString getName() const override { return Column::name(); }
    QString getDisplayName() const override { return Column::displayName(); }
    bool isAnonymous() const override { return Column::anonymous(); }
    SC_SceneCommon* sceneCommon() const override { return Column::scene(); }
    void accept(AT_TimedValueVisitor& visitor) override { visitor.visit(static_cast<Host&>(*this)); }

    unsigned int getNumLinks() const override { return static_cast<unsigned int>(Column::linkCount()); }
    AT_Attr* linkedAttr(unsigned int index) const override { return Column::linkedAttribute(index); }
    std::vector<MO_Node*> linkedNodes() const override { return Column::nodes(); }
    void endModif(double) override { Column::tellLinked(); }
};

/// The same for a curve of values, which may be held over steps.
template <typename Host>
class HeldColumn : public HostColumn<Host>, public Hold {
public:
    using HostColumn<Host>::HostColumn;

    int start() const override { return Hold::start(); }
    int stop() const override { return Hold::stop(); }
    int step() const override { return Hold::step(); }
};

} // namespace brindle::engine
