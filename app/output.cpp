#include "app/command.h"

#include <cstdio>

namespace app {

int fail(const QString& sentence, int code)
{
    std::fprintf(stderr, "brindle: %s\n", sentence.toLocal8Bit().constData());
    return code;
}

void print(const QString& text)
{
    std::fputs(text.toLocal8Bit().constData(), stdout);
}

} // namespace app
