#include "qtscript/evalcalls.h"

#include <QStringView>

#include <algorithm>
#include <iterator>
#include <vector>

namespace evalcalls {

namespace {

constexpr QStringView name = u"eval";

bool isNamePart(QChar character)
{
    return character.isLetterOrNumber() || character == u'_' || character == u'$' || character.isSurrogate();
}

/// Words behind which a value begins, so that "/" begins a regular expression.
bool isOperatorWord(QStringView word)
{
    static constexpr QStringView words[] = {u"return", u"typeof", u"instanceof", u"in", u"of",   u"new",  u"delete",
                                            u"void",   u"throw",  u"case",       u"do", u"else", u"yield"};
    return std::find(std::begin(words), std::end(words), word) != std::end(words);
}

/// Goes through a program by its tokens, as far as it takes to tell names and brackets from texts and comments.
class Scanner {
public:
    explicit Scanner(QStringView program) : m_program(program) {}

    /// False where the program is not understood.
    bool run()
    {
        while (skipBlanks()) {
            const QChar character = m_program[m_at];
            if (isNamePart(character))
                takeWord();
            else if (character == u'"' || character == u'\'')
                takeText(character);
            else if (character == u'`' || (character == u'}' && !m_open.empty() && m_open.back().character == u'`'))
                takeTemplate();
            else if (character == u'/' && !m_isBehindValue)
                takePattern();
            else if (!takeSign(character))
                return false;
        }
        return m_open.empty();
    }

    struct Insertion {
        qsizetype at;
        QString text;
        qsizetype replaced = 0; ///< The number of characters that the text replaces.
    };
    std::vector<Insertion> insertions() &&
    {
        std::sort(m_insertions.begin(), m_insertions.end(), [](const auto& a, const auto& b) { return a.at < b.at; });
        return std::move(m_insertions);
    }

private:
    struct Bracket {
        QChar character;       ///< "`" for what stands inside a template.
        qsizetype evalAt = -1; ///< The place behind the bracket of a call of eval; -1 for other brackets.
    };

    QChar at(qsizetype place) const { return place < m_program.size() ? m_program[place] : QChar(); }

    /// Goes to the next token. False at the end.
    bool skipBlanks()
    {
        m_at = behindBlanks(m_at);
        return m_at < m_program.size();
    }
    qsizetype behindBlanks(qsizetype place) const
    {
        for (;;) {
            if (at(place).isSpace() && place < m_program.size())
                ++place;
            else if (at(place) == u'/' && at(place + 1) == u'/')
                place = endOf(u"\n", place + 2);
            else if (at(place) == u'/' && at(place + 1) == u'*')
                place = endOf(u"*/", place + 2);
            else
                return place;
        }
    }
    qsizetype endOf(QStringView mark, qsizetype place) const
    {
        const qsizetype found = m_program.indexOf(mark, place);
        return found < 0 ? m_program.size() : found + mark.size();
    }

    void takeWord()
    {
        const qsizetype start = m_at;
        while (m_at < m_program.size() && isNamePart(m_program[m_at]))
            ++m_at;
        const QStringView word = m_program.sliced(start, m_at - start);
        const bool isMember = m_last == u'.';
        if (word == name && !isMember)
            takeEval(start);
        m_isBehindValue = isMember || !isOperatorWord(word);
        m_last = word == u"function" ? u'f' : isOperatorWord(word) ? u'=' : u'a';
    }

    void takeEval(qsizetype start)
    {
        const qsizetype next = behindBlanks(m_at);
        if (at(next) == u'(') {
            const qsizetype first = behindBlanks(next + 1);
            const bool isSpread = m_program.sliced(first).startsWith(u"...");
            if (m_last != u'f' && at(first) != u')' && !isSpread)
                m_evalAt = next;
            return;
        }
        // Elsewhere the name may be that of a parameter or of a property, not a value.
        const bool isAlone = QStringView(u"=:?&|").contains(m_last) &&
                             (next >= m_program.size() || QStringView(u"),;]}").contains(at(next)));
        const bool isCalled = m_last == u',' && at(next) == u')' && at(behindBlanks(next + 1)) == u'(';
        if (isAlone || isCalled)
            m_insertions.push_back({start, checkedEval, name.size()});
    }

