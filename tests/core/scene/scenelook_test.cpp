#include "core/host/cel_colorspace.h"
#include "core/host/sc_advancedflags.h"
#include "core/host/sc_resolution.h"
#include "core/nodes/cameranode.h"
#include "core/nodes/displaynode.h"
#include "core/nodes/nodelist.h"
#include "core/scene/scene.h"
#include "tests/core/support/changetest.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/refusingmanager.h"
#include "tests/core/support/standinnode.h"
#include "tests/core/support/standins.h"

#include <gtest/gtest.h>

#include <QMetaType>

#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

const char* const noCamera = "Unable to identyify specified camera node.";
const char* const noDisplay = "Unable to identyify specified display node.";
const char* const noneOfTheKind = "No valid camera node specified.";
const QString vectorLabel = QStringLiteral("Edit Default Vector Drawings Texture Pixel Density Scene Settings");
const QString bitmapLabel = QStringLiteral("Edit Default Bitmap Drawings Texture Pixel Density Scene Settings");

/// The values by which a script unsets a camera or a display.
const std::vector<QVariant> unsetting = {QVariant(),
                                         QVariant::fromValue(nullptr),
                                         QString(),
                                         QStringLiteral(""),
                                         QStringLiteral("0"),
                                         QStringLiteral("false"),
                                         false,
                                         0,
                                         0.0};

/// A node as a script passes it.
QVariant argument(MO_Node* node)
{
    return QVariant::fromValue(OMC::Obj(OMC::Node::getWrapped(node)));
}

/// Top: Display, Composite, Camera, Group (Inner, Screen), Peg.
class SceneLookTest : public ChangeTest {
protected:
    SceneLookTest() : wrapper(scene())
    {
        camera = add(QStringLiteral("CAMERA"), QStringLiteral("Camera"));
        TUGroup* group = addGroup(QStringLiteral("Group"));
        inner = add(QStringLiteral("CAMERA"), QStringLiteral("Inner"), group);
        screen = add(QStringLiteral("DISPLAY"), QStringLiteral("Screen"), group);
        peg = add(QStringLiteral("PEG"), QStringLiteral("Peg"));
    }

    QString cameraPath() const { return wrapper.getCameraPath().toString(); }
    QString displayName() const { return wrapper.getDisplayName().toString(); }

    MO_Node* camera = nullptr;
    MO_Node* inner = nullptr;
    MO_Node* screen = nullptr;
    MO_Node* peg = nullptr;
    OMC::Scene wrapper;
};

/// A scene of no engine with everything that a look needs, and a manager that refuses.
class SceneLookPartsTest : public GraphTest {
protected:
    SceneLookPartsTest() : wrapper(&stub)
    {
        common.commands = &refusing;
        project.measures = scene()->metrics();
        project.picture = &picture;
        stub.common = &common;
        stub.project = &project;
        stub.commands = &refusing;
        stub.changes = &notices;
        camera = dynamic_cast<TUCameraModule*>(add(QStringLiteral("CAMERA"), QStringLiteral("Camera")));
        display = dynamic_cast<TUDisplayModule*>(node(QStringLiteral("Top/Display")));
    }

    RefusingManager refusing;
    StandInChangeManager notices;
    StandInSceneCommon common;
    SC_Resolution picture{QStringLiteral("HD"), 1920, 1080, TUDbResolution::kFitHeight, TUDbResolution::kPerspective};
    StandInProjectCommon project;
    StandInScene stub;
    TUCameraModule* camera = nullptr;
    TUDisplayModule* display = nullptr;
    OMC::Scene wrapper;
};

TEST_F(SceneLookTest, ANewSceneHasNoCameraAndAColourSpace)
{
    EXPECT_EQ(cameraPath(), QStringLiteral("NONE"));
    EXPECT_EQ(wrapper.getCamera().typeId(), QMetaType::Nullptr);
    EXPECT_TRUE(wrapper.getCamera().isValid());
    EXPECT_EQ(wrapper.getColorspace(), QStringLiteral("sRGB"));
    EXPECT_EQ(wrapper.getVectorTexturePixelDensity(), wrapper.getBitmapTexturePixelDensity());
    EXPECT_NEAR(wrapper.getVectorTexturePixelDensity(), 45.0, 1e-9);
}

