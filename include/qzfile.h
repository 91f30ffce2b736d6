/** @file
 *  Files, paths, directory listing, line endings, digests, installation layout and release names.
 *
 *  Paths are text in the process's narrow encoding. '/' and '\\' both separate where a function
 *  does not say otherwise; the library joins with '\\' on every system and translates on the way to
 *  the system only. A path that names a drive ("C:...") is absolute everywhere and names nothing
 *  where there are no drives. Text that comes from the system is handed on as it came.
 *
 *  Messages go to error handler -1. No exception leaves these functions; one that runs out of
 *  memory fails. Call them from one thread at a time where nothing else is said: the working
 *  directory, its stack and the handle table are the process's, and are not locked.
 */
#ifndef QZFILESHARED_QZFILE_H
#define QZFILESHARED_QZFILE_H

#include "qzexport.h"

#include <stddef.h>
#include <stdio.h>

#ifdef __cplusplus
extern "C" {
#endif

/** Does nothing, for callers that still start the module: it starts with its first use.
 *  @return 0 */
QZ_API int qzfile_initialize(void);

/** Does nothing, for callers that still stop the module.
 *  @return 0 */
QZ_API int qzfile_terminate(void);

/* search path */
/**
 * Adds directories at the end of the search path, the one list of the process in which relative
 * names are looked up.
 *
 * The first call that uses the search path fills it with "." and the list of
 * qzfile_get_constant(2), by what the variables hold then.
 *
 * @param list  The directories, copied. ':' and ';' separate them, doubled or at an end as well;
 *              but one between a single letter and a '\\' makes a drive of the letter: "C:\\a" is
 *              one directory, "C:/a" is "C" and "/a". Each is expanded as by qzfile_dir_expand(),
 *              then its '/' become '\\'. One that is there already, byte for byte, is dropped.
 *
 * @return  0  added or dropped. A directory above 1024 bytes, as written or as expanded, is left
 *             out: "QZFILE: a directory of the search path is longer than %d bytes: \"%.200s\"\n"
 *             with 1024 and the text as written. A home or computed directory that is not found
 *             stands for nothing, as its function reports. (All QZERR_WARNING.)
 *         -1  @p list is null or "": "QZFILE: empty string was given as a search path\n"
 *             (QZERR_WARNING); or memory is out.
 */
QZ_API int qzfile_path_add(const char *list);

/**
 * Replaces the search path: qzfile_path_clear(), then qzfile_path_add().
 *
 * @param list  The directories, copied; written as for qzfile_path_add().
 * @return as qzfile_path_add(); the search path is then empty where that adds nothing.
 */
QZ_API int qzfile_path_set(const char *list);

/** Empties the search path.
 *  @return 0; -1 when it cannot be made for want of memory. */
QZ_API int qzfile_path_clear(void);

/**
 * Adds what is the working directory now to the search path, as the system spells it; one that is
 * there already is dropped.
 *
 * @return 0; -1 when the directory cannot be had, as qzfile_dir_current_get() reports.
 */
QZ_API int qzfile_path_add_cwd(void);

/**
 * Adds the user's home to the search path, as halcyra::path::home() spells it; one that is there
 * already is dropped.
 *
 * @return 0; -1 when memory is out.
 */
QZ_API int qzfile_path_add_home(void);

/**
 * The search path as a list that qzfile_path_set() reads.
 *
 * @param[out] out  The directories with ':' between them, "" for none; released by the caller with
 *                  free().
 * @return 0; -1 when memory is out.
 */
QZ_API int qzfile_path_get(char **out);

/**
 * Prints the search path: a line with its number, which is 0, and one for each directory that tells
 * whether it was added as working directory or as home.
 *
 * @param stream  Where to print.
 * @return 0; -1 when @p stream is null.
 */
QZ_API int qzfile_path_print(FILE *stream);

/**
 * Whether a file or directory can be found: an absolute name where it says, any other in one of the
 * directories of the search path. A link counts as what it points to.
 *
 * @param name  The name; it is not expanded. "" is the directories themselves.
 * @param type  0 for a regular file, 1 for a directory; nothing is of any other type.
 *
 * @return  0  found;
 *         -1  not found, or null (no message);
 *         -1  @p name is relative and the search path empty, "QZFILE: there are no directories in
 *             the search path\n" (QZERR_FATAL).
 */
QZ_API int qzfile_exists(const char *name, int type);

/**
 * Whether a path is that of a file or directory; nothing is searched or expanded.
 *
 * @param path  The path; a relative one begins in the working directory.
 * @param type  0 for a regular file, 1 for a directory; nothing is of any other type.
 * @return 0 it is; -1 it is not, or @p path is null. Any number of threads may call it while nobody
 *         changes the working directory.
 */
QZ_API int qzfile_file_exists(const char *path, int type);

/**
 * Finds a file or directory as qzfile_exists() does.
 *
 * @param name      The name.
 * @param type      0 for a regular file, 1 for a directory.
 * @param[out] out  The path, released by the caller with free(): @p name when that is absolute,
 * else the first directory that has it, one '\\' even where the directory ends in a separator, and
 * @p name: ".\\x.dat". Null unless 0 is returned.
 * @return as qzfile_exists().
 */
QZ_API int qzfile_find(const char *name, int type, char **out);

/**
 * Whether a path begins with a separator or a drive ("C:", with or without a separator after it).
 * The text alone decides, the same on every system.
 *
 * @param path  The path; null and "" are not absolute.
 * @return 0 absolute; -1 not. Any number of threads may call it.
 */
QZ_API int qzfile_path_is_absolute(const char *path);

/**
 * Turns every '/' of a path into '\\', in place.
 *
 * @param path  The path, ended by a NUL.
 * @param size  Bytes of @p path; only compared with 2.
 * @return 0; -1 when @p path is null or "" or @p size is below 2.
 *
 * Any number of threads may call it.
 */
QZ_API int qzfile_path_localize(char *path, int size);

/**
 * Turns every '\\' of a path into '/', in place; else as qzfile_path_localize().
 *
 * @param path  The path, ended by a NUL.
 * @param size  Bytes of @p path; only compared with 2.
 * @return 0; -1 when @p path is null or "" or @p size is below 2.
 *
 * Any number of threads may call it.
 */
QZ_API int qzfile_path_to_unix(char *path, int size);

/** The separator that the library writes: '\\' on every system.
 *  @return 92 */
QZ_API char qzfile_get_filesep_char(void);

/**
 * A fixed text of the search path.
 *
 * @param index  0 the file separator, 1 the separator of lists, 2 to 9 the list of one product's
 *               data directories, for qzfile_path_add(): 2 the shared components, 3 atelio,
 *               4 korvel, 5 brevix, 6 hesprin, 7 lumetra, 8 ostrine, 9 dolmire.
 * @return the text, borrowed until the process ends; null for any other index. Any number of
 *         threads may call it.
 */
QZ_API const char *qzfile_get_constant(int index);

/* open files */
/**
 * Opens a file and enters it in the table of open files, which holds 100.
 *
 * A name that begins at a root or names a drive is opened as it is. Any other is looked up on the
 * search path when @p mode holds an 'r', and else lies in the working directory. That directory
 * does not change meanwhile.
 *
 * @param name      The name; it is not expanded.
 * @param[out] out  The stream, released by the caller with qzfile_close(); null unless 0 is
 *                  returned.
 * @param mode      The mode for fopen. The table keeps its first 15 characters.
 *
 * @return  0  opened;
 *         -1  100 files are open, "QZFILE: attempt to have more than %d files open at once\n"
 *             (QZERR_FATAL);
 *         -1  a name to read is no file on the search path, "QZFILE: file not found in search path:
 *             \"%s\"\n" (QZERR_INFO); qzfile_exists() may report before;
 *         -1  the file cannot be opened, "QZFILE: unable to open file (%s): \"%s\"\n" with mode and
 *             name when @p mode holds an 'r', else "QZFILE: unable to open file for reading:
 *             \"%s\"\n" whatever the mode (QZERR_INFO);
 *         -1  the working directory cannot be had, as qzfile_dir_current_get() reports; an absolute
 *             name does not need it.
 */
QZ_API int qzfile_open(const char *name, FILE **out, const char *mode);

/**
 * Closes a file of qzfile_open() and forgets it. A stream that is closed in another way keeps its
 * place in the table.
 *
 * @param stream  The stream, taken over.
 *
 * @return  0  closed. What the system could not write is told by fflush() before;
 *         -1  the stream is not in the table: it stays open (no message);
 *         -1  @p stream is null, "QZFILE: null file pointer\n" (QZERR_FATAL).
 */
QZ_API int qzfile_close(FILE *stream);

/**
 * Where a file of qzfile_open() lies: its directory, one '\\' and its name.
 *
 * An absolute name is split as by qzfile_parse_path(): at its last '\\', and one that has none is
 * all name. Of any other the directory is the search path's own for a name found there ("." for the
 * working directory), and else the working directory of that time, and the name is as given.
 *
 * @param stream    The stream.
 * @param[out] buf  Receives the path; "" unless 0 is returned.
 * @param size      Bytes of @p buf.
 *
 * @return  0  told;
 *         -1  @p stream is null, "QZFILE: null file pointer\n"; or not in the table, "QZFILE: file
 *             pointer does not match any open files\n";
 *         -1  the path and its end need more than @p size bytes or @p buf is null, "QZFILE: buffer
 *             too small for intended use\n" (all QZERR_FATAL).
 */
QZ_API int qzfile_file_get_path(FILE *stream, char *buf, size_t size);

/**
 * The standard fgets, tried again while a signal interrupts it. errno is cleared before each try.
 *
 * @param[out] buf  Receives the line with its newline.
 * @param size      Bytes of @p buf.
 * @param stream    The stream to read.
 * @return what the last fgets returned: @p buf, or null at the end and on an error. What a try had
 *         read of the line when it was interrupted is the runtime's to keep or to drop.
 */
QZ_API char *fgets_safe(char *buf, int size, FILE *stream);

/* directories */
/**
 * Expands a leading "~" or "~user" to a home directory and each "$NAME" to what it stands for.
 *
 * NAME is the longest run of ASCII letters, digits and '_'; a '$' without one stays, and there is
 * no form with braces. USERDATA, APPDATA and LOCAL_APPDATA stand for the directories that
 * qzfile_halcyra_userdata_dir(), qzfile_halcyra_appdata_dir() and
 * qzfile_halcyra_local_appdata_dir() find and make; any other name for the variable of the
 * environment, and for nothing when it is not set. What they stand for is not expanded again, and
 * separators stay as they are.
 *
 * @param text      The text, of any length.
 * @param[out] out  The expansion, released by the caller with free(); null only when @p text is
 *                  null or memory is out.
 *
 * @return  0  the last home or computed directory was found, or there was none to find;
 *         -1  it was not found and stands for nothing, as its function reports; or null, or memory.
 */
QZ_API int qzfile_dir_expand(const char *text, char **out);

/**
 * Expands a text in place, as qzfile_dir_expand() does.
 *
 * @param buf   The text, at most 1024 characters.
 * @param size  The longest expansion to accept, in characters. Its end is written behind it: the
 *              buffer has @p size + 1 bytes.
 *
 * @return  0  expanded;
 *         -1  @p buf is null, empty or longer than 1024 characters, or @p size is below 1: nothing
 *             is changed, and there is no message;
 *         -1  the expansion is longer: @p buf holds its first @p size characters, no message;
 *         -1  a home or computed directory was not found, as for qzfile_dir_expand().
 */
QZ_API int qzfile_dir_expand_buffer(char *buf, int size);

/**
 * The user's home directory, as halcyra::path::home() gives it.
 *
 * @param[out] out  The directory, released by the caller with free().
 * @return 0; -1 when memory is out.
 */
QZ_API int qzfile_dir_home(char **out);

/**
 * The home directory that the system's user database holds for a user.
 *
 * @param user      The user's name.
 * @param[out] out  The directory, released by the caller with free(); null unless 0 is returned.
 *
 * @return  0  found;
 *         -1  @p user is unknown, "qzfile_dir_user_home: Unable to get home directory for user
 *             '%s'\n", or null, "qzfile_dir_user_home: null user name given\n" (QZERR_WARNING).
 */
QZ_API int qzfile_dir_user_home(const char *user, char **out);

/**
 * The working directory.
 *
 * @param[out] out  The directory as the system spells it, released by the caller with free(); null
 *                  unless 0 is returned.
 *
 * @return  0  known;
 *         -1  it cannot be had, for example because it was removed:
 *             "qzfile_dir_current_get: current_path %s" with the system's text (QZERR_FATAL).
 */
QZ_API int qzfile_dir_current_get(char **out);

/**
 * Changes the working directory, for every thread of the process.
 *
 * @param dir  The directory, expanded as by qzfile_dir_expand_buffer(); below 1024 characters, and
 *             at most 1024 when expanded.
 *
 * @return  0  changed;
 *         -1  @p dir is null, too long, expands to nothing or cannot be entered (errno says why);
 *             without a message but those of the expansion.
 */
QZ_API int qzfile_dir_current_set(const char *dir);

/**
 * Saves the working directory on a stack of the process, of any depth.
 *
 * @return 0; -1 when the directory cannot be had, as qzfile_dir_current_get() reports.
 */
QZ_API int qzfile_dir_current_push(void);

/**
 * Returns to the directory saved last, through qzfile_dir_current_set(), and forgets it whatever
 * comes of that.
 *
 * @return  0  returned;
 *         -1  it cannot be entered any more (no message), or nothing is saved: "QZFILE: attempt to
 *             pop current directory from empty stack\n" (QZERR_INFO).
 */
QZ_API int qzfile_dir_current_pop(void);

/**
 * Joins a directory and a name with one '\\', which either may bring along; '/' is no separator
 * here. When both bring one, the component's is dropped.
 *
 * @param dir        The directory; null and "" give a copy of @p component.
 * @param component  The name; null and "" give a copy of @p dir.
 * @return the path, released by the caller with qzfile_free_component_string(); null when both are
 *         null or "", and when memory is out. Any number of threads may call it.
 */
QZ_API char *qzfile_add_component(const char *dir, const char *component);

/**
 * The path before its last '\\'; "" when it has none. '/' is no separator here.
 *
 * @param path  The path.
 * @return the text, released by the caller with qzfile_free_component_string(); null when @p path
 *         is null or "", and when memory is out. Any number of threads may call it.
 */
QZ_API char *qzfile_remove_component(const char *path);

/**
 * The path after its last '\\'; all of it when it has none. '/' is no separator here.
 *
 * @param path  The path.
 * @return the text, released by the caller with qzfile_free_component_string(); null when @p path
 *         is null or "", and when memory is out. Any number of threads may call it.
 */
QZ_API char *qzfile_get_last_component(const char *path);

/**
 * Splits a path, up to its first newline, at its last '\\'; '/' is no separator here.
 *
 * @param path       The path; null and "" have no parts.
 * @param[out] dir   The text before the separators in front of the name, or the one "\\" of a root;
 *                   null when there is no separator. Released by the caller with free().
 * @param[out] base  The text after the last separator, null when there is none. Released by the
 *                   caller with free().
 * @return 0; -1 when @p dir or @p base is null or memory is out. Any number of threads may call it.
 */
QZ_API int qzfile_parse_path(const char *path, char **dir, char **base);

/** Releases the text of a component function.
 *  @param s  The text, taken over; null is ignored. */
QZ_API void qzfile_free_component_string(char *s);

/**
 * Makes a directory and whatever is missing above it.
 *
 * @param path  The directory; a relative one lies in the working directory. Parents are made as far
 *              as the first 1024 characters reach.
 * @param mode  Not used: the system's own default decides who may enter.
 *
 * @return  0  made, or something of that name was there already;
 *         -1  @p path is null, "qzfile_mkdir: Null path\n";
 *         -1  the working directory cannot be had, "qzfile_mkdir: getcwd failed: %s: %s\n" with
 *             the path and the system's text, which errno keeps;
 *         -1  a directory cannot be made, "qzfile_mkdir: qzfile_mkdir_recursive failed: %s : %s\n"
 *             likewise (all QZERR_WARNING).
 *
 * Directories may be made by several threads, relative ones while nobody changes the working
 * directory.
 */
QZ_API int qzfile_mkdir(const char *path, int mode);

/* listing */
/**
 * Opens a directory for listing.
 *
 * @param[out] handle  The listing, released by the caller with qzfile_close_directory(): the
 *                     highest number that was closed, else the next new one; -1 unless 0 is
 *                     returned.
 * @param path         The directory; it is not expanded, and null is "".
 *
 * @return 0; -1 when it cannot be opened. That is said on standard output, "opendir: Unable to open
 *         \"%s\"\n", and not on an error handler.
 */
QZ_API int qzfile_open_directory(int *handle, const char *path);

/**
 * Lets a listing deliver only the names in which a regular expression (qzregex.h) matches.
 *
 * @param handle   The listing.
 * @param pattern  The expression, which takes the place of an earlier one; copied. Null and ""
 *                 change nothing.
 *
 * @return  0  set;
 *         -1  @p pattern does not compile, "QZFILE: can not compile filter -> %s\n" (QZERR_INFO)
 *             after the expression's own message; an earlier filter stays;
 *         -1  there is no such listing (no message).
 */
QZ_API int qzfile_set_dir_filter(int handle, const char *pattern);

/**
 * The next bare name of a listing, in the system's order, without "." and "..".
 *
 * @param handle     The listing.
 * @param[out] name  Receives the name. One of exactly @p size bytes gets no NUL behind it: pass one
 *                   byte less than there is, and clear the last.
 * @param size       The longest name to accept, in bytes.
 *
 * @return  0  delivered;
 *         -1  the name is longer than @p size; @p name is as it was, and the name is passed over;
 *         -2  the end, or no such listing;
 *         -2  the next name has 256 bytes or more: errno is E2BIG (7), and the listing ends.
 */
QZ_API int qzfile_get_next_file(int handle, char *name, int size);

/**
 * Ends a listing.
 *
 * @param handle  The listing, taken over.
 * @return 0; -1 when there is no such listing (no message).
 */
QZ_API int qzfile_close_directory(int handle);

/**
 * Removes a file, or a directory with all that is in it.
 *
 * What a link points to decides what kind of thing it is, but the link is what is removed: @p path
 * itself as well as the links inside it. Nothing outside of the tree is touched. Nothing protects
 * the working directory or the root of a drive.
 *
 * @param path  The file or directory; a relative one lies in the working directory. An absolute
 *              spelling above 1024 characters is refused.
 *
 * @return  0  removed;
 *         -1  there is no file or directory of that name, not all of a directory can be removed, or
 *             the working directory cannot be had (no message);
 *         -1  a file cannot be removed, "qzfile_rm_recursive: unlink failed: %s" (QZERR_WARNING;
 *             errno says why); or @p path is null, "qzfile_rm_recursive: Null path.\n"
 *             (QZERR_FATAL).
 */
QZ_API int qzfile_rm_recursive(const char *path);

/* line endings */
/**
 * Whether a file's first line holds a carriage return. The first 1023 bytes of the line are
 * examined, and nothing behind a NUL: what begins with a NUL is no text.
 *
 * @param path  The file; a relative path begins in the working directory.
 * @return 0 it does; -1 it does not, or the file cannot be read or is null (no message).
 */
QZ_API int qzfile_is_dosfile(const char *path);

/**
 * Ends the lines of a file with bare line feeds.
 *
 * Nothing is done unless qzfile_exists() finds @p path as a file and qzfile_is_dosfile() takes it
 * for one. Then each line is cut at its last carriage return; what follows that within the line
 * goes. A line longer than 1023 bytes counts as lines of 1023 bytes, of which those without a
 * carriage return stay. NULs stay.
 *
 * The result is written beside the file as @p path and ".tmp", instead of a file that has this
 * name, and takes its place in one step, with its permissions: a failure leaves the file as it was
 * and no ".tmp". A link goes on to name the file, beside which the result is written then.
 *
 * @param path  The file; a relative path begins in the working directory, also when the file is
 *              found on the search path.
 *
 * @return  0  converted, or nothing was to be done;
 *         -1  "qzfile_dos_to_unix():Failed to open '%s' for reading.\n";
 *         -1  "qzfile_dos_to_unix():Failed to open '%s' for writing.\n" with the ".tmp": it cannot
 *             be made;
 *         -1  "qzfile_dos_to_unix():Failed to rename the converted file '%s' to '%s'.\n": it
 *             cannot be read or written to its end, or does not take the place;
 *         -1  "qzfile_dos_to_unix():Failed to allocate memory for path '%s'.\n" (all QZERR_FATAL).
 */
QZ_API int qzfile_dos_to_unix(const char *path);

/**
 * Registers a file for qzfile_dos_to_unix_convert().
 *
 * @param path  The file, copied. One that is registered already and one beyond the fiftieth are
 *              left out.
 *
 * @return  0  registered or left out;
 *         -1  @p path is null (no message), or "qzfile_dos_to_unix_register():Failed to allocate
 *             memory for path '%s'.\n" (QZERR_FATAL).
 */
QZ_API int qzfile_dos_to_unix_register(const char *path);

/**
 * Converts the registered files as qzfile_dos_to_unix() does, in order and with '\\' as their
 * separator, and forgets them.
 *
 * @return  0  each is converted, or there was nothing to do;
 *         -1  one or more failed: after its own message, "qzfile_dos_to_unix_convert():'%s' is not
 * a dos file.\nWill continue with the remaining files in the list, if any.\n" (QZERR_WARNING).
 */
QZ_API int qzfile_dos_to_unix_convert(void);

/* digests */
/**
 * The MD5 digest of a file.
 *
 * @param[out] digest  Receives the 16 bytes; all zero unless 0 is returned.
 * @param path         The file as the system spells it: nothing is translated or searched.
 * @return 0; 1 when the file cannot be opened or read to its end, or is null (no message). Any
 *         number of threads may call it.
 */
QZ_API int qzfile_md5_file(unsigned char digest[16], const char *path);

/**
 * The MD5 digest of what is left of standard input, which stays open. An error ends it as its end
 * does; ferror() tells.
 *
 * @param[out] digest  Receives the 16 bytes.
 * @return 0
 */
QZ_API int qzfile_md5_filter(unsigned char digest[16]);

/**
 * The MD5 digest of a text without its NUL.
 *
 * @param[out] digest  Receives the 16 bytes; all zero unless 1 is returned.
 * @param text         The text.
 * @return 1, unlike the digest of a file; 0 when @p text is null.
 *
 * Any number of threads may call it.
 */
QZ_API int qzfile_md5_string(unsigned char digest[16], const char *text);

/* installation layout */
/**
 * Finds the directory of a product in the installation root, the value of HALCYRA: the first of its
 * names that is @p product, "-v" and a version such as 71131 or 2025.3. Several versions are not
 * ranked.
 *
 * @param product   The product's word, as a part of a regular expression.
 * @param[out] out  The root and the name, released by the caller with free(); null unless 0 is
 *                  returned.
 *
 * @return  0  found;
 *         -1  no directory has such a name (no message);
 *         -1  the root cannot be listed, "Cannot open %s\n" (QZERR_FATAL) after what
 *             qzfile_open_directory() says on standard output.
 *
 * Any number of threads may call it while nobody sets variables.
 */
QZ_API int qzfile_find_product_dir(const char *product, char **out);

/** The sentence that asks a user to report a problem; callers append the files to upload.
 *  @return the text, borrowed until the process ends. */
QZ_API const char *qzfile_get_halcyra_support_error_mesg(void);

/**
 * The maker's directory among the user's roaming application data, made when it is missing.
 *
 * @param[out] out  The directory, released by the caller with free(); null unless 0 is returned.
 *                  HALCYRA_APPDATA_OVERRIDE, when set, is delivered in its place.
 *
 * @return  0  there;
 *         -1  the system has no such folder, "qzfile_halcyra_appdata_dir: Unable to get appdata
 * directory\n" (QZERR_WARNING), or the directory cannot be made, as qzfile_mkdir() reports.
 */
QZ_API int qzfile_halcyra_appdata_dir(char **out);

/**
 * The maker's directory among the user's local application data, made when it is missing.
 *
 * @param[out] out  The directory, released by the caller with free(); null unless 0 is returned.
 *                  HALCYRA_APPDATA_OVERRIDE, when set, is delivered in its place.
 *
 * @return  0  there;
 *         -1  the system has no such folder, "qzfile_halcyra_local_appdata_dir: Unable to get local
 * appdata directory\n" (QZERR_WARNING), or the directory cannot be made, as qzfile_mkdir() reports.
 */
QZ_API int qzfile_halcyra_local_appdata_dir(char **out);

/**
 * The maker's directory among the user's own files, in the profile or home directory, made when it
 * is missing.
 *
 * @param[out] out  The directory, released by the caller with free(); null unless 0 is returned.
 *                  No variable replaces it.
 *
 * @return  0  there;
 *         -1  the system has no such folder, "qzfile_halcyra_userdata_dir: Unable to get userdata
 * directory\n" (QZERR_WARNING), or the directory cannot be made, as qzfile_mkdir() reports.
 */
QZ_API int qzfile_halcyra_userdata_dir(char **out);

/**
 * The user's desktop folder as the desktop has it; it may be missing.
 *
 * @param[out] out  The folder, released by the caller with free(); null unless 0 is returned.
 *
 * @return  0  known;
 *         -1  not: "qzfile_get_desktop_dir: Unable to get desktop directory\n" (QZERR_WARNING).
 */
QZ_API int qzfile_get_desktop_dir(char **out);

/**
 * The user's documents folder as the desktop has it; it may be missing.
 *
 * @param[out] out  The folder, released by the caller with free(); null unless 0 is returned.
 *
 * @return  0  known;
 *         -1  not: "qzfile_halcyra_mydocuments_dir: Unable to get my documents directory\n"
 *             (QZERR_WARNING).
 */
QZ_API int qzfile_get_mydocuments_dir(char **out);

/**
 * The user's network places folder as the desktop has it; it may be missing.
 *
 * @param[out] out  The folder, released by the caller with free(); null unless 0 is returned.
 *
 * @return  0  known;
 *         -1  not: "qzfile_halcyra_mynetworkplaces_dir: Unable to get my documents directory\n"
 *             (QZERR_WARNING).
 */
QZ_API int qzfile_get_mynetworkplaces_dir(char **out);

/**
 * The directory for temporary files, made when it is missing: HALCYRA_TMPDIR when set, else "tmp"
 * in qzfile_halcyra_local_appdata_dir().
 *
 * @param[out] out  The directory, released by the caller with free(); null unless 0 is returned.
 *
 * @return  0  there;
 *         -1  "qzfile_get_halcyra_temp: Unable to get local appdata directory\n" (QZERR_WARNING),
 *             or it cannot be made, as qzfile_mkdir() reports.
 */
QZ_API int qzfile_get_halcyra_temp(char **out);

/**
 * The directory of the current release in qzfile_halcyra_appdata_dir(), made when it is missing.
 *
 * @param[out] out  The directory, released by the caller with free(), or null. It is null with a
 *                  result of 0 when the directory cannot be made, as qzfile_mkdir() reports.
 * @return 0; -1 when qzfile_halcyra_appdata_dir() fails.
 */
QZ_API int qzfile_get_appdata_release_dir(char **out);

/**
 * The old name of qzfile_get_appdata_release_dir(): as that one, after a deprecation warning.
 *
 * @param[out] out  As for qzfile_get_appdata_release_dir().
 * @return as for qzfile_get_appdata_release_dir().
 */
QZ_API int qzfile_appdata_release_dir(char **out);

/**
 * The name of the release that the library belongs to, for example "2025-3".
 *
 * @param[out] name  The name, released by the caller with free(); null when memory is out.
 * @return 0. Any number of threads may call it.
 */
QZ_API int qzfile_get_release_name(char **name);

/**
 * The version of a product in this release.
 *
 * @param product       The product's word, compared byte for byte.
 * @param[out] version  The version; as it was unless 0 is returned.
 * @return 0; -1 for an unknown word (no message). Any number of threads may call it.
 */
QZ_API int qzfile_get_product_version(const char *product, int *version);

#ifdef __cplusplus
}
#endif

#endif
