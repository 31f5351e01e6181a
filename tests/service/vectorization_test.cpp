#include "core/frame/vectorizationinterface.h"
#include "engine/engine.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPolygonF>

#include <algorithm>
#include <cmath>

namespace {

/// The service, made as a batch makes it.
class VectorizationTest : public testing::Test {
protected:
    VectorizationTest()
    {
        brindle::engine::setBatchMode(brindle::engine::BatchMode::Python);
        OMC::VectorizationInterface::loadInterface(session.get());
    }
    ~VectorizationTest() override
    {
        OMC::VectorizationInterface::unloadInterface();
        brindle::engine::setBatchMode(brindle::engine::BatchMode::None);
    }

    QList<QPolygonF> outlines(const QImage& picture, int threshold = 128) const
    {
        return application.scriptHost()->vectorizationInterface()->outlines(picture, threshold);
    }

    /// Twice the area, positive for a way clockwise on the screen.
    static double turn(const QPolygonF& outline)
    {
        double sum = 0;
        for (int i = 0; i + 1 < outline.size(); ++i)
            sum += outline[i].x() * outline[i + 1].y() - outline[i + 1].x() * outline[i].y();
        return sum;
    }

    static QImage paper(int width, int height, std::initializer_list<QPoint> dark)
    {
        QImage picture(width, height, QImage::Format_RGB32);
        picture.fill(Qt::white);
        for (const QPoint& pixel : dark)
            picture.setPixel(pixel, qRgb(0, 0, 0));
        return picture;
    }

    brindle::engine::Application application{QStringLiteral("test"), QStringLiteral("1"), false};
    std::unique_ptr<SC_SessionContext> session = brindle::engine::createPythonSession();
};

TEST_F(VectorizationTest, TheServiceRegistersItself)
{
    EXPECT_NE(application.scriptHost()->vectorizationInterface(), nullptr);
    OMC::VectorizationInterface::unloadInterface();
    EXPECT_EQ(application.scriptHost()->vectorizationInterface(), nullptr);
}

TEST_F(VectorizationTest, APixelIsOutlinedAroundItsCentre)
{
    const QList<QPolygonF> found = outlines(paper(3, 3, {{1, 1}}));
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found[0].size(), 5);
    EXPECT_TRUE(found[0].isClosed());
    EXPECT_EQ(found[0].boundingRect().center(), QPointF(1.5, 1.5));
    EXPECT_NEAR(found[0].boundingRect().width(), 1.0, 0.01);
    EXPECT_GT(turn(found[0]), 0);
}

TEST_F(VectorizationTest, ADarkPictureIsOutlinedAtItsBorder)
{
    QImage picture(4, 3, QImage::Format_RGB32);
    picture.fill(Qt::black);
    const QList<QPolygonF> found = outlines(picture);
    ASSERT_EQ(found.size(), 1);
    EXPECT_NEAR(found[0].boundingRect().width(), 4.0, 0.01);
    EXPECT_NEAR(found[0].boundingRect().height(), 3.0, 0.01);
}

TEST_F(VectorizationTest, AHoleIsOutlinedTheOtherWayRound)
{
    QImage picture(5, 5, QImage::Format_RGB32);
    picture.fill(Qt::black);
    picture.setPixel(2, 2, qRgb(255, 255, 255));
    const QList<QPolygonF> found = outlines(picture);
    ASSERT_EQ(found.size(), 2);
    EXPECT_GT(turn(found[0]), 0);
    EXPECT_LT(turn(found[1]), 0);
}

TEST_F(VectorizationTest, TheOutlineLiesWhereTheDarknessPassesTheThreshold)
{
    QImage picture(1, 1, QImage::Format_RGB32);
    picture.fill(Qt::black);
    // From 0 half a pixel outside to 255 in the centre: the lower the threshold, the larger the outline.
    EXPECT_NEAR(outlines(picture, 1)[0].boundingRect().width(), 2 * (1 - 0.5 / 255), 1e-9);
    EXPECT_NEAR(outlines(picture, 255)[0].boundingRect().width(), 2 * (1 - 254.5 / 255), 1e-9);
    EXPECT_EQ(outlines(picture, -7), outlines(picture, 1));
    EXPECT_TRUE(outlines(picture, 256).isEmpty());
}

TEST_F(VectorizationTest, PixelsThatMeetAtACornerAreJoinedByTheMeanAroundThem)
{
    const QImage pair = paper(4, 4, {{1, 1}, {2, 2}});
    EXPECT_EQ(outlines(pair, 128).size(), 2);
    EXPECT_EQ(outlines(pair, 100).size(), 1);
    const QImage other = paper(4, 4, {{2, 1}, {1, 2}});
    EXPECT_EQ(outlines(other, 128).size(), 2);
    EXPECT_EQ(outlines(other, 100).size(), 1);
}

TEST_F(VectorizationTest, WhatIsTransparentIsPaper)
{
    QImage picture(3, 3, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    EXPECT_TRUE(outlines(picture).isEmpty());
    picture.setPixel(1, 1, qRgba(0, 0, 0, 255));
    EXPECT_EQ(outlines(picture).size(), 1);
    EXPECT_TRUE(outlines(QImage()).isEmpty());
}

TEST_F(VectorizationTest, ADiscHasTheAreaOfADisc)
{
    const double radius = 20;
    QImage picture(50, 50, QImage::Format_RGB32);
    for (int y = 0; y < 50; ++y) {
        for (int x = 0; x < 50; ++x) {
            const double inside = std::clamp(radius - std::hypot(x - 24.5, y - 24.5) + 0.5, 0.0, 1.0);
            const int light = 255 - static_cast<int>(inside * 255);
            picture.setPixel(x, y, qRgb(light, light, light));
        }
    }
    const QList<QPolygonF> found = outlines(picture);
    ASSERT_EQ(found.size(), 1);
    EXPECT_NEAR(turn(found[0]) / 2, std::acos(-1) * radius * radius, 5);
}

} // namespace
