#pragma once

#include <QByteArray>
#include <QString>

namespace brindle::render {

/// The text of our own configuration, for projects without another one.
const char* ownConfigurationText();

/// The ICC profile of one of its spaces; empty for those of light beyond a display's, with curves of cameras, and logs,
/// which profiles of a matrix and a power can't describe.
QByteArray ownIccProfile(const QString& space);

} // namespace brindle::render
