#include "engine/drawings/textlayout.h"

#include "engine/drawings/fonts.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace brindle::engine {

namespace {

/// A glyph of a line, with lengths in units of the drawing.
struct Glyph {
    const Font* font;
    hb_codepoint_t index;
    qsizetype place; ///< Of its first character in the line.
    double advance;
    Math::Vector2d offset;
};

struct Line {
    QString text;
    bool isFirst;  ///< Of the whole text.
    bool isBroken; ///< It ends because it is full.
};

bool isLineEnd(QChar character)
{
    return character == u'\n' || character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
}

QStringList linesOf(const QString& text)
{
    QString unified = text;
    unified.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
    QStringList lines{QString()};
    for (const QChar character : unified) {
        if (isLineEnd(character))
            lines.append(QString());
        else
            lines.back().append(character);
    }
    return lines;
}

QString withoutTrailingSpaces(QString line)
{
    while (!line.isEmpty() && line.back().isSpace())
        line.chop(1);
    return line;
}

/// Turns characters into glyphs.
class Shaper {
public:
    explicit Shaper(const GR_TextLayer::Data& text)
        : m_font(Font::matching(text.font, false).front()),
          m_name(text.font),
          m_size(text.size)
    {}

    const Font& font() const { return *m_font; }
    double scaleOf(const Font& font) const { return m_size / font.unitsPerEm(); }

    std::vector<Glyph> shaped(const QString& line)
    {
        std::vector<Glyph> glyphs;
        for (qsizetype start = 0; start < line.size();) {
            const Run run = runAt(line, start);
            shape(line, run, glyphs);
            start = run.end;
        }
        return glyphs;
    }

private:
    struct Run {
        qsizetype start;
        qsizetype end;
        const Font* font;
        hb_script_t script;
    };
    struct Letter {
        char32_t code;
        qsizetype size;
    };

    static Letter letterAt(const QString& line, qsizetype place)
    {
        const QChar first = line.at(place);
        if (first.isHighSurrogate() && place + 1 < line.size() && line.at(place + 1).isLowSurrogate())
            return {QChar::surrogateToUcs4(first, line.at(place + 1)), 2};
        return {first.unicode(), 1};
    }

    /// As far as one font has all letters, and as they are of one script. Marks and signs of all scripts go along.
    Run runAt(const QString& line, qsizetype start)
    {
        Run run{start, start, nullptr, HB_SCRIPT_COMMON};
        while (run.end < line.size()) {
            const Letter letter = letterAt(line, run.end);
            const hb_script_t script = hb_unicode_script(hb_unicode_funcs_get_default(), letter.code);
            const bool isShared = script == HB_SCRIPT_COMMON || script == HB_SCRIPT_INHERITED;
            const Font* font = isShared && run.font && run.font->has(letter.code) ? run.font : fontFor(letter.code);
            const bool isOther = !isShared && run.script != HB_SCRIPT_COMMON && script != run.script;
            if (run.font && (font != run.font || isOther))
                break;
            run.font = font;
            if (!isShared)
                run.script = script;
            run.end += letter.size;
        }
        return run;
    }

    const Font* fontFor(char32_t letter)
    {
        if (m_font->has(letter) || !QChar::isPrint(letter))
            return m_font;
        if (m_others.empty())
            m_others = Font::matching(m_name, true);
        const auto found =
            std::find_if(m_others.begin(), m_others.end(), [letter](const Font* font) { return font->has(letter); });
        return found == m_others.end() ? m_font : *found;
    }

    void shape(const QString& line, const Run& run, std::vector<Glyph>& glyphs) const
    {
        const std::unique_ptr<hb_buffer_t, void (*)(hb_buffer_t*)> buffer(hb_buffer_create(), hb_buffer_destroy);
        hb_buffer_add_utf16(buffer.get(), reinterpret_cast<const uint16_t*>(line.utf16()),
                            static_cast<int>(line.size()), static_cast<unsigned int>(run.start),
                            static_cast<int>(run.end - run.start));
        if (run.script != HB_SCRIPT_COMMON)
            hb_buffer_set_script(buffer.get(), run.script);
        hb_buffer_guess_segment_properties(buffer.get());
        hb_shape(run.font->handle(), buffer.get(), nullptr, 0);
        unsigned int count = 0;
        const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer.get(), &count);
        const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(buffer.get(), &count);
        const double scale = scaleOf(*run.font);
        for (unsigned int index = 0; index < count; ++index) {
            const hb_glyph_position_t& position = positions[index];
            glyphs.push_back({run.font,
                              infos[index].codepoint,
                              static_cast<qsizetype>(infos[index].cluster),
                              position.x_advance * scale,
                              {position.x_offset * scale, position.y_offset * scale}});
        }
    }

    const Font* m_font;
    QString m_name;
    double m_size;
    std::vector<const Font*> m_others; ///< Once a letter was missing.
};

double widthOf(const std::vector<Glyph>& glyphs)
{
    double width = 0;
    for (const Glyph& glyph : glyphs)
        width += glyph.advance;
    return width;
}

/// Divides a line of the text where it doesn't fit in.
class LineBreaker {
public:
    LineBreaker(const GR_TextLayer::Data& text, Shaper& shaper) : m_text(text), m_shaper(shaper) {}

