#pragma once

#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/listqvar.h"
#include "core/host/ca_celcache.h"
#include "core/host/gr_drawing.h"

#include <QExplicitlySharedDataPointer>
#include <QVariant>

#include <set>
#include <vector>

namespace OMC {

/// One of the four art layers of a drawing, of a kind that isn't known.
///
/// A view: any number may show one art layer. It is invalid once the drawing leaves its element or the project is
/// closed.
class BRINDLE_CORE_EXPORT DrawingArtLayer : public CountedList<ListQVar, IterableQVar> {
    Q_OBJECT
    BRINDLE_COPYABLE(DrawingArtLayer)

public:
    /// Null gives one that is invalid from the start.
    DrawingArtLayer(GR_DrawingBase* drawing, const CA_DrawingLayerKey& key);

    std::string __str__() const override; ///< "DrawingArtLayer()".

    virtual bool operator==(const DrawingArtLayer* other) const; ///< Whether both show one art layer.

    /// A new wrapper of the class that fits: a DrawingVectorArtLayer for a vector drawing.
    static DrawingArtLayer* getWrapped(GR_DrawingBase* drawing, const CA_DrawingLayerKey& key);
    /// Collects the art layers in an argument, a list recursively, each once. Throws for one that is not valid.
    static void getDrawingBaseFromQVariant(const QVariant& value, std::set<GR_DrawingBase*>& seen,
                                           std::vector<GR_DrawingBase*>& drawings);

    const CA_DrawingLayerKey& getKey() const { return m_key; }
    /// The engine's art layer; throws as `validate` does.
    GR_DrawingBase& drawingBase() const;

protected:
    void validate() const override;
    void beforeIteration() const override { validate(); }

private:
    mutable QExplicitlySharedDataPointer<GR_DrawingBase> m_drawing;
    CA_DrawingLayerKey m_key;
};

} // namespace OMC
