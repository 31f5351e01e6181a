#include "engine/attributes/textattribute.h"

namespace brindle::engine {

bool TextAttribute::setValue(double, const QString& value, bool, bool force)
{
    return setLocalValue(value) || force;
}

bool TextAttribute::setLocalValue(const QString& value)
{
    if (value == m_local)
        return false;
    m_local = value;
    return true;
}

CO_Command* TextAttribute::setTextCommand(double, const QString& text)
{
    return new SetLocal<TextAttribute, QString>(*this, text);
}

} // namespace brindle::engine
