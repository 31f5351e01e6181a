#pragma once

#include <QString>

class QMainWindow;

namespace app::desk {

/// Where a window and its docks stand, kept in a file from one run to the next; an empty path keeps nothing. A window
/// that nothing is kept of gets a size to begin with.
void restorePlacement(QMainWindow& window, const QString& file);
void keepPlacement(const QMainWindow& window, const QString& file);

} // namespace app::desk
