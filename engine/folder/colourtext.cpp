#include "engine/folder/colourtext.h"

#include <QRegularExpression>

namespace brindle::engine {

QString colourText(QRgb colour)
{
    return u'#' + QString::number(colour, 16).toUpper().rightJustified(8, u'0');
}

QRgb readColour(const JsonPlace& place)
{
    static const QRegularExpression form(QStringLiteral("\\A#[0-9A-F]{8}\\z"));
    const QString text = place.text();
    if (!form.match(text).hasMatch())
        place.fail(QStringLiteral("is no colour \"#AARRGGBB\""));
    return text.mid(1).toUInt(nullptr, 16);
}

} // namespace brindle::engine
