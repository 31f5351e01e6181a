#pragma once

#include "tests/core/support/failure.h"
#include "tests/core/support/graph.h"

#include <functional>
#include <string>

/// A project on which a test says of each call what it does to the saved form and to the undo list.
class ChangeTest : public GraphTest {
protected:
    /// The call makes one entry of this label, which undoes and redoes exactly.
    void changes(const std::function<void()>& call, const QString& label)
    {
        const QByteArray before = saved();
        const QStringList done = labels();
        EXPECT_EQ(failureOf(call), "no exception");
        EXPECT_EQ(textOf(labels()), textOf(done + QStringList(label)));
        const QByteArray after = saved();
        EXPECT_NE(after, before);
        for (int round = 0; round < 2; ++round) {
            undo();
            EXPECT_EQ(saved(), before);
            redo();
            EXPECT_EQ(saved(), after);
        }
    }

    /// The call fails with this sentence and leaves everything as it was.
    void refuses(const std::function<void()>& call, const char* sentence) { leavesAll(call, sentence); }

    /// The call succeeds and leaves everything as it was.
    void leaves(const std::function<void()>& call) { leavesAll(call, "no exception"); }

private:
    static std::string textOf(const QStringList& names) { return names.join(QStringLiteral("; ")).toStdString(); }

    void leavesAll(const std::function<void()>& call, const char* sentence)
    {
        const QByteArray before = saved();
        const QStringList done = labels();
        const QStringList undone = redoLabels();
        EXPECT_EQ(failureOf(call), sentence);
        EXPECT_EQ(textOf(labels()), textOf(done));
        EXPECT_EQ(textOf(redoLabels()), textOf(undone));
        EXPECT_EQ(saved().toStdString(), before.toStdString());
    }
};
