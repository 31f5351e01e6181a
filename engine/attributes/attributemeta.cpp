#include "engine/attributes/attributemeta.h"

namespace brindle::engine {

QString literalText(std::u16string_view text)
{
    return QString::fromRawData(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

AttributeMeta::AttributeMeta(const AttributeSpec& spec, const AttributeMeta* parent)
    : AttributeMeta(spec,
                    AT_AttrMeta(literalText(spec.keyword), literalText(spec.displayName),
                                spec.dirtyOnChange ? kSaved | kDirtyOnChange : kSaved),
                    spec.linkable, parent)
{}

AttributeMeta::AttributeMeta(const AttributeSpec& type, const AT_AttrMeta& names, bool linkable,
                             const AttributeMeta* parent)
    : AT_AttrMeta(names),
      m_spec(type),
      m_linkable(linkable),
      m_fullKeyword(parent ? parent->m_fullKeyword + '.' + keyword() : keyword()),
      m_newValue(type.kind.newValue(type))
{}

QString AttributeMeta::typeText() const
{
    return literalText(m_spec.typeText);
}

} // namespace brindle::engine
