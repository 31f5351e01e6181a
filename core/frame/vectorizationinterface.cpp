#include "core/frame/vectorizationinterface.h"

#include "core/frame/scriptservices.h"
#include "core/frame/servicelibrary.h"

#include <memory>

namespace OMC {

VectorizationInterfaceGenerator::~VectorizationInterfaceGenerator() = default;

namespace VectorizationInterface {

namespace {

// Neither is destroyed by the end of the process: the library that they come from may have ended before.
std::unique_ptr<VectorizationInterfaceGenerator>& generatorInstance()
{
    static auto* instance = new std::unique_ptr<VectorizationInterfaceGenerator>;
    return *instance;
}

std::unique_ptr<BAPP_VectorizationInterface>& vectorization()
{
    static auto* object = new std::unique_ptr<BAPP_VectorizationInterface>;
    return *object;
}

void reportFailure()
{
    reportScriptFailure(QStringLiteral("Failed to load Vectorization Interface.\n"));
}

} // namespace

void setGenerator(VectorizationInterfaceGenerator* generator)
{
    if (generator != generatorInstance().get())
        generatorInstance().reset(generator);
}

void loadInterface(SC_SessionContext* session)
{
    if (!ST_BatchParams::isBatchPython() || !session)
        return;
    BAPP_ScriptHost* host = scriptHost();
    if (!host) {
        reportFailure();
        return;
    }
    if (vectorization()) {
        host->setVectorizationInterface(vectorization().get());
        return;
    }
    loadServiceLibrary();
    VectorizationInterfaceGenerator* generator = generatorInstance().get();
    if (!generator) {
        reportFailure();
        return;
    }
    // A new one has registered itself, and a library without the service says nothing.
    vectorization().reset(generator->create(host));
}

void unloadInterface()
{
    BAPP_ScriptHost* host = scriptHost();
    if (!host) {
        // Required: without an application to take it off, the service is not destroyed.
        reportFailure();
        return;
    }
    host->setVectorizationInterface(nullptr);
    vectorization().reset();
}

} // namespace VectorizationInterface

} // namespace OMC
