#pragma once

#include "core/frame/baseobject.h"

#include <QMetaType>
#include <QString>
#include <QVariant>

namespace OMC {

/// What a performance report measures, and where it is written.
///
/// A plain value that travels inside a QVariant by copy.
class BRINDLE_CORE_EXPORT ReportOptions : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(ReportOptions)

public:
    ReportOptions();
    /// Reads a dictionary of the fields below by their names in snake case (`file_path`), or a text of their values in
    /// this order, without the file. What isn't told keeps its default.
    explicit ReportOptions(const QVariant& value);

    QVariantMap fields() const; ///< All of them by their names, as the constructor reads them.

    std::string __str__() const override; ///< "ReportOptions([1,0,10,5,5,False,""])".

    int frameStart = 1;  ///< The first frame; 0 stands for the first one that the application plays.
    int frameEnd = 0;    ///< The last frame; 0 stands for the last one that the application plays.
    int splitCount = 10; ///< How many frames are tested one by one; 0 stands for every tenth.
    int loopCount = 5;   ///< How often the frames are played; 0 stands for 5 times.
    int topCount = 5;    ///< How many nodes each list shows; 0 stands for 5.
    /// Whether pictures of frames are kept while they are played. The default is the person's preference.
    bool cacheEnabled;
    /// The file; empty for one of its own, by the time, in the folder of the scene.
    QString filePath;
};

} // namespace OMC

Q_DECLARE_METATYPE(OMC::ReportOptions)
