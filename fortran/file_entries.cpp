#include "fortran/fortran_text.h"
#include "fortran/spelling.h"
#include "qzerr.h"
#include "qzfile.h"
#include "qzfortran.h"

#include <algorithm>
#include <cstring>

using qz::fortran::copy_trimmed;
using qz::fortran::OwnedText;
using qz::fortran::trimmed;

namespace {

constexpr int kLibraryHandler = -1;
constexpr int kFailed = -1;
/// The longest path that QZFILEF_PATH_LOCALIZE converts.
constexpr int kLongestLocalized = 1024;

const char *text_or_null(const OwnedText &text)
{
    return text ? text.get() : "NULL";
}

/// Forwards a text to a function that takes one, and reports a failure with what the text said.
template <typename Forwarded>
int forward(const char *variable, int declared_length, Forwarded call, unsigned level,
            const char *format, const char *entry)
{
    const OwnedText text = copy_trimmed(variable, declared_length);
    if (!text)
        return kFailed;
    const int status = call(text.get());
    if (status != 0 && format != nullptr)
        qzerr_throw(kLibraryHandler, level, format, entry, text.get());
    return status;
}

/// Reports a failure that has nothing to name but the entry point.
int reported(int status, const char *format, const char *entry)
{
    if (status != 0)
        qzerr_throw(kLibraryHandler, QZERR_FATAL, format, entry);
    return status;
}

/// Stores a result, if there is one, in the caller's variable and reports one that is cut.
/// @return @p status, or -1 for a cut one.
int hand_over(const char *result, int status, char *variable, int declared_length,
              const char *entry)
{
    if (result == nullptr || qz::fortran::store(result, variable, declared_length))
        return status;
    qzerr_throw(kLibraryHandler, QZERR_FATAL, "%s: fpath not long enough; need %d chars, have %d",
                entry, static_cast<int>(std::strlen(result)), declared_length);
    return kFailed;
}

} // namespace

void QZFILEF_INITIALIZE(void *, int *status)
{
    *status = 0;
}

void QZFILEF_DIR_EXPAND(const char *name, char *path, int *status, int name_len, int path_len)
{
    const OwnedText cname = copy_trimmed(name, name_len);
    char *result = nullptr;
    *status = cname ? qzfile_dir_expand(cname.get(), &result) : kFailed;
    const OwnedText cpath(result);
    if (*status != 0) {
        qzerr_throw(kLibraryHandler, QZERR_INFO,
                    "%s: qzfile_dir_expand() fails, cname='%s', cpath=%s\n", "QZFILEF_DIR_EXPAND",
                    text_or_null(cname), text_or_null(cpath));
    }
    *status = hand_over(cpath.get(), *status, path, path_len, "QZFILEF_DIR_EXPAND");
}

void QZFILEF_DOS_TO_UNIX(const char *name, int *status, int name_len)
{
    *status = forward(name, name_len, qzfile_dos_to_unix, 0, nullptr, nullptr);
}

void QZFILEF_DOS_TO_UNIX_REGISTER(const char *name, int *status, int name_len)
{
    *status = forward(name, name_len, qzfile_dos_to_unix_register, 0, nullptr, nullptr);
}

void QZFILEF_DOS_TO_UNIX_CONVERT(int *status)
{
    *status = qzfile_dos_to_unix_convert();
}

void QZFILEF_EXISTS(const char *name, const int *type, int *status, int name_len)
{
    *status = forward(
        name, name_len, [=](const char *cname) { return qzfile_exists(cname, *type); }, QZERR_INFO,
        "%s: qzfile_exists() fails, cname='%s'\n", "QZFILEF_EXISTS");
}

void QZFILEF_FIND(const char *name, const int *type, char *path, int *status, int name_len,
                  int path_len)
{
    const OwnedText cname = copy_trimmed(name, name_len);
    char *result = nullptr;
    *status = cname ? qzfile_find(cname.get(), *type, &result) : kFailed;
    const OwnedText cpath(result);
    if (*status != 0) {
        qzerr_throw(kLibraryHandler, QZERR_INFO, "%s: qzfile_find() fails, cname='%s', cpath=%s\n",
                    "QZFILEF_FIND", text_or_null(cname), text_or_null(cpath));
    }
    *status = hand_over(cpath.get(), *status, path, path_len, "QZFILEF_FIND");
}

void QZFILEF_PATH_ADD(const char *path, int *status, int path_len)
{
    *status = forward(path, path_len, qzfile_path_add, QZERR_FATAL,
                      "%s: qzfile_path_add(), cpath= '%s'\n", "QZFILEF_PATH_ADD");
}

