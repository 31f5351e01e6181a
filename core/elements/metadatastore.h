#pragma once

#include <QString>
#include <QVariant>

#include <memory>

class MO_Node;
class TUScene;

namespace OMC {

/// The metadata of one owner, behind which the two kinds of owners keep them in different ways. It is made for one
/// call, and its owner is there.
class MetaDataStore {
public:
    static std::unique_ptr<MetaDataStore> of(TUScene& scene);
    static std::unique_ptr<MetaDataStore> of(MO_Node& node);
    virtual ~MetaDataStore() = default;

    virtual QString owner() const = 0; ///< "Scene, Scene-1".
    virtual int size() const = 0;
    virtual QString keyAt(int index) const = 0; ///< `index` from 0, below size().

    virtual bool exists(const QString& key) const = 0;
    virtual QString type(const QString& key) const = 0;
    virtual QVariant value(const QString& key) const = 0; ///< Invalid where there is none.
    virtual QString creator(const QString& key) const = 0;
    virtual QString version(const QString& key) const = 0;

    /// Each is one undo entry; an invalid value removes what is there.
    virtual void setValue(const QString& key, const QVariant& value) = 0;
    virtual void setCreator(const QString& key, const QString& creator) = 0;
    virtual void setVersion(const QString& key, const QString& version) = 0;
};

} // namespace OMC
