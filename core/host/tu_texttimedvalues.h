#pragma once

#include "core/host/tu_timedvalue.h"

/// Columns whose cells hold texts, each for its own frame. They drive no attributes.

/// What is heard: the name of a sound at the frame on which it begins.
class BRINDLE_HOST_EXPORT TUSoundTimedValue : public TUTimedValue {};

/// Notes to the frames.
class BRINDLE_HOST_EXPORT AT_AnnotationTimedValue : public TUTimedValue {};

/// Names of files that belong to the frames.
class BRINDLE_HOST_EXPORT AT_FileLibraryTimedValue : public TUTimedValue {};
