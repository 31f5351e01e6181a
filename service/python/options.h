#pragma once

#include "service/python/family.h"
#include "service/python/valueprotocol.h"

/// What all objects of options share in Python.
namespace brindle::python {

/// The options of a call: an object, which stays the script's; a dictionary that one is made of; or none. An object of
/// another class is left to the call, which has a sentence for it.
template <typename Options>
struct OptionsArgument {
    OMC::Obj handle;
};

template <typename Options>
struct From<OptionsArgument<Options>> {
    static constexpr const char* type = "an object of options or a dict";
    static bool accepts(PyObject* value) { return isWrapper(value) || PyDict_Check(value); }
    static OptionsArgument<Options> read(PyObject* value, unsigned int)
    {
        return {OMC::Obj(isWrapper(value) ? heldObject(value) : new Options(variantFrom(value)))};
    }
    static constexpr bool isDefault(std::string_view text) { return text == "None"; }
    static OptionsArgument<Options> fallback(std::string_view) { return {}; }
};

template <typename Options>
QVariantList optionsState(const Options& options)
{
    return {options.fields()};
}

template <typename Options>
Options* newOptions(const QVariantList& state)
{
    if (state.size() != 1 || state.first().typeId() != QMetaType::QVariantMap)
        OMC::BaseObject::throwInvalidArgument(1);
    return new Options(state.first());
}

/// "CopyOptions({'num_frame_src': 24})": what differs from the defaults.
template <typename Options>
std::string optionsText(const Options& options, const std::string& type)
{
    const QVariantMap defaults = Options().fields();
    const QVariantMap fields = options.fields();
    QStringList told;
    for (auto field = fields.begin(); field != fields.end(); ++field) {
        if (defaults.value(field.key()) == field.value())
            continue;
        const Ref value(toPython(field.value()));
        const Ref text(PyObject_Repr(value.get()));
        if (!text)
            throw PythonError{};
        told.append(QStringLiteral("'%1': %2").arg(field.key(), stringFrom(text.get())));
    }
    const QString arguments = told.isEmpty() ? QString() : u'{' + told.join(QStringLiteral(", ")) + u'}';
    return shortName(type) + QStringLiteral("(%1)").arg(arguments).toStdString();
}

/// A class of options, which is copied, pickled and shown by its fields.
template <typename Options>
Class<Options> optionsClass()
{
    Class<Options> table;
    table.template value<&optionsState<Options>, &newOptions<Options>, &optionsText<Options>>();
    return table;
}

} // namespace brindle::python
