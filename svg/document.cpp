#include "svg/document.h"

#include "core/frame/exception.h"

#include <QHash>
#include <QSet>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>

namespace brindle::svg {

namespace {

constexpr int kMaxDepth = 200;
constexpr int kMaxShapes = 100000;
/// Each part is read on its own, so a picture of more groups has some of them in one layer.
constexpr std::size_t kMaxParts = 256;
const QString kSvg = QStringLiteral("http://www.w3.org/2000/svg");
const QString kLinks = QStringLiteral("http://www.w3.org/1999/xlink");

const QSet<QString>& shapes()
{
    static const QSet<QString> names = {"path", "rect", "circle", "ellipse", "line", "polyline", "polygon", "use"};
    return names;
}

const QSet<QString>& groups()
{
    static const QSet<QString> names = {"g", "a", "switch"};
    return names;
}

/// What is neither shown nor a group, but which those refer to.
const QSet<QString>& definitions()
{
    static const QSet<QString> names = {"defs", "linearGradient", "radialGradient", "stop", "style", "symbol"};
    return names;
}

/// What says nothing about the picture.
const QSet<QString>& silent()
{
    static const QSet<QString> names = {"title", "desc", "metadata", "namedview", "script", "view"};
    return names;
}

} // namespace

Document::Document(const QByteArray& text)
{
    read(text);
    checkReferences();
    findParts();
}

void Document::read(const QByteArray& text)
{
    QXmlStreamReader reader(text);
    const auto fail = [&reader](const QString& reason) -> void {
        throw OMC::Exception(QStringLiteral("The SVG text can't be read: line %1, column %2: %3")
                                 .arg(reader.lineNumber())
                                 .arg(reader.columnNumber())
                                 .arg(reason));
    };
    std::vector<int> open;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement: {
            const QString name = reader.name().toString();
            const bool isSvg = reader.namespaceUri() == kSvg || reader.namespaceUri().isEmpty();
            if (open.empty() && (!isSvg || name != u"svg"))
                fail(QStringLiteral("the first element is \"%1\", not \"svg\".").arg(name));
            if (open.size() >= kMaxDepth)
                fail(QStringLiteral("elements are nested more than %1 deep.").arg(kMaxDepth));
            const bool isInnerPicture = !open.empty() && name == u"svg";
            const bool isKnown = open.empty() || isInnerPicture || shapes().contains(name) || groups().contains(name) ||
                                 definitions().contains(name);
            if (!isSvg || !isKnown) {
                if (isSvg && !silent().contains(name))
                    note(QStringLiteral("Elements \"%1\" are left out.").arg(name));
                reader.skipCurrentElement();
                break;
            }
            if (isInnerPicture)
                note(QStringLiteral("Pictures within the picture are taken as groups, without their own view box."));
            Element element;
            element.name = isInnerPicture ? QStringLiteral("g") : name;
            element.attributes = reader.attributes();
            element.parent = open.empty() ? -1 : open.back();
            noteAttributes(element);
            const int index = static_cast<int>(m_elements.size());
            if (element.parent >= 0)
                m_elements[element.parent].children.push_back(index);
            m_elements.push_back(std::move(element));
            open.push_back(index);
            break;
        }
        case QXmlStreamReader::EndElement:
            open.pop_back();
            break;
        case QXmlStreamReader::Characters:
            if (!open.empty() && m_elements[open.back()].name == u"style")
                m_elements[open.back()].text += reader.text();
            break;
        default:
            break;
        }
    }
    if (reader.hasError())
        fail(reader.errorString());
}

void Document::noteAttributes(const Element& element)
{
    const QString style = element.attributes.value(QLatin1String("style")).toString();
    const auto has = [&](const char* name) {
        const QLatin1String property(name);
        return element.attributes.hasAttribute(property) || style.contains(property + u':');
    };
    if (has("clip-path"))
        note(QStringLiteral("Clip paths are left out; what they hide is shown."));
    if (has("mask"))
        note(QStringLiteral("Masks are left out; what they hide is shown."));
    if (has("filter"))
        note(QStringLiteral("Filters are left out."));
    if (has("marker-start") || has("marker-mid") || has("marker-end"))
        note(QStringLiteral("Markers at the points of lines are left out."));
    if (has("stroke-dasharray") && !style.contains(u"stroke-dasharray:none") &&
        element.attributes.value(QLatin1String("stroke-dasharray")) != u"none")
        note(QStringLiteral("Dashed lines are drawn through."));
}

