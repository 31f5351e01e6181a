#pragma once

#include "core/host/at_attr.h"
#include "engine/attributes/attributekind.h"

#include <span>
#include <string_view>

namespace brindle::engine {

struct EnumOption {
    int value;
    std::u16string_view text;
};

/// The facts of an attribute, as the tables of the node types write them.
struct AttributeSpec {
    std::u16string_view keyword;
    std::u16string_view displayName;
    std::u16string_view typeText;
    const AttributeKind& kind;
    bool linkable = false;
    bool dirtyOnChange = true;
    double defaultValue = 0; ///< A bool's is 0 or 1, an enum's the value of an option.
    double minimum = 0;
    double maximum = 0;
    double step = 0;
    std::u16string_view unit = {}; ///< "degrees", "fields", "%", ...; empty for plain numbers.
    std::span<const EnumOption> options = {};
    std::span<const AttributeSpec> members = {};
};

/// The facts of an attribute: of those at one place of a node type's table, which live as long as the process, or of
/// one that was added to a node.
class AttributeMeta final : public AT_AttrMeta {
public:
    AttributeMeta(const AttributeSpec& spec, const AttributeMeta* parent);
    /// Of an attribute that was added: of a type, under names and flags of its own.
    AttributeMeta(const AttributeSpec& type, const AT_AttrMeta& names, bool linkable, const AttributeMeta* parent);

    const AttributeSpec& spec() const { return m_spec; }
    const AttributeKind& kind() const { return m_spec.kind; }
    const QString& fullKeyword() const { return m_fullKeyword; } ///< "position.x".
    QString typeText() const;
    bool isLinkable() const { return m_linkable; }
    const AttributeValue& newValue() const { return m_newValue; } ///< The value that a new node stores.

private:
    const AttributeSpec& m_spec;
    bool m_linkable;
    QString m_fullKeyword;
    AttributeValue m_newValue;
};

/// The meta of an attribute of the open engine.
inline const AttributeMeta& metaOf(const AT_Attr& attr)
{
    return static_cast<const AttributeMeta&>(attr.meta());
}

/// A text that lives as long as the process as a QString, without a copy of its letters.
QString literalText(std::u16string_view text);

} // namespace brindle::engine
