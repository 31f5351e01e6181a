#include "core/elements/elementfields.h"

#include "core/elements/element.h"
#include "core/host/tu_element.h"
#include "core/host/tu_pixmapformat.h"

#include <algorithm>
#include <iterator>

namespace OMC::elementfields {

namespace {

/// A text and the engine's number for it.
struct Row {
    const char* text;
    int number;
};

constexpr Row scanTypes[] = {
    {"COLOR", TUElement::kColor}, {"GRAY_SCALE", TUElement::kGrayScale}, {"BW", TUElement::kBlackAndWhite}};
constexpr Row vectorTypes[] = {{"PNT", TUElement::kPnt}, {"BVG", TUElement::kBvg}};

template <std::size_t Size>
const Row* rowOf(const Row (&rows)[Size], const QString& text)
{
    const Row* row = std::find_if(std::begin(rows), std::end(rows),
                                  [&text](const Row& each) { return text == QLatin1String(each.text); });
    return row == std::end(rows) ? nullptr : row;
}

template <std::size_t Size>
QString textOf(const Row (&rows)[Size], int number, const char* otherwise)
{
    const Row* row =
        std::find_if(std::begin(rows), std::end(rows), [number](const Row& each) { return each.number == number; });
    return QLatin1String(row == std::end(rows) ? otherwise : row->text);
}

} // namespace

std::optional<int> scanType(const QString& text)
{
    const Row* row = rowOf(scanTypes, text.toUpper());
    return row ? std::optional(row->number) : std::nullopt;
}

QString scanTypeText(int type)
{
    return textOf(scanTypes, type, "BW");
}

QString scanTypeFailure()
{
    return Element::tr("Only accepted scan-types are : COLOR, GRAY_SCALE, BW");
}

// Required: another text, also one in small letters, is no error and stands for no vector type.
int vectorType(const QString& text)
{
    const Row* row = rowOf(vectorTypes, text);
    return row ? row->number : TUElement::kNoVector;
}

QString vectorTypeText(int type)
{
    return textOf(vectorTypes, type, "NONE");
}

const TUPixmapFormatList& formats()
{
    static const TUPixmapFormatList list(TUPixmapFormatList::kPaint | TUPixmapFormatList::kScan |
                                         TUPixmapFormatList::kImport);
    return list;
}

QString formatFailure()
{
    QStringList names;
    for (auto format = formats().pixFmtBegin(); format != formats().pixFmtEnd(); ++format) {
        if (format->selectable())
            names.append(format->name());
    }
    return Element::tr("Failed to find a valid file format. \n Valid formats: %1 ")
        .arg(names.join(QLatin1String(", ")));
}

} // namespace OMC::elementfields
