#pragma once

#include "core/frame/export.h"

#include <QString>
#include <QStringList>

#include <optional>

class TUPixmapFormatList;

/// The fields of elements as scripts write them, and the engine's numbers for them.
namespace OMC::elementfields {

/// The number of a scan type in any case of letters; nothing for another text.
std::optional<int> scanType(const QString& text);
QString scanTypeText(int type); ///< "BW" for any other number.
/// The sentence for a text that is no scan type.
QString scanTypeFailure();

/// The number of a vector type, 0 for any other text; the text for it, "NONE" for any other number.
int vectorType(const QString& text);
QString vectorTypeText(int type);

const TUPixmapFormatList& formats(); ///< Those that an element can have.
/// The sentence for a text that is no name of a format.
QString formatFailure();

} // namespace OMC::elementfields
