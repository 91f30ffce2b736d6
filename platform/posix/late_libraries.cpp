// Two libraries that few programs come to need, and that a start would pay for: the validator of
// XML names, asked when a preference is set, and the Fortran run-time, for messages to a unit. Each
// is loaded at its first call; what it exports stands here under the same name and forwards. Only
// this library's own calls are bound here: the names are not exported.

#include <libxml/tree.h>

#include <cstddef>

#include <dlfcn.h>

namespace {

/// The function of that name and type in a library, loaded if the process does not have it yet;
/// null when it is not installed.
template <typename Function> Function *late_function(const char *library, const char *name)
{
    void *const loaded = dlopen(library, RTLD_NOW | RTLD_LOCAL);
    return loaded != nullptr ? reinterpret_cast<Function *>(dlsym(loaded, name)) : nullptr;
}

} // namespace

int xmlValidateName(const xmlChar *name, int space)
{
    static const auto validate =
        late_function<decltype(xmlValidateName)>(QZ_LIBXML2, "xmlValidateName");
    constexpr int kInternalError = -1;
    return validate != nullptr ? validate(name, space) : kInternalError;
}

// The three steps of a formatted write, as gfortran calls them. Without a run-time nothing is
// written; the caller looks at no status.
extern "C" {

void _gfortran_st_write(void *transfer);
void _gfortran_transfer_character_write(void *transfer, void *text, std::size_t length);
void _gfortran_st_write_done(void *transfer);

void _gfortran_st_write(void *transfer)
{
    static const auto start =
        late_function<decltype(_gfortran_st_write)>(QZ_LIBGFORTRAN, "_gfortran_st_write");
    if (start != nullptr)
        start(transfer);
}

void _gfortran_transfer_character_write(void *transfer, void *text, std::size_t length)
{
    static const auto write = late_function<decltype(_gfortran_transfer_character_write)>(
        QZ_LIBGFORTRAN, "_gfortran_transfer_character_write");
    if (write != nullptr)
        write(transfer, text, length);
}

void _gfortran_st_write_done(void *transfer)
{
    static const auto finish =
        late_function<decltype(_gfortran_st_write_done)>(QZ_LIBGFORTRAN, "_gfortran_st_write_done");
    if (finish != nullptr)
        finish(transfer);
}
}
