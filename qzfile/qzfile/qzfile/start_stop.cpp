// Kept for callers that start and stop the module: it starts with its first use.

#include "qzfile.hpp"

int qzfile_initialize(void)
{
    return 0;
}

int qzfile_terminate(void)
{
    return 0;
}

QZFileContext::QZFileContext()
{
    qzfile_initialize();
}

QZFileContext::~QZFileContext()
{
    qzfile_terminate();
}
