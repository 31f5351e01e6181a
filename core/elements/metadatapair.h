#pragma once

#include "core/elements/metadatatarget.h"

namespace OMC {

/// A named value of the metadata of a scene or a node, whether or not it exists: the first value that is written makes
/// it.
///
/// A scene tells names apart without regard to case, a node with. On a scene several entries may have one name; such a
/// pair is of type "MULTIPLE", gives all values in a list and can't be written. Invalid once its owner is gone.
class BRINDLE_CORE_EXPORT MetaDataPair : public MetaDataView<BaseObject> {
    Q_OBJECT
    BRINDLE_COPYABLE(MetaDataPair)
    Q_PROPERTY(QString key READ getKey)
    Q_PROPERTY(QString type READ getType)
    Q_PROPERTY(QVariant value READ getValue WRITE setValue)
    Q_PROPERTY(QString version READ getVersion WRITE setVersion)
    Q_PROPERTY(QString creator READ getCreator WRITE setCreator)
    Q_PROPERTY(bool exists READ getExists)

public:
    MetaDataPair(MO_Node* node, const QString& key);
    MetaDataPair(TUScene* scene, const QString& key);
    MetaDataPair(const MetaDataTarget& target, const QString& key);

    std::string __str__() const override;

    virtual QString getKey() const; ///< The name.
    /// The kind of value: "TEXT", "BOOL" or "DOUBLE" (any number), "NULL" without one, "MULTIPLE" where a scene has
    /// several entries of the name, "UNSUPPORTED" for any other kind.
    virtual QString getType() const;
    /// The value, or null without one. A text, a number or a bool is taken as it is, and replaces a value of another
    /// kind; null removes the entry, and so does what is none of these.
    virtual QVariant getValue() const;
    virtual void setValue(const QVariant& value);
    virtual QString getVersion() const; ///< The version that the creator gave the value; for a scene's metadata only.
    virtual void setVersion(const QString& version);
    virtual QString getCreator() const; ///< The writer of the value, as a rule a program; for a scene's metadata only.
    virtual void setCreator(const QString& creator);
    virtual bool getExists() const; ///< Whether there is such an entry.

private:
    QString m_key;
};

} // namespace OMC
