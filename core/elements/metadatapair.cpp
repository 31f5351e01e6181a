#include "core/elements/metadatapair.h"

namespace OMC {

MetaDataPair::MetaDataPair(MO_Node* node, const QString& key) : MetaDataPair(MetaDataTarget(node), key) {}

MetaDataPair::MetaDataPair(TUScene* scene, const QString& key) : MetaDataPair(MetaDataTarget(scene), key) {}

MetaDataPair::MetaDataPair(const MetaDataTarget& target, const QString& key) : MetaDataView(target), m_key(key) {}

std::string MetaDataPair::__str__() const
{
    return tr("MetaDataPair(%1, %2)").arg(store()->owner(), m_key).toStdString();
}

QString MetaDataPair::getKey() const
{
    validate();
    return m_key;
}

QString MetaDataPair::getType() const
{
    return store()->type(m_key);
}

QVariant MetaDataPair::getValue() const
{
    return store()->value(m_key);
}

void MetaDataPair::setValue(const QVariant& value)
{
    store()->setValue(m_key, value);
}

QString MetaDataPair::getVersion() const
{
    return store()->version(m_key);
}

void MetaDataPair::setVersion(const QString& version)
{
    store()->setVersion(m_key, version);
}

QString MetaDataPair::getCreator() const
{
    return store()->creator(m_key);
}

void MetaDataPair::setCreator(const QString& creator)
{
    store()->setCreator(m_key, creator);
}

bool MetaDataPair::getExists() const
{
    return store()->exists(m_key);
}

} // namespace OMC
