#include "core/host/ut_id.h"

#include <QRandomGenerator>

namespace {

constexpr int digits = 16;

} // namespace

UT_Id UT_Id::Generate()
{
    quint64 value = 0;
    while (value == 0)
        value = QRandomGenerator::system()->generate64();
    return UT_Id(value);
}

UT_Id UT_Id::FromString(const QString& text)
{
    const auto isDigit = [](QChar c) {
        return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
    };
    if (text.size() != digits || !std::all_of(text.begin(), text.end(), isDigit))
        return UT_Id();
    return UT_Id(text.toULongLong(nullptr, 16));
}

QString UT_Id::AsString() const
{
    return QString::number(m_value, 16).rightJustified(digits, u'0');
}
