#pragma once

#include "core/host/cm_rgba.h"
#include "core/host/export.h"
#include "core/host/ut_id.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

class CM_Color;
class CM_Texture;

/// An entry of a palette: a colour or a texture, with a name and an identity. What a drawing is painted with is the
/// identity, so the entry may change its look and its palette.
class BRINDLE_HOST_EXPORT CM_BaseColorObj {
public:
    enum Kind { kColour = 0, kTexture = 1 };

    virtual ~CM_BaseColorObj() = default;

    virtual Kind GetKind() const = 0;
    /// An equal entry that shares nothing with this one, under the same identity or a new one.
    virtual std::shared_ptr<CM_BaseColorObj> Clone(bool newId) const = 0;

    UT_Id GetID() const { return m_id; }
    const QString& GetColorName() const { return m_name; }
    void Rename(const QString& name);
    static quint64 RenameCount(); ///< How often any entry was renamed, for who remembers names.

protected:
    CM_BaseColorObj(const UT_Id& id, const QString& name) : m_id(id), m_name(name) {}
    CM_BaseColorObj(const CM_BaseColorObj&) = default;
    CM_BaseColorObj& operator=(const CM_BaseColorObj&) = default;

    UT_Id m_id;

private:
    QString m_name;
};

/// The entry as a colour or as a texture; null when it is the other.
BRINDLE_HOST_EXPORT std::shared_ptr<CM_Color> CM_CastToColor(const std::shared_ptr<CM_BaseColorObj>& entry);
BRINDLE_HOST_EXPORT std::shared_ptr<CM_Texture> CM_CastToTexture(const std::shared_ptr<CM_BaseColorObj>& entry);

/// A marker of a gradient.
struct CM_GradientData {
    double position = 0; ///< From 0, the start or the centre, to 1, the end or the rim.
    CM_Rgba rgba{0, 0, 0, 255};
};

/// The markers in the order of their positions; those of equal positions as they were added.
using CM_GradientDataCol = std::vector<CM_GradientData>;

/// A solid colour, which has one marker, or a gradient between markers.
///
/// Between two markers each of the four channels changes linearly with the position, in 8-bit sRGB values with alpha
/// not multiplied in, as in SVG 1.1 (section 13.2, color-interpolation sRGB); before the first and behind the last
/// marker the colour is theirs.
class BRINDLE_HOST_EXPORT CM_Color final : public CM_BaseColorObj {
public:
    enum Type { kSolid = 0, kLinearGradient = 1, kRadialGradient = 2 };

    CM_Color(Type type, const QString& name);                  ///< Without markers, under a new identity.
    CM_Color(Type type, const QString& name, const UT_Id& id); ///< As it is read.

    Kind GetKind() const override { return kColour; }
    std::shared_ptr<CM_BaseColorObj> Clone(bool newId) const override;

    Type GetColorType() const { return m_type; }
    /// A gradient that becomes solid keeps its first marker. A solid colour that becomes a gradient gets a second
    /// marker at the end: the same colour, fully transparent.
    void ChangeColorType(Type type);

    int Size() const { return static_cast<int>(m_markers.size()); } ///< The number of markers.
    const CM_GradientDataCol& gradientDataCol() const { return m_markers; }
    void setGradientDataCol(const CM_GradientDataCol& markers); ///< Any order; it is sorted here.
    CM_GradientData GetColorMarker(int index) const;            ///< `index` below Size().
    int AddColorMarker(const CM_GradientData& marker);          ///< Gives its index.
    void RemoveColorMarker(int index);
    CM_Rgba GetGradientColor(double position) const; ///< Black and opaque without markers.

    /// Takes type and markers of another colour; identity and name stay.
    void ModifyColor(const CM_Color& other);

private:
    Type m_type;
    CM_GradientDataCol m_markers;
};

/// A bitmap of 8-bit RGBA pixels, kept as the PNG file that it came from.
class BRINDLE_HOST_EXPORT BM_Bitmap {
public:
    static constexpr int largestSide = 16384; ///< In pixels.

    /// The bitmap in an image file (PNG, JPEG, BMP, ...), or null when it can't be read or is too large. A PNG keeps
    /// its bytes; any other image becomes one.
    static std::shared_ptr<const BM_Bitmap> FromFile(const QString& path);
    static std::shared_ptr<const BM_Bitmap> FromPng(const QByteArray& png); ///< Null when it is none.

    unsigned int GetWidth() const { return m_width; } ///< In pixels.
    unsigned int GetHeight() const { return m_height; }
    const QByteArray& Png() const { return m_png; }
    /// The same picture at another size, filtered smoothly; null for a side of 0 or beyond `largestSide`.
    std::shared_ptr<const BM_Bitmap> Scaled(unsigned int width, unsigned int height) const;

private:
    BM_Bitmap(const QByteArray& png, unsigned int width, unsigned int height)
        : m_png(png),
          m_width(width),
          m_height(height)
    {}

    QByteArray m_png;
    unsigned int m_width;
    unsigned int m_height;
};

/// A bitmap that paints as a colour does.
class BRINDLE_HOST_EXPORT CM_Texture final : public CM_BaseColorObj {
public:
    /// Reads an image file, under a new identity. GetBitmap() is null when the file can't be read.
    CM_Texture(const QString& name, const QString& path, bool tile);
    CM_Texture(const QString& name, const UT_Id& id, std::shared_ptr<const BM_Bitmap> bitmap, bool tile);

    Kind GetKind() const override { return kTexture; }
    std::shared_ptr<CM_BaseColorObj> Clone(bool newId) const override;

    bool IsTile() const { return m_tile; } ///< Whether it repeats beyond its borders.
    void SetTiling(bool tile) { m_tile = tile; }
    /// The picture. Null when its file is gone: the entry stays and paints nothing.
    const std::shared_ptr<const BM_Bitmap>& GetBitmap() const { return m_bitmap; }
    void ChangeTexture(std::shared_ptr<const BM_Bitmap> bitmap) { m_bitmap = std::move(bitmap); }
    bool ChangeTexture(const QString& path); ///< False, and nothing changed, when the file can't be read.

    /// Takes picture and tiling of another texture; identity and name stay.
    void ModifyTexture(const CM_Texture& other);

private:
    std::shared_ptr<const BM_Bitmap> m_bitmap;
    bool m_tile;
};
