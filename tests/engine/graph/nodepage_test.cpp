#include "engine/graph/nodetype.h"

#include "engine/attributes/attributemeta.h"
#include "tests/engine/support/columnproject.h"

#include <QFile>
#include <QTextStream>

#include <limits>

using brindle::engine::metaOf;
using brindle::engine::NodeType;

namespace {

/// Writes docs/nodes.md: the types of nodes with their ports and attributes, as nodes of the engine have them.
class NodePage : public ColumnTest {
protected:
    QString text()
    {
        QString page;
        QTextStream out(&page);
        out << "# Node types\n\n"
               "What each type of node is for, its ports and its attributes, as the engine has them. "
               "`scripts/write_node_page.sh`\nwrites this page anew.\n\n"
               "`scene.nodes.create(\"PEG\", \"Arm\")` makes a node of a type. An attribute is found by its path:\n"
               "`node.attributes[\"position.x\"]`. One that is animated can be linked to a column and then has a value "
               "a "
               "frame.\n";
        for (const NodeType& type : brindle::engine::allNodeTypes())
            describe(out, type);
        return page;
    }

private:
    static QString number(double value)
    {
        return std::abs(value) >= std::numeric_limits<int>::max() ? QString() : QString::number(value);
    }

    static QString range(double minimum, double maximum)
    {
        const QString low = number(minimum);
        const QString high = number(maximum);
        if (low.isEmpty() && high.isEmpty())
            return {};
        return high.isEmpty() ? "from " + low : low + " to " + high;
    }

    /// A sentence that goes on behind a colon.
    static QString lowered(QStringView sentence) { return sentence[0].toLower() + sentence.mid(1).toString(); }

    /// The kinds of a node's ports in their order.
    static QString ports(unsigned int count, const std::function<const MO_Port*(unsigned int)>& port, bool grows)
    {
        QStringList texts;
        for (unsigned int index = 0; index < count; ++index)
            texts << '`' + port(index)->typeName() + '`' + (port(index)->isMattePort() ? " (matte)" : "");
        if (grows)
            texts << (texts.isEmpty() ? "as many as are added" : "more can be added");
        return texts.isEmpty() ? "none" : texts.join(", ");
    }

    /// A line of the table for an attribute, and for each of those in it.
    static void describe(QTextStream& out, AT_Attr& attr)
    {
        const brindle::engine::AttributeMeta& meta = metaOf(attr);
        QString limits;
        QString value;
        QString choices;
        if (const auto* real = dynamic_cast<AT_DoubleAttr*>(&attr)) {
            limits = range(real->minValue(), real->maxValue());
            value = number(real->defaultValue());
        } else if (const auto* whole = dynamic_cast<AT_IntAttr*>(&attr)) {
            limits = range(whole->minValue(), whole->maxValue());
            value = number(whole->defaultValue());
        } else if (const auto* flag = dynamic_cast<AT_BoolAttr*>(&attr)) {
            value = flag->defaultValue() ? "on" : "off";
        } else if (const auto* text = dynamic_cast<AT_StringAttr*>(&attr)) {
            value = '"' + text->defaultValue() + '"';
        } else if (const auto* choice = dynamic_cast<AT_EnumAttrBase*>(&attr)) {
            choices = '`' + choice->options().values().join("`, `") + '`';
            value = '`' + choice->options().value(choice->localValue()) + '`';
        }
        const QStringList cells = {'`' + meta.fullKeyword() + '`',
                                   meta.displayName(),
                                   '`' + attr.typeText() + '`',
                                   brindle::engine::literalText(meta.spec().unit),
                                   limits,
                                   value,
                                   choices,
                                   attr.socket() ? "yes" : ""};
        out << "| " << cells.join(" | ") << " |\n";
        if (auto* complex = dynamic_cast<AT_ComplexAttr*>(&attr)) {
            for (auto member = complex->attrsBegin(); member != complex->attrsEnd(); ++member)
                describe(out, **member);
        }
    }

    void describe(QTextStream& out, const NodeType& type)
    {
        const QString name = type.name.toString();
        const MO_Node* node = add(name);
        ASSERT_TRUE(node) << name.toStdString();
        out << "\n## " << name << "\n\n"
            << type.purpose << " A new one is named \"" << type.defaultName << "\".\n\n"
            << "In-ports: "
            << ports(
                   node->nInPorts(), [node](unsigned int index) { return node->inPort(index); }, type.takesInPorts())
            << ". Out-ports: "
            << ports(
                   node->nOutPorts(), [node](unsigned int index) { return node->outPort(index); }, type.takesOutPorts())
            << ".\n";
        if (!type.effect.isEmpty()) {
            const QString picture = name.toLower().replace('_', '-');
            out << "\nIn a picture: " << lowered(type.effect) << "\n\n![What a " << name
                << " node shows](../tests/render/golden/" << picture << ".png)\n";
        }
        if (node->attrsBegin() == node->attrsEnd())
            return;
        out << "\n| attribute | shown as | kind | unit | range | default | choices | animated |\n"
               "|---|---|---|---|---|---|---|---|\n";
        for (auto attr = node->attrsBegin(); attr != node->attrsEnd(); ++attr)
            describe(out, **attr);
    }
};

TEST_F(NodePage, IsWhatTheEngineHas)
{
    const QString expected = text();
    QFile file(BRINDLE_NODE_PAGE);
    if (qEnvironmentVariableIsSet("BRINDLE_WRITE_PAGES")) {
        ASSERT_TRUE(file.open(QFile::WriteOnly)) << file.errorString().toStdString();
        file.write(expected.toUtf8());
        return;
    }
    ASSERT_TRUE(file.open(QFile::ReadOnly)) << file.errorString().toStdString();
    EXPECT_EQ(file.readAll().toStdString(), expected.toStdString()) << "scripts/write_node_page.sh writes it anew";
}

TEST_F(NodePage, EachTypeHasOneSentence)
{
    for (const NodeType& type : brindle::engine::allNodeTypes())
        EXPECT_TRUE(type.purpose.endsWith(u'.') && type.purpose.size() > 20) << type.name.toString().toStdString();
}

} // namespace
