#pragma once

#include "core/frame/baseobject.h"
#include "core/frame/unexpected.h"

#include <type_traits>

/// Find it, or fail with a sentence. The sentence is an unexpected::Sentence, a text, or a function: one that gives the
/// text, which is made only when it is needed, or one that throws by itself (`&BaseObject::throwUnexpected`).
///
///     SC_SceneCommon& scene = found(node.sceneCommon());
///     auto& peg = foundAs<TUPegModule>(node, [] { return tr("Unexpected node-type found."); });
namespace OMC {

template <typename Sentence>
[[noreturn]] void raise(const Sentence& sentence)
{
    if constexpr (std::is_same_v<Sentence, unexpected::Sentence>)
        unexpected::fail(sentence);
    else if constexpr (!std::is_invocable_v<const Sentence&>)
        throw Exception(sentence);
    else if constexpr (!std::is_void_v<std::invoke_result_t<const Sentence&>>)
        throw Exception(sentence());
    else
        sentence();
    Q_UNREACHABLE();
}

/// The object behind a pointer; null throws "Object is no longer valid.".
template <typename T>
T& found(T* object)
{
    if (!object)
        BaseObject::throwInvalid();
    return *object;
}

template <typename T, typename Sentence>
T& found(T* object, const Sentence& sentence)
{
    if (!object)
        raise(sentence);
    return *object;
}

/// The object behind a pointer as one of class T; null and other classes fail.
template <typename T, typename Object, typename... Sentence>
T& foundAs(Object* object, const Sentence&... sentence)
{
    return found(dynamic_cast<T*>(object), sentence...);
}

} // namespace OMC
