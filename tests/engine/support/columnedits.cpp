#include "tests/engine/support/columnedits.h"

#include "core/host/at_timedvaluevisitor.h"
#include "core/host/em_commands.h"
#include "core/host/sc_scene.h"
#include "engine/curves/column.h"
#include "engine/exposure/textcolumn.h"

#include <limits>

namespace {

class RandomEdit final : public AT_TimedValueVisitor {
public:
    explicit RandomEdit(std::mt19937& random) : m_random(random) {}

    using AT_TimedValueVisitor::visit;

    void visit(TUExprTimedValue& column) override
    {
        const SC_TimedValueListInterface& columns = *column.sceneCommon()->timedValues();
        QString name = columns.timedValuesBegin()[below(static_cast<unsigned>(columns.timedValueCount()))]->getName();
        name.replace(u'\\', "\\\\").replace(u'"', "\\\"");
        const QString texts[] = {QString(), "frame * 2", "1 +", "value(\"" + name + "\")",
                                 "value(\"" + name + "\", frame - 1) / 3"};
        made = std::make_unique<tu_timedvalue::expr::SetExprCmd>(&column, texts[below(std::size(texts))]);
    }

    void visit(AT_FncTimedValue& column) override
    {
        std::vector<double> refused;
        CO_Command* command = nullptr;
        brindle::engine::Column& own = *brindle::engine::Column::of(&column);
        switch (below(5)) {
        case 0:
            made.reset(column.createKeyframes({frame(), frame(), frame()}, refused));
            break;
        case 1:
            column.removeKeyframes(frame(), frame(), &command);
            made.reset(command);
            break;
        case 2:
            column.scale(below(5) - 2, static_cast<int>(below(4)), &command);
            made.reset(command);
            break;
        case 3:
            made.reset(column.spliceCommand(frame(), below(2)));
            break;
        default:
            if (own.positions())
                made = own.positions()->setPositionCommand(frame(), {number(), number(), number()});
            else
                made = own.numbers()->setValueCommand(frame(), number());
        }
    }

    void visit(TUFnc2DTimedValue& column) override
    {
        switch (below(6)) {
        case 0:
            made = std::make_unique<tu_timedvalue::fnc2d::SetStartCmd>(&column, static_cast<int>(frame()));
            break;
        case 1:
            made = std::make_unique<tu_timedvalue::fnc2d::SetStopCmd>(&column, static_cast<int>(frame()));
            break;
        case 2:
            made = std::make_unique<tu_timedvalue::fnc2d::SetStepCmd>(&column, static_cast<int>(below(4)));
            break;
        default:
            visit(static_cast<AT_FncTimedValue&>(column));
        }
    }

    void visit(TUBezierTimedValue& column) override
    {
        namespace edit = tu_timedvalue::bezier;
        const double at = pointOf(column);
        switch (below(8)) {
        case 0:
            made = std::make_unique<edit::SpliceCmd>(&column, frame(), true, below(2));
            break;
        case 1:
            made = std::make_unique<edit::SetLeftHandleGlobalCmd>(&column, at, at - below(9), number());
            break;
        case 2:
            made = std::make_unique<edit::SetRightHandleGlobalCmd>(&column, at, at + below(9), number());
            break;
        default:
            editPoint<edit::RemovePointCmd, edit::SetPointCmd2, edit::SetConstSegCmd, edit::SetContinuityCmd>(column,
                                                                                                              at);
        }
    }

    void visit(TUEaseTimedValue& column) override
    {
        namespace edit = tu_timedvalue::ease;
        const double at = pointOf(column);
        switch (below(10)) {
        case 0:
            made = std::make_unique<edit::SpliceCmd>(&column, frame(), true);
            break;
        case 1:
            made = std::make_unique<edit::SetEaseInCmd>(&column, at, number() / 10);
            break;
        case 2:
            made = std::make_unique<edit::SetEaseOutCmd>(&column, at, number() / 10);
            break;
        case 3:
            made = std::make_unique<edit::SetSlopeInCmd>(&column, at, number());
            break;
        case 4:
            made = std::make_unique<edit::SetSlopeOutCmd>(&column, at, number());
            break;
        default:
            editPoint<edit::RemovePointCmd, edit::SetPointCmd2, edit::SetConstSegCmd, edit::SetContinuityCmd>(column,
                                                                                                              at);
        }
    }

    void visit(TUVeloBasedTimedValue& column) override
    {
        namespace edit = tu_timedvalue::velobased;
        const double at = pointOf(column);
        switch (below(5)) {
        case 0:
            made = std::make_unique<edit::SpliceCmd>(&column, frame(), true);
            break;
        case 1:
            made = std::make_unique<edit::RemovePointCmd>(&column, at);
            break;
        case 2:
            made = std::make_unique<edit::SetPointCmd2>(&column, at, below(3) ? at : frame(),
                                                        below(2) ? below(8) - 1.0 : number() / 20);
            break;
        case 3:
            made = std::make_unique<tu_timedvalue::path3d::SetConstSegFrameCmd>(&column, at, below(2));
            break;
        default:
            visit(static_cast<TUFnc2DTimedValue&>(column));
        }
    }

