#include "core/elements/metadatahandler.h"

#include "core/elements/metadatapair.h"

namespace OMC {

MetaDataHandler::MetaDataHandler(MO_Node* node) : FlaggedList(MetaDataTarget(node)) {}

MetaDataHandler::MetaDataHandler(TUScene* scene) : FlaggedList(MetaDataTarget(scene)) {}

std::string MetaDataHandler::__str__() const
{
    return tr("MetadataHandler(%1)").arg(store()->owner()).toStdString();
}

std::size_t MetaDataHandler::size() const
{
    return static_cast<std::size_t>(store()->size());
}

QVariant MetaDataHandler::get(const QString& key) const
{
    return toVariant(newItem(key));
}

QVariant MetaDataHandler::get(int index) const
{
    return toVariant(createMetadataPairAtIdx(index));
}

void MetaDataHandler::set(const QString& key, const QVariant& value)
{
    store()->setValue(key, value);
}

void MetaDataHandler::set(int index, const QVariant& value)
{
    const std::unique_ptr<MetaDataPair> pair(createMetadataPairAtIdx(index));
    pair->setValue(value);
}

QList<QVariant> MetaDataHandler::list() const
{
    const std::unique_ptr<MetaDataStore> metadata = store();
    QList<QVariant> pairs;
    for (int index = 0; index < metadata->size(); ++index)
        pairs.append(toVariant(new MetaDataPair(target(), metadata->keyAt(index))));
    return pairs;
}

bool MetaDataHandler::contains(const QVariant& key) const
{
    const std::unique_ptr<MetaDataStore> metadata = store();
    return key.typeId() == QMetaType::QString && metadata->exists(key.toString());
}

QMap<QString, QVariant> MetaDataHandler::map() const
{
    const std::unique_ptr<MetaDataStore> metadata = store();
    QMap<QString, QVariant> values;
    for (int index = 0; index < metadata->size(); ++index) {
        const QString key = metadata->keyAt(index);
        values.insert(key, metadata->value(key));
    }
    return values;
}

void MetaDataHandler::remove(const QString& key)
{
    set(key, QVariant());
}

MetaDataPair* MetaDataHandler::createMetadataPairAtIdx(int index) const
{
    const std::unique_ptr<MetaDataStore> metadata = store();
    if (index < 0 || index >= metadata->size())
        throwIndexOutOfRange();
    return new MetaDataPair(target(), metadata->keyAt(index));
}

MetaDataPair* MetaDataHandler::newItem(const QString& key) const
{
    validate();
    return new MetaDataPair(target(), key);
}

} // namespace OMC
