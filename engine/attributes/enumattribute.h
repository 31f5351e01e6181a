#pragma once

#include "engine/attributes/attributeof.h"

namespace brindle::engine {

/// One of the options of its table. It is stored as the option's text.
class EnumAttribute final : public AttributeOf<AT_EnumAttrBase> {
public:
    EnumAttribute(MO_Node& node, const AttributeMeta& meta);

    QMap<int, QString> options() const override;
    int localValue() const override { return m_local; }
    bool hasOption(int value) const;
    bool setLocalValue(int value);         ///< False when the value is as before or no option's.
    QString textAt(double) const override; ///< The present option's text.
    CO_Command* setTextCommand(double frame, const QString& text) override;

    static AttributeValue newValue(const AttributeSpec& spec);
    AttributeValue stored() const;
    void store(const AttributeValue& value);

private:
    const EnumOption* optionOf(const QString& text) const;

    int m_local;
};

} // namespace brindle::engine
