#include "engine/session/resolutions.h"

#include "engine/palettes/palettestore.h"
#include "engine/session/scene.h"
#include "engine/session/scenemanager.h"

#include "tests/engine/support/memoryproject.h"

#include <QSet>

namespace {

using Row = TUDbResolution::UsaResolutionTable;

/// A studio's own table, with a name twice.
class OtherData final : public TUDbSceneData {
public:
    std::vector<Row> namedResolutions() const override
    {
        return {Row("Wide", 300, 100, 12, 60, TUDbResolution::kFitWidth, TUDbResolution::kOrthogonal),
                Row("Low", 200, 100, 24, 30), Row("Wide", 1, 1, 1, 1)};
    }
};

/// Those of a project without scenes.
struct Tables {
    brindle::engine::PaletteStore palettes;
    brindle::engine::SceneManager scenes;
    QString path;
    brindle::engine::DbSceneData data{palettes, scenes, path};
};

struct Found {
    bool is = false;
    int width = -1;
    int height = -1;
    TUDbResolution::FovFit fit = TUDbResolution::kFitHeight;
    double fov = -1;
    TUDbResolution::Projection projection = TUDbResolution::kPerspective;

    Found(TUDbSceneData& data, const QString& name)
    {
        is = TUDbResolution::findResolution(data, name, width, height, fit, fov, projection);
    }
};

} // namespace

TEST(ResolutionsTest, TheTableHasTheCommonFormats)
{
    struct {
        const char* name;
        int width, height;
        double fps;
    } const formats[] = {
        {"HD_1080", 1920, 1080, 24}, {"HD_720", 1280, 720, 24},  {"UHD_4K", 3840, 2160, 24},
        {"UHD_8K", 7680, 4320, 24},  {"DCI_2K", 2048, 1080, 24}, {"DCI_4K", 4096, 2160, 24},
        {"FILM_2K", 2048, 1556, 24}, {"PAL", 720, 576, 25},      {"NTSC", 720, 486, 30000.0 / 1001.0},
    };
    Tables tables;
    for (const auto& [name, width, height, fps] : formats) {
        const brindle::engine::NamedResolution* row = brindle::engine::findNamedResolution(QString(name));
        ASSERT_TRUE(row) << name;
        EXPECT_EQ(row->width, width) << name;
        EXPECT_EQ(row->height, height) << name;
        EXPECT_EQ(row->fps, fps) << name;
        const Found found(tables.data, name);
        EXPECT_TRUE(found.is) << name;
        EXPECT_EQ(found.width, width) << name;
        EXPECT_EQ(found.height, height) << name;
        EXPECT_EQ(found.fov, 41.112) << name;
        EXPECT_EQ(found.fit, TUDbResolution::kFitHeight) << name;
        EXPECT_EQ(found.projection, TUDbResolution::kPerspective) << name;
    }
}

TEST(ResolutionsTest, EachRowHasANameOfItsOwn)
{
    Tables tables;
    QSet<QString> names;
    for (const Row& row : TUDbResolution::getResolutions(tables.data, false)) {
        EXPECT_FALSE(names.contains(row.name())) << row.name().toStdString();
        names.insert(row.name());
        EXPECT_TRUE(brindle::engine::isAcceptable(brindle::engine::Picture::named(row.name())))
            << row.name().toStdString();
    }
    EXPECT_GE(names.size(), 15);
}

TEST(ResolutionsTest, RowsComeInTheTablesOrderOrByName)
{
    OtherData data;
    QStringList names;
    for (const Row& row : TUDbResolution::getResolutions(data, false))
        names.append(row.name());
    EXPECT_EQ(names, QStringList({"Wide", "Low", "Wide"}));
    names.clear();
    for (const Row& row : TUDbResolution::getResolutions(data, true))
        names.append(row.name());
    EXPECT_EQ(names, QStringList({"Low", "Wide", "Wide"}));
}

TEST(ResolutionsTest, TheFirstRowOfExactlyTheNameIsFound)
{
    OtherData data;
    const Found wide(data, "Wide");
    EXPECT_TRUE(wide.is);
    EXPECT_EQ(wide.width, 300);
    EXPECT_EQ(wide.fit, TUDbResolution::kFitWidth);
    EXPECT_EQ(wide.fov, 60);
    EXPECT_EQ(wide.projection, TUDbResolution::kOrthogonal);
    for (const char* name : {"", "wide", "Wide ", "HD_1080"}) {
        const Found none(data, name);
        EXPECT_FALSE(none.is) << name;
        EXPECT_EQ(none.width, -1) << name;
        EXPECT_EQ(none.fov, -1) << name;
    }
}

TEST(ResolutionsTest, TheProjectsResolutionIsACopy)
{
    MemoryProject project;
    const SC_Resolution resolution = SC_Resolution::projectResolution(project.scene().projectCommon());
    EXPECT_EQ(resolution.name(), "HD_1080");
    EXPECT_EQ(resolution.width(), 1920);
    EXPECT_EQ(SC_Resolution::projectResolution(nullptr), SC_Resolution());
}