void QZFILEF_PATH_ADD_CWD(int *status)
{
    *status =
        reported(qzfile_path_add_cwd(), "%s: qzfile_path_add_cwd) fails\n", "QZFILEF_PATH_ADD_CWD");
}

void QZFILEF_PATH_ADD_HOME(int *status)
{
    *status = reported(qzfile_path_add_home(), "%s: qzfile_path_add_home) fails\n",
                       "QZFILEF_PATH_ADD_HOME");
}

void QZFILEF_PATH_CLEAR(int *status)
{
    *status =
        reported(qzfile_path_clear(), "%s: qzfile_path_clear() fails\n", "QZFILEF_PATH_CLEAR");
}

void QZFILEF_PATH_GET(char *path, int *status, int path_len)
{
    char *result = nullptr;
    *status =
        reported(qzfile_path_get(&result), "%s: qzfile_path_get() fails\n", "QZFILEF_PATH_GET");
    const OwnedText cpath(result);
    *status = hand_over(cpath.get(), *status, path, path_len, "QZFILEF_PATH_GET");
}

void QZFILEF_PATH_IS_ABSOLUTE(const char *path, int *status, int path_len)
{
    *status =
        forward(path, path_len, qzfile_path_is_absolute, QZERR_INFO,
                "%s: qzfile_path_is_absolute() fails, cname='%s'\n", "QZFILEF_PATH_IS_ABSOLUTE");
}

void QZFILEF_PATH_LOCALIZE(char *path, int *status, int path_len)
{
    const char *const entry = "QZFILEF_PATH_LOCALIZE";
    if (path_len > kLongestLocalized) {
        qzerr_throw(kLibraryHandler, QZERR_FATAL,
                    "%s: cpath not long enough; need %d chars, have %d", entry, path_len,
                    kLongestLocalized);
    }
    char cpath[kLongestLocalized + 1] = {};
    const std::string_view text = trimmed(path, path_len);
    const bool is_cut = text.copy(cpath, kLongestLocalized) < text.size();

    *status = qzfile_path_localize(cpath, kLongestLocalized);
    if (*status != 0) {
        qzerr_throw(kLibraryHandler, QZERR_INFO, "%s: fails, cpath=%s\n", entry, cpath);
        return;
    }
    *status = hand_over(cpath, is_cut ? kFailed : 0, path, path_len, entry);
}

void QZFILEF_PATH_SET(const char *path, int *status, int path_len)
{
    // This one calls itself in lower case.
    *status = forward(path, path_len, qzfile_path_set, QZERR_FATAL,
                      "%s: qzfile_path_set() fails, cpath = '%s'\n", "qzfilef_path_set");
}

QZ_GFORTRAN_SPELLING(QZFILEF_INITIALIZE, qzfilef_initialize_);
QZ_GFORTRAN_SPELLING(QZFILEF_DIR_EXPAND, qzfilef_dir_expand_);
QZ_GFORTRAN_SPELLING(QZFILEF_DOS_TO_UNIX, qzfilef_dos_to_unix_);
QZ_GFORTRAN_SPELLING(QZFILEF_DOS_TO_UNIX_REGISTER, qzfilef_dos_to_unix_register_);
QZ_GFORTRAN_SPELLING(QZFILEF_DOS_TO_UNIX_CONVERT, qzfilef_dos_to_unix_convert_);
QZ_GFORTRAN_SPELLING(QZFILEF_EXISTS, qzfilef_exists_);
QZ_GFORTRAN_SPELLING(QZFILEF_FIND, qzfilef_find_);
QZ_GFORTRAN_SPELLING(QZFILEF_PATH_ADD, qzfilef_path_add_);
QZ_GFORTRAN_SPELLING(QZFILEF_PATH_ADD_CWD, qzfilef_path_add_cwd_);
QZ_GFORTRAN_SPELLING(QZFILEF_PATH_ADD_HOME, qzfilef_path_add_home_);
QZ_GFORTRAN_SPELLING(QZFILEF_PATH_CLEAR, qzfilef_path_clear_);
QZ_GFORTRAN_SPELLING(QZFILEF_PATH_GET, qzfilef_path_get_);
QZ_GFORTRAN_SPELLING(QZFILEF_PATH_IS_ABSOLUTE, qzfilef_path_is_absolute_);
QZ_GFORTRAN_SPELLING(QZFILEF_PATH_LOCALIZE, qzfilef_path_localize_);
QZ_GFORTRAN_SPELLING(QZFILEF_PATH_SET, qzfilef_path_set_);
