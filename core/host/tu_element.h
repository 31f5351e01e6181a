#pragma once

#include "core/host/export.h"

#include <QString>

/// An element: a folder of drawings in the project's database. It belongs to the element manager, and commands change
/// it; nobody keeps a reference to it beyond the call.
///
/// The base class stands for no element: its id is -1.
class BRINDLE_HOST_EXPORT TUElement {
public:
    /// The colours of its pictures.
    enum ScanType : int { kColor = 0, kGrayScale = 1, kBlackAndWhite = 2 };
    /// The form of its vector drawings; an element without one holds pictures of its pixmap format.
    enum VectorType : int { kNoVector = 0, kPnt = 1, kBvg = 2 };

    virtual ~TUElement() = default;

    virtual int id() const { return -1; } ///< Unique in the project, and no other element's after it.
    virtual QString name() const { return {}; }
    virtual int scanType() const { return kColor; }
    virtual double fieldChart() const { return 0; } ///< The number of fields across its drawings.
    virtual int pixmapFormat() const { return -1; } ///< In TUPixmapFormatList.
    virtual int vectorType() const { return kNoVector; }
    virtual QString folder() const { return {}; } ///< Within the project's folder: "elements/Arm".
    /// The name of its folder, which a file system can have. It is made of the name that the element is given first,
    /// and stays.
    virtual QString physicalName() const { return {}; }
    /// Whether it was removed and its files were kept. Its name is free then.
    virtual bool isDeleted() const { return false; }
};
