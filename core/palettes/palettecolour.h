#pragma once

#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/geometry/colour.h"
#include "core/palettes/palettebasecolour.h"

namespace OMC {

/// A solid colour, or a gradient: the list of its colours at their places, at most eight, in the order of the places. A
/// change needs no lock of the palette; while another process holds it, the change is refused.
///
/// Channels, hue, saturation and lightness are those of Colour and belong to a solid colour; on a gradient they fail.
class BRINDLE_CORE_EXPORT PaletteColour : public CountedList<PaletteBaseColour, IterableObj> {
    Q_OBJECT
    BRINDLE_COPYABLE(PaletteColour)
    Q_PROPERTY(float r READ getR WRITE setR)
    Q_PROPERTY(float g READ getG WRITE setG)
    Q_PROPERTY(float b READ getB WRITE setB)
    Q_PROPERTY(float a READ getA WRITE setA)
    Q_PROPERTY(double h READ getH WRITE setH)
    Q_PROPERTY(double l READ getL WRITE setL)
    Q_PROPERTY(double s READ getS WRITE setS)
    Q_PROPERTY(QString hex READ getHex WRITE setHex)
    Q_PROPERTY(QVariant colour READ getColour WRITE setColour)
    Q_PROPERTY(QString type READ getType WRITE setType)

public:
    PaletteColour(std::shared_ptr<CM_BaseColorObj> colour, const UT_Id& palette, SC_ProjectCommon* project);

    std::string __str__() const override;

    void setName(const QString& name) override;

    float getR() const; ///< Red, 0 to 255; beyond that the low 8 bits count.
    void setR(float r);
    float getG() const; ///< Green, 0 to 255; beyond that the low 8 bits count.
    void setG(float g);
    float getB() const; ///< Blue, 0 to 255; beyond that the low 8 bits count.
    void setB(float b);
    float getA() const; ///< Alpha, 0 to 255; beyond that the low 8 bits count. 255 is opaque.
    void setA(float a);
    double getH() const; ///< The hue in degrees, from 0; it takes any number of turns and fails for what isn't finite.
    void setH(double h);
    double getL() const; ///< The lightness, held in 0 to 100; fails for what is no number.
    void setL(double l);
    double getS() const; ///< The saturation, held in 0 to 100; fails for what is no number.
    void setS(double s);
    /// "#" and eight lower-case digits, alpha first; it takes any name and form that QColor knows and fails for others.
    QString getHex() const;
    void setHex(const QString& hex);
    QVariant getColour() const; ///< The solid colour, as a Colour; it takes whatever Colour(value) takes.
    void setColour(const QVariant& value);

    /// "solid_colour", "linear_gradient" or "radial_gradient"; it also takes "solid", "linear" and "radial", in any
    /// case of letters. A gradient that becomes solid keeps its first colour; a solid colour that becomes a gradient
    /// runs into full transparency.
    QString getType() const;
    void setType(const QString& type);
    /// The number of a type, or -1 for a text that names none.
    static int getColourTypeFromString(const QString& text);
    static QString getStringFromColourType(int type); ///< The text of a type's number; empty for another number.

    std::size_t size() const override; ///< The number of colours at places.
    /// The colour at an index, from 0 in the order of the places; a negative one counts from the end. A text is read as
    /// an index; one that is none gives null.
    Obj get(int index) const override;
    Obj get(const QString& index) const override;
    std::vector<Obj> list() const override; ///< All colours with their places.
    /// Puts a colour at a place instead of the one at an index.
    void set(int index, const Obj& colour) override;
    /// Whether a colour is at its place; of another form than a PaletteGradientPosition, it is looked for at 0.
    bool contains(const QVariant& value) const;

    /// Adds a colour to a gradient, which may have eight, at a place in percent, held in 0 to 100. Without a place it
    /// comes to 0, or to that of a PaletteGradientPosition. Fails for a place that is taken. Gives what was added.
    Obj add(const QVariant& colour, const QVariant& position = {});
    Obj pop(int index); ///< Removes the colour at an index, and gives it.
    /// Removes the first colour that equals a PaletteGradientPosition in colour and place, or any other form in colour.
    void remove(const QVariant& colour);
    void clear(); ///< Removes all colours: what is left is drawn in opaque black.

    /// The colour at a place in percent, as the gradient mixes it.
    Obj interpolate(float position) const;

    void validateSingleColour() const; ///< Throws on a gradient.

private:
    void beforeIteration() const override { colorData(); }
    std::size_t markerIndex(const CM_Color& colour, int index) const;
    template <typename Change>
    void edit(const QString& label, const Change& change);
    template <typename Value>
    void setChannel(void (Colour::*set)(Value), Value value);
    void setSingle(const CM_Rgba& rgba, const QString& label);
    Colour single() const;
};

} // namespace OMC
