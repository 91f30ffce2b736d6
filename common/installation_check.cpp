#include "qzcommon.h"
#include "qzfile.h"

#include <cstdlib>

bool _product_exists(const char *product)
{
    char *dir = nullptr;
    const bool found = qzfile_find_product_dir(product, &dir) == 0;
    std::free(dir);
    return found;
}

int qzcommon_check_installation(const char *product, int *status)
{
    if (status != nullptr)
        *status = 0;
    return _product_exists(product) ? 0 : -1;
}
