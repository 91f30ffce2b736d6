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

/// @name Formatters for places where neither the heap nor printf may be used
/// They write no terminator. Each result is where the next call goes on; the caller ends the text.
/// They are safe in any thread and in a signal handler, and do not look at the locale.
/// @{

/**
 * Copies a text.
 *
 * @param out   Where to write; room for all of @p text.
 * @param text  What to write; null writes nothing.
 *
 * @return the end of what was written.
 */
QZ_API char *safe_format(char *out, const char *text);

/**
 * Writes an integer, padded with zeros behind its sign: -5 in 3 digits is "-005".
 *
 * @param out    Where to write; room for a sign and the larger of 19 digits and @p width.
 * @param value  The number.
 * @param width  The least number of digits; one is always written.
 *
 * @return the end of what was written.
 */
QZ_API char *safe_format(char *out, std::int64_t value, int width);

/** The same for an int, which is as near to a double as to 64 bits. */
inline char *safe_format(char *out, int value, int width)
{
    return safe_format(out, std::int64_t{value}, width);
}

/**
 * Writes a number with a fixed number of decimals, halves rounded away from zero: 3.14159 with two
 * is "3.14". One decimal is always written, so 2.5 with none is "3.0". A negative number whose
 * integer part is 0 loses its sign.
 *
 * @param out        Where to write; room for 40 bytes.
 * @param value      The number. One that does not fit in 64 bits when its point is left out comes
 *                   out as the nearest that does; NaN comes out as 0.
 * @param precision  The number of decimals, 0 to 18; one outside counts as the nearest.
 *
 * @return the end of what was written.
 */
QZ_API char *safe_format(char *out, double value, int precision);

/// @}

/**
 * The system's text for the last error of the calling thread.
 *
 * @return the text, without a line break at its end.
 */
QZ_API std::string get_last_error();

/** Does nothing; kept for callers that call it. What a signal does is the program's choice. */
QZ_API void add_default_signal_handler();

/** Does nothing; kept for callers that call it. */
QZ_API void print_backtrace();

namespace qzlibs {

/**
 * Silences a handler for a scope and collects what is thrown on it, so that the messages of a
 * library call can become the details of the caller's own error.
 *
 * Captures of one handler nest: each gives back what it found. Use one from the thread that uses
 * the handler.
 */
class QZ_API CaptureQZErr {
public:
    /**
     * Starts to capture, from empty.
     *
     * @param id  The handler.
     *
     * @throws std::out_of_range "Invalid qzerr handle: " and the id, when there is no such handler.
     */
    explicit CaptureQZErr(int id);

    /** Takes the capture over; only the new object ends it. */
    CaptureQZErr(CaptureQZErr &&other) noexcept;

    /**
     * Takes the capture over. An own capture that was active is given up without being ended: its
     * handler stays silent and capturing.
     */
    CaptureQZErr &operator=(CaptureQZErr &&other) noexcept;

    /** Ends the capture, if restore() did not. */
    ~CaptureQZErr();

    /**
     * Ends the capture: the handler prints and captures as it did before, with the text it had. It
     * does nothing a second time, nor when the handler is gone.
     */
    void restore();

    /**
     * The messages, each with its prefix, level and line end, one after the other.
     *
     * @return after restore() all that were captured. Before it those since the previous call; the
     *         handler is cleared then, as by qzerr_errclear().
     */
    std::string getMessages();

    /**
     * The messages, or something else when there are none.
     *
     * @param fallback  What to return instead of nothing.
     *
     * @return getMessages(), or @p fallback when that is empty.
     */
    std::string getMessagesOrDefault(const std::string &fallback);

    /**
     * Adds the messages to a text.
     *
     * @param text  The text in front.
     *
     * @return @p text, ":\n " and getMessages(), or @p text alone when that is empty.
     */
    std::string addMessagesAsDetails(const std::string &text);

private:
    bool saved_suppression_ = false;
    bool restored_ = false;
    int id_;
    std::int32_t saved_capturing_ = 0;
    /// The handler's text from before while the capture is active, the captured one afterwards.
    qz::errors::CapturedText *text_ = nullptr;
};

/**
 * While one lives that is not closed, handler -1 writes to the standard error of the interpreter
 * embedded in this process, as long as its stream is stderr and an interpreter is initialised.
 *
 * Make and destroy them on the interpreter's thread; the number of them is not locked. Messages may
 * come from any thread: writing takes the interpreter's global lock, so a caller that holds a lock
 * of its own must not wait for the interpreter in another thread.
 */
class QZ_API RedirectQzerrToPythonStderr {
public:
    /** Starts to redirect, if no other one does already. */
    RedirectQzerrToPythonStderr();

    /** Closes. */
    ~RedirectQzerrToPythonStderr();

    RedirectQzerrToPythonStderr(const RedirectQzerrToPythonStderr &) = delete;
    RedirectQzerrToPythonStderr &operator=(const RedirectQzerrToPythonStderr &) = delete;

    /** Ends the part of this object in the redirection; a second call does nothing. */
    void close();

    /**
     * Tells whether any object redirects.
     *
     * @return true while one lives that is not closed.
     */
    static bool isActive();

private:
    bool closed_ = false;
    static std::uint64_t m_count;
};

} // namespace qzlibs
} // namespace halcyra

/**
 * Takes the stream away from handler 0 for a scope, and with it the deprecation warnings. A place
 * that did not warn because of it still may afterwards. They nest.
 */
class QZ_API QzerrSuppressDeprecation {
public:
    /** Makes handler 0 silent on its stream or unit. */
    QzerrSuppressDeprecation();

    /** Gives handler 0 back what it wrote to. */
    ~QzerrSuppressDeprecation();

    QzerrSuppressDeprecation(const QzerrSuppressDeprecation &) = delete;
    QzerrSuppressDeprecation &operator=(const QzerrSuppressDeprecation &) = delete;

private:
    std::int32_t saved_kind_;
};

#endif
