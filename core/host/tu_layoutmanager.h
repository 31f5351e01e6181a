#pragma once

#include "core/host/export.h"

#include <QString>

#include <vector>

class LAY_View;

/// A place in a window of the application, with the views that are open there. Views stay their owners'.
struct TULayoutArea {
    QString name;
    std::vector<LAY_View*> views;
};

/// A window of the application with its areas.
struct TULayoutFrame {
    std::vector<TULayoutArea> areas;
};

/// The windows of the application. A process without windows has none. On the main thread.
class BRINDLE_HOST_EXPORT TULayoutManager {
public:
    static TULayoutManager* instance();

    const std::vector<const TULayoutFrame*>& frames() const { return m_frames; }
    const TULayoutArea* findArea(const QString& name) const; ///< The first one of that name, or null.

    /// A window is added while it lives, and stays its owner's.
    void addFrame(const TULayoutFrame& frame);
    void removeFrame(const TULayoutFrame& frame);

private:
    std::vector<const TULayoutFrame*> m_frames;
};
