#include "engine/attributes/attributemeta.h"

namespace brindle::engine {

QString literalText(std::u16string_view text)
{
    return QString::fromRawData(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

AttributeMeta::AttributeMeta(const AttributeSpec& spec, const AttributeMeta* parent)
    : m_spec(spec),
      m_keyword(literalText(spec.keyword)),
      m_displayName(literalText(spec.displayName)),
      m_fullKeyword(parent ? parent->m_fullKeyword + '.' + m_keyword : m_keyword),
      m_newValue(spec.kind.newValue(spec))
{}

QString AttributeMeta::typeText() const
{
    return literalText(m_spec.typeText);
}

} // namespace brindle::engine
