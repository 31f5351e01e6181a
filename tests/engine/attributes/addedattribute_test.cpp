#include "engine/attributes/addedattribute.h"

#include "core/host/at_dynamicattr.h"
#include "engine/attributes/attributeset.h"
#include "tests/engine/support/columnproject.h"

#include <chrono>

namespace {

constexpr unsigned int flags = 13;

class AddedAttributeTest : public ColumnTest {
protected:
    bool create(const QString& keyword, const QString& type, bool linkable = false)
    {
        return run(new tu_node::CreateAttrCmd(peg, AT_AttrMeta(keyword, QString(), flags), type, linkable));
    }
    bool createIn(const QString& group, const QString& keyword, const QString& type, bool linkable = false)
    {
        return run(
            new Attr::DynGroup::CreateAttrCmd(groupAt(group), AT_AttrMeta(keyword, QString(), flags), type, linkable));
    }
    AT_DynGroupAttr* groupAt(const QString& path) { return dynamic_cast<AT_DynGroupAttr*>(attribute(peg, path)); }
    bool removeTop(const QString& keyword) { return run(new tu_node::RemoveAttrCmd(peg, attribute(peg, keyword))); }

    QStringList keywords()
    {
        QStringList list;
        for (auto attr = peg->attrsBegin(); attr != peg->attrsEnd(); ++attr)
            list.append((*attr)->meta().keyword());
        return list;
    }

