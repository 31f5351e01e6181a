#include "engine/attributes/attributemeta.h"

#include "engine/attributes/attributes.h"

#include <algorithm>
#include <cmath>

namespace brindle::engine {

namespace {

struct Extent {
    std::size_t size;
    std::size_t alignment;
};

template <typename Attribute>
constexpr Extent extent{sizeof(Attribute), alignof(Attribute)};

Extent extentOf(AttributeKind kind)
{
    switch (kind) {
    case AttributeKind::Bool:
        return extent<BoolAttribute>;
    case AttributeKind::Int:
        return extent<IntAttribute>;
    case AttributeKind::Double:
        return extent<DoubleAttribute>;
    case AttributeKind::Text:
        return extent<TextAttribute>;
    case AttributeKind::Enum:
        return extent<EnumAttribute>;
    case AttributeKind::Colour:
        return extent<ComplexAttribute<AT_ColorAttr>>;
    case AttributeKind::Position2d:
        return extent<ComplexAttribute<AT_Position2dAttr>>;
    case AttributeKind::Position3d:
        return extent<ComplexAttribute<AT_Position3dAttr>>;
    case AttributeKind::Drawing:
    case AttributeKind::Complex:
        break;
    }
    return extent<ComplexAttribute<AT_ComplexAttr>>;
}

} // namespace

QString literalText(std::u16string_view text)
{
    return QString::fromRawData(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

AttributeMeta::AttributeMeta(const AttributeSpec& spec, const AttributeMeta* parent)
    : m_spec(spec),
      m_keyword(literalText(spec.keyword)),
      m_displayName(literalText(spec.displayName)),
      m_fullKeyword(parent ? parent->m_fullKeyword + '.' + m_keyword : m_keyword)
{}

QString AttributeMeta::typeText() const
{
    return literalText(m_spec.typeText);
}

double AttributeMeta::read(double number) const
{
    if (m_spec.kind == AttributeKind::Bool)
        return number != 0 ? 1 : 0;
    const double held = std::clamp(number, m_spec.minimum, m_spec.maximum);
    return m_spec.kind == AttributeKind::Int ? std::round(held) : held;
}

AttributeTable::AttributeTable(std::span<const AttributeSpec> specs) : topCount(static_cast<int>(specs.size()))
{
    for (const AttributeSpec& spec : specs)
        entries.push_back({std::make_unique<AttributeMeta>(spec, nullptr), spec.keyword});
    for (std::size_t index = 0; index < entries.size(); ++index) {
        const AttributeMeta* meta = entries[index].meta.get();
        entries[index].firstMember = static_cast<int>(entries.size());
        entries[index].memberCount = static_cast<int>(meta->spec().members.size());
        for (const AttributeSpec& member : meta->spec().members)
            entries.push_back({std::make_unique<AttributeMeta>(member, meta), member.keyword});
    }
    for (Entry& entry : entries) {
        const auto [needed, alignment] = extentOf(entry.meta->kind());
        entry.offset = (size + alignment - 1) / alignment * alignment;
        size = entry.offset + needed;
    }
}

} // namespace brindle::engine
