#include "engine/clipboard/elementtransfer.h"

#include <utility>

namespace brindle::engine {

namespace {

/// What is in memory is shared; it never changes.
ContentPointer copyContent(const DrawingContent& content, ContentStore& contents)
{
    const ContentValuePointer value = content.value();
    return value ? contents.fromValue(value) : contents.fromBytes(content.bytes());
}

} // namespace

std::unique_ptr<Drawing> copyDrawing(const Drawing& drawing, const QString& name, ContentStore& contents,
                                     const std::unordered_map<EM_LayerId, EM_LayerId>& layers)
{
    auto copy = std::make_unique<Drawing>(name);
    copy->version = drawing.version;
    copy->type = drawing.type;
    copy->scaleFactor = drawing.scaleFactor;
    for (const DrawingFile& file : drawing.files()) {
        const auto layer = layers.find(file.layer);
        copy->setContent(layer == layers.end() ? file.layer : layer->second, file.version,
                         copyContent(*file.content, contents));
    }
    return copy;
}

ElementTransfer::ElementTransfer(const ElementManager& from, ElementManager& to, Terms terms)
    : m_from(from),
      m_to(to),
      m_terms(std::move(terms))
{}

int ElementTransfer::idFor(int source, const QSet<QString>& shown)
{
    const auto known = m_ids.find(source);
    if (known != m_ids.end())
        return known->second;
    const Element* element = m_from.find(source);
    if (!element)
        return -1;
    int id = present(*element);
    if (id < 0 && m_terms.mode != DD_DropMode::kNeverCreate)
        id = make(*element, shown);
    m_ids.emplace(source, id);
    return id;
}

/// The element that is used instead of a new one; -1 for none.
int ElementTransfer::present(const Element& source) const
{
    if (m_terms.mode != DD_DropMode::kShare && m_terms.mode != DD_DropMode::kNeverCreate)
        return -1;
    const auto origin = m_terms.origins.find(source.id());
    if (origin != m_terms.origins.end() && m_to.find(origin->second) && !m_to.isElementDeleted(origin->second))
        return origin->second;
    const TUElement& named = m_to.elementByName(source.name(), 0);
    return m_terms.mode == DD_DropMode::kNeverCreate && !named.isDeleted() ? named.id() : -1;
}

int ElementTransfer::make(const Element& source, const QSet<QString>& shown)
{
    const ElementFields& fields = source.fields();
    const QString name = freeName(fields.name);
    const int id =
        m_to.createElement(name, fields.scanType, fields.fieldChart, fields.pixmapFormat, fields.vectorType, false)
            .id();
    std::unique_ptr<Element> made = m_to.takeMade(id);
    if (!made)
        return -1;
    ElementFields copied = fields;
    copied.name = name;
    copied.isDeleted = false;
    made->setFields(copied);
    for (const EM_LayerInfo& layer : source.layers())
        made->addLayer(layer);
    for (std::size_t place = 0; place < source.drawings().size(); ++place) {
        const Drawing& drawing = source.drawings().at(place);
        if (m_terms.allDrawings || shown.contains(drawing.name()))
            made->drawings().insert(copyDrawing(drawing, drawing.name(), m_to.contents()), drawing.stem());
    }
    m_names.insert(name);
    m_made.push_back(std::move(made));
    return id;
}

QString ElementTransfer::freeName(const QString& name) const
{
    constexpr qsizetype longest = 240; // A number fits behind it.
    QString free = name;
    for (int number = 1; m_names.contains(free) || !m_to.isFreeName(free, nullptr); ++number)
        free = name.left(longest) + u'_' + QString::number(number);
    return free;
}

const Element* ElementTransfer::find(int id) const
{
    for (const auto& made : m_made) {
        if (made->id() == id)
            return made.get();
    }
    return m_to.find(id);
}

bool ElementTransfer::hasDrawing(int id, const QString& drawing) const
{
    const Element* element = find(id);
    return element && element->drawings().named(drawing);
}

QString ElementTransfer::nameOf(int id) const
{
    const Element* element = find(id);
    return element ? element->name() : QString();
}

} // namespace brindle::engine
