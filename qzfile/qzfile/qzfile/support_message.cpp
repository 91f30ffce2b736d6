#include "qzfile.h"

const char *qzfile_get_halcyra_support_error_mesg(void)
{
    return "Please report this problem at https://www.halcyra.example/support, and upload the "
           "following files, to help us diagnose this problem:";
}
