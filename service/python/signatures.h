#pragma once

#include <QMetaObject>

#include <string>
#include <string_view>
#include <vector>

/// The signatures of calls as people and tools see them: arguments, their types, and the result.
namespace brindle::python {

struct ArgumentText {
    std::string name;
    std::string type;
    std::string fallback; ///< Empty where the argument can't be left out.
};

/// One form of a method, of a constructor, or of a function of the module.
struct FormText {
    std::vector<ArgumentText> arguments;
    std::string result;
};

/// "(frame: int, value: float, adjust_column: bool = False) -> None"
std::string typedText(const FormText& form);

/// The documentation of a function as CPython takes it: the call as inspect.signature() reads it, each form with its
/// types, and the text. `self` is the name of the object ahead of the arguments, "" for none.
std::string functionDocumentation(const std::string& name, const std::vector<FormText>& forms, std::string_view self,
                                  std::string_view text);

/// The same for a class, whose forms are those of its constructor; none for one that a script can't make.
std::string classDocumentation(const std::string& name, const std::vector<FormText>& forms, std::string_view text);

/// The name in Python of a class of the object model, or of its nearest base class that has one: "NodeList".
std::string nameOf(const QMetaObject* metaObject);

} // namespace brindle::python
