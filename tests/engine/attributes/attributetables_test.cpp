#include "tests/engine/support/columnproject.h"

namespace {

class AttributeTablesTest : public ColumnTest {
protected:
    /// The attributes of a node type, "keyword:TYPE" each; "*" behind those that can be linked.
    static QString listed(MO_Node::AttrIterator begin, MO_Node::AttrIterator end)
    {
        QStringList texts;
        for (auto attr = begin; attr != end; ++attr) {
            QString text = (*attr)->meta().keyword() + ':' + (*attr)->typeText() + ((*attr)->socket() ? "*" : "");
            if (const auto* complex = dynamic_cast<const AT_ComplexAttr*>(*attr))
                text += '(' + listed(complex->attrsBegin(), complex->attrsEnd()) + ')';
            texts.append(text);
        }
        return texts.join(' ');
    }
    QString listed(const char* type)
    {
        const MO_Node* node = add(type);
        return node ? listed(node->attrsBegin(), node->attrsEnd()) : QString("no such node");
    }
};

TEST_F(AttributeTablesTest, EachNodeTypeHasItsAttributes)
{
    const QString position = "position:POSITION_3D*(x:DOUBLE* y:DOUBLE* z:DOUBLE*)";
    const QString scale = "scale:SCALE_3D(x:DOUBLE* y:DOUBLE* z:DOUBLE*)";
    const QString pivot = "pivot:POSITION_3D(x:DOUBLE y:DOUBLE z:DOUBLE)";
    const struct {
        const char* type;
        QString attributes;
    } rows[] = {
        {"PEG", position + ' ' + scale +
                    " rotation:ROTATION_3D*(x:DOUBLE* y:DOUBLE* z:DOUBLE*) angle:DOUBLE* skew:DOUBLE* " + pivot +
                    " full_transform:BOOL"},
        {"READ", "drawing:DRAWING(element:ELEMENT* timing:TIMING* element_mode:BOOL*) opacity:DOUBLE* visible:BOOL* " +
                     position + ' ' + scale + " angle:DOUBLE* " + pivot},
        {"CAMERA", position + ' ' + scale + " angle:DOUBLE* " + pivot},
        {"COLOR_CARD", "colour:COLOUR(red:INT* green:INT* blue:INT* alpha:INT*)"},
        {"BLUR", "radius:DOUBLE*"},
        {"COMPOSITE", "mode:ENUM"},
        {"WRITE", "path:STRING format:ENUM"},
        {"CUTTER", "inverted:BOOL*"},
        {"DISPLAY", ""},
        {"GROUP", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(listed(row.type).toStdString(), row.attributes.toStdString()) << row.type;
}

TEST_F(AttributeTablesTest, NewNodesHaveTheDefaultValues)
{
    const struct {
        const char* type;
        const char* path;
        const char* text;
    } rows[] = {
        {"PEG", "position", "0, 0, 0"},
        {"PEG", "scale", "1, 1, 1"},
        {"PEG", "rotation", "0, 0, 0"},
        {"PEG", "angle", "0"},
        {"PEG", "skew", "0"},
        {"PEG", "pivot", "0, 0, 0"},
        {"PEG", "full_transform", "false"},
        {"READ", "opacity", "100"},
        {"READ", "visible", "true"},
        {"READ", "drawing", ""},
        {"READ", "drawing.element_mode", "true"},
        {"BLUR", "radius", "0"},
        {"COLOR_CARD", "colour", "255, 255, 255, 255"},
        {"COMPOSITE", "mode", "NORMAL"},
        {"WRITE", "path", ""},
        {"WRITE", "format", "PNG"},
        {"CUTTER", "inverted", "false"},
    };
    for (const auto& row : rows) {
        const AT_Attr* attr = attribute(add(row.type), row.path);
        ASSERT_NE(attr, nullptr) << row.type << row.path;
        EXPECT_EQ(attr->textAt(1), row.text) << row.type << row.path;
    }
}

TEST_F(AttributeTablesTest, NumbersHaveBounds)
{
    constexpr double most = std::numeric_limits<double>::max();
    const auto& opacity = attributeAs<AT_DoubleAttr>(add("READ"), "opacity");
    EXPECT_EQ(opacity.minValue(), 0);
    EXPECT_EQ(opacity.maxValue(), 100);
    EXPECT_EQ(opacity.defaultValue(), 100);
    EXPECT_EQ(opacity.step(), 1);
    const auto& radius = attributeAs<AT_DoubleAttr>(add("BLUR"), "radius");
    EXPECT_EQ(radius.minValue(), 0);
    EXPECT_EQ(radius.maxValue(), most);
    const auto& angle = attributeAs<AT_DoubleAttr>(add("PEG"), "angle");
    EXPECT_EQ(angle.minValue(), -most);
    EXPECT_EQ(angle.maxValue(), most);
    const auto& red = attributeAs<AT_IntAttr>(add("COLOR_CARD"), "colour.red");
    EXPECT_EQ(red.minValue(), 0);
    EXPECT_EQ(red.maxValue(), 255);
    EXPECT_EQ(red.step(), 1);
}

TEST_F(AttributeTablesTest, MetasOfOneTypeAreShared)
{
    const MO_Node* one = add("PEG");
    const MO_Node* other = add("PEG");
    EXPECT_EQ(&attribute(one, "position.x")->meta(), &attribute(other, "position.x")->meta());
    EXPECT_EQ(attribute(one, "position")->displayText(), "Position");
    EXPECT_FALSE(attribute(one, "position.x")->meta().isDynamic());
    EXPECT_TRUE(attribute(one, "position.x")->meta().isNodeDirtyOnChange());
}

} // namespace
