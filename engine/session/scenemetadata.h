#pragma once

#include "core/host/pio_metadata.h"

#include <QMultiHash>
#include <QString>

#include <cstdint>
#include <memory>
#include <variant>
#include <vector>

class TUSceneChangeManager;

namespace brindle::engine {

class JsonPlace;
class JsonWriter;
class MetadataList;

/// An entry of the open engine. Its type is that of its value and never changes.
class Metadata final : public PIO_Metadata {
public:
    using Value = std::variant<QString, bool, int, double>; ///< In the order of PIO_Metadata::Type.

    Metadata(const QString& name, Value value) : m_name(name), m_value(std::move(value)) {}

    QString metaName() const override { return m_name; }
    Type metaType() const override { return static_cast<Type>(m_value.index()); }
    QVariant value() const override;
    QString creator() const override { return m_creator; }
    QString version() const override { return m_version; }
    void setCreator(const QString& creator) override { m_creator = creator; }
    void setVersion(const QString& version) override { m_version = version; }

    const Value& content() const { return m_value; }
    /// Exchanges the value for one of its type.
    void swapContent(Value& value);
    bool isInList() const { return m_list != nullptr; }

private:
    friend class MetadataList;

    QString m_name;
    Value m_value;
    QString m_creator;
    QString m_version;
    const MetadataList* m_list = nullptr;
    std::int64_t m_order = 0; ///< Ascends along the list; kept by an entry that is out of it.
};

/// The metadata of a scene, which they belong to: in order, and found by name without a walk.
///
/// An entry that was taken out comes back to no other place than the one where it was, as undo does it.
class MetadataList final : public PIO_Metadatas {
public:
    explicit MetadataList(TUSceneChangeManager& changes) : m_changes(changes) {}

    Iterator begin() const override { return m_entries.data(); }
    Iterator end() const override { return m_entries.data() + m_entries.size(); }

    std::vector<int> indexesOf(const QString& name) const override;

    void append(std::unique_ptr<PIO_Metadata> metadata);
    void prepend(std::unique_ptr<PIO_Metadata> metadata);
    void putBack(int index, std::unique_ptr<PIO_Metadata> metadata);
    std::unique_ptr<PIO_Metadata> take(int index);
    void tellChanged() const;

    /// The entries in the file of the scene: a list of objects with name, type ("TEXT", "BOOL", "INT" or "DOUBLE") and
    /// value, and with creator and version where they aren't empty.
    void write(JsonWriter& json) const;
    void read(const JsonPlace& place);

private:
    static std::int64_t orderOf(const std::unique_ptr<PIO_Metadata>& entry);
    int indexOf(const Metadata& entry) const;

    TUSceneChangeManager& m_changes;
    std::vector<std::unique_ptr<PIO_Metadata>> m_entries;
    QMultiHash<QString, const Metadata*> m_byName; ///< By their names in folded letters.
};

} // namespace brindle::engine