    void takeText(QChar quote)
    {
        for (++m_at; m_at < m_program.size() && m_program[m_at] != quote && m_program[m_at] != u'\n'; ++m_at)
            m_at += m_program[m_at] == u'\\';
        ++m_at;
        endValue();
    }

    /// A part of a template, up to its end or the next "${".
    void takeTemplate()
    {
        if (m_program[m_at] == u'}')
            m_open.pop_back();
        for (++m_at; m_at < m_program.size() && m_program[m_at] != u'`'; ++m_at) {
            if (m_program[m_at] == u'\\') {
                ++m_at;
            } else if (m_program[m_at] == u'$' && at(m_at + 1) == u'{') {
                m_open.push_back({u'`'});
                m_at += 2;
                m_isBehindValue = false;
                m_last = u'(';
                return;
            }
        }
        ++m_at;
        endValue();
    }

    void takePattern()
    {
        bool isInClass = false;
        for (++m_at; m_at < m_program.size() && m_program[m_at] != u'\n'; ++m_at) {
            const QChar character = m_program[m_at];
            if (character == u'\\')
                ++m_at;
            else if (character == u'[' || character == u']')
                isInClass = character == u'[';
            else if (character == u'/' && !isInClass)
                break;
        }
        ++m_at;
        endValue();
    }

    void endValue()
    {
        m_isBehindValue = true;
        m_last = u'a';
    }

    /// False for a bracket that closes no other of its kind.
    bool takeSign(QChar character)
    {
        if (character == u'(' || character == u'[' || character == u'{') {
            const bool isEval = m_evalAt == m_at;
            m_open.push_back({character, isEval ? m_at + 1 : -1});
            m_isBehindValue = false;
        } else if (character == u')' || character == u']' || character == u'}') {
            const QChar opened = character == u')' ? u'(' : character == u']' ? u'[' : u'{';
            if (m_open.empty() || m_open.back().character != opened)
                return false;
            close(m_open.back());
            m_open.pop_back();
            m_isBehindValue = true;
        } else {
            m_isBehindValue = false;
        }
        m_last = character;
        ++m_at;
        return true;
    }

    /// Closes a call of eval. A bracket before a brace ends the definition of a method, and no call.
    void close(const Bracket& bracket)
    {
        if (bracket.evalAt < 0 || at(behindBlanks(m_at + 1)) == u'{')
            return;
        m_insertions.push_back({bracket.evalAt, QString(checkedText) + u'('});
        m_insertions.push_back({m_at, QStringLiteral(")")});
    }

    QStringView m_program;
    qsizetype m_at = 0;
    std::vector<Bracket> m_open;
    std::vector<Insertion> m_insertions;
    bool m_isBehindValue = false; ///< The token before ends a value, so "/" divides it.
    QChar m_last;                 ///< The token before: a sign, "a" for a value, "f" for "function", "=" for a word.
    qsizetype m_evalAt = -1;      ///< The opening bracket of the next call of eval.
};

} // namespace

QString checked(const QString& program)
{
    if (!program.contains(name)) // Most programs don't.
        return program;
    Scanner scanner(program);
    if (!scanner.run())
        return program;
    QString result;
    qsizetype done = 0;
    for (const Scanner::Insertion& insertion : std::move(scanner).insertions()) {
        result += QStringView(program).sliced(done, insertion.at - done);
        result += insertion.text;
        done = insertion.at + insertion.replaced;
    }
    result += QStringView(program).sliced(done);
    return result;
}

} // namespace evalcalls
