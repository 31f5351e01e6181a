#include "core/elements/metadatatarget.h"

#include "core/elements/metadatapair.h"
#include "core/host/mo_node.h"
#include "core/host/sc_scene.h"

namespace OMC {

MetaDataTarget::MetaDataTarget(MO_Node* node) : m_node(node), m_kind(Node) {}

MetaDataTarget::MetaDataTarget(TUScene* scene) : m_scene(scene), m_kind(Scene) {}

bool MetaDataTarget::isGone() const
{
    return m_kind == Node ? m_node.isGone() : m_scene.isGone();
}

std::unique_ptr<MetaDataStore> MetaDataTarget::store() const
{
    switch (m_kind) {
    case Node:
        return MetaDataStore::of(*m_node.get());
    case Scene:
        return MetaDataStore::of(*m_scene.get());
    }
    throw Exception(MetaDataPair::tr("No valid handler for this metadata."));
}

} // namespace OMC
