#include "core/scene/history.h"

#include "core/frame/found.h"
#include "core/frame/undo.h"
#include "core/host/co_command.h"
#include "core/host/sc_session.h"

#include <utility>

namespace OMC {

namespace {

/// The one bracket of the process. Its scope outlives a project that is closed meanwhile, and then does nothing.
struct Bracket {
    std::unique_ptr<CO_CommandAccumScope> scope;
    unsigned int depth = 0;

    void cancel()
    {
        depth = 0;
        if (const auto cancelled = std::exchange(scope, nullptr))
            undo::cancel(*cancelled);
    }
};

Bracket& bracket()
{
    static Bracket theBracket;
    return theBracket;
}

} // namespace

History::History(SC_ProjectCommon* project) : CountedList(project) {}

std::string History::__str__() const
{
    manager();
    return tr("Brindle Application History").toStdString();
}

std::size_t History::size() const
{
    return getSizeExecuted();
}

std::size_t History::getSizeTotal() const
{
    return static_cast<std::size_t>(manager().historySize());
}

std::size_t History::getSizeUnexecuted() const
{
    const CO_CommandManager& commands = manager();
    return static_cast<unsigned int>(commands.historySize() - commands.executedHistorySize());
}

std::size_t History::getSizeExecuted() const
{
    return static_cast<std::size_t>(manager().executedHistorySize());
}

std::size_t History::getSizeMax() const
{
    return static_cast<std::size_t>(manager().historyMaxSize());
}

QString History::get(const unsigned int& index) const
{
    const CO_CommandManager& commands = manager();
    if (index >= static_cast<unsigned int>(commands.executedHistorySize()))
        throw Exception(tr("History item out of range."));
    return commands.executedName(static_cast<int>(index));
}

void History::set(const unsigned int&, const std::string&)
{
    throw Exception(tr("Unable to set a value in the history."));
}

bool History::contains(const QString& name) const
{
    return list().contains(name);
}

QStringList History::list() const
{
    return manager().collectExecutedNames();
}

void History::undo(unsigned int count)
{
    manager().unexecute(count);
}

void History::redo(unsigned int count)
{
    manager().reexecute(count);
}

void History::clear()
{
    manager().clearHistory();
}

void History::begin(const QString& name)
{
    CO_CommandManager& commands = manager();
    Bracket& open = bracket();
    ++open.depth;
    const QString label = tr(name.toUtf8().constData());
    if (!open.scope)
        open.scope = std::make_unique<CO_CommandAccumScope>(&commands, label, nullptr, CO_CommandAccumScope::kDefault);
}

void History::end()
{
    validate();
    Bracket& open = bracket();
    if (open.depth == 0 || --open.depth != 0)
        return;
    open.scope.reset();
}

void History::cancel()
{
    validate();
    bracket().cancel();
}

QString History::getCurrent() const
{
    validate();
    const Bracket& open = bracket();
    return open.scope ? open.scope->sessionName() : tr("NONE");
}

// False inside a bracket too: required as it is.
bool History::getActive() const
{
    manager();
    return false;
}

void History::validate() const
{
    validateThreadLock();
    if (!isGone())
        return;
    // Whichever project the bracket was opened on, a project that is gone ends it.
    try {
        bracket().cancel();
    } catch (const Exception&) {
        throw;
    } catch (...) {
        throw Exception(tr("Unknown exception has occurred. Object no longer valid."));
    }
    throwInvalid();
}

CO_CommandManager& History::manager() const
{
    validate();
    return found(findTarget()->commandManager(), unexpected::ErrorOccurred);
}

} // namespace OMC
