#include "app/desk/options.h"

#include <gtest/gtest.h>

namespace {

using app::desk::Options;
using app::desk::optionsFrom;

constexpr char usage[] = "Usage: brindle desk [--new | --read-only] [--verbose] DIR [--run SCRIPT [ARGUMENT...]]";

TEST(DeskOptionsTest, AProjectAndWhatIsAskedOfItAreRead)
{
    const Options plain = optionsFrom({"walk"});
    EXPECT_EQ(plain.error, "");
    EXPECT_EQ(plain.project, "walk");
    EXPECT_FALSE(plain.make || plain.readOnly || plain.verbose);
    EXPECT_TRUE(plain.script.isEmpty());
    EXPECT_TRUE(optionsFrom({"--new", "walk"}).make);
    EXPECT_TRUE(optionsFrom({"walk", "--read-only"}).readOnly);
    EXPECT_TRUE(optionsFrom({"--verbose", "walk"}).verbose);
}

TEST(DeskOptionsTest, WhatStandsBehindTheScriptIsItsOwn)
{
    const Options options = optionsFrom({"walk", "--run", "go.py", "--new", "--verbose", "walk", "--run"});
    EXPECT_EQ(options.error, "");
    EXPECT_EQ(options.script, QStringList({"go.py", "--new", "--verbose", "walk", "--run"}));
    EXPECT_FALSE(options.make || options.verbose);
}

TEST(DeskOptionsTest, ArgumentsThatDontFitAreRefusedInASentence)
{
    struct Row {
        QStringList arguments;
        QString error;
    };
    const Row rows[] = {
        {{}, usage},
        {{""}, usage},
        {{"--new"}, usage},
        {{"--run", "go.py"}, usage},
        {{"a", "b"}, usage},
        {{"--paint", "a"}, usage},
        {{"a", "--run"}, "--run needs a script."},
        {{"--new", "--read-only", "a"}, "--new and --read-only don't go together."},
        {{"--new", "a", "--read-only", "--run", "go.py"}, "--new and --read-only don't go together."},
    };
    for (const Row& row : rows)
        EXPECT_EQ(optionsFrom(row.arguments).error, row.error) << row.arguments.join(u' ').toStdString();
}

} // namespace
