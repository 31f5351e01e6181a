#include "core/host/sc_projectcmds.h"

#include "core/host/sc_advancedflags.h"
#include "tests/engine/support/memoryproject.h"

#include <cmath>
#include <functional>
#include <limits>

namespace {

using namespace SC_ProjectCmds;

constexpr double infinite = std::numeric_limits<double>::infinity();

SC_AdvancedFlags flagsOf(double bitmap, double vector)
{
    SC_AdvancedFlags flags;
    flags.setPixelPerModelUnitForBitmapLayers(bitmap);
    flags.setPixelPerModelUnitForVectorLayers(vector);
    return flags;
}

using Make = std::function<CO_Command*(SC_ProjectCommon*)>;

CO_Command* byValue(SC_ProjectCommon* project, unsigned int width, unsigned int height, double fov = 41.112,
                    int fit = 0, int projection = 0)
{
    return new SetProjectResolutionByValueCmd(project, width, height, static_cast<TUDbResolution::FovFit>(fit), fov,
                                              static_cast<TUDbResolution::Projection>(projection));
}

class SettingsCommandsTest : public GraphTest {
protected:
    SC_ProjectCommon* common() { return project().projectCommon(); }
    const brindle::engine::ProjectSettings& settings()
    {
        return static_cast<brindle::engine::ProjectCommon*>(common())->settings();
    }
};

struct Change {
    const char* name;
    Make make;
    std::function<void(brindle::engine::ProjectSettings&)> apply; ///< The same on the values of a new project.
};

SC_Resolution sized(const char* name, int width, int height, int fit = 0, int projection = 0)
{
    return SC_Resolution(name, width, height, static_cast<TUDbResolution::FovFit>(fit),
                         static_cast<TUDbResolution::Projection>(projection));
}

const Change changes[] = {
    {"resolution by name", [](auto* p) { return new SetProjectResolutionByNameCmd(p, "UHD_4K"); },
     [](auto& s) {
         s.picture = {sized("UHD_4K", 3840, 2160), 41.112};
     }},
    {"resolution by value", [](auto* p) { return byValue(p, 640, 480, 55.5, 1, 1); },
     [](auto& s) {
         s.picture = {sized("", 640, 480, 1, 1), 55.5};
     }},
    {"width alone", [](auto* p) { return byValue(p, 1, 1080); },
     [](auto& s) {
         s.picture = {sized("", 1, 1080), 41.112};
     }},
    {"largest picture", [](auto* p) { return byValue(p, 32768, 32768); },
     [](auto& s) {
         s.picture = {sized("", 32768, 32768), 41.112};
     }},
    {"colour space", [](auto* p) { return new SetProjectColorSpaceCmd(p, "ACEScg"); },
     [](auto& s) { s.colorSpace = "ACEScg"; }},
    {"advanced flags", [](auto* p) { return new SetAdvancedFlagsCmd(p, flagsOf(0.5, 2.0)); },
     [](auto& s) { s.advancedFlags = flagsOf(0.5, 2.0); }},
    {"aspect ratio", [](auto* p) { return new SetDesignAspectRatioCmd(p, 16, 9); },
     [](auto& s) {
         s.aspectRatio = {16, 9};
     }},
    {"field chart", [](auto* p) { return new SetDesignFieldChartCmd(p, 6.0, 0.001, 1e6); },
     [](auto& s) {
         s.fieldChart = {6.0, 0.001, 1e6};
     }},
    {"centre", [](auto* p) { return new SetCoordinatesAtCenterCmd(p, -5, std::numeric_limits<int>::max()); },
     [](auto& s) {
         s.center = {-5, std::numeric_limits<int>::max()};
     }},
};

struct Refusal {
    const char* name;
    Make make;
};

const Refusal refusals[] = {
    {"unknown name", [](auto* p) { return new SetProjectResolutionByNameCmd(p, "HD_1081"); }},
    {"name in small letters", [](auto* p) { return new SetProjectResolutionByNameCmd(p, "pal"); }},
    {"no name", [](auto* p) { return new SetProjectResolutionByNameCmd(p, QString()); }},
    {"no width", [](auto* p) { return byValue(p, 0, 480); }},
    {"no height", [](auto* p) { return byValue(p, 640, 0); }},
    {"too wide", [](auto* p) { return byValue(p, 32769, 480); }},
    {"negative height", [](auto* p) { return byValue(p, 640, static_cast<unsigned int>(-1)); }},
    {"no angle", [](auto* p) { return byValue(p, 640, 480, 0.0); }},
    {"an angle of 180 degrees", [](auto* p) { return byValue(p, 640, 480, 180.0); }},
    {"an angle that is no number", [](auto* p) { return byValue(p, 640, 480, std::nan("")); }},
    {"unknown fit", [](auto* p) { return byValue(p, 640, 480, 40.0, 2); }},
    {"unknown projection", [](auto* p) { return byValue(p, 640, 480, 40.0, 0, -1); }},
    {"unknown colour space", [](auto* p) { return new SetProjectColorSpaceCmd(p, "acescg"); }},
    {"no colour space", [](auto* p) { return new SetProjectColorSpaceCmd(p, QString()); }},
    {"no density", [](auto* p) { return new SetAdvancedFlagsCmd(p, flagsOf(0.0, 1.0)); }},
    {"negative density", [](auto* p) { return new SetAdvancedFlagsCmd(p, flagsOf(1.0, -1.0)); }},
    {"infinite density", [](auto* p) { return new SetAdvancedFlagsCmd(p, flagsOf(1.0, infinite)); }},
    {"density that is no number", [](auto* p) { return new SetAdvancedFlagsCmd(p, flagsOf(std::nan(""), 1.0)); }},
    {"aspect of 0", [](auto* p) { return new SetDesignAspectRatioCmd(p, 0, 3); }},
    {"negative aspect", [](auto* p) { return new SetDesignAspectRatioCmd(p, 4, -3); }},
    {"chart of 0", [](auto* p) { return new SetDesignFieldChartCmd(p, 0.0, 12.0, 12.0); }},
    {"negative chart", [](auto* p) { return new SetDesignFieldChartCmd(p, 12.0, -12.0, 12.0); }},
    {"chart that is no number", [](auto* p) { return new SetDesignFieldChartCmd(p, 12.0, 12.0, std::nan("")); }},
    {"infinite chart", [](auto* p) { return new SetDesignFieldChartCmd(p, infinite, 12.0, 12.0); }},
    {"chart too large", [](auto* p) { return new SetDesignFieldChartCmd(p, 12.0, 12.0, 1'000'001.0); }},
};

/// A project of no engine.
class ForeignProject final : public SC_ProjectCommon {
public:
    SC_Id id() const override { return SC_Id(1); }
    CO_CommandManager* commandManager() const override { return nullptr; }
    SC_SceneManager* sceneManager() const override { return nullptr; }
    TUDbSceneData* dbSceneData() const override { return nullptr; }
    UT_FrameRate frameRate() const override { return UT_FrameRate(); }
    const SC_Resolution* resolution() const override { return nullptr; }
    double defaultFov() const override { return 0.0; }
    const SC_SceneMetrics* metrics() const override { return nullptr; }
    CEL_ColorSpaceManager* colorSpaceManager() const override { return nullptr; }
    QString projectColorSpace() const override { return {}; }
    const SC_AdvancedFlags& advancedFlags() const override { return m_flags; }

private:
    SC_AdvancedFlags m_flags;
};

} // namespace

