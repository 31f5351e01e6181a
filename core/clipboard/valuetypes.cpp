#include "core/frame/valuetypes.h"

#include "core/clipboard/copyoptions.h"
#include "core/clipboard/pasteactionoptions.h"
#include "core/clipboard/pasteoptions.h"

namespace OMC {

namespace {

/// The options that travel inside a QVariant by value.
[[maybe_unused]] const bool registered = registerValueTypes<PasteActionOptions, PasteOptions, CopyOptions>();

} // namespace

} // namespace OMC
