#include <QUndoCommand>
#include <QUndoStack>

#include <benchmark/benchmark.h>

#include <utility>

// The cost of Qt's own undo list: a command that changes a number, pushed one by one, and as a macro that is undone.

namespace {

class SetNumber final : public QUndoCommand {
public:
    SetNumber(int& number, int value) : m_number(number), m_value(value) { setText(QStringLiteral("Set Number")); }

    void redo() override { std::swap(m_number, m_value); }
    void undo() override { std::swap(m_number, m_value); }

private:
    int& m_number;
    int m_value; // that it gets next
};

constexpr int undoLimit = 100'000;

void floorUndoCommand(benchmark::State& state)
{
    QUndoStack stack;
    stack.setUndoLimit(undoLimit);
    int number = 0;
    int value = 0;
    for (auto _ : state)
        stack.push(new SetNumber(number, ++value));
}

/// One macro of so many changes.
struct Macro {
    explicit Macro(int changes)
    {
        stack.beginMacro(QStringLiteral("Set all"));
        for (int change = 0; change < changes; ++change)
            stack.push(new SetNumber(number, change));
        stack.endMacro();
    }

    int number = 0;
    QUndoStack stack;
};

void floorUndoMacro(benchmark::State& state)
{
    Macro macro(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        macro.stack.undo();
        state.PauseTiming();
        macro.stack.redo();
        state.ResumeTiming();
    }
}

void floorRedoMacro(benchmark::State& state)
{
    Macro macro(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        macro.stack.undo();
        state.ResumeTiming();
        macro.stack.redo();
    }
}

BENCHMARK(floorUndoCommand);
BENCHMARK(floorUndoMacro)->Arg(100000);
BENCHMARK(floorRedoMacro)->Arg(100000);

} // namespace
