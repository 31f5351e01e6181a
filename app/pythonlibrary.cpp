#include "app/pythonlibrary.h"

#include <QLibrary>

namespace app {

QString loadPythonLibrary()
{
    QLibrary python(BRINDLE_PYTHON_LIBRARY);
    python.setLoadHints(QLibrary::ExportExternalSymbolsHint);
    return python.load() ? QString() : python.errorString();
}

} // namespace app
