#include "core/elements/metadatatarget.h"

#include "core/host/sc_scene.h"

namespace OMC {

MetaDataTarget::MetaDataTarget(TUScene* scene) : m_scene(scene) {}

bool MetaDataTarget::isGone() const
{
    return m_scene.isGone();
}

std::unique_ptr<MetaDataStore> MetaDataTarget::store() const
{
    return MetaDataStore::of(*m_scene.get());
}

} // namespace OMC
