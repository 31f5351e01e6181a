#include "app/desk/options.h"

#include "app/arguments.h"

namespace app::desk {

namespace {

/// Takes the option that the arguments have come to.
void take(Arguments& arguments, Options& options)
{
    const QByteArray& name = arguments.value();
    if (name == "--new") {
        options.make = true;
    } else if (name == "--read-only") {
        options.readOnly = true;
    } else if (name == "--verbose") {
        options.verbose = true;
    } else if (name == "--interrupter") {
        options.interrupter = true;
    } else if (name == "--run") {
        if (arguments.takeFor("--run needs a script."))
            options.script = QList<QByteArray>{arguments.value()} + arguments.takeRest();
    } else {
        arguments.refuse();
    }
}

} // namespace

Options optionsFrom(const QList<QByteArray>& given)
{
    Options options;
    Arguments arguments(deskUsage, given);
    while (arguments.next()) {
        if (arguments.isOption())
            take(arguments, options);
        else if (options.project.isEmpty())
            options.project = arguments.folder();
        else
            arguments.misfit();
    }
    options.help = arguments.isHelpAsked();
    if (options.project.isEmpty() != options.interrupter)
        arguments.misfit();
    if (options.make && options.readOnly)
        arguments.fail("--new and --read-only don't go together.");
    options.error = arguments.error();
    return options;
}

} // namespace app::desk
