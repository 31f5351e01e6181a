#pragma once

#include "core/frame/baseobject.h"
#include "core/host/dd_dragdrop.h"

namespace OMC {

/// Nodes that were copied, with all that is theirs: columns, elements, drawings, palettes and what is in groups.
///
/// It holds its own data. The nodes may be changed or removed, and their project closed; it can be pasted as often as
/// one likes, also in another project.
class BRINDLE_CORE_EXPORT CopyObject : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(CopyObject)

public:
    explicit CopyObject(const DD_DragObject& object);
    CopyObject(const CopyObject& other) = default;

    std::string __str__() const override; ///< "CopyObject()" for each.

    /// The engine's copy, which shares its data; throws for one that holds none.
    const DD_DragObject& getObject() const;

protected:
    void validate() const override;

private:
    DD_DragObject m_object;
};

} // namespace OMC
