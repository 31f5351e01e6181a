#include "core/drawings/drawing.h"

#include "core/drawings/drawingaccess.h"
#include "core/drawings/drawingartlayer.h"
#include "core/drawings/drawingbitmaplayer.h"
#include "core/drawings/drawingtextlayer.h"
#include "core/drawings/drawingvectorlayer.h"
#include "tests/core/support/otherthread.h"
#include "tests/core/support/scratchdrawings.h"

#include <memory>

using namespace OMC;

namespace {

class DrawingWrapper : public DrawingTest {
public:
    Drawing whole{drawing.data(), CA_CelKey()};
};

template <typename T>
const T* in(const QVariant& value)
{
    return objectFrom<T>(value);
}

} // namespace

TEST_F(DrawingWrapper, FindsArtLayersByTheBeginningOfTheirNames)
{
    const std::pair<const char*, int> names[] = {
        {"LINE_ART", 2},     {"lineart", 2}, {"line", 2},  {"colour", 1}, {"colours", 1}, {"Color", 1}, {"color", 1},
        {"underlay art", 0}, {"OVERLAY", 3}, {"colo", -1}, {"ink", -1},   {"", -1},       {"aline", -1}};
    for (const auto& [name, index] : names)
        EXPECT_EQ(Drawing::artIndex(QString::fromLatin1(name)), index) << name;
    EXPECT_EQ(failureOf([&] { whole(QStringLiteral("ink")); }), "Unexpected layer name.");
    EXPECT_EQ(&in<DrawingVectorArtLayer>(whole(QStringLiteral("line")))->drawingBase(), art());
}

TEST_F(DrawingWrapper, IsInvalidWithoutADrawing)
{
    const Drawing nothing(nullptr, CA_CelKey());
    EXPECT_EQ(failureOf([&] { nothing.size(); }), objectGone);
    EXPECT_EQ(failureOf([&] { nothing.get(9); }), objectGone);
    const DrawingArtLayer art(nullptr, key());
    EXPECT_EQ(failureOf([&] { art.drawingBase(); }), objectGone);
}

TEST_F(DrawingWrapper, ReadsPropertiesByName)
{
    bool found = false;
    EXPECT_TRUE(whole.getAttr("colors", found).isValid());
    EXPECT_TRUE(found);
    EXPECT_TRUE(whole.getAttr("empty", found).toBool());
    EXPECT_EQ(failureOf([&] { whole.getAttr("pivot", found); }), "Failed to read the property.");
    EXPECT_EQ(failureOf([&] { whole.setAttr("modified", true, found); }), "Property is read-only.");
    DrawingVectorArtLayer lines = wrapper();
    EXPECT_EQ(failureOf([&] { lines.setAttr("pivot_defined", false, found); }),
              "Unable to set a pivot on a vector art layer. It must be set on the vector composite object.");
}

TEST_F(DrawingWrapper, ADrawingOfNoElementHasNoPivotToSet)
{
    QVariant place = QVariantList{1.0, 2.0};
    EXPECT_EQ(failureOf([&] { whole.setPivot(place); }), unexpectedError);
    EXPECT_FALSE(whole.getPivotDefined());
    EXPECT_TRUE(labels().isEmpty());
}

TEST_F(DrawingWrapper, MayBeReadOnAnyThreadAsAWholeOnly)
{
    DrawingVectorArtLayer lines = wrapper();
    lines.add(QStringLiteral("PEN_LAYER"));
    const QVariant layer = lines.get(0);
    const std::vector<std::string> failures = failuresOnOtherThread(
        {[&] { whole.size(); }, [&] { whole.getBoundingBox(); }, [&] { lines.size(); }, [&] { lines.clear(); },
         [&] { in<DrawingLayer>(layer)->getType(); }, [&] { DrawingAccess().vectorEndOperations(true); },
         [&] { DrawingAccess().vectorLayerCreate(QStringLiteral("PEN_LAYER")); },
         [&] { DrawingAccess().vectorBeginOperations(toVariant(lines.copy())); }});
    EXPECT_EQ(failures[0], passes);
    EXPECT_EQ(failures[1], passes);
    const std::string refused = failures[2];
    EXPECT_NE(refused, passes);
    for (std::size_t call = 3; call < failures.size(); ++call)
        EXPECT_EQ(failures[call], refused) << call;
    EXPECT_EQ(lines.size(), 1u);
}

TEST_F(DrawingWrapper, AnArtLayerIsInvalidWhereItsPlaceHoldsAnother)
{
    const DrawingVectorArtLayer misplaced(art(GR_CompositeVectorDrawingObj::kColour), key());
    EXPECT_EQ(failureOf([&] { misplaced.size(); }), objectGone);
}

TEST_F(DrawingWrapper, CollectsArtLayersEachOnce)
{
    const auto value = [this](int index) { return toVariant(DrawingArtLayer::getWrapped(art(index), key(index))); };
    std::set<GR_DrawingBase*> seen;
    std::vector<GR_DrawingBase*> found;
    DrawingArtLayer::getDrawingBaseFromQVariant(
        QVariantList{value(2), QVariantList{value(1), value(2)}, 7, QVariant(), value(1)}, seen, found);
    EXPECT_EQ(found, (std::vector<GR_DrawingBase*>{art(2), art(1)}));
}

TEST_F(DrawingWrapper, WrapsLayersByTheirKinds)
{
    DrawingVectorArtLayer lines = wrapper();
    EXPECT_TRUE(in<DrawingVectorLayer>(lines.add(QStringLiteral("PAINT_LAYER"))));
    EXPECT_TRUE(in<DrawingTextLayer>(lines.add(QStringLiteral("TEXT_LAYER"))));
    EXPECT_TRUE(in<DrawingBitmapLayer>(lines.add(QStringLiteral("BITMAP_LAYER"))));
    EXPECT_EQ(DrawingLayer::getWrapped(art(), art()->GetNonConstRootnode(), key()), nullptr);
    const auto record = DrawingLayerImplShared::of(art(), leaves()[0], key());
    const DrawingLayer plain(record.get());
    EXPECT_EQ(plain.getType(), "Unknown");
    EXPECT_EQ(plain.__str__(), "DrawingLayer()");
}
