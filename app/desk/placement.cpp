#include "app/desk/placement.h"

#include <QMainWindow>
#include <QSettings>

namespace app::desk {

namespace {

constexpr char geometryKey[] = "window/geometry";
constexpr char docksKey[] = "window/docks";
constexpr QSize firstSize(960, 680);

} // namespace

void restorePlacement(QMainWindow& window, const QString& file)
{
    window.resize(firstSize);
    if (file.isEmpty())
        return;
    const QSettings settings(file, QSettings::IniFormat);
    window.restoreGeometry(settings.value(geometryKey).toByteArray());
    window.restoreState(settings.value(docksKey).toByteArray());
}

void keepPlacement(const QMainWindow& window, const QString& file)
{
    if (file.isEmpty())
        return;
    QSettings settings(file, QSettings::IniFormat);
    settings.setValue(geometryKey, window.saveGeometry());
    settings.setValue(docksKey, window.saveState());
}

} // namespace app::desk
