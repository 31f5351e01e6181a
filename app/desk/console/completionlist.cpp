#include "app/desk/console/completionlist.h"

#include "app/desk/console/inputline.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QScrollBar>

#include <algorithm>

namespace app::desk {

namespace {

constexpr int mostVisible = 12;

QString commonBeginning(const QStringList& words)
{
    // Those of sorted words that differ most are the ends.
    const auto [first, last] = std::minmax_element(words.begin(), words.end());
    const auto end = std::mismatch(first->begin(), first->end(), last->begin(), last->end()).first;
    return first->left(end - first->begin());
}

} // namespace

CompletionList::CompletionList(InputLine& line, Source source) : m_line(line), m_source(std::move(source))
{
    m_completer.setModel(&m_candidates);
    m_completer.setModelSorting(QCompleter::CaseSensitivelySortedModel);
    m_completer.setWidget(&line);
    m_completer.setMaxVisibleItems(mostVisible);
    m_completer.popup()->setFont(line.font());
    m_completer.popup()->installEventFilter(this);
    connect(&m_completer, qOverload<const QString&>(&QCompleter::activated), this, &CompletionList::write);
    connect(&line, &InputLine::textChanged, this, &CompletionList::narrow);
    connect(&line, &InputLine::cursorPositionChanged, this, &CompletionList::narrow);
}

void CompletionList::complete()
{
    const BAPP_ScriptConsole::Completion found = m_source(m_line.textBeforeCursor());
    if (found.candidates.isEmpty())
        return;
    m_start = found.start;
    m_candidates.setStringList(found.candidates);
    write(commonBeginning(found.candidates));
    if (found.candidates.size() > 1)
        show();
}

bool CompletionList::isShown() const
{
    return m_completer.popup()->isVisible();
}

QStringList CompletionList::shown() const
{
    QStringList words;
    const QAbstractItemModel* model = m_completer.completionModel();
    for (int row = 0; isShown() && row < model->rowCount(); ++row)
        words.append(model->index(row, 0).data().toString());
    return words;
}

bool CompletionList::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::Show)
        m_line.setChoosing(true);
    else if (event->type() == QEvent::Hide)
        m_line.setChoosing(false);
    return false;
}

void CompletionList::show()
{
    m_completer.setCompletionPrefix(word());
    QAbstractItemView* list = m_completer.popup();
    QRect place = m_line.cursorRect();
    place.setWidth(list->sizeHintForColumn(0) + list->verticalScrollBar()->sizeHint().width() + 8);
    m_completer.complete(place);
    list->setCurrentIndex(m_completer.completionModel()->index(0, 0));
}

void CompletionList::narrow()
{
    if (!isShown())
        return;
    m_completer.setCompletionPrefix(word());
    if (m_line.textCursor().position() >= m_start && m_completer.completionCount() > 0)
        show();
    else
        m_completer.popup()->hide();
}

void CompletionList::write(const QString& word)
{
    m_line.replaceBeforeCursor(m_start, word);
}

QString CompletionList::word() const
{
    return m_line.textBeforeCursor().mid(m_start);
}

} // namespace app::desk
