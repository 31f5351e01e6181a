#include "core/clipboard/clipboard.h"

#include "core/clipboard/copyobject.h"
#include "core/clipboard/copyoptions.h"
#include "core/clipboard/pasteactionoptions.h"
#include "core/clipboard/pasteoptions.h"
#include "service/python/enginegate.h"
#include "service/python/family.h"
#include "service/python/options.h"

namespace brindle::python {

namespace {

using OMC::Clipboard;
using OMC::Obj;
using Copying = OptionsArgument<OMC::CopyOptions>;
using Pasting = OptionsArgument<OMC::PasteOptions>;
using PastingAction = OptionsArgument<OMC::PasteActionOptions>;

/// Does what reads or writes a template on disk, without Python's lock.
template <typename Work>
decltype(auto) blocking(Work&& work)
{
    EngineGate::Operation operation;
    return operation.run(std::forward<Work>(work));
}

OMC::BaseObject* sameClipboard(const Clipboard& clipboard)
{
    return clipboard.copy();
}

Obj copyNodes(const Clipboard& clipboard, const QVariant& nodes, const Copying& options)
{
    return clipboard.copy(nodes, options.handle);
}

Obj copyFrames(const Clipboard& clipboard, const QVariant& nodes, int startFrame, int numFrames, const Copying& options)
{
    return clipboard.copy(nodes, startFrame, numFrames, options.handle);
}

Obj copyFromTemplate(const Clipboard& clipboard, const QString& path, int startFrame, int numFrames,
                     const Copying& options)
{
    return blocking([&] { return clipboard.copyFromTemplate(path, startFrame, numFrames, options.handle); });
}

QString createSelectionTemplate(const Clipboard& clipboard, const QString& name, const QString& folder,
                                const Copying& options)
{
    return blocking([&] { return clipboard.createSelectionTemplate(name, folder, options.handle); });
}

QString createTemplate(const Clipboard& clipboard, const Obj& copy, const QString& name, const QString& folder,
                       bool includeDefaultCamera)
{
    return blocking([&] { return clipboard.createTemplate(copy, name, folder, includeDefaultCamera); });
}

void paste(Clipboard& clipboard, const Obj& copy, const QVariant& nodes, int startFrame, int numFrames,
           const Pasting& options)
{
    clipboard.paste(copy, nodes, startFrame, numFrames, options.handle);
}

std::vector<Obj> pasteNewNodes(Clipboard& clipboard, const Obj& copy, const QVariant& group, const Pasting& options)
{
    return clipboard.pasteNewNodes(copy, group, options.handle);
}

void pasteTemplate(Clipboard& clipboard, const QString& path, int frame, const QVariant& columns,
                   const Pasting& options)
{
    blocking([&] { clipboard.pasteTemplate(path, frame, columns, options.handle); });
}

void pasteTemplateIntoGroup(Clipboard& clipboard, const QString& path, int frame, const QVariant& group,
                            const Pasting& options)
{
    blocking([&] { clipboard.pasteTemplateIntoGroup(path, frame, group, options.handle); });
}

void pasteActionTemplate(Clipboard& clipboard, const QString& path, int frame, const QVariant& nodes,
                         const PastingAction& actionOptions, const Pasting& options)
{
    blocking([&] { clipboard.pasteActionTemplate(path, frame, nodes, actionOptions.handle, options.handle); });
}

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<CopyObject>(),
        Class<Clipboard>()
            .alias("CopyOptionsLike", "CopyOptions | dict[str, object] | None",
                   "What a copy takes along: an object of options, or a dictionary that one is made of.")
            .alias("PasteOptionsLike", "PasteOptions | dict[str, object] | None",
                   "How a paste goes: an object of options, or a dictionary that one is made of.")
            .alias("PasteActionOptionsLike", "PasteActionOptions | dict[str, object] | None",
                   "The kinds of nodes that take an action: an object of options, or a dictionary that one is made of.")
            .method<"copy", Form<&sameClipboard, "-> Self">,
                    Form<&copyNodes, "nodes: NodesLike, options: CopyOptionsLike=None -> CopyObject">,
                    Form<&copyFrames,
                         "nodes: NodesLike, start_frame, num_frames=0, options: CopyOptionsLike=None -> CopyObject">>()
            .method<"copy_from_template",
                    Form<&copyFromTemplate, "path: str | PathLike[str], start_frame=0, num_frames=0, "
                                            "options: CopyOptionsLike=None -> CopyObject">>()
            .method<
                "create_selection_template",
                Form<&createSelectionTemplate, "name, folder: str | PathLike[str], options: CopyOptionsLike=None">>()
            .method<"create_template", Form<&createTemplate, "copy_object: CopyObject, name, "
                                                             "folder: str | PathLike[str], "
                                                             "include_default_camera=False">>()
            .method<"paste", Form<&paste, "copy_object: CopyObject, nodes: NodesLike, start_frame=0, num_frames=0, "
                                          "options: PasteOptionsLike=None">>()
            .method<"paste_new_nodes", Form<&pasteNewNodes, "copy_object: CopyObject, group: NodesLike, "
                                                            "options: PasteOptionsLike=None -> list[Node]">>()
            .method<"paste_template",
                    Form<&pasteTemplate, "path: str | PathLike[str], frame, columns: ColumnsLike | None=None, "
                                         "options: PasteOptionsLike=None">>()
            .method<"paste_template_into_group",
                    Form<&pasteTemplateIntoGroup, "path: str | PathLike[str], frame, group: NodesLike, "
                                                  "options: PasteOptionsLike=None">>()
            .method<"paste_action_template",
                    Form<&pasteActionTemplate, "path: str | PathLike[str], frame, nodes: NodesLike, "
                                               "action_options: PasteActionOptionsLike=None, "
                                               "options: PasteOptionsLike=None">>(),
    };
});

} // namespace

} // namespace brindle::python
