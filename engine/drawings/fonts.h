#pragma once

#include "core/host/gr_bezierpath.h"

#include <QString>

#include <hb.h>

#include <memory>
#include <vector>

struct _FcCharSet;

namespace brindle::engine {

/// A font of the machine, for outlines of letters in units of its em square. Fonts are loaded once in a process and
/// stay; any thread may use one.
class Font {
public:
    /// What Fontconfig matches with a name: a family, and perhaps properties behind it ("DejaVu Sans:bold"). First the
    /// best match, then those that have other letters, in the order in which it prefers them. Throws
    /// std::runtime_error where the machine has no font.
    static std::vector<const Font*> matching(const QString& name, bool withOthers);

    Font(const QString& file, int index, _FcCharSet* letters);
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;
    ~Font();

    hb_font_t* handle() const; ///< In units of the em square.
    double unitsPerEm() const;
    double ascender() const;  ///< How far lines reach above the baseline,
    double descender() const; ///< and below it: a negative number.
    double lineGap() const;
    bool has(char32_t letter) const;
    /// The closed outlines of a glyph, after a map from units of the em square.
    std::vector<GR_BezierPath2d> outlines(hb_codepoint_t glyph, const Math::Matrix2x3& map) const;

private:
    struct Handles;

    const Handles& handles() const;

    QString m_file;
    int m_index;
    _FcCharSet* m_letters;
    mutable std::unique_ptr<Handles> m_handles; ///< Once it is used.
};

} // namespace brindle::engine
