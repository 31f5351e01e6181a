#pragma once

/// Marks what the object model offers to a binding or an application; everything else stays inside the library.
#define BRINDLE_CORE_EXPORT __attribute__((visibility("default")))