TEST_F(SceneLookTest, ACameraComesAsAPlainPointerThatTheReceiverTakes)
{
    wrapper.setCamera(argument(camera));
    const QVariant value = wrapper.getCamera();
    ASSERT_EQ(value.typeId(), QMetaType::fromType<OMC::CameraNode*>().id());
    const std::unique_ptr<OMC::CameraNode> node(value.value<OMC::CameraNode*>());
    EXPECT_EQ(node->getOwnership(), OMC::Unowned);
    EXPECT_EQ(node->getPath(), QStringLiteral("Top/Camera"));
}

TEST_F(SceneLookTest, ACameraIsSetInEveryFormThatTellsANode)
{
    OMC::NodeList list;
    list.addNode(peg);
    list.addNode(camera);
    const OMC::Obj node(OMC::Node::getWrapped(camera));
    const std::vector<QVariant> forms = {
        argument(camera),
        asArgument(*node.get()),
        QStringLiteral("Top/Camera"),
        QStringList{"Top/Peg", "Nowhere", "Top/Camera"},
        QVariantList{QStringLiteral("Top/Camera"), argument(peg)},
        asArgument(list),
        2, // The third node of the scene.
    };
    for (const QVariant& form : forms) {
        changes([&] { wrapper.setCamera(form); }, QStringLiteral("Setting Top/Camera as camera."));
        EXPECT_EQ(cameraPath(), QStringLiteral("Top/Camera")) << form.typeName();
        changes([&] { wrapper.setCameraPath(QVariant()); }, QStringLiteral("Unsetting default camera."));
    }
    changes([&] { wrapper.setCameraPath(QStringLiteral("Top/Group/Inner")); },
            QStringLiteral("Setting Top/Group/Inner as camera."));
    EXPECT_EQ(cameraPath(), QStringLiteral("Top/Group/Inner"));
}

TEST_F(SceneLookTest, TheSameCameraTwiceIsOneCommand)
{
    wrapper.setCamera(argument(camera));
    leaves([&] { wrapper.setCamera(argument(camera)); });
    leaves([&] { wrapper.setCameraPath(QStringLiteral("Top/Camera")); });
    EXPECT_EQ(labels(), QStringList{"Setting Top/Camera as camera."});
}

TEST_F(SceneLookTest, WhatIsNoTruthUnsetsTheCamera)
{
    for (const QVariant& value : unsetting) {
        leaves([&] { wrapper.setCamera(value); });
        wrapper.setCamera(argument(camera));
        changes([&] { wrapper.setCamera(value); }, QStringLiteral("Unsetting default camera."));
        EXPECT_EQ(wrapper.getCamera().typeId(), QMetaType::Nullptr) << (value.typeName() ? value.typeName() : "null");
        leaves([&] { wrapper.setCameraPath(value); });
    }
}

TEST_F(SceneLookTest, ACameraThatIsNotThereIsRefused)
{
    const OMC::Scene other(scene());
    std::unique_ptr<OMC::Node> gone(OMC::Node::getWrapped(inner));
    removeNode(inner);
    const std::vector<QVariant> values = {QStringLiteral("Top/Nowhere"),
                                          QStringLiteral("Camera"),
                                          QStringList(),
                                          QVariantList(),
                                          QStringList{"Nowhere"},
                                          asArgument(other),
                                          asArgument(*gone),
                                          QVariantMap{{"path", "Top/Camera"}}};
    for (const QVariant& value : values)
        refuses([&] { wrapper.setCamera(value); }, noCamera);
    for (const QVariant& value : {QVariant(500), QVariant(-1), QVariant(std::numeric_limits<double>::quiet_NaN())})
        refuses([&] { wrapper.setCamera(value); }, "Index is out of range.");
}

TEST_F(SceneLookTest, ANodeThatIsNoCameraIsRefused)
{
    for (const QVariant& value : {argument(peg), argument(screen), argument(top()), QVariant(QStringLiteral("Top/Peg")),
                                  QVariant(QStringList{"Top/Peg", "Top/Display"})})
        refuses([&] { wrapper.setCamera(value); }, noneOfTheKind);
}

