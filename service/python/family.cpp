#include "service/python/family.h"

#include <map>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace brindle::python {

namespace {

std::multimap<std::string_view, Family::Tables>& families()
{
    static std::multimap<std::string_view, Family::Tables> all;
    return all;
}

/// Takes tables out of a list, each behind that of its base class.
class Sorting {
public:
    explicit Sorting(std::vector<ClassTable> tables) : m_tables(std::move(tables))
    {
        for (ClassTable& table : m_tables)
            m_waiting.emplace(table.metaObject, &table);
    }

    std::vector<ClassTable> sorted()
    {
        for (const ClassTable& table : m_tables)
            take(table.metaObject);
        return std::move(m_sorted);
    }

private:
    void take(const QMetaObject* metaObject)
    {
        if (!metaObject)
            return;
        take(metaObject->superClass());
        if (const auto found = m_waiting.extract(metaObject))
            m_sorted.push_back(*found.mapped());
    }

    std::vector<ClassTable> m_tables;
    std::unordered_map<const QMetaObject*, const ClassTable*> m_waiting;
    std::vector<ClassTable> m_sorted;
};

} // namespace

Family::Family(Tables tables, const char* file)
{
    families().emplace(file, tables);
}

const std::vector<ClassTable>& Family::allTables()
{
    static const std::vector<ClassTable> tables = [] {
        std::vector<ClassTable> all;
        for (const auto& [file, family] : families()) {
            for (ClassTable& table : family())
                all.push_back(std::move(table));
        }
        return Sorting(std::move(all)).sorted();
    }();
    return tables;
}

std::string nameOf(const QMetaObject* metaObject)
{
    static const std::unordered_map<const QMetaObject*, const char*> names = [] {
        std::unordered_map<const QMetaObject*, const char*> all;
        for (const ClassTable& table : Family::allTables())
            all.emplace(table.metaObject, table.name);
        return all;
    }();
    for (; metaObject; metaObject = metaObject->superClass()) {
        if (const auto found = names.find(metaObject); found != names.end())
            return found->second;
    }
    return "object";
}

} // namespace brindle::python
