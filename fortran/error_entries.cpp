#include "errors/handler_table.h"
#include "errors/message.h"
#include "fortran/spelling.h"
#include "qzerr.h"
#include "qzfortran.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace {

constexpr std::size_t kPrefixVariableBytes = 20;
constexpr std::size_t kCodeVariableBytes = 20;
constexpr std::size_t kMessageVariableBytes = 80;

bool is_blank(char c)
{
    return c == ' ' || c == '\0';
}

/// A CHARACTER variable that the caller agreed to make at least @p kBytes long, and whose last byte
/// becomes a NUL. A shorter one, such as a literal or an empty text, is worked on in a copy; there
/// is one byte in front of that too.
template <std::size_t kBytes> class CutVariable {
public:
    CutVariable(char *variable, int declared_length) : text_(variable)
    {
        const auto length = static_cast<std::size_t>(std::max(declared_length, 0));
        if (length < kBytes) {
            text_ = copy_ + 1;
            std::copy_n(variable, length, text_);
        }
        text_[kBytes - 1] = '\0';
    }

    CutVariable(const CutVariable &) = delete;
    CutVariable &operator=(const CutVariable &) = delete;

    char *text() { return text_; }

private:
    char copy_[kBytes + 1] = {};
    char *text_;
};

/// Leaves one blank behind the last other character, so that the prefix stands apart from the name
/// of the level; behind one that fills the variable there is no room for it.
void keep_one_blank(char *prefix)
{
    std::size_t length = kPrefixVariableBytes;
    while (length > 0 && is_blank(prefix[length - 1]))
        --length;
    if (length == 0) {
        prefix[-1] = '\0'; // callers rely on it
    } else if (length < kPrefixVariableBytes - 1) {
        prefix[length] = ' ';
        prefix[length + 1] = '\0';
    }
}

} // namespace

void QZERRF_NEW(int *id, int *status)
{
    *status = qzerr_new(id);
}

void QZERRF_DELETE(int *id)
{
    qzerr_delete(*id);
}

void QZERRF_LEVEL(int *id, int *level, int *status)
{
    *status = qzerr_level(*id, static_cast<unsigned>(*level));
}

void QZERRF_MAXLEVEL(int *id, int *maxlevel, int *status)
{
    auto level = static_cast<unsigned>(*maxlevel);
    *status = qzerr_maxlevel(*id, &level);
    *maxlevel = static_cast<int>(level);
}

void QZERRF_FILE(int *id, int *unit, int *status)
{
    *status = qz::errors::set_fortran_unit(*id, *unit) ? 1 : 0;
}

void QZERRF_PREFIX(int *id, char *prefix, int *status, int prefix_len)
{
    CutVariable<kPrefixVariableBytes> variable(prefix, prefix_len);
    keep_one_blank(variable.text());
    *status = qzerr_prefix(*id, variable.text());
}

void QZERRF_RETURN_CODE(int *level, char *code, int code_len)
{
    const char *text = qzerr_return_code(static_cast<unsigned>(*level));
    const auto room = static_cast<std::size_t>(std::max(code_len, 0));
    const std::size_t length = std::min(room, kCodeVariableBytes);
    const std::size_t copied = std::min(std::strlen(text), length);
    std::memcpy(code, text, copied);
    std::memset(code + copied, ' ', length - copied);
}

void QZERRF_THROW(int *id, int *level, char *message, int *status, int message_len)
{
    CutVariable<kMessageVariableBytes> variable(message, message_len);
    const qz::errors::NewlineAfterMessages newline;
    *status = qzerr_throw(*id, static_cast<unsigned>(*level), variable.text());
}

QZ_GFORTRAN_SPELLING(QZERRF_NEW, qzerrf_new_);
QZ_GFORTRAN_SPELLING(QZERRF_DELETE, qzerrf_delete_);
QZ_GFORTRAN_SPELLING(QZERRF_LEVEL, qzerrf_level_);
QZ_GFORTRAN_SPELLING(QZERRF_MAXLEVEL, qzerrf_maxlevel_);
QZ_GFORTRAN_SPELLING(QZERRF_FILE, qzerrf_file_);
QZ_GFORTRAN_SPELLING(QZERRF_PREFIX, qzerrf_prefix_);
QZ_GFORTRAN_SPELLING(QZERRF_RETURN_CODE, qzerrf_return_code_);
QZ_GFORTRAN_SPELLING(QZERRF_THROW, qzerrf_throw_);
