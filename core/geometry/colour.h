#pragma once

#include "core/frame/obj.h"

#include <QString>
#include <QVariant>

#include <memory>

class CM_Rgba;

namespace OMC {

/// A colour of four bytes: red, green, blue and alpha, each 0 to 255; the default is opaque black. The constructor from
/// one value copies a colour, takes a node's colour, or reads red, green, blue and alpha from a list; any text gives 0,
/// 0, 0, 0 and a single number opaque black.
///
/// A value: it leads to no engine object, is always valid, and travels inside a QVariant by copy. Hue, saturation and
/// lightness are other ways to see the same bytes, so what is read after a write is near what was written, not equal to
/// it.
class BRINDLE_CORE_EXPORT Colour : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(Colour)
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
    /// Reads every form that `QVariantToRGBAInt` takes; channels that it doesn't tell are 0.
    explicit Colour(const QVariant& value);
    Colour(const Colour& other);
    ~Colour() override;
    Colour& operator=(const Colour& other);

    std::string __str__() const override;

    bool operator==(const Colour& other) const;

    /// Reads red, green, blue and alpha of whatever Colour(value) takes; what a list doesn't tell stays as given. Fails
    /// for anything else.
    ///
    /// Required: every text is 0, 0, 0, 0 and every single number opaque black.
    static void QVariantToRGBAInt(const QVariant& value, int& r, int& g, int& b, int& a);
    /// A new colour of a hue in degrees, and of saturation, lightness and alpha from 0 to 100; saturation and lightness
    /// are held in their range. Fails for what is no number, an infinite hue, and an alpha beyond all floats.
    static Obj fromHSL(double h, double s, double l, double a);

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
