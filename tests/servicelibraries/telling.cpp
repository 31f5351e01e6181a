#include "core/frame/scriptenginegenerator.h"
#include "core/frame/vectorizationinterface.h"
#include "core/host/application.h"

#include <cstdio>

// A service library whose generators tell on standard error what is asked of them.

namespace {

void tell(const char* what)
{
    std::fprintf(stderr, "<%s>", what);
}

class Engine final : public BAPP_ScriptEngine {
public:
    ~Engine() override { tell("engine destroyed"); }
    int run(const QList<QByteArray>&, std::function<void()>) override { return 0; }
    bool start(QString&) override { return true; }
    bool execute(const QString&) override { return true; }
};

class Vectorization final : public BAPP_VectorizationInterface {
public:
    explicit Vectorization(BAPP_ScriptHost* host) { host->setVectorizationInterface(this); }
    ~Vectorization() override { tell("vectorization destroyed"); }
    QList<QPolygonF> outlines(const QImage&, int) const override { return {}; }
};

class Generator final : public OMC::ScriptEngineGenerator {
public:
    ~Generator() override { tell("generator destroyed"); }
    BAPP_ScriptEngine* create(SC_SessionContext*) override
    {
        tell("create");
        return new Engine;
    }
    void loadProject(SC_SessionContext*, SC_Project*) override { tell("load project"); }
    void unloadProject(SC_SessionContext*) override { tell("unload project"); }
};

class VectorizationGenerator final : public OMC::VectorizationInterfaceGenerator {
public:
    ~VectorizationGenerator() override { tell("vectorization generator destroyed"); }
    BAPP_VectorizationInterface* create(BAPP_ScriptHost* host) override
    {
        tell("create vectorization");
        return new Vectorization(host);
    }
};

[[maybe_unused]] const bool installed = [] {
    tell("loaded");
    OMC::ScriptEngineGeneratorInterface::setInstance(new Generator);
    OMC::VectorizationInterface::setGenerator(new VectorizationGenerator);
    return true;
}();

} // namespace
