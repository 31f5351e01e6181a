#pragma once

#include "core/attributes/attributelist.h"
#include "core/attributes/doubleattribute.h"
#include "core/columns/beziercolumn.h"
#include "core/columns/beziercolumnvalue.h"
#include "core/host/at_attr.h"
#include "core/host/tu_timedvalue.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/graph.h"

#include <utility>
#include <vector>

/// A project with nodes whose attributes can be animated. What sets it up leaves no undo entry.
class AnimationTest : public GraphTest {
protected:
    using Keys = std::vector<std::pair<int, double>>;

    OMC::Obj wrapped(const QString& path, MO_Node* node = nullptr) const
    {
        return OMC::AttributeList(node ? node : peg, {}, OMC::AttributeList::AllOfLevel).get(path);
    }

    /// A copy of the wrapper of an attribute, under the class that the test expects.
    template <typename T>
    T attribute(const QString& path, MO_Node* node = nullptr) const
    {
        return *OMC::objectIn<T>(wrapped(path, node));
    }

    OMC::DoubleAttribute number(const QString& path) const { return attribute<OMC::DoubleAttribute>(path); }
    AT_Attr* engineAttribute(const QString& path, MO_Node* node = nullptr) const
    {
        return OMC::Attribute::attribFromFullPath(node ? node : peg, path);
    }
    TUBezierTimedValue* curveOf(const QString& path) const
    {
        return dynamic_cast<TUBezierTimedValue*>(engineAttribute(path)->socket()->linkedTimedValue());
    }

    /// Gives an attribute of the peg a column with these keys.
    TUBezierTimedValue* animate(const QString& path, const Keys& keys)
    {
        OMC::DoubleAttribute attribute = number(path);
        for (const auto& [frame, value] : keys)
            attribute.setValue(frame, value);
        manager().clearHistory();
        return curveOf(path);
    }

    static Keys keysOf(const TUBezierTimedValue& curve)
    {
        Keys keys;
        for (int index = 0; index < curve.pointCount(); ++index)
            keys.emplace_back(static_cast<int>(curve.point(index).frame), curve.point(index).value);
        return keys;
    }

    /// Undoing what was done last gives back the project as it was saved before, and redoing gives it again.
    void expectUndoable(const QByteArray& before)
    {
        const std::string after = saved().toStdString();
        for (int round = 0; round < 2; ++round) {
            undo();
            EXPECT_EQ(saved().toStdString(), before.toStdString());
            redo();
            EXPECT_EQ(saved().toStdString(), after);
        }
    }

    /// Refuses: the sentence, and neither the project nor the undo list changed.
    template <typename Call>
    void expectRefused(Call call, const std::string& sentence)
    {
        const QByteArray before = saved();
        const QStringList entries = labels();
        EXPECT_EQ(failureOf(call), sentence);
        EXPECT_EQ(saved(), before);
        EXPECT_EQ(labels(), entries);
    }

    MO_Node* peg = add(QStringLiteral("PEG"), QStringLiteral("Peg"));
};
