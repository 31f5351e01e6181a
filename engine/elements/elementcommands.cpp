#include "core/host/em_commands.h"

#include "engine/elements/elementmanager.h"

#include <cmath>
#include <utility>
#include <vector>

namespace brindle::engine {

namespace {

/// Puts elements into the database, and owns them while they aren't there.
class AddElements final : public CO_Command {
public:
    AddElements(ElementManager* elements, const std::set<int>& ids) : m_elements(elements)
    {
        for (const int id : ids)
            m_taken.push_back(elements ? elements->takeMade(id) : nullptr);
    }

    Status execute() override
    {
        for (const auto& element : m_taken) {
            if (!element || !m_elements->isFreeName(element->name(), nullptr))
                return kFail;
        }
        for (auto& element : m_taken)
            m_added.push_back(&m_elements->insert(std::move(element)));
        m_taken.clear();
        return kOk;
    }

    Status unexecute() override
    {
        for (const Element* element : m_added) {
            if (element->isUnderEdit())
                return kFail;
        }
        for (Element* element : m_added)
            m_taken.push_back(m_elements->take(*element));
        m_added.clear();
        return kOk;
    }

private:
    ElementManager* m_elements;
    std::vector<std::unique_ptr<Element>> m_taken; ///< Those that aren't in the database.
    std::vector<Element*> m_added;
};

/// Takes elements out of the database, with their files.
class RemoveElements final : public CO_Command {
public:
    RemoveElements(ElementManager& elements, const std::set<int>& ids) : m_elements(elements), m_ids(ids) {}

    Status execute() override
    {
        std::set<int> deletable;
        MSG_Text reasons;
        if (m_ids.empty() || !m_elements.canDeleteElements(m_ids, deletable, reasons))
            return kFail;
        for (const int id : m_ids) {
            if (m_elements.find(id)->isUnderEdit())
                return kFail;
        }
        for (const int id : m_ids)
            m_taken.push_back(m_elements.take(*m_elements.find(id)));
        return kOk;
    }

    Status unexecute() override
    {
        for (auto& element : m_taken)
            m_elements.insert(std::move(element));
        m_taken.clear();
        return kOk;
    }

private:
    ElementManager& m_elements;
    std::set<int> m_ids;
    std::vector<std::unique_ptr<Element>> m_taken;
};

/// Sets fields of an element, and keeps those that they replaced.
class SetFields final : public CO_Command {
public:
    SetFields(ElementManager* elements, int id, const ElementFields& fields)
        : m_elements(elements),
          m_element(elements ? elements->find(id) : nullptr),
          m_fields(fields)
    {}

    Status execute() override
    {
        if (!m_element || !isAcceptable(m_fields))
            return kFail;
        const ElementFields& now = m_element->fields();
        if (m_fields.name != now.name && !m_elements->isFreeName(m_fields.name, m_element))
            return kFail;
        const bool isOtherForm = m_fields.pixmapFormat != now.pixmapFormat || m_fields.vectorType != now.vectorType;
        if (isOtherForm && (m_element->hasFiles() || m_element->isUnderEdit()))
            return kFail;
        return unexecute();
    }

    Status unexecute() override
    {
        if (m_fields == m_element->fields())
            return kNoop;
        m_fields = m_elements->exchangeFields(*m_element, m_fields);
        return kOk;
    }

private:
    ElementManager* m_elements;
    Element* m_element;
    ElementFields m_fields; ///< Those that the next step sets.
};

/// Deletes elements and keeps their files.
class DeleteElements final : public CO_Command {
public:
    DeleteElements(ElementManager& elements, const std::set<int>& ids) : m_elements(elements), m_ids(ids) {}

    Status execute() override
    {
        std::set<int> deletable;
        MSG_Text reasons;
        if (m_ids.empty() || !m_elements.canDeleteElements(m_ids, deletable, reasons))
            return kFail;
        for (const int id : m_ids) {
            Element* element = m_elements.find(id);
            if (!element->isDeleted())
                setDeleted(*element, true);
        }
        return m_deleted.empty() ? kNoop : kOk;
    }

    Status unexecute() override
    {
        for (Element* element : std::exchange(m_deleted, {}))
            setDeleted(*element, false);
        return kOk;
    }

private:
    void setDeleted(Element& element, bool isDeleted)
    {
        ElementFields fields = element.fields();
        fields.isDeleted = isDeleted;
        m_elements.exchangeFields(element, fields);
        if (isDeleted)
            m_deleted.push_back(&element);
    }

    ElementManager& m_elements;
    std::set<int> m_ids;
    std::vector<Element*> m_deleted;
};

/// Sets fields of an element, of which a function changes those that the command is about.
template <typename Change>
std::unique_ptr<CO_Command> newSetFields(TUElementMgr* manager, int id, Change change)
{
    ElementManager* elements = engineElements(manager);
    const Element* element = elements ? elements->find(id) : nullptr;
    ElementFields fields = element ? element->fields() : ElementFields();
    change(fields);
    return std::make_unique<SetFields>(elements, id, fields);
}

std::unique_ptr<CO_Command> newRemoveElements(TUElementMgr* manager, const std::set<int>& ids, bool removeFiles)
{
    ElementManager* elements = engineElements(manager);
    if (!elements)
        return std::make_unique<SetFields>(nullptr, -1, ElementFields());
    if (removeFiles)
        return std::make_unique<RemoveElements>(*elements, ids);
    return std::make_unique<DeleteElements>(*elements, ids);
}

/// Rounded; a number that is no percentage stays none.
int percent(double value)
{
    return value > -1 && value < 101 ? static_cast<int>(std::lround(value)) : -1;
}

} // namespace

} // namespace brindle::engine

using brindle::engine::ElementFields;
using brindle::engine::newSetFields;

CO_Command* RenameElementCmd::BuildCmd(TUElementMgr* manager, int id, const QString& name)
{
    return new RenameElementCmd(newSetFields(manager, id, [&name](ElementFields& fields) { fields.name = name; }));
}

ModifyElementCmd::ModifyElementCmd(TUElementMgr* manager, int id, const QString& name, int scanType, double fieldChart,
                                   int pixmapFormat, int vectorType)
    : CO_EngineCommand(newSetFields(manager, id, [&](ElementFields& fields) {
          fields.name = name;
          fields.scanType = scanType;
          fields.fieldChart = fieldChart;
          fields.pixmapFormat = pixmapFormat;
          fields.vectorType = vectorType;
      }))
{}

ChangeElementOpacity::ChangeElementOpacity(TUElementMgr* manager, int id, double value)
    : CO_EngineCommand(newSetFields(
          manager, id, [value](ElementFields& fields) { fields.opacity = brindle::engine::percent(value); }))
{}

CO_Command* RemoveElementsCmd::BuildCmd(TUElementMgr* manager, const std::set<int>& ids, bool removeFiles, int)
{
    return new RemoveElementsCmd(brindle::engine::newRemoveElements(manager, ids, removeFiles));
}

EM_Commands::FakeAddElementsCmd::FakeAddElementsCmd(TUElementMgr* manager, const std::set<int>& ids, bool, bool, int)
    : CO_EngineCommand(std::make_unique<brindle::engine::AddElements>(brindle::engine::engineElements(manager), ids))
{}
