#include "core/frame/unexpected.h"

#include "core/frame/baseobject.h"
#include "core/frame/undo.h"

#include <gtest/gtest.h>

namespace {

using namespace OMC;

TEST(Unexpected, EachSentenceIsThrownLetterForLetter)
{
    const struct {
        unexpected::Sentence sentence;
        const char* text;
    } rows[] = {
        {unexpected::ErrorOccurred, "An unexpected error occurred."},
        {unexpected::ErrorHasOccurred, "An unexpected error has occurred."},
        {unexpected::ExceptionMisspelt, "An unknwon exception has occurred."},
        {unexpected::Error, "Unexpected error"},
        {unexpected::ErrorAtCheck1, "An unexpected error occurred [1]."},
        {unexpected::ErrorAtCheck2, "An unexpected error occurred [2]."},
        {unexpected::ErrorAtCheck3, "An unexpected error occurred [3]."},
    };
    for (const auto& row : rows) {
        try {
            unexpected::fail(row.sentence);
        } catch (const Exception& exception) {
            EXPECT_STREQ(exception.what(), row.text);
        }
        EXPECT_EQ(unexpected::text(row.sentence), QLatin1String(row.text));
    }
}

TEST(Unexpected, AMissingCommandManagerIsTheUsualSentence)
{
    try {
        undo::manager(nullptr);
        FAIL();
    } catch (const Exception& exception) {
        EXPECT_STREQ(exception.what(), "An unexpected error occurred.");
    }
}

} // namespace
