#include "app/desk/options.h"

namespace app::desk {

namespace {

constexpr char usage[] = "Usage: brindle desk [--new | --read-only] [--verbose] DIR [--run SCRIPT [ARGUMENT...]]";

/// Whether the name is that of an option, which is then set.
bool set(Options& options, const QString& name)
{
    if (name == "--new")
        options.make = true;
    else if (name == "--read-only")
        options.readOnly = true;
    else if (name == "--verbose")
        options.verbose = true;
    else
        return false;
    return true;
}

QString errorOf(const Options& options)
{
    if (options.project.isEmpty())
        return usage;
    return options.make && options.readOnly ? QString("--new and --read-only don't go together.") : QString();
}

} // namespace

Options optionsFrom(QStringList arguments)
{
    Options options;
    while (!arguments.isEmpty()) {
        const QString argument = arguments.takeFirst();
        if (set(options, argument))
            continue;
        if (argument == "--run") {
            options.script = arguments;
            options.error = arguments.isEmpty() ? QString("--run needs a script.") : errorOf(options);
            return options;
        }
        if (argument.startsWith("--") || !options.project.isEmpty()) {
            options.error = usage;
            return options;
        }
        options.project = argument;
    }
    options.error = errorOf(options);
    return options;
}

} // namespace app::desk