TEST_F(SettingsCommandsTest, ANewProjectHasItsSettings)
{
    EXPECT_EQ(*common()->resolution(), sized("HD_1080", 1920, 1080));
    EXPECT_EQ(common()->defaultFov(), 41.112);
    EXPECT_EQ(common()->projectColorSpace(), "sRGB");
    EXPECT_EQ(common()->advancedFlags(), flagsOf(1.0, 1.0));
    EXPECT_TRUE(common()->colorSpaceManager()->contains(common()->projectColorSpace()));
    EXPECT_TRUE(common()->dbSceneData());
    EXPECT_EQ(scene().metrics(), common()->metrics());
    EXPECT_EQ(scene().sceneCommon()->metrics(), common()->metrics());
    EXPECT_TRUE(brindle::engine::isAcceptable(settings()));
}

TEST_F(SettingsCommandsTest, EachChangeIsOneEntryThatIsUndoneExactly)
{
    const brindle::engine::ProjectSettings before = settings();
    for (const Change& change : changes) {
        brindle::engine::ProjectSettings after = before;
        change.apply(after);
        ASSERT_FALSE(after == before) << change.name;
        EXPECT_TRUE(run(change.make(common()), change.name));
        EXPECT_TRUE(settings() == after) << change.name;
        EXPECT_EQ(labels(), QStringList(change.name));
        EXPECT_TRUE(manager().isDirty()) << change.name;
        undo();
        EXPECT_TRUE(settings() == before) << change.name;
        redo();
        EXPECT_TRUE(settings() == after) << change.name;
        undo();
        manager().clearHistory();
    }
}