TEST_F(SceneLookTest, ACameraThatIsRemovedIsUnsetAndComesBack)
{
    wrapper.setCamera(argument(camera));
    SU_CleanUpCommands::removeNodes(scene(), {camera}, false);
    EXPECT_EQ(cameraPath(), QStringLiteral("NONE"));
    undo();
    EXPECT_EQ(cameraPath(), QStringLiteral("Top/Camera"));
}

TEST_F(SceneLookTest, ANewSceneIsShownByItsDisplay)
{
    const QVariant display = wrapper.getDisplay();
    ASSERT_NE(readAs<OMC::DisplayNode>(display), nullptr);
    EXPECT_EQ(readAs<OMC::DisplayNode>(display)->getPath(), QStringLiteral("Top/Display"));
    EXPECT_EQ(displayName(), QStringLiteral("Display"));
}

TEST_F(SceneLookTest, ADisplayIsSetInEveryFormThatTellsANode)
{
    wrapper.setDisplay(QVariant());
    manager().clearHistory();
    const std::vector<QVariant> forms = {argument(screen), QStringLiteral("Top/Group/Screen"),
                                         QVariantList{argument(peg), argument(screen)}};
    for (const QVariant& form : forms) {
        changes([&] { wrapper.setDisplay(form); }, QStringLiteral("Setting Top/Group/Screen as default display."));
        const QVariant value = wrapper.getDisplay();
        ASSERT_NE(readAs<OMC::DisplayNode>(value), nullptr) << form.typeName();
        EXPECT_EQ(readAs<OMC::DisplayNode>(value)->getPath(), QStringLiteral("Top/Group/Screen"));
        EXPECT_EQ(displayName(), QStringLiteral("Screen"));
        leaves([&] { wrapper.setDisplayName(form); });
        changes([&] { wrapper.setDisplayName(QVariant()); }, QStringLiteral("Unsetting default display."));
    }
}

TEST_F(SceneLookTest, WhatIsNoTruthUnsetsTheDisplay)
{
    for (const QVariant& value : unsetting) {
        wrapper.setDisplay(argument(screen));
        changes([&] { wrapper.setDisplay(value); }, QStringLiteral("Unsetting default display."));
        leaves([&] { wrapper.setDisplayName(value); });
        EXPECT_EQ(wrapper.getDisplay().typeId(), QMetaType::Nullptr);
    }
}

TEST_F(SceneLookTest, TheNameTellsADisplayThePlaceholderAndNoDisplayApart)
{
    wrapper.setDisplay(argument(screen));
    EXPECT_EQ(displayName(), QStringLiteral("Screen"));
    wrapper.setDisplay(QVariant());
    EXPECT_EQ(wrapper.getDisplayName().typeId(), QMetaType::Nullptr);
    SU_CleanUpCommands::removeNodes(scene(), {screen, node(QStringLiteral("Top/Display"))}, false);
    ASSERT_EQ(wrapper.getDisplayName().typeId(), QMetaType::QString);
    EXPECT_TRUE(wrapper.getDisplayName().toString().isNull());
    EXPECT_EQ(wrapper.getDisplay().typeId(), QMetaType::Nullptr);
}

TEST_F(SceneLookTest, ADisplayThatIsNotThereOrIsNoneIsRefused)
{
    for (const QVariant& value : {QVariant(QStringLiteral("Top/Nowhere")), QVariant(QVariantList())})
        refuses([&] { wrapper.setDisplay(value); }, noDisplay);
    // The camera's sentence stands for both.
    for (const QVariant& value : {argument(peg), argument(camera), QVariant(QStringLiteral("Top"))})
        refuses([&] { wrapper.setDisplayName(value); }, noneOfTheKind);
}

TEST_F(SceneLookTest, AllDisplaysStandInTheOrderOfTheGraph)
{
    add(QStringLiteral("DISPLAY"), QStringLiteral("Screen"));
    EXPECT_EQ(wrapper.getDisplayNames(), (QStringList{"Display", "Screen", "Screen"}));
    const QVariantList displays = wrapper.getDisplays();
    QStringList paths;
    for (const QVariant& display : displays)
        paths.append(readAs<OMC::DisplayNode>(display)->getPath());
    EXPECT_EQ(paths, (QStringList{"Top/Display", "Top/Group/Screen", "Top/Screen"}));
}

