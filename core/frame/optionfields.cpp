#include "core/frame/optionfields.h"

namespace OMC::options {

QStringList pieces(const QString& text)
{
    const qsizetype open = text.lastIndexOf(u'[');
    QString list = text;
    if (open >= 0) {
        list = text.right(open);
        if (open > 0)
            list = list.left(text.lastIndexOf(u']'));
    }
    QStringList pieces = list.split(u',');
    for (QString& piece : pieces)
        piece = piece.simplified().toLower().remove(u' ').remove(u'"');
    return pieces;
}

} // namespace OMC::options
