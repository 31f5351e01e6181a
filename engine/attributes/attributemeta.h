#pragma once

#include "core/host/at_attr.h"

#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace brindle::engine {

enum class AttributeKind { Bool, Int, Double, Text, Enum, Colour, Position2d, Position3d, Drawing, Complex };

struct EnumOption {
    int value;
    std::u16string_view text;
};

/// The facts of an attribute, as the tables of the node types write them.
struct AttributeSpec {
    std::u16string_view keyword;
    std::u16string_view displayName;
    std::u16string_view typeText;
    AttributeKind kind = AttributeKind::Complex;
    bool linkable = false;
    bool dirtyOnChange = true;
    double defaultValue = 0; ///< Of a bool: 0 or 1. Of an enum: the value of an option.
    double minimum = 0;
    double maximum = 0;
    double step = 0;
    std::span<const EnumOption> options = {};
    std::span<const AttributeSpec> members = {};
};

/// What the attributes of one place in a node type's table have in common. Lives as long as the process.
class AttributeMeta final : public AT_AttrMeta {
public:
    AttributeMeta(const AttributeSpec& spec, const AttributeMeta* parent);

    QString keyword() const override { return m_keyword; }
    QString displayName() const override { return m_displayName; }
    bool isDynamic() const override { return false; }
    bool isNodeDirtyOnChange() const override { return m_spec.dirtyOnChange; }

    const AttributeSpec& spec() const { return m_spec; }
    AttributeKind kind() const { return m_spec.kind; }
    const QString& fullKeyword() const { return m_fullKeyword; } ///< "position.x".
    QString typeText() const;
    bool isLinkable() const { return m_spec.linkable; }
    bool isComplex() const { return !m_spec.members.empty(); }

    /// What the attribute makes of a number: held between minimum and maximum; rounded for an int, 0 or 1 for a bool.
    double read(double number) const;

private:
    const AttributeSpec& m_spec;
    QString m_keyword;
    QString m_displayName;
    QString m_fullKeyword;
};

/// The attributes of a node type, each with its place in the memory of an AttributeSet.
struct AttributeTable {
    struct Entry {
        std::unique_ptr<AttributeMeta> meta;
        QStringView keyword;
        int firstMember = 0; ///< Index of an entry.
        int memberCount = 0;
        std::size_t offset = 0;
    };

    /// The entries of the top level first, then the members of each complex entry together.
    std::vector<Entry> entries;
    int topCount = 0;
    std::size_t size = 0; ///< Bytes that the attributes need.

    explicit AttributeTable(std::span<const AttributeSpec> specs);
};

/// A text that lives as long as the process as a QString, without a copy of its letters.
QString literalText(std::u16string_view text);

} // namespace brindle::engine
