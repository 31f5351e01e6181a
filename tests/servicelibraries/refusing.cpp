#include "core/frame/scriptenginegenerator.h"
#include "core/frame/vectorizationinterface.h"

// A service library whose generators make nothing.

namespace {

class Generator final : public OMC::ScriptEngineGenerator {
public:
    BAPP_ScriptEngine* create(SC_SessionContext*) override { return nullptr; }
    void loadProject(SC_SessionContext*, SC_Project*) override {}
    void unloadProject(SC_SessionContext*) override {}
};

class VectorizationGenerator final : public OMC::VectorizationInterfaceGenerator {
public:
    BAPP_VectorizationInterface* create(BAPP_ScriptHost*) override { return nullptr; }
};

[[maybe_unused]] const bool installed = [] {
    OMC::ScriptEngineGeneratorInterface::setInstance(new Generator);
    OMC::VectorizationInterface::setGenerator(new VectorizationGenerator);
    return true;
}();

} // namespace
