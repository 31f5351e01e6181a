#pragma once

#include "core/frame/baseobject.h"

#include <QMetaType>
#include <QVariant>

namespace OMC {

/// How a playback is measured.
///
/// A plain value that travels inside a QVariant by copy.
class BRINDLE_CORE_EXPORT PlaybackOptions : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(PlaybackOptions)

public:
    PlaybackOptions();
    /// Reads a dictionary of the fields below by their names in snake case (`frame_start`), or a text of their values
    /// in this order. What isn't told keeps its default.
    explicit PlaybackOptions(const QVariant& value);

    QVariantMap fields() const; ///< All of them by their names, as the constructor reads them.

    std::string __str__() const override; ///< "PlaybackOptions([1,0,1,False])".

    int frameStart = 1; ///< The first frame; 0 stands for the first one that the application plays.
    int frameEnd = 0;   ///< The last frame; 0 stands for the last one that the application plays.
    int loopCount = 1;  ///< How often the frames are played, 1 to 100 times.
    /// Whether pictures of frames are kept while they are played. The default is the person's preference.
    bool cacheEnabled;
};

} // namespace OMC

Q_DECLARE_METATYPE(OMC::PlaybackOptions)
