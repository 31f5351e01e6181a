// Preloaded ahead of the C library: counts the calls that write to a disk, and lets a range of them fail.
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <stdarg.h>
#include <stddef.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

static int first, last, code, count;

// Counts calls anew, from 1, and lets those from `from` to `to` fail with the errno `number`; with `from` 0 it counts
// none. Gives the number of calls that were counted before.
int fail_from(int from, int to, int number)
{
    const int before = count;
    first = from;
    last = to;
    code = number;
    count = 0;
    return before;
}

static int fails(void)
{
    if (!first)
        return 0;
    ++count;
    if (count < first || count > last)
        return 0;
    errno = code;
    return 1;
}

#define REPLACE(result, name, parameters, arguments, applies)                                                          \
    result name parameters                                                                                             \
    {                                                                                                                  \
        static result(*real) parameters;                                                                               \
        if (!real)                                                                                                     \
            *(void**)&real = dlsym(RTLD_NEXT, #name);                                                                  \
        return (applies) && fails() ? -1 : real arguments;                                                             \
    }

REPLACE(ssize_t, write, (int file, const void* data, size_t size), (file, data, size), file > 2)
REPLACE(int, fsync, (int file), (file), 1)
REPLACE(int, fdatasync, (int file), (file), 1)
REPLACE(int, syncfs, (int file), (file), 1)
REPLACE(int, rename, (const char* from, const char* to), (from, to), 1)
REPLACE(int, renameat, (int f, const char* from, int t, const char* to), (f, from, t, to), 1)
REPLACE(int, unlink, (const char* path), (path), 1)
REPLACE(int, unlinkat, (int folder, const char* path, int flags), (folder, path, flags), 1)
REPLACE(int, mkdir, (const char* path, mode_t mode), (path, mode), 1)
REPLACE(int, mkdirat, (int folder, const char* path, mode_t mode), (folder, path, mode), 1)
REPLACE(int, linkat, (int f, const char* from, int t, const char* to, int flags), (f, from, t, to, flags), 1)

#define REPLACE_OPEN(name, parameters, arguments)                                                                      \
    int name parameters                                                                                                \
    {                                                                                                                  \
        static int(*real) parameters;                                                                                  \
        va_list rest;                                                                                                  \
        va_start(rest, flags);                                                                                         \
        const mode_t mode = flags & (O_CREAT | __O_TMPFILE) ? va_arg(rest, mode_t) : 0;                                \
        va_end(rest);                                                                                                  \
        if (!real)                                                                                                     \
            *(void**)&real = dlsym(RTLD_NEXT, #name);                                                                  \
        return flags & (O_CREAT | O_WRONLY | O_RDWR) && fails() ? -1 : real arguments;                                 \
    }

REPLACE_OPEN(open, (const char* path, int flags, ...), (path, flags, mode))
REPLACE_OPEN(open64, (const char* path, int flags, ...), (path, flags, mode))
REPLACE_OPEN(openat, (int folder, const char* path, int flags, ...), (folder, path, flags, mode))
REPLACE_OPEN(openat64, (int folder, const char* path, int flags, ...), (folder, path, flags, mode))
