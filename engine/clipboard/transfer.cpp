#include "engine/clipboard/transfer.h"

#include "engine/attributes/attributeset.h"
#include "engine/attributes/drawingattribute.h"
#include "engine/curves/expressioncolumn.h"
#include "engine/exposure/exposurecolumn.h"

#include <algorithm>
#include <utility>

namespace brindle::engine {

namespace {

bool isMultiPort(const Node& node)
{
    return node.type().nodeClass == NodeClass::MultiPortIn || node.type().nodeClass == NodeClass::MultiPortOut;
}

/// An attribute of a node by its path, or null.
template <typename Attribute>
Attribute* attributeAt(const Node& node, QStringView path)
{
    if (!node.hasAttributes())
        return nullptr;
    const int place = node.attributes().find(path);
    return place < 0 ? nullptr : dynamic_cast<Attribute*>(&node.attributes().at(place));
}

Socket& socketOf(const AT_Attr& attr)
{
    return static_cast<Socket&>(*attr.socket());
}

} // namespace

Transfer::Transfer(Scene& from, Scene& to, Terms terms)
    : m_from(from),
      m_to(to),
      m_terms(std::move(terms)),
      m_elements(*engineElements(from.elementManager()), *engineElements(to.elementManager()), m_terms.elements)
{}

void Transfer::addNodes(const std::vector<Node*>& tops)
{
    for (const Node* top : tops) {
        if (!isMultiPort(*top))
            m_nodes.push_back(copyNode(*top, m_copies, &m_to));
    }
    for (Node* top : tops) {
        if (isMultiPort(*top))
            continue;
        linkTops(*top);
        forEachFrom(*top, [this](const Node& node) {
            m_pairs.emplace_back(&node, m_copies.at(&node));
            noteDrives(node);
        });
    }
}

/// Links within groups are copied with these.
void Transfer::linkTops(const Node& top) const
{
    for (std::size_t place = 0; place < top.portCount(PortSide::Out); ++place) {
        const Port& out = *top.port(PortSide::Out, place);
        for (std::size_t i = 0; i < out.destinationCount(); ++i) {
            const Port& in = *out.destination(i);
            const auto target = m_copies.find(in.owner());
            if (target == m_copies.end())
                continue;
            Port& copied = *m_copies.at(&top)->port(PortSide::Out, place);
            Port::link(copied, *target->second->port(PortSide::In, in.place()), copied.destinationCount());
        }
    }
}

void Transfer::noteDrives(const Node& node)
{
    if (!node.hasAttributes())
        return;
    const AttributeSet& attributes = node.attributes();
    for (int place = 0; place < attributes.count(); ++place) {
        const auto* socket = static_cast<const Socket*>(attributes.at(place).socket());
        if (const Column* column = socket ? socket->column() : nullptr)
            copied(*column).drives.push_back({&socketOf(m_copies.at(&node)->attributes().at(place)), socket->order()});
    }
}

Column& Transfer::addColumn(const Column& source)
{
    return *copied(source).column;
}

Transfer::Copied& Transfer::copied(const Column& source)
{
    const auto [place, isNew] = m_places.emplace(&source, m_columns.size());
    if (isNew)
        m_columns.push_back({&source, source.copy(QString(), source.anonymous()), {}});
    return m_columns[place->second];
}

/// Adds the columns that others compute their values from.
void Transfer::addSources()
{
    for (std::size_t place = 0; place < m_columns.size(); ++place) {
        for (const QString& name : m_columns[place].source->sources()) {
            if (const Column* source = Column::of(m_from.columnList().find(name)))
                copied(*source);
        }
    }
}

/// A name for a new column, like another one.
QString Transfer::freeName(const QString& like, bool anonymous)
{
    const auto isTaken = [this](const QString& name) { return m_taken.contains(name) || m_to.columnList().find(name); };
    QString name = like;
    if (anonymous && !m_terms.keepsColumnNames) {
        do {
            name = m_to.columnList().freeName(QStringLiteral("ATV"));
        } while (isTaken(name));
    } else {
        for (int number = 1; isTaken(name); ++number)
            name = like + u'_' + QString::number(number);
    }
    m_taken.insert(name);
    return name;
}

/// Names a copied column, links it and cuts it to the frames that go along.
void Transfer::finish(Copied& one)
{
    const QString before = one.source->name();
    one.column->setName(freeName(before, one.source->anonymous()));
    if (one.column->name() != before)
        m_names.insert(before, one.column->name());
    std::sort(one.drives.begin(), one.drives.end(), [](const Drive& a, const Drive& b) { return a.order < b.order; });
    for (const Drive& drive : one.drives)
        drive.socket->link(*one.column);
    if (m_terms.frames.end > m_terms.frames.first)
        one.column->keepFrames(m_terms.frames.first, m_terms.frames.end - m_terms.frames.first);
    constexpr int aheadOfAll = -1'000'000'000;
    if (auto shift = m_terms.at == 1 ? nullptr : one.column->shiftFramesCommand({aheadOfAll, m_terms.at - 1}))
        shift->execute();
}

/// The drawings of the source's elements that the copied frames show.
std::unordered_map<int, QSet<QString>> Transfer::shownDrawings() const
{
    std::unordered_map<int, QSet<QString>> shown;
    const auto note = [&shown](int element, const Column& column) {
        for (const QString& drawing : ExposureSheet::of(column)->exposures().drawings())
            shown[element].insert(drawing);
    };
    for (const auto& [source, copy] : m_pairs) {
        const auto* drawing = attributeAt<DrawingAttribute>(*source, u"drawing");
        const auto place = m_places.find(drawing ? Column::of(drawing->linkedTimedValue()) : nullptr);
        if (place != m_places.end())
            note(drawing->getElementId(), *m_columns[place->second].column);
    }
    for (const Copied& one : m_columns) {
        if (one.column->elementId() >= 0)
            note(one.column->elementId(), *one.column);
    }
    return shown;
}

/// Lets copied columns show the elements of the target's project, and nodes without a column name them.
void Transfer::setElements()
{
    const auto shown = shownDrawings();
    for (const Copied& one : m_columns) {
        auto* column = dynamic_cast<DrawingColumn*>(one.column.get());
        if (!column || column->elementId() < 0)
            continue;
        const auto names = shown.find(column->elementId());
        const int id = m_elements.idFor(column->elementId(), names == shown.end() ? QSet<QString>() : names->second);
        column->setElementId(id);
        if (m_terms.elements.mode != DD_DropMode::kNeverCreate)
            continue;
        QHash<QString, QString> gone;
        for (const QString& drawing : column->exposures().drawings()) {
            if (!m_elements.hasDrawing(id, drawing))
                gone.insert(drawing, QString());
        }
        column->exposures() = column->exposures().mapped(gone);
    }
    for (const auto& [source, copy] : m_pairs)
        nameElement(*copy, shown);
}

void Transfer::nameElement(Node& copy, const std::unordered_map<int, QSet<QString>>& shown)
{
    auto* attribute = attributeAt<ElementAttribute>(copy, u"drawing.element");
    if (!attribute || attribute->localValue().isEmpty())
        return;
    const TUElement& element = m_from.elementManager()->elementByName(attribute->localValue(), 0);
    if (element.id() < 0)
        return;
    const auto names = shown.find(element.id());
    const int id = m_elements.idFor(element.id(), names == shown.end() ? QSet<QString>() : names->second);
    attribute->setLocalValue(m_elements.nameOf(id));
    m_namedElements.emplace(&copy, id);
}

std::unique_ptr<AddContent> Transfer::take(Group* group)
{
    addSources();
    // The columns come in the order in which the source has them.
    std::vector<std::size_t> order;
    order.reserve(m_columns.size());
    for (TUTimedValue* column : std::as_const(m_from.columnList())) {
        const auto place = m_places.find(Column::of(column));
        if (place != m_places.end())
            order.push_back(place->second);
    }
    for (const std::size_t place : order)
        finish(m_columns[place]);
    for (const Copied& one : m_columns) {
        if (auto* expression = m_names.isEmpty() ? nullptr : dynamic_cast<ExpressionColumn*>(one.column.get()))
            expression->renameSources(m_names);
    }
    setElements();
    for (const auto& [source, copy] : m_pairs) {
        if (m_terms.elementMode == DD_DropMode::kAllThroughTiming)
            showThroughTiming(*copy);
        else if (m_terms.elementMode == DD_DropMode::kAllAsElements)
            showAsElement(*copy);
    }

    DetachedContent content;
    content.nodes = std::move(m_nodes);
    for (const std::size_t place : order)
        content.columns.push_back(Column::asTimedValue(std::move(m_columns[place].column)));
    for (auto& made : m_made)
        content.columns.push_back(Column::asTimedValue(std::move(made)));
    content.elements = m_elements.takeMade();
    return std::make_unique<AddContent>(m_to, group, std::move(content));
}

template <typename Kind>
Kind& Transfer::newColumn(const Column& like, const Exposures& exposures)
{
    auto made = std::make_unique<Kind>(freeName(like.name(), like.anonymous()), like.anonymous());
    Kind& column = *made;
    column.exposures() = exposures;
    m_made.push_back(std::move(made));
    return column;
}

/// A node that shows the drawings of its element column gets a timing column with the same exposures.
void Transfer::showThroughTiming(Node& node)
{
    const auto* drawing = attributeAt<DrawingAttribute>(node, u"drawing");
    if (!drawing || !drawing->getElementMode() || drawing->elementModeAttr()->socket()->isLinked())
        return;
    const auto& element = *attributeAt<ElementAttribute>(node, u"drawing.element");
    const auto* shown = dynamic_cast<DrawingColumn*>(socketOf(element).column());
    if (!shown)
        return;
    const auto& timing = *attributeAt<TimingAttribute>(node, u"drawing.timing");
    socketOf(timing).link(newColumn<TimingColumn>(*shown, shown->exposures()));
    drawing->elementModeAttr()->setLocalValue(false);
}

/// A node that shows the drawings of a timing column gets an element column with the same exposures.
void Transfer::showAsElement(Node& node)
{
    const auto* drawing = attributeAt<DrawingAttribute>(node, u"drawing");
    if (!drawing || drawing->getElementMode() || drawing->elementModeAttr()->socket()->isLinked())
        return;
    const auto& timing = *attributeAt<TimingAttribute>(node, u"drawing.timing");
    const auto* shown = dynamic_cast<TimingColumn*>(socketOf(timing).column());
    if (!shown)
        return;
    const auto& element = *attributeAt<ElementAttribute>(node, u"drawing.element");
    const auto named = m_namedElements.find(&node);
    const Column* present = socketOf(element).column();
    auto& column = newColumn<DrawingColumn>(*shown, shown->exposures());
    column.setElementId(present ? present->elementId() : named == m_namedElements.end() ? -1 : named->second);
    socketOf(element).link(column);
    socketOf(timing).unlink();
    drawing->elementModeAttr()->setLocalValue(true);
}

} // namespace brindle::engine
