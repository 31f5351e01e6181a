#pragma once

#include "core/host/em_elementinfo.h"
#include "core/host/tu_element.h"
#include "engine/elements/drawinglist.h"

#include <vector>

namespace brindle::engine {

class ElementManager;

/// The fields of an element that a person sets.
struct ElementFields {
    QString name;
    int scanType = TUElement::kColor;
    double fieldChart = 12.0;
    int pixmapFormat = 0;
    int vectorType = TUElement::kNoVector;
    int opacity = 100; ///< In percent.
    bool isDeleted = false;

    bool operator==(const ElementFields&) const = default;
};

/// Whether an element can have these, whatever others there are.
bool isAcceptable(const ElementFields& fields);

/// An element with its drawings. It belongs to the manager's database or, while it is not there, to a command.
class Element final : public TUElement, public EM_ElementInfo {
public:
    Element(ElementManager& manager, int id, const ElementFields& fields);

    const ElementFields& fields() const { return m_fields; }
    void setFields(const ElementFields& fields) { m_fields = fields; } ///< For the database, which knows the names.
    void setPhysicalName(const QString& name) { m_physicalName = name; }
    DrawingList& drawings() { return m_drawings; }
    const DrawingList& drawings() const { return m_drawings; }
    bool hasFiles() const;    ///< Whether one of its drawings has a file.
    bool isUnderEdit() const; ///< Whether a session is open on one of its drawings.

    const std::vector<EM_LayerInfo>& layers() const { return m_layers; } ///< Those with names, by their ids.
    void addLayer(const EM_LayerInfo& layer);                            ///< One whose id no other has.
    void removeLayer(EM_LayerId id);

    QString folder() const override; ///< "elements/Arm".
    QString extension() const;       ///< The ending of its files.
    /// The place of a file in the project's folder: "elements/Arm/1.png".
    QString fileName(const Drawing& drawing, EM_LayerId layer, int version) const;
    QString fileNamePart(const Drawing& drawing, EM_LayerId layer) const; ///< The same up to version and ending.

    int id() const override { return m_id; }
    QString name() const override { return m_fields.name; }
    int scanType() const override { return m_fields.scanType; }
    double fieldChart() const override { return m_fields.fieldChart; }
    int pixmapFormat() const override { return m_fields.pixmapFormat; }
    int vectorType() const override { return m_fields.vectorType; }
    QString physicalName() const override { return m_physicalName; }
    bool isDeleted() const override { return m_fields.isDeleted; }

    const Map& getMap() const override { return m_drawings.map(); }
    QStringList getAllDrawingNames() const override;
    int drawingCount() const override { return static_cast<int>(m_drawings.size()); }
    bool hasDrawingName(const QString& name) const override { return m_drawings.named(name); }
    std::vector<EM_LayerId> layerIds() const override;
    const EM_LayerInfo* findLayer(const QString& name) const override;
    const EM_LayerInfo* findLayer(EM_LayerId id) const override;
    void setDrawingType(EM_DrawingId drawing, EM_MarkType type) override;
    void setDrawingFileExists(EM_DrawingId drawing, bool exists) override;
    bool isDrawingDeleted(EM_DrawingId drawing) const override;
    bool isDrawingRenamed(EM_DrawingId drawing) const override;
    bool drawingFileExists(EM_DrawingId drawing, EM_LayerId layer) const override;
    bool isDrawingUsed(EM_DrawingId drawing) const override;

private:
    ElementManager& m_manager;
    int m_id;
    ElementFields m_fields;
    QString m_physicalName;
    std::vector<EM_LayerInfo> m_layers;
    DrawingList m_drawings;
};

} // namespace brindle::engine
