#pragma once

#include "core/frame/baseobject.h"

#include <QMetaType>
#include <QVariant>

namespace OMC {

/// What a copy of nodes takes along, and which frames of them.
///
/// A plain value that travels inside a QVariant by copy.
class BRINDLE_CORE_EXPORT CopyOptions : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(CopyOptions)

public:
    CopyOptions() = default;
    /// Reads a dictionary of the fields below by their names in snake case (`add_modelling_dir`), or a text of their
    /// values in this order. What isn't told keeps its default.
    explicit CopyOptions(const QVariant& value);

    QVariantMap fields() const; ///< All of them by their names, as the constructor reads them.

    std::string __str__() const override; ///< "CopyOptions([True,True,True,1,0])".

    bool addModellingDir = true;          ///< Whether the modelling folder goes along.
    bool addScanFiles = true;             ///< Whether scanned files go along.
    bool includeDefaultCameraName = true; ///< Whether a template names the scene's default camera.
    int startFrameSrc = 1;                ///< The first frame that is copied; 0 stands for the scene's start frame.
    int numFrameSrc = 0;                  ///< The number of frames; 0 stands for all.
};

} // namespace OMC

Q_DECLARE_METATYPE(OMC::CopyOptions)