    void visit(AT_Fnc3dTimedValue& column) override
    {
        namespace edit = tu_timedvalue::path3d;
        const int point = static_cast<int>(below(static_cast<unsigned int>(column.pathSize()) + 2)) - 1;
        switch (below(9)) {
        case 0:
        case 1:
            made = std::make_unique<edit::AddKeyFrameCmd>(&column, frame(), number(), number(), number());
            break;
        case 2:
            made = std::make_unique<edit::MoveCtrlPtCmd>(&column, point, number(), number(), number());
            break;
        case 3:
            made = std::make_unique<edit::SetParametersCmd>(&column, point, number() / 150, number() / 150, 0.5);
            break;
        case 4:
            made = std::make_unique<edit::RemoveCtrlPtCmd>(&column, point);
            break;
        case 5:
            made = std::make_unique<edit::TrimCtrlPtsCmd>(&column);
            break;
        case 6:
            visit(*column.velocity());
            if (made)
                made = std::make_unique<edit::Path3DVeloCmd>(&column, made.release());
            break;
        case 7:
            visit(*column.velocity());
            break;
        default:
            visit(static_cast<AT_FncTimedValue&>(column));
        }
    }

    void visit(TUSeqTimedValue& column) override
    {
        static const QStringList names{"a", "b", "", "12", "\U0001F600 x"};
        QStringList given;
        for (unsigned int count = below(5); count > 0; --count)
            given.append(names[static_cast<int>(below(5))]);
        auto commands = std::make_unique<CO_AndCommand>();
        CO_Command* command = nullptr;
        switch (below(6)) {
        case 0:
            column.clear(frame(), static_cast<int>(below(6)) - 1, below(2), &command);
            made.reset(command);
            break;
        case 1:
            made.reset(column.spliceCommand(frame(), false));
            break;
        case 2:
            made.reset(DuplicateDrawingCmd::CreateWithFillDuplicate(&column, 0, static_cast<int>(frame()),
                                                                    static_cast<int>(frame()), "LT", below(2)));
            break;
        case 3:
            made.reset(DuplicateDrawingCmd::Create(&column, 0, frame(), 1));
            break;
        default:
            column.createSetValueCmd(nullptr, frame(), given, 0, *commands);
            made = std::move(commands);
        }
    }

    void visit(TUSoundTimedValue& column) override { writeText(column); }
    void visit(AT_AnnotationTimedValue& column) override { writeText(column); }
    void visit(AT_FileLibraryTimedValue& column) override { writeText(column); }

    std::unique_ptr<CO_Command> made;

private:
    /// One of the edits that bezier and ease columns share, or one of those that all curves have.
    template <typename Remove, typename SetPoint, typename SetConstSegment, typename SetContinuity, typename Column>
    void editPoint(Column& column, double at)
    {
        switch (below(5)) {
        case 0:
            made = std::make_unique<Remove>(&column, at);
            break;
        case 1:
            made = std::make_unique<SetPoint>(&column, at, below(3) ? at : frame(), number());
            break;
        case 2:
            made = std::make_unique<SetConstSegment>(&column, at, below(2));
            break;
        case 3:
            made = std::make_unique<SetContinuity>(&column, at, static_cast<int>(below(4)), 0);
            break;
        default:
            visit(static_cast<TUFnc2DTimedValue&>(column));
        }
    }
    void writeText(TUTimedValue& column)
    {
        static const QStringList texts{"", "x", "x", "two\nlines", "\U0001F600"};
        made = brindle::engine::TextCells::of(&column)->writeCommand(
            static_cast<int>(frame()), static_cast<int>(below(4)), texts[static_cast<int>(below(5))]);
    }

    unsigned int below(unsigned int count) { return static_cast<unsigned int>(m_random() % count); }
    double frame() { return below(4) ? below(60) : below(600) / 10.0 - 5; }
    double number()
    {
        constexpr double odd[] = {0, 0.1, 1e300, -1e-300, 1.0 / 3, -7, std::numeric_limits<double>::infinity()};
        return below(8) == 0 ? odd[below(std::size(odd))] : below(2'000'001) / 1e4 - 100;
    }
    /// The frame of one of the points, or one without a point.
    double pointOf(const TUFnc2DTimedValue& column)
    {
        const int count = column.pointCount();
        return count == 0 || below(8) == 0
                   ? frame()
                   : column.curvePoint(static_cast<int>(below(static_cast<unsigned>(count)))).frame;
    }

    std::mt19937& m_random;
};

} // namespace

std::unique_ptr<CO_Command> randomEdit(TUTimedValue& column, std::mt19937& random)
{
    RandomEdit edit(random);
    column.accept(edit);
    return std::move(edit.made);
}
