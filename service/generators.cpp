#include "core/frame/scriptenginegenerator.h"
#include "core/frame/vectorizationinterface.h"
#include "service/python/bridges/functionhelper.h"
#include "service/python/bridges/javascriptinterrupter.h"
#include "service/python/session.h"
#include "service/python/threadscopes.h"
#include "service/scriptengine.h"
#include "service/vectorization.h"

namespace brindle {

namespace {

class Generator final : public OMC::ScriptEngineGenerator {
public:
    BAPP_ScriptEngine* create(SC_SessionContext*) override { return new ScriptEngine; }
    void loadProject(SC_SessionContext* session, SC_Project*) override { python::hostOpenedProject(session); }
    void unloadProject(SC_SessionContext*) override { python::hostClosesProject(); }
};

class VectorizationGenerator final : public OMC::VectorizationInterfaceGenerator {
public:
    BAPP_VectorizationInterface* create(BAPP_ScriptHost* host) override { return new Vectorization(host); }
};

/// While the library is loaded it installs all that the object model takes from it. Nothing of the engine or of Python
/// is called for that.
[[maybe_unused]] const bool installed = [] {
    python::installThreadHelper();
    python::installFunctionHelper();
    python::installJavascriptInterrupter();
    OMC::ScriptEngineGeneratorInterface::setInstance(new Generator);
    OMC::VectorizationInterface::setGenerator(new VectorizationGenerator);
    return true;
}();

} // namespace

} // namespace brindle
