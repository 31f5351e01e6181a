#pragma once

#include <QVariant>

class TUScene;

namespace OMC {

/// A script's options for the element of a new drawing column.
struct DrawingOptions {
    int scanType = 0;
    double fieldChart = 0;
    int pixmapFormat = 0;
    bool createNode = true;

    /// Reads the map of options; what it leaves out are the scene's defaults. Throws all that is wrong with it, a line
    /// each.
    static DrawingOptions read(const TUScene& scene, const QVariant& options);
};

} // namespace OMC
