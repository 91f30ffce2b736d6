/** @file
 *  The entry points for Fortran programs, as a C program sees them.
 *
 *  Each is exported under its upper-case name and under the one that gfortran looks for, in lower
 *  case with an underscore behind it, so that "call qzerrf_new(id, status)" links without a switch.
 *
 *  Numbers are passed by reference: INTEGER has 32 bits, REAL 64. Of a CHARACTER argument the first
 *  byte is passed, and its declared length by value behind all other arguments, in the order of the
 *  texts. A caller may pass that length in 64 bits; the low 32 are read. The token entry points
 *  take no lengths and read texts up to a NUL, which the Fortran side supplies.
 *
 *  The error and token entry points report as the functions they forward to do; the file entry
 *  points report a failure once more, on handler -1 under their own name. No exception leaves them.
 *  Call them from one thread at a time, as the functions behind them.
 */
#ifndef QZFILESHARED_QZFORTRAN_H
#define QZFILESHARED_QZFORTRAN_H

#include "qzexport.h"

#ifdef __cplusplus
extern "C" {
#endif

/* error handlers */
/**
 * Makes an error handler that prints nothing yet: qzerr_new().
 *
 * @param[out] id      The handler, released by the caller with QZERRF_DELETE().
 * @param[out] status  1.
 */
QZ_API void QZERRF_NEW(int *id, int *status);

/**
 * Deletes an error handler: qzerr_delete(), with its message for handlers 0 and -1.
 *
 * @param id  The handler.
 */
QZ_API void QZERRF_DELETE(int *id);

/**
 * Sets the level below which a handler prints nothing: qzerr_level().
 *
 * @param id           The handler.
 * @param level        The level, 0 to 6.
 * @param[out] status  1; 0 when there is no such handler (no message).
 */
QZ_API void QZERRF_LEVEL(int *id, int *level, int *status);

/**
 * Tells the highest level thrown on a handler: qzerr_maxlevel().
 *
 * @param id             The handler.
 * @param[out] maxlevel  The level; unchanged when there is no such handler.
 * @param[out] status    1; 0 when there is no such handler (no message).
 */
QZ_API void QZERRF_MAXLEVEL(int *id, int *maxlevel, int *status);

/**
 * Sends the output of a handler to a Fortran unit, one record for each message, in order with what
 * the program itself writes there.
 *
 * @param id           The handler.
 * @param unit         The unit, which the program opens and closes; a negative one is silence. The
 *                     numbers of "newunit=" are negative.
 * @param[out] status  1; 0 when there is no such handler (no message).
 */
QZ_API void QZERRF_FILE(int *id, int *unit, int *status);

/**
 * Sets the text in front of the messages of a handler: qzerr_prefix().
 *
 * The text is worked on in place. Its 20th byte becomes a NUL; the blanks and NULs at its end
 * become one blank, so that it stands apart from the name of the level, or none behind a text of 19
 * characters. When there is nothing else in it, it is passed as it stands, and a NUL is stored in
 * the byte in front of it.
 *
 * @param id           The handler.
 * @param prefix       The text, copied. A variable of at least 20 characters; a shorter text, such
 *                     as a literal, is left as it is and only copied.
 * @param[out] status  1; 0 when there is no such handler or memory is out (no message).
 * @param prefix_len   Declared length of @p prefix.
 */
QZ_API void QZERRF_PREFIX(int *id, char *prefix, int *status, int prefix_len);

/**
 * Names a level: qzerr_return_code().
 *
 * @param level      The level.
 * @param[out] code  The name, cut to 20 characters; blanks up to the 20th behind a shorter one.
 *                   What a longer variable holds behind that stays.
 * @param code_len   Declared length of @p code; no more is written.
 */
QZ_API void QZERRF_RETURN_CODE(int *level, char *code, int code_len);

/**
 * Reports a message: qzerr_throw() with the message as its format and nothing to fill in, so a '%'
 * is written "%%". A line break follows on a stream.
 *
 * @param id           The handler.
 * @param level        The level.
 * @param message      The text, with the blanks at its end. A variable of at least 80 characters,
 *                     whose 80th becomes a NUL; a shorter text, such as a literal, stays as it is.
 * @param[out] status  1; 0 when there is no such handler or its stream or window failed.
 * @param message_len  Declared length of @p message.
 */
QZ_API void QZERRF_THROW(int *id, int *level, char *message, int *status, int message_len);

/* token lists */
/**
 * Splits a text into a new list: qztoken_new(). All texts are copied and end with a NUL.
 *
 * @param[out] handle  The list, released by the caller with QZTOKENF_DELETE().
 * @param text         The text to split.
 * @param separators   Characters between tokens.
 * @param pairs        Characters that quote, in pairs.
 * @param comments     Characters that begin a comment.
 * @param escapes      Characters that escape the next one.
 * @param singles      Characters that are tokens.
 * @return the result of qztoken_new().
 */
QZ_API int QZTOKENF_NEW(int *handle, const char *text, const char *separators, const char *pairs,
                        const char *comments, const char *escapes, const char *singles);

/**
 * Appends a token: qztoken_add().
 *
 * @param handle  The list.
 * @param text    The text, ended by a NUL.
 * @return the result of qztoken_add(), with its messages.
 */
QZ_API int QZTOKENF_ADD(const int *handle, const char *text);

/**
 * Appends a token in a field of blanks: qztoken_addn(). Its numbers are passed by value, which a
 * Fortran program declares or asks for with %val().
 *
 * @param handle  The list.
 * @param text    The text, ended by a NUL.
 * @param width   Length of the field.
 * @param left    Not 0 for the left end.
 * @param offset  Where the text starts.
 * @return the result of qztoken_addn(), with its messages.
 */
QZ_API int QZTOKENF_ADDN(int handle, const char *text, int width, int left, int offset);

/**
 * Removes all tokens: qztoken_clear().
 *
 * @param handle  The list.
 * @return the result of qztoken_clear(), with its messages.
 */
QZ_API int QZTOKENF_CLEAR(const int *handle);

/**
 * Replaces the tokens of a list by those of another: qztoken_copy().
 *
 * @param destination  The list that is changed.
 * @param source       The list that is read.
 * @return the result of qztoken_copy(), with its messages.
 */
QZ_API int QZTOKENF_COPY(const int *destination, const int *source);

/**
 * The same with each token in a field of blanks: qztoken_copyn().
 *
 * @param destination  The list that is changed.
 * @param source       The list that is read.
 * @param width        Length of the field.
 * @param left         Not 0 for the left end.
 * @param offset       Where the text starts.
 * @return the result of qztoken_copyn(), with its messages.
 */
QZ_API int QZTOKENF_COPYN(const int *destination, const int *source, const int *width,
                          const int *left, const int *offset);

/**
 * Deletes a list: qztoken_delete().
 *
 * @param handle  The list.
 * @return the result of qztoken_delete(), with its messages.
 */
QZ_API int QZTOKENF_DELETE(const int *handle);

/**
 * Removes a token: qztoken_delete_token().
 *
 * @param handle  The list.
 * @param index   The token, from 0.
 * @return the result of qztoken_delete_token(), with its messages.
 */
QZ_API int QZTOKENF_DELETE_TOKEN(const int *handle, const int *index);

/**
 * Tells whether a token is a number: qztoken_find_type().
 *
 * @param handle  The list.
 * @param index   The token, from 0.
 * @return the result of qztoken_find_type(), with its messages.
 */
QZ_API int QZTOKENF_FIND_TYPE(const int *handle, const int *index);

/**
 * Reads a token as a real number: qztoken_get_double().
 *
 * @param handle      The list.
 * @param index       The token, from 0.
 * @param[out] value  The number.
 * @return the result of qztoken_get_double(), with its messages.
 */
QZ_API int QZTOKENF_GET_DOUBLE(const int *handle, const int *index, double *value);

/**
 * Reads a token as an integer: qztoken_get_int().
 *
 * @param handle      The list.
 * @param index       The token, from 0.
 * @param[out] value  The number.
 * @return the result of qztoken_get_int(), with its messages.
 */
QZ_API int QZTOKENF_GET_INT(const int *handle, const int *index, int *value);

/**
 * Joins the tokens into one text: qztoken_get_string().
 *
 * @param handle  The list.
 * @return the text, released by the caller with free(); null for a bad handle.
 */
QZ_API char *QZTOKENF_GET_STRING(const int *handle);

/**
 * Copies the text of a token: qztoken_get_token().
 *
 * @param handle      The list.
 * @param index       The token, from 0.
 * @param[out] token  A variable of at least 255 characters: the first 255 of the token, or a
 *                    shorter one with NULs up to the 255th; unchanged unless 0 is returned.
 * @return 0; -1 for a bad handle or index.
 */
QZ_API int QZTOKENF_GET_TOKEN(const int *handle, const int *index, char *token);

/**
 * Finds a token: qztoken_index().
 *
 * @param handle  The list.
 * @param text    The text, ended by a NUL.
 * @return the result of qztoken_index(), with its messages.
 */
QZ_API int QZTOKENF_INDEX(const int *handle, const char *text);

/**
 * Finds a token by its first characters: qztoken_indexn().
 *
 * @param handle  The list.
 * @param text    The text, ended by a NUL.
 * @param n       Number of characters to compare.
 * @return the result of qztoken_indexn(), with its messages.
 */
QZ_API int QZTOKENF_INDEXN(const int *handle, const char *text, const int *n);

/**
 * Appends the tokens of another list: qztoken_merge().
 *
 * @param destination  The list that is changed.
 * @param source       The list that is read.
 * @return the result of qztoken_merge(), with its messages.
 */
QZ_API int QZTOKENF_MERGE(const int *destination, const int *source);

/**
 * The same with each token in a field of blanks: qztoken_mergen().
 *
 * @param destination  The list that is changed.
 * @param source       The list that is read.
 * @param width        Length of the field.
 * @param left         Not 0 for the left end.
 * @param offset       Where the text starts.
 * @return the result of qztoken_mergen(), with its messages.
 */
QZ_API int QZTOKENF_MERGEN(const int *destination, const int *source, const int *width,
                           const int *left, const int *offset);

/**
 * Counts the tokens: qztoken_num().
 *
 * @param handle  The list.
 * @return the result of qztoken_num(), with its messages.
 */
QZ_API int QZTOKENF_NUM(const int *handle);

/**
 * Takes the tokens as wildcards: qztoken_regex_compile().
 *
 * @param handle  The list.
 * @return the result of qztoken_regex_compile(), with its messages.
 */
QZ_API int QZTOKENF_REGEX_COMPILE(const int *handle);

/**
 * Finds the first wildcard that a text matches: qztoken_regex_index().
 *
 * @param handle  The list.
 * @param text    The text, ended by a NUL.
 * @return the result of qztoken_regex_index(), with its messages.
 */
QZ_API int QZTOKENF_REGEX_INDEX(const int *handle, const char *text);

/**
 * Replaces a token: qztoken_replace().
 *
 * @param handle  The list.
 * @param index   The token, from 0.
 * @param text    The text, ended by a NUL.
 * @return the result of qztoken_replace(), with its messages.
 */
QZ_API int QZTOKENF_REPLACE(const int *handle, const int *index, const char *text);

/**
 * Turns a token to lower case: qztoken_tolower_token().
 *
 * @param handle  The list.
 * @param index   The token, from 0.
 * @return the result of qztoken_tolower_token(), with its messages.
 */
QZ_API int QZTOKENF_TOLOWER_TOKEN(const int *handle, const int *index);

/**
 * Turns all tokens to upper case: qztoken_toupper().
 *
 * @param handle  The list.
 * @return the result of qztoken_toupper(), with its messages.
 */
QZ_API int QZTOKENF_TOUPPER(const int *handle);

/* files and paths */
/**
 * Does nothing, for callers that still start the module.
 *
 * @param ignored      Not read.
 * @param[out] status  0.
 */
QZ_API void QZFILEF_INITIALIZE(void *ignored, int *status);

/**
 * Expands home directories and variables: qzfile_dir_expand().
 *
 * @param name         The text, up to its last character that is no blank.
 * @param[out] path    The expansion with blanks behind it, as far as it fits; unchanged when there
 *                     is none.
 * @param[out] status  0; -1 with "%s: qzfile_dir_expand() fails, cname='%s', cpath=%s\n"
 *                     (QZERR_INFO) when a directory is not found, and with "%s: fpath not long
 *                     enough; need %d chars, have %d" (QZERR_FATAL) when it is cut.
 * @param name_len     Declared length of @p name.
 * @param path_len     Declared length of @p path.
 */
QZ_API void QZFILEF_DIR_EXPAND(const char *name, char *path, int *status, int name_len,
                               int path_len);

/**
 * Ends the lines of a file with bare line feeds: qzfile_dos_to_unix(), with its messages alone.
 *
 * @param name         The file, up to the last character that is no blank.
 * @param[out] status  0; -1 when it failed.
 * @param name_len     Declared length of @p name.
 */
QZ_API void QZFILEF_DOS_TO_UNIX(const char *name, int *status, int name_len);

/**
 * Keeps a file for QZFILEF_DOS_TO_UNIX_CONVERT(): qzfile_dos_to_unix_register(), with its messages
 * alone.
 *
 * @param name         The file, copied up to the last character that is no blank.
 * @param[out] status  0; -1 when it failed.
 * @param name_len     Declared length of @p name.
 */
QZ_API void QZFILEF_DOS_TO_UNIX_REGISTER(const char *name, int *status, int name_len);

/**
 * Converts the files that were kept: qzfile_dos_to_unix_convert(), with its messages alone.
 *
 * @param[out] status  0; -1 when one of them failed.
 */
QZ_API void QZFILEF_DOS_TO_UNIX_CONVERT(int *status);

/**
 * Whether a file or directory can be found: qzfile_exists().
 *
 * @param name         The name, up to its last character that is no blank.
 * @param type         0 for a regular file, 1 for a directory.
 * @param[out] status  0 found; -1 not, with "%s: qzfile_exists() fails, cname='%s'\n" (QZERR_INFO).
 * @param name_len     Declared length of @p name.
 */
QZ_API void QZFILEF_EXISTS(const char *name, const int *type, int *status, int name_len);

/**
 * Finds a file or directory: qzfile_find().
 *
 * @param name         The name, up to its last character that is no blank.
 * @param type         0 for a regular file, 1 for a directory.
 * @param[out] path    The path with blanks behind it, as far as it fits; unchanged when there is
 *                     none.
 * @param[out] status  0; -1 with "%s: qzfile_find() fails, cname='%s', cpath=%s\n" (QZERR_INFO)
 *                     when it is not found, and with "%s: fpath not long enough; need %d chars,
 *                     have %d" (QZERR_FATAL) when it is cut.
 * @param name_len     Declared length of @p name.
 * @param path_len     Declared length of @p path.
 */
QZ_API void QZFILEF_FIND(const char *name, const int *type, char *path, int *status, int name_len,
                         int path_len);

/**
 * Adds directories to the search path: qzfile_path_add().
 *
 * @param path         The list, up to its last character that is no blank.
 * @param[out] status  0; -1 with "%s: qzfile_path_add(), cpath= '%s'\n" (QZERR_FATAL).
 * @param path_len     Declared length of @p path.
 */
QZ_API void QZFILEF_PATH_ADD(const char *path, int *status, int path_len);

/**
 * Adds the working directory to the search path: qzfile_path_add_cwd().
 *
 * @param[out] status  0; -1 with "%s: qzfile_path_add_cwd) fails\n" (QZERR_FATAL).
 */
QZ_API void QZFILEF_PATH_ADD_CWD(int *status);

/**
 * Adds the user's home to the search path: qzfile_path_add_home().
 *
 * @param[out] status  0; -1 with "%s: qzfile_path_add_home) fails\n" (QZERR_FATAL).
 */
QZ_API void QZFILEF_PATH_ADD_HOME(int *status);

/**
 * Empties the search path: qzfile_path_clear().
 *
 * @param[out] status  0; -1 with "%s: qzfile_path_clear() fails\n" (QZERR_FATAL).
 */
QZ_API void QZFILEF_PATH_CLEAR(int *status);

/**
 * The search path as a list: qzfile_path_get().
 *
 * @param[out] path    The list with blanks behind it, as far as it fits.
 * @param[out] status  0; -1 with "%s: qzfile_path_get() fails\n", or with "%s: fpath not long
 *                     enough; need %d chars, have %d" when it is cut (both QZERR_FATAL).
 * @param path_len     Declared length of @p path.
 */
QZ_API void QZFILEF_PATH_GET(char *path, int *status, int path_len);

/**
 * Whether a path is absolute: qzfile_path_is_absolute().
 *
 * @param path         The path, up to its last character that is no blank.
 * @param[out] status  0 absolute; -1 not, with "%s: qzfile_path_is_absolute() fails, cname='%s'\n"
 *                     (QZERR_INFO).
 * @param path_len     Declared length of @p path.
 */
QZ_API void QZFILEF_PATH_IS_ABSOLUTE(const char *path, int *status, int path_len);

/**
 * Turns every '/' of a path into '\\': qzfile_path_localize().
 *
 * @param path         The path, up to its last character that is no blank; rewritten unless the
 *                     call failed. Of more than 1024 characters the first 1024 are kept.
 * @param[out] status  0; -1 with "%s: fails, cpath=%s\n" (QZERR_INFO) for a blank path; -1 when the
 *                     path was cut. A declared length above 1024 brings "%s: cpath not long enough;
 *                     need %d chars, have %d" (QZERR_FATAL) in each case.
 * @param path_len     Declared length of @p path.
 */
QZ_API void QZFILEF_PATH_LOCALIZE(char *path, int *status, int path_len);

/**
 * Replaces the search path: qzfile_path_set().
 *
 * @param path         The list, up to its last character that is no blank.
 * @param[out] status  0; -1 with "qzfilef_path_set: qzfile_path_set() fails, cpath = '%s'\n"
 *                     (QZERR_FATAL).
 * @param path_len     Declared length of @p path.
 */
QZ_API void QZFILEF_PATH_SET(const char *path, int *status, int path_len);

#ifdef __cplusplus
}
#endif

#endif
