#include "engine/folder/backdroptext.h"

#include "core/host/mo_backdrop.h"
#include "tests/engine/folder/foldertest.h"

namespace {

class BackdropTextTest : public FolderTest {};

/// A change of a saved backdrop, and the end of the sentence of opening.
struct BackdropDamage {
    const char* name;
    const char* from;
    const char* to;
    const char* reason;
};

constexpr BackdropDamage backdropDamages[] = {
    {"RectIsShort", "[1.5, 2, 3, 4]", "[1.5, 2, 3]", "nodes[1].backdrops[0].rect has no item [3]."},
    {"RectIsLong", "[1.5, 2, 3, 4]", "[1.5, 2, 3, 4, 5]", "nodes[1].backdrops[0].rect has 5 items, not 4."},
    {"RectHasAText", "[1.5, 2, 3, 4]", "[1.5, 2, 3, \"4\"]", "nodes[1].backdrops[0].rect[3] is not a number."},
    {"NoColour", "#80FF0000", "red", "nodes[1].backdrops[0].colour is no colour \"#AARRGGBB\"."},
    {"UnknownField", "\"description\"", "\"mood\"", "nodes[1].backdrops[0].mood is an unknown field."},
    {"FontOfNoSize", "\"size\": 7", "\"size\": 0", "nodes[1].backdrops[0] has a font size that is not above 0."},
    {"OnAPeg", "\"type\": \"PEG\",", "\"type\": \"PEG\", \"backdrops\": [],",
     "nodes[2].backdrops can't be told of a node of this type."},
};

class BackdropDamageTest : public BackdropTextTest, public testing::WithParamInterface<BackdropDamage> {};

} // namespace

TEST_P(BackdropDamageTest, IsToldWithItsPlace)
{
    ASSERT_TRUE(remove({node("Top/Display"), node("Top/Composite")}));
    TUGroup* group = addGroup("G");
    add("PEG", "Peg");
    auto backdrop = std::make_shared<MO_Backdrop>(group, group->sceneCommon());
    MO_BackdropProperties properties;
    properties.rect = {1.5, 2, 3, 4};
    properties.title.size = 7;
    properties.colour = QColor::fromRgba(0x80ff0000);
    backdrop->setProperties(properties);
    ASSERT_TRUE(run(new tu_backdrop::AddBackdropCmd(group, backdrop)));
    saved();
    EXPECT_EQ(openError(path()), QString());

    const auto& [name, from, to, reason] = GetParam();
    const QString file = path() + "/scenes/Scene-1.json";
    QByteArray text = get(file);
    const qsizetype at = text.indexOf(from);
    ASSERT_GE(at, 0) << text.toStdString();
    put(file, text.replace(at, qstrlen(from), to));
    EXPECT_TRUE(openError(path()).endsWith(reason)) << openError(path()).toStdString();
}

INSTANTIATE_TEST_SUITE_P(All, BackdropDamageTest, testing::ValuesIn(backdropDamages),
                         [](const auto& info) { return std::string(info.param.name); });
