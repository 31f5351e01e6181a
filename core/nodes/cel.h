#pragma once

#include "core/frame/obj.h"
#include "core/host/ca_celref.h"

#include <QString>

namespace OMC {

/// A picture: pixels, or a 3D object as the file that it is.
///
/// An object counts as a holder of the engine's cel, which goes with the last one; copies share it. It leads to nothing
/// in the project, so it stays valid when the project is closed. Coordinates are pixels, x to the right and y down from
/// the top left of the picture.
class BRINDLE_CORE_EXPORT Cel : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(Cel)
    Q_PROPERTY(OMC::Obj allocated_rect READ getAllocatedRect)
    Q_PROPERTY(OMC::Obj rect READ getRect)
    Q_PROPERTY(bool cel3D READ getCel3D)

public:
    /// A holder of a cel; of none, an object that fails at its first use.
    explicit Cel(CEL_Cel* cel);
    explicit Cel(const CA_CelRef& cel);
    Cel(const Cel& other) = default;

    /// "Cel(width, height)" of the part that holds pixels, and "Cel(Unknown)" where the cel knows no such part.
    std::string __str__() const override;

    /// The size of the picture; None where there are no pixels.
    ///
    /// Required: the height is the picture's width too, so the rectangle is always a square.
    virtual Obj getRect() const;
    /// The box that holds pixels; None where there are none. Outside of it the picture is transparent.
    virtual Obj getAllocatedRect() const;
    virtual bool getCel3D() const; ///< Whether it is a 3D object.

    /// Whether red, green and blue of all pixels of two pictures of one size are equal, at 8 bits.
    ///
    /// Required: column 0, row 0 and alpha are never looked at, and something without pixels equals nothing.
    virtual bool compare(const Cel* other) const;
    /// The same for all four channels, which may differ by 1.
    virtual bool compareExr(const Cel* other) const;

    /// Converts the picture from one colour space to another, now. The names are those of Scene.colorspaces.
    virtual void convertColorSpace(const QString& from, const QString& to);

    virtual void setCel(const CA_CelRef& cel) { m_cel = cel; }
    virtual void setContext(const CEL_Context& context) { m_cel.setContext(context); }
    virtual void setEmpty(); ///< Makes it a cel without a picture.
    /// Reads the folder that a file lies in. A file that isn't there makes the cel empty.
    ///
    /// Required: the folder is read and not the file. It has a picture only for 3D objects, one to a folder ("osb");
    /// else the cel stays as it was, without an error.
    virtual void setImageFile(const QString& path);

    /// Writes the picture to a file, in the format that its ending stands for, whole or not at all; the log says why it
    /// fails. A format such as "PIXMAP_RGBA8" or "PIXMAP_RGBA16", in any case of letters, says which pixels are
    /// written; any other text leaves them as they are. What an option may be ("quality=90") depends on the format of
    /// the file. A 3D object becomes a second name of its data file; without a path, its path is given.
    virtual void write(const QString& path, const QString& format, const QString& writeOption);
    virtual void write(const QString& path); // The same without a format.
    virtual QString write();                 // The path of the data file of a 3D object; fails for any other cel.

    /// A copy as a temporary file, which goes with the process: a PNG, or the data file of a 3D object.
    virtual QString workingCopy();
    /// The same with another ending, and as `write` does it.
    virtual QString workingCopyAs(const QString& suffix, const QString& format, const QString& writeOption);

    CEL_Cel* cel() const { return m_cel.cel(); } ///< Null for none.

protected:
    void validate() const override;

private:
    bool is3D() const;
    void createImageFile2dPrivate(const QString& path, const QString& format, const QString& writeOption);
    QString createImageFile3dPrivate(const QString& path);

    CA_CelRef m_cel;
};

} // namespace OMC
