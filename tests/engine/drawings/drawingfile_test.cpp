#include "engine/drawings/drawingfile.h"

#include "tests/engine/drawings/randomdrawingedits.h"

#include <QtEndian>

namespace {

using namespace brindle::engine;

/// The bytes of a drawing after some edits at random.
QByteArray randomFile(unsigned int seed, int count)
{
    const auto scratch = GR_CompositeVectorDrawingObj::Create(nullptr);
    RandomDrawingEdits edits(seed);
    GR_DrawingAccess access;
    access.SetDrawing(dynamic_cast<GR_VectorDrawingObj*>(scratch->GetArt(0)));
    for (; count > 0; --count)
        edits.edit(access);
    scratch->GetDrawingInfo()->SetPivotPoint({1.5, -2});
    scratch->GetDrawingInfo()->fieldSize = -3;
    scratch->InfoChanged();
    return drawingFileBytes(*liveDrawing(scratch.data())->value());
}

QString failureOf(const QByteArray& bytes)
{
    try {
        readDrawingFile("/p/1.pnt", bytes);
        return {};
    } catch (const FolderFailure& failure) {
        return failure.reason;
    }
}

/// The file with this body: with the size and the checksum that it must have.
QByteArray fileOf(const QByteArray& body)
{
    QByteArray head(12, '\0');
    qToLittleEndian(static_cast<quint64>(body.size()), head.data());
    qToLittleEndian(Checksum::of(body).crc, head.data() + 8);
    return "brindle-drawing 1\n" + head + body;
}

constexpr qsizetype headSize = 18 + 12;

} // namespace

TEST(DrawingFile, ReadsWhatItWrote)
{
    for (unsigned int seed = 0; seed < 20; ++seed) {
        const QByteArray bytes = randomFile(seed, 60);
        const DrawingPointer read = readDrawingFile("1", bytes);
        EXPECT_EQ(drawingFileBytes(*read), bytes);
        EXPECT_EQ(read->info.GetPivotPoint(), (Math::Point2d{1.5, -2}));
        EXPECT_EQ(read->info.fieldSize, -3);
    }
}

TEST(DrawingFile, KeepsWhichStrokesShareAThickness)
{
    const auto scratch = GR_CompositeVectorDrawingObj::Create(nullptr);
    GR_DrawingAccess access;
    access.SetDrawing(dynamic_cast<GR_VectorDrawingObj*>(scratch->GetArt(0)));
    UT_Node* layer = access.CreateLayerAbove(GR_Layer::kPen, nullptr);
    for (int count = 0; count < 4; ++count)
        access.Insert(straightStroke({double(count), 0}, {double(count) + 1, 0}), layer);
    access.setSharedThicknessPath({strokeAt(layer, 0), strokeAt(layer, 2)}, widthPath(3));
    access.setSharedThicknessPath({strokeAt(layer, 1)}, widthPath(3));
    const DrawingPointer read = readDrawingFile("1", drawingFileBytes(*liveDrawing(scratch.data())->value()));
    const StrokeSequence& strokes = read->arts[0]->layers[0]->strokes;
    const auto binder = [&strokes](std::size_t index) { return strokes.at(index)->data.GetThicknessBinder(); };
    EXPECT_TRUE(binder(0).isSharing(binder(2)));
    EXPECT_FALSE(binder(0).isSharing(binder(1)));
    EXPECT_EQ(binder(1).thicknessPath()->maxThickness(), 3);
    EXPECT_EQ(binder(3).thicknessPath(), nullptr);
}

TEST(DrawingFile, RoundsPointsToTheQuantum)
{
    const auto scratch = GR_CompositeVectorDrawingObj::Create(nullptr);
    GR_DrawingAccess access;
    access.SetDrawing(dynamic_cast<GR_VectorDrawingObj*>(scratch->GetArt(0)));
    access.Insert(straightStroke({0.3, 0.8}, {5.1, 5}), access.CreateLayerAbove(GR_Layer::kPen, nullptr));
    scratch->GetDrawingInfo()->pointQuantum = 0.5;
    scratch->InfoChanged();
    const DrawingPointer read = readDrawingFile("1", drawingFileBytes(*liveDrawing(scratch.data())->value()));
    EXPECT_EQ(read->arts[0]->layers[0]->strokes.at(0)->data.GetPath().GetFromPoint(), (Math::Point2d{0.5, 1}));
}

TEST(DrawingFile, SaysWhatIsWrong)
{
    const QByteArray file = randomFile(1, 20);
    QByteArray flipped = file;
    flipped[headSize + 5] = static_cast<char>(~flipped[headSize + 5]);
    const QByteArray body = file.sliced(headSize);
    const struct {
        QByteArray bytes;
        const char* reason;
    } cases[] = {
        {"", "\"/p/1.pnt\" is no drawing"},
        {"scribble\n", "\"/p/1.pnt\" is no drawing"},
        {"brindle-drawing one\n", "\"/p/1.pnt\" is no drawing"},
        {"brindle-drawing 01\n", "\"/p/1.pnt\" is no drawing"},
        {"brindle-drawing 9\n", "\"/p/1.pnt\" has format version 9, and this version of the application reads version 1"},
        {file.first(headSize - 3), "\"/p/1.pnt\" is damaged: it ends too early"},
        {file.first(file.size() - 1), "\"/p/1.pnt\" is damaged: it has not the size that it tells"},
        {file + ' ', "\"/p/1.pnt\" is damaged: it has not the size that it tells"},
        {flipped, "\"/p/1.pnt\" is damaged: its checksum is wrong"},
        {fileOf(body + ' '), "\"/p/1.pnt\" is damaged: it has more than a drawing"},
        {fileOf("\x07"), "\"/p/1.pnt\" is damaged: it has unknown flags"},
    };
    for (const auto& [bytes, reason] : cases)
        EXPECT_EQ(failureOf(bytes).toStdString(), reason);
    EXPECT_EQ(failureOf(file), QString());
}

TEST(DrawingFile, EachTruncationIsOneSentence)
{
    const QByteArray file = randomFile(3, 30);
    for (qsizetype size = 0; size < file.size(); ++size)
        EXPECT_FALSE(failureOf(file.first(size)).isEmpty()) << size;
    const QByteArray body = file.sliced(headSize);
    for (qsizetype size = 0; size < body.size(); ++size)
        EXPECT_FALSE(failureOf(fileOf(body.first(size))).isEmpty()) << size;
}

/// Damage that the checksum hides: one sentence, or a drawing that can be written and read again.
TEST(DrawingFile, DamagedBodiesAreASentenceOrADrawing)
{
    std::mt19937 random(11);
    int drawings = 0;
    for (int round = 0; round < 20'000; ++round) {
        static QByteArray body;
        if (round % 500 == 0)
            body = randomFile(static_cast<unsigned int>(round), 40).sliced(headSize);
        QByteArray damaged = body;
        for (unsigned int flips = 1 + random() % 3; flips > 0; --flips)
            damaged[static_cast<qsizetype>(random() % static_cast<unsigned int>(damaged.size()))] =
                static_cast<char>(random() % 256);
        const QByteArray file = fileOf(damaged);
        try {
            const DrawingPointer read = readDrawingFile("1", file);
            const QByteArray written = drawingFileBytes(*read);
            ASSERT_EQ(drawingFileBytes(*readDrawingFile("1", written)), written);
            ++drawings;
        } catch (const FolderFailure& failure) {
            ASSERT_FALSE(failure.reason.contains(u'\n'));
        }
    }
    EXPECT_GT(drawings, 100);
}
