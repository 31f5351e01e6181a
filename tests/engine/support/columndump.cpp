#include "tests/engine/support/columndump.h"

#include "core/host/at_attr.h"
#include "core/host/mo_node.h"
#include "engine/curves/column.h"
#include "engine/folder/jsonwriter.h"

#include <QTextStream>

#include <cstdint>
#include <cstring>

namespace {

QString bits(double number)
{
    std::uint64_t pattern;
    std::memcpy(&pattern, &number, sizeof pattern);
    return QString::number(number) + '#' + QString::number(pattern, 16);
}

class LocalValues final : public AT_AttrVisitor {
public:
    explicit LocalValues(QTextStream& out) : m_out(out) {}

    using AT_AttrVisitor::visit;
    void visit(AT_ComplexAttr& attr) override
    {
        m_out << ' ' << attr.meta().keyword() << '(';
        for (auto member = attr.attrsBegin(); member != attr.attrsEnd(); ++member)
            (*member)->accept(*this);
        m_out << ')';
    }
    void visit(AT_BoolAttr& attr) override { m_out << ' ' << attr.meta().keyword() << ' ' << attr.localValue(); }
    void visit(AT_IntAttr& attr) override { m_out << ' ' << attr.meta().keyword() << ' ' << attr.localValue(); }
    void visit(AT_DoubleAttr& attr) override
    {
        m_out << ' ' << attr.meta().keyword() << ' ' << bits(attr.localValue());
    }
    void visit(AT_StringAttr& attr) override
    {
        m_out << ' ' << attr.meta().keyword() << " \"" << attr.localValue() << '"';
    }
    void visit(AT_ElementAttr& attr) override { m_out << " \"" << attr.textAt(1) << '"'; }
    void visit(AT_TimingAttr& attr) override { m_out << " \"" << attr.textAt(1) << '"'; }
    void visit(AT_EnumAttrBase& attr) override { m_out << ' ' << attr.localValue(); }

private:
    QTextStream& m_out;
};

/// The saved form of a column, as its kind writes it, with every bit of a curve.
QString contentDump(const TUTimedValue& column)
{
    brindle::engine::JsonWriter json;
    json.beginObject();
    brindle::engine::Column::of(&column)->write(json);
    json.endObject();
    const auto* bezier = dynamic_cast<const TUBezierTimedValue*>(&column);
    return json.result() + (bezier ? curveDump(*bezier) : QString());
}

} // namespace

QString curveDump(const TUBezierTimedValue& column)
{
    QString text;
    QTextStream out(&text);
    out << "hold " << column.start() << ' ' << column.stop() << ' ' << column.step() << '\n';
    for (int index = 0; index < column.pointCount(); ++index) {
        const BezierCtrlPt point = column.point(index);
        for (const double number : {point.frame, point.value, point.leftX, point.leftY, point.rightX, point.rightY})
            out << bits(number) << ' ';
        out << point.constSegment << ' ' << point.continuity << '\n';
    }
    out.flush();
    return text;
}

QString columnsDump(const TUScene& scene)
{
    QString text;
    QTextStream out(&text);
    for (auto column = scene.timedValuesBegin(); column != scene.timedValuesEnd(); ++column) {
        out << (*column)->getName() << ' ' << (*column)->isAnonymous() << " drives";
        for (unsigned int link = 0; link < (*column)->getNumLinks(); ++link) {
            const AT_Attr* attr = (*column)->linkedAttr(link);
            out << ' ' << attr->node()->qualifiedName() << ':' << attr->displayText();
        }
        out << '\n' << contentDump(**column);
    }
    std::vector<MO_Node*> nodes;
    scene.getRootGroup()->getRecursiveSubNodeList(nodes);
    LocalValues values(out);
    for (const MO_Node* node : nodes) {
        out << node->qualifiedName();
        for (auto attr = node->attrsBegin(); attr != node->attrsEnd(); ++attr)
            (*attr)->accept(values);
        out << '\n';
    }
    out.flush();
    return text;
}
