#pragma once

#include "core/elements/metadatastore.h"
#include "core/frame/baseobject.h"
#include "core/frame/weakhandle.h"

namespace OMC {

/// The owner of metadata that a wrapper shows: a node or a scene.
class BRINDLE_CORE_EXPORT MetaDataTarget {
public:
    enum Kind : quint32 { Node = 0, Scene = 1 };

    explicit MetaDataTarget(MO_Node* node);
    explicit MetaDataTarget(TUScene* scene);

    bool isGone() const;
    std::unique_ptr<MetaDataStore> store() const; ///< The owner must be there.

private:
    WeakHandle<MO_Node> m_node;
    WeakHandle<TUScene> m_scene;
    Kind m_kind;
};

/// A wrapper of the metadata of a target. `Base` is the class below it.
template <typename Base>
class MetaDataView : public Base {
protected:
    explicit MetaDataView(const MetaDataTarget& target) : m_target(target) {}

    void validate() const override
    {
        if (m_target.isGone())
            BaseObject::throwInvalid();
        BaseObject::validateThreadLock();
    }
    /// The metadata of the target; throws as `validate` does.
    std::unique_ptr<MetaDataStore> store() const
    {
        validate();
        return m_target.store();
    }
    const MetaDataTarget& target() const { return m_target; }

private:
    MetaDataTarget m_target;
};

} // namespace OMC
