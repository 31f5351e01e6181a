#pragma once

#include "core/host/at_attr.h"
#include "engine/curves/beziercolumn.h"
#include "tests/engine/support/columndump.h"
#include "tests/engine/support/memoryproject.h"

/// A project with short ways to its attributes and columns.
class ColumnProject : public MemoryProject {
public:
    brindle::engine::BezierColumn* addColumn(const QString& name, bool anonymous = false)
    {
        auto* column = new brindle::engine::BezierColumn(name, anonymous);
        return run(new SC_SceneCmds::AddTimedValueCmd(scene().sceneCommon(), column, -1, -1)) ? column : nullptr;
    }

    /// The attribute at a dotted path of a node; null when there is none.
    static AT_Attr* attribute(const MO_Node* node, const QString& path)
    {
        const QStringList names = path.split('.');
        AT_Attr* attr = node->findAttributeByKeyword(names.first());
        for (int level = 1; attr && level < names.size(); ++level) {
            auto* complex = dynamic_cast<AT_ComplexAttr*>(attr);
            attr = nullptr;
            for (auto member = complex ? complex->attrsBegin() : nullptr; complex && member != complex->attrsEnd();
                 ++member) {
                if ((*member)->meta().keyword() == names[level])
                    attr = *member;
            }
        }
        return attr;
    }

    template <typename Attribute>
    static Attribute& attributeAs(const MO_Node* node, const QString& path)
    {
        auto* attr = dynamic_cast<Attribute*>(attribute(node, path));
        if (!attr)
            throw std::runtime_error("no such attribute: " + path.toStdString());
        return *attr;
    }

    bool drive(AT_Attr& attr, TUTimedValue* column) { return run(new tu_tv_socket::LinkCmd(attr.socket(), column)); }

    QString state() { return dump() + columnsDump(scene()); }

    /// Whether undoing and redoing the last entry leads to the same states, bit by bit, starting at `before`.
    testing::AssertionResult undoesTo(const QString& before)
    {
        const QString after = state();
        undo();
        if (state() != before)
            return testing::AssertionFailure() << "undone:\n"
                                               << state().toStdString() << "before:\n"
                                               << before.toStdString();
        redo();
        if (state() != after)
            return testing::AssertionFailure() << "redone:\n"
                                               << state().toStdString() << "after:\n"
                                               << after.toStdString();
        return testing::AssertionSuccess();
    }
};

class ColumnTest : public testing::Test, public ColumnProject {};
