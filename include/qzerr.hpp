/** @file
 *  Allocation-free formatters, capture and redirection of error messages.
 */
#ifndef QZFILESHARED_QZERR_HPP
#define QZFILESHARED_QZERR_HPP

#include "qzerr.h"
#include "qzexport.h"

#include <cstdint>
#include <string>

namespace qz::errors {
struct CapturedText;
}

namespace halcyra {
QZ_API char *safe_format(char *out, const char *text);
QZ_API char *safe_format(char *out, std::int64_t value, int width);
QZ_API char *safe_format(char *out, double value, int precision);
QZ_API std::string get_last_error();
QZ_API void add_default_signal_handler();
QZ_API void print_backtrace();

namespace qzlibs {
class QZ_API CaptureQZErr {
public:
    explicit CaptureQZErr(int id);
    CaptureQZErr(CaptureQZErr &&other) noexcept;
    CaptureQZErr &operator=(CaptureQZErr &&other) noexcept;
    ~CaptureQZErr();
    void restore();
    std::string getMessages();
    std::string getMessagesOrDefault(const std::string &fallback);
    std::string addMessagesAsDetails(const std::string &text);

private:
    bool saved_suppression_ = false;
    bool restored_ = false;
    int id_;
    std::int32_t saved_capturing_ = 0;
    qz::errors::CapturedText *text_ = nullptr;
};

class QZ_API RedirectQzerrToPythonStderr {
public:
    RedirectQzerrToPythonStderr();
    ~RedirectQzerrToPythonStderr();
    void close();
    static bool isActive();

    RedirectQzerrToPythonStderr(const RedirectQzerrToPythonStderr &) = delete;
    RedirectQzerrToPythonStderr &operator=(const RedirectQzerrToPythonStderr &) = delete;

private:
    bool closed_ = false;
    static std::uint64_t m_count;
};
} // namespace qzlibs
} // namespace halcyra

class QZ_API QzerrSuppressDeprecation {
public:
    QzerrSuppressDeprecation();
    ~QzerrSuppressDeprecation();
    QzerrSuppressDeprecation(const QzerrSuppressDeprecation &) = delete;
    QzerrSuppressDeprecation &operator=(const QzerrSuppressDeprecation &) = delete;

private:
    std::int32_t saved_kind_;
};

#endif
