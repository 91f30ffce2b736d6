/* A Fortran program has no way to call a function with variable arguments. */
#include "qzerr.h"

int qz_module_throw(int id, int level, const char *text);

int qz_module_throw(int id, int level, const char *text)
{
    return qzerr_throw(id, (unsigned)level, "%s", text);
}
