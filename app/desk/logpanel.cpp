#include "app/desk/logpanel.h"

#include "app/desk/text/textview.h"
#include "engine/engine.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QPushButton>

namespace app::desk {

namespace {

struct Level {
    MSG_Scope::Action action;
    Tone tone;
    const char* mark;
};

/// Marked as on standard error.
constexpr Level levels[] = {
    {MSG_Scope::kError, Tone::Error, "Error: "},
    {MSG_Scope::kLog, Tone::Plain, ""},
    {MSG_Scope::kDebug, Tone::Debug, "Debug: "},
};

const Level& levelOf(MSG_Scope::Action action)
{
    for (const Level& level : levels) {
        if (level.action == action)
            return level;
    }
    return levels[1];
}

} // namespace

LogPanel::LogPanel(bool showsDebug, QWidget* parent)
    : QWidget(parent),
      m_view(new TextView(this)),
      m_debug(new QCheckBox(tr("Show lines for &developers"), this))
{
    auto* clearButton = new QPushButton(tr("&Clear"), this);
    m_debug->setChecked(showsDebug);

    auto* line = new QHBoxLayout;
    line->setContentsMargins(6, 2, 6, 2);
    line->addWidget(m_debug);
    line->addStretch();
    line->addWidget(clearButton);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_view);
    column->addLayout(line);

    connect(m_debug, &QCheckBox::toggled, this, &LogPanel::showAll);
    connect(clearButton, &QPushButton::clicked, this, &LogPanel::clear);
    connect(&m_arriving, &MessageQueue::arrived, this, &LogPanel::add);
    brindle::engine::setLogSink([this](MSG_Scope::Action action, const QString& text) {
        const Level& level = levelOf(action);
        m_arriving.post(level.tone, level.mark + text + u'\n');
    });
}

LogPanel::~LogPanel()
{
    brindle::engine::setLogSink({});
}

void LogPanel::clear()
{
    m_arriving.deliver();
    m_messages.clear();
    m_size = 0;
    m_view->clear();
}

void LogPanel::add(const QList<Message>& messages)
{
    m_messages += messages;
    for (const Message& message : messages)
        m_size += message.text.size();
    while (m_size > TextView::maxCharacters)
        m_size -= m_messages.takeFirst().text.size();
    show(messages);
}

void LogPanel::show(const QList<Message>& messages)
{
    QList<Message> shown = messages;
    if (!m_debug->isChecked())
        shown.removeIf([](const Message& message) { return message.tone == Tone::Debug; });
    m_view->append(shown);
}

void LogPanel::showAll()
{
    m_view->clear();
    show(m_messages);
}

} // namespace app::desk
