#include "engine/curves/columnkinds.h"

#include "engine/curves/beziercolumn.h"
#include "engine/curves/easecolumn.h"
#include "engine/curves/expressioncolumn.h"
#include "engine/curves/motioncolumn.h"
#include "engine/curves/velocitycolumn.h"
#include "engine/exposure/exposurecolumn.h"
#include "engine/exposure/textcolumn.h"
#include "engine/folder/jsonplace.h"

#include <algorithm>

namespace brindle::engine {

namespace {

constexpr const ColumnKind* kinds[] = {&drawingKind,    &soundKind,      &path3dKind,     &bezierKind,
                                       &easeKind,       &expressionKind, &timingKind,     &velocityKind,
                                       &quaternionKind, &annotationKind, &fileLibraryKind};

} // namespace

std::span<const ColumnKind* const> columnKinds()
{
    return kinds;
}

const ColumnKind& columnKindAt(const JsonPlace& place)
{
    static const std::vector<const char*> words = [] {
        std::vector<const char*> words;
        for (const ColumnKind* kind : kinds)
            words.push_back(kind->word);
        return words;
    }();
    return *kinds[place.oneOf(words)];
}

const ColumnKind& numberColumnKind()
{
    return bezierKind;
}

} // namespace brindle::engine