void Document::note(const QString& line)
{
    if (!m_notCarried.contains(line))
        m_notCarried.append(line);
}

bool Document::isShown(int element) const
{
    const QString& name = m_elements[element].name;
    return shapes().contains(name) || groups().contains(name);
}

void Document::checkReferences() const
{
    QHash<QString, int> ids;
    for (std::size_t i = 0; i < m_elements.size(); ++i)
        if (const auto id = m_elements[i].attributes.value(QLatin1String("id")); !id.isEmpty())
            ids.insert(id.toString(), static_cast<int>(i));

    // The number of shapes that each element stands for, from the leaves up.
    enum : int { kUnknown = -1, kUnderWay = -2 };
    std::vector<int> counts(m_elements.size(), kUnknown);
    const auto count = [&](const auto& self, int index, int depth) -> int {
        if (counts[index] >= 0)
            return counts[index];
        if (counts[index] == kUnderWay || depth > 2 * kMaxDepth)
            throw OMC::Exception(
                QStringLiteral("The SVG text can't be read: an element \"use\" leads back to itself, or too deep."));
        counts[index] = kUnderWay;
        const Element& element = m_elements[index];
        qint64 sum = shapes().contains(element.name) ? 1 : 0;
        for (const int child : element.children)
            sum += self(self, child, depth + 1);
        if (element.name == u"use") {
            QString link = element.attributes.value(kLinks, QLatin1String("href")).toString();
            if (link.isEmpty())
                link = element.attributes.value(QLatin1String("href")).toString();
            if (const auto found = ids.constFind(link.mid(1)); link.startsWith(u'#') && found != ids.constEnd())
                sum += self(self, *found, depth + 1);
        }
        if (sum > kMaxShapes)
            throw OMC::Exception(
                QStringLiteral("The SVG text can't be read: it stands for more than %1 shapes.").arg(kMaxShapes));
        return counts[index] = static_cast<int>(sum);
    };
    count(count, 0, 0);
}

void Document::findParts()
{
    // A group that has everything in it is no layer: its children are.
    const auto shownChildren = [this](int element) {
        std::vector<int> shown;
        for (const int child : m_elements[element].children)
            if (isShown(child))
                shown.push_back(child);
        return shown;
    };
    std::vector<int> shown = shownChildren(m_top);
    while (shown.size() == 1 && groups().contains(m_elements[shown[0]].name)) {
        std::vector<int> inner = shownChildren(shown[0]);
        const bool hasGroups = std::any_of(inner.begin(), inner.end(),
                                           [this](int child) { return groups().contains(m_elements[child].name); });
        if (!hasGroups)
            break;
        m_top = shown[0];
        shown = std::move(inner);
    }

    bool isBetween = false; // What comes next, if it is no group, joins the last part.
    for (const int child : shown) {
        const bool isGroup = groups().contains(m_elements[child].name);
        if (m_parts.empty() || (m_parts.size() < kMaxParts && (isGroup || !isBetween)))
            m_parts.emplace_back();
        m_parts.back().push_back(child);
        isBetween = !isGroup;
    }
}

QByteArray Document::textOf(const std::vector<int>& part) const
{
    QByteArray text;
    QXmlStreamWriter writer(&text);
    writer.writeDefaultNamespace(kSvg);
    writer.writeNamespace(kLinks, QStringLiteral("xlink"));
    write(writer, 0, part);
    return text;
}

void Document::write(QXmlStreamWriter& writer, int index, const std::vector<int>& shown) const
{
    const Element& element = m_elements[index];
    // A part that isn't shown is still there to be referred to.
    const bool isHidden = element.parent == m_top && isShown(index) && index != 0 &&
                          !std::binary_search(shown.begin(), shown.end(), index);
    if (isHidden) {
        writer.writeStartElement(kSvg, QStringLiteral("g"));
        writer.writeAttribute(QStringLiteral("display"), QStringLiteral("none"));
    }
    writer.writeStartElement(kSvg, element.name);
    for (const QXmlStreamAttribute& attribute : element.attributes)
        if (attribute.namespaceUri().isEmpty() || attribute.namespaceUri() == kLinks)
            writer.writeAttribute(attribute);
    if (!element.text.isEmpty())
        writer.writeCharacters(element.text);
    for (const int child : element.children)
        write(writer, child, shown);
    writer.writeEndElement();
    if (isHidden)
        writer.writeEndElement();
}

} // namespace brindle::svg
