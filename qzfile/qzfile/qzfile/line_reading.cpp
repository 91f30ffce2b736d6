#include "qzfile.h"

#include <cerrno>
#include <cstdio>

char *fgets_safe(char *buf, int size, FILE *stream)
{
    char *line = nullptr;
    do {
        errno = 0;
        line = std::fgets(buf, size, stream);
    } while (!line && errno == EINTR);
    return line;
}
