#include "engine/elements/pixmapformats.h"

#include <algorithm>

namespace brindle::engine {

namespace {

/// A format and what it is good for. Ids are places in this table; files tell formats by their names.
///
/// PSD has layers and comes from other programs: its pictures are kept and shown flattened, and new elements are not
/// offered it.
struct Row {
    TUPixmapFormat format;
    int uses;
};

const std::vector<Row>& table()
{
    constexpr int paint = TUPixmapFormatList::kPaint;
    constexpr int scan = TUPixmapFormatList::kScan;
    constexpr int import = TUPixmapFormatList::kImport;
    static const std::vector<Row> rows = {
        {{0, "PNG", "png", true}, paint | scan | import},
        {{1, "JPEG", "jpg", true}, scan | import},
        {{2, "TIFF", "tif", true}, paint | scan | import},
        {{3, "TGA", "tga", true}, paint | import},
        {{4, "BMP", "bmp", true}, scan | import},
        {{5, "EXR", "exr", true}, paint | import},
        {{6, "PSD", "psd", false}, import},
    };
    return rows;
}

} // namespace

const TUPixmapFormat* pixmapFormatOf(int id)
{
    return id >= 0 && static_cast<std::size_t>(id) < table().size() ? &table()[static_cast<std::size_t>(id)].format
                                                                    : nullptr;
}

int pixmapFormatNamed(const QString& name)
{
    const auto found =
        std::find_if(table().begin(), table().end(), [&name](const Row& row) { return row.format.name() == name; });
    return found == table().end() ? -1 : found->format.id();
}

} // namespace brindle::engine

TUPixmapFormatList::TUPixmapFormatList(int uses)
{
    for (const auto& row : brindle::engine::table()) {
        if ((row.uses & uses) != 0)
            m_formats.push_back(row.format);
    }
}

int TUPixmapFormatList::format(const QString& name) const
{
    const auto found = std::find_if(m_formats.begin(), m_formats.end(), [&name](const TUPixmapFormat& format) {
        return format.name().compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == m_formats.end() ? -1 : found->id();
}

QString TUPixmapFormatList::pixmapNameFromFormat(int id) const
{
    const auto found = std::find_if(m_formats.begin(), m_formats.end(),
                                    [id](const TUPixmapFormat& format) { return format.id() == id; });
    return found == m_formats.end() ? QString() : found->name();
}
