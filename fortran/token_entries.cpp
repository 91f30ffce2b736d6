// Every text reaches the token lists as it is: the Fortran side ends it with a NUL, and hidden
// lengths, which follow the arguments named here, are ignored.

#include "fortran/spelling.h"
#include "qzfortran.h"
#include "qztoken.h"

#include <cstring>

int QZTOKENF_NEW(int *handle, const char *text, const char *separators, const char *pairs,
                 const char *comments, const char *escapes, const char *singles)
{
    return qztoken_new(handle, text, separators, pairs, comments, escapes, singles);
}

int QZTOKENF_ADD(const int *handle, const char *text)
{
    return qztoken_add(*handle, text);
}

int QZTOKENF_ADDN(int handle, const char *text, int width, int left, int offset)
{
    return qztoken_addn(handle, text, width, left, offset);
}

int QZTOKENF_CLEAR(const int *handle)
{
    return qztoken_clear(*handle);
}

int QZTOKENF_COPY(const int *destination, const int *source)
{
    return qztoken_copy(*destination, *source);
}

int QZTOKENF_COPYN(const int *destination, const int *source, const int *width, const int *left,
                   const int *offset)
{
    return qztoken_copyn(*destination, *source, *width, *left, *offset);
}

int QZTOKENF_DELETE(const int *handle)
{
    return qztoken_delete(*handle);
}

int QZTOKENF_DELETE_TOKEN(const int *handle, const int *index)
{
    return qztoken_delete_token(*handle, *index);
}

int QZTOKENF_FIND_TYPE(const int *handle, const int *index)
{
    return qztoken_find_type(*handle, *index);
}

int QZTOKENF_GET_DOUBLE(const int *handle, const int *index, double *value)
{
    return qztoken_get_double(*handle, *index, value);
}

int QZTOKENF_GET_INT(const int *handle, const int *index, int *value)
{
    return qztoken_get_int(*handle, *index, value);
}

char *QZTOKENF_GET_STRING(const int *handle)
{
    return qztoken_get_string(*handle);
}

int QZTOKENF_GET_TOKEN(const int *handle, const int *index, char *token)
{
    constexpr std::size_t kTokenVariableBytes = 255;
    const char *text = qztoken_get_token(*handle, *index);
    if (text == nullptr)
        return -1;
    const std::size_t copied = strnlen(text, kTokenVariableBytes);
    std::memcpy(token, text, copied);
    std::memset(token + copied, '\0', kTokenVariableBytes - copied);
    return 0;
}

int QZTOKENF_INDEX(const int *handle, const char *text)
{
    return qztoken_index(*handle, text);
}

int QZTOKENF_INDEXN(const int *handle, const char *text, const int *n)
{
    return qztoken_indexn(*handle, text, *n);
}

int QZTOKENF_MERGE(const int *destination, const int *source)
{
    return qztoken_merge(*destination, *source);
}

int QZTOKENF_MERGEN(const int *destination, const int *source, const int *width, const int *left,
                    const int *offset)
{
    return qztoken_mergen(*destination, *source, *width, *left, *offset);
}

int QZTOKENF_NUM(const int *handle)
{
    return qztoken_num(*handle);
}

int QZTOKENF_REGEX_COMPILE(const int *handle)
{
    return qztoken_regex_compile(*handle);
}

int QZTOKENF_REGEX_INDEX(const int *handle, const char *text)
{
    return qztoken_regex_index(*handle, text);
}

int QZTOKENF_REPLACE(const int *handle, const int *index, const char *text)
{
    return qztoken_replace(*handle, *index, text);
}

int QZTOKENF_TOLOWER_TOKEN(const int *handle, const int *index)
{
    return qztoken_tolower_token(*handle, *index);
}

int QZTOKENF_TOUPPER(const int *handle)
{
    return qztoken_toupper(*handle);
}

QZ_GFORTRAN_SPELLING(QZTOKENF_NEW, qztokenf_new_);
QZ_GFORTRAN_SPELLING(QZTOKENF_ADD, qztokenf_add_);
QZ_GFORTRAN_SPELLING(QZTOKENF_ADDN, qztokenf_addn_);
QZ_GFORTRAN_SPELLING(QZTOKENF_CLEAR, qztokenf_clear_);
QZ_GFORTRAN_SPELLING(QZTOKENF_COPY, qztokenf_copy_);
QZ_GFORTRAN_SPELLING(QZTOKENF_COPYN, qztokenf_copyn_);
QZ_GFORTRAN_SPELLING(QZTOKENF_DELETE, qztokenf_delete_);
QZ_GFORTRAN_SPELLING(QZTOKENF_DELETE_TOKEN, qztokenf_delete_token_);
QZ_GFORTRAN_SPELLING(QZTOKENF_FIND_TYPE, qztokenf_find_type_);
QZ_GFORTRAN_SPELLING(QZTOKENF_GET_DOUBLE, qztokenf_get_double_);
QZ_GFORTRAN_SPELLING(QZTOKENF_GET_INT, qztokenf_get_int_);
QZ_GFORTRAN_SPELLING(QZTOKENF_GET_STRING, qztokenf_get_string_);
QZ_GFORTRAN_SPELLING(QZTOKENF_GET_TOKEN, qztokenf_get_token_);
QZ_GFORTRAN_SPELLING(QZTOKENF_INDEX, qztokenf_index_);
QZ_GFORTRAN_SPELLING(QZTOKENF_INDEXN, qztokenf_indexn_);
QZ_GFORTRAN_SPELLING(QZTOKENF_MERGE, qztokenf_merge_);
QZ_GFORTRAN_SPELLING(QZTOKENF_MERGEN, qztokenf_mergen_);
QZ_GFORTRAN_SPELLING(QZTOKENF_NUM, qztokenf_num_);
QZ_GFORTRAN_SPELLING(QZTOKENF_REGEX_COMPILE, qztokenf_regex_compile_);
QZ_GFORTRAN_SPELLING(QZTOKENF_REGEX_INDEX, qztokenf_regex_index_);
QZ_GFORTRAN_SPELLING(QZTOKENF_REPLACE, qztokenf_replace_);
QZ_GFORTRAN_SPELLING(QZTOKENF_TOLOWER_TOKEN, qztokenf_tolower_token_);
QZ_GFORTRAN_SPELLING(QZTOKENF_TOUPPER, qztokenf_toupper_);
