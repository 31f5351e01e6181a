#include "app/desk/options.h"

#include <gtest/gtest.h>

namespace {

using app::desk::Options;
using app::desk::optionsFrom;

QString noSuchOption(const char* name)
{
    return QString("There is no option \"%1\"; brindle desk --help lists them. A name that begins with \"-\" stands "
                   "behind \"--\".")
        .arg(name);
}

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

TEST(DeskOptionsTest, TheProcessThatOffersAnInterruptHasNoProject)
{
    const Options options = optionsFrom({"--interrupter"});
    EXPECT_EQ(options.error, "");
    EXPECT_TRUE(options.interrupter);
    EXPECT_EQ(optionsFrom({"--interrupter", "walk"}).error, usage);
}

TEST(DeskOptionsTest, WhatStandsBehindTheScriptIsItsOwn)
{
    const Options options = optionsFrom({"walk", "--run", "go.py", "--new", "--verbose", "walk", "--run"});
    EXPECT_EQ(options.error, "");
    EXPECT_EQ(options.script, QList<QByteArray>({"go.py", "--new", "--verbose", "walk", "--run"}));
    EXPECT_FALSE(options.make || options.verbose);
}

TEST(DeskOptionsTest, ANameMayBeginWithADashAndHelpGoesAhead)
{
    EXPECT_EQ(optionsFrom({"--", "-walk"}).project, "-walk");
    const Options made = optionsFrom({"--new", "--", "--help", "--run", "go.py"});
    EXPECT_EQ(made.error, "");
    EXPECT_TRUE(made.make && !made.help && made.project == "--help" && made.script.size() == 1);
    for (const char* name : {"-h", "--help"})
        EXPECT_TRUE(optionsFrom({"--new", name}).help);
    EXPECT_FALSE(optionsFrom({"walk", "--run", "go.py", "--help"}).help);
}

TEST(DeskOptionsTest, ArgumentsThatDontFitAreRefusedInASentence)
{
    struct Row {
        QList<QByteArray> arguments;
        QString error;
    };
    const Row rows[] = {
        {{}, usage},
        {{""}, usage},
        {{"--new"}, usage},
        {{"--run", "go.py"}, usage},
        {{"a", "b"}, usage},
        {{"--paint", "a"}, noSuchOption("--paint")},
        {{"-walk"}, noSuchOption("-walk")},
        {{"--"}, usage},
        {{"\xff"}, "The name \"\uFFFD\" is no text in UTF-8."},
        {{"a", "--run"}, "--run needs a script."},
        {{"--new", "--read-only", "a"}, "--new and --read-only don't go together."},
        {{"--new", "a", "--read-only", "--run", "go.py"}, "--new and --read-only don't go together."},
    };
    for (const Row& row : rows)
        EXPECT_EQ(optionsFrom(row.arguments).error, row.error) << row.arguments.join(' ').toStdString();
}

} // namespace
