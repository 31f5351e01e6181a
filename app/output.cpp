#include "app/command.h"

#include "engine/engine.h"

#include <cstdio>

namespace app {

int fail(const QString& sentence, int code)
{
    std::fprintf(stderr, "brindle: %s\n", brindle::engine::shown(sentence).toLocal8Bit().constData());
    return code;
}

void print(const QString& text)
{
    const QByteArray bytes = text.toLocal8Bit();
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout);
}

} // namespace app