TEST_F(SettingsCommandsTest, AValueThatAProjectDoesntTakeLeavesNoTrace)
{
    const brindle::engine::ProjectSettings before = settings();
    for (const Refusal& refusal : refusals)
        EXPECT_FALSE(run(refusal.make(common()))) << refusal.name;
    EXPECT_TRUE(settings() == before);
    EXPECT_EQ(manager().historySize(), 0);
    EXPECT_FALSE(manager().isDirty());
}

TEST_F(SettingsCommandsTest, NoProjectAndAForeignOneAreRefused)
{
    ForeignProject foreign;
    for (const Change& change : changes) {
        EXPECT_FALSE(run(change.make(nullptr))) << change.name;
        EXPECT_FALSE(run(change.make(&foreign))) << change.name;
    }
    EXPECT_EQ(manager().historySize(), 0);
}

TEST_F(SettingsCommandsTest, TheValuesThatAreThereLeaveTheName)
{
    EXPECT_TRUE(run(byValue(common(), 1920, 1080)));
    EXPECT_EQ(common()->resolution()->name(), "HD_1080");
    undo();
    redo();
    EXPECT_EQ(common()->resolution()->name(), "HD_1080");
    EXPECT_TRUE(run(byValue(common(), 1920, 1080, 30.0)));
    EXPECT_EQ(common()->resolution()->name(), "");
    EXPECT_EQ(common()->defaultFov(), 30.0);
    undo();
    EXPECT_EQ(common()->resolution()->name(), "HD_1080");
    EXPECT_EQ(common()->defaultFov(), 41.112);
}

TEST_F(SettingsCommandsTest, AResolutionLeavesTheFrameRate)
{
    EXPECT_TRUE(run(new SetProjectResolutionByNameCmd(common(), "PAL")));
    EXPECT_EQ(scene().frameRate().fps(), 24.0);
}

TEST_F(SettingsCommandsTest, AllScenesAreToldOfAChange)
{
    ASSERT_TRUE(run(new AddSceneCmd(common(), "Second")));
    auto& second = static_cast<brindle::engine::Scene&>(*project().sceneAt(1));
    const auto before = scene().changes().revision();
    const auto secondBefore = second.changes().revision();
    ASSERT_TRUE(run(new SetDesignAspectRatioCmd(common(), 16, 9)));
    EXPECT_EQ(scene().changes().revision(), before + 1);
    EXPECT_EQ(second.changes().revision(), secondBefore + 1);
    EXPECT_EQ(second.metrics()->designAspectRatioX(), 16);
    ASSERT_TRUE(run(new SetDesignAspectRatioCmd(common(), 16, 9)));
    EXPECT_EQ(scene().changes().revision(), before + 1) << "nothing changed";
}
