#include "render/colour/configuration.h"

#include "core/host/cel_colorspace.h"
#include "core/host/sc_session.h"
#include "render/colour/ownconfiguration.h"

#include <QColorSpace>
#include <QColorTransform>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <array>

using brindle::render::colourConfiguration;

namespace {

using Colour = std::array<float, 4>;

Colour converted(const char* from, const char* to, Colour colour)
{
    QString error;
    const auto configuration = colourConfiguration({}, error);
    const auto converter = configuration ? configuration->converter(from, to, error) : nullptr;
    if (converter)
        converter->convert(colour.data(), 1);
    EXPECT_EQ(error, "");
    return colour;
}

struct Known {
    const char* name;
    QColorSpace::NamedColorSpace space;
};

class KnownSpaceTest : public testing::TestWithParam<Known> {};

} // namespace

TEST(ConfigurationTest, OursHasTheNamesThatTheEngineKnows)
{
    QString error;
    const auto configuration = colourConfiguration({}, error);
    ASSERT_TRUE(configuration) << error.toStdString();
    const auto session = SC_SessionContext::create();
    qunsetenv("OCIO");
    EXPECT_EQ(configuration->names(), session->colorSpaceManager()->colorSpaceNames({}));
    EXPECT_GE(configuration->names().size(), 24);
}

TEST(ConfigurationTest, EverySpaceLeadsToTheReferenceAndBack)
{
    QString error;
    const auto configuration = colourConfiguration({}, error);
    for (const QString& name : configuration->names()) {
        const QByteArray space = name.toUtf8();
        const Colour there = converted("sRGB", space.constData(), {0.8f, 0.5f, 0.2f, 0.5f});
        const Colour back = converted(space.constData(), "sRGB", there);
        EXPECT_NEAR(back[0], 0.8f, 1e-4) << space.constData();
        EXPECT_NEAR(back[1], 0.5f, 1e-4) << space.constData();
        EXPECT_NEAR(back[2], 0.2f, 1e-4) << space.constData();
        EXPECT_EQ(back[3], 0.5f);
        EXPECT_EQ(there == back, name == u"sRGB" || name == u"Raw") << space.constData();
    }
}

TEST(ConfigurationTest, WhiteIsWhiteAndAcademyPrimariesAreThoseOfTheStandard)
{
    for (const char* space :
         {"Linear", "Linear Rec.2020", "Linear P3-D65", "ACEScg", "ACES2065-1", "Rec.1886", "DCI-P3"}) {
        const Colour white = converted("sRGB", space, {1, 1, 1, 1});
        for (int c = 0; c < 3; ++c)
            EXPECT_NEAR(white[std::size_t(c)], 1.0f, 1e-4) << space;
    }
    // The red of AP1 in AP0, by S-2014-004.
    const Colour red = converted("ACEScg", "ACES2065-1", {1, 0, 0, 1});
    EXPECT_NEAR(red[0], 0.6954522f, 1e-5);
    EXPECT_NEAR(red[1], 0.0447946f, 1e-5);
    EXPECT_NEAR(red[2], -0.0055259f, 1e-5);
    // 100 candelas are 0.508 of the curve of BT.2100, and 1000 are 0.752.
    EXPECT_NEAR(converted("sRGB", "Rec.2100 PQ", {1, 1, 1, 1})[0], 0.5081f, 1e-3);
    EXPECT_NEAR(converted("Linear", "Rec.2100 PQ", {10, 10, 10, 1})[0], 0.7518f, 1e-3);
    EXPECT_NEAR(converted("Linear", "Cineon Log", {1, 1, 1, 1})[0], 685 / 1023.0, 1e-4);
    EXPECT_NEAR(converted("Linear", "Cineon Log", {0, 0, 0, 1})[0], 95 / 1023.0, 1e-4);
}

TEST_P(KnownSpaceTest, AgreesWithQt)
{
    const QColorTransform transform = QColorSpace(QColorSpace::SRgb).transformationToColorSpace(GetParam().space);
    for (const Colour& colour : {Colour{0.9f, 0.2f, 0.1f, 1}, {0.2f, 0.7f, 0.4f, 1}, {0.3f, 0.3f, 0.8f, 1}}) {
        const QColor expected = transform.map(QColor::fromRgbF(colour[0], colour[1], colour[2]));
        const Colour got = converted("sRGB", GetParam().name, colour);
        EXPECT_NEAR(got[0], expected.redF(), 0.004);
        EXPECT_NEAR(got[1], expected.greenF(), 0.004);
        EXPECT_NEAR(got[2], expected.blueF(), 0.004);
    }
}

INSTANTIATE_TEST_SUITE_P(Spaces, KnownSpaceTest,
                         testing::Values(Known{"Linear", QColorSpace::SRgbLinear},
                                         Known{"Adobe RGB (1998)", QColorSpace::AdobeRgb},
                                         Known{"Display P3", QColorSpace::DisplayP3}),
                         [](const auto& info) {
                             QString name(info.param.name);
                             return name.remove(QRegularExpression("[^A-Za-z]")).toStdString();
                         });

TEST(ConfigurationTest, ProfilesDescribeTheSpacesThatTheyCan)
{
    using brindle::render::ownIccProfile;
    EXPECT_EQ(QColorSpace::fromIccProfile(ownIccProfile("sRGB")), QColorSpace(QColorSpace::SRgb));
    EXPECT_EQ(QColorSpace::fromIccProfile(ownIccProfile("Display P3")), QColorSpace(QColorSpace::DisplayP3));
    for (const char* name : {"ACEScg", "ACES2065-1", "Rec.2100 PQ", "Cineon Log", "Raw", "no such space"})
        EXPECT_TRUE(ownIccProfile(name).isEmpty()) << name;
}

TEST(ConfigurationTest, AFileThatCannotBeReadIsOneSentence)
{
    QTemporaryDir folder;
    const QString path = folder.filePath("config.ocio");
    QString error;
    EXPECT_FALSE(colourConfiguration(path, error));
    EXPECT_TRUE(error.startsWith("The colour configuration " + path + " can't be read: ")) << error.toStdString();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("ocio_profile_version: 2\n\nnonsense: [\n");
    file.close();
    error.clear();
    EXPECT_FALSE(colourConfiguration(path, error));
    EXPECT_FALSE(error.contains('\n'));
}

TEST(ConfigurationTest, AnUnknownNameIsOneSentence)
{
    QString error;
    const auto configuration = colourConfiguration({}, error);
    EXPECT_FALSE(configuration->converter("sRGB", "srgb nonsense", error));
    EXPECT_TRUE(error.startsWith("Colours can't be converted from sRGB to srgb nonsense: ")) << error.toStdString();
}