    MO_Node* peg = add("PEG", "Peg");
};

TEST_F(AddedAttributeTest, EveryTypeCanBeAddedBehindTheAttributesOfTheNodesType)
{
    const QStringList types = AT_AttrFactorySingleton().keys();
    EXPECT_EQ(types, QStringList({"BOOL", "COLOUR", "DOUBLE", "DOUBLE_VB", "DYNAMIC_GROUP", "INT", "POSITION_2D",
                                  "POSITION_3D", "ROTATION_3D", "SCALE_3D", "STRING"}));
    const QStringList before = keywords();
    for (const QString& type : types) {
        const QString was = state();
        ASSERT_TRUE(create("new " + type, type)) << type.toStdString();
        const AT_Attr* attr = attribute(peg, "new " + type);
        ASSERT_TRUE(attr);
        EXPECT_EQ(attr->typeText(), type);
        EXPECT_EQ(attr->displayText(), "new " + type) << "the keyword, without a display name";
        EXPECT_TRUE(attr->meta().isDynamic() && attr->meta().isNodeDirtyOnChange());
        EXPECT_EQ(attr->node(), peg);
        EXPECT_FALSE(attr->socket()) << "it was not to be linkable";
        EXPECT_TRUE(undoesTo(was));
    }
    EXPECT_EQ(keywords().first(before.size()), before);
    EXPECT_EQ(keywords().size(), before.size() + types.size());
    for (const char* member : {"new COLOUR.red", "new POSITION_2D.y", "new SCALE_3D.z"}) {
        ASSERT_TRUE(attribute(peg, member)) << member;
        EXPECT_TRUE(attribute(peg, member)->meta().isDynamic()) << member;
    }
    EXPECT_EQ(attributeAs<AT_DoubleAttr>(peg, "new SCALE_3D.z").localValue(), 1);
    EXPECT_EQ(attributeAs<AT_ComplexAttr>(peg, "new POSITION_2D").nAttrs(), 2u);
    auto& whole = attributeAs<AT_IntAttr>(peg, "new INT");
    EXPECT_EQ(whole.minValue(), std::numeric_limits<int>::min());
    EXPECT_EQ(whole.maxValue(), std::numeric_limits<int>::max());
}

TEST_F(AddedAttributeTest, WhatCannotBeAddedChangesNothing)
{
    create("meta", AT_DynGroupAttr::TypeString());
    createIn("meta", "take", "INT");
    const QString before = state();
    for (const char* keyword : {"", ".", "a.b", "angle", "position", "meta"})
        EXPECT_FALSE(create(keyword, "INT")) << keyword;
    for (const char* keyword : {"", "a.b", "take"})
        EXPECT_FALSE(createIn("meta", keyword, "INT")) << keyword;
    for (const char* type : {"", "int", "NOTHING", "ENUM", "DRAWING"})
        EXPECT_FALSE(create("new", type)) << type;
    EXPECT_FALSE(createIn("position", "w", "INT")) << "no group";
    EXPECT_FALSE(run(new tu_node::CreateAttrCmd(nullptr, AT_AttrMeta("new", "", flags), "INT", false)));
    for (const char* keyword : {"angle", "position", "nothing", "meta.take"})
        EXPECT_FALSE(removeTop(keyword)) << keyword;
    EXPECT_FALSE(run(new Attr::DynGroup::RemoveAttrCmd(nullptr, attribute(peg, "meta.take"))));
    EXPECT_FALSE(run(new Attr::DynGroup::RemoveAttrCmd(groupAt("meta"), attribute(peg, "angle"))));
    EXPECT_EQ(state(), before);
}

TEST_F(AddedAttributeTest, GroupsAreNestedUpToADepth)
{
    ASSERT_TRUE(create("g", "DYNAMIC_GROUP"));
    QString path = "g";
    int depth = 1;
    for (; createIn(path, "g", "DYNAMIC_GROUP"); ++depth)
        path += ".g";
    EXPECT_EQ(depth, brindle::engine::deepestGroups);
    EXPECT_FALSE(createIn(path, "leaf", "INT"));
    EXPECT_TRUE(removeTop("g"));
    undo();
    EXPECT_TRUE(attribute(peg, path));
}

TEST_F(AddedAttributeTest, WhatIsTakenAwayComesBackToItsPlaceWithItsLinksAndValues)
{
    create("first", "DOUBLE", true);
    create("meta", "DYNAMIC_GROUP");
    createIn("meta", "take", "INT", true);
    createIn("meta", "place", "POSITION_3D", true);
    create("last", "STRING");
    auto* column = addColumn("column");
    drive(*attribute(peg, "first"), column);
    drive(*attribute(peg, "meta.place.y"), column);
    drive(*attribute(peg, "meta.take"), column);
    drive(*attribute(peg, "angle"), column);
    attributeAs<AT_StringAttr>(peg, "last").setLocalValue("text");
    column->setValueAt(1, 5, false);
    const QString before = state();

    for (const char* keyword : {"meta", "first", "last"}) {
        ASSERT_TRUE(removeTop(keyword));
        EXPECT_FALSE(attribute(peg, keyword));
        EXPECT_TRUE(undoesTo(before)) << keyword;
        undo();
    }
    removeTop("meta");
    EXPECT_EQ(column->getNumLinks(), 2u);
    removeTop("first");
    undo(2);
    EXPECT_EQ(state(), before);
    EXPECT_EQ(attributeAs<AT_IntAttr>(peg, "meta.take").value(1), 5);
    EXPECT_EQ(column->linkedAttr(2), attribute(peg, "meta.take"));
}

TEST_F(AddedAttributeTest, WeakPointersExpireWhenItLeavesItsNode)
{
    create("meta", "DYNAMIC_GROUP");
    createIn("meta", "place", "POSITION_3D");
    UT_SharedWeakPtrBase group;
    UT_SharedWeakPtrBase member;
    group.assign(attribute(peg, "meta"));
    member.assign(attribute(peg, "meta.place.x"));
    removeTop("meta");
    EXPECT_FALSE(group.get() || member.get());
    undo();
    EXPECT_FALSE(group.get() || member.get()) << "for ever";
}

TEST_F(AddedAttributeTest, ACopyOfTheNodeHasThemWithTheirValues)
{
    using namespace brindle::engine;
    create("meta", "DYNAMIC_GROUP");
    createIn("meta", "inner", "DYNAMIC_GROUP");
    createIn("meta.inner", "place", "POSITION_3D", true);
    create("text", "STRING");
    attributeAs<AT_DoubleAttr>(peg, "meta.inner.place.z").setLocalValue(7);
    attributeAs<AT_StringAttr>(peg, "text").setLocalValue("said");
    attributeAs<AT_DoubleAttr>(peg, "angle").setLocalValue(30);
    MO_Node* other = add("PEG", "Other");
    copyValues(engineNode(peg)->attributes(), engineNode(other)->attributes());
    EXPECT_EQ(attributeAs<AT_DoubleAttr>(other, "meta.inner.place.z").localValue(), 7);
    EXPECT_TRUE(attribute(other, "meta.inner.place.z")->socket());
    EXPECT_EQ(attributeAs<AT_StringAttr>(other, "text").localValue(), "said");
    EXPECT_EQ(attributeAs<AT_DoubleAttr>(other, "angle").localValue(), 30);
    EXPECT_EQ(attribute(other, "meta")->node(), other);
}

TEST_F(AddedAttributeTest, EveryOneHasAPlaceBehindThoseOfTheNodesType)
{
    using namespace brindle::engine;
    const AttributeSet& set = engineNode(peg)->attributes();
    const int ofType = set.count();
    create("meta", "DYNAMIC_GROUP");
    createIn("meta", "place", "POSITION_2D");
    create("text", "STRING");
    QStringList paths;
    for (int place = ofType; place < set.count(); ++place) {
        paths.append(metaOf(set.at(place)).fullKeyword());
        EXPECT_EQ(set.find(paths.back()), place);
    }
    EXPECT_EQ(paths.join(' '), "meta meta.place meta.place.x meta.place.y text");
    EXPECT_EQ(metaOf(set.at(set.find(u"angle"))).fullKeyword(), "angle");
    for (const char* path : {"meta.", "meta.nothing", "text.x", "meta.place.x.y", ".meta"})
        EXPECT_EQ(set.find(QString(path)), -1) << path;
}

TEST_F(AddedAttributeTest, ListsOfAllLevelsTellTheWay)
{
    create("meta", "DYNAMIC_GROUP");
    createIn("meta", "place", "POSITION_2D", true);
    const auto texts = [](const std::vector<AT_AttrDesc>& descs) {
        QStringList list;
        for (const AT_AttrDesc& desc : descs)
            list.append(desc.parentPath + '/' + desc.attr->meta().keyword());
        return list.join(' ');
    };
    std::vector<AT_AttrDesc> all;
    peg->getFullAttrList(all);
    EXPECT_TRUE(texts(all).startsWith("/position position/x position/y position/z /scale"));
    EXPECT_TRUE(texts(all).endsWith("/meta meta/place meta.place/x meta.place/y"));
    std::vector<AT_AttrDesc> timed;
    attribute(peg, "meta")->getTVAttrList(timed, 0, 0);
    EXPECT_EQ(texts(timed), "place/x place/y");
    timed.clear();
    attribute(peg, "pivot")->getTVAttrList(timed, 0, 0);
    EXPECT_TRUE(timed.empty()) << "no column drives a pivot";
}

TEST_F(AddedAttributeTest, ThousandsOfOneGroupComeAndGoInAMoment)
{
    create("meta", "DYNAMIC_GROUP");
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < 20000; ++i)
        ASSERT_TRUE(createIn("meta", QString::number(i), "INT"));
    undo(20000);
    redo(20000);
    EXPECT_EQ(groupAt("meta")->nAttrs(), 20000u);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
    EXPECT_LT(taken.count(), 3.0) << "far above the tenth that it takes, for busy and sanitized machines";
}

} // namespace
