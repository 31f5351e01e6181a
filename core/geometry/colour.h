#pragma once

#include "core/frame/obj.h"

#include <QString>
#include <QVariant>

#include <memory>

class CM_Rgba;

namespace OMC {

/// A colour of four bytes: red, green, blue and alpha, each 0 to 255; opaque black at first.
///
/// A value: it leads to no engine object, is always valid, and travels inside a QVariant by copy. Hue (degrees),
/// saturation and lightness (0 to 100) are other ways to see the same bytes, so what is read after a write is near what
/// was written, not equal to it.
class BRINDLE_CORE_EXPORT Colour : public BaseObject {
    Q_OBJECT
    Q_PROPERTY(float r READ getR WRITE setR)
    Q_PROPERTY(float g READ getG WRITE setG)
    Q_PROPERTY(float b READ getB WRITE setB)
    Q_PROPERTY(float a READ getA WRITE setA)
    Q_PROPERTY(double h READ getH WRITE setH)
    Q_PROPERTY(double l READ getL WRITE setL)
    Q_PROPERTY(double s READ getS WRITE setS)
    Q_PROPERTY(QString hex READ getHex WRITE setHex)

public:
    /// Fractions are cut off and the low 8 bits count: 300 is 44, -1 is 255; in the setters too. Throw for a number
    /// that isn't finite.
    explicit Colour(float r = 0.0F, float g = 0.0F, float b = 0.0F, float a = 255.0F);
    /// What `QVariantToRGBAInt` reads, over 0, 0, 0, 0.
    explicit Colour(const QVariant& value);
    Colour(const Colour& other);
    ~Colour() override;
    Colour& operator=(const Colour& other);

    BaseObject* copy() const override;
    std::string __str__() const override;

    bool operator==(const Colour& other) const;

    /// Reads a colour: another one, a node's, a QColor, or a list of red, green, blue and, where there is a fourth,
    /// alpha; what a list doesn't tell keeps what the caller put there. Throws for anything else.
    ///
    /// Required: every text is 0, 0, 0, 0, and every single number opaque black.
    static void QVariantToRGBAInt(const QVariant& value, int& r, int& g, int& b, int& a);
    /// A new colour of a hue in degrees and of saturation, lightness and alpha from 0 to 100. Saturation and lightness
    /// are held in their range. Throws for numbers that are none, an infinite hue, and an alpha beyond all floats.
    static Obj fromHSL(double h, double s, double l, double a);

    float getR() const;
    void setR(float r);
    float getG() const;
    void setG(float g);
    float getB() const;
    void setB(float b);
    float getA() const;
    void setA(float a);
    double getH() const;
    void setH(double h); ///< Any finite number of degrees; throws for others.
    double getL() const;
    void setL(double l); ///< Held in 0 to 100; throws for what is no number.
    double getS() const;
    void setS(double s); ///< Held in 0 to 100; throws for what is no number.
    /// "#" and eight lower-case digits, alpha first.
    QString getHex() const;
    /// Any form and name that QColor knows; throws for others.
    void setHex(const QString& hex);

protected:
    CM_Rgba* getRgba() const;

private:
    struct Hsl;
    Hsl hsl() const;
    void setHsl(const Hsl& hsl);

    std::unique_ptr<CM_Rgba> m_rgba;
};

} // namespace OMC

Q_DECLARE_METATYPE(OMC::Colour)
