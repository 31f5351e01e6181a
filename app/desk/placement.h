#pragma once

#include <QString>

class QMainWindow;

namespace app::desk {

/// Keeps the places of a window and its docks in a file from one run to the next; an empty path keeps nothing. A window
/// that nothing is kept of gets a size to begin with.
void restorePlacement(QMainWindow& window, const QString& file);
void keepPlacement(const QMainWindow& window, const QString& file);

} // namespace app::desk
