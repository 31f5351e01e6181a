#include "app/desk/console/consolepanel.h"

#include "app/desk/console/inputline.h"
#include "app/desk/scriptrunner.h"
#include "app/desk/text/textview.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>

namespace app::desk {

namespace {

using Outcome = BAPP_ScriptConsole::Outcome;
using Stream = BAPP_ScriptConsole::Stream;

constexpr char firstPrompt[] = ">>> ";
constexpr char nextPrompt[] = "... ";

} // namespace

ConsolePanel::ConsolePanel(ScriptRunner& scripts, const QString& historyFile, QWidget* parent)
    : QWidget(parent),
      m_scripts(scripts),
      m_history(historyFile),
      m_output(new TextView(this)),
      m_prompt(new QLabel(this)),
      m_input(new InputLine(this)),
      m_completion(*m_input, [this](const QString& line) { return m_scripts.complete(line); })
{
    m_prompt->setFont(m_input->font());
    // The line begins where the ones above it do.
    const int margin = static_cast<int>(m_output->document()->documentMargin());
    m_input->document()->setDocumentMargin(0);
    m_prompt->setMinimumWidth(m_prompt->fontMetrics().horizontalAdvance(firstPrompt));
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);

    auto* line = new QHBoxLayout;
    line->setContentsMargins(margin, margin, margin, margin);
    line->setSpacing(0);
    line->addWidget(m_prompt);
    line->addWidget(m_input);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_output);
    column->addLayout(line);
    setFocusProxy(m_input);
    m_output->installEventFilter(this);

    connect(m_input, &InputLine::entered, this, &ConsolePanel::enter);
    connect(m_input, &InputLine::linesPasted, this, &ConsolePanel::enterLines);
    connect(m_input, &InputLine::olderAsked, this, [this] { recall(m_history.older(m_input->text())); });
    connect(m_input, &InputLine::newerAsked, this, [this] { recall(m_history.newer()); });
    connect(m_input, &InputLine::completionAsked, this, [this] { m_completion.complete(); });
    connect(m_input, &InputLine::interruptAsked, this, &ConsolePanel::interrupt);
    connect(m_input, &InputLine::clearAsked, this, &ConsolePanel::clear);
    connect(&scripts, &ScriptRunner::started, this, &ConsolePanel::showPrompt);
    connect(&scripts, &ScriptRunner::ended, this, &ConsolePanel::showPrompt);
    connect(&m_printed, &MessageQueue::arrived, this,
            [this](const QList<Message>& messages) { m_output->append(messages); });
    m_scripts.setPrinter([this](Stream stream, const QString& text) {
        m_printed.post(stream == Stream::Error ? Tone::Error : Tone::Plain, text);
    });
    say(Tone::Debug,
        tr("Python. \"app\" is the application with its open project. Tab completes, Ctrl+C interrupts.\n"));
    paintLine();
    showPrompt();
}

ConsolePanel::~ConsolePanel()
{
    m_scripts.setPrinter({});
}

QString ConsolePanel::prompt() const
{
    return m_prompt->text();
}

std::optional<int> ConsolePanel::runFile(const QByteArray& path, const QList<QByteArray>& arguments)
{
    if (m_scripts.isRunning())
        return std::nullopt;
    say(Tone::Input, tr("Running %1\n").arg(QFile::decodeName(path)));
    const Outcome outcome = m_scripts.runFile(path, arguments);
    m_printed.deliver();
    return outcome == Outcome::Leave ? std::optional(m_scripts.exitCode()) : std::nullopt;
}

void ConsolePanel::interrupt()
{
    if (m_scripts.isRunning()) {
        m_scripts.interrupt();
        return;
    }
    echo(m_input->text());
    m_input->setText({});
    m_scripts.discard();
    say(Tone::Error, QStringLiteral("KeyboardInterrupt\n"));
    finish(Outcome::Done);
}

void ConsolePanel::clear()
{
    m_printed.deliver();
    m_output->clear();
}

/// Typing where one can't type goes to the line.
bool ConsolePanel::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    auto* key = static_cast<QKeyEvent*>(event);
    const bool isInterrupt = key->key() == Qt::Key_C && key->modifiers() == Qt::ControlModifier;
    const bool isText = !key->text().isEmpty() && key->text().at(0).isPrint();
    if (isInterrupt ? m_output->textCursor().hasSelection() : !isText)
        return false;
    m_input->setFocus();
    QCoreApplication::sendEvent(m_input, key);
    return true;
}

void ConsolePanel::enter()
{
    if (m_scripts.isRunning())
        return;
    const QString line = m_input->text();
    m_input->setText({});
    m_history.add(line);
    echo(line);
    finish(m_scripts.push(line));
}

/// Whole lines are run; what follows the last of them stays to be gone on with.
void ConsolePanel::enterLines(const QString& text)
{
    if (m_scripts.isRunning())
        return;
    m_input->textCursor().removeSelectedText();
    const QString all = m_input->textBeforeCursor() + text + m_input->textBehindCursor();
    const qsizetype end = all.lastIndexOf(u'\n');
    const QString block = all.left(end);
    m_input->setText(all.mid(end + 1));
    for (const QString& line : block.split(u'\n')) {
        m_history.add(line);
        echo(line);
        m_incomplete = true;
    }
    finish(m_scripts.pushBlock(block));
}

void ConsolePanel::recall(const std::optional<QString>& line)
{
    if (line)
        m_input->setText(*line);
}

void ConsolePanel::echo(const QString& line)
{
    say(Tone::Input, (m_incomplete ? nextPrompt : firstPrompt) + line + u'\n');
}

/// On lines of its own, behind what has been printed so far.
void ConsolePanel::say(Tone tone, const QString& text)
{
    m_printed.deliver();
    if (m_output->endsWithinLine())
        m_output->append({tone, QStringLiteral("\n")});
    m_output->append({tone, text});
}

void ConsolePanel::finish(Outcome outcome)
{
    m_printed.deliver();
    m_incomplete = outcome == Outcome::Incomplete;
    showPrompt();
    if (outcome == Outcome::Leave)
        Q_EMIT leaveAsked(m_scripts.exitCode());
}

void ConsolePanel::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        paintLine();
}

/// Gives the line that is typed the look that it has once it is entered.
void ConsolePanel::paintLine()
{
    QPalette own = palette();
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText})
        own.setColor(role, TextView::colorOf(Tone::Input, own));
    m_prompt->setPalette(own);
    m_input->setPalette(own);
}

void ConsolePanel::showPrompt()
{
    m_input->setWaiting(m_scripts.isRunning());
    m_prompt->setText(m_scripts.isRunning() ? "" : m_incomplete ? nextPrompt : firstPrompt);
}

} // namespace app::desk
