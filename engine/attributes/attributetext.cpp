#include "engine/attributes/attributetext.h"

#include <QLocale>

#include <cmath>

namespace brindle::engine::attribute_text {

QString write(bool value)
{
    return value ? QString("true") : QString("false");
}

QString write(int value)
{
    return QString::number(value);
}

QString write(double value)
{
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

bool read(const QString& text, bool& value)
{
    const QString word = text.trimmed().toLower();
    const bool isTrue = word == u"true" || word == u"1";
    const bool isFalse = word == u"false" || word == u"0";
    if (isTrue || isFalse)
        value = isTrue;
    return isTrue || isFalse;
}

bool read(const QString& text, int& value)
{
    bool isNumber = false;
    const int number = text.trimmed().toInt(&isNumber);
    if (isNumber)
        value = number;
    return isNumber;
}

bool read(const QString& text, double& value)
{
    bool isNumber = false;
    const double number = text.trimmed().toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number))
        return false;
    value = number;
    return true;
}

} // namespace brindle::engine::attribute_text
