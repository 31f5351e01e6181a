#include "service/python/scene/bracket.h"

namespace brindle::python {

Bracket::Bracket(const OMC::History& history, const QString& name) : m_history(history), m_name(name) {}

OMC::BaseObject* Bracket::copy() const
{
    return new Bracket(*this);
}

std::string Bracket::__str__() const
{
    return QStringLiteral("Bracket(%1)").arg(m_name).toStdString();
}

OMC::BaseObject* Bracket::enter()
{
    m_history.begin(m_name);
    return m_history.copy();
}

void Bracket::leave(bool failed)
{
    if (!failed) {
        m_history.end();
        return;
    }
    try {
        m_history.cancel();
    } catch (const OMC::Exception&) {
        // The project was closed in the block, which ended the bracket. What made the block fail is what counts.
    }
}

} // namespace brindle::python
