#include "engine/elements/drawing.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace brindle::engine {

namespace {

EM_DrawingId newDrawingId()
{
    static EM_DrawingId last = EM_InvalidDrawingId;
    return ++last;
}

} // namespace

Drawing::Drawing(const QString& name) : m_id(newDrawingId()), m_name(name) {}

ContentPointer Drawing::content(EM_LayerId layer, int version) const
{
    for (const DrawingFile& file : m_files) {
        if (file.layer == layer && file.version == version)
            return file.content;
    }
    return nullptr;
}

ContentPointer Drawing::setContent(EM_LayerId layer, int version, ContentPointer content)
{
    const auto key = std::tuple(layer, version);
    const auto place =
        std::lower_bound(m_files.begin(), m_files.end(), key, [](const DrawingFile& file, const auto& sought) {
            return std::tuple(file.layer, file.version) < sought;
        });
    const bool isThere = place != m_files.end() && std::tuple(place->layer, place->version) == key;
    if (!isThere) {
        if (content)
            m_files.insert(place, {layer, version, std::move(content)});
        return nullptr;
    }
    ContentPointer before = std::move(place->content);
    if (content)
        place->content = std::move(content);
    else
        m_files.erase(place);
    return before;
}

bool Drawing::hasVersion(int version) const
{
    return std::any_of(m_files.begin(), m_files.end(),
                       [version](const DrawingFile& file) { return file.version == version; });
}

} // namespace brindle::engine
