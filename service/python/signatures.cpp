#include "service/python/signatures.h"

#include <algorithm>

namespace brindle::python {

namespace {

/// Whether the arguments of a form are the first ones of another.
bool begins(const FormText& form, const FormText& longer)
{
    return form.arguments.size() <= longer.arguments.size() &&
           std::equal(form.arguments.begin(), form.arguments.end(), longer.arguments.begin(),
                      [](const ArgumentText& one, const ArgumentText& two) { return one.name == two.name; });
}

/// The arguments of all forms in one list, with "..." for what only some of them have; of forms that differ in more
/// than their length there is none.
std::string commonArguments(const std::vector<FormText>& forms)
{
    const auto size = [](const FormText& one, const FormText& two) {
        return one.arguments.size() < two.arguments.size();
    };
    const auto [shortest, longest] = std::minmax_element(forms.begin(), forms.end(), size);
    if (!std::all_of(forms.begin(), forms.end(), [&](const FormText& form) { return begins(form, *longest); }))
        return "*args, **kwargs";
    std::string text;
    for (std::size_t index = 0; index < longest->arguments.size(); ++index) {
        const ArgumentText& argument = longest->arguments[index];
        const bool isOptional = index >= shortest->arguments.size();
        const std::string fallback = isOptional && forms.size() > 1 ? "..." : argument.fallback;
        text += (index ? ", " : "") + argument.name + (fallback.empty() ? "" : "=" + fallback);
    }
    return text;
}

std::string callText(const std::string& name, const std::vector<FormText>& forms, std::string_view self)
{
    std::string text = name + "(" + std::string(self);
    const std::string arguments = commonArguments(forms);
    return text + (self.empty() || arguments.empty() ? "" : ", ") + arguments + ")\n--\n\n";
}

} // namespace

std::string typedText(const FormText& form)
{
    std::string text = "(";
    for (const ArgumentText& argument : form.arguments) {
        text += (text.size() > 1 ? ", " : "") + argument.name + ": " + argument.type +
                (argument.fallback.empty() ? "" : " = " + argument.fallback);
    }
    return text + ")" + (form.result.empty() ? "" : " -> " + form.result);
}

std::string functionDocumentation(const std::string& name, const std::vector<FormText>& forms, std::string_view self,
                                  std::string_view text)
{
    std::string result = callText(name, forms, self);
    for (const FormText& form : forms)
        result += name + typedText(form) + "\n";
    return result + "\n" + std::string(text);
}

std::string classDocumentation(const std::string& name, const std::vector<FormText>& forms, std::string_view text)
{
    return (forms.empty() ? "" : callText(name, forms, "")) + std::string(text);
}

} // namespace brindle::python
