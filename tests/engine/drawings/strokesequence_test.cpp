#include "engine/drawings/strokesequence.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using brindle::engine::StrokePointer;
using brindle::engine::StrokeRecord;
using brindle::engine::StrokeSequence;

StrokePointer stroke(quint32 id)
{
    return std::make_shared<StrokeRecord>(StrokeRecord{id, {}});
}

std::vector<quint32> ids(const StrokeSequence& strokes)
{
    std::vector<quint32> found;
    strokes.forEach([&found](const StrokePointer& stroke) { found.push_back(stroke->id); });
    return found;
}

} // namespace

TEST(StrokeSequence, IsAVectorWhoseCopiesStayAsTheyWere)
{
    std::mt19937 random(7);
    StrokeSequence strokes;
    std::vector<quint32> model;
    std::vector<std::pair<StrokeSequence, std::vector<quint32>>> copies;
    for (quint32 step = 1; step < 4000; ++step) {
        const std::size_t place = model.empty() ? 0 : random() % model.size();
        switch (random() % 5) {
        case 0:
            if (!model.empty()) {
                strokes.erase(place);
                model.erase(model.begin() + static_cast<std::ptrdiff_t>(place));
            }
            break;
        case 1:
            if (!model.empty()) {
                strokes.set(place, stroke(step));
                model[place] = step;
            }
            break;
        default:
            strokes.append(stroke(step));
            model.push_back(step);
        }
        ASSERT_EQ(strokes.size(), model.size());
        if (!model.empty()) {
            const std::size_t seen = random() % model.size();
            ASSERT_EQ(strokes.at(seen)->id, model[seen]);
        }
        if (step % 500 == 0)
            copies.emplace_back(strokes, model);
    }
    for (const auto& [copy, kept] : copies)
        EXPECT_EQ(ids(copy), kept);
}

TEST(StrokeSequence, EqualityLooksAtStrokesAndNotAtChunks)
{
    StrokeSequence one;
    StrokeSequence other;
    for (quint32 id = 1; id <= 300; ++id)
        one.append(stroke(id));
    for (quint32 id = 0; id <= 300; ++id)
        other.append(stroke(id));
    EXPECT_FALSE(one == other);
    other.erase(0);
    EXPECT_TRUE(one == other);
    other.set(299, stroke(7));
    EXPECT_FALSE(one == other);
}
