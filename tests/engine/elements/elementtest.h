#pragma once

#include "core/host/em_commands.h"
#include "engine/elements/elementmanager.h"
#include "tests/engine/support/memoryproject.h"

/// A project in memory, with short ways to its elements.
class ElementTest : public testing::Test, public MemoryProject {
public:
    brindle::engine::ElementManager& elements()
    {
        return *brindle::engine::engineElements(project().projectCommon()->elementManager());
    }
    /// A new element; -1 where it was refused.
    int create(const QString& name)
    {
        const int id = elements().createElement(name, 0, 12, 0, TUElement::kNoVector, false).id();
        return run(new EM_Commands::FakeAddElementsCmd(&elements(), {id}, true, true, 0)) ? id : -1;
    }
    /// A new drawing; the invalid id where it was refused.
    EM_DrawingId draw(int element, const QString& name)
    {
        CO_Command* command = EM_Commands::NewDrawingCmd::Create(&elements(), element, name, false, false);
        return command && run(command) ? elements().getDrawingId(element, name, false) : EM_InvalidDrawingId;
    }
    EM_ElementInfo& info(int element) { return *elements().getElementDrawingInfoById(element); }
};
