#pragma once

#include "core/elements/metadatatarget.h"
#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/listqvar.h"

#include <QMap>

namespace OMC {

class MetaDataPair;

/// The metadata of a scene or a node: named texts, numbers and bools that the project carries along for whoever wrote
/// them.
///
///     handler.set("shot", "SQ010_0040");
///
/// Looking a name up always gives a pair, which tells whether it exists. Names of a scene's metadata are compared
/// without regard to case, those of a node's with. A scene's come in the order in which they were made, a node's in the
/// order of their names.
class BRINDLE_CORE_EXPORT MetaDataHandler : public FlaggedList<MetaDataView<ListQVar>, IterableQVar> {
    Q_OBJECT
    BRINDLE_COPYABLE(MetaDataHandler)

public:
    explicit MetaDataHandler(MO_Node* node);
    explicit MetaDataHandler(TUScene* scene);

    std::string __str__() const override;

    std::size_t size() const override;
    QVariant get(const QString& key) const override; ///< The pair of a name, or at an index from 0.
    QVariant get(int index) const override;
    /// Writes the value of a name, or of the pair at an index; null removes it.
    void set(const QString& key, const QVariant& value) override;
    void set(int index, const QVariant& value) override;
    QList<QVariant> list() const override;             ///< All pairs.
    bool contains(const QVariant& key) const override; ///< Whether there is an entry of that name.
    QMap<QString, QVariant> map() const;               ///< The values by their names.
    void remove(const QString& key);                   ///< Removes the entry of a name; without one it does nothing.

    /// The pair at an index from 0; the caller owns it.
    MetaDataPair* createMetadataPairAtIdx(int index) const;
    /// The same as `get`, for a caller that takes the wrapper itself.
    MetaDataPair* newItem(const QString& key) const;
    MetaDataPair* newItem(int index) const { return createMetadataPairAtIdx(index); }

private:
    void beforeIteration() const override { validate(); }
    void throwNoMoreItems() const override { throwIndexOutOfRange(); }
};

} // namespace OMC
