/** @file
 *  Error handlers, throwing and the deprecation log.
 *
 *  A handler is named by a number. It says from which level on its messages are shown, where they
 *  go and what stands in front of them. To throw is to report: nothing here raises an exception,
 *  ends the process or waits for the user.
 *
 *  Handler 0 is for callers that need none of their own, and takes the deprecation warnings;
 *  handler -1 takes what this library has to say. Both exist from the start, write to standard
 *  error and cannot be deleted. Handlers 1 and up are made by qzerr_new().
 *
 *  Threads: the default handlers are set up safely from any thread. Apart from that, make,
 *  configure, delete and throw from one thread at a time.
 */
#ifndef QZFILESHARED_QZERR_H
#define QZFILESHARED_QZERR_H

#include "qzexport.h"

#include <stdarg.h>
#include <stdio.h>

#ifdef __cplusplus
extern "C" {
#endif

/** Severity levels. They are compared as unsigned numbers; a handler shows messages of its own
 *  level and above. A message of level 7 or more is shown as "LEVEL UNDEFINED". */
enum {
    QZERR_BUMMER = 0,  /**< "BUMMER" */
    QZERR_OK = 1,      /**< "OK"; the maximum level of a handler on which nothing was thrown */
    QZERR_DEBUG = 2,   /**< "DEBUG" */
    QZERR_INFO = 3,    /**< "INFO" */
    QZERR_WARNING = 4, /**< "WARNING"; the level of every handler at first */
    QZERR_FATAL = 5,   /**< "FATAL"; only a name, the caller decides what to do */
    QZERR_OFF = 6      /**< "OFF"; as the level of a handler it silences all the others */
};

/**
 * Makes a handler. It shows messages from QZERR_WARNING on, but prints nothing until qzerr_file()
 * or qzerr_window() gives it a destination.
 *
 * @param[out] id  The handler, for qzerr_delete(); the lowest number that is free.
 *
 * @return  1  made;
 *          0  @p id is null.
 *
 * From C++, std::bad_alloc leaves this function when memory runs out; @p id is -1 then.
 */
QZ_API int qzerr_new(int *id);

/**
 * Deletes a handler made by qzerr_new(), with its prefix and captured text. Its stream stays open.
 *
 * @param id  The handler. 0 or -1 is refused with "Default handler can not be deleted.\n",
 *            QZERR_WARNING on handler -1; any other number without a handler is ignored.
 */
QZ_API void qzerr_delete(int id);

/**
 * Sets the level from which on a handler shows messages.
 *
 * @param id     The handler.
 * @param level  The lowest level shown; any number, 0 shows all.
 *
 * @return  1  set;
 *          0  there is no such handler (no message).
 */
QZ_API int qzerr_level(int id, unsigned level);

/**
 * Tells the level from which on a handler shows messages.
 *
 * @param id          The handler.
 * @param[out] level  The level; unchanged unless 1 is returned.
 *
 * @return  1  stored;
 *          0  there is no such handler or @p level is null (no message).
 */
QZ_API int qzerr_get_level(int id, unsigned *level);

/**
 * Tells the highest level below 7 that was thrown on a handler since it was made or cleared,
 * whether the message was shown or not.
 *
 * @param id          The handler.
 * @param[out] level  The level, at least QZERR_OK; unchanged unless 1 is returned.
 *
 * @return  1  stored;
 *          0  there is no such handler or @p level is null (no message).
 */
QZ_API int qzerr_maxlevel(int id, unsigned *level);

/**
 * Sets the maximum level of a handler back to QZERR_OK and frees its captured text. A capture that
 * is on goes on.
 *
 * @param id  The handler.
 *
 * @return  1  cleared;
 *          0  there is no such handler (no message).
 */
QZ_API int qzerr_errclear(int id);

/**
 * Sets the text that stands directly in front of the level's name in each message.
 *
 * @param id      The handler.
 * @param prefix  At most 511 bytes, copied. One that should stand apart ends in a blank itself.
 *
 * @return  1  set;
 *          0  there is no such handler or @p prefix is null, and nothing changed; or @p prefix is
 *             too long or memory ran out, and the handler has no prefix any more (no message).
 */
QZ_API int qzerr_prefix(int id, const char *prefix);

/**
 * Sends the messages of a handler to a stream instead of its stream or Fortran unit so far.
 *
 * @param id      The handler.
 * @param stream  Borrowed until the handler is deleted or gets another one; never closed. Null for
 *                no output: a window and a capture still get the messages.
 *
 * @return  1  set;
 *          0  there is no such handler (no message).
 */
QZ_API int qzerr_file(int id, FILE *stream);

/**
 * Sends the messages of a handler to a function, in addition to its stream or unit.
 *
 * @param id        The handler.
 * @param callback  Gets each message with its prefix and level, borrowed until it returns; a result
 *                  of -1 makes the throw fail. It may make and delete handlers. Null for none.
 *
 * @return  1  set;
 *          0  there is no such handler (no message).
 */
QZ_API int qzerr_window(int id, int (*callback)(const char *message));

/**
 * Stops a handler from printing anywhere. Its maximum level and its capture go on.
 *
 * @param id  The handler.
 *
 * @return  1  suppressed, perhaps already before;
 *          0  there is no such handler (no message).
 */
QZ_API int qzerr_suppress_print(int id);

/**
 * Lets a handler print again.
 *
 * @param id  The handler.
 *
 * @return  1  restored, however often it was suppressed;
 *          0  there is no such handler (no message).
 */
QZ_API int qzerr_restore_print(int id);

/**
 * Tells whether a handler prints.
 *
 * @param id       The handler.
 * @param[out] on  1 when it prints, 0 while it is suppressed; unchanged unless 1 is returned.
 *
 * @return  1  stored;
 *          0  there is no such handler or @p on is null (no message).
 */
QZ_API int qzerr_print_state(int id, int *on);

/**
 * Names a level as a return code.
 *
 * @param level  The level.
 *
 * @return  "QZERR_" and the name, as in "QZERR_WARNING"; "QZERR_LEVEL UNDEFINED" for 7 and
 *          "(bogus QZERR level)" above. Borrowed until the tenth call after this one.
 */
QZ_API const char *qzerr_return_code(unsigned level);

/**
 * Writes "Assert failed.  File: %s  Line: %d\n" to standard error, through no handler, when a
 * condition does not hold. The process goes on.
 *
 * @param condition  0 when it does not hold.
 * @param file       The source file to name.
 * @param line       The line to name.
 */
QZ_API void qzerr_assert(int condition, const char *file, int line);

/** Sets a flag of the process that nothing reads; kept for callers that set it. */
QZ_API void qzerr_set_qzlibs(void);

/**
 * Reports a message: the handler's prefix, the name of the level, a blank and the formatted text,
 * cut to 10,239 bytes and to its first NUL. A message below the handler's level only raises its
 * maximum level, and takes a few nanoseconds.
 *
 * The message goes to the handler's stream or Fortran unit, then to its window, then to its
 * captured text; a stream or a window that fails keeps it from the next ones. No line break is
 * added on a stream. A record that a Fortran unit does not take is lost.
 *
 * @param id      The handler.
 * @param level   The severity, QZERR_BUMMER and up.
 * @param format  The text, as of printf; null for none.
 *
 * @return  1  shown, or below the handler's level;
 *          0  there is no such handler, the stream or the window failed, or memory ran out for the
 *             captured text (no message), which is empty then.
 *
 * Formatting takes its memory from the stack; only a capture uses the heap.
 */
QZ_API int qzerr_throw(int id, unsigned level, const char *format, ...) QZ_PRINTF_FORMAT(3, 4);

/**
 * Reports a message as qzerr_throw() does.
 *
 * @param id         The handler.
 * @param level      The severity, QZERR_BUMMER and up.
 * @param format     The text, as of printf; null for none.
 * @param arguments  What the format takes; the caller ends the list.
 *
 * @return  1  shown, or below the handler's level;
 *          0  as of qzerr_throw().
 */
QZ_API int qzerr_vthrow(int id, unsigned level, const char *format, va_list arguments)
    QZ_PRINTF_FORMAT(3, 0);

/**
 * Reports the use of something deprecated, once for each place in the source, as
 * "DEPRECATION for FUNCTION (FILE:LINE): " and the text, QZERR_WARNING on handler 0. It does so
 * only when the environment variable HALCYRA_DEPRECATION_WARNING was set, even to nothing, at the
 * first call in the process, and not while handler 0 has no stream.
 *
 * @param file      Where it is used: __FILE__, since its address names the place. Its text is read
 *                  only during the call.
 * @param line      The line there.
 * @param function  What is deprecated.
 * @param format    The text, as of printf, with its line break; null for none.
 *
 * @return  1 in each case.
 */
QZ_API int qzlog_deprecation_warning(const char *file, int line, const char *function,
                                     const char *format, ...) QZ_PRINTF_FORMAT(4, 5);

#ifdef __cplusplus
}
#endif

#endif
