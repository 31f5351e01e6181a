#include "core/frame/unexpected.h"

#include "core/frame/baseobject.h"

namespace OMC::unexpected {

namespace {

/// In the order of the enumeration.
constexpr const char* sentences[] = {
    QT_TRANSLATE_NOOP("OMC::BaseObject", "An unexpected error occurred."),
    QT_TRANSLATE_NOOP("OMC::BaseObject", "An unexpected error has occurred."),
    QT_TRANSLATE_NOOP("OMC::BaseObject", "An unknwon exception has occurred."),
    QT_TRANSLATE_NOOP("OMC::BaseObject", "Unexpected error"),
    QT_TRANSLATE_NOOP("OMC::BaseObject", "An unexpected error occurred [1]."),
    QT_TRANSLATE_NOOP("OMC::BaseObject", "An unexpected error occurred [2]."),
    QT_TRANSLATE_NOOP("OMC::BaseObject", "An unexpected error occurred [3]."),
};

} // namespace

QString text(Sentence sentence)
{
    return BaseObject::tr(sentences[sentence]);
}

void fail(Sentence sentence)
{
    throw Exception(text(sentence));
}

} // namespace OMC::unexpected