    void addTo(std::vector<Line>& lines, const QString& line)
    {
        QString rest = line;
        while (m_text.width > 0) {
            const double room =
                m_text.width - m_text.marginLeft - m_text.marginRight - (lines.empty() ? m_text.indent : 0);
            const qsizetype end = breakIn(rest, room);
            if (end >= rest.size())
                break;
            lines.push_back({withoutTrailingSpaces(rest.first(end)), lines.empty(), true});
            rest = rest.sliced(end);
        }
        lines.push_back({rest, lines.empty(), false});
    }

private:
    /// The place behind the last part that fits, at least the first one; the line's end where all of it does.
    qsizetype breakIn(const QString& line, double room)
    {
        // How far the line reaches up to each character, in the order of the text.
        std::vector<double> reach(static_cast<std::size_t>(line.size()) + 1, 0.0);
        for (const Glyph& glyph : m_shaper.shaped(line))
            reach[static_cast<std::size_t>(glyph.place) + 1] += glyph.advance;
        for (std::size_t place = 1; place < reach.size(); ++place)
            reach[place] += reach[place - 1];

        QTextBoundaryFinder finder(QTextBoundaryFinder::Line, line);
        qsizetype fitting = 0;
        for (qsizetype next = finder.toNextBoundary(); next > 0; next = finder.toNextBoundary()) {
            qsizetype visibleEnd = next;
            while (visibleEnd > 0 && line.at(visibleEnd - 1).isSpace())
                --visibleEnd;
            if (fitting > 0 && reach[static_cast<std::size_t>(visibleEnd)] > room)
                return fitting;
            fitting = next;
        }
        return line.size();
    }

    const GR_TextLayer::Data& m_text;
    Shaper& m_shaper;
};

Math::Box2d boxOf(const Math::Box2d& box, const Math::Matrix2x3& matrix)
{
    Math::Box2d mapped;
    if (box.isEmpty())
        return mapped;
    for (const Math::Point2d& corner : {box.min(), box.max(), {box.minX(), box.maxY()}, {box.maxX(), box.minY()}})
        mapped.AddClosed(matrix * corner);
    return mapped;
}

} // namespace

Math::Box2d TextLayout::box() const
{
    return boxOf(plainBox(), m_text.matrix);
}

Math::Box2d TextLayout::outlineBox() const
{
    Math::Box2d box;
    for (const GR_BezierPath2d& path : laidOut().outlines)
        box.AddClosed(path.GetBox());
    return box;
}

const TextLayout::Result& TextLayout::laidOut() const
{
    if (m_result)
        return *m_result;
    auto result = std::make_unique<Result>();
    if (m_text.text.isEmpty()) {
        m_result = std::move(result);
        return *m_result;
    }
    Shaper shaper(m_text);
    std::vector<Line> lines;
    LineBreaker breaker(m_text, shaper);
    for (const QString& line : linesOf(m_text.text))
        breaker.addTo(lines, line);

    std::vector<std::vector<Glyph>> shaped;
    double widest = 0;
    const auto beginOf = [this](const Line& line) { return m_text.marginLeft + (line.isFirst ? m_text.indent : 0); };
    for (const Line& line : lines) {
        shaped.push_back(shaper.shaped(line.text));
        widest = std::max(widest, beginOf(line) + widthOf(shaped.back()) + m_text.marginRight);
    }
    const double paragraph = m_text.fixedWidth > 0 ? m_text.fixedWidth : widest;
    const double justified = m_text.fixedWidth > 0 ? m_text.fixedWidth : m_text.width;

    const Font& font = shaper.font();
    const double scale = shaper.scaleOf(font);
    const double above = font.ascender() * scale;
    const double below = font.descender() * scale;
    const double height = above - below + font.lineGap() * scale + m_text.lineSpace;
    double baseline = 0;
    for (std::size_t number = 0; number < lines.size(); ++number, baseline -= height) {
        const Line& line = lines[number];
        const double width = widthOf(shaped[number]);
        const double begin = beginOf(line);
        double x = begin;
        double stretch = 0; // Of each space.
        const auto spaces = static_cast<double>(line.text.count(u' '));
        if (m_text.alignment == GR_TextLayer::kRight)
            x = paragraph - m_text.marginRight - width;
        else if (m_text.alignment == GR_TextLayer::kCenter)
            x = (begin + paragraph - m_text.marginRight - width) / 2;
        else if (m_text.alignment == GR_TextLayer::kJustify && line.isBroken && spaces > 0 && justified > 0)
            stretch = std::max(0.0, justified - m_text.marginRight - begin - width) / spaces;

        const double left = x;
        for (const Glyph& glyph : shaped[number]) {
            const double glyphScale = shaper.scaleOf(*glyph.font);
            const Math::Matrix2x3 map =
                m_text.matrix *
                Math::Matrix2x3({glyphScale, 0}, {0, glyphScale}, {x + glyph.offset.x, baseline + glyph.offset.y});
            for (GR_BezierPath2d& path : glyph.font->outlines(glyph.index, map)) {
                if (path.GetNumBezier() > 0)
                    result->outlines.push_back(std::move(path));
            }
            x += glyph.advance + (line.text.at(glyph.place) == u' ' ? stretch : 0);
        }
        result->box.AddClosed(Math::Box2d({left, baseline + below}, {x, baseline + above}));
        if (m_text.fixedWidth > 0)
            result->box.AddClosed(Math::Box2d({0, baseline + below}, {paragraph, baseline + above}));
    }
    m_result = std::move(result);
    return *m_result;
}

} // namespace brindle::engine