TEST_F(SceneLookTest, AColourSpaceIsSetAsOneEntry)
{
    changes([&] { wrapper.setColorspace(QStringLiteral("ACEScg")); }, QStringLiteral("Set Working Colour Space"));
    EXPECT_EQ(wrapper.getColorspace(), QStringLiteral("ACEScg"));
    leaves([&] { wrapper.setColorspace(QStringLiteral("ACEScg")); });
    EXPECT_EQ(wrapper.getColorspaces(), projectCommon()->colorSpaceManager()->colorSpaceNames(QString()));
    EXPECT_TRUE(wrapper.getColorspaces().contains(QStringLiteral("sRGB")));
    for (const QString& name : wrapper.getColorspaces()) {
        wrapper.setColorspace(name);
        EXPECT_EQ(wrapper.getColorspace(), name);
    }
}

TEST_F(SceneLookTest, AnUnknownColourSpaceIsRefused)
{
    for (const QString& name : {QString(), QStringLiteral("srgb"), QStringLiteral("sRGB "), QStringLiteral("x")})
        refuses([&] { wrapper.setColorspace(name); }, "Failed to set the colour space.");
}

TEST_F(SceneLookTest, TheDensitiesAreSetAsOneEntryEach)
{
    changes([&] { wrapper.setVectorTexturePixelDensity(90.0); }, vectorLabel);
    EXPECT_NEAR(wrapper.getVectorTexturePixelDensity(), 90.0, 1e-9);
    EXPECT_NEAR(wrapper.getBitmapTexturePixelDensity(), 45.0, 1e-9);
    EXPECT_NEAR(projectCommon()->advancedFlags().pixelPerModelUnitForVectorLayers(), 2.0, 1e-12);
    changes([&] { wrapper.setBitmapTexturePixelDensity(9.0); }, bitmapLabel);
    EXPECT_NEAR(wrapper.getBitmapTexturePixelDensity(), 9.0, 1e-9);
    EXPECT_NEAR(wrapper.getVectorTexturePixelDensity(), 90.0, 1e-9);
}

TEST_F(SceneLookTest, TheDensityThatIsThereMakesNoEntry)
{
    leaves([&] { wrapper.setVectorTexturePixelDensity(wrapper.getVectorTexturePixelDensity()); });
    leaves([&] { wrapper.setBitmapTexturePixelDensity(wrapper.getBitmapTexturePixelDensity()); });
}

// The project refuses a value silently: there is no sentence for it.
TEST_F(SceneLookTest, ADensityThatTheProjectDoesNotTakeChangesNothing)
{
    for (const double pixels : {0.0, -1.0}) {
        leaves([&] { wrapper.setVectorTexturePixelDensity(pixels); });
        leaves([&] { wrapper.setBitmapTexturePixelDensity(pixels); });
    }
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double pixels : {std::numeric_limits<double>::quiet_NaN(), infinity, -infinity}) {
        refuses([&] { wrapper.setVectorTexturePixelDensity(pixels); }, "Invalid argument at index 0.");
        refuses([&] { wrapper.setBitmapTexturePixelDensity(pixels); }, "Invalid argument at index 0.");
    }
}

TEST_F(SceneLookPartsTest, RefusedCommandsHaveTheirSentences)
{
    EXPECT_EQ(failureOf([&] { wrapper.setColorspace(QStringLiteral("x")); }), "Failed to set the colour space.");
    EXPECT_EQ(failureOf([&] { wrapper.setCamera(argument(camera)); }), "Failed to set default camera.");
    EXPECT_EQ(failureOf([&] { wrapper.setDisplay(argument(display)); }), "Failed to set default display.");
    common.defaultCamera = camera;
    stub.shownBy = display;
    EXPECT_EQ(failureOf([&] { wrapper.setCamera(QVariant()); }), "Failed to unset default camera.");
    EXPECT_EQ(failureOf([&] { wrapper.setDisplay(QVariant()); }), "Failed to unset default display.");
    EXPECT_EQ(refusing.refusedLabels, (QStringList{"Set Working Colour Space", "Setting Top/Camera as camera.",
                                                   "Setting Top/Display as default display.",
                                                   "Unsetting default camera.", "Unsetting default display."}));
    EXPECT_EQ(notices.notices, 0);
}

