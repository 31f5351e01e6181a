#pragma once

#include "core/drawings/drawinglayerimplshared.h"
#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/listqvar.h"

#include <memory>
#include <utility>
#include <vector>

namespace OMC {

/// A live list of what a layer of strokes holds: `Primitive` is the wrapper, made of an `Entry` of the engine. The
/// entries are read once for each revision of the drawing.
template <typename Primitive, typename Entry>
class LayerContents : public CountedList<ListQVar, IterableQVar> {
public:
    std::size_t size() const override { return entries().size(); }
    using ListQVar::get;
    QVariant get(int index) const override { return toVariant(newItem(index)); }
    /// The same, for a caller that takes the wrapper itself.
    Primitive* newItem(int index) const
    {
        const std::vector<Entry>& all = entries();
        if (index < 0 || static_cast<std::size_t>(index) >= all.size())
            throwIndexOutOfRange();
        return new Primitive(m_layer.get(), all[static_cast<std::size_t>(index)]);
    }
    QList<QVariant> list() const override
    {
        QList<QVariant> wrapped;
        const std::vector<Entry>& all = entries();
        wrapped.reserve(static_cast<qsizetype>(all.size()));
        for (const Entry& entry : all)
            wrapped.append(toVariant(new Primitive(m_layer.get(), entry)));
        return wrapped;
    }
    /// Calls `visit(const Primitive&)` for each.
    template <typename Visit>
    void forEach(const Visit& visit) const
    {
        for (const Entry& entry : entries())
            visit(Primitive(m_layer.get(), entry));
    }

protected:
    explicit LayerContents(DrawingLayerImplShared* layer) : m_layer(layer->shared_from_this()) {}

    virtual std::vector<Entry> read(const GR_Layer& layer) const = 0;

    void validate() const override
    {
        m_layer->update();
        validateThreadLock();
    }
    void beforeIteration() const override { validate(); }

    const DrawingLayerImplShared::Pointer& layer() const { return m_layer; }
    const std::vector<Entry>& entries() const
    {
        validate();
        if (const int revision = m_layer->revision(); !m_entries || revision != m_revision) {
            m_entries = std::make_shared<const std::vector<Entry>>(read(m_layer->strokes()));
            m_revision = revision;
        }
        return *m_entries;
    }

private:
    DrawingLayerImplShared::Pointer m_layer;
    /// Copies share them.
    mutable std::shared_ptr<const std::vector<Entry>> m_entries;
    mutable int m_revision = -1;
};

} // namespace OMC
