#include "engine/curves/columnreaders.h"

#include "engine/curves/column.h"

#include <QStringList>

#include <unordered_set>

namespace brindle::engine {

void ColumnReaders::add(Column& reader)
{
    const QStringList sources = reader.sources();
    for (const QString& name : sources)
        m_readers[name].push_back(&reader);
    if (!sources.isEmpty())
        ++m_revision;
}

void ColumnReaders::remove(Column& reader)
{
    const QStringList sources = reader.sources();
    for (const QString& name : sources) {
        const auto readers = m_readers.find(name);
        std::erase(*readers, &reader);
        if (readers->empty())
            m_readers.erase(readers);
    }
    if (!sources.isEmpty())
        ++m_revision;
}

void ColumnReaders::nameChanged(const QString& name)
{
    if (!m_readers.contains(name))
        return;
    ++m_revision;
    tellReaders(name);
}

void ColumnReaders::tellReaders(const QString& name) const
{
    std::vector<Column*> found;
    std::unordered_set<Column*> known;
    const auto find = [&](const QString& source) {
        for (Column* reader : m_readers.value(source)) {
            if (known.insert(reader).second)
                found.push_back(reader);
        }
    };
    find(name);
    for (std::size_t at = 0; at < found.size(); ++at) {
        found[at]->tellOwnLinks();
        find(found[at]->name());
    }
}

} // namespace brindle::engine
