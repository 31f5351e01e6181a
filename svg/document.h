#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QXmlStreamAttributes>

#include <vector>

namespace brindle::svg {

/// The elements of an SVG text that drawings can have something of, in the order of the text. All others are left out
/// and told.
///
/// Throws OMC::Exception, with the line and the column, for a text that isn't well-formed XML, isn't an SVG picture, or
/// has elements nested more than 200 deep; and for elements "use" that lead back to themselves, or stand for more than
/// 100,000 shapes.
class Document {
public:
    explicit Document(const QByteArray& text);

    /// The parts that become layers, by the indices of their elements: each child of the top that is a group, and what
    /// stands between two of them.
    const std::vector<std::vector<int>>& parts() const { return m_parts; }

    /// The text of a picture that shows one part alone. What the others define is there to be referred to.
    QByteArray textOf(const std::vector<int>& part) const;

    const QStringList& notCarried() const { return m_notCarried; }

private:
    struct Element {
        QString name;
        QXmlStreamAttributes attributes;
        QString text; ///< Of a style sheet.
        int parent = -1;
        std::vector<int> children;
    };

    void read(const QByteArray& text);
    void noteAttributes(const Element& element);
    void note(const QString& line);
    bool isShown(int element) const;
    void checkReferences() const;
    void findParts();
    void write(class QXmlStreamWriter& writer, int element, const std::vector<int>& shown) const;

    std::vector<Element> m_elements; ///< The first is the picture itself.
    std::vector<std::vector<int>> m_parts;
    QStringList m_notCarried;
    int m_top = 0; ///< The element whose children the parts are.
};

} // namespace brindle::svg
