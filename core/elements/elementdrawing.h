#pragma once

#include "core/elements/elementguard.h"
#include "core/frame/obj.h"
#include "core/host/ca_celref.h"
#include "core/host/em_elementinfo.h"

#include <QString>

class TUElementMgr;

namespace OMC {

class Element;

/// A drawing of an element, in one of its layers.
///
/// An object holds numbers and finds the drawing anew at each call. It is invalid while the drawing is not in its
/// element; an undo that brings the drawing back makes it valid again.
class BRINDLE_CORE_EXPORT ElementDrawing : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(ElementDrawing)
    Q_PROPERTY(QString id READ getId WRITE setId)
    Q_PROPERTY(QString name READ getName WRITE setName)
    Q_PROPERTY(QString path READ getPath)
    Q_PROPERTY(bool deleted READ getDeleted)
    Q_PROPERTY(bool renamed READ getRenamed)
    Q_PROPERTY(bool file_exists READ getFileExists)
    Q_PROPERTY(bool used READ getUsed)
    Q_PROPERTY(OMC::Obj element READ getElement)
    Q_PROPERTY(QString type READ getDrawingType WRITE setDrawingType)
    Q_PROPERTY(double scale_factor READ getDrawingScaleFactor WRITE setDrawingScaleFactor)
    Q_PROPERTY(int version READ getDrawingVersion WRITE setDrawingVersion)
    Q_PROPERTY(QString layer_name READ getLayerName)
    Q_PROPERTY(qlonglong layer_id READ getLayerId)
    Q_PROPERTY(QVariant drawing READ getDrawing)

public:
    /// The drawing of a name, in the layer of a name or in the default one. Without such an element or drawing, an
    /// object that fails at its first use.
    ElementDrawing(int elementId, const QString& timingName, const QString& layerName);
    /// The same, for a caller that has looked it up.
    ElementDrawing(const ElementGuard& guard, int elementId, EM_DrawingId drawing)
        : m_guard(guard),
          m_elementId(elementId),
          m_drawing(drawing)
    {}

    std::string __str__() const override;

    /// The drawing's number while the project is open, as a text. Writing it lets this object show another drawing of
    /// the element.
    virtual QString getId() const;
    virtual void setId(const QString& id);
    /// The name, which cells of the exposure sheet show; they follow a new one. A name that can't be given changes
    /// nothing.
    virtual QString getName() const;
    virtual void setName(const QString& name);
    virtual QString getPath() const;    ///< The path of the file of this version, whether it is there or not.
    virtual bool getDeleted() const;    ///< Whether the element was removed, and its files were kept.
    virtual bool getRenamed() const;    ///< Whether the file gets another name with the next save.
    virtual bool getFileExists() const; ///< Whether it has a file of this version, or gets one with the next save.
    virtual bool getUsed() const;       ///< Whether a column shows it.
    virtual Obj getElement() const;     ///< The element.
    /// The same, for a caller that takes the wrapper itself.
    Element* newElement() const;
    /// "KEY", "BREAKDOWN" or "INBETWEEN"; "Unknown" for an unmarked drawing. It is written in any case of letters, and
    /// any other text takes the mark away. No undo takes that back.
    virtual QString getDrawingType() const;
    virtual void setDrawingType(const QString& type);
    virtual double getDrawingScaleFactor() const; ///< The factor by which the drawing is shown larger, above 0.
    virtual void setDrawingScaleFactor(double factor);
    /// The version that is shown, 1 to 9999. A new one begins as a copy of the present one, which stays beside it.
    virtual int getDrawingVersion() const;
    virtual void setDrawingVersion(int version);
    virtual QString getLayerName() const; ///< The name of the layer; empty for the default one.
    virtual qlonglong getLayerId() const; ///< The number of the layer; 0 for the default one.
    /// What the drawing's version shows, as a Drawing; null for one without a file, and for a picture.
    virtual QVariant getDrawing() const;
    /// The same; a drawing of an element of vector drawings that has no file gets an empty one, which no undo takes
    /// away. Null for a picture.
    virtual QVariant initialize();

    /// Copies what the drawing shows into a new drawing of the element, at version 1. An empty name stands for the
    /// number behind the highest one; `layer` is the layer that gets the copy, this one's where there is none of that
    /// name. Fails for a name that is taken.
    virtual Obj duplicate(const QString& timing, const QString& layer);

    /// Takes the picture in a file as the content of the drawing's version; it is the project's from the next save on.
    /// Fails for a file that is not in the element's format, or cut off.
    virtual void importFile(const QString& path);

    int elementId() const { return m_elementId; }
    EM_DrawingId drawingId() const { return m_drawing; }
    virtual bool operator==(const ElementDrawing& other) const; ///< Whether both show one drawing; layers don't count.

private:
    struct Checked;

    Checked checked() const;
    CA_CelKey celKey() const;
    CA_CelPtr openedCel() const;

    ElementGuard m_guard;
    int m_elementId;
    EM_DrawingId m_drawing = EM_InvalidDrawingId;
    EM_LayerId m_layer = EM_DefaultLayerId;
};

} // namespace OMC
