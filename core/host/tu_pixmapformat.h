#pragma once

#include "core/host/export.h"

#include <QString>

#include <vector>

/// A format of picture files.
class BRINDLE_HOST_EXPORT TUPixmapFormat {
public:
    TUPixmapFormat(int id, const char* name, const char* extension, bool selectable)
        : m_id(id),
          m_name(name),
          m_extension(extension),
          m_selectable(selectable)
    {}

    int id() const { return m_id; }
    QString name() const { return QString::fromLatin1(m_name); }           ///< "PNG".
    QString extension() const { return QString::fromLatin1(m_extension); } ///< Of its files, without the dot: "png".
    /// Whether it is offered for new elements; pictures of the others can be kept as they are.
    bool selectable() const { return m_selectable; }

private:
    int m_id;
    const char* m_name;
    const char* m_extension;
    bool m_selectable;
};

/// The formats that an element can have.
class BRINDLE_HOST_EXPORT TUPixmapFormatList {
public:
    /// What the formats of a list are good for; a format is in it for any of its uses.
    enum Use : int { kPaint = 1, kScan = 2, kImport = 4 };

    explicit TUPixmapFormatList(int uses);

    int format(const QString& name) const;      ///< Its id; -1 where there is none. Case of letters doesn't matter.
    QString pixmapNameFromFormat(int id) const; ///< Empty where there is none.

    using Iterator = std::vector<TUPixmapFormat>::const_iterator;
    Iterator pixFmtBegin() const { return m_formats.begin(); }
    Iterator pixFmtEnd() const { return m_formats.end(); }

private:
    std::vector<TUPixmapFormat> m_formats;
};
