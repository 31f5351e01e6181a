#pragma once

#include "core/host/co_command.h"
#include "core/host/export.h"

#include <QString>
#include <QVariant>

#include <memory>
#include <vector>

class SC_ProjectCommon;
class SC_SceneCommon;

/// A named value that a scene carries along: notes of a production, of a tool, of a person.
class BRINDLE_HOST_EXPORT PIO_Metadata {
public:
    enum Type { kText, kBool, kInt, kDouble, kOther };

    virtual ~PIO_Metadata() = default;
    virtual QString metaName() const = 0;
    virtual Type metaType() const = 0;
    virtual QVariant value() const = 0;
    virtual QString creator() const = 0; ///< The program, or person, that wrote it.
    virtual QString version() const = 0; ///< The creator's; as free as any text.
    /// Only for an entry that no scene has yet.
    virtual void setCreator(const QString& creator) = 0;
    virtual void setVersion(const QString& version) = 0;
};

/// The metadata of a scene, in the order of their making. Several may have one name.
class BRINDLE_HOST_EXPORT PIO_Metadatas {
public:
    virtual ~PIO_Metadatas() = default;

    using Iterator = const std::unique_ptr<PIO_Metadata>*;
    virtual Iterator begin() const = 0;
    virtual Iterator end() const = 0;
    int count() const { return static_cast<int>(end() - begin()); }
    PIO_Metadata* metadata(int index) const { return begin()[index].get(); } ///< `index` below count().
    /// The indexes of those of a name, in any case of letters; ascending.
    virtual std::vector<int> indexesOf(const QString& name) const = 0;
};

class BRINDLE_HOST_EXPORT PIO_MetadataFactory {
public:
    virtual ~PIO_MetadataFactory() = default;
    static PIO_MetadataFactory* impl();

    /// Leaves a new entry of the type, in no scene, with the type's empty value and no creator and version. Null for an
    /// empty name and for a type that the engine doesn't make.
    virtual void create(PIO_Metadata::Type type, const QString& name, PIO_Metadata** metadata) const = 0;
};

/// Adds an entry, which it takes, behind the others. Fails for null and for an entry that a scene has already.
class BRINDLE_HOST_EXPORT AddSceneMetadataCmd final : public CO_EngineCommand {
public:
    AddSceneMetadataCmd(SC_SceneCommon* scene, PIO_Metadata* metadata);
};

/// Fails for an index that the scene hasn't.
class BRINDLE_HOST_EXPORT RemoveSceneMetadataCmd final : public CO_EngineCommand {
public:
    RemoveSceneMetadataCmd(SC_SceneCommon* scene, int index);
};

/// The commands that set a value. Each fails for an entry of another type; a number that isn't finite is refused.

class BRINDLE_HOST_EXPORT SetBoolValueCmd final : public CO_EngineCommand {
public:
    SetBoolValueCmd(SC_ProjectCommon* project, PIO_Metadata* metadata, bool value);
};

class BRINDLE_HOST_EXPORT SetIntValueCmd final : public CO_EngineCommand {
public:
    SetIntValueCmd(SC_ProjectCommon* project, PIO_Metadata* metadata, int value);
};

class BRINDLE_HOST_EXPORT SetDoubleValueCmd final : public CO_EngineCommand {
public:
    SetDoubleValueCmd(SC_ProjectCommon* project, PIO_Metadata* metadata, double value);
};

/// Sets the value of an entry of type kText.
class BRINDLE_HOST_EXPORT SetGenericValueCmd final : public CO_EngineCommand {
public:
    SetGenericValueCmd(SC_ProjectCommon* project, PIO_Metadata* metadata, const QString& value);
};
