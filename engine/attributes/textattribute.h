#pragma once

#include "engine/attributes/attributeof.h"

#include <variant>

namespace brindle::engine {

/// A text, empty in a new node. No column gives texts, so it is the same at every frame.
class TextAttribute final : public AttributeOf<AT_StringAttr> {
public:
    using AttributeOf::AttributeOf;

    QString value(double) const override { return m_local; }
    QString localValue() const override { return m_local; }
    QString defaultValue() const override { return std::get<QString>(meta().newValue()); }
    bool setValue(double frame, const QString& value, bool constantSegment, bool force) override;
    bool setLocalValue(const QString& value) override;
    TUTimedValue* createTimedValue() const override { return nullptr; }
    QString textAt(double) const override { return m_local; }
    CO_Command* setTextCommand(double frame, const QString& text) override;

    static AttributeValue newValue(const AttributeSpec&) { return QString(); }
    AttributeValue stored() const { return m_local; }
    void store(const AttributeValue& value) { setLocalValue(std::get<QString>(value)); }

private:
    QString m_local;
};

} // namespace brindle::engine
