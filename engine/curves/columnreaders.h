#pragma once

#include <QHash>
#include <QString>

#include <cstdint>
#include <vector>

namespace brindle::engine {

class Column;

/// Which columns of a list read the values of which others. What they read is told by names, which may stand for
/// another column from one change to the next, or for none.
class ColumnReaders {
public:
    void add(Column& reader); ///< With its sources(), which stay the same while it is here.
    void remove(Column& reader);
    /// A column of this name came or went: what reads it, directly or not, has other values.
    void nameChanged(const QString& name);
    /// Tells the attributes that are driven by what reads a column of this name, directly or not.
    void tell(const QString& name) const
    {
        if (!m_readers.isEmpty())
            tellReaders(name);
    }
    /// Grows when a reader comes or goes, and when a name that is read comes to stand for another column.
    std::uint64_t revision() const { return m_revision; }

private:
    void tellReaders(const QString& name) const;

    QHash<QString, std::vector<Column*>> m_readers; ///< By the names that they read.
    std::uint64_t m_revision = 1;
};

} // namespace brindle::engine