TEST_F(SceneLookPartsTest, ARefusedDensityIsNotToldAndAnnounced)
{
    wrapper.setVectorTexturePixelDensity(1.0);
    wrapper.setBitmapTexturePixelDensity(1.0);
    EXPECT_EQ(refusing.refusedLabels, (QStringList{vectorLabel, bitmapLabel}));
    EXPECT_EQ(notices.notices, 2);
    wrapper.setVectorTexturePixelDensity(wrapper.getVectorTexturePixelDensity());
    EXPECT_EQ(notices.notices, 2);
}

TEST_F(SceneLookPartsTest, AColourSpaceIsAnnounced)
{
    SelectiveManager taking;
    stub.commands = &taking;
    wrapper.setColorspace(QStringLiteral("x"));
    EXPECT_EQ(taking.labels, QStringList{"Set Working Colour Space"});
    EXPECT_EQ(notices.notices, 1);
    stub.changes = nullptr;
    EXPECT_EQ(failureOf([&] { wrapper.setColorspace(QStringLiteral("x")); }), "no exception");
    project.colorSpace = QStringLiteral("x");
    wrapper.setColorspace(QStringLiteral("x"));
    EXPECT_EQ(taking.labels.size(), 2);
}

TEST_F(SceneLookPartsTest, WithoutTheSceneCommonOrItsManagerNoCameraIsWritten)
{
    for (const bool withCommon : {false, true}) {
        common.commands = nullptr;
        stub.common = withCommon ? &common : nullptr;
        for (const QVariant& value : {QVariant(), QVariant(QStringLiteral("Top/Nowhere"))}) {
            EXPECT_EQ(failureOf([&] { wrapper.setCamera(value); }), unexpectedError);
            EXPECT_EQ(failureOf([&] { wrapper.setCameraPath(value); }), unexpectedError);
            EXPECT_EQ(failureOf([&] { wrapper.setDisplay(value); }), unexpectedError);
            EXPECT_EQ(failureOf([&] { wrapper.setDisplayName(value); }), unexpectedError);
        }
    }
    stub.common = nullptr;
    EXPECT_EQ(failureOf([&] { wrapper.getCamera(); }), objectGone);
    EXPECT_EQ(failureOf([&] { wrapper.getCameraPath(); }), objectGone);
    EXPECT_TRUE(refusing.refusedLabels.isEmpty());
}

TEST_F(SceneLookPartsTest, WithoutAProjectTheSettingsAreInvalid)
{
    stub.project = nullptr;
    const std::function<void()> calls[] = {
        [&] { wrapper.getColorspace(); },
        [&] { wrapper.setColorspace(QStringLiteral("x")); },
        [&] { wrapper.getColorspaces(); },
        [&] { wrapper.getVectorTexturePixelDensity(); },
        [&] { wrapper.setVectorTexturePixelDensity(std::numeric_limits<double>::quiet_NaN()); },
        [&] { wrapper.getBitmapTexturePixelDensity(); },
        [&] { wrapper.setBitmapTexturePixelDensity(1.0); },
    };
    for (const auto& call : calls)
        EXPECT_EQ(failureOf(call), objectGone);
}

TEST_F(SceneLookPartsTest, WithoutAManagerOrColourSpacesTheyAreInvalid)
{
    stub.commands = nullptr;
    EXPECT_EQ(failureOf([&] { wrapper.setColorspace(QStringLiteral("x")); }), objectGone);
    EXPECT_EQ(failureOf([&] { wrapper.setVectorTexturePixelDensity(1.0); }), objectGone);
    EXPECT_EQ(failureOf([&] { wrapper.getColorspaces(); }), objectGone);
}

TEST_F(SceneLookPartsTest, APictureOfNoSizeHasNoDensityAndTakesNone)
{
    project.picture = nullptr;
    EXPECT_EQ(wrapper.getVectorTexturePixelDensity(), 0.0);
    EXPECT_EQ(failureOf([&] { wrapper.setVectorTexturePixelDensity(1.0); }), "no exception");
    EXPECT_EQ(refusing.refusedLabels, QStringList{vectorLabel});
}

TEST_F(SceneLookPartsTest, ASceneWithoutARootGroupHasNoDisplays)
{
    EXPECT_TRUE(wrapper.getDisplays().isEmpty());
    EXPECT_TRUE(wrapper.getDisplayNames().isEmpty());
}

} // namespace
