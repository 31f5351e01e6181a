#include "engine/drawings/fonts.h"

#include <fontconfig/fontconfig.h>

#include <QFile>

#include <map>
#include <mutex>
#include <stdexcept>

namespace brindle::engine {

namespace {

template <auto Destroy>
struct Destroyed {
    template <typename Handle>
    void operator()(Handle* handle) const
    {
        Destroy(handle);
    }
};
using Pattern = std::unique_ptr<FcPattern, Destroyed<FcPatternDestroy>>;
using FontSet = std::unique_ptr<FcFontSet, Destroyed<FcFontSetDestroy>>;

/// The fonts that were asked for, by file and index. They stay until the process ends.
struct Loaded {
    std::mutex mutex;
    std::map<std::pair<QString, int>, std::unique_ptr<Font>> fonts;
};

Loaded& loaded()
{
    static Loaded fonts;
    return fonts;
}

/// A font with outlines; a name with a colon has properties, and a name without one is a family whatever is in it.
Pattern patternOf(const QString& name)
{
    const QByteArray text = name.toUtf8();
    const auto* bytes = reinterpret_cast<const FcChar8*>(text.constData());
    Pattern pattern(name.contains(u':') ? FcNameParse(bytes) : nullptr);
    if (!pattern) {
        pattern.reset(FcPatternCreate());
        FcPatternAddString(pattern.get(), FC_FAMILY, bytes);
    }
    FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
    FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    return pattern;
}

/// Null for a pattern that names no file.
const Font* fontOf(const FcPattern* pattern)
{
    FcChar8* file = nullptr;
    int index = 0;
    FcCharSet* letters = nullptr;
    if (FcPatternGetString(pattern, FC_FILE, 0, &file) != FcResultMatch)
        return nullptr;
    FcPatternGetInteger(pattern, FC_INDEX, 0, &index);
    FcPatternGetCharSet(pattern, FC_CHARSET, 0, &letters);
    const QString path = QFile::decodeName(reinterpret_cast<const char*>(file));
    std::unique_ptr<Font>& font = loaded().fonts[{path, index}];
    if (!font)
        font = std::make_unique<Font>(path, index, letters);
    return font.get();
}

/// Collects the contours of a glyph.
struct Pen {
    const Math::Matrix2x3& map;
    std::vector<GR_BezierPath2d> paths;

    void add(float x, float y, bool onCurve) { paths.back().Append(map * Math::Point2d{x, y}, onCurve); }
};

hb_draw_funcs_t* drawFunctions()
{
    static hb_draw_funcs_t* functions = [] {
        hb_draw_funcs_t* made = hb_draw_funcs_create();
        hb_draw_funcs_set_move_to_func(
            made,
            [](hb_draw_funcs_t*, void* pen, hb_draw_state_t*, float x, float y, void*) {
                static_cast<Pen*>(pen)->paths.emplace_back();
                static_cast<Pen*>(pen)->add(x, y, true);
            },
            nullptr, nullptr);
        hb_draw_funcs_set_line_to_func(
            made,
            [](hb_draw_funcs_t*, void* pen, hb_draw_state_t*, float x, float y, void*) {
                static_cast<Pen*>(pen)->add(x, y, true);
            },
            nullptr, nullptr);
        hb_draw_funcs_set_quadratic_to_func(
            made,
            [](hb_draw_funcs_t*, void* pen, hb_draw_state_t*, float cx, float cy, float x, float y, void*) {
                static_cast<Pen*>(pen)->add(cx, cy, false);
                static_cast<Pen*>(pen)->add(x, y, true);
            },
            nullptr, nullptr);
        hb_draw_funcs_set_cubic_to_func(
            made,
            [](hb_draw_funcs_t*, void* pen, hb_draw_state_t*, float ax, float ay, float bx, float by, float x, float y,
               void*) {
                static_cast<Pen*>(pen)->add(ax, ay, false);
                static_cast<Pen*>(pen)->add(bx, by, false);
                static_cast<Pen*>(pen)->add(x, y, true);
            },
            nullptr, nullptr);
        hb_draw_funcs_set_close_path_func(
            made,
            [](hb_draw_funcs_t*, void* pen, hb_draw_state_t*, void*) {
                static_cast<Pen*>(pen)->paths.back().ClosePath();
            },
            nullptr, nullptr);
        hb_draw_funcs_make_immutable(made);
        return made;
    }();
    return functions;
}

} // namespace

struct Font::Handles {
    explicit Handles(const QString& file, int index)
    {
        hb_blob_t* blob = hb_blob_create_from_file(QFile::encodeName(file).constData());
        hb_face_t* face = hb_face_create(blob, static_cast<unsigned int>(index));
        font = hb_font_create(face);
        hb_font_make_immutable(font);
        hb_face_destroy(face);
        hb_blob_destroy(blob);
    }
    Handles(const Handles&) = delete;
    Handles& operator=(const Handles&) = delete;
    ~Handles() { hb_font_destroy(font); }

    hb_font_extents_t extents() const
    {
        hb_font_extents_t found{};
        hb_font_get_h_extents(font, &found);
        return found;
    }

    hb_font_t* font;
};

std::vector<const Font*> Font::matching(const QString& name, bool withOthers)
{
    const std::lock_guard lock(loaded().mutex);
    const Pattern pattern = patternOf(name);
    std::vector<const Font*> fonts;
    FcResult result = FcResultNoMatch;
    if (withOthers) {
        const FontSet sorted(FcFontSort(nullptr, pattern.get(), FcTrue, nullptr, &result));
        for (int index = 0; sorted && index < sorted->nfont; ++index) {
            if (const Font* font = fontOf(sorted->fonts[index]))
                fonts.push_back(font);
        }
    } else if (const Pattern match{FcFontMatch(nullptr, pattern.get(), &result)}) {
        if (const Font* font = fontOf(match.get()))
            fonts.push_back(font);
    }
    if (fonts.empty())
        throw std::runtime_error("No font can be found for a text: the machine has none.");
    return fonts;
}

Font::Font(const QString& file, int index, FcCharSet* letters)
    : m_file(file),
      m_index(index),
      m_letters(letters ? FcCharSetCopy(letters) : FcCharSetCreate())
{}

Font::~Font()
{
    FcCharSetDestroy(m_letters);
}

const Font::Handles& Font::handles() const
{
    const std::lock_guard lock(loaded().mutex);
    if (!m_handles)
        m_handles = std::make_unique<Handles>(m_file, m_index);
    return *m_handles;
}

hb_font_t* Font::handle() const
{
    return handles().font;
}

double Font::unitsPerEm() const
{
    return hb_face_get_upem(hb_font_get_face(handle()));
}

double Font::ascender() const
{
    return handles().extents().ascender;
}

double Font::descender() const
{
    return handles().extents().descender;
}

double Font::lineGap() const
{
    return handles().extents().line_gap;
}

bool Font::has(char32_t letter) const
{
    return FcCharSetHasChar(m_letters, letter);
}

std::vector<GR_BezierPath2d> Font::outlines(hb_codepoint_t glyph, const Math::Matrix2x3& map) const
{
    Pen pen{map, {}};
    hb_font_get_glyph_shape(handle(), glyph, drawFunctions(), &pen);
    return std::move(pen.paths);
}

} // namespace brindle::engine
